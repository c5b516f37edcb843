#include "DataRows.h"
#include "Peptidoforms.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

/// Masses summed by hand from those of the atomic mass evaluation, good to the last digit.
constexpr double exactSum = 1e-7;

void expectUnweighed(const QString& text, qsizetype position, qsizetype chain, qsizetype residue,
                     const QString& part)
{
    SCOPED_TRACE(text.toStdString());
    const Parsed<PeptidoformWeight> weight = weightOf(text);
    ASSERT_FALSE(weight.hasValue());
    EXPECT_EQ(weight.error().position, position);
    EXPECT_EQ(weight.error().chain, chain);
    EXPECT_EQ(weight.error().residue, residue);
    EXPECT_TRUE(weight.error().message.contains(part)) << weight.error().message.toStdString();
}

TEST(PeptidoformWeight, SumsResiduesAndModifications)
{
    EXPECT_NEAR(monoisotopic(u"EM[Oxidation]EVEES[Phospho]PEK"_s), 1301.4734299, exactSum);
    EXPECT_EQ(compositionText(u"EM[Oxidation]EVEES[Phospho]PEK"_s), u"C49H80N11O26PS"_s);
    EXPECT_NEAR(monoisotopic(u"SEN[Glycan:HexNAc1Hex2]CE"_s), 1107.3649110, exactSum);
    EXPECT_NEAR(monoisotopic(u"RTAAX[+367.0537]WT"_s), 1071.4142732, exactSum);
}

TEST(PeptidoformWeight, EveryModificationOfUnimodWeighsWhatUnimodSays)
{
    const double glycine = monoisotopic(u"G"_s);
    const auto rows = dataRows(u"unimod.tsv"_s);
    ASSERT_EQ(rows.size(), 1543);
    for (const QStringList& row : rows) {
        SCOPED_TRACE(row.at(1).toStdString());
        const double expected = row.at(2).toDouble();
        EXPECT_NEAR(monoisotopic(u"G["_s + row.at(0) + u"]"_s) - glycine, expected, 5e-5);
        EXPECT_NEAR(monoisotopic(u"G["_s + row.at(1).toUpper() + u"]"_s) - glycine, expected, 5e-5);
        EXPECT_NEAR(monoisotopic(u"[U:"_s + row.at(1) + u"]-G"_s) - glycine, expected, 5e-5);
    }
}

TEST(PeptidoformWeight, EveryCrosslinkerWeighsOnceAtItsTwoEnds)
{
    const double peptide = monoisotopic(u"KAK"_s);
    const auto rows = dataRows(u"crosslinkers.tsv"_s);
    ASSERT_EQ(rows.size(), 60);
    for (const QStringList& row : rows) {
        const QString text = u"K["_s + row.at(0) + u"#XL1]AK[#XL1]"_s;
        // Masses of the ontology have older atomic masses, and one is off by 0.0016 Da.
        const double tolerance = row.at(1) == u"PCAS-d4" ? 2e-3 : 7e-4;
        EXPECT_NEAR(monoisotopic(text) - peptide, row.at(3).toDouble(), tolerance)
            << row.at(1).toStdString();
    }
}

TEST(PeptidoformWeight, CrossLinksWeighOnceHoweverTheyAreNamed)
{
    const double linked = 1432.7119468;
    EXPECT_NEAR(monoisotopic(u"EMK[XLMOD:02001#XL1]EVTKSE[#XL1]SK"_s), linked, exactSum);
    EXPECT_NEAR(monoisotopic(u"EMK[#XL1]EVTKSE[X:DSS#XL1]SK"_s), linked, exactSum);
    EXPECT_NEAR(monoisotopic(u"EMK[X:DSS#XL1]EVTKSE[X:DSS#XL1]SK"_s), linked, exactSum);
    EXPECT_NEAR(monoisotopic(u"EMK[X:DSS#XL1]EVTKSESK"_s), linked, exactSum);
    EXPECT_NEAR(monoisotopic(u"SEK[XLMOD:02001#XL1]//EMEVTK[XLMOD:02001#XL1]"_s), 1235.5955201,
                exactSum);
    EXPECT_NEAR(monoisotopic(u"EVTSEKC[X:Disulfide#XL1]LEMSC[#XL1]EFD"_s), 1746.6786751, exactSum);
    expectUnweighed(u"EMK[#XL1]EK[#XL1]"_s, 3, 0, 2, u"#XL1"_s);
    expectUnweighed(u"K[X:DSS#XL1]K[X:DSP#XL1]"_s, 13, 0, 1, u"X:DSS#XL1"_s);
}

