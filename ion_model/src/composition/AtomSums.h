#pragma once

#include "Composition.h"
#include "Parsed.h"

#include <limits>
#include <optional>
#include <vector>

namespace ions {

/// Whether a composition may hold so many atoms of a kind.
constexpr bool isCount(qint64 count)
{
    constexpr qint64 largest = std::numeric_limits<int>::max();
    return count >= -largest && count <= largest;
}

/// Counts of atoms from many terms, of which only the totals have to fit: their order does not
/// matter.
class AtomSums
{
public:
    /// Adds the atoms of a term, whose place is reported if they are too many.
    void add(Atom atom, qint64 count, qsizetype position);

    /// Adds a composition `times` times likewise.
    void add(const Composition& composition, qint64 times, qsizetype position);

    /// All atoms. Refused at the first place from which on a total does not fit, or at a term that
    /// does not fit by itself.
    Parsed<Composition> total() const;

private:
    struct Sum
    {
        Atom atom;
        qint64 count = 0;
        qsizetype beyondFrom = -1; ///< The last term before which it fitted.
    };

    std::vector<Sum> m_sums;             ///< By atom.
    std::optional<qsizetype> m_tooLarge; ///< The first term that does not fit.
};

} // namespace ions
