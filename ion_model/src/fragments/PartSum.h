#pragma once

#include "Backbone.h"
#include "Composition.h"
#include "Parsed.h"
#include "ResidueTable.h"
#include "fragments/SeriesMasses.h"

#include <array>
#include <optional>

namespace ions {

/// Adds up the compositions of parts of a backbone. Each has to weigh what the backbone says; the
/// first that does not is refused with its place, and what is added afterwards does not count.
class PartSum
{
public:
    PartSum(const Backbone& backbone, const ResidueTable& residues);

    void addUnits(qsizetype chain, qsizetype begin, qsizetype end);
    void addLinkages(qsizetype chain, qsizetype begin, qsizetype end);
    void removeBase(qsizetype chain, qsizetype unit);
    void addLeftGroup(qsizetype chain);
    void addRightGroup(qsizetype chain);
    void addOpenGroup(qsizetype chain, const OpenGroup& open, int times = 1);
    void addLabileGroups(qsizetype chain, int times = 1);
    void addLink(qsizetype link);
    void addBreaks(const BreakGroups& groups, int times = 1);

    /// A chain as it stands: units, linkages, ends, open and labile groups.
    void addChain(qsizetype chain);

    /// Adds what has no place in the backbone.
    void add(const Composition& composition, int times);
    void refuse(const Error& error);

    /// Turns the elements that breaks add as stated isotopes into these.
    void label(Composition& composition) const;

    const Composition& sum() const { return m_sum; }
    const std::optional<Error>& refusal() const { return m_refusal; }

private:
    const BackboneChain& chainAt(qsizetype chain) const;
    void addPart(const std::optional<Composition>& part, const Masses& masses, const Error& error,
                 int times = 1);
    Atom breakAtom(quint8 atomicNumber, const Masses& masses);

    const Backbone& m_backbone;
    const ResidueTable& m_residues;
    Composition m_sum;
    std::optional<Error> m_refusal;
    Atom m_hydrogen; ///< The atoms that breaks add, with their isotopes.
    Atom m_carbon;
    Atom m_nitrogen;
    Atom m_oxygen;
};

} // namespace ions
