#include "Families.h"
#include "MessageRecorder.h"

#include <QFile>
#include <QList>
#include <QLoggingCategory>

#include <cstdio>
#include <cstring>

/// \file
/// Prints one hash over the results of a fixed corpus of requests, and one for each family of them:
/// the same on every platform. Without options it prints the table of all families.
///
///     --family steps         one row of the table
///     --values steps         the requests of a family, each with its results
///     --compare FILE         tells which rows of the table the file does not have
///     --compare FILE steps   tells whether the file has this row

namespace {

struct Family
{
    const char* name;
    void (*ask)(Answers* answers);
};

constexpr Family families[] = {
    {"formulas", askFormulas},
    {"masses", askMasses},
    {"factories", askFactories},
    {"blocks", askBlocks},
    {"peptides", askPeptides},
    {"strands", askStrands},
    {"glycans", askGlycans},
    {"fragments", askFragments},
    {"entities", askEntities},
    {"steps", askSteps},
    {"clips", askClips},
    {"matches", askMatches},
    {"enumerations", askEnumerations},
    {"envelopes", askEnvelopes},
};

/// A row of the table: a name, the number of requests, and the hash.
struct Row
{
    QByteArray name;
    int count = 0;
    QByteArray hash;

    QByteArray text() const
    {
        const QByteArray number = QByteArray::number(count);
        return QByteArray(name.leftJustified(13) + number.rightJustified(7) + ' ' + hash);
    }
};

Row rowOf(const Family& family)
{
    Answers answers(nullptr);
    family.ask(&answers);
    return {family.name, answers.count(), answers.hash()};
}

/// The row over all rows.
Row fingerprintOf(const QList<Row>& rows)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    int count = 0;
    for (const Row& row : rows) {
        hash.addData(QByteArray(row.text() + '\n'));
        count += row.count;
    }
    return {"fingerprint", count, hash.result().toHex()};
}

/// The rows of one family, or of all with the fingerprint last; none if there is no such family.
QList<Row> table(const char* onlyFamily)
{
    QList<Row> rows;
    for (const Family& family : families) {
        if (!onlyFamily || std::strcmp(onlyFamily, family.name) == 0)
            rows.append(rowOf(family));
    }
    if (!onlyFamily)
        rows.append(fingerprintOf(rows));
    return rows;
}

int usage()
{
    std::fputs("usage: chemical_model_fingerprint [--family NAME | --values NAME | "
               "--compare FILE [NAME]]\n",
               stderr);
    return 2;
}

int print(const char* onlyFamily)
{
    const QList<Row> rows = table(onlyFamily);
    if (rows.isEmpty())
        return usage();
    for (const Row& row : rows)
        std::printf("%s\n", row.text().constData());
    return 0;
}

int printValues(const char* name)
{
    for (const Family& family : families) {
        if (std::strcmp(name, family.name) == 0) {
            Answers answers(stdout);
            family.ask(&answers);
            return 0;
        }
    }
    return usage();
}

QList<QByteArray> linesOf(const char* path)
{
    QFile file(QString::fromLocal8Bit(path));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return file.readAll().split('\n');
}

/// Prints the rows and marks each that the file does not have.
int compare(const char* path, const char* onlyFamily)
{
    const QList<QByteArray> recorded = linesOf(path);
    const QList<Row> rows = table(onlyFamily);
    if (rows.isEmpty())
        return usage();
    int differences = 0;
    for (const Row& row : rows) {
        const bool isRecorded = recorded.contains(row.text());
        std::printf("%s%s\n", isRecorded ? "" : "differs: ", row.text().constData());
        differences += isRecorded ? 0 : 1;
    }
    return differences == 0 ? 0 : 1;
}

} // namespace

int main(int argumentCount, char* arguments[])
{
    const MessageRecorder messages; // the families that ask for messages read them there
    // Some distributions switch debug messages off.
    QLoggingCategory::setFilterRules(QStringLiteral("zel.generic.debug=true"));
    if (argumentCount == 1)
        return print(nullptr);
    if (argumentCount > 4)
        return usage();
    const char* value = argumentCount > 2 ? arguments[2] : nullptr;
    const auto isOption = [&](const char* option) {
        return value && std::strcmp(arguments[1], option) == 0;
    };
    if (isOption("--compare"))
        return compare(value, argumentCount > 3 ? arguments[3] : nullptr);
    if (isOption("--family"))
        return print(value);
    if (isOption("--values"))
        return printValues(value);
    return usage();
}
