#pragma once

#include <ChemicalFactory.h>
#include <LinearFragments.h>

#include <QList>
#include <QSharedPointer>
#include <QString>

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
