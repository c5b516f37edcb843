#include "FormulaSearch.h"
#include "patterns/LargestMass.h"

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

struct UnitAtoms
{
    Atom atom;
    double count = 0.0;
};

constexpr Atom hydrogen = {1, 0};
constexpr std::array heavyAtoms = {
    UnitAtoms{{6, 0}, 4.9384},
    UnitAtoms{{7, 0}, 1.3577},
    UnitAtoms{{8, 0}, 1.4773},
    UnitAtoms{{16, 0}, 0.0417},
};
constexpr double hydrogensOfUnit = 7.7583;

double massOf(Atom atom, MassKind kind, const AtomMasses& atoms)
{
    const Masses masses = atoms.of(atom);
    return kind == MassKind::Monoisotopic ? masses.monoisotopic : masses.average;
}

double massOf(const Composition& composition, MassKind kind, const AtomMasses& atoms)
{
    double mass = 0.0;
    for (const Composition::Term& term : composition.terms())
        mass += term.count * massOf(term.atom, kind, atoms);
    return mass;
}

double massOfUnit(MassKind kind, const AtomMasses& atoms)
{
    double mass = hydrogensOfUnit * massOf(hydrogen, kind, atoms);
    for (const UnitAtoms& heavy : heavyAtoms)
        mass += heavy.count * massOf(heavy.atom, kind, atoms);
    return mass;
}

/// The atoms of these units but the hydrogens, as whole numbers; below 100 MDa all counts fit.
Composition heavyAtomsOf(double units, double (*toWhole)(double))
{
    Composition composition;
    for (const UnitAtoms& heavy : heavyAtoms)
        static_cast<void>(composition.add(heavy.atom, qint64(toWhole(units * heavy.count))));
    return composition;
}

} // namespace

Parsed<Composition> averagine(double mass, MassKind kind, const AtomMasses& atoms)
{
    if (!(mass > 0.0 && mass <= largestMass))
        return Error{u"expected a mass above 0 and at most 100 MDa"_s};
    const double units = mass / massOfUnit(kind, atoms);
    Composition composition = heavyAtomsOf(units, std::round);
    // A small molecule whose atoms are all rounded up would weigh too much without any hydrogen.
    if (massOf(composition, kind, atoms) > mass)
        composition = heavyAtomsOf(units, std::floor);
    const double rest = mass - massOf(composition, kind, atoms);
    static_cast<void>(
        composition.add(hydrogen, std::llround(rest / massOf(hydrogen, kind, atoms))));
    return composition;
}

} // namespace ions
