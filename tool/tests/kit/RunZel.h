#pragma once

#include <QByteArray>
#include <QList>
#include <QProcess>
#include <QString>
#include <QStringList>

/// What a run of the program came to.
struct ProgramRun
{
    int status = -1; ///< -1 if it crashed or could not be started.
    QByteArray output;
    QByteArray errors;

    /// The rows below the header, as cells.
    QList<QByteArrayList> rows() const
    {
        QList<QByteArrayList> rows;
        const QByteArrayList lines = output.split('\n');
        for (qsizetype i = 1; i + 1 < lines.size(); ++i)
            rows.append(lines[i].split('\t'));
        return rows;
    }

    /// The header.
    QByteArray header() const { return output.left(output.indexOf('\n')); }
};

inline ProgramRun runProgram(const QString& program, const QStringList& arguments,
                             const QByteArray& input)
{
    QProcess process;
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    ProgramRun run;
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit)
        run.status = process.exitCode();
    run.output = process.readAllStandardOutput();
    run.errors = process.readAllStandardError();
    return run;
}

/// Runs `zel` with these arguments and this standard input.
inline ProgramRun runZel(const QStringList& arguments, const QByteArray& input = {})
{
    return runProgram(QStringLiteral(ZEL_PROGRAM), arguments, input);
}

/// Runs a line of a shell in which `zel` is the program, in an empty folder that goes afterwards.
inline ProgramRun runShell(const QString& line)
{
    const QString definition =
        QStringLiteral("set -o pipefail; zel() { " ZEL_PROGRAM " \"$@\"; }; folder=$(mktemp -d); "
                       "trap 'rm -rf \"$folder\"' EXIT; cd \"$folder\"; ");
    return runProgram(QStringLiteral("bash"), {QStringLiteral("-c"), definition + line}, {});
}
