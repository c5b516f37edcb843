#pragma once

#include "LinearComplex.h"
#include "sequences/ChainGroups.h"

#include <QList>
#include <QSharedPointer>

namespace chem {

/// The ways in which a chain breaks at a nucleotide, as far as they follow from the nucleotide
/// itself, and the ones that its phosphate brings about at the next nucleotide.
struct NucleotideBreaks
{
    FragmentationSite aB;
    FragmentationSite b;
    FragmentationSite a;
    FragmentationSite nextW;
    FragmentationSite nextX;
};

/// Lays out the fragmentation sites of oligonucleotides.
///
/// Making a site costs some formula arithmetic, copying one costs two reference counts. So what is
/// the same for all nucleotides, or for all with one base and one phosphate, is made once.
class OligoSites
{
public:
    explicit OligoSites(const ChainGroups& groups);

    /// The breaks of a nucleotide with this base and this phosphate on its 3' side.
    NucleotideBreaks breaksOf(const Molecule& nucleobase, const Molecule& phosphate) const;

    /// What stands in for the nucleotide before the first one: it has no phosphate.
    const NucleotideBreaks& beforeFirst() const { return m_beforeFirst; }

    /// Makes the sites of one position, in their order. Only a nucleotide with neighbours on both
    /// sides, an inner one, can lose its base alone.
    QList<QSharedPointer<FragmentationSite>>
    sitesAt(const NucleotideBreaks& previous, const NucleotideBreaks& current, bool isInner) const;

private:
    ChainGroups m_groups;
    FragmentationSite m_c;
    FragmentationSite m_d;
    FragmentationSite m_y;
    FragmentationSite m_z;
    NucleotideBreaks m_beforeFirst;
};

} // namespace chem
