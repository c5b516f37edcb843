#include "RunZel.h"
#include "TemporaryText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// y1 of R: 156.10111 + 19.01784 = 175.11895.
TEST(MatchCommand, FindsIonsInTwoColumns)
{
    const ProgramRun run = runZel({u"match"_s, u"EGVNDNEEGFFSAR"_s, u"-"_s, u"--digits"_s, u"4"_s},
                                  "mz\tshare\n175.1192\t21\n200.0\t5\n175.1300\t7\n");
    EXPECT_EQ(run.header(), "label\tmz\tpeak\tintensity\tppm");
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    ASSERT_EQ(run.rows().size(), 1);
    EXPECT_EQ(run.rows()[0].first(4), (QByteArrayList{"y1", "175.1190", "175.1192", "21.0000"}));
    EXPECT_NEAR(run.rows()[0][4].toDouble(), (175.1192 - 175.11895) / 175.11895 * 1e6, 0.05);
}

TEST(MatchCommand, ToleranceMayBeInDaltons)
{
    const QByteArray peaks = "175.13 7\n";
    EXPECT_EQ(runZel({u"match"_s, u"GAR"_s, u"-"_s}, peaks).rows().size(), 0);
    EXPECT_EQ(
        runZel({u"match"_s, u"GAR"_s, u"-"_s, u"--tolerance"_s, u"0.02Da"_s}, peaks).rows().size(),
        1);
}

TEST(MatchCommand, ReadsOneSpectrumOfMgf)
{
    const QByteArray mgf = "BEGIN IONS\nTITLE=one\nPEPMASS=400\n175.1192 21\nEND IONS\n"
                           "BEGIN IONS\nTITLE=two\nPEPMASS=400\n175.1190 3\nEND IONS\n";
    const ProgramRun either = runZel({u"match"_s, u"GAR"_s, u"-"_s}, mgf);
    EXPECT_EQ(either.status, 1);
    EXPECT_TRUE(either.errors.startsWith("stdin:6:0: ")) << either.errors.toStdString();
    const ProgramRun two = runZel({u"match"_s, u"GAR"_s, u"-"_s, u"--spectrum"_s, u"two"_s}, mgf);
    EXPECT_EQ(two.rows()[0][3], "3");
}

TEST(MatchCommand, RefusesPeaksThatAreNone)
{
    for (const QByteArray& peaks :
         {QByteArray(), QByteArray("100 1\n101 nan\n"), QByteArray("100\n101 1\n"),
          QByteArray("100 1\n-5 1\n"), QByteArray("100 -1\n")}) {
        const ProgramRun run = runZel({u"match"_s, u"GAR"_s, u"-"_s}, peaks);
        EXPECT_EQ(run.status, 1) << peaks.toStdString();
        EXPECT_TRUE(run.rows().isEmpty());
    }
}

// Else the first peak would be lost without a word.
TEST(MatchCommand, RefusesAFirstLineThatIsNeitherPeakNorHeader)
{
    for (const QByteArray& line :
         {QByteArray("1e999 5"), QByteArray("nan 3"), QByteArray("-inf 3"), QByteArray("-5 1"),
          QByteArray("\xe2\x88\x92"
                     "5 1"),
          QByteArray(".x 1"), QByteArray("\"175.119\",\"21\""), QByteArray("175,119 21")}) {
        const ProgramRun run = runZel({u"match"_s, u"GAR"_s, u"-"_s}, "\n" + line + "\n200 5\n");
        EXPECT_EQ(run.status, 1) << line.constData();
        EXPECT_TRUE(run.errors.startsWith("stdin:2:")) << run.errors.constData();
    }
}

TEST(MatchCommand, PassesOverALineOfNames)
{
    for (const QByteArray& names :
         {QByteArray("m/z intensity"), QByteArray("\"mz\",\"share\""), QByteArray("\xce\xbc 2+")}) {
        const ProgramRun run = runZel({u"match"_s, u"GAR"_s, u"-"_s}, names + "\n175.119 21\n");
        EXPECT_EQ(run.status, 0) << run.errors.constData();
        EXPECT_EQ(run.rows().size(), 1) << names.constData();
    }
}

// A theoretical pattern is a list of peaks.
TEST(MatchCommand, TakesWhatIonsGives)
{
    const ProgramRun run =
        runShell(u"zel ions DRVYIHPF | cut -f 6 | tail -n +2 | sed 's/$/ 1/' "
                 u"| zel match DRVYIHPF - | cut -f 1 | tail -n +2 | sort -u | wc -l"_s);
    EXPECT_EQ(run.output.trimmed(), "14");
}
