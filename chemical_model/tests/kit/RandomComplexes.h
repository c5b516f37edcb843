#pragma once

#include "FragmentLists.h"
#include "RandomMolecules.h"

/// \file
/// Random complexes for the laws of fragments, and how an ion comes from its complex.

namespace randomComplexes {

using randomMolecules::anyText;
using randomMolecules::anyTextOf;

/// By the numbers of the types, which saved files hold.
inline bool isLeft(chem::FragmentType type)
{
    return static_cast<int>(type) >= 0 && static_cast<int>(type) <= 6;
}

inline bool isRight(chem::FragmentType type)
{
    return static_cast<int>(type) >= 7 && static_cast<int>(type) <= 12;
}

/// Positions from one end of the chain to the break, in the order in which they are added.
inline std::vector<qsizetype> positionsTo(qsizetype breakAt, qsizetype end)
{
    std::vector<qsizetype> positions;
    for (qsizetype i = end; i != breakAt; i += breakAt > end ? 1 : -1)
        positions.push_back(i);
    positions.push_back(breakAt);
    return positions;
}

/// A molecule of any masses, so that sums in another order have other bits.
inline chem::Molecule anyMasses()
{
    const auto anyMass = [] {
        return *rc::gen::inRange(-1000000, 1000000) / 7919.0;
    };
    return chem::Molecule(randomMolecules::anyFormula(-9, 10), anyMass(), anyMass());
}

/// A complex as a caller may assemble it: other sites at every position, terminals included, and
/// types beyond those of ions.
inline QSharedPointer<chem::MoleculeComplex> assembledComplex()
{
    auto complex = peptide(QString());
    complex->residues.clear();
    complex->sites.clear();
    for (int size = *rc::gen::inRange(2, 9); size > 0; --size) {
        const QString code = QStringLiteral("rA*").first(*rc::gen::inRange(0, 4));
        complex->residues.append(QSharedPointer<chem::ComplexResidue>::create(
            anyMasses(), QString(), code, static_cast<int>(complex->residues.size())));
        QList<QSharedPointer<chem::FragmentationSite>> sites;
        for (const int type : *rc::gen::container<std::vector<int>>(rc::gen::inRange(-2, 21)))
            sites.append(QSharedPointer<chem::FragmentationSite>::create(
                static_cast<chem::FragmentType>(type), anyMasses(), anyMasses()));
        complex->sites.append(sites);
    }
    return complex;
}

inline QString anyPeptide()
{
    return anyText(QStringLiteral("ACDEFGHIKLMNPQRSTVWYx"), 1, 30);
}

inline QSharedPointer<chem::MoleculeComplex> anyComplex()
{
    switch (*rc::gen::inRange(0, 3)) {
    case 0:
        return assembledComplex();
    case 1:
        return peptide(anyPeptide());
    default:
        return strand(anyTextOf(QStringLiteral("A rC* dG 12.5 +T. mU").split(u' '), 1, 20));
    }
}

} // namespace randomComplexes
