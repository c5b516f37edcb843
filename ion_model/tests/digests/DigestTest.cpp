#include "Digest.h"

#include "DigestBySearch.h"
#include "RandomTexts.h"
#include "StandardResidues.h"
#include "TestPrinters.h"
#include "TestSeed.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <tuple>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

const double infinity = std::numeric_limits<double>::infinity();

Protease protease(QStringView name)
{
    return Protease::named(name).value();
}

/// Both masses of a peptide.
Product weighed(const QString& text, qsizetype start, qsizetype end)
{
    return weighedProduct(text, start, end, peptideMasses(residues()));
}

/// The slow second way: every range of the text, asked whether it is a product.
std::vector<Product> rangesThatAreProducts(const QString& text, const Protease& agent,
                                           const DigestOptions& options)
{
    std::vector<qsizetype> cuts;
    EXPECT_TRUE(agent.findCuts(text, &cuts));
    return productsBySearch(text, agent, cuts, peptideMasses(residues()), options);
}

void expectMass(double mass, double expected)
{
    if (std::isnan(expected))
        EXPECT_TRUE(std::isnan(mass));
    else
        EXPECT_NEAR(mass, expected, 1e-9);
}

void expectEqual(const std::vector<Product>& products, const std::vector<Product>& expected)
{
    ASSERT_EQ(products.size(), expected.size());
    for (std::size_t i = 0; i < products.size(); ++i) {
        ASSERT_EQ(products[i].start, expected[i].start);
        ASSERT_EQ(products[i].end, expected[i].end);
        ASSERT_EQ(products[i].missed, expected[i].missed);
        expectMass(products[i].monoisotopic, expected[i].monoisotopic);
        expectMass(products[i].average, expected[i].average);
    }
}

/// The texts of the products, separated by blanks.
QString textsOf(const Digest& digest, const QString& text)
{
    QStringList texts;
    for (std::size_t i = 0; i < digest.size(); ++i)
        texts.append(text.sliced(digest.starts()[i], digest.ends()[i] - digest.starts()[i]));
    return texts.join(u' ');
}

QString digested(const QString& text, QStringView agent, const DigestOptions& options = {})
{
    Digest digest;
    EXPECT_TRUE(digest.cleave(text, protease(agent), residues(), options));
    return textsOf(digest, text);
}

/// Residues as often as they are in proteins, more or less, so that there are cuts.
QString randomProtein(std::mt19937& random, qsizetype length)
{
    static const QString letters = u"AALLGGVVEESSIIKKRRDDTTPPNNQQFFYYMHCW"_s;
    QString text(length, QChar());
    for (QChar& c : text)
        c = letters[std::uniform_int_distribution<qsizetype>(0, letters.size() - 1)(random)];
    return text;
}

TEST(Digest, TrypsinCutsBehindLysineAndArginineUnlessProlineFollows)
{
    EXPECT_EQ(digested(u"MAKPRGKLR"_s, u"Trypsin"), u"MAKPR GK LR"_s);
    EXPECT_EQ(digested(u"MAKPRGKLR"_s, u"Trypsin", {.missedCleavages = 1}),
              u"MAKPR MAKPRGK GK GKLR LR"_s);
    EXPECT_EQ(digested(u"KKR"_s, u"Trypsin/P", {.missedCleavages = 9}), u"K KK KKR K KR R"_s);
}

/// The example at the top of the header.
TEST(Digest, TheExampleOfTheHeaderHolds)
{
    Digest digest;
    digest.cleave(u"MAKPRGKLR", protease(u"Trypsin"), residues(), {.missedCleavages = 1});
    ASSERT_EQ(digest.size(), 5U);
    EXPECT_EQ(digest.ends()[1], 7);
    EXPECT_NEAR(digest.monoisotopic()[4], 287.195740, 5e-7);
}

