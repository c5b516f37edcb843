#include "isotopes/IsotopeTable.h"

#include "IsotopeConfiguration.h"
#include "isotopes/IsotopeText.h"
#include "support/TruncateToInt.h"

#include <IsoSpec++/isoSpec++.h>

#include <IsoSpec++/element_tables.h>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace chem {

namespace {

/// Daltons that one more neutron adds, about.
constexpr double neutronStep = 1.0026;
/// How close a known isotope must be to the expected mass to be taken for it, in daltons.
constexpr double massWindow = 0.2;
/// The electron's mass in daltons, 5.48579909e-4 by CODATA, to the eight decimals that results have
/// always had.
constexpr double electronMass = 0.00054858;
/// An electron is no atom.
constexpr int electronAtomicNumber = -1;

/// The mass of a known isotope near `expected`, or else that mass itself.
double knownMassNear(double expected, const QList<double>& masses)
{
    const auto known = std::find_if(masses.cbegin(), masses.cend(), [expected](double mass) {
        return std::abs(mass - expected) < massWindow;
    });
    return known != masses.cend() ? *known : expected;
}

} // namespace

// The electron then has two rows of abundance 1, both of which count, so its average mass is the
// sum of both.
IsotopeTable::IsotopeTable()
{
    m_isotopes.reserve(ISOSPEC_NUMBER_OF_ISOTOPIC_ENTRIES + 1);
    for (std::size_t i = 0; i < ISOSPEC_NUMBER_OF_ISOTOPIC_ENTRIES; ++i) {
        m_isotopes.append({IsoSpec::elem_table_atomicNo[i], IsoSpec::elem_table_extraNeutrons[i],
                           QString::fromLatin1(IsoSpec::elem_table_element[i]),
                           QString::fromLatin1(IsoSpec::elem_table_symbol[i]),
                           IsoSpec::elem_table_mass[i], IsoSpec::elem_table_probability[i]});
    }
    m_isotopes.append({electronAtomicNumber, 0, u"Electron"_s, u"E"_s, electronMass, 1.0});
    sortIntoElements();
}

bool IsotopeTable::replaceIsotopes(const QString& text)
{
    const std::optional<QList<IsotopeEntry>> entries = readIsotopeText(text);
    if (!entries)
        return false;

    // The known masses gather across the entries, and the first of them is the base of them all:
    // the lightest isotope of the element that the text names first.
    QList<double> knownMasses;
    QMap<QString, QList<Isotope>> replacements;
    for (const IsotopeEntry& entry : *entries) {
        if (!replacements.contains(entry.symbol)) {
            const auto element = m_elements.constFind(entry.symbol);
            if (element == m_elements.cend())
                return false;
            knownMasses += element->masses;
        }
        const double base = knownMasses.first();
        const int extraNeutrons = truncateToInt(entry.massNumber - std::round(base));
        const double mass = knownMassNear(extraNeutrons * neutronStep + base, knownMasses);
        // Atomic number and name are those of the old rows.
        replacements[entry.symbol].append(
            {0, extraNeutrons, QString(), entry.symbol, mass, entry.abundance});
    }

    for (auto entry = replacements.cbegin(); entry != replacements.cend(); ++entry)
        replaceElement(entry.key(), entry.value());
    sortIntoElements();
    return true;
}

/// Puts the new rows of an element behind all others, under the atomic number and name of its first
/// old row, and drops the old ones.
void IsotopeTable::replaceElement(const QString& symbol, QList<Isotope> isotopes)
{
    QList<double> abundances;
    for (const Isotope& isotope : std::as_const(isotopes))
        abundances.append(isotope.abundance);
    normalize(abundances);

    const auto isReplaced = [&symbol](const Isotope& isotope) {
        return isotope.symbol == symbol;
    };
    const Isotope first = *std::find_if(m_isotopes.cbegin(), m_isotopes.cend(), isReplaced);
    m_isotopes.removeIf(isReplaced);
    for (qsizetype i = 0; i < isotopes.size(); ++i) {
        isotopes[i].atomicNumber = first.atomicNumber;
        isotopes[i].name = first.name;
        isotopes[i].abundance = abundances[i];
    }
    m_isotopes.append(isotopes);
}

void IsotopeTable::sortIntoElements()
{
    m_elements.clear();
    for (const Isotope& isotope : std::as_const(m_isotopes)) {
        Element& element = m_elements[isotope.symbol];
        element.masses.append(isotope.mass);
        element.abundances.append(isotope.abundance);
    }
}

} // namespace chem
