#include "ChainTotal.h"
#include "ChemicalFactory.h"
#include "PeptideParts.h"

#include <utility>

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

} // namespace

void ChemicalFactory::parseAminoAcidSequence(const QString& sequence,
                                             QList<QSharedPointer<const AminoAcid>>* aminoAcids_,
                                             NamedMolecule* nTerminal,
                                             NamedMolecule* cTerminal) const
{
    standardPeptideTermini(nTerminal, cTerminal);
    aminoAcids_->reserve(sequence.size());
    for (const QChar letter : sequence)
        aminoAcids_->append(
            QSharedPointer<AminoAcid>::create(m_peptideParts->residues.entry(letter)));
}

QSharedPointer<MoleculeComplex>
ChemicalFactory::constructLinearPeptideComplex(const QString& sequence) const
{
    NamedMolecule nTerminal;
    NamedMolecule cTerminal;
    standardPeptideTermini(&nTerminal, &cTerminal);

    const qsizetype size = sequence.size() + 2;
    QList<QSharedPointer<ComplexResidue>> residues;
    residues.reserve(size);
    const auto append = [&residues](const NamedMolecule& residue) {
        const int position = static_cast<int>(residues.size());
        residues.append(QSharedPointer<ComplexResidue>::create(residue, position));
    };

    ChainTotal total;
    total.add(nTerminal);
    total.add(cTerminal);
    append(nTerminal);
    for (const QChar letter : sequence) {
        const NamedMolecule& residue = m_peptideParts->residues.entry(letter);
        total.add(residue);
        append(residue);
    }
    append(cTerminal);

    QList<QList<QSharedPointer<FragmentationSite>>> sites(size, copiesOf(m_peptideParts->sites));
    sites.first() = {}; // nothing breaks at a terminal
    sites.last() = {};
    return QSharedPointer<MoleculeComplex>::create(total.result(), residues, sites);
}

void ChemicalFactory::preparePeptideReader()
{
    const Molecule nothing;
    auto parts = std::make_shared<PeptideParts>();
    parts->residues = LetterTable(aminoAcids());
    parts->sites = {
        {FragmentType::B, nothing, hydrogen},    {FragmentType::Y, hydrogen, nothing},
        {FragmentType::A, nothing, formyl},      {FragmentType::Adot, hydrogen, formyl},
        {FragmentType::C, amine, nothing},       {FragmentType::Cdot, ammonia, nothing},
        {FragmentType::X, formyl, hydrogenPair}, {FragmentType::Xdot, formyl, hydrogen},
        {FragmentType::Z, nothing, amine},       {FragmentType::Zdot, hydrogen, amine},
    };
    m_peptideParts = std::move(parts);
}

} // namespace chem
