#include "FailingAllocator.h"
#include "IonLists.h"
#include "IonModel.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

using namespace Qt::StringLiterals;

// What a search does again and again, on memory that the first rounds have made.

namespace ions {

namespace {

/// Does the work a few times, since buffers may trade places, and again with no memory left:
/// whoever asks for some then, fails.
void expectNoAllocation(const std::function<void()>& work)
{
    for (int round = 0; round < 4; ++round)
        work();
    const faults::OutOfMemory shortage(1, faults::Shortage::Lasting);
    EXPECT_NO_THROW(work());
    EXPECT_FALSE(faults::hasRunOut());
}

const QStringList& peptides()
{
    static const QStringList texts = {u"PEPTIDEPEPTIDEPEPTIDEK"_s, u"GG"_s, u"SAMPLERK"_s,
                                      u"WITHWATERANDQ"_s};
    return texts;
}

IonOptions withLosses(const QStringList& losses)
{
    IonOptions options;
    options.series = {Series::A, Series::B, Series::Y, Series::ZDot};
    options.charges = {1, 2, 3};
    for (const QString& loss : losses)
        options.losses.push_back(LossRule::read(loss, residues().atoms()).value());
    return options;
}

TEST(SteadyState, AllocationsAreSeen)
{
    const faults::OutOfMemory shortage(1, faults::Shortage::Lasting);
    // A compiler may leave out an allocation that it knows of, and an exception would need memory.
    void* (*volatile allocate)(std::size_t) = &std::malloc;
    EXPECT_EQ(allocate(800), nullptr);
    EXPECT_TRUE(faults::hasRunOut());
}

TEST(SteadyState, MassesOfPeptidesAndOligonucleotidesAllocateNothing)
{
    const NucleotideTable nucleotides;
    double sum = 0.0;
    expectNoAllocation([&] {
        for (const QString& text : peptides())
            sum += residues().peptide(text)->monoisotopic;
        sum += double(residues().peptide(u"PEPTIDEX").error().position);
        sum += nucleotides.oligonucleotide(u"{rA*rC*GU}")->average;
        sum += double(nucleotides.oligonucleotide(u"rA*rX").error().position);
    });
    EXPECT_GT(sum, 0.0);
}

TEST(SteadyState, IonsOfPeptidesAllocateNothing)
{
    for (const QStringList& losses :
         {QStringList{}, {u"H2O"_s, u"NH3"_s}, {u"H2O@STED"_s, u"NH3@RKNQ"_s}}) {
        const IonOptions options = withLosses(losses);
        Backbone backbone;
        FragmentIons ions;
        std::size_t count = 0;
        expectNoAllocation([&] {
            for (const QString& text : peptides()) {
                if (!backbone.assignPeptide(text, residues()) && !ions.assign(backbone, options))
                    count += ions.mz().size();
            }
        });
        EXPECT_GT(count, 0U);
    }
}

TEST(SteadyState, IonsOfOligonucleotidesAllocateNothing)
{
    const NucleotideTable nucleotides;
    IonOptions options;
    options.series = {Series::AMinusB, Series::D, Series::W, Series::Y};
    Backbone backbone;
    FragmentIons ions;
    const QStringList texts = {u"{rA*rC*rGrUrA}"_s, u"ACGT"_s};
    std::size_t count = 0;
    expectNoAllocation([&] {
        for (const QString& text : texts) {
            if (!backbone.assignOligonucleotide(text, nucleotides) &&
                !ions.assign(backbone, options))
                count += ions.mz().size();
        }
    });
    EXPECT_EQ(count, 5U * (16U + 12U));
}

/// A modification with a loss of its own.
TEST(SteadyState, IonsOfModifiedPeptidesAllocateNothing)
{
    BackboneChain chain = Backbone::peptide(u"GGSGGK", residues())->chains()[0];
    const NeutralLoss loss = LossRule::read(u"H3PO4"_s, residues().atoms())->loss;
    chain.groups.push_back({2, {loss.masses, {loss}}});
    const Backbone modified = Backbone::ofChains({chain}, {}, residues().breaks()).value();
    const IonOptions options = withLosses({u"H2O@STED"_s});
    FragmentIons ions;
    expectNoAllocation([&] { EXPECT_FALSE(ions.assign(modified, options).has_value()); });
    EXPECT_GT(ions.mz().size(), 60U);
}

TEST(SteadyState, DigestsAndMatchesAllocateNothing)
{
    const Protease trypsin = Protease::named(u"Trypsin"_s).value();
    const QString protein = u"MAKPRGKLRPEPTIDEKSAMPLERWITHQKAAX"_s;
    const std::vector<double> peaks = {175.119, 262.151, 375.235, 500.25, 600.3};
    const std::vector<double> masses = {175.119, 375.2351, 600.3, 700.0};
    Digest digest;
    std::vector<PeakRange> ranges;
    PeakMatches matches;
    expectNoAllocation([&] {
        EXPECT_TRUE(digest.cleave(protein, trypsin, residues(), {.missedCleavages = 2}));
        peaksAround(peaks, masses, ppm(10), &ranges);
        matchPeaks(peaks, peaks, masses, ppm(10), PeakChoice::MostIntense, &matches);
    });
    EXPECT_GT(digest.size(), 10U);
    EXPECT_EQ(matches.size(), 3U);
}

TEST(SteadyState, IsotopePatternsAllocateNothing)
{
    const std::vector<IsotopeGroup> groups = {
        {Composition::read(u"C50H71N13O12"_s).value(), residues().atoms()}};
    IsotopePattern pattern;
    expectNoAllocation([&] { EXPECT_FALSE(pattern.fill(groups).has_value()); });
    EXPECT_GT(pattern.shares().size(), 3U);
}

} // namespace

} // namespace ions
