#include "ChainTotal.h"
#include "ChemicalFactory.h"
#include "OligoParts.h"
#include "OligoScanner.h"

#include <QStringBuilder>

#include <utility>

using namespace Qt::StringLiterals;

namespace chem {

namespace {

using Nucleotides = QList<QSharedPointer<const Nucleotide>>;
using Sites = QList<QSharedPointer<FragmentationSite>>;

/// The name of a base that is a bare mass.
const QString numberName = u"~~~"_s;

/// The linkage that marks spell. It has no name; several marks add up.
NamedMolecule readPhosphates(QStringView marks, const LetterTable& phosphates)
{
    NamedMolecule linkage;
    for (const QChar mark : marks) {
        const NamedMolecule& phosphate = phosphates.entry(mark);
        linkage += phosphate;
        linkage.code += phosphate.code;
    }
    return linkage;
}

/// The base that the last character names.
NamedMolecule readBase(QStringView base, const LetterTable& nucleobases)
{
    return base.isEmpty() ? NamedMolecule() : nucleobases.entry(base.back());
}

NamedMolecule massAsBase(QStringView number)
{
    const double mass = number.toDouble();
    return NamedMolecule(Molecule(ChemicalFormula(), mass, mass), numberName, number.toString());
}

/// Whether the linkage was not written but filled in.
bool isImplicit(const NamedMolecule& phosphate)
{
    return phosphate.code.isEmpty();
}

/// The nucleotide without a linkage behind it.
QSharedPointer<const Nucleotide> withoutPhosphate(const Nucleotide& nucleotide)
{
    return QSharedPointer<Nucleotide>::create(nucleotide.nucleobase, nucleotide.ribose,
                                              NamedMolecule(), nucleotide.name, nucleotide.code);
}

/// The mark's entry; one of no mass if the dictionary lacks it.
void readTerminal(QStringView mark, const LetterTable& terminals, NamedMolecule* terminal)
{
    if (mark.size() == 1)
        *terminal = terminals.entry(mark.front());
}

} // namespace

/// Makes the nucleotide of one unit. A number has neither a default sugar nor a default linkage,
/// and a last nucleotide keeps only a linkage that was written.
QSharedPointer<const Nucleotide> ChemicalFactory::readNucleotide(const OligoUnit& unit,
                                                                 bool isLast) const
{
    const bool isNumber = !unit.number.isEmpty();
    NamedMolecule phosphate = readPhosphates(unit.phosphates, m_oligoParts->phosphates);
    NamedMolecule ribose;
    if (unit.ribose.size() == 1)
        ribose = m_oligoParts->riboses.entry(unit.ribose.front());
    else if (unit.ribose.isEmpty() && !isNumber)
        ribose = defaultRibose;
    if (!isNumber && !isLast && isImplicit(phosphate))
        phosphate = defaultPhosphate;
    if (isLast && isImplicit(phosphate))
        phosphate = NamedMolecule();
    const NamedMolecule nucleobase =
        isNumber ? massAsBase(unit.number) : readBase(unit.base, m_oligoParts->nucleobases);
    const QString code = unit.ribose % (isNumber ? unit.number : unit.base) % unit.phosphates;
    return QSharedPointer<Nucleotide>::create(nucleobase, ribose, phosphate, nucleobase.name, code);
}

bool ChemicalFactory::parseNucleotideSequence(const QString& sequence,
                                              QList<QSharedPointer<const Nucleotide>>* nucleotides,
                                              NamedMolecule* fivePrime,
                                              NamedMolecule* threePrime) const
{
    const auto parts = m_oligoScanner->split(sequence);
    *fivePrime = NamedMolecule(hydrogen, u"5Prime"_s, QString());
    *threePrime = NamedMolecule(hydroxyl, u"3Prime"_s, QString());
    if (!parts)
        return false;

    const auto units = m_oligoScanner->units(parts->body);
    nucleotides->reserve(nucleotides->size() + static_cast<qsizetype>(units.size()));
    for (const OligoUnit& unit : units) {
        const bool isLast = &unit == &units.back();
        // A number at the end is what the molecule ends in, so nothing links the nucleotide before
        // it.
        if (isLast && !unit.number.isEmpty() && !nucleotides->isEmpty() &&
            isImplicit(nucleotides->constLast()->phosphate))
            nucleotides->last() = withoutPhosphate(*nucleotides->constLast());
        nucleotides->append(readNucleotide(unit, isLast));
    }

    // A bare number is a mass without terminals.
    if (nucleotides->size() == 1 && nucleotides->constFirst()->nucleobase.name == numberName) {
        if (parts->fivePrimeMark.isEmpty())
            *fivePrime = NamedMolecule();
        if (parts->threePrimeMark.isEmpty())
            *threePrime = NamedMolecule();
    }
    readTerminal(parts->fivePrimeMark, m_oligoParts->fivePrimeTerminals, fivePrime);
    readTerminal(parts->threePrimeMark, m_oligoParts->threePrimeTerminals, threePrime);
    return true;
}

QSharedPointer<MoleculeComplex>
ChemicalFactory::constructLinearOligoComplex(const QString& sequence) const
{
    const QString text = sequence.simplified().remove(u' ');
    Nucleotides nucleotides;
    NamedMolecule fivePrime;
    NamedMolecule threePrime;
    if (!parseNucleotideSequence(text, &nucleotides, &fivePrime, &threePrime))
        return {};
    return constructLinearOligoComplex(nucleotides, fivePrime, threePrime);
}

/// The ways in which the chain breaks at nucleotide `index`. The phosphate that stays or goes is
/// the one behind the nucleotide for ions of the 5' end and the one before it for ions of the 3'
/// end.
QList<QSharedPointer<FragmentationSite>>
ChemicalFactory::oligoSites(const QList<QSharedPointer<const Nucleotide>>& nucleotides,
                            qsizetype index) const
{
    const Molecule nothing;
    const Molecule& phosphate = nucleotides[index]->phosphate;
    const Molecule previousPhosphate =
        index > 0 ? Molecule(nucleotides[index - 1]->phosphate) : nothing;
    const bool isInner = index > 0 && index < nucleotides.size() - 1;

    Sites sites;
    sites.reserve(9);
    const auto append = [&sites](FragmentType type, const Molecule& gained, const Molecule& lost) {
        sites.append(QSharedPointer<FragmentationSite>::create(type, gained, lost));
    };
    if (isInner)
        append(FragmentType::AB, nothing,
               phosphate + nucleotides[index]->nucleobase + hydrogenPair);
    append(FragmentType::D, hydroxyl, nothing);
    append(FragmentType::B, hydroxyl, phosphate);
    append(FragmentType::C, oxygen, hydroxyl);
    append(FragmentType::A, nothing, phosphate + hydrogen);
    append(FragmentType::W, previousPhosphate + hydrogen, nothing);
    append(FragmentType::Y, hydrogen, nothing);
    append(FragmentType::Z, nothing, hydroxyl);
    append(FragmentType::X, previousPhosphate, hydroxyl);
    return sites;
}

QSharedPointer<MoleculeComplex> ChemicalFactory::constructLinearOligoComplex(
    const QList<QSharedPointer<const Nucleotide>>& nucleotides, const NamedMolecule& fivePrime,
    const NamedMolecule& threePrime) const
{
    QList<QSharedPointer<ComplexResidue>> residues;
    QList<Sites> sites;
    residues.reserve(nucleotides.size() + 2);
    sites.reserve(nucleotides.size() + 2);
    ChainTotal total;
    const auto append = [&](const NamedMolecule& residue, const Sites& residueSites) {
        const int position = static_cast<int>(residues.size());
        residues.append(QSharedPointer<ComplexResidue>::create(residue, position));
        sites.append(residueSites);
    };

    total.add(fivePrime);
    total.add(threePrime);
    append(fivePrime, {});
    for (qsizetype i = 0; i < nucleotides.size(); ++i) {
        total.add(*nucleotides[i]);
        append(*nucleotides[i], oligoSites(nucleotides, i));
    }
    append(threePrime, {});
    return QSharedPointer<MoleculeComplex>::create(total.result(), residues, sites);
}

void ChemicalFactory::constructLinearOligoComplexes(
    const QString& sequence, int fivePrimeTruncations, int threePrimeTruncations,
    QList<QSharedPointer<const MoleculeComplex>>* complexes) const
{
    Nucleotides nucleotides;
    NamedMolecule fivePrime;
    NamedMolecule threePrime;
    parseNucleotideSequence(sequence, &nucleotides, &fivePrime, &threePrime);

    const auto append = [&](const Nucleotides& remaining) {
        complexes->append(constructLinearOligoComplex(remaining, fivePrime, threePrime));
    };
    append(nucleotides);
    for (qsizetype i = 1; i <= fivePrimeTruncations; ++i)
        append(nucleotides.mid(i));
    for (qsizetype j = 1; j <= threePrimeTruncations; ++j)
        append(nucleotides.mid(0, nucleotides.size() - j));
}

} // namespace chem
