#include "ProForma.h"
#include "proforma/IonLayout.h"
#include "proforma/PartWeigher.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Failure = std::optional<Error>;

/// Arranges the parts of an ion for fragments.
class BackboneBuilder
{
public:
    BackboneBuilder(const PeptidoformIon& ion, const IonLayout& layout, const PartWeigher& weigher)
        : m_ion(ion)
        , m_layout(layout)
        , m_weigher(weigher)
        , m_breaks(weigher.breaks())
    {
    }

    Parsed<Backbone> build()
    {
        if (Failure failure = m_layout.openRefusal())
            return *std::move(failure);
        for (const PeptidoformChain& chain : m_ion.chains)
            addChain(chain);
        for (const LaidPart& part : m_layout.parts())
            addPart(part);
        for (const LaidLink& link : m_layout.links()) {
            if (Failure failure = addLink(link))
                return *std::move(failure);
        }
        return Backbone::ofChains(std::move(m_chains), std::move(m_links), m_breaks);
    }

private:
    void addChain(const PeptidoformChain& chain)
    {
        BackboneChain& backbone = m_chains.emplace_back();
        backbone.letters = chain.residues;
        for (const QChar letter : chain.residues)
            backbone.units.push_back(m_layout.residue(letter).masses);
    }

    /// The masses with protons in place of the charges, so that a fragment's charge counts all.
    Masses balanced(const PartWeight& weight) const
    {
        return weight.masses - double(weight.charge) * Masses{m_breaks.proton, m_breaks.proton};
    }

    void addPart(const LaidPart& part)
    {
        BackboneChain& chain = m_chains[part.chain];
        const Masses masses = balanced(part.weight);
        switch (part.place) {
        case LaidPlace::Unit:
            chain.units[std::size_t(part.unit)] += masses;
            addLossy(part.unit, QString(chain.letters[part.unit]), part.weight, &chain);
            break;
        case LaidPlace::LeftEnd:
            chain.leftGroup += masses;
            addLossy(0, QString(QChar(u'\0')), part.weight, &chain);
            break;
        case LaidPlace::RightEnd:
            chain.rightGroup += masses;
            addLossy(part.unit, QString(QChar(u'\0')), part.weight, &chain);
            break;
        case LaidPlace::Labile:
            chain.labile.push_back({masses, {}});
            break;
        case LaidPlace::Open:
            addOpen(part, &chain);
            break;
        }
    }

    void addLossy(qsizetype unit, const QString& letters, const PartWeight& weight,
                  BackboneChain* chain) const
    {
        std::vector<NeutralLoss> losses = lossesOf(weight, letters);
        if (!losses.empty())
            chain->lossy.emplace_back(unit, BackboneGroup{weight.masses, std::move(losses)});
    }

    void addOpen(const LaidPart& part, BackboneChain* chain) const
    {
        QString letters;
        for (const qsizetype unit : part.units)
            letters += chain->letters[unit];
        const BackboneGroup group{balanced(part.weight), lossesOf(part.weight, letters)};
        for (int i = 0; i < part.count; ++i)
            chain->open.push_back({group, part.units});
    }

    /// What a modification loses on one of these residues, each loss once.
    std::vector<NeutralLoss> lossesOf(const PartWeight& weight, const QString& letters) const
    {
        std::vector<NeutralLoss> losses;
        if (!weight.entry)
            return losses;
        for (const ModificationLoss& loss : weight.entry->losses) {
            if (!letters.contains(QChar(loss.residue)))
                continue;
            const Parsed<PartWeight> lost = m_weigher.atoms(loss.composition);
            const NeutralLoss neutral{loss.composition.toString(), lost ? lost->masses : Masses()};
            if (lost && std::find(losses.begin(), losses.end(), neutral) == losses.end())
                losses.push_back(neutral);
        }
        return losses;
    }

    /// A bridge joins its first place to all others; with one place it is a modification there.
    Failure addLink(const LaidLink& link)
    {
        if (link.sites.empty())
            return Error{u"expected the places of this link"_s, link.position.index};
        const auto [chain, unit] = link.sites.front();
        const Masses masses = balanced(link.weight);
        if (link.sites.size() == 1)
            m_chains[chain].units[std::size_t(unit)] += masses;
        for (std::size_t i = 1; i < link.sites.size(); ++i) {
            m_links.push_back({qsizetype(chain), unit, qsizetype(link.sites[i].first),
                               link.sites[i].second, i == 1 ? masses : Masses()});
        }
        return {};
    }

    const PeptidoformIon& m_ion;
    const IonLayout& m_layout;
    const PartWeigher& m_weigher;
    BreakMasses m_breaks;
    std::vector<BackboneChain> m_chains;
    std::vector<BackboneLink> m_links;
};

/// Why the order of residues decides what fragments weigh, if it does and nobody knows it.
Failure orderRefusal(const PeptidoformIon& ion, const Backbone& backbone)
{
    for (std::size_t i = 0; i < ion.chains.size(); ++i) {
        const PeptidoformChain& chain = ion.chains[i];
        const std::vector<Masses>& units = backbone.chains()[i].units;
        for (const ResidueRange& range : chain.ranges) {
            const bool isEqual = std::all_of(
                units.begin() + range.first, units.begin() + range.last + 1,
                [&](const Masses& unit) {
                    return std::abs(unit.monoisotopic -
                                    units[std::size_t(range.first)].monoisotopic) < 1e-6;
                });
            if (range.kind == ResidueRange::AmbiguousOrder && !isEqual)
                return Error{u"expected residues of known order, since fragments depend on it"_s,
                             chain.positions.of(range.first), qsizetype(i), range.first};
        }
    }
    return {};
}

} // namespace

Parsed<Backbone> Peptidoform::backbone(qsizetype ion, const ResidueTable& residues,
                                       const ModificationTable& modifications) const
{
    const PartWeigher weigher(residues, modifications, isotopes);
    const Parsed<IonLayout> layout = IonLayout::of(*this, ion, weigher);
    if (!layout)
        return layout.error();
    const PeptidoformIon& wanted = ions[std::size_t(ion)];
    Parsed<Backbone> backbone = BackboneBuilder(wanted, *layout, weigher).build();
    if (!backbone)
        return backbone;
    if (Failure failure = orderRefusal(wanted, *backbone))
        return *std::move(failure);
    return backbone;
}

} // namespace ions
