#pragma once

#include "ElementSymbol.h"

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
/// Both masses of a molecule are linear in its atom counts, so IsoSpec++ is asked once for each
/// element and its answers are multiplied from then on; the bits are the same as those of a
/// generator built for the whole molecule, at a hundredth of its cost.
class ElementMasses
{
public:
    /// The masses of one atom, in daltons.
    struct Atom
    {
        double mono = 0.0;    ///< The mass of the most abundant isotope.
        double average = 0.0; ///< The mean over the isotopes.
        bool refused = false; ///< Whether IsoSpec++ refuses the isotopes.

        /// Throws `std::invalid_argument` if the isotopes are refused.
        void requireUsable() const;
    };

    ElementMasses() { m_shortSymbols.fill(none); }

    /// Adds the element `symbol` with the masses and abundances of its isotopes: at least one.
    void add(const QString& symbol, const QList<double>& masses, const QList<double>& abundances);

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
