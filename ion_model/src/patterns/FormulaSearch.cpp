#include "FormulaSearch.h"

#include "patterns/LargestMass.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

/// Twice the double bonds that one atom brings.
int halfBondsOf(Atom atom)
{
    constexpr std::array nobleGases = {0, 2, 10, 18, 36, 54, 86, 118};
    const int number = atom.atomicNumber;
    const auto next = std::lower_bound(nobleGases.begin() + 1, nobleGases.end() - 1, number);
    const int before = *next - number;
    const int behind = number - *(next - 1);
    if (behind == 1 || before == 1)
        return 1 - 2;
    if (before == 0)
        return 0 - 2;
    if (before == 3 || before == 5)
        return 3 - 2;
    return before == 4 ? 4 - 2 : 0;
}

/// One kind of atom in the search.
struct Slot
{
    Atom atom;
    double mass = 0.0;
    double halfBonds = 0.0;
    int lowest = 0;
    int range = 0;         ///< How many more than the lowest count there may be.
    double heaviest = 0.0; ///< What this and all later slots can weigh beyond their lowest counts.
};

/// The masses, in daltons, that have the measured one in their tolerance.
struct MassWindow
{
    double low = 0.0;
    double high = 0.0;
};

/// An interval of calculated masses from a tolerance that is relative to them. Wider by what sums
/// of doubles can be off: each formula is weighed in the end.
std::optional<MassWindow> windowOf(double mass, Tolerance tolerance)
{
    const double daltons = tolerance.around(0.0);
    const double share = tolerance.around(1.0) - daltons;
    if (!(share < 1.0))
        return {};
    const double slack = 1e-9 + 1e-11 * mass;
    return MassWindow{(mass - daltons) / (1.0 + share) - slack,
                      (mass + daltons) / (1.0 - share) + slack};
}

/// Nearer first; formulas of one mass by text.
bool isNearer(const FormulaMatch& left, const FormulaMatch& right)
{
    if (std::abs(left.ppm) != std::abs(right.ppm))
        return std::abs(left.ppm) < std::abs(right.ppm);
    return left.composition.toString() < right.composition.toString();
}

/// The nearest formulas seen so far.
class NearestFormulas
{
public:
    explicit NearestFormulas(qsizetype limit)
        : m_limit(std::size_t(limit))
    {
    }

    void add(FormulaMatch match)
    {
        m_found.push_back(std::move(match));
        if (m_found.size() / 2 >= m_limit)
            dropFarther();
    }

    FormulaMatches take(bool isComplete)
    {
        dropFarther();
        std::sort(m_found.begin(), m_found.end(), isNearer);
        return {std::move(m_found), isComplete && !m_hasDropped};
    }

private:
    void dropFarther()
    {
        if (m_found.size() <= m_limit)
            return;
        const auto end = m_found.begin() + std::ptrdiff_t(m_limit);
        std::nth_element(m_found.begin(), end, m_found.end(), isNearer);
        m_found.erase(end, m_found.end());
        m_hasDropped = true;
    }

    std::vector<FormulaMatch> m_found;
    std::size_t m_limit;
    bool m_hasDropped = false;
};

/// Tries the counts of the heavier atoms one by one; what is left tells the count of the lightest.
class Search
{
public:
    Search(double mass, Tolerance tolerance, const FormulaLimits& limits, const AtomMasses& atoms)
        : m_mass(mass)
        , m_tolerance(tolerance)
        , m_limits(limits)
        , m_atoms(atoms)
        , m_nearest(limits.formulas)
        , m_stepsLeft(limits.steps)
    {
        for (const AtomLimits& limit : limits.atoms)
            m_slots.push_back({limit.atom, atoms.of(limit.atom).monoisotopic,
                               double(halfBondsOf(limit.atom)), limit.lowest,
                               limit.highest - limit.lowest});
        std::sort(m_slots.begin(), m_slots.end(),
                  [](const Slot& left, const Slot& right) { return left.mass > right.mass; });
        double heaviest = 0.0;
        for (auto slot = m_slots.rbegin(); slot != m_slots.rend(); ++slot) {
            heaviest += slot->range * slot->mass;
            slot->heaviest = heaviest;
        }
        m_counts.resize(m_slots.size());
    }

