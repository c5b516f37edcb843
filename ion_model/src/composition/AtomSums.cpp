#include "composition/AtomSums.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ions {

void AtomSums::add(Atom atom, qint64 count, qsizetype position)
{
    if (!isCount(count)) {
        m_tooLarge = std::min(m_tooLarge.value_or(position), position);
        return;
    }
    auto sum = std::lower_bound(m_sums.begin(), m_sums.end(), atom,
                                [](const Sum& other, Atom a) { return other.atom < a; });
    if (sum == m_sums.end() || sum->atom != atom)
        sum = m_sums.insert(sum, {atom});
    if (isCount(sum->count))
        sum->beyondFrom = position;
    sum->count += count;
}

void AtomSums::add(const Composition& composition, qint64 times, qsizetype position)
{
    for (const Composition::Term& term : composition.terms())
        add(term.atom, term.count * times, position);
}

Parsed<Composition> AtomSums::total() const
{
    std::optional<qsizetype> refused = m_tooLarge;
    Composition composition;
    for (const Sum& sum : m_sums) {
        if (!composition.add(sum.atom, sum.count))
            refused = std::min(refused.value_or(sum.beyondFrom), sum.beyondFrom);
    }
    if (refused)
        return Error{u"this makes more than 2147483647 atoms of a kind"_s, *refused};
    return composition;
}

} // namespace ions