/// Masses of PEPTIDE, published in many places, and of LR by its atoms.
TEST(Digest, APeptideWeighsItsResiduesAndOneWater)
{
    Digest digest;
    digest.cleave(u"PEPTIDEKLR", protease(u"Asp-N"), residues());
    ASSERT_EQ(digest.size(), 2U);
    digest.cleave(u"PEPTIDE", protease(u"no cleavage"), residues());
    ASSERT_EQ(digest.size(), 1U);
    EXPECT_NEAR(digest.monoisotopic()[0], 799.35997, 1e-5);
    EXPECT_NEAR(digest.average()[0], 799.8225, 5e-3);
    digest.cleave(u"LR", protease(u"no cleavage"), residues());
    const Masses atoms = residues().atoms().weigh(formula(u"C12H25N5O3"_s)).value();
    EXPECT_NEAR(digest.monoisotopic()[0], atoms.monoisotopic, 1e-9);
    EXPECT_NEAR(digest.average()[0], atoms.average, 1e-9);
}

TEST(Digest, AnEmptyTextHasNoProducts)
{
    Digest digest;
    for (const QStringView agent : {u"Trypsin", u"no cleavage", u"unspecific cleavage"}) {
        EXPECT_TRUE(digest.cleave(u"", protease(agent), residues(), {.isSemiSpecific = true}));
        EXPECT_EQ(digest.size(), 0U);
        EXPECT_TRUE(digest.starts().empty());
    }
}

TEST(Digest, NoCleavageLeavesTheProteinWhole)
{
    EXPECT_EQ(digested(u"AKR"_s, u"no cleavage", {.missedCleavages = 5}), u"AKR"_s);
    EXPECT_EQ(digested(u"AKR"_s, u"no cleavage", {.isSemiSpecific = true}), u"A AK AKR KR R"_s);
}

TEST(Digest, UnspecificCleavageMakesEveryRangeAProductWithoutMissedCleavages)
{
    EXPECT_EQ(digested(u"AKR"_s, u"unspecific cleavage"), u"A AK AKR K KR R"_s);
    EXPECT_EQ(digested(u"AKRG"_s, u"unspecific cleavage", {.minLength = 2, .maxLength = 2}),
              u"AK KR RG"_s);
}

TEST(Digest, SemiSpecificProductsCountTheCutsInsideAndComeOnce)
{
    EXPECT_EQ(digested(u"AKGRC"_s, u"Trypsin", {.isSemiSpecific = true}), u"A AK K G GR R C"_s);
    Digest digest;
    digest.cleave(u"AKGRC", protease(u"Trypsin"), residues(),
                  {.missedCleavages = 1, .isSemiSpecific = true});
    EXPECT_EQ(textsOf(digest, u"AKGRC"_s), u"A AK AKG AKGR K KGR G GR GRC R RC C"_s);
    const auto missed = digest.missedCleavages();
    EXPECT_EQ(std::vector<int>(missed.begin(), missed.end()),
              (std::vector<int>{0, 0, 1, 1, 0, 1, 0, 0, 1, 0, 1, 0}));
}

/// Every combination of the options on every short text with cuts, a forbidden cut and a letter
/// without a mass.
TEST(Digest, AllShortTextsGiveTheRangesThatAreProducts)
{
    const QStringList texts = allTexts(u"KPG*"_s, 5);
    Digest digest;
    qsizetype compared = 0;
    for (const QStringView agent : {u"Trypsin", u"no cleavage", u"unspecific cleavage"}) {
        const Protease enzyme = protease(agent);
        for (const int missed : {-1, 0, 1, 2, std::numeric_limits<int>::max()}) {
            for (const auto& [shortest, longest] :
                 {std::pair<qsizetype, qsizetype>{-3, 100}, {1, 3}, {2, 4}, {4, 3}, {3, 3}}) {
                for (const bool isSemi : {false, true}) {
                    const DigestOptions options = {.missedCleavages = missed,
                                                   .minLength = shortest,
                                                   .maxLength = longest,
                                                   .isSemiSpecific = isSemi};
                    for (qsizetype i = compared % 7; i < texts.size(); i += 7) {
                        SCOPED_TRACE(texts[i].toStdString());
                        digest.cleave(texts[i], enzyme, residues(), options);
                        expectEqual(productsOf(digest),
                                    rangesThatAreProducts(texts[i], enzyme, options));
                        ++compared;
                    }
                    ASSERT_FALSE(HasFailure());
                }
            }
        }
    }
    EXPECT_GT(compared, 25000);
}

