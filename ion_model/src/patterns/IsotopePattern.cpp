#include "IsotopePattern.h"

#include "patterns/IsotopeGroups.h"
#include "patterns/PolynomialPower.h"

#include <algorithm>
#include <cmath>

namespace ions {

namespace {

/// Ends of distributions are cut where a share falls below this part of what the coverage leaves
/// out: far enough that the bins inside keep their centroids.
constexpr double cutOfLeftOut = 1e-10;

/// The shortest run of shares that add up to `target`, and among those the one that holds most; all
/// of them if together they do not reach it.
CoefficientRun shortestRun(std::span<const double> shares, double target)
{
    CoefficientRun best{0, shares.size()};
    double bestSum = 0.0;
    double sum = 0.0;
    std::size_t begin = 0;
    for (std::size_t end = 1; end <= shares.size(); ++end) {
        sum += shares[end - 1];
        // What rounding leaves of a sum may exceed a small target: the run keeps its last share.
        while (begin + 1 < end && sum - shares[begin] >= target)
            sum -= shares[begin++];
        const std::size_t size = end - begin;
        if (sum < target || size > best.end - best.begin)
            continue;
        if (size < best.end - best.begin || sum > bestSum) {
            best = {begin, end};
            bestSum = sum;
        }
    }
    return best;
}

/// Gives bins without molecules the masses evenly between their neighbours.
void interpolateEmptyBins(std::span<const double> shares, std::vector<double>* centroids)
{
    std::size_t before = 0;
    for (std::size_t bin = 1; bin < shares.size(); ++bin) {
        if (shares[bin] == 0.0)
            continue;
        const double first = (*centroids)[before];
        const double step = ((*centroids)[bin] - first) / double(bin - before);
        for (std::size_t empty = before + 1; empty < bin; ++empty)
            (*centroids)[empty] = first + double(empty - before) * step;
        before = bin;
    }
}

} // namespace

/// Multiplies the distributions of the elements. Beside the shares of the bins it carries their
/// moments: share times excess, which is what the molecules of a bin weigh on the average beyond
/// the lightest and beyond 1 Da for each extra neutron.
///
/// The distribution of n atoms is the n-th power of that of one. Its moments are n times those of
/// one atom times the power n - 1, so that no moments have to be raised.
///
/// All distributions add up to 1 here. The little by which the abundances of an element may not is
/// counted apart and put back in the end.
class IsotopePattern::Builder
{
public:
    Builder(IsotopePattern* pattern, double coverage)
        : m_shares(pattern->m_shares)
        , m_moments(pattern->m_centroids)
        , m_atomShares(pattern->m_scratch[0])
        , m_atomMoments(pattern->m_scratch[1])
        , m_power(pattern->m_scratch[2])
        , m_newShares(pattern->m_scratch[3])
        , m_newMoments(pattern->m_scratch[4])
        , m_coverage(coverage)
        , m_cut(cutOfLeftOut * (1.0 - coverage))
    {
        m_shares.assign(1, 1.0);
        m_moments.assign(1, 0.0);
    }

    void multiplyBy(std::span<const IsotopeShare> isotopes, double monoisotopicMass, qint64 count)
    {
        readAtom(isotopes, count);
        const qint64 lightest = std::lround(isotopes.front().mass);
        m_lightestMass += double(count) * isotopes.front().mass;
        m_monoisotopicBin += count * (std::lround(monoisotopicMass) - lightest);
        PolynomialPower power(&m_power, &m_newShares, &m_newMoments);
        power.raise(m_atomShares, count - 1, m_cut);
        m_first += power.first();
        multiplyBy(m_power);
        multiplyByAtom();
    }

