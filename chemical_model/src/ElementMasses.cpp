#include "ElementMasses.h"

#include <IsoSpec++/isoSpec++.h>

#include <algorithm>
#include <stdexcept>

namespace chem {

namespace {

bool isUsableAbundance(double abundance)
{
    return abundance > 0.0 && abundance <= 1.0;
}

bool areUsable(const QList<double>& abundances)
{
    return std::all_of(abundances.cbegin(), abundances.cend(), isUsableAbundance);
}

[[noreturn]] void refuseAbundances()
{
    throw std::invalid_argument("All isotope probabilities p must fulfill: 0.0 < p <= 1.0");
}

} // namespace

void requireUsableAbundances(const QList<double>& abundances)
{
    if (!areUsable(abundances))
        refuseAbundances();
}

void ElementMasses::Atom::requireUsable() const
{
    if (refused)
        refuseAbundances();
}

void ElementMasses::add(const QString& symbol, const QList<double>& masses,
                        const QList<double>& abundances)
{
    Atom atom;
    atom.refused = !areUsable(abundances);
    if (!atom.refused) {
        const int isotopeNumber = static_cast<int>(masses.size());
        const int oneAtom = 1;
        const IsoSpec::Iso iso(1, &isotopeNumber, &oneAtom, masses.data(), abundances.data());
        atom.mono = iso.getMonoisotopicPeakMass();
        atom.average = iso.getTheoreticalAverageMass();
    }

    const int index = shortSymbolIndex(symbol);
    if (index >= 0)
        m_shortSymbols[static_cast<std::size_t>(index)] = static_cast<qint16>(m_atoms.size());
    else
        m_otherSymbols.insert(symbol, static_cast<qsizetype>(m_atoms.size()));
    m_atoms.push_back(atom);
}

const ElementMasses::Atom* ElementMasses::find(QStringView symbol) const
{
    const int index = shortSymbolIndex(symbol);
    const qsizetype position = index >= 0 ? m_shortSymbols[static_cast<std::size_t>(index)]
                                          : m_otherSymbols.value(symbol.toString(), none);
    return position >= 0 ? &m_atoms[static_cast<std::size_t>(position)] : nullptr;
}

} // namespace chem
