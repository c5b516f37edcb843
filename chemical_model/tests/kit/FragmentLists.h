#pragma once

#include <ChemicalFactory.h>
#include <LinearFragments.h>

#include <QList>
#include <QSharedPointer>
#include <QString>

#include <algorithm>
#include <tuple>
#include <vector>

/// \file
/// Complexes from text and their fragments as lists.

inline QSharedPointer<chem::MoleculeComplex> peptide(const QString& sequence)
{
    return chem::defaultChemicalFactory()->constructLinearPeptideComplex(sequence);
}

inline QSharedPointer<chem::MoleculeComplex> strand(const QString& text)
{
    return chem::defaultChemicalFactory()->constructLinearOligoComplex(text);
}

inline QList<QSharedPointer<chem::Fragment>> richFragments(const chem::MoleculeComplex& complex)
{
    QList<QSharedPointer<chem::Fragment>> fragments;
    chem::defaultChemicalFactory()->generateLinearFragments(complex, &fragments);
    return fragments;
}

inline QList<chem::SimpleFragment> flatFragments(const chem::MoleculeComplex& complex)
{
    QList<chem::SimpleFragment> fragments;
    chem::generateLinearFragments(complex, fragments);
    return fragments;
}

/// Label, number of monomers, average and monoisotopic mass of an ion.
using Ion = std::tuple<QString, qsizetype, double, double>;

inline std::vector<Ion> sortedIons(const QList<QSharedPointer<chem::Fragment>>& fragments)
{
    std::vector<Ion> ions;
    for (const auto& fragment : fragments) {
        ions.emplace_back(fragment->typeLabel, fragment->residues.size() - 1,
                          fragment->averageMass(), fragment->monoMass());
    }
    std::sort(ions.begin(), ions.end());
    return ions;
}

inline std::vector<Ion> sortedIons(const QList<chem::SimpleFragment>& fragments)
{
    std::vector<Ion> ions;
    for (const chem::SimpleFragment& fragment : fragments) {
        ions.emplace_back(chem::ChemicalFactory::typeToString(fragment.type),
                          fragment.sequence.size(), fragment.averageMass, fragment.monoMass);
    }
    std::sort(ions.begin(), ions.end());
    return ions;
}
