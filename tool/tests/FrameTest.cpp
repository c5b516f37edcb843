#include "CommandNames.h"
#include "RunZel.h"
#include "TemporaryText.h"
#include "TestFiles.h"
#include "TestSeed.h"
#include "chemistry/IsotopeConfig.h"
#include "support/Number.h"
#include "support/Table.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

using namespace Qt::StringLiterals;
using namespace tool;

namespace {

/// The example that the help of a command ends with.
QString exampleOf(const QString& command)
{
    const QString help = QString::fromUtf8(runZel({u"help"_s, command}).output);
    return help.section(u"Example:\n"_s, 1).trimmed();
}

} // namespace

TEST(Frame, HelpListsEachCommand)
{
    const ProgramRun run = runZel({u"help"_s});
    EXPECT_EQ(run.status, 0);
    for (const QString& command : commandNames())
        EXPECT_TRUE(run.output.contains(command.toUtf8())) << command.toStdString();
}

TEST(Frame, ExamplesOfHelpWorkAsTheyStand)
{
    for (const QString& command : commandNames()) {
        const QString example = exampleOf(command);
        ASSERT_TRUE(example.contains(u"zel "_s + command)) << command.toStdString();
        const ProgramRun run = runShell(example);
        EXPECT_EQ(run.status, 0) << run.errors.toStdString();
        EXPECT_FALSE(run.rows().isEmpty()) << example.toStdString();
        EXPECT_EQ(run.errors, QByteArray());
    }
}

TEST(Frame, HelpOfAnUnknownCommandIsWrongUsage)
{
    EXPECT_EQ(runZel({u"help"_s, u"cook"_s}).status, 2);
}

TEST(Frame, VersionStartsWithTheNumber)
{
    const ProgramRun run = runZel({u"--version"_s});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.output.startsWith("zel 0.1.0")) << run.output.toStdString();
}

TEST(Frame, VersionNamesTheCommitOfItsClone)
{
    const ProgramRun git =
        runProgram(u"git"_s, {u"-C"_s, testFile(u"."_s), u"rev-parse"_s, u"HEAD"_s}, {});
    if (git.status != 0)
        GTEST_SKIP() << "a copy without a history";
    const QByteArray version = runZel({u"--version"_s}).output;
    const qsizetype open = version.indexOf('(');
    ASSERT_GT(open, 0) << version.constData();
    const QByteArray commit = version.sliced(open + 1).chopped(2);
    EXPECT_GE(commit.size(), 7);
    EXPECT_TRUE(git.output.startsWith(commit)) << version.constData() << git.output.constData();
}

TEST(Frame, WrongUsageHasStatusTwoAndNoOutput)
{
    const QList<QStringList> wrong = {
        {},
        {u"cook"_s},
        {u"mass"_s},
        {u"mass"_s, u"--no-such-option"_s, u"AK"_s},
        {u"mass"_s, u"--as"_s, u"poem"_s, u"AK"_s},
        {u"mass"_s, u"--digits"_s, u"-1"_s, u"AK"_s},
        {u"ions"_s, u"--as"_s, u"formula"_s, u"CH4"_s},
        {u"ions"_s, u"--charges"_s, u"0"_s, u"AK"_s},
        {u"ions"_s, u"--charges"_s, u"3-1"_s, u"AK"_s},
        {u"ions"_s, u"--series"_s, u"q"_s, u"AK"_s},
        {u"ions"_s, u"--losses"_s, u"h2o"_s, u"AK"_s},
        {u"envelope"_s, u"--coverage"_s, u"1"_s, u"AK"_s},
        {u"match"_s, u"--tolerance"_s, u"10"_s, u"AK"_s, u"-"_s},
        {u"formulas"_s, u"--ion"_s, u"[M+H]"_s, u"18"_s},
        {u"formulas"_s, u"--limit"_s, u"P2"_s, u"18"_s},
        {u"digest"_s, u"--protease"_s, u"scissors"_s, u"-"_s},
        {u"formulas"_s, u"--elements"_s, u""_s, u"18"_s},
        {u"digest"_s, u"--min"_s, u"9"_s, u"--max"_s, u"3"_s, u"-"_s},
        {u"search"_s, u"--database"_s, u"x"_s},
        {u"search"_s, u"--database"_s, u"x"_s, u"--spectra"_s, u"x"_s, u"--min"_s, u"51"_s},
        {u"search"_s, u"--database"_s, u"x"_s, u"--spectra"_s, u"x"_s, u"--variable"_s,
         u"INFO:x@M"_s}};
    for (const QStringList& arguments : wrong) {
        const ProgramRun run = runZel(arguments);
        EXPECT_EQ(run.status, 2) << arguments.join(u' ').toStdString();
        EXPECT_EQ(run.output, QByteArray()) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(run.errors.startsWith("zel: ")) << run.errors.toStdString();
    }
}