TEST(Digest, RandomProteinsGiveTheRangesThatAreProducts)
{
    std::mt19937 random(testSeed(20261122));
    const QString letters = u"ACDEFGHIKLMNPQRSTVWYKRKRKRDDBJOUXZ*- k\u00e9"_s;
    Digest digest;
    std::size_t listed = 0;
    for (int i = 0; i < testRounds(300); ++i) {
        const QString text = randomText(random, letters, 80);
        const QStringList names = Protease::names();
        const Protease agent = protease(names[qsizetype(random() % std::size_t(names.size()))]);
        const DigestOptions options = {.missedCleavages = int(random() % 4),
                                       .minLength = qsizetype(random() % 10),
                                       .maxLength = qsizetype(5 + random() % 40),
                                       .minMass = random() % 2 == 0 ? -infinity : 800.0,
                                       .maxMass = random() % 2 == 0 ? infinity : 2500.0,
                                       .isSemiSpecific = random() % 2 == 0};
        SCOPED_TRACE(text.toStdString() + " by " + agent.name().toStdString());
        EXPECT_TRUE(digest.cleave(text, agent, residues(), options));
        expectEqual(productsOf(digest), rangesThatAreProducts(text, agent, options));
        ASSERT_FALSE(HasFailure());
        listed += digest.size();
    }
    EXPECT_GT(listed, 10000U);
}

TEST(Digest, PeptidesWithoutMissedCleavagesCoverTheProtein)
{
    std::mt19937 random(testSeed(5));
    Digest digest;
    for (const QString& name : Protease::names()) {
        if (protease(name).isUnspecific())
            continue;
        const QString text = randomProtein(random, 1 + qsizetype(random() % 500));
        digest.cleave(text, protease(name), residues());
        qsizetype covered = 0;
        double mass = 0.0;
        for (std::size_t i = 0; i < digest.size(); ++i) {
            EXPECT_EQ(digest.starts()[i], covered);
            EXPECT_GT(digest.ends()[i], covered);
            covered = digest.ends()[i];
            mass += digest.monoisotopic()[i] - residues().water().monoisotopic;
        }
        EXPECT_EQ(covered, text.size());
        EXPECT_NEAR(mass,
                    weighed(text, 0, text.size()).monoisotopic - residues().water().monoisotopic,
                    1e-8);
    }
}

TEST(Digest, LettersWithoutAMassAreReportedAndStopNothing)
{
    const QString text = u"AAKXK-BKZ*K kJUOK\u00e9"_s + QString::fromUcs4(U"\U0001F9EC") + u"K\n"_s;
    for (const bool isSemi : {false, true}) {
        Digest digest;
        EXPECT_TRUE(
            digest.cleave(text, protease(u"Lys-C/P"), residues(), {.isSemiSpecific = isSemi}));
        const auto unknown = digest.unknownLetters();
        EXPECT_EQ(std::vector<qsizetype>(unknown.begin(), unknown.end()),
                  (std::vector<qsizetype>{3, 5, 6, 8, 9, 11, 12, 17, 18, 19, 21}));
        if (isSemi)
            continue;
        EXPECT_EQ(textsOf(digest, text), QString(text).replace(u'K', u"K "_s));
        EXPECT_FALSE(std::isnan(digest.monoisotopic()[0]));
        for (const std::size_t unweighed : {1U, 2U, 3U, 4U, 5U, 6U}) {
            EXPECT_TRUE(std::isnan(digest.monoisotopic()[unweighed]));
            EXPECT_TRUE(std::isnan(digest.average()[unweighed]));
        }
    }
}

/// A caller who looks for a mass passes them by, and one who counts peptides misses none.
TEST(Digest, MassLimitsKeepPeptidesWithAnUnknownLetter)
{
    EXPECT_EQ(digested(u"GKGGGGKXK"_s, u"Lys-C/P", {.minMass = 300.0}), u"GGGGK XK"_s);
    EXPECT_EQ(digested(u"GKGGGGKXK"_s, u"Lys-C/P", {.maxMass = 300.0}), u"GK XK"_s);
    EXPECT_EQ(digested(u"GKGGGGKXK"_s, u"Lys-C/P", {.minMass = 9e9}), u"XK"_s);
}

