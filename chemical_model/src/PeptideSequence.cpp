#include "ChemicalFactory.h"
#include "FormulaSum.h"
#include "OligoGrammar.h"
#include "PeptideParts.h"

#include <vector>

namespace chem {

namespace {

/// Adds up a chain's molecules in order.
class ChainTotal
{
public:
    void add(const Molecule& molecule)
    {
        m_formula.add(molecule.formula());
        m_averageMass += molecule.averageMass();
        m_monoMass += molecule.monoMass();
    }

    Molecule result() const { return Molecule(m_formula.result(), m_averageMass, m_monoMass); }

private:
    FormulaSum m_formula;
    double m_averageMass = 0.0;
    double m_monoMass = 0.0;
};

} // namespace

void ChemicalFactory::parseAminoAcidSequence(const QString& sequence,
                                             QList<QSharedPointer<const AminoAcid>>* aminoAcids_,
                                             NamedMolecule* nTerminal,
                                             NamedMolecule* cTerminal) const
{
    standardPeptideTermini(nTerminal, cTerminal);
    aminoAcids_->reserve(aminoAcids_->size() + sequence.size());
    for (const QChar letter : sequence)
        aminoAcids_->append(QSharedPointer<AminoAcid>::create(m_peptideParts->residue(letter)));
}

QSharedPointer<MoleculeComplex>
ChemicalFactory::constructLinearPeptideComplex(const QString& sequence) const
{
    NamedMolecule nTerminal;
    NamedMolecule cTerminal;
    standardPeptideTermini(&nTerminal, &cTerminal);

    // All positions share one list of the ten sites, which are made anew for each complex.
    QList<QSharedPointer<FragmentationSite>> sharedSites;
    sharedSites.reserve(static_cast<qsizetype>(m_peptideParts->sites().size()));
    for (const FragmentationSite& site : m_peptideParts->sites())
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
        const NamedMolecule& residue = m_peptideParts->residue(letter);
        total.add(residue);
        append(residue);
        sites.append(sharedSites);
    }
    append(cTerminal);
    sites.append(QList<QSharedPointer<FragmentationSite>>());

    return QSharedPointer<MoleculeComplex>::create(total.result(), residues, sites);
}

void ChemicalFactory::prepareReaders()
{
    const Molecule nothing;
    std::vector<FragmentationSite> peptideSites{
        {FragmentType::B, nothing, hydrogen},    {FragmentType::Y, hydrogen, nothing},
        {FragmentType::A, nothing, formyl},      {FragmentType::Adot, hydrogen, formyl},
        {FragmentType::C, amine, nothing},       {FragmentType::Cdot, ammonia, nothing},
        {FragmentType::X, formyl, hydrogenPair}, {FragmentType::Xdot, formyl, hydrogen},
        {FragmentType::Z, nothing, amine},       {FragmentType::Zdot, hydrogen, amine},
    };
    m_peptideParts = std::make_shared<PeptideParts>(aminoAcids(), std::move(peptideSites));
}

} // namespace chem
