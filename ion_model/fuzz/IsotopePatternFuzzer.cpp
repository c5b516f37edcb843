#include "ByteReader.h"
#include "ExactPattern.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

/// \file
/// A byte string is a molecule of up to three groups with tables of their own, and a coverage. Its
/// pattern is compared with one that is convolved atom by atom, its fine structure with the
/// pattern.

using namespace ions;

namespace {

const AtomMasses& natural()
{
    static const AtomMasses masses;
    return masses;
}

/// Elements with few isotopes and many, some without mass, and stated isotopes.
constexpr std::array atoms = {Atom{1, 0},  Atom{6, 0},  Atom{7, 0},   Atom{8, 0},
                              Atom{16, 0}, Atom{17, 0}, Atom{5, 0},   Atom{3, 0},
                              Atom{50, 0}, Atom{80, 0}, Atom{15, 0},  Atom{6, 13},
                              Atom{1, 2},  Atom{1, 3},  Atom{118, 0}, Atom{8, 23}};
constexpr std::array labels = {Atom{6, 13}, Atom{1, 2}, Atom{7, 15}, Atom{5, 11}};
constexpr std::array coverages = {0.5,
                                  0.9,
                                  usualCoverage,
                                  0.999999,
                                  largestCoverage,
                                  1e-300,
                                  0.0,
                                  1.0,
                                  std::numeric_limits<double>::quiet_NaN()};
constexpr int mostAtoms = 40; ///< What the slow way bears.

AtomMasses anyTable(ByteReader* bytes)
{
    const int label = bytes->below(int(labels.size()) + 2);
    const double share = bytes->below(101) / 100.0;
    if (label >= int(labels.size()))
        return natural();
    return natural().labelled(labels[std::size_t(label)], share).valueOr(natural());
}

Composition anyComposition(ByteReader* bytes)
{
    Composition composition;
    for (int kinds = bytes->below(5); kinds > 0; --kinds) {
        const Atom atom = atoms[std::size_t(bytes->below(int(atoms.size())))];
        const int count = bytes->below(16) == 15 ? -1 : bytes->below(12);
        require(composition.add(atom, count), "small counts fit");
    }
    return composition;
}

std::vector<IsotopeGroup> anyGroups(ByteReader* bytes)
{
    std::vector<IsotopeGroup> groups;
    for (int count = bytes->below(4); count > 0; --count)
        groups.push_back({anyComposition(bytes), anyTable(bytes)});
    return groups;
}

std::vector<Composition::Term> termsOf(std::span<const IsotopeGroup> groups)
{
    std::vector<Composition::Term> terms;
    for (const IsotopeGroup& group : groups)
        terms.insert(terms.end(), group.composition.terms().begin(),
                     group.composition.terms().end());
    return terms;
}

void checkRefusal(const Error& error, std::span<const IsotopeGroup> groups, double coverage)
{
    if (!(coverage > 0.0 && coverage <= largestCoverage))
        return;
    const auto terms = termsOf(groups);
    require(error.position >= 0 && error.position < std::ssize(terms), "a refusal names a term");
    const Composition::Term& term = terms[std::size_t(error.position)];
    require(term.count < 0 || std::isnan(natural().of(term.atom).average),
            "a term that is refused has no pattern");
}

void checkBins(const IsotopePattern& pattern, const std::vector<ExactBin>& bins, double coverage)
{
    long double sum = 0.0L;
    for (std::size_t i = 0; i < pattern.shares().size(); ++i) {
        const std::size_t at = std::size_t(pattern.firstBin()) + i;
        require(at < bins.size(), "a bin is one of the molecule's");
        const double share = double(bins[at].share);
        require(std::abs(pattern.shares()[i] - share) < 1e-9, "shares are exact");
        require(share < 1e-6 || std::abs(pattern.centroids()[i] - double(bins[at].centroid)) < 1e-6,
                "centroids are exact");
        sum += bins[at].share;
    }
    require(sum >= coverage * (1.0 - 1e-9), "the coverage is kept");
    require(std::is_sorted(pattern.centroids().begin(), pattern.centroids().end()),
            "centroids ascend");
}

/// The isotopologues of a bin make up its share.
void checkFineStructure(std::span<const IsotopeGroup> groups, double coverage)
{
    const auto fine = fineStructure(groups, coverage, 5000);
    require(fine.hasValue(), "what has a pattern has a fine structure");
    require(fine->masses.size() == fine->shares.size(), "each mass has a share");
    require(std::is_sorted(fine->masses.begin(), fine->masses.end()), "masses ascend");
    const double sum = std::accumulate(fine->shares.begin(), fine->shares.end(), 0.0);
    require(sum <= 1.0 + 1e-9, "shares add up to one at most");
    require(!fine->isComplete || sum >= coverage * (1.0 - 1e-9), "the coverage is kept");
    const auto likeliest = std::max_element(fine->shares.begin(), fine->shares.end());
    const auto mass = mostAbundantMass(groups);
    require(mass.hasValue() && !fine->masses.empty(), "there is a likeliest isotopologue");
    const bool isThatOne =
        std::any_of(fine->masses.begin(), fine->masses.end(), [&](const double& other) {
            const auto at = std::size_t(&other - fine->masses.data());
            return std::abs(other - *mass) < 1e-6 && fine->shares[at] >= *likeliest * (1.0 - 1e-9);
        });
    require(isThatOne, "the most abundant mass is that of the highest peak");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ByteReader bytes(data, size);
    const double coverage = coverages[std::size_t(bytes.below(int(coverages.size())))];
    const std::vector<IsotopeGroup> groups = anyGroups(&bytes);
    const auto pattern = IsotopePattern::of(groups, coverage);
    if (!pattern) {
        checkRefusal(pattern.error(), groups, coverage);
        require(!fineStructure(groups, coverage).hasValue(), "both ways refuse");
        return 0;
    }
    int count = 0;
    for (const Composition::Term& term : termsOf(groups))
        count += term.count;
    if (count > mostAtoms)
        return 0;
    checkBins(*pattern, patternAtomByAtom(groups), coverage);
    checkFineStructure(groups, coverage);
    return 0;
}
