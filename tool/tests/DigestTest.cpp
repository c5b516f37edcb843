#include "RunZel.h"
#include "TemporaryText.h"
#include <Digest.h>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QByteArrayList column(const ProgramRun& run, qsizetype index)
{
    QByteArrayList cells;
    for (const QByteArrayList& row : run.rows())
        cells.append(row[index]);
    return cells;
}

} // namespace

// MAK | PR is no cut: trypsin does not cut in front of proline.
TEST(DigestCommand, CutsWithMissedCleavages)
{
    const ProgramRun run = runZel({u"digest"_s, u"-"_s, u"--missed"_s, u"1"_s, u"--min"_s, u"1"_s},
                                  ">P1 x\nMAKPRGKLR\n");
    EXPECT_EQ(run.header(), "protein\tstart\tend\tmissed\tsequence\tmonoisotopic\taverage");
    EXPECT_EQ(column(run, 4), (QByteArrayList{"MAKPR", "MAKPRGK", "GK", "GKLR", "LR"}));
    EXPECT_EQ(run.rows()[1].first(5), (QByteArrayList{"P1", "1", "7", "1", "MAKPRGK"}));
    EXPECT_EQ(column(run, 1), (QByteArrayList{"1", "1", "6", "6", "8"}));
    EXPECT_EQ(column(run, 2), (QByteArrayList{"5", "7", "7", "9", "9"}));
    // L + R + H2O
    EXPECT_NEAR(run.rows()[4][5].toDouble(), 113.084064 + 156.101111 + 18.010565, 2e-6);
}

TEST(DigestCommand, KeepsToLengths)
{
    const ProgramRun run =
        runZel({u"digest"_s, u"-"_s, u"--min"_s, u"4"_s, u"--max"_s, u"5"_s}, ">P1\nMAKPRGKLR\n");
    EXPECT_EQ(column(run, 4), (QByteArrayList{"MAKPR", "GKLR"}));
}

TEST(DigestCommand, LettersWithoutMassStopNothing)
{
    const ProgramRun run =
        runZel({u"digest"_s, u"-"_s, u"--min"_s, u"1"_s, u"--missed"_s, u"0"_s}, ">P1\nAXK\nGK\n");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.rows()[0], (QByteArrayList{"P1", "1", "3", "0", "AXK", "", ""}));
    EXPECT_EQ(run.rows()[1][4], "GK");
}

TEST(DigestCommand, SemiSpecificPeptidesHaveOneCut)
{
    const ProgramRun run =
        runZel({u"digest"_s, u"-"_s, u"--min"_s, u"2"_s, u"--missed"_s, u"0"_s, u"--semi"_s},
               ">P1\nAGKLR\n");
    EXPECT_EQ(column(run, 4), (QByteArrayList{"AG", "AGK", "GK", "LR"}));
}

TEST(DigestCommand, TakesAnyProteaseByName)
{
    const ProgramRun run = runZel({u"digest"_s, u"-"_s, u"--min"_s, u"1"_s, u"--missed"_s, u"0"_s,
                                   u"--protease"_s, u"Asp-N"_s},
                                  ">P1\nAADGGDK\n");
    EXPECT_EQ(column(run, 4), (QByteArrayList{"AA", "DGG", "DK"}));
}

// T1 cuts behind G; a cyclic phosphate weighs a water less.
TEST(DigestCommand, CutsRna)
{
    const QStringList arguments = {u"digest"_s, u"-"_s, u"--as"_s,     u"oligo"_s,
                                   u"--min"_s,  u"1"_s, u"--missed"_s, u"0"_s};
    const QByteArray rna = ">R1\nACGUGC\n";
    const ProgramRun open = runZel(arguments, rna);
    const ProgramRun cyclic = runZel(arguments + QStringList{u"--three-prime"_s, u"cyclic"_s}, rna);
    EXPECT_EQ(column(open, 4), (QByteArrayList{"rArCrG}", "rUrG}", "rC"}));
    EXPECT_EQ(column(cyclic, 4), (QByteArrayList{"rArCrG>p", "rUrG>p", "rC"}));
    EXPECT_NEAR(open.rows()[0][5].toDouble() - cyclic.rows()[0][5].toDouble(), 18.010565, 1e-6);
    EXPECT_EQ(open.rows()[2][5], cyclic.rows()[2][5]);
}

