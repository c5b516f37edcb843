#include "search/PrecursorIndex.h"

#include <algorithm>
#include <utility>

namespace tool {

namespace {

/// Peptides are lighter; precursors beyond are no peptides.
constexpr double largestMass = 100000.0;

} // namespace

PrecursorIndex::PrecursorIndex(std::vector<Precursor> precursors, const ions::Tolerance& tolerance)
    : m_tolerance(tolerance)
    , m_precursors(std::move(precursors))
{
    std::erase_if(m_precursors, [](const Precursor& precursor) {
        return !(precursor.mass > 0.0 && precursor.mass < largestMass);
    });
    std::stable_sort(
        m_precursors.begin(), m_precursors.end(),
        [](const Precursor& left, const Precursor& right) { return left.mass < right.mass; });
    for (const Precursor& precursor : m_precursors) {
        m_masses.push_back(precursor.mass);
        mark(precursor.mass);
    }
}

/// Marks the bins of all masses around which this one lies: the width around the larger of them is
/// at least that around any other.
void PrecursorIndex::mark(double mass)
{
    const double width = m_tolerance.around(mass + m_tolerance.around(mass)) * 1.01;
    const auto first = std::size_t(std::max(mass - width, 0.0) * binsPerDalton);
    const auto last = std::size_t(std::min(mass + width, 2 * largestMass) * binsPerDalton);
    if (m_isNear.size() <= last)
        m_isNear.resize(last + 1);
    std::fill(m_isNear.begin() + std::ptrdiff_t(first), m_isNear.begin() + std::ptrdiff_t(last) + 1,
              true);
}

} // namespace tool
