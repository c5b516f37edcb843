#include "ChainTotal.h"
#include "ChemicalFactory.h"
#include "PeptideParts.h"

#include <utility>

namespace chem {

void ChemicalFactory::parseAminoAcidSequence(const QString& sequence,
                                             QList<QSharedPointer<const AminoAcid>>* aminoAcids_,
                                             NamedMolecule* nTerminal,
                                             NamedMolecule* cTerminal) const
{
    standardPeptideTermini(nTerminal, cTerminal);
    aminoAcids_->reserve(aminoAcids_->size() + sequence.size());
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

    // All positions share one list of the ten sites, which are made anew for each complex.
    QList<QSharedPointer<FragmentationSite>> sharedSites;
    sharedSites.reserve(static_cast<qsizetype>(m_peptideParts->sites.size()));
    for (const FragmentationSite& site : m_peptideParts->sites)
        sharedSites.append(QSharedPointer<FragmentationSite>::create(site));

    const qsizetype length = sequence.size();
    QList<QSharedPointer<ComplexResidue>> residues;
    QList<QList<QSharedPointer<FragmentationSite>>> sites;
    residues.reserve(length + 2);
    sites.reserve(length + 2);
    ChainTotal total;
    const auto append = [&](const NamedMolecule& residue) {
        const int position = static_cast<int>(residues.size());
        residues.append(QSharedPointer<ComplexResidue>::create(residue, position));
    };

    total.add(nTerminal);
    total.add(cTerminal);
    append(nTerminal);
    sites.append(QList<QSharedPointer<FragmentationSite>>());
    for (const QChar letter : sequence) {
        const NamedMolecule& residue = m_peptideParts->residues.entry(letter);
        total.add(residue);
        append(residue);
        sites.append(sharedSites);
    }
    append(cTerminal);
    sites.append(QList<QSharedPointer<FragmentationSite>>());

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
