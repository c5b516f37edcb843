#include "sequences/PeptideReader.h"

#include "core/MoleculeSum.h"
#include "sequences/PeptideSites.h"
#include "sequences/ResidueList.h"

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

} // namespace

PeptideReader::PeptideReader(const QMap<QString, NamedMolecule>& aminoAcids,
                             const ChainGroups& groups)
    : m_residues(aminoAcids)
    , m_sites(peptideSites(groups))
    , m_nTerminal(groups.hydrogen, u"NTerm"_s, u"H-"_s)
    , m_cTerminal(groups.hydroxyl, u"CTerm"_s, u"-OH"_s)
{
}

void PeptideReader::parse(const QString& sequence,
                          QList<QSharedPointer<const AminoAcid>>* aminoAcids,
                          NamedMolecule* nTerminal, NamedMolecule* cTerminal) const
{
    aminoAcids->reserve(sequence.size());
    for (const QChar letter : sequence)
        aminoAcids->append(QSharedPointer<AminoAcid>::create(m_residues.entry(letter)));
    writeTermini(nTerminal, cTerminal); // last, as the sequence may be a text of one of them
}

QSharedPointer<MoleculeComplex> PeptideReader::complex(const QString& sequence) const
{
    const qsizetype size = sequence.size() + 2;
    QList<QSharedPointer<ComplexResidue>> residues;
    residues.reserve(size);

    // Both ends come before the residues, and all are added to zero: this order gives the total its
    // bits.
    MoleculeSum total;
    total.add(m_nTerminal);
    total.add(m_cTerminal);
    appendResidue(m_nTerminal, &residues);
    for (const QChar letter : sequence) {
        const NamedMolecule& residue = m_residues.entry(letter);
        total.add(residue);
        appendResidue(residue, &residues);
    }
    appendResidue(m_cTerminal, &residues);

    QList<QList<QSharedPointer<FragmentationSite>>> sites(size, copiesOf(m_sites));
    sites.first() = {}; // nothing breaks at a terminal
    sites.last() = {};
    return QSharedPointer<MoleculeComplex>::create(total.result(), residues, sites);
}

void PeptideReader::writeTermini(NamedMolecule* nTerminal, NamedMolecule* cTerminal) const
{
    *nTerminal = m_nTerminal;
    *cTerminal = m_cTerminal;
}

} // namespace chem