    FormulaMatches run(MassWindow window)
    {
        for (std::size_t i = 0; i < m_slots.size(); ++i) {
            m_counts[i] = m_slots[i].lowest;
            window.low -= m_slots[i].lowest * m_slots[i].mass;
            window.high -= m_slots[i].lowest * m_slots[i].mass;
        }
        if (!m_slots.empty())
            fill(0, window);
        return m_nearest.take(m_stepsLeft >= 0);
    }

private:
    /// Tries the counts of a slot for which the later slots can make up the rest.
    void fill(std::size_t index, MassWindow rest)
    {
        const Slot& slot = m_slots[index];
        const bool isLast = index + 1 == m_slots.size();
        const double others = isLast ? 0.0 : m_slots[index + 1].heaviest;
        const double fewest = std::max(0.0, std::ceil((rest.low - others) / slot.mass));
        const double most = std::min(double(slot.range), std::floor(rest.high / slot.mass));
        for (double more = fewest; more <= most && --m_stepsLeft >= 0; ++more) {
            m_counts[index] = slot.lowest + int(more);
            if (isLast)
                weigh();
            else
                fill(index + 1, {rest.low - more * slot.mass, rest.high - more * slot.mass});
        }
    }

    void weigh()
    {
        double halfBonds = 2.0;
        for (std::size_t i = 0; i < m_slots.size(); ++i)
            halfBonds += m_counts[i] * m_slots[i].halfBonds;
        const double bonds = 0.5 * halfBonds;
        if (!(bonds >= m_limits.lowestUnsaturation && bonds <= m_limits.highestUnsaturation))
            return;
        Composition composition;
        for (std::size_t i = 0; i < m_slots.size(); ++i)
            static_cast<void>(composition.add(m_slots[i].atom, m_counts[i])); // counts fit
        const Parsed<Masses> masses = m_atoms.weigh(composition);
        if (!masses || composition.isEmpty() || !m_tolerance.accepts(m_mass, masses->monoisotopic))
            return;
        const double ppm = ppmError(m_mass, masses->monoisotopic);
        m_nearest.add({std::move(composition), masses->monoisotopic, ppm, bonds});
    }

    double m_mass;
    Tolerance m_tolerance;
    const FormulaLimits& m_limits;
    const AtomMasses& m_atoms;
    NearestFormulas m_nearest;
    qint64 m_stepsLeft;
    std::vector<Slot> m_slots; ///< The heaviest atom first.
    std::vector<int> m_counts; ///< In step with the slots.
};

std::optional<Error> refusalOf(const AtomLimits& limits, const AtomMasses& atoms)
{
    if (!(atoms.of(limits.atom).monoisotopic > 0.0))
        return Error{u"no mass is known for "_s + Composition(limits.atom).toString()};
    if (limits.lowest < 0)
        return Error{u"expected a lowest count of at least 0"_s};
    if (limits.highest < limits.lowest)
        return Error{u"expected a highest count that is not below the lowest"_s};
    return {};
}

std::optional<Error> refusalOf(const std::vector<AtomLimits>& limits, const AtomMasses& atoms)
{
    for (auto limit = limits.begin(); limit != limits.end(); ++limit) {
        std::optional<Error> refusal = refusalOf(*limit, atoms);
        const auto isSame = [limit](const AtomLimits& other) {
            return other.atom == limit->atom;
        };
        if (!refusal && std::any_of(limits.begin(), limit, isSame))
            refusal = Error{u"expected each atom once"_s};
        if (refusal) {
            refusal->position = limit - limits.begin();
            return refusal;
        }
    }
    return {};
}

} // namespace

Parsed<FormulaMatches> findFormulas(double mass, Tolerance tolerance, const FormulaLimits& limits,
                                    const AtomMasses& atoms)
{
    if (!(mass > 0.0))
        return Error{u"expected a mass above 0"_s};
    const std::optional<MassWindow> window = windowOf(mass, tolerance);
    if (!window)
        return Error{u"expected a tolerance below 1000000 ppm"_s};
    if (!(window->high <= largestMass))
        return Error{u"expected a mass of at most 100 MDa with its tolerance"_s};
    if (limits.formulas < 1 || limits.steps < 1)
        return Error{u"expected limits of at least 1"_s};
    if (!(limits.lowestUnsaturation <= limits.highestUnsaturation))
        return Error{u"expected a highest unsaturation that is not below the lowest"_s};
    if (const auto refusal = refusalOf(limits.atoms, atoms))
        return *refusal;
    return Search(mass, tolerance, limits, atoms).run(*window);
}

double unsaturation(const Composition& composition)
{
    double halfBonds = 2.0;
    for (const Composition::Term& term : composition.terms())
        halfBonds += double(term.count) * halfBondsOf(term.atom);
    return 0.5 * halfBonds;
}

} // namespace ions
