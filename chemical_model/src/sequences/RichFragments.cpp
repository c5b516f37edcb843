#include "sequences/RichFragments.h"

#include "sequences/EditedComplex.h"
#include "sequences/IonTypes.h"

namespace chem {

namespace {

/// One end of a chain as it grows inwards: the residues that it holds and their sum.
struct ChainEnd
{
    Molecule molecule;
    QList<QWeakPointer<ComplexResidue>> residues;

    void grow(const QSharedPointer<ComplexResidue>& residue, qsizetype place)
    {
        if (residue)
            molecule += static_cast<const Molecule&>(*residue);
        residues.insert(place, residue);
    }
};

} // namespace

void appendFragments(const MoleculeComplex& complex, QList<QSharedPointer<Fragment>>* fragments)
{
    const qsizetype size = complex.residues.size();
    fragments->reserve(sitesPerResidue * size);

    ChainEnd left;
    ChainEnd right;
    const auto appendIons = [&](qsizetype position, auto isWanted, const ChainEnd& end) {
        for (const auto& shared : sitesAt(complex, position)) {
            const FragmentationSite* const site = shared.data();
            if (!site || !isWanted(site->type))
                continue;
            fragments->append(QSharedPointer<Fragment>::create(
                end.molecule + site->delta, fragmentLabel(site->type), end.residues,
                QList<QWeakPointer<FragmentationSite>>{shared}, &complex));
        }
    };

    for (qsizetype k = 0; k < size; ++k) {
        const qsizetype mirrored = size - 1 - k;
        left.grow(complex.residues[k], k);
        right.grow(complex.residues[mirrored], 0);
        appendIons(k, isLeftIon, left);
        if (k < size - 1) // in the last step the right end holds the left terminal as well
            appendIons(mirrored, isRightIon, right);
    }
}

} // namespace chem
