#include "RunZel.h"
#include "TemporaryText.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double proton = 1.007276466621;

} // namespace

TEST(ReadCommand, WritesCanonicalTexts)
{
    const ProgramRun run = runZel({u"read"_s, u"em[unimod:0035]k/+2"_s});
    EXPECT_EQ(run.output, "text\tcanonical\nem[unimod:0035]k/+2\tEM[UNIMOD:35]K/2\n");
    EXPECT_EQ(run.status, 0);
}

TEST(ReadCommand, TakesTheOtherNotations)
{
    EXPECT_EQ(runZel({u"read"_s, u"--as"_s, u"formula"_s, u"CuSO4.5H2O"_s}).rows()[0][1],
              "CuH10O9S");
    EXPECT_EQ(runZel({u"read"_s, u"--as"_s, u"glycan"_s, u"HexHexNAc2Hex2"_s}).rows()[0][1],
              runZel({u"read"_s, u"--as"_s, u"glycan"_s, u"HexNAc2Hex3"_s}).rows()[0][1]);
    EXPECT_EQ(runZel({u"read"_s, u"--as"_s, u"oligo"_s, u"rA*rC*rG"_s}).rows()[0][1], "rA*rC*rG");
}

TEST(ReadCommand, CanonicalTextStaysAsItIs)
{
    const ProgramRun run =
        runShell(u"zel read '<13C>[acetyl]-em[oxidation]ev/[Na:z+1,H:z+1]' | tail -n 1 | cut -f 2 "
                 u"| zel read - | tail -n 1"_s);
    const QByteArrayList cells = run.output.trimmed().split('\t');
    ASSERT_EQ(cells.size(), 2);
    EXPECT_EQ(cells[0], cells[1]);
}

// Angiotensin II: C50H71N13O12, 1045.5345 Da.
TEST(MassCommand, WeighsPeptides)
{
    const ProgramRun run =
        runZel({u"mass"_s, u"--digits"_s, u"4"_s, u"DRVYIHPF"_s, u"DRVYIHPF/2"_s});
    EXPECT_EQ(run.header(), "text\tcomposition\tmonoisotopic\taverage\tmost_abundant\tmz");
    ASSERT_EQ(run.rows().size(), 2);
    EXPECT_EQ(run.rows()[0][1], "C50H71N13O12");
    EXPECT_EQ(run.rows()[0][2], "1045.5345");
    EXPECT_EQ(run.rows()[0][4], "1045.5345");
    EXPECT_EQ(run.rows()[0][5], "");
    EXPECT_EQ(run.rows()[1][2], "1045.5345");
    EXPECT_NEAR(run.rows()[1][5].toDouble(), (1045.53451 + 2 * proton) / 2, 1e-4);
}

TEST(MassCommand, GivesARowForEachPeptidoformIon)
{
    const ProgramRun run = runZel({u"mass"_s, u"AK/1+GK/2"_s});
    ASSERT_EQ(run.rows().size(), 2);
    EXPECT_EQ(run.rows()[0][1], "C9H19N3O3");
    EXPECT_EQ(run.rows()[1][1], "C8H17N3O3");
}

TEST(MassCommand, LeavesCompositionOfABareMassEmpty)
{
    const ProgramRun run = runZel({u"mass"_s, u"A[+1.5]K"_s});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.rows()[0][1], "");
    EXPECT_EQ(run.rows()[0][4], "");
    const ProgramRun plain = runZel({u"mass"_s, u"AK"_s});
    EXPECT_NEAR(run.rows()[0][2].toDouble() - plain.rows()[0][2].toDouble(), 1.5, 1e-9);
}

TEST(MassCommand, LeavesCarriersOutAndHoldsLabileParts)
{
    const auto rows = runZel({u"mass"_s, u"AK"_s, u"AK/[Na:z+1]"_s, u"{Glycan:Hex}AK"_s}).rows();
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[0][2], rows[1][2]);
    EXPECT_NEAR(rows[1][5].toDouble(), rows[1][2].toDouble() + 22.98976928 - 0.00054858, 1e-5);
    EXPECT_EQ(rows[2][1], "C15H29N3O8");
}

