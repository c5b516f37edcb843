#pragma once

#include "StandardResidues.h"
#include <zel_chemical_model/ChainFragmenter.h>
#include <zel_chemical_model/ChemicalFactory.h>
#include <zel_chemical_model/Modify.h>
#include <zel_chemical_model/StructuredBuilders.h>

#include <QString>

/// \file
/// Molecules of the first library, built as its users build them, from the default factory.

namespace ions {

inline chem::Chain peptideChain(const QString& sequence)
{
    const auto factory = chem::defaultChemicalFactory();
    return chem::constructPeptideChain(QString(), QString(), sequence, factory.data());
}

inline chem::MoleculeEntity builtPeptide(const QString& sequence)
{
    return chem::constructProteinFromChains(QString(), {peptideChain(sequence)}, {}, {}, nullptr);
}

inline chem::MoleculeEntity builtOligo(const QString& text)
{
    const auto factory = chem::defaultChemicalFactory();
    return chem::constructOligoNucleotide(QString(), QString(), text, factory.data());
}

/// What a formula adds and, with counts below zero, takes away.
inline chem::MoleculeEntity group(const QString& formula)
{
    return chem::defaultChemicalFactory()->modifyMolecule({}, formula, 1);
}

inline chem::MoleculeEntity modified(const chem::MoleculeEntity& molecule, const QString& formula,
                                     const QList<std::pair<int, int>>& places)
{
    return chem::Modify(chem::Modification(group(formula), places)).transform(molecule);
}

/// A molecule of one chain of these residues, ends included.
inline chem::MoleculeEntity ofResidues(const QList<chem::MoleculeEntity>& residues,
                                       chem::MoleculeType type = chem::MoleculeType::Peptide)
{
    return chem::constructProteinFromChains(
        QString(), {chem::Chain(QString(), QString(), residues, type, {})}, {}, {}, nullptr);
}

/// A range of the first chain's residues with an end in front, where it weighs anything.
inline chem::MoleculeEntity pieceOf(const chem::MoleculeEntity& molecule,
                                    const chem::MoleculeEntity& start, int from, int to)
{
    const chem::MoleculeEntity blank = nullptr;
    return chem::ChainFragmenter({{start, {QString(), 0, from, to}, blank}}).transform(molecule);
}

} // namespace ions