TEST(DigestCommand, RefusedEntriesLeaveTheOthers)
{
    const TemporaryText file(">P1\nAK\n>\nGK\n>P3\nSK\n>P4\nT\x01K\n>P5\nVK\n");
    const ProgramRun run = runZel({u"digest"_s, file.name(), u"--min"_s, u"1"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(column(run, 0), (QByteArrayList{"P1", "P3", "P5"}));
    EXPECT_TRUE(run.errors.contains(QByteArray(file.name().toUtf8() + ":3:1: ")))
        << run.errors.toStdString();
    EXPECT_TRUE(run.errors.contains(QByteArray(file.name().toUtf8() + ":8:1: ")))
        << run.errors.toStdString();
}

// The mass of a peptide is the same by both commands.
TEST(DigestCommand, PeptidesWeighWhatMassSays)
{
    const ProgramRun run =
        runShell(u"printf '>P1\\nMKWVTFISLLLLFSSAYSRGVFRR\\n' | zel digest - | cut -f 5,6 "
                 u"| tail -n +2 | sort > digest; cut -f 1 digest | zel mass - | cut -f "
                 u"1,3 | tail -n +2 | sort > mass; wc -l < mass; "
                 u"paste digest mass | awk '{d = $2 - $4; if (d > 1e-6 || d < -1e-6 || "
                 u"$1 != $3) print \"differs\"}'"_s);
    EXPECT_GT(run.output.trimmed().toInt(), 3);
    EXPECT_FALSE(run.output.contains("differs")) << run.output.toStdString();
}

// Whatever cuts, also at one end only; the last piece keeps the 3'-OH of the RNA. T is
// ribothymidine.
TEST(DigestCommand, PiecesOfRnaWeighWhatMassSays)
{
    for (const QString& enzyme : ions::Ribonuclease::names()) {
        const ProgramRun pieces = runZel({u"digest"_s, u"-"_s, u"--as"_s, u"oligo"_s, u"--min"_s,
                                          u"1"_s, u"--semi"_s, u"--protease"_s, enzyme},
                                         ">R1\nGCGGAUUUAGCUCAGUTGGGAGAGCCCAGA\n>R2\nAUG\n");
        const QByteArrayList texts = column(pieces, 4);
        const ProgramRun weighed =
            runZel({u"mass"_s, u"--as"_s, u"oligo"_s, u"-"_s}, texts.join('\n'));
        EXPECT_EQ(weighed.errors, QByteArray());
        ASSERT_EQ(weighed.rows().size(), pieces.rows().size());
        EXPECT_GT(texts.size(), 20) << enzyme.toStdString();
        for (qsizetype i = 0; i < texts.size(); ++i) {
            const QByteArrayList piece = pieces.rows()[i];
            EXPECT_NEAR(weighed.rows()[i][2].toDouble(), piece[5].toDouble(), 1e-8)
                << texts[i].data();
            EXPECT_NEAR(weighed.rows()[i][3].toDouble(), piece[6].toDouble(), 1e-8)
                << texts[i].data();
        }
    }
}

// A cyclic phosphate has no text; a piece that bears one is not weighed as something else.
TEST(DigestCommand, PiecesWithoutATextAreRefused)
{
    const ProgramRun weighed =
        runShell(u"printf '>R\\nAUGAN\\n' | zel digest - --as oligo --three-prime cyclic --min 1 "
                 u"--missed 0 | cut -f 5 | tail -n +2 | zel mass --as oligo -"_s);
    EXPECT_EQ(weighed.errors.count('\n'), 2) << weighed.errors.constData();
    EXPECT_TRUE(weighed.errors.startsWith("stdin:1:6: ")) << weighed.errors.constData();
    EXPECT_TRUE(weighed.rows().isEmpty());
}