TEST(Digest, MassLimitsAreClosed)
{
    Digest digest;
    digest.cleave(u"GKAAK", protease(u"Lys-C"), residues());
    const double mass = digest.monoisotopic()[0];
    EXPECT_EQ(digested(u"GKAAK"_s, u"Lys-C", {.minMass = mass, .maxMass = mass}), u"GK"_s);
    EXPECT_EQ(digested(u"GKAAK"_s, u"Lys-C", {.maxMass = std::nextafter(mass, 0.0)}), QString());
    EXPECT_EQ(digested(u"GKAAK"_s, u"Lys-C", {.minMass = std::nextafter(mass, 1e9)}), u"AAK"_s);
}

/// A plain sum is off by about 10^-8 at this size.
TEST(Digest, MassesAreGoodToANanodaltonAtTheSizeOfTitin)
{
    std::mt19937 random(testSeed(3));
    const QString text = randomProtein(random, 35000);
    Digest digest;
    digest.cleave(text, protease(u"no cleavage"), residues());
    const Product whole = weighed(text, 0, text.size());
    ASSERT_GT(whole.monoisotopic, 3.5e6);
    EXPECT_NEAR(digest.monoisotopic()[0], whole.monoisotopic, 1e-9);
    EXPECT_NEAR(digest.average()[0], whole.average, 1e-9);

    for (const bool isSemi : {false, true}) {
        digest.cleave(text, protease(u"Trypsin"), residues(),
                      {.missedCleavages = 2, .minLength = 30, .isSemiSpecific = isSemi});
        ASSERT_GT(digest.size(), 2000U);
        double worst = 0.0;
        for (const Product& product : productsOf(digest)) {
            const Product expected = weighed(text, product.start, product.end);
            worst = std::max(worst, std::abs(product.monoisotopic - expected.monoisotopic));
            worst = std::max(worst, std::abs(product.average - expected.average));
        }
        EXPECT_LT(worst, 1e-10);
    }
}

/// The errors of equal residues do not cancel each other, as those of different ones do. A product
/// has a single error, so that it is the better second way here.
TEST(Digest, EqualResiduesAreGoodToANanodaltonToo)
{
    constexpr qsizetype count = 35000;
    const auto massOf = [](double residue, double water) {
        return double(count * static_cast<long double>(residue) + water);
    };
    const Masses water = residues().water();
    Digest digest;
    for (const QChar letter : u"ACDEFGHIKLMNPQRSTVWY"_s) {
        digest.cleave(QString(count, letter), protease(u"no cleavage"), residues());
        const Masses residue = residues().residue(letter.unicode());
        EXPECT_NEAR(digest.monoisotopic()[0], massOf(residue.monoisotopic, water.monoisotopic),
                    1e-9);
        EXPECT_NEAR(digest.average()[0], massOf(residue.average, water.average), 1e-9);
    }
}

/// Long ranges with any number of missed cleavages, of which there are many, one by one.
TEST(Digest, LongRangesOfTitinAreGoodToANanodalton)
{
    std::mt19937 random(testSeed(4));
    const QString text = randomProtein(random, 35000);
    Digest digest;
    digest.cleave(text, protease(u"Trypsin"), residues(),
                  {.missedCleavages = std::numeric_limits<int>::max(), .minLength = 34000});
    ASSERT_GT(digest.size(), 1000U);
    for (std::size_t i = 0; i < digest.size(); i += 97) {
        const Product expected = weighed(text, digest.starts()[i], digest.ends()[i]);
        EXPECT_NEAR(digest.monoisotopic()[i], expected.monoisotopic, 1e-9);
        EXPECT_NEAR(digest.average()[i], expected.average, 1e-9);
    }
}

TEST(Digest, AnObjectThatIsUsedAgainAllocatesNothingNew)
{
    std::mt19937 random(testSeed(6));
    const QString large = randomProtein(random, 2000);
    const QString small = randomProtein(random, 300);
    const DigestOptions options = {.missedCleavages = 2};
    Digest digest;
    digest.cleave(large, protease(u"Trypsin"), residues(), options);
    const void* starts = digest.starts().data();
    const void* masses = digest.monoisotopic().data();
    digest.cleave(small, protease(u"Trypsin"), residues(), options);
    expectEqual(productsOf(digest), rangesThatAreProducts(small, protease(u"Trypsin"), options));
    EXPECT_EQ(starts, digest.starts().data());
    EXPECT_EQ(masses, digest.monoisotopic().data());
}

