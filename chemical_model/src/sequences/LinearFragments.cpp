#include "LinearFragments.h"

#include "LinearComplex.h"
#include "sequences/EditedComplex.h"
#include "sequences/IonTypes.h"

namespace chem {

namespace {

QChar letterOf(const ComplexResidue* residue)
{
    return residue && !residue->code.isEmpty() ? residue->code.front() : QChar();
}

void addMasses(const Molecule& molecule, SimpleFragment* fragment)
{
    fragment->averageMass += molecule.averageMass();
    fragment->monoMass += molecule.monoMass();
}

void addMasses(const ComplexResidue* residue, SimpleFragment* fragment)
{
    if (residue)
        addMasses(static_cast<const Molecule&>(*residue), fragment);
}

/// The ion that breaks off at `site`, given the sum of its side of the chain.
SimpleFragment ionAt(const FragmentationSite& site, const SimpleFragment& side)
{
    SimpleFragment ion = side;
    addMasses(site.delta, &ion);
    ion.type = site.type;
    return ion;
}

/// The number of sites at the monomers; no more ions break off.
qsizetype siteNumber(const MoleculeComplex& complex)
{
    qsizetype number = 0;
    for (const auto& sites : complex.sites)
        number += sites.size();
    return number;
}

/// The letters of the monomers, in order.
QString lettersOf(const MoleculeComplex& complex)
{
    QString letters;
    letters.reserve(complex.residues.size());
    for (qsizetype i = 1; i < complex.residues.size() - 1; ++i)
        letters.append(letterOf(complex.residues[i].data()));
    return letters;
}

} // namespace

void generateLinearFragments(const MoleculeComplex& complex, QList<SimpleFragment>& fragments)
{
    fragments.clear();
    const qsizetype monomers = complex.residues.size() - 2;
    if (monomers <= 0)
        return;
    fragments.reserve(sitesPerResidue * monomers);
    fragments.resize(siteNumber(complex)); // written in place: to append costs a fifth more
    SimpleFragment* next = fragments.data();

    SimpleFragment left;
    SimpleFragment right;
    const QString letters = lettersOf(complex);
    addMasses(complex.residues.first().data(), &left);
    addMasses(complex.residues.last().data(), &right);

    for (qsizetype k = 0; k < monomers; ++k) {
        // The letters of an end are cut once and shared by all its ions.
        addMasses(complex.residues[k + 1].data(), &left);
        left.sequence = letters.first(k + 1);

        const qsizetype rightStart = monomers - 1 - k;
        addMasses(complex.residues[rightStart + 1].data(), &right);
        right.sequence = letters.sliced(rightStart);
        right.position = static_cast<int>(rightStart);

        for (const auto& shared : sitesAt(complex, k + 1)) {
            const FragmentationSite* const site = shared.data();
            if (site && isLeftIon(site->type))
                *next++ = ionAt(*site, left);
            else if (site && isRightIon(site->type))
                *next++ = ionAt(*site, right);
        }
    }
    fragments.resize(next - fragments.constData());
}

} // namespace chem
