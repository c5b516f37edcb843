#include "LinearFragments.h"

#include "ChemicalFactory.h"
#include "LinearComplex.h"

#include <array>

using namespace Qt::StringLiterals;

namespace chem {

namespace {

constexpr qsizetype sitesPerResidue = 10;

bool isLeftIon(FragmentType type)
{
    return type >= FragmentType::A && type <= FragmentType::AB;
}

bool isRightIon(FragmentType type)
{
    return type >= FragmentType::W && type <= FragmentType::Zdot;
}

QChar letterOf(const ComplexResidue& residue)
{
    return residue.code.isEmpty() ? QChar() : residue.code.front();
}

void addMasses(const Molecule& molecule, SimpleFragment* fragment)
{
    fragment->averageMass += molecule.averageMass();
    fragment->monoMass += molecule.monoMass();
}

/// The ion that breaks off at `site`, given what its side of the chain comes to.
SimpleFragment ionAt(const FragmentationSite& site, const SimpleFragment& side)
{
    SimpleFragment ion = side;
    addMasses(site.delta, &ion);
    ion.type = site.type;
    return ion;
}

} // namespace

QString ChemicalFactory::typeToString(ZEL_QEnumsFragmentType::FragmentType type)
{
    static const std::array<QString, 13> labels = {u"a"_s, u"a."_s, u"b"_s, u"c"_s, u"c."_s,
                                                   u"d"_s, u"aB"_s, u"w"_s, u"x"_s, u"x."_s,
                                                   u"y"_s, u"z"_s,  u"z."_s};
    const bool hasLabel = isLeftIon(type) || isRightIon(type);
    return hasLabel ? labels[static_cast<std::size_t>(type)] : u"unknown"_s;
}

void ChemicalFactory::generateLinearFragments(const MoleculeComplex& complex,
                                              QList<QSharedPointer<Fragment>>* fragments) const
{
    const qsizetype size = complex.residues.size();
    fragments->reserve(fragments->size() + sitesPerResidue * size);

    Molecule left;
    Molecule right;
    QList<QWeakPointer<ComplexResidue>> leftResidues;
    QList<QWeakPointer<ComplexResidue>> rightResidues;
    const auto append = [&](const QSharedPointer<FragmentationSite>& site, const Molecule& side,
                            const QList<QWeakPointer<ComplexResidue>>& residues) {
        fragments->append(QSharedPointer<Fragment>::create(
            side + site->delta, typeToString(site->type), residues,
            QList<QWeakPointer<FragmentationSite>>{site}, &complex));
    };

    for (qsizetype k = 0; k < size; ++k) {
        const qsizetype mirrored = size - 1 - k;
        left += *complex.residues[k];
        right += *complex.residues[mirrored];
        leftResidues.append(complex.residues[k]);
        rightResidues.prepend(complex.residues[mirrored]);
        for (const auto& site : complex.sites.value(k)) {
            if (isLeftIon(site->type))
                append(site, left, leftResidues);
        }
        if (k == size - 1)
            break; // the right side now holds the left terminal as well
        for (const auto& site : complex.sites.value(mirrored)) {
            if (isRightIon(site->type))
                append(site, right, rightResidues);
        }
    }
}

void generateLinearFragments(const MoleculeComplex& complex, QList<SimpleFragment>& fragments)
{
    fragments.clear();
    const qsizetype monomers = complex.residues.size() - 2;
    if (monomers <= 0)
        return;
    fragments.reserve(sitesPerResidue * monomers);

    SimpleFragment left;
    SimpleFragment right;
    left.sequence.reserve(monomers);
    QString rightLetters(monomers, QChar());
    addMasses(*complex.residues.first(), &left);
    addMasses(*complex.residues.last(), &right);

    for (qsizetype k = 0; k < monomers; ++k) {
        const qsizetype rightStart = monomers - 1 - k;
        const ComplexResidue& leftResidue = *complex.residues[k + 1];
        addMasses(leftResidue, &left);
        left.sequence.append(letterOf(leftResidue));

        const ComplexResidue& rightResidue = *complex.residues[rightStart + 1];
        addMasses(rightResidue, &right);
        rightLetters[rightStart] = letterOf(rightResidue);
        right.sequence = rightLetters.sliced(rightStart); // cut once, shared by all its ions
        right.position = static_cast<int>(rightStart);

        for (const auto& site : complex.sites.value(k + 1)) {
            if (isLeftIon(site->type))
                fragments.append(ionAt(*site, left));
            else if (isRightIon(site->type))
                fragments.append(ionAt(*site, right));
        }
    }
}

} // namespace chem
