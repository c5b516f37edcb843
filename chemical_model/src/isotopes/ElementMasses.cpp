#include "isotopes/ElementMasses.h"

#include <IsoSpec++/isoSpec++.h>

#include <IsoSpec++/element_tables.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
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

/// The logarithm that IsoSpec++ keeps of an abundance: its table has those of natural ones, with
/// more care than a logarithm taken here.
double logarithmOf(double abundance)
{
    const auto known = std::ranges::find(IsoSpec::elem_table_probability, abundance);
    const auto row = std::distance(std::begin(IsoSpec::elem_table_probability), known);
    return known != std::end(IsoSpec::elem_table_probability)
               ? IsoSpec::elem_table_log_probability[row]
               : std::log(abundance);
}

/// The masses of one atom, by way of the logarithms of the abundances, which round a little.
ElementMasses::Atom atomOf(const IsotopeTable::Element& isotopes)
{
    ElementMasses::Atom atom;
    double greatest = -std::numeric_limits<double>::infinity();
    for (qsizetype i = 0; i < isotopes.masses.size(); ++i) {
        const double logarithm = logarithmOf(isotopes.abundances[i]);
        atom.average += std::exp(logarithm) * isotopes.masses[i];
        if (logarithm > greatest) {
            greatest = logarithm;
            atom.mono = isotopes.masses[i];
        }
    }
    return atom;
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

ElementMasses::ElementMasses(const IsotopeTable& isotopes)
    : ElementMasses()
{
    const QMap<QString, IsotopeTable::Element>& elements = isotopes.elements();
    for (auto element = elements.cbegin(); element != elements.cend(); ++element)
        add(element.key(), element.value());
}

void ElementMasses::add(const QString& symbol, const IsotopeTable::Element& isotopes)
{
    const int index = shortSymbolIndex(symbol);
    if (index >= 0)
        m_shortSymbols[static_cast<std::size_t>(index)] = static_cast<qint16>(m_atoms.size());
    else
        m_otherSymbols.insert(symbol, static_cast<qsizetype>(m_atoms.size()));
    m_atoms.push_back(areUsable(isotopes.abundances) ? atomOf(isotopes) : Atom{.refused = true});
}

const ElementMasses::Atom* ElementMasses::find(QStringView symbol) const
{
    const int index = shortSymbolIndex(symbol);
    const qsizetype position = index >= 0 ? m_shortSymbols[static_cast<std::size_t>(index)]
                                          : m_otherSymbols.value(symbol.toString(), none);
    return position >= 0 ? &m_atoms[static_cast<std::size_t>(position)] : nullptr;
}

} // namespace chem