TEST(PeptidoformWeight, BranchesWeighOnce)
{
    const double water = 18.0105646837;
    const double sum = monoisotopic(u"ETFGD"_s) + monoisotopic(u"RATER"_s);
    EXPECT_NEAR(monoisotopic(u"ETFGD[U:Dehydrated#BRANCH]//R[#BRANCH]ATER"_s), sum - water,
                exactSum);
    EXPECT_NEAR(monoisotopic(u"ETFGD[UNIMOD:23#BRANCH]//R[U:Dehydrated#BRANCH]ATER"_s), sum - water,
                exactSum);
    expectUnweighed(u"ETFGD//R[#BRANCH]ATER"_s, 8, 1, 0, u"#BRANCH"_s);
}

TEST(PeptidoformWeight, AmbiguousPlacesWeighOnce)
{
    const double expected =
        monoisotopic(u"EMEVTSESPEK"_s) + monoisotopic(u"G[Phospho]"_s) - monoisotopic(u"G"_s);
    EXPECT_NEAR(monoisotopic(u"EMEVT[#g1(0.1)]S[#g1]ES[Phospho#g1(0.9)]PEK"_s), expected, exactSum);
    EXPECT_NEAR(monoisotopic(u"[Phospho#s1]?EMEVT[#s1]S[#s1]ESPEK"_s), expected, exactSum);
    EXPECT_NEAR(monoisotopic(u"[Phospho]?EMEVTSESPEK"_s), expected, exactSum);
    EXPECT_NEAR(monoisotopic(u"EM(EVTS)[Phospho]ESPEK"_s), expected, exactSum);
    EXPECT_NEAR(monoisotopic(u"{Phospho}EM(?EV)TSESPEK"_s), expected, exactSum);
    EXPECT_NEAR(monoisotopic(u"[Phospho]^3?EMEVTSESPEK"_s), expected + 2 * 79.9663305, 1e-6);
    EXPECT_NEAR(monoisotopic(u"[Phospho]^0?EMEVTSESPEK"_s), expected - 79.9663305, 1e-6);
    expectUnweighed(u"EM[#g1]A"_s, 2, 0, 1, u"#g1"_s);
    expectUnweighed(u"AM[x1#g1]//A[#g1]"_s, 3, 0, 1, u"x1"_s);
    expectUnweighed(u"AM[Phospho#g1]//A[#g1]"_s, 17, 1, 0, u"#g1"_s);
}

TEST(PeptidoformWeight, TheFirstTagWithAMassCounts)
{
    const double glycine = monoisotopic(u"G"_s);
    EXPECT_NEAR(monoisotopic(u"G[14|Obs:+14|UNIMOD:0034|U:methyl]"_s) - glycine, 14.0156501, 1e-6);
    EXPECT_NEAR(monoisotopic(u"G[Obs:+79.978|Phospho|Sulfo]"_s) - glycine, 79.9663305, 1e-6);
    EXPECT_NEAR(monoisotopic(u"G[no such|Obs:+79.978|INFO:x]"_s) - glycine, 79.978, exactSum);
    EXPECT_NEAR(monoisotopic(u"G[INFO:Phospho]"_s), glycine, exactSum);
    EXPECT_NEAR(monoisotopic(u"G[U:+15.9949]"_s) - glycine, 15.9949, exactSum);
    EXPECT_NEAR(monoisotopic(u"G[M:-1]"_s) - glycine, -1.0, exactSum);
}

TEST(PeptidoformWeight, NamesThePartWithoutMassItsPlaceAndTheNearestNames)
{
    expectUnweighed(u"AG[Oxidatoin]"_s, 3, 0, 1, u"Oxidation"_s);
    expectUnweighed(u"AG[INFO:x|Phosfo]"_s, 10, 0, 1, u"Phospho"_s);
    expectUnweighed(u"AG//C[UNIMOD:99999]"_s, 6, 1, 0, u"UNIMOD:99999"_s);
    expectUnweighed(u"AG[U:35]"_s, 3, 0, 1, u"U:35"_s);
    expectUnweighed(u"A[MOD:00046]"_s, 2, 0, 0, u"MOD:46"_s);
    expectUnweighed(u"{Hexx}A[x]"_s, 8, 0, 0, u"\"x\""_s);
    expectUnweighed(u"A[Formula:Og]"_s, 2, 0, 0, u"Og"_s);
}