    void finish(IsotopePattern* pattern)
    {
        const CoefficientRun run = shortestRun(m_shares, m_coverage);
        keep(run, &m_shares);
        keep(run, &m_moments);
        m_first += qint64(run.begin);
        const double total = std::exp(m_logTotal);
        for (std::size_t bin = 0; bin < m_shares.size(); ++bin) {
            const double excess = m_shares[bin] != 0.0 ? m_moments[bin] / m_shares[bin] : 0.0;
            m_moments[bin] = m_lightestMass + double(m_first + qint64(bin)) + excess;
            m_shares[bin] *= total;
        }
        interpolateEmptyBins(m_shares, &m_moments); // The moments are centroids now.
        pattern->m_firstBin = m_first;
        pattern->m_monoisotopicBin = m_monoisotopicBin;
        for (std::vector<double>& scratch : pattern->m_scratch)
            scratch.clear();
    }

private:
    /// Reads the shares of one atom, and its moments `count` times.
    void readAtom(std::span<const IsotopeShare> isotopes, qint64 count)
    {
        const double lightestMass = isotopes.front().mass;
        const long lightest = std::lround(lightestMass);
        const double sum = sumOfAbundances(isotopes);
        m_logTotal += double(count) * std::log(sum);
        const auto bins = std::size_t(std::lround(isotopes.back().mass) - lightest) + 1;
        m_atomShares.assign(bins, 0.0);
        m_atomMoments.assign(bins, 0.0);
        for (const IsotopeShare& isotope : isotopes) {
            const auto bin = std::size_t(std::lround(isotope.mass) - lightest);
            const double share = isotope.abundance / sum;
            m_atomShares[bin] += share;
            m_atomMoments[bin] +=
                double(count) * share * (isotope.mass - lightestMass - double(bin));
        }
    }

    /// Multiplies shares and moments by a polynomial that has no moments.
    void multiplyBy(std::span<const double> shares)
    {
        clearProducts(shares.size());
        addProduct(m_shares, shares, m_newShares.data());
        addProduct(m_moments, shares, m_newMoments.data());
        takeProducts();
    }

    /// Multiplies by one atom, which brings the moments of all.
    void multiplyByAtom()
    {
        clearProducts(m_atomShares.size());
        addProduct(m_shares, m_atomShares, m_newShares.data());
        addProduct(m_shares, m_atomMoments, m_newMoments.data());
        addProduct(m_moments, m_atomShares, m_newMoments.data());
        takeProducts();
    }

    void clearProducts(std::size_t factorSize)
    {
        m_newShares.assign(m_shares.size() + factorSize - 1, 0.0);
        m_newMoments.assign(m_newShares.size(), 0.0);
    }

    void takeProducts()
    {
        m_shares.swap(m_newShares);
        m_moments.swap(m_newMoments);
        const CoefficientRun run = runAbove(m_cut, m_shares);
        keep(run, &m_shares);
        keep(run, &m_moments);
        m_first += qint64(run.begin);
    }

    std::vector<double>& m_shares;
    std::vector<double>& m_moments;
    std::vector<double>& m_atomShares;
    std::vector<double>& m_atomMoments;
    std::vector<double>& m_power;
    std::vector<double>& m_newShares;
    std::vector<double>& m_newMoments;
    double m_coverage;
    double m_cut;
    double m_logTotal = 0.0; ///< The logarithm of what all shares really add up to.
    double m_lightestMass = 0.0;
    qint64 m_first = 0; ///< The extra neutrons of the first bin.
    qint64 m_monoisotopicBin = 0;
};

Parsed<IsotopePattern> IsotopePattern::of(const Composition& composition, const AtomMasses& atoms,
                                          double coverage)
{
    return of(std::array{IsotopeGroup{composition, atoms}}, coverage);
}

Parsed<IsotopePattern> IsotopePattern::of(std::span<const IsotopeGroup> groups, double coverage)
{
    IsotopePattern pattern;
    if (const auto refusal = pattern.fill(groups, coverage))
        return *refusal;
    return pattern;
}

std::optional<Error> IsotopePattern::fill(std::span<const IsotopeGroup> groups, double coverage)
{
    if (const auto refusal = refusalOf(coverage))
        return refusal;
    if (const auto refusal = refusalOf(groups))
        return refusal;
    Builder builder(this, coverage);
    forEachTerm(groups, [&builder](const AtomMasses& atoms, const Composition::Term& term,
                                   std::span<const IsotopeShare> isotopes) {
        builder.multiplyBy(isotopes, atoms.of(term.atom).monoisotopic, term.count);
    });
    builder.finish(this);
    return {};
}

qsizetype IsotopePattern::highestBin() const
{
    if (m_shares.empty())
        return -1;
    return std::max_element(m_shares.begin(), m_shares.end()) - m_shares.begin();
}

} // namespace ions