TEST(Frame, WrongUsageIsToldInPlainWords)
{
    const QList<std::pair<QStringList, QByteArray>> wrong = {
        {{u"mass"_s, u"--as"_s, u"2"_s, u"C"_s},
         "--as: expected one of formula, glycan, oligo, proforma, not '2'"},
        {{u"ions"_s, u"--as"_s, u"glycan"_s, u"Hex"_s},
         "--as: expected one of oligo, proforma, not 'glycan'"},
        {{u"digest"_s, u"--missed"_s, u"-1"_s, u"-"_s},
         "--missed: expected a whole number from 0 to 2147483647, not '-1'"},
        {{u"digest"_s, u"--max"_s, u"9.5"_s, u"-"_s},
         "--max: expected a whole number from 0 to 2147483647, not '9.5'"},
        {{u"mass"_s, u"--digits"_s, u"x"_s, u"C"_s},
         "--digits: expected a whole number from 0 to 100, not 'x'"},
        {{u"envelope"_s, u"--coverage"_s, u"0.5x"_s, u"C"_s},
         "--coverage: expected a share above 0 and at most 1 - 1e-9"}};
    for (const auto& [arguments, message] : wrong) {
        const ProgramRun run = runZel(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.errors, "zel: " + message + '\n');
    }
}

TEST(Frame, RefusedInputGivesNoRowAndTheOthersAreAnswered)
{
    const ProgramRun run = runZel({u"mass"_s, u"--digits"_s, u"4"_s, u"DRVY"_s, u"PEPX"_s, u"G"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.rows().size(), 2);
    EXPECT_TRUE(run.errors.startsWith("argument:2:3: ")) << run.errors.toStdString();
    EXPECT_EQ(run.errors.count('\n'), 1);
}

TEST(Frame, TextsComeFromFilesAndStandardInputLineByLine)
{
    const TemporaryText file("AK\r\nB?\rGK\n");
    const ProgramRun run = runZel({u"read"_s, u'@' + file.name(), u"-"_s, u"SK"_s}, "TK\n/\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "text\tcanonical\nAK\tAK\nGK\tGK\nTK\tTK\nSK\tSK\n");
    EXPECT_TRUE(run.errors.contains(QByteArray(file.name().toUtf8() + ":2:1: ")))
        << run.errors.toStdString();
    EXPECT_TRUE(run.errors.contains("stdin:2:0: ")) << run.errors.toStdString();
}

TEST(Frame, FileThatIsNotThereIsRefused)
{
    const ProgramRun run = runZel({u"read"_s, u"@/no/such/file"_s, u"AK"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.rows().size(), 1);
    EXPECT_TRUE(run.errors.startsWith("/no/such/file:1:0: ")) << run.errors.toStdString();
}

TEST(Frame, EmptyNamesOfFilesAreRefusedByName)
{
    const QList<std::pair<QStringList, QByteArray>> runs = {
        {{u"digest"_s, u""_s}, "'':1:0: expected the name of a file\n"},
        {{u"match"_s, u"PEK"_s, u""_s}, "'':1:0: expected the name of a file\n"},
        {{u"search"_s, u"--spectra"_s, u"/dev/null"_s, u"--database"_s, u""_s},
         "'':1:0: expected the name of a file\n/dev/null:1:0: expected spectra\n"},
        {{u"mass"_s, u"@"_s}, "@:1:1: expected the name of a file behind '@'\n"}};
    for (const auto& [arguments, errors] : runs) {
        const ProgramRun run = runZel(arguments);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.errors, errors);
        EXPECT_TRUE(run.rows().isEmpty());
    }
}

// A latin-1 e with an accent, and the first half of a Greek letter.
TEST(Frame, TextThatIsNoUtf8IsRefusedAtItsPlace)
{
    const ProgramRun run =
        runZel({u"read"_s, u"-"_s}, "A[INFO:caf\xe9]K\nA[INFO:\xce\xb1\xce]K\nA[INFO:\xce\xb1]K\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "stdin:1:10: expected a character in UTF-8\n"
                          "stdin:2:8: expected a character in UTF-8\n");
    EXPECT_EQ(run.output, "text\tcanonical\nA[INFO:\xce\xb1]K\tA[INFO:\xce\xb1]K\n");
    const ProgramRun argument = runShell(u"zel read AK $'A[INFO:\\xe9]K'"_s);
    EXPECT_EQ(argument.errors, "argument:2:7: expected a character in UTF-8\n");
    EXPECT_EQ(argument.rows().size(), 1);
}

TEST(Frame, BracketsAndCommasOfOneTextStayTogether)
{
    const ProgramRun run = runZel({u"read"_s, u"[Acetyl]-AK-[Amidated]"_s, u"A[INFO:a,b]K"_s});
    EXPECT_EQ(run.output, "text\tcanonical\n[Acetyl]-AK-[Amidated]\t[Acetyl]-AK-[Amidated]\n"
                          "A[INFO:a,b]K\tA[INFO:a,b]K\n");
}

// The examples of help serve as calls of all commands.
TEST(Frame, EachTableComesWithoutItsHeaderIfAsked)
{
    for (const QString& command : commandNames()) {
        const QString example = exampleOf(command);
        const QString call = u"zel "_s + command;
        const qsizetype behind = example.lastIndexOf(call) + call.size();
        const ProgramRun whole = runShell(example);
        const ProgramRun rows = runShell(QString(example).insert(behind, u" --no-header"_s));
        EXPECT_EQ(rows.status, 0) << rows.errors.toStdString();
        EXPECT_EQ(whole.header() + '\n' + rows.output, whole.output) << command.toStdString();
    }
}

// Rows beyond what a pipe holds, so that writing goes on behind the closed end.
TEST(Frame, ClosedPipeEndsQuietly)
{
    const ProgramRun run = runShell(u"yes AK | head -n 20000 > texts; zel read @texts | head -n 1; "
                                    u"echo ${PIPESTATUS[0]}"_s);
    EXPECT_EQ(run.output, "text\tcanonical\n0\n");
    EXPECT_EQ(run.errors, QByteArray());
}

TEST(Frame, FullDiskIsAnError)
{
    for (const QString& words :
         {u"mass AK"_s, u"--version"_s, u"help"_s, u"help mass"_s, u"mass --help"_s}) {
        const ProgramRun run = runShell(u"zel "_s + words + u" > /dev/full"_s);
        EXPECT_EQ(run.status, 1) << words.toStdString();
        EXPECT_TRUE(run.errors.contains("standard output")) << run.errors.toStdString();
    }
}

TEST(Frame, CellsEscapeWhatPartsThem)
{
    EXPECT_EQ(escaped("a\tb\nc\\d"), "a\\tb\\nc\\\\d");
    const ProgramRun run = runZel({u"read"_s, u"A[INFO:x\\y]K"_s});
    EXPECT_EQ(run.rows()[0][0], "A[INFO:x\\\\y]K");
}

TEST(Frame, NumbersReadBackToTheSameDouble)
{
    std::mt19937_64 random(testSeed(17));
    int compared = 0;
    while (compared < 10000) {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value))
            continue;
        EXPECT_EQ(readNumber(numberText(value)), value);
        ++compared;
    }
    EXPECT_EQ(numberText(0.1), "0.1");
    EXPECT_EQ(numberText(1045.5, 3), "1045.500");
}

