#include "ChildProcess.h"
#include "DeepNests.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <sys/resource.h>

namespace {

using namespace Qt::StringLiterals;
using namespace faults;

using chem::Chain;
using chem::Modification;
using chem::MoleculeEntity;

// The address sanitizer keeps what is freed for a while and a frame for each allocation, and code
// that is not optimised is twenty times slower: both check a tenth of these sizes, so that the
// tests end within seconds.
#if defined(__SANITIZE_ADDRESS__) || !defined(__OPTIMIZE__)
constexpr int scale = 10;
#else
constexpr int scale = 1;
#endif

/// Heap that a size may take for twice the heap of half the size: lists grow by doubling, so a
/// size just behind a power of two holds up to twice what it needs.
constexpr double linearGrowth = 2.2;

/// What a value that is kept takes.
struct Cost
{
    std::size_t held = 0; ///< Bytes while the value lives.
    std::size_t peak = 0; ///< Most bytes on the way.
    double seconds = 0.0; ///< To make it and to release it.
};

template <typename Make>
Cost costOf(const Make& make)
{
    const std::size_t before = usage().bytes;
    beginPeak();
    Cost cost;
    const auto start = std::chrono::steady_clock::now();
    {
        const auto value = make();
        cost.held = usage().bytes - before;
        cost.peak = peakBytes() - before;
    }
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    cost.seconds = time.count();
    EXPECT_LE(usage().bytes, before + 100'000); // what is made once in a process stays
    return cost;
}

void print(const char* what, int size, const Cost& cost)
{
    std::cout << "  " << what << ' ' << size << ": " << cost.seconds << " s, "
              << double(cost.held) / 1e6 << " MB held, " << double(cost.peak) / 1e6
              << " MB at most\n";
}

/// Makes a value of half the size and one of the whole size and compares what they take.
template <typename Make>
void expectLinear(const char* what, int size, const Make& make)
{
    const Cost half = costOf([&] { return make(size / 2); });
    const Cost whole = costOf([&] { return make(size); });
    print(what, size, whole);
    EXPECT_LE(double(whole.held), linearGrowth * double(half.held));
    EXPECT_LE(double(whole.peak), linearGrowth * double(half.peak));
}

/// Runs `work` with the usual 8 MB of stack, whatever the system allows.
void expectOnNormalStack(const std::function<void()>& work)
{
    const SharedReport report;
    const ChildEnding ending = runInChild(report.get(), [&] {
        rlimit limit{};
        getrlimit(RLIMIT_STACK, &limit);
        limit.rlim_cur = std::min<rlim_t>(limit.rlim_max, 8 << 20);
        setrlimit(RLIMIT_STACK, &limit);
        work();
        std::cout << std::flush;
        return std::string(testing::Test::HasFailure() ? "see above" : "");
    });
    EXPECT_EQ(ending, ChildEnding::Good) << complaintOf(*report);
}

TEST(Sizes, NestsOfAllKindsInTurnAreReleasedOnANormalStack)
{
    expectOnNormalStack(
        [] { expectLinear("mixed nest, depth", deepNests::greatDepth, deepNests::mixedNest); });
}

TEST(Sizes, HistoriesOfOneEntryALevelAreReleasedOnANormalStack)
{
    expectOnNormalStack(
        [] { expectLinear("history, depth", deepNests::greatDepth, deepNests::deepHistory); });
}

QString peptideText(int residues)
{
    return u"ACDEFGHIKL"_s.repeated(residues / 10);
}

MoleculeEntity peptide(int residues)
{
    const auto factory = chem::defaultChemicalFactory();
    return chem::constructStructuredMolecule(
        {}, {}, {chem::constructPeptideChain({}, {}, peptideText(residues), factory.data())}, {},
        {}, chem::MoleculeType::Peptide);
}

TEST(Sizes, ChainsOfAMillionResiduesTakeMemoryByTheirLength)
{
    peptide(1); // makes the factory and the reader
    expectLinear("peptide chain, residues", 1'000'000 / scale, peptide);
    expectLinear("the same after a located Modify, residues", 1'000'000 / scale, [](int residues) {
        return chem::Modify(Modification(1.0, {{0, 5}})).transform(peptide(residues));
    });
}

TEST(Sizes, ComplexesOfAMillionResiduesTakeMemoryByTheirLength)
{
    const auto factory = chem::defaultChemicalFactory();
    factory->constructLinearPeptideComplex(peptideText(1)); // makes the reader
    expectLinear("peptide complex, residues", 1'000'000 / scale, [&factory](int residues) {
        return factory->constructLinearPeptideComplex(peptideText(residues));
    });
}

/// Chains of ten residues, each of which gives 19 clips of all trims.
QList<MoleculeEntity> clips(int number)
{
    const auto factory = chem::defaultChemicalFactory();
    const QList<Chain> chains(number / 19,
                              chem::constructPeptideChain({}, {}, u"ACDEFGHIKL"_s, factory.data()));
    const MoleculeEntity protein =
        chem::constructProteinFromChains({}, chains, {}, {}, factory.data());
    return chem::generateClips(protein, factory.data(), chem::ClipOptions::createClipAll());
}

TEST(Sizes, AMillionClipsTakeMemoryByTheirNumber)
{
    constexpr int number = 19 * 52'634 / scale;
    EXPECT_EQ(clips(19 * 10).size(), 19 * 10);
    expectLinear("clips", number, clips);
}

/// Ascending masses, a hundredth of a dalton apart.
QList<chem::ObservedMassEntity> measurements(int number)
{
    QList<chem::ObservedMassEntity> masses;
    masses.reserve(number);
    for (int i = 0; i < number; ++i)
        masses.append(chem::ObservedMassEntity(i * 0.01));
    return masses;
}

TEST(Sizes, MatchingAgainstTenMillionMeasurementsTakesMemoryForTheMatchesAlone)
{
    constexpr int number = 10'000'000 / scale;
    const QList<chem::ObservedMassEntity> masses = measurements(number);
    const MoleculeEntity molecule = number * 0.005;
    const chem::MatchingParameters parameters = {{1.005, 0}, {}, {}, {}};
    const Cost cost = costOf([&] { return chem::match(molecule, masses, parameters); });
    print("match, measurements", number, cost);
    EXPECT_EQ(chem::match(molecule, masses, parameters).size(), 201);
    EXPECT_LE(cost.peak, 2 * 201 * sizeof(chem::Match));
}

} // namespace
