#include "ChainTotal.h"
#include "ChemicalFactory.h"
#include "PeptideParts.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace chem {

namespace {

/// New sites for one complex, which all its positions share.
QList<QSharedPointer<FragmentationSite>> copiesOf(const std::vector<FragmentationSite>& sites)
{
    QList<QSharedPointer<FragmentationSite>> copies;
    copies.reserve(static_cast<qsizetype>(sites.size()));
    for (const FragmentationSite& site : sites)
        copies.append(QSharedPointer<FragmentationSite>::create(site));
    return copies;
}

/// The same molecule with a formula of its own.
Molecule unshared(const Molecule& molecule)
{
    QMap<QString, double> counts = molecule.formula().elementCountMap();
    counts.detach();
    return Molecule(ChemicalFormula(counts), molecule.averageMass(), molecule.monoMass());
}

QMap<QString, NamedMolecule> unshared(QMap<QString, NamedMolecule> dictionary)
{
    for (NamedMolecule& entry : dictionary)
        entry = NamedMolecule(unshared(Molecule(entry)), entry.name, entry.code);
    return dictionary;
}

} // namespace

void ChemicalFactory::parseAminoAcidSequence(const QString& sequence,
                                             QList<QSharedPointer<const AminoAcid>>* aminoAcids,
                                             NamedMolecule* nTerminal,
                                             NamedMolecule* cTerminal) const
{
    const auto parts = peptideParts();
    aminoAcids->reserve(sequence.size());
    for (const QChar letter : sequence)
        aminoAcids->append(QSharedPointer<AminoAcid>::create(parts->residues.entry(letter)));
    *nTerminal = parts->nTerminal; // last, as the sequence may be a text of one of them
    *cTerminal = parts->cTerminal;
}

QSharedPointer<MoleculeComplex>
ChemicalFactory::constructLinearPeptideComplex(const QString& sequence) const
{
    const auto parts = peptideParts();
    const qsizetype size = sequence.size() + 2;
    QList<QSharedPointer<ComplexResidue>> residues;
    residues.reserve(size);
    const auto append = [&residues](const NamedMolecule& residue) {
        const int position = static_cast<int>(residues.size());
        residues.append(QSharedPointer<ComplexResidue>::create(residue, position));
    };

    ChainTotal total;
    total.add(parts->nTerminal);
    total.add(parts->cTerminal);
    append(parts->nTerminal);
    for (const QChar letter : sequence) {
        const NamedMolecule& residue = parts->residues.entry(letter);
        total.add(residue);
        append(residue);
    }
    append(parts->cTerminal);

    QList<QList<QSharedPointer<FragmentationSite>>> sites(size, copiesOf(parts->sites));
    sites.first() = {}; // nothing breaks at a terminal
    sites.last() = {};
    return QSharedPointer<MoleculeComplex>::create(total.result(), residues, sites);
}

void ChemicalFactory::preparePeptideReader()
{
    m_peptideParts = std::make_shared<PeptidePartsByThread>([this] { return makePeptideParts(); });
}

PeptideParts ChemicalFactory::makePeptideParts() const
{
    const Molecule nothing;
    const Molecule h = unshared(hydrogen);
    const Molecule h2 = unshared(hydrogenPair);
    const Molecule nh2 = unshared(amine);
    const Molecule nh3 = unshared(ammonia);
    const Molecule cho = unshared(formyl);
    PeptideParts parts;
    parts.residues = LetterTable(unshared(aminoAcids()));
    parts.sites = {
        {FragmentType::B, nothing, h},   {FragmentType::Y, h, nothing},
        {FragmentType::A, nothing, cho}, {FragmentType::Adot, h, cho},
        {FragmentType::C, nh2, nothing}, {FragmentType::Cdot, nh3, nothing},
        {FragmentType::X, cho, h2},      {FragmentType::Xdot, cho, h},
        {FragmentType::Z, nothing, nh2}, {FragmentType::Zdot, h, nh2},
    };
    parts.nTerminal = NamedMolecule(h, u"NTerm"_s, u"H-"_s);
    parts.cTerminal = NamedMolecule(unshared(hydroxyl), u"CTerm"_s, u"-OH"_s);
    return parts;
}

void ChemicalFactory::standardPeptideTermini(NamedMolecule* nTerminal,
                                             NamedMolecule* cTerminal) const
{
    const auto parts = peptideParts();
    *nTerminal = parts->nTerminal;
    *cTerminal = parts->cTerminal;
}

} // namespace chem