TEST(Frame, NumbersAreReadToTheirLastCharacter)
{
    EXPECT_EQ(readNumber("+2.5e1"), 25.0);
    for (const char* text : {"", "+", "1,5", "1.5x", " 1", "nan", "inf", "1e999", "+-1", "0x10"})
        EXPECT_EQ(readNumber(text), std::nullopt) << text;
    EXPECT_EQ(readWhole("-12"), -12);
    EXPECT_EQ(readWhole("2147483648"), std::nullopt);
}

TEST(Frame, IsotopesAreChecked)
{
    EXPECT_EQ(checkedIsotopes(u" C13:0.99  C12:0.01 "_s).value(), u"C13:0.99 C12:0.01"_s);
    EXPECT_TRUE(checkedIsotopes(u"N15:98 N14:2 H2:100"_s));
    for (const QString& text :
         {u""_s, u"C13"_s, u"13C:1"_s, u"C99:1"_s, u"Xx13:1"_s, u"N15:98.7 N14:1.3"_s,
          u"N15:0.99 N14:0.02"_s, u"C13:1 C13:0"_s, u"C13:0.5 C13:0.5"_s, u"C13:0 C12:1"_s})
        EXPECT_FALSE(checkedIsotopes(text)) << text.toStdString();
    EXPECT_EQ(checkedIsotopes(u"H2:1 C13:0.5"_s).error().position, 5);
}

TEST(Frame, WrongIsotopesAreWrongUsage)
{
    const ProgramRun run = runZel({u"mass"_s, u"--isotopes"_s, u"N15:98.7 N14:1.3"_s, u"AK"_s});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, QByteArray());
}

TEST(Frame, WhatTheLibrariesLogForDevelopersIsNotShown)
{
    const ProgramRun run = runZel({u"mass"_s, u"--isotopes"_s, u"N15:0.99 N14:0.01"_s, u"AK"_s});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, QByteArray());
}

// A nitrogen-15 weighs 0.9970348934 Da more: published isotope masses 15.0001088982
// and 14.0030740048.
TEST(Frame, IsotopesLabelTheMolecule)
{
    const auto mass = [](const QStringList& options) {
        return runZel(QStringList{u"mass"_s, u"DRVYI"_s} + options).rows()[0][2].toDouble();
    };
    // D, V, Y and I have one nitrogen each, R has four.
    EXPECT_NEAR(mass({u"--isotopes"_s, u"N15:100"_s}) - mass({}), 8 * 0.9970348934, 1e-6);
}
