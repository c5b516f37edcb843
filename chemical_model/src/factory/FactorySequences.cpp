#include "ChemicalFactory.h"
#include "factory/PreparedFactory.h"
#include "sequences/IonTypes.h"
#include "sequences/RichFragments.h"

namespace chem {

const QChar ChemicalFactory::ChainDelimeter = u'/';

// Peptides.

void ChemicalFactory::standardPeptideTermini(NamedMolecule* nTerminal,
                                             NamedMolecule* cTerminal) const
{
    Prepared::peptideReader(*this)->writeTermini(nTerminal, cTerminal);
}

void ChemicalFactory::parseAminoAcidSequence(const QString& sequence,
                                             QList<QSharedPointer<const AminoAcid>>* aminoAcids,
                                             NamedMolecule* nTerminal,
                                             NamedMolecule* cTerminal) const
{
    Prepared::peptideReader(*this)->parse(sequence, aminoAcids, nTerminal, cTerminal);
}

QSharedPointer<MoleculeComplex>
ChemicalFactory::constructLinearPeptideComplex(const QString& sequence) const
{
    return Prepared::peptideReader(*this)->complex(sequence);
}

// Oligonucleotides.

void ChemicalFactory::standardOligoTermini(NamedMolecule* fivePrime,
                                           NamedMolecule* threePrime) const
{
    standardPeptideTermini(fivePrime, threePrime);
}

QRegularExpression ChemicalFactory::generateFullOligoRegex() const
{
    return QRegularExpression(oligoFullExpression(alphabetsOf(Prepared::oligoBlocks(*this))));
}

QRegularExpression ChemicalFactory::generateOligoSequenceRegex() const
{
    return QRegularExpression(oligoUnitExpression(alphabetsOf(Prepared::oligoBlocks(*this))));
}

bool ChemicalFactory::isValidOligoSequence(const QString& sequence) const
{
    return Prepared::oligoReader(*this)->isValid(sequence);
}

bool ChemicalFactory::parseNucleotideSequence(const QString& sequence,
                                              QList<QSharedPointer<const Nucleotide>>* nucleotides,
                                              NamedMolecule* fivePrime,
                                              NamedMolecule* threePrime) const
{
    return Prepared::oligoReader(*this)->parse(sequence, nucleotides, fivePrime, threePrime);
}

QSharedPointer<MoleculeComplex>
ChemicalFactory::constructLinearOligoComplex(const QString& sequence) const
{
    return Prepared::oligoReader(*this)->complex(sequence);
}

QSharedPointer<MoleculeComplex> ChemicalFactory::constructLinearOligoComplex(
    const QList<QSharedPointer<const Nucleotide>>& nucleotides, const NamedMolecule& fivePrime,
    const NamedMolecule& threePrime) const
{
    return Prepared::oligoReader(*this)->complex(nucleotides, fivePrime, threePrime);
}

void ChemicalFactory::constructLinearOligoComplexes(
    const QString& sequence, int fivePrimeTruncations, int threePrimeTruncations,
    QList<QSharedPointer<const MoleculeComplex>>* complexes) const
{
    Prepared::oligoReader(*this)->appendTruncations(sequence, fivePrimeTruncations,
                                                    threePrimeTruncations, complexes);
}

// Glycans.

bool ChemicalFactory::isValidGlycanComposition(const QString& composition) const
{
    return Prepared::glycanReader(*this)->isValid(composition);
}

Molecule ChemicalFactory::constructGlycanModification(const QString& composition) const
{
    return Prepared::glycanReader(*this)->sum(composition);
}

Molecule ChemicalFactory::modifyMoleculeWithGlycan(const Molecule& molecule,
                                                   const QString& composition) const
{
    return molecule + constructGlycanModification(composition);
}

// Fragments.

void ChemicalFactory::generateLinearFragments(const MoleculeComplex& complex,
                                              QList<QSharedPointer<Fragment>>* fragments) const
{
    appendFragments(complex, fragments);
}

QString ChemicalFactory::typeToString(ZEL_QEnumsFragmentType::FragmentType type)
{
    return fragmentLabel(type);
}

} // namespace chem