// Ten bromines: five of each isotope are likelier than ten of the lighter one.
TEST(MassCommand, MostAbundantIsTheLikeliestIsotopologue)
{
    const ProgramRun run = runZel({u"mass"_s, u"--as"_s, u"formula"_s, u"Br10"_s});
    EXPECT_NEAR(run.rows()[0][2].toDouble(), 10 * 78.9183376, 1e-4);
    EXPECT_NEAR(run.rows()[0][4].toDouble(), 5 * (78.9183376 + 80.9162897), 1e-4);
}

// A free glycan has a water: chitobiose is C16H28N2O11.
TEST(MassCommand, WeighsFreeGlycans)
{
    const ProgramRun run =
        runZel({u"mass"_s, u"--as"_s, u"glycan"_s, u"HexNAc2"_s, u"HexNAc|Hex"_s});
    EXPECT_EQ(run.rows().size(), 1);
    EXPECT_EQ(run.rows()[0][1], "C16H28N2O11");
    EXPECT_TRUE(run.errors.startsWith("argument:2:6: ")) << run.errors.toStdString();
}

TEST(MassCommand, WeighsOligonucleotides)
{
    const ProgramRun run = runZel({u"mass"_s, u"--as"_s, u"oligo"_s, u"rA*rC*rG"_s, u"rA*rX"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_NEAR(run.rows()[0][2].toDouble(), 949.13979, 1e-4);
    EXPECT_TRUE(run.errors.startsWith("argument:2:4: ")) << run.errors.toStdString();
}

// DRVYIHPF by hand: b2 of D and R, y1 of F.
TEST(IonsCommand, ListsBAndYIons)
{
    const ProgramRun run = runZel({u"ions"_s, u"DRVYIHPF"_s, u"--digits"_s, u"5"_s});
    EXPECT_EQ(run.header(), "label\tseries\tnumber\tcharge\tloss\tmz");
    ASSERT_EQ(run.rows().size(), 14);
    EXPECT_EQ(run.rows()[1], (QByteArrayList{"b2", "b", "2", "1", "", "272.13533"}));
    EXPECT_EQ(run.rows()[7], (QByteArrayList{"y1", "y", "1", "1", "", "166.08626"}));
}

TEST(IonsCommand, OrdersBySeriesChargeAndLoss)
{
    const ProgramRun run = runZel({u"ions"_s, u"SK"_s, u"--series"_s, u"y,b"_s, u"--charges"_s,
                                   u"2,1"_s, u"--losses"_s, u"H2O,NH3"_s});
    QByteArrayList keys;
    for (const QByteArrayList& row : run.rows())
        keys += row[0] + ' ' + row[1] + ' ' + row[2] + ' ' + row[3] + ' ' + row[4];
    EXPECT_EQ(keys, (QByteArrayList{"y1^2 y 1 2 ", "y1-H2O^2 y 1 2 H2O", "y1-NH3^2 y 1 2 NH3",
                                    "y1 y 1 1 ", "y1-H2O y 1 1 H2O", "y1-NH3 y 1 1 NH3",
                                    "b1^2 b 1 2 ", "b1-H2O^2 b 1 2 H2O", "b1-NH3^2 b 1 2 NH3",
                                    "b1 b 1 1 ", "b1-H2O b 1 1 H2O", "b1-NH3 b 1 1 NH3"}));
}

TEST(IonsCommand, NegativeChargesHavePositiveMz)
{
    const ProgramRun run = runZel({u"ions"_s, u"DRVYIHPF"_s, u"--charges"_s, u"-1,-2"_s});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.rows()[0][3], "-1");
    EXPECT_GT(run.rows()[0][5].toDouble(), 0.0);
}

// By hand, of serine, glutamic acid and water with oxygen-18.
TEST(IonsCommand, LosesLabelledAtomsOfALabelledMolecule)
{
    const ProgramRun run = runZel({u"ions"_s, u"<18O>SEK"_s, u"--losses"_s, u"H2O"_s, u"--series"_s,
                                   u"b"_s, u"--digits"_s, u"5"_s});
    QByteArrayList mz;
    for (const QByteArrayList& row : run.rows())
        mz += row[5];
    EXPECT_EQ(mz, (QByteArrayList{"92.04779", "227.10312", "72.03299", "207.08831"}));
}

TEST(IonsCommand, OrdersByNumberWhereIonsHoldOpenGroupsOrNot)
{
    const ProgramRun run = runZel({u"ions"_s, u"(ESM)[+80]K"_s, u"--series"_s, u"b"_s});
    QByteArrayList labels;
    for (const QByteArrayList& row : run.rows())
        labels += row[0];
    EXPECT_EQ(labels, (QByteArrayList{"b1", "b1+[+80]", "b2", "b2+[+80]", "b3"}));
}

TEST(IonsCommand, OrdersByNumberWhereALoopPartsTheChain)
{
    const ProgramRun run = runZel({u"ions"_s, u"AK[X:DSS#XL1]GK[#XL1]AK"_s, u"--series"_s, u"y"_s});
    QByteArrayList labels;
    for (const QByteArrayList& row : run.rows())
        labels += row[0];
    EXPECT_EQ(labels, (QByteArrayList{"y1", "y2", "y5"}));
}

TEST(IonsCommand, LeavesOutIonsWithoutMass)
{
    EXPECT_EQ(runZel({u"ions"_s, u"GG"_s, u"--charges"_s, u"-1000"_s}).rows().size(), 0);
    EXPECT_EQ(runZel({u"ions"_s, u"GG"_s, u"--losses"_s, u"C20"_s}).rows().size(), 2);
}

TEST(IonsCommand, NumbersChainsInLabels)
{
    const ProgramRun run = runZel({u"ions"_s, u"AK[X:DSS#XL1]GK//GK[#XL1]AK"_s});
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(run.rows()[0][0], "1:b1");
}

TEST(IonsCommand, RefusesSeveralPeptidoformIons)
{
    EXPECT_EQ(runZel({u"ions"_s, u"AK+GK"_s}).status, 1);
}

TEST(EnvelopeCommand, SharesCoverWhatWasAskedFor)
{
    const ProgramRun run = runZel({u"envelope"_s, u"DRVYIHPF"_s});
    EXPECT_EQ(run.header(), "mz\tshare");
    double sum = 0.0;
    for (const QByteArrayList& row : run.rows())
        sum += row[1].toDouble();
    EXPECT_GE(sum, 0.9999);
    EXPECT_LT(sum, 1.0);
    EXPECT_NEAR(run.rows()[0][0].toDouble(), 1045.53451, 1e-4);
}

TEST(EnvelopeCommand, ChargesFoldInNaturalHydrogens)
{
    const double charged =
        runZel({u"envelope"_s, u"DRVYIHPF"_s, u"--charge"_s, u"2"_s}).rows()[0][0].toDouble();
    EXPECT_NEAR(charged, (1045.53451 + 2 * proton) / 2, 1e-5);
    const double labelled =
        runZel({u"envelope"_s, u"DRVYIHPF"_s, u"--charge"_s, u"2"_s, u"--isotopes"_s, u"H2:100"_s})
            .rows()[0][0]
            .toDouble();
    // The 71 hydrogens of the molecule are deuterium, those of the charge are not.
    EXPECT_NEAR(labelled - charged, 71 * (2.0141017781 - 1.0078250322) / 2, 1e-5);
    const double taken =
        runZel({u"envelope"_s, u"DRVYIHPF"_s, u"--charge"_s, u"-1"_s}).rows()[0][0].toDouble();
    EXPECT_NEAR(taken, 1045.53451 - proton, 1e-5);
}

TEST(EnvelopeCommand, TheChargeOfTheTextCounts)
{
    EXPECT_EQ(runZel({u"envelope"_s, u"AK/2"_s}).output,
              runZel({u"envelope"_s, u"AK"_s, u"--charge"_s, u"2"_s}).output);
}

TEST(EnvelopeCommand, FineStructureSplitsTheBins)
{
    const ProgramRun run = runZel({u"envelope"_s, u"--as"_s, u"formula"_s, u"CS"_s, u"--fine"_s});
    const ProgramRun bins = runZel({u"envelope"_s, u"--as"_s, u"formula"_s, u"CS"_s});
    EXPECT_GT(run.rows().size(), bins.rows().size());
}

TEST(EnvelopeCommand, RefusesWhatHasNoComposition)
{
    const ProgramRun run = runZel({u"envelope"_s, u"A[+1.5]K"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.rows().isEmpty());
}

// Caffeine, C8H10N4O2: 194.08038 Da, [M+H]+ at 195.08765.
TEST(FormulasCommand, FindsCaffeine)
{
    const ProgramRun run = runZel({u"formulas"_s, u"195.0877"_s, u"--ion"_s, u"[M+H]+"_s,
                                   u"--tolerance"_s, u"5ppm"_s, u"--elements"_s, u"CHNO"_s});
    EXPECT_EQ(run.header(), "composition\tmonoisotopic\tppm");
    ASSERT_FALSE(run.rows().isEmpty());
    EXPECT_EQ(run.rows()[0][0], "C8H10N4O2");
    EXPECT_NEAR(run.rows()[0][1].toDouble(), 194.08038, 1e-5);
    EXPECT_NEAR(run.rows()[0][2].toDouble(), (195.0877 - 195.08765) / 195.08765 * 1e6, 0.05);
}

TEST(FormulasCommand, LimitsBoundTheCounts)
{
    const QStringList arguments = {u"formulas"_s, u"180.06339"_s, u"--elements"_s, u"CHO"_s};
    EXPECT_EQ(runZel(arguments).rows()[0][0], "C6H12O6");
    for (const auto& row : runZel(arguments + QStringList{u"--limit"_s, u"C5"_s}).rows())
        EXPECT_FALSE(row[0].startsWith("C6"));
}

// C6H12O6 among others; methane is saturated, and CH135O2 is a mass that no molecule has.
TEST(FormulasCommand, HydrogensKeepToValences)
{
    const auto rows = runZel({u"formulas"_s, u"180.0634"_s, u"--elements"_s, u"CHO"_s,
                              u"--tolerance"_s, u"0.02Da"_s})
                          .rows();
    ASSERT_FALSE(rows.isEmpty());
    for (const auto& row : rows)
        EXPECT_FALSE(row[0].startsWith("CH135") || row[0].startsWith("C2H139"))
            << row[0].constData();
    EXPECT_EQ(runZel({u"formulas"_s, u"16.0313"_s}).rows()[0][0], "CH4");
    EXPECT_EQ(runZel({u"formulas"_s, u"15.0235"_s}).rows()[0][0], "CH3");
    EXPECT_EQ(runZel({u"formulas"_s, u"18.0464"_s, u"--ion"_s, u"[M+H]+"_s}).rows().size(),
              0); // CH5 + H
}

// Tetramethylammonium, C4H12N+, and the benzene radical cation.
TEST(FormulasCommand, IonsMayBearTheirChargeThemselves)
{
    const auto best = [](const QString& mz, const QString& ion) {
        return runZel({u"formulas"_s, mz, u"--ion"_s, ion}).rows()[0][0];
    };
    EXPECT_EQ(best(u"74.09643"_s, u"[M]+"_s), "C4H12N");
    EXPECT_EQ(best(u"78.04640"_s, u"[M]+."_s), "C6H6");
}

TEST(FormulasCommand, RefusesWhatIsNoMass)
{
    EXPECT_EQ(runZel({u"formulas"_s, u"heavy"_s}).status, 1);
    EXPECT_EQ(runZel({u"formulas"_s, u"--"_s, u"-18"_s}).status, 1);
}
