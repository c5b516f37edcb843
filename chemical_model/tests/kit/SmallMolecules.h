#pragma once

#include <ChemicalModel.h>

#include <bit>
#include <cstdint>

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

inline QString bits(double value)
{
    return QString::number(std::bit_cast<std::uint64_t>(value), 16);
}

inline QString describe(const chem::ChemicalFormula& formula)
{
    QString text;
    const QMap<QString, double>& counts = formula.elementCountMap();
    for (auto count = counts.cbegin(); count != counts.cend(); ++count)
        text += count.key() + u'=' + bits(count.value()) + u' ';
    return text;
}

inline QString describe(const Position& position)
{
    return u'(' + QString::number(position.first) + u',' + QString::number(position.second) + u')';
}

inline QString describe(const chem::ParentChainLocus& locus)
{
    return locus.label + u':' + QString::number(locus.chain) + u':' + QString::number(locus.start) +
           u':' + QString::number(locus.end);
}

/// All that can be asked of a molecule, as text, doubles by their bits. Of the history it takes the
/// kinds of the steps: the molecules before them are described by their own.
inline QString describe(const chem::MoleculeEntity& molecule)
{
    QString text = molecule.name() + u'|' + molecule.code() + u'|' + molecule.description() + u'|' +
                   QString::number(static_cast<int>(molecule.type())) + u'|' +
                   bits(molecule.averageMass()) + u'|' + bits(molecule.monoMass()) + u'|' +
                   describe(molecule.formula()) + u'|' + molecule.sequence();
    const QList<chem::Chain> chains = molecule.chains();
    for (const chem::Chain& chain : chains) {
        text += u"\n<" + chain.name() + u'|' + chain.code() + u'|' +
                QString::number(static_cast<int>(chain.type())) + u'|' +
                describe(chain.parentLocus()) + u">\n";
        for (const chem::MoleculeEntity& residue : chain.residues())
            text += u'{' + describe(residue) + u'}';
    }
    const QList<chem::Link> links = molecule.links();
    for (const chem::Link& link : links) {
        text += u"\nlink " + describe(link.connection().first) +
                describe(link.connection().second) + describe(link.entity());
    }
    const QList<chem::Modification> modifications = molecule.modifications();
    for (const chem::Modification& modification : modifications) {
        text += u"\nmodification " + describe(modification.entity());
        for (const Position& position : modification.possibleChainLocations())
            text += describe(position);
    }
    const QList<chem::TransformationEntity> history = molecule.transformations();
    for (const chem::TransformationEntity& entry : history)
        text += u"\nstep " + QString::number(entry.type());
    return text;
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
inline QString thrownMessage(const chem::Transformation& step, const chem::MoleculeEntity& molecule)
{
    try {
        step.transform(molecule);
    } catch (const char* message) {
        return QString::fromLatin1(message);
    }
    return QString();
}

inline chem::MoleculeEntity residueAt(const chem::MoleculeEntity& molecule, int chain, int residue)
{
    return molecule.chains()[chain].residues()[residue];
}

} // namespace smallMolecules
