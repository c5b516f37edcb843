#include "Ionization.h"
#include "IsotopePattern.h"
#include "ModificationTable.h"
#include "PatternInputs.h"
#include "ResidueTable.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

/// \file
/// Labels as they are used in the laboratory: what they weigh, and that the envelope moves with
/// them.

using namespace Qt::StringLiterals;

namespace ions {

namespace {

Composition bound(const QString& left, const Composition& right)
{
    Composition sum = formula(left);
    EXPECT_TRUE(sum.add(right));
    return sum;
}

Composition modification(const QString& name)
{
    static const auto table = ModificationTable::standard(natural());
    return table.byName(name)->composition;
}

IsotopePattern patternOf(const Composition& composition)
{
    return IsotopePattern::of(composition, natural(), 0.999999).value();
}

/// Stated isotopes only shift the pattern of all other atoms.
void expectShifted(const IsotopePattern& labelled, const IsotopePattern& others, double shift)
{
    const std::size_t size = std::min(labelled.shares().size(), others.shares().size());
    EXPECT_GT(size, 4U);
    for (std::size_t i = 0; i < size; ++i) {
        EXPECT_NEAR(labelled.shares()[i], others.shares()[i], 1e-12);
        EXPECT_NEAR(labelled.centroids()[i], others.centroids()[i] + shift, 1e-7);
    }
}

// GVNDNEEGFFSAR, a tryptic peptide; its heavy arginine is 13C6 15N4.
const QString peptideText = u"C61H88N18O23"_s;

TEST(LabelledPatterns, HeavyArginineMovesTheWholeEnvelope)
{
    const Composition light = formula(peptideText);
    const Composition heavy = bound(peptideText, modification(u"Label:13C(6)15N(4)"_s));
    EXPECT_NEAR(natural().weigh(heavy)->monoisotopic - natural().weigh(light)->monoisotopic,
                10.008269, 1e-6);
    EXPECT_NEAR(patternOf(heavy).centroids()[0] - patternOf(light).centroids()[0], 10.008269, 1e-6);
    const double arginine = 6 * 13.00335483507 + 4 * 15.00010889888;
    expectShifted(patternOf(heavy), patternOf(formula(u"C55H88N14O23"_s)), arginine);
    // Ten atoms that cannot be heavier any more: less of the molecules is in the other bins.
    EXPECT_GT(patternOf(heavy).shares()[0], 1.07 * patternOf(light).shares()[0]);
}

TEST(LabelledPatterns, IsobaricTagsWeighTheSameAndTheirEnvelopesToo)
{
    const Composition tagged = bound(peptideText, modification(u"TMT6plex"_s));
    EXPECT_NEAR(natural().weigh(tagged)->monoisotopic -
                    natural().weigh(formula(peptideText))->monoisotopic,
                229.162932, 1e-6);
    expectShifted(patternOf(tagged), patternOf(formula(u"C69H108N19O25"_s)),
                  4 * 13.00335483507 + 15.00010889888);
}

/// Reporter ions as the maker of the tags lists them.
TEST(LabelledPatterns, ReporterIonsAreThoseOfTheProductSheet)
{
    const std::map<QString, double> reporters = {
        {u"C8H16N"_s, 126.127726},       {u"C8H16[15N]"_s, 127.124761},
        {u"C7[13C]H16N"_s, 127.131081},  {u"C7[13C]H16[15N]"_s, 128.128116},
        {u"C6[13C2]H16N"_s, 128.134436}, {u"C6[13C2]H16[15N]"_s, 129.131471},
        {u"C5[13C3]H16N"_s, 129.137790}, {u"C5[13C3]H16[15N]"_s, 130.134825},
        {u"C4[13C4]H16N"_s, 130.141145}, {u"C4[13C4]H16[15N]"_s, 131.138180},
        {u"C3[13C5]H16N"_s, 131.144500},
    };
    const Ionization charged = Ionization::read(u"[M]+").value();
    for (const auto& [text, mz] : reporters)
        EXPECT_NEAR(charged.mz(natural().weigh(formula(text))->monoisotopic), mz, 1e-6)
            << text.toStdString();
}

double binomial(int count, int chosen, double share)
{
    const double ways = std::exp(std::lgamma(count + 1.0) - std::lgamma(chosen + 1.0) -
                                 std::lgamma(count - chosen + 1.0));
    return ways * std::pow(share, chosen) * std::pow(1.0 - share, count - chosen);
}

TEST(LabelledPatterns, NitrogenOfANutrientIsBinomial)
{
    const AtomMasses grown = natural().labelled({7, 15}, 0.987).value();
    const auto pattern = IsotopePattern::of(formula(u"N18"_s), grown, largestCoverage).value();
    EXPECT_EQ(pattern.monoisotopicBin(), 18);
    for (std::size_t i = 0; i < pattern.shares().size(); ++i) {
        const int heavy = int(pattern.firstBin()) + int(i);
        EXPECT_NEAR(pattern.shares()[i], binomial(18, heavy, 0.987), 1e-12);
    }
    // In a protein that was grown so and then bound to natural acetyl, each keeps its own share.
    const Groups groups = {{formula(peptideText), grown}, {formula(u"C2H2O"_s), natural()}};
    const auto grownPeptide = IsotopePattern::of(groups, largestCoverage).value();
    const double average =
        grown.weigh(formula(peptideText))->average + natural().weigh(formula(u"C2H2O"_s))->average;
    double centre = 0.0;
    for (std::size_t i = 0; i < grownPeptide.shares().size(); ++i)
        centre += grownPeptide.shares()[i] * grownPeptide.centroids()[i];
    EXPECT_NEAR(centre / sumOf(grownPeptide.shares()), average, 1e-6);
}

/// Shares and first moments by nominal mass.
using Bins = std::map<qint64, std::pair<double, double>>;

void addPattern(const IsotopePattern& pattern, qint64 shift, double weight, Bins* bins)
{
    for (std::size_t i = 0; i < pattern.shares().size(); ++i) {
        auto& [share, moment] = (*bins)[pattern.firstBin() + qint64(i) + shift];
        share += weight * pattern.shares()[i];
        moment += weight * pattern.shares()[i] * pattern.centroids()[i];
    }
}

/// Angiotensin II has six amide hydrogens that exchange. The pattern is that of a mixture of
/// molecules with none to six deuteriums.
TEST(LabelledPatterns, ExchangeOfAmideHydrogensIsAMixtureOfAllNumbersOfDeuteriums)
{
    constexpr int amides = 6;
    const Composition rest = formula(u"C50H65N13O12"_s);
    for (const double share : {0.0, 0.1, 0.5, 0.85, 1.0}) {
        const AtomMasses exchanged = natural().labelled({1, 2}, share).value();
        const Groups groups = {{rest, natural()}, {Composition({1, 0}, amides), exchanged}};
        Bins mixture;
        for (int heavy = 0; heavy <= amides; ++heavy) {
            Composition molecule = rest;
            ASSERT_TRUE(molecule.add({1, 2}, heavy) && molecule.add({1, 1}, amides - heavy));
            const auto one = IsotopePattern::of(molecule, natural(), largestCoverage).value();
            // Bins count from the lightest isotopologue, which has all the deuterium that there is.
            const qint64 shift = share == 1.0 ? heavy - amides : heavy;
            addPattern(one, shift, binomial(amides, heavy, share), &mixture);
        }
        const auto pattern = IsotopePattern::of(groups, 0.999999).value();
        EXPECT_GE(pattern.shares().size(), 6U);
        for (std::size_t i = 0; i < pattern.shares().size(); ++i) {
            const auto& [expected, moment] = mixture.at(pattern.firstBin() + qint64(i));
            EXPECT_NEAR(pattern.shares()[i], expected, 1e-8);
            EXPECT_NEAR(pattern.centroids()[i], moment / expected, 1e-6);
        }
    }
}

TEST(LabelledPatterns, SixHeavyCarbonsLeaveTheIsotopesOfTheRest)
{
    const Composition glucose = formula(u"[13C]6H12O6"_s);
    EXPECT_NEAR(natural().weigh(glucose)->monoisotopic, 186.083517, 1e-6);
    expectShifted(patternOf(glucose), patternOf(formula(u"H12O6"_s)), 6 * 13.00335483507);
}

} // namespace

} // namespace ions
