#pragma once

#include "OpenFactory.h"
#include <ChemicalModel.h>

#include <QList>
#include <QString>

/// One object or more of each kind, for calls that must leave them as they are.
struct SharedObjects
{
    SharedObjects();

    OpenFactory factory;
    QString formulaText;
    QString lossText;
    QString peptideText;
    QString strandText;
    QString glycanText;
    QString isotopeText;
    QString blockLabel;
    QString name;
    QString code;
    QList<QString> elements;
    QList<int> counts;

    chem::ChemicalFormula formula;
    chem::ChemicalFormula loss;
    chem::Molecule molecule;
    chem::NamedMolecule namedMolecule;
    chem::AminoAcid aminoAcid;
    chem::Nucleotide nucleotide;

    chem::MoleculeComplex peptide;
    chem::MoleculeComplex strand;
    QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
    chem::NamedMolecule fivePrime;
    chem::NamedMolecule threePrime;
    QList<QSharedPointer<chem::Fragment>> richFragments;
    QList<chem::SimpleFragment> flatFragments;

    QList<chem::Chain> chains;
    QList<chem::Link> links;
    QList<chem::Modification> modifications;
    chem::ParentChainLocus locus;
    chem::StructuredMolecule structured;  ///< What the first of the entities was made of.
    QList<chem::MoleculeEntity> entities; ///< One of each type that an entity can hold, and more.
    chem::MoleculeEntity protein;         ///< With links, modifications and a history.

    chem::Modify modify;
    chem::Unmodify unmodify;
    chem::EstablishLink establishLink;
    QList<chem::ChainFragmentDef> pieces;
    chem::ChainFragmenter chainFragmenter;
    QList<chem::TransformationEntity> history;

    QList<chem::ClipOptions> clipOptions;
    QList<QString> before;
    QList<QString> after;
    QList<chem::ObservedMassEntity> observedMasses;
    chem::MatchingParameters matchingParameters;
};
