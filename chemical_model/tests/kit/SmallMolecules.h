#pragma once

#include <ChemicalModel.h>

#include <string>

/// \file
/// Small molecules for the tests of the steps and clips. Their masses are multiples of powers of
/// two, so that sums over them are exact in any order.

namespace smallMolecules {

using Position = std::pair<int, int>;

inline chem::ChemicalFormula formula(const QString& text)
{
    return chem::ChemicalFactory::parseChemicalFormula(text);
}

/// An unlabelled group; its monoisotopic mass is half of the average one.
inline chem::Molecule group(const QString& formulaText, double averageMass)
{
    return {formula(formulaText), averageMass, averageMass / 2};
}

inline chem::NamedMolecule namedGroup(const QString& name, const QString& code,
                                      const QString& formulaText, double averageMass)
{
    return {group(formulaText, averageMass), name, code};
}

inline chem::Molecule methylene()
{
    return group(QStringLiteral("CH2"), 14.0);
}

inline chem::NamedMolecule phosphorylation()
{
    return namedGroup(QStringLiteral("phosphorylation"), QStringLiteral("p"),
                      QStringLiteral("HPO3"), 80.0);
}

inline chem::AminoAcid aminoAcid(const QString& code, const QString& formulaText,
                                 double averageMass)
{
    return chem::AminoAcid(namedGroup(u"residue " + code, code, formulaText, averageMass));
}

/// The amino acid of a letter: a made-up mass that tells the letters apart.
inline chem::AminoAcid aminoAcid(QChar letter)
{
    return aminoAcid(letter, QStringLiteral("C2H3NO"), 64.0 + letter.unicode() * 0.25);
}

inline chem::MoleculeEntity startTerminal()
{
    return namedGroup(QStringLiteral("start"), QString(), QStringLiteral("H"), 1.0);
}

inline chem::MoleculeEntity endTerminal()
{
    return namedGroup(QStringLiteral("end"), QString(), QStringLiteral("OH"), 17.0);
}

inline chem::Chain chainOf(const QList<chem::MoleculeEntity>& residues,
                           const QString& name = QStringLiteral("chain"),
                           const QString& code = QStringLiteral("c"),
                           const chem::ParentChainLocus& locus = chem::ParentChainLocus())
{
    return {name, code, residues, chem::MoleculeType::Peptide, locus};
}

/// A chain with one residue for each letter between a start and an end terminal.
inline chem::Chain letterChain(const QString& letters,
                               const QString& name = QStringLiteral("chain"))
{
    QList<chem::MoleculeEntity> residues = {startTerminal()};
    for (const QChar letter : letters)
        residues.append(aminoAcid(letter));
    residues.append(endTerminal());
    return chainOf(residues, name);
}

inline chem::MoleculeEntity moleculeOf(const QList<chem::Chain>& chains,
                                       const QList<chem::Modification>& modifications = {},
                                       const QList<chem::Link>& links = {})
{
    return chem::constructStructuredMolecule(QStringLiteral("molecule"), QStringLiteral("M"),
                                             chains, modifications, links,
                                             chem::MoleculeType::Protein);
}

inline chem::MoleculeEntity proteinOf(const QString& letters)
{
    return moleculeOf({letterChain(letters)});
}

/// A protein with a modification of no place, one of two and a link.
inline chem::MoleculeEntity proteinWithParts()
{
    return moleculeOf({letterChain(QStringLiteral("ASKC"))},
                      {chem::Modification(3.0, {}), chem::Modification(5.0, {{0, 1}, {0, 2}})},
                      {chem::Link(2.0, {{0, 1}, {0, 3}})});
}

/// A molecule whose stored totals are not those of its parts: 1000 and 999 daltons, C9.
inline chem::StructuredMolecule withOddTotals(const QList<chem::Chain>& chains)
{
    chem::StructuredMolecule molecule;
    molecule.averageMass = 1000.0;
    molecule.monoMass = 999.0;
    molecule.formula = formula(QStringLiteral("C9"));
    molecule.chains = chains;
    return molecule;
}

/// The kinds of the steps in a molecule's history.
inline QList<int> historyTypes(const chem::MoleculeEntity& molecule)
{
    QList<int> types;
    const QList<chem::TransformationEntity> history = molecule.transformations();
    for (const chem::TransformationEntity& entry : history)
        types.append(entry.type());
    return types;
}

/// The molecule as it was before the step with this index.
inline chem::MoleculeEntity stateBefore(const chem::MoleculeEntity& molecule, qsizetype step)
{
    QList<chem::TransformationEntity> history = molecule.transformations();
    return history[step].original();
}

/// The message that applying the step throws; empty if it throws none.
inline std::string thrownMessage(const chem::Transformation& step,
                                 const chem::MoleculeEntity& molecule)
{
    try {
        step.transform(molecule);
    } catch (const char* message) {
        return message;
    }
    return {};
}

/// The molecule after these steps, made by its history from its start.
inline chem::MoleculeEntity replayed(const QList<chem::TransformationEntity>& history,
                                     chem::MoleculeEntity molecule)
{
    for (const chem::TransformationEntity& entry : history)
        molecule = entry.transform(molecule);
    return molecule;
}

inline chem::MoleculeEntity residueAt(const chem::MoleculeEntity& molecule, int chain, int residue)
{
    return molecule.chains()[chain].residues()[residue];
}

} // namespace smallMolecules
