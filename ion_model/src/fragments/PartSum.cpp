#include "fragments/PartSum.h"

#include "backbone/PlainParts.h"
#include "masses/EntityMasses.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

constexpr double heaviestBreakAtom = 100.0;

/// The composition that is listed for a unit, else what `plain` finds.
template <typename Plain>
std::optional<Composition> listedOr(const BackboneCompositions::Listed& listed, qsizetype unit,
                                    const Plain& plain)
{
    const auto entry = std::lower_bound(listed.begin(), listed.end(), unit,
                                        [](const auto& one, qsizetype u) { return one.first < u; });
    if (entry != listed.end() && entry->first == unit)
        return entry->second;
    return plain();
}

Error unknown(const QString& part, qsizetype chain, qsizetype unit = -1)
{
    return {u"expected "_s + part + u" of known composition"_s, -1, chain, unit};
}

} // namespace

PartSum::PartSum(const Backbone& backbone, const ResidueTable& residues)
    : m_backbone(backbone)
    , m_residues(residues)
{
    const BreakMasses& breaks = backbone.breaks();
    const Masses oxygen = breaks.water - 2.0 * breaks.hydrogen;
    m_hydrogen = breakAtom(1, breaks.hydrogen);
    m_oxygen = breakAtom(8, oxygen);
    m_carbon = breakAtom(6, breaks.carbonMonoxide - oxygen);
    m_nitrogen = breakAtom(7, breaks.ammonia - 3.0 * breaks.hydrogen);
}

/// The element of this number, or its isotope where breaks add that.
Atom PartSum::breakAtom(quint8 atomicNumber, const Masses& masses)
{
    const Atom element{atomicNumber, 0};
    if (isSameMass(m_residues.atoms().of(element), masses))
        return element;
    if (std::abs(masses.monoisotopic) < heaviestBreakAtom) {
        const Atom isotope{atomicNumber, quint16(std::abs(std::lround(masses.monoisotopic)))};
        if (isSameMass(m_residues.atoms().of(isotope), masses))
            return isotope;
    }
    refuse({u"expected the table that the backbone was made with"_s});
    return element;
}

const BackboneChain& PartSum::chainAt(qsizetype chain) const
{
    return m_backbone.chains()[std::size_t(chain)];
}

void PartSum::refuse(const Error& error)
{
    if (!m_refusal)
        m_refusal = error;
}

void PartSum::add(const Composition& composition, int times)
{
    if (!m_refusal && !m_sum.add(composition, times))
        refuse({u"expected counts from -2147483647 to 2147483647"_s});
}

/// Adds a part if it weighs what the backbone says; refuses it with the error otherwise.
void PartSum::addPart(const std::optional<Composition>& part, const Masses& masses,
                      const Error& error, int times)
{
    if (m_refusal)
        return;
    const auto weighed = m_residues.atoms().weigh(part.value_or(Composition()));
    if (!part || !weighed || !isSameMass(*weighed, masses))
        refuse(error);
    else
        add(*part, times);
}

void PartSum::addUnits(qsizetype index, qsizetype begin, qsizetype end)
{
    const BackboneChain& chain = chainAt(index);
    for (qsizetype unit = begin; unit < end && !m_refusal; ++unit) {
        const auto part = listedOr(chain.compositions.units, unit,
                                   [&] { return plainUnit(chain, unit, m_residues); });
        addPart(part, chain.units[std::size_t(unit)], unknown(u"a unit"_s, index, unit));
    }
}

void PartSum::addLinkages(qsizetype index, qsizetype begin, qsizetype end)
{
    const BackboneChain& chain = chainAt(index);
    if (chain.polymer != Polymer::Oligonucleotide)
        return;
    for (qsizetype unit = begin; unit < end && !m_refusal; ++unit) {
        const auto part = listedOr(chain.compositions.linkages, unit,
                                   [&] { return plainLinkage(chain, unit, m_residues); });
        addPart(part, chain.linkages[std::size_t(unit)], unknown(u"a linkage"_s, index, unit));
    }
}

void PartSum::removeBase(qsizetype index, qsizetype unit)
{
    const BackboneChain& chain = chainAt(index);
    const auto part = listedOr(chain.compositions.bases, unit,
                               [&] { return plainBase(chain, unit, m_residues); });
    addPart(part, chain.bases[std::size_t(unit)], unknown(u"a base"_s, index, unit), -1);
}

void PartSum::addLeftGroup(qsizetype index)
{
    const BackboneChain& chain = chainAt(index);
    const Composition& group = chain.compositions.leftGroup;
    addPart(group.isEmpty() ? plainLeftGroup(chain, m_residues) : group, chain.leftGroup,
            unknown(u"a left end"_s, index));
    if (!chain.hasLeftEnd)
        addBreaks({.hydrogen = -1});
}

void PartSum::addRightGroup(qsizetype index)
{
    const BackboneChain& chain = chainAt(index);
    const Composition& group = chain.compositions.rightGroup;
    addPart(group.isEmpty() ? plainRightGroup(chain, m_residues) : group, chain.rightGroup,
            unknown(u"a right end"_s, index));
    if (!chain.hasRightEnd)
        addBreaks({.water = -1, .hydrogen = 1});
}

void PartSum::addOpenGroup(qsizetype chain, const OpenGroup& open, int times)
{
    addPart(open.group.composition, open.group.masses,
            unknown(u"an open group"_s, chain, open.units.front()), times);
}

void PartSum::addLabileGroups(qsizetype chain, int times)
{
    for (const BackboneGroup& group : chainAt(chain).labile)
        addPart(group.composition, group.masses, unknown(u"a labile group"_s, chain), times);
}

void PartSum::addLink(qsizetype index)
{
    const BackboneLink& link = m_backbone.links()[std::size_t(index)];
    addPart(link.composition, link.masses, unknown(u"a link"_s, link.firstChain, link.firstUnit));
}

void PartSum::addBreaks(const BreakGroups& groups, int times)
{
    add(Composition(m_hydrogen), times * (2 * groups.water + 3 * groups.ammonia + groups.hydrogen));
    add(Composition(m_oxygen), times * (groups.water + groups.carbonMonoxide));
    add(Composition(m_carbon), times * groups.carbonMonoxide);
    add(Composition(m_nitrogen), times * groups.ammonia);
}

void PartSum::addChain(qsizetype index)
{
    const BackboneChain& chain = chainAt(index);
    const qsizetype size = std::ssize(chain.units);
    addLeftGroup(index);
    addUnits(index, 0, size);
    addLinkages(index, 0, size);
    addRightGroup(index);
    addBreaks({.water = 1});
    for (const OpenGroup& open : chain.open)
        addOpenGroup(index, open);
    addLabileGroups(index);
}

void PartSum::label(Composition& composition) const
{
    for (const Atom atom : {m_hydrogen, m_carbon, m_nitrogen, m_oxygen}) {
        // Counts that fit as one kind of atom fit as the other.
        if (atom.massNumber != 0)
            static_cast<void>(composition.label(atom));
    }
}

} // namespace ions
