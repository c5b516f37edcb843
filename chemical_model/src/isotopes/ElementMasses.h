#pragma once

#include "core/ElementSymbol.h"
#include "isotopes/IsotopeTable.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringView>

#include <array>
#include <vector>

namespace chem {

/// Throws what IsoSpec++ throws for abundances outside (0, 1]; NaN, which it would let through,
/// counts as outside.
void requireUsableAbundances(const QList<double>& abundances);

/// The masses of one atom of each element of an isotope table.
///
/// Both masses of a molecule are linear in its atom counts, so they are computed once for each
/// element and multiplied from then on, at a hundredth of the cost of a generator built for the
/// whole molecule. They are the masses of IsoSpec++, added up with one rounding for each product
/// and one for each sum. IsoSpec++ itself does so where its build has no fused multiply-add, as on
/// x86-64; where it has, as on arm64, its own sums differ in their last bits, and these do not.
class ElementMasses
{
public:
    /// The masses of one atom, in daltons.
    struct Atom
    {
        double mono = 0.0;    ///< The mass of the most abundant isotope, the first on a tie.
        double average = 0.0; ///< The sum over the isotopes of abundance times mass, in order.
        bool refused = false; ///< Whether IsoSpec++ refuses the isotopes.

        /// Throws `std::invalid_argument` if the isotopes are refused.
        void requireUsable() const;
    };

    /// Makes a table without elements.
    ElementMasses() { m_shortSymbols.fill(none); }

    explicit ElementMasses(const IsotopeTable& isotopes);

    /// Adds the element `symbol` with its isotopes: at least one.
    void add(const QString& symbol, const IsotopeTable::Element& isotopes);

    /// The element `symbol`, or null.
    const Atom* find(QStringView symbol) const;

private:
    static constexpr qint16 none = -1;

    std::vector<Atom> m_atoms;
    /// Positions of the short symbols: a map look-up would cost more than everything else in a
    /// mass.
    std::array<qint16, shortSymbolCount> m_shortSymbols;
    QHash<QString, qsizetype> m_otherSymbols;
};

} // namespace chem