TEST(Digest, AnEngineThatGivesUpLeavesNothing)
{
    const Protease slow = Protease::fromExpression(u"(?=((A+)+)+[BC])"_s).value();
    Digest digest;
    digest.cleave(u"AXK", protease(u"Trypsin"), residues());
    EXPECT_FALSE(digest.cleave(QString(60, u'A').append(u'D'), slow, residues()));
    EXPECT_EQ(digest.size(), 0U);
    EXPECT_TRUE(digest.unknownLetters().empty());
}

TEST(Digest, ALabelledTableGivesLabelledPeptides)
{
    const ResidueTable labelled(*chem::ChemicalFactory::construct(u"N15:1.0"_s));
    Digest digest;
    digest.cleave(u"GK", protease(u"no cleavage"), labelled);
    // Glycine has one nitrogen and lysine two.
    EXPECT_NEAR(digest.monoisotopic()[0] - weighed(u"GK"_s, 0, 2).monoisotopic, 3 * 0.997035, 1e-5);
}

/// Compositions of the nucleotides that are sold under these names.
TEST(Digest, RibonucleaseProductsHaveThePhosphateOfTheirEnd)
{
    const RnaTable nucleotides(residues());
    const Ribonuclease t1 = Ribonuclease::named(u"RNase T1").value();
    const auto massOf = [](const QString& composition) {
        return residues().atoms().weigh(formula(composition)).value();
    };
    Digest digest;
    digest.cleave(u"GG", t1, nucleotides, ThreePrimeEnd::Phosphate);
    ASSERT_EQ(digest.size(), 2U);
    EXPECT_NEAR(digest.monoisotopic()[0], massOf(u"C10H14N5O8P"_s).monoisotopic, 1e-9); // 3'-GMP
    EXPECT_NEAR(digest.average()[0], massOf(u"C10H14N5O8P"_s).average, 1e-9);
    EXPECT_NEAR(digest.monoisotopic()[1], massOf(u"C10H13N5O5"_s).monoisotopic, 1e-9); // guanosine
    digest.cleave(u"GG", t1, nucleotides, ThreePrimeEnd::CyclicPhosphate);
    EXPECT_NEAR(digest.monoisotopic()[0], massOf(u"C10H12N5O7P"_s).monoisotopic,
                1e-9); // 2',3'-cGMP
    EXPECT_NEAR(digest.monoisotopic()[1], massOf(u"C10H13N5O5"_s).monoisotopic, 1e-9);
}

/// The first library lays the same strand out nucleotide by nucleotide.
TEST(Digest, AWholeStrandOfRnaWeighsWhatItsComplexDoes)
{
    const Ribonuclease none = Ribonuclease::fromExpression(u"(?<=N)"_s).value();
    Digest digest;
    digest.cleave(u"GACUUGCA", none, RnaTable(residues()), ThreePrimeEnd::Phosphate);
    const auto complex =
        chem::defaultChemicalFactory()->constructLinearOligoComplex(u"rGrArCrUrUrGrCrA"_s);
    ASSERT_EQ(digest.size(), 1U);
    EXPECT_NEAR(digest.monoisotopic()[0], complex->monoMass(), 1e-9);
    EXPECT_NEAR(digest.average()[0], complex->averageMass(), 1e-9);
}

TEST(Digest, RnaWithMissedCleavagesAndUnknownLettersIsListedAsProteinsAre)
{
    const RnaTable nucleotides(residues());
    Digest digest;
    EXPECT_TRUE(digest.cleave(u"AGNGCC", Ribonuclease::named(u"T1").value(), nucleotides,
                              ThreePrimeEnd::Phosphate, {.missedCleavages = 1}));
    EXPECT_EQ(textsOf(digest, u"AGNGCC"_s), u"AG AGNG NG NGCC CC"_s);
    ASSERT_EQ(digest.unknownLetters().size(), 1U);
    EXPECT_EQ(digest.unknownLetters()[0], 2);
    EXPECT_TRUE(std::isnan(digest.average()[1]));
    EXPECT_FALSE(std::isnan(digest.average()[4]));
}

} // namespace

} // namespace ions
