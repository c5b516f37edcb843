#include "AtomMasses.h"

#include "composition/Elements.h"
#include "masses/FactoryTables.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

/// An isotope that is used to label molecules and is in no table of natural abundances.
struct Tracer
{
    Atom atom;
    double mass = 0.0;
};

/// Masses of the atomic mass evaluation of 2020.
constexpr std::array tracers = {
    Tracer{{1, 3}, 3.01604928132},    Tracer{{6, 11}, 11.01143260},
    Tracer{{6, 14}, 14.00324198862},  Tracer{{7, 13}, 13.00573861},
    Tracer{{8, 15}, 15.00306565},     Tracer{{9, 18}, 18.00093733},
    Tracer{{15, 32}, 31.973907643},   Tracer{{15, 33}, 32.971725692},
    Tracer{{16, 35}, 34.969032321},   Tracer{{17, 36}, 35.968306822},
    Tracer{{53, 125}, 124.904629353}, Tracer{{53, 131}, 130.906126384},
};

Masses massesOfElement(const std::vector<IsotopeShare>& isotopes)
{
    Masses masses;
    double largest = 0.0;
    for (const IsotopeShare& isotope : isotopes) {
        masses.average += isotope.abundance * isotope.mass;
        if (isotope.abundance > largest) {
            largest = isotope.abundance;
            masses.monoisotopic = isotope.mass;
        }
    }
    return masses;
}

bool isLighter(const IsotopeShare& left, const IsotopeShare& right)
{
    return left.mass < right.mass;
}

} // namespace

struct AtomMasses::Table
{
    std::array<std::vector<IsotopeShare>, 119> elements; ///< By atomic number, then by mass.
    std::array<Masses, 119> elementMasses{};             ///< By atomic number; NaN where unknown.
    std::map<Atom, IsotopeShare> isotopes;               ///< Stated isotopes, all of the element.

    explicit Table(const chem::ChemicalFactory& factory)
    {
        readElements(FactoryTables(factory));
        // What a labelled table leaves out has the mass that it has in nature.
        readIsotopes(FactoryTables(*chem::defaultChemicalFactory()));
        for (const Tracer& tracer : tracers)
            isotopes.try_emplace(tracer.atom, IsotopeShare{tracer.mass, 1.0});
    }

    /// Gives `isotope` this share of its element, and the others what is left; false if there are
    /// no others to take it.
    bool label(Atom isotope, double share)
    {
        const double mass = isotopes.at(isotope).mass;
        std::vector<IsotopeShare>& shares = elements[isotope.atomicNumber];
        std::erase_if(shares, [mass](const IsotopeShare& other) { return other.mass == mass; });
        double others = 0.0;
        for (const IsotopeShare& other : shares)
            others += other.abundance;
        if (share < 1.0 && !(others > 0.0))
            return false;
        for (IsotopeShare& other : shares)
            other.abundance *= others > 0.0 ? (1.0 - share) / others : 0.0;
        shares.push_back({mass, share});
        std::erase_if(shares, [](const IsotopeShare& one) { return one.abundance == 0.0; });
        elementMasses[isotope.atomicNumber] = massesOfElement(shares);
        std::sort(shares.begin(), shares.end(), isLighter);
        return true;
    }

private:
    void readElements(const FactoryTables& tables)
    {
        for (const FactoryTables::IsotopeRecord& record : tables.isotopeRecords()) {
            if (const quint8 number = atomicNumberOf(record.symbol))
                elements[number].push_back({record.mass, record.abundance});
        }
        readIsotopes(tables);
        const double unknown = std::numeric_limits<double>::quiet_NaN();
        for (std::size_t number = 0; number < elements.size(); ++number) {
            elementMasses[number] = elements[number].empty() ? Masses{unknown, unknown}
                                                             : massesOfElement(elements[number]);
            std::sort(elements[number].begin(), elements[number].end(), isLighter);
        }
    }

    void readIsotopes(const FactoryTables& tables)
    {
        for (const FactoryTables::IsotopeRecord& record : tables.isotopeRecords()) {
            if (const quint8 number = atomicNumberOf(record.symbol)) {
                const Atom atom{number, quint16(std::lround(record.mass))};
                isotopes.try_emplace(atom, IsotopeShare{record.mass, 1.0});
            }
        }
    }
};

AtomMasses::AtomMasses()
    : AtomMasses(*chem::defaultChemicalFactory())
{
}

AtomMasses::AtomMasses(const chem::ChemicalFactory& factory)
    : m_table(std::make_shared<const Table>(factory))
{
}

AtomMasses::AtomMasses(std::shared_ptr<const Table> table)
    : m_table(std::move(table))
{
}

Parsed<AtomMasses> AtomMasses::labelled(Atom isotope, double share) const
{
    if (isotope.massNumber == 0 || std::isnan(of(isotope).monoisotopic))
        return Error{u"expected an isotope that a table holds, such as 15N"_s};
    if (!(share >= 0.0 && share <= 1.0))
        return Error{u"expected a share from 0 to 1"_s};
    auto table = std::make_shared<Table>(*m_table);
    if (!table->label(isotope, share))
        return Error{isotope.symbol() + u" has no other isotope, expected a share of 1"_s};
    return AtomMasses(std::shared_ptr<const Table>(std::move(table)));
}

Masses AtomMasses::of(Atom atom) const
{
    if (atom.massNumber == 0)
        return m_table->elementMasses[atom.atomicNumber < 119 ? atom.atomicNumber : 0];
    const auto isotope = m_table->isotopes.find(atom);
    const double mass = isotope == m_table->isotopes.end()
                            ? std::numeric_limits<double>::quiet_NaN()
                            : isotope->second.mass;
    return {mass, mass};
}

Parsed<Masses> AtomMasses::weigh(const Composition& composition) const
{
    Masses sum;
    qsizetype index = 0;
    for (const Composition::Term& term : composition.terms()) {
        const Masses masses = of(term.atom);
        if (std::isnan(masses.monoisotopic)) {
            const QString text = Composition(term.atom).toString();
            return Error{u"no mass is known for "_s + text, index};
        }
        sum += double(term.count) * masses;
        ++index;
    }
    return sum;
}

std::span<const IsotopeShare> AtomMasses::isotopes(Atom atom) const
{
    if (atom.massNumber == 0)
        return m_table->elements[atom.atomicNumber < 119 ? atom.atomicNumber : 0];
    const auto isotope = m_table->isotopes.find(atom);
    if (isotope == m_table->isotopes.end())
        return {};
    return {&isotope->second, 1};
}

Parsed<chem::Molecule> AtomMasses::molecule(const Composition& composition) const
{
    const Parsed<Masses> masses = weigh(composition);
    if (!masses)
        return masses.error();
    return chem::Molecule(composition.toFormula(), masses->average, masses->monoisotopic);
}

} // namespace ions
