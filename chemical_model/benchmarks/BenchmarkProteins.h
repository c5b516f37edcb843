#pragma once

#include <ChemicalModel.h>

/// \file
/// The molecules that the benchmarks of the steps and of the clips share.

namespace benchmarkProteins {

/// The 20 amino acids in turn.
inline QString proteinText(qsizetype residues)
{
    const QString letters = QStringLiteral("ACDEFGHIKLMNPQRSTVWY");
    return letters.repeated(residues / letters.size() + 1).left(residues);
}

/// A protein of `residues` residues in each of `chains` chains, the 20 amino acids in turn.
inline chem::MoleculeEntity protein(qsizetype residues, qsizetype chains = 1)
{
    const auto factory = chem::defaultChemicalFactory();
    const chem::Chain chain = chem::constructPeptideChain(QStringLiteral("chain"), QString(),
                                                          proteinText(residues), factory.data());
    return chem::constructProteinFromChains(QStringLiteral("protein"),
                                            QList<chem::Chain>(chains, chain), {}, {}, nullptr);
}

inline chem::MoleculeEntity phosphorylation()
{
    return chem::defaultChemicalFactory()->constructMolecule(QStringLiteral("HPO3"));
}

/// The molecule after `steps` modifications without a place that were taken off again: a history,
/// and nothing else that is new.
inline chem::MoleculeEntity withHistory(chem::MoleculeEntity molecule, qint64 steps)
{
    const chem::Modify put(phosphorylation());
    const chem::Unmodify take(chem::Modification(phosphorylation(), {}));
    for (qint64 step = 0; step < steps; ++step)
        molecule = step % 2 == 0 ? put.transform(molecule) : take.transform(molecule);
    return molecule;
}

} // namespace benchmarkProteins
