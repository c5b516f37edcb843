#include "sequences/RichFragments.h"

#include "sequences/IonSide.h"

#include <array>

using namespace Qt::StringLiterals;

namespace chem {

// The lists of a complex are public: one that a caller has edited may hold null pointers, which add
// nothing, and fewer lists of sites than residues. Residues and sites are taken as const, so that
// nothing in a complex that other threads read is written.

namespace {

using Sites = QList<QSharedPointer<FragmentationSite>>;

/// One end of a chain as it grows inwards: what it comes to and the residues that it holds.
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

QString fragmentLabel(FragmentType type)
{
    static const std::array<QString, 13> labels = {u"a"_s, u"a."_s, u"b"_s, u"c"_s, u"c."_s,
                                                   u"d"_s, u"aB"_s, u"w"_s, u"x"_s, u"x."_s,
                                                   u"y"_s, u"z"_s,  u"z."_s};
    const bool hasLabel = isLeftIon(type) || isRightIon(type);
    return hasLabel ? labels[static_cast<std::size_t>(type)] : u"unknown"_s;
}

void appendFragments(const MoleculeComplex& complex, QList<QSharedPointer<Fragment>>* fragments)
{
    const qsizetype size = complex.residues.size();
    fragments->reserve(sitesPerResidue * size);

    ChainEnd left;
    ChainEnd right;
    const auto appendIons = [&](qsizetype position, auto isWanted, const ChainEnd& end) {
        const Sites sites = complex.sites.value(position);
        for (const auto& shared : sites) {
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
