#include "sequences/OligoSites.h"

namespace chem {

OligoSites::OligoSites(const ChainGroups& groups)
    : m_groups(groups)
    , m_c(FragmentType::C, groups.oxygen, groups.hydroxyl)
    , m_d(FragmentType::D, groups.hydroxyl, Molecule())
    , m_y(FragmentType::Y, groups.hydrogen, Molecule())
    , m_z(FragmentType::Z, Molecule(), groups.hydroxyl)
    , m_beforeFirst(breaksOf(Molecule(), Molecule()))
{
}

NucleotideBreaks OligoSites::breaksOf(const Molecule& nucleobase, const Molecule& phosphate) const
{
    const Molecule nothing;
    return {
        {FragmentType::AB, nothing, phosphate + nucleobase + m_groups.hydrogenPair},
        {FragmentType::B, m_groups.hydroxyl, phosphate},
        {FragmentType::A, nothing, phosphate + m_groups.hydrogen},
        {FragmentType::W, phosphate + m_groups.hydrogen, nothing},
        {FragmentType::X, phosphate, m_groups.hydroxyl},
    };
}

QList<QSharedPointer<FragmentationSite>> OligoSites::sitesAt(const NucleotideBreaks& previous,
                                                             const NucleotideBreaks& current,
                                                             bool isInner) const
{
    constexpr qsizetype mostSites = 9;
    QList<QSharedPointer<FragmentationSite>> sites;
    sites.reserve(mostSites);
    const auto append = [&sites](const FragmentationSite& site) {
        sites.append(QSharedPointer<FragmentationSite>::create(site));
    };
    if (isInner)
        append(current.aB);
    append(m_d);
    append(current.b);
    append(m_c);
    append(current.a);
    append(previous.nextW);
    append(m_y);
    append(m_z);
    append(previous.nextX);
    return sites;
}

} // namespace chem
