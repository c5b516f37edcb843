#include "RunZel.h"

#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QByteArrayList wordsOf(const QByteArray& text)
{
    return text.simplified().split(' ');
}

/// The commands as help lists them: the first words of the indented lines behind the heading.
QByteArrayList commands()
{
    const QByteArray help = runZel({u"help"_s}).output;
    QByteArrayList names;
    const QByteArrayList lines = help.sliced(help.indexOf("Commands:")).split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("  "))
            names.append(wordsOf(line).first());
    }
    return names;
}

QByteArrayList optionsOf(const QByteArray& command)
{
    QByteArrayList names;
    const QByteArray help = runZel({u"help"_s, QString::fromLatin1(command)}).output;
    for (QByteArray line : help.split('\n')) {
        line = wordsOf(line).first();
        if (const auto start = line.indexOf("--"); start >= 0)
            names.append(line.sliced(start));
    }
    return names;
}

/// What bash would offer behind these words, the last of which is begun.
QSet<QByteArray> completions(const QString& words)
{
    const ProgramRun run = runShell(
        u"source <(zel help --bash-completion); COMP_WORDS=("_s + words +
        u"); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _zel; printf '%s\\n' ${COMPREPLY[@]}"_s);
    EXPECT_EQ(run.status, 0) << run.errors.constData();
    const QByteArrayList offered = wordsOf(run.output);
    return {offered.begin(), offered.end()};
}

TEST(Documents, TheManualPageHasEachCommandAndOption)
{
    const ProgramRun page = runZel({u"help"_s, u"--manual-page"_s});
    EXPECT_EQ(page.status, 0);
    ASSERT_EQ(commands().size(), 9);
    for (const QByteArray& command : commands()) {
        EXPECT_TRUE(page.output.contains(QByteArray("\n.SS " + command + '\n')))
            << command.constData();
        for (QByteArray option : optionsOf(command)) {
            option.replace("-", "\\-");
            EXPECT_TRUE(page.output.contains(option)) << option.constData();
        }
    }
}

TEST(Documents, NothingInTheManualPageIsTakenForARequestOrAnEscape)
{
    const QByteArray page = runZel({u"help"_s, u"--manual-page"_s}).output;
    const QSet<QByteArray> requests = {".TH", ".SH", ".SS", ".TP", ".B", ".PP", ".nf", ".fi"};
    for (const QByteArray& line : page.split('\n')) {
        const bool isRequest = line.startsWith('.') || line.startsWith('\'');
        EXPECT_TRUE(!isRequest || requests.contains(wordsOf(line).first())) << line.constData();
        for (auto at = line.indexOf('\\'); at >= 0; at = line.indexOf('\\', at + 2))
            EXPECT_TRUE(QByteArray("-e&").contains(line.at(at + 1))) << line.constData();
    }
}

TEST(Documents, BashCompletesCommandsAndTheirOptions)
{
    const QByteArrayList names = commands();
    const QSet<QByteArray> expected(names.begin(), names.end());
    EXPECT_EQ(completions(u"zel ''"_s) - expected, (QSet<QByteArray>{"--help", "--version"}));
    EXPECT_EQ(completions(u"zel dig"_s), QSet<QByteArray>{"digest"});
    EXPECT_EQ(completions(u"zel digest prot.fasta --mi"_s),
              (QSet<QByteArray>{"--missed", "--min"}));
    for (const QByteArray& command : names) {
        const auto offered = completions(u"zel "_s + QString::fromLatin1(command) + u" --"_s);
        for (const QByteArray& option : optionsOf(command))
            EXPECT_TRUE(offered.contains(option)) << command.constData() << option.constData();
    }
}

TEST(Documents, BashCompletesTheCommandThatHelpIsAskedFor)
{
    const QByteArrayList names = commands();
    const QSet<QByteArray> expected(names.begin(), names.end());
    EXPECT_TRUE(completions(u"zel help ''"_s).contains(expected));
    EXPECT_EQ(completions(u"zel help ma"_s), (QSet<QByteArray>{"mass", "match"}));
    EXPECT_TRUE(completions(u"zel help --man"_s).contains("--manual-page"));
    EXPECT_FALSE(completions(u"zel mass mas"_s).contains("mass"));
}

TEST(Documents, BashCompletesWhatAnOptionTakes)
{
    EXPECT_EQ(completions(u"zel mass --as ''"_s),
              (QSet<QByteArray>{"formula", "glycan", "oligo", "proforma"}));
    EXPECT_EQ(completions(u"zel digest rna.fasta --as o"_s), QSet<QByteArray>{"oligo"});
    EXPECT_EQ(completions(u"zel digest --three-prime ''"_s),
              (QSet<QByteArray>{"phosphate", "cyclic"}));
}

} // namespace