TEST(PeptidoformWeight, AmbiguousResiduesHaveNoMassButXUnderAModification)
{
    expectUnweighed(u"AX"_s, 1, 0, 1, u"X"_s);
    expectUnweighed(u"[Acetyl]-X[INFO:y]A"_s, 9, 0, 0, u"X"_s);
    expectUnweighed(u"X[Phospho#g1]A[#g1]"_s, 0, 0, 0, u"X"_s);
    expectUnweighed(u"AB[Phospho]"_s, 1, 0, 1, u"DN"_s);
    expectUnweighed(u"A(?Z)"_s, 3, 0, 1, u"EQ"_s);
    EXPECT_NEAR(monoisotopic(u"<[+5]@X>AX"_s), monoisotopic(u"A"_s) + 5, exactSum);
    EXPECT_EQ(monoisotopic(u"J"_s), monoisotopic(u"L"_s));
}

TEST(PeptidoformWeight, ChargesOfCarriersAndOfFormulasAddUp)
{
    EXPECT_NEAR(mz(u"EMEVEESPEK/2"_s), 603.7633687, exactSum);
    EXPECT_NEAR(mz(u"EM[Oxidation]K/2"_s), 212.0990, 5e-5);
    EXPECT_NEAR(mz(u"EMEVEESPEK/-2"_s), 601.7488157, exactSum);
    EXPECT_EQ(weightOf(u"EMEVEESPEK/-2"_s)->charge, -2);
    EXPECT_NEAR(mz(u"PEPT[Formula:Zn:z+2]IDE/2"_s), 216.3256404, 1e-6);
    EXPECT_EQ(weightOf(u"PEPT[Formula:Zn:z+2]IDE/2"_s)->charge, 4);
    EXPECT_NEAR(mz(u"PEPT[Formula:Zn:z+2]IDE/[Na:z+1^2]"_s), 227.3166126, 1e-6);
    EXPECT_EQ(weightOf(u"PEPTIDE"_s)->charge, 0);
    EXPECT_EQ(mz(u"PEPTIDE"_s), 0.0);
    EXPECT_NEAR(monoisotopic(u"PEPTIDE/[Na:z+1]"_s), 799.3599640, exactSum);
    EXPECT_EQ(weightOf(u"A[Glycan:{C8H14N1O5:z+1}2]"_s)->charge, 2);
    expectUnweighed(u"A[Formula:C:z2147483647]/2"_s, -1, 0, -1, u"too large"_s);
}

TEST(PeptidoformWeight, IsotopesReplaceAllAtomsButThoseOfCarriers)
{
    EXPECT_NEAR(monoisotopic(u"<13C><15N>ATPEILTVNSIGQLK"_s), 1671.0744888, exactSum);
    EXPECT_EQ(compositionText(u"<13C>G[Acetyl]"_s), u"[13C4]H7NO3"_s);
    EXPECT_EQ(compositionText(u"<13C>G[Formula:[12C2]C]"_s), u"[12C2][13C3]H5NO2"_s);
    EXPECT_EQ(compositionText(u"<D>[Glycan:Hex]-G"_s), u"C8[2H15]NO7"_s);
    const double added = monoisotopic(u"<D>G[+10]"_s) - monoisotopic(u"<D>G"_s);
    EXPECT_NEAR(added, 10.0, exactSum);
    const double proton = 1.00782503223 - electronMass;
    EXPECT_NEAR(mz(u"<D>G/1"_s), monoisotopic(u"<D>G"_s) + proton, exactSum);
    EXPECT_FALSE(weightOf(u"<12C><13C>G"_s).hasValue());
}

TEST(PeptidoformWeight, FixedRulesLeaveModifiedPlacesAlone)
{
    const auto added = [](const QString& rule, const QString& text) {
        return monoisotopic(rule + text) - monoisotopic(text);
    };
    EXPECT_NEAR(added(u"<[+1]@C>"_s, u"ACAC"_s), 2.0, exactSum);
    EXPECT_NEAR(added(u"<[+1]@C>"_s, u"AC[+5]AC"_s), 1.0, exactSum);
    EXPECT_NEAR(added(u"<[+1]@C>"_s, u"AC[INFO:x]AC"_s), 2.0, exactSum);
    EXPECT_NEAR(added(u"<[+1]@C>"_s, u"AC[Phospho#g1]AC[#g1]"_s), 2.0, exactSum);
    EXPECT_NEAR(added(u"<[+1]@C>"_s, u"AC[X:Disulfide#XL1]AC[#XL1]"_s), 0.0, exactSum);
    EXPECT_NEAR(added(u"<[+1]@K,N-term>"_s, u"KAK"_s), 3.0, exactSum);
    EXPECT_NEAR(added(u"<[+1]@K,N-term>"_s, u"[+5]-KAK"_s), 2.0, exactSum);
    EXPECT_NEAR(added(u"<[+1]@N-term:A,N-term>"_s, u"AAK"_s), 1.0, exactSum);
    EXPECT_NEAR(added(u"<[+1]@N-term:A>"_s, u"KAK"_s), 0.0, exactSum);
    EXPECT_NEAR(added(u"<[+1]@C-term:G>"_s, u"GAG//G"_s), 2.0, exactSum);
    EXPECT_FALSE(weightOf(u"<[no such]@C>AA"_s).hasValue());
}

/// m/z that vendors print on mixtures for calibration, and those of textbooks.
TEST(PeptidoformWeight, PublishedPeptidoformsWeighWhatIsPublished)
{
    EXPECT_NEAR(mz(u"RPPGFSP/1"_s), 757.3992, 5e-4);                 // bradykinin 1-7
    EXPECT_NEAR(mz(u"RPKPQQFFGLM-[Amidated]/1"_s), 1347.7354, 5e-4); // substance P
    EXPECT_NEAR(mz(u"[Gln->pyro-Glu]-QQRLGNQWAVGHLM-[Amidated]/1"_s), 1619.8223, 5e-4); // bombesin
    EXPECT_NEAR(mz(u"SANSNPAMAPRERKAGC[X:Disulfide#XL1]KNFFWKTFTSC[#XL1]/1"_s), 3147.4710,
                5e-4);                                                // somatostatin 28
    EXPECT_NEAR(mz(u"EGVNDNEEGFFSAR/2"_s), 785.8421, 5e-4);           // Glu-fibrinopeptide B
    EXPECT_NEAR(mz(u"FQS[Phospho]EEQQQTEDELQDK/1"_s), 2061.83, 5e-3); // of beta-casein
    EXPECT_NEAR(mz(u"RELEELNVPGEIVES[Phospho]LS[Phospho]S[Phospho]S[Phospho]EESITR/1"_s), 3122.27,
                1e-2); // of beta-casein
    EXPECT_NEAR(monoisotopic(u"C[X:Disulfide#XL1]YIQNC[#XL1]PLG-[Amidated]"_s), 1006.4365,
                5e-4); // oxytocin
    EXPECT_NEAR(monoisotopic(u"GIVEQC[X:Disulfide#XL1]C[X:Disulfide#XL2]TSIC[#XL1]SLYQLENYC"
                             "[X:Disulfide#XL3]N//FVNQHLC[#XL2]GSHLVEALYLVC[#XL3]GERGFFYTPKT"_s),
                5803.638, 1e-3); // human insulin
}

TEST(PeptidoformWeight, IsotopesWithoutMassAreRefused)
{
    Peptidoform odd = peptidoform(u"X[+100]"_s);
    odd.isotopes = {{1, 99}};
    EXPECT_FALSE(odd.weigh(0, naturalResidues(), standardModifications()));
    EXPECT_FALSE(odd.backbone(0, naturalResidues(), standardModifications()));
    EXPECT_FALSE(moleculeOf(odd));
}

TEST(PeptidoformWeight, BareMassesHaveNoAtoms)
{
    const Parsed<PeptidoformWeight> weight = weightOf(u"AA[+1.5]"_s);
    EXPECT_NEAR(weight->masses.average, weightOf(u"AA"_s)->masses.average + 1.5, exactSum);
    ASSERT_FALSE(weight->composition.hasValue());
    EXPECT_EQ(weight->composition.error().position, 2);
}

TEST(PeptidoformWeight, CountsThatDoNotFitAreRefused)
{
    EXPECT_FALSE(weightOf(u"[Formula:C2]^2147483647?A"_s).hasValue());
    EXPECT_FALSE(weightOf(u"A[Glycan:Hex2147483647]"_s).hasValue());
}

TEST(PeptidoformWeight, EachIonWeighsByItself)
{
    const Peptidoform two = peptidoform(u"EMEVEESPEK/2+PEPTIDE"_s);
    const auto weigh = [&two](qsizetype ion) {
        return two.weigh(ion, naturalResidues(), standardModifications());
    };
    EXPECT_NEAR(weigh(1)->masses.monoisotopic, 799.3599640, exactSum);
    EXPECT_FALSE(weigh(2).hasValue());
    EXPECT_FALSE(weigh(-1).hasValue());
}

} // namespace

} // namespace ions
