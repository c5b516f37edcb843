#include "ProForma.h"
#include "proforma/GlycanText.h"
#include "proforma/IonLayout.h"
#include "proforma/PartWeigher.h"
#include "proforma/TagText.h"

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
        for (BackboneChain& chain : m_chains)
            sumUpCompositions(&chain);
        return Backbone::ofChains(std::move(m_chains), std::move(m_links), m_breaks);
    }

private:
    void addChain(const PeptidoformChain& chain)
    {
        BackboneChain& backbone = m_chains.emplace_back();
        backbone.letters = chain.residues;
        for (const QChar letter : chain.residues)
            backbone.units.push_back(m_layout.residue(letter).masses);
        // Tables tell the composition of a plain residue by its letter, of a labelled one nothing.
        for (qsizetype unit = 0; m_weigher.hasIsotopes() && unit < chain.residues.size(); ++unit)
            backbone.compositions.units.emplace_back(unit, Composition());
    }

    /// The masses with protons in place of the charges, so that a fragment's charge counts all.
    Masses balanced(const PartWeight& weight) const
    {
        const Masses hydrogen = m_weigher.hydrogen();
        const double isotopes = hydrogen.average - hydrogen.monoisotopic;
        const Masses proton{m_breaks.proton, m_breaks.proton + isotopes};
        return weight.masses - double(weight.charge) * proton;
    }

    /// The atoms that go with these masses: hydrogens in place of the protons, whose electrons the
    /// charges lack. Atoms that do not fit a count are left out, and then weigh less than the part.
    static Composition balancedAtoms(const PartWeight& weight)
    {
        Composition atoms = weight.composition;
        static_cast<void>(atoms.add(Composition(Atom{1, 0}), -weight.charge));
        return atoms;
    }

    void addToUnit(qsizetype unit, const PartWeight& weight, BackboneChain* chain) const
    {
        chain->units[std::size_t(unit)] += balanced(weight);
        chain->compositions.units.emplace_back(unit, balancedAtoms(weight));
    }

    void addToEnd(const PartWeight& weight, Masses* masses, Composition* composition) const
    {
        *masses += balanced(weight);
        static_cast<void>(composition->add(balancedAtoms(weight)));
    }

    /// Makes one composition of all that is listed for a unit and of its residue.
    void sumUpCompositions(BackboneChain* chain) const
    {
        BackboneCompositions::Listed& listed = chain->compositions.units;
        std::stable_sort(listed.begin(), listed.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        BackboneCompositions::Listed sums;
        for (const auto& [unit, added] : listed) {
            if (sums.empty() || sums.back().first != unit)
                sums.emplace_back(unit, m_layout.residue(chain->letters[unit]).composition);
            static_cast<void>(sums.back().second.add(added));
        }
        listed = std::move(sums);
    }

    /// A part as a group, which sits on one of the letters.
    BackboneGroup groupOf(const LaidPart& part, const QString& letters) const
    {
        return {balanced(part.weight),      lossesOf(part.weight, letters),
                balancedAtoms(part.weight), sugarsOf(part),
                reportersOf(part.weight),   nameOf(*part.modification, part.weight)};
    }

    /// A table's name if a table knows it, a glycan's monosaccharides, or else the text.
    static QString nameOf(const Modification& modification, const PartWeight& weight)
    {
        if (weight.entry)
            return weight.entry->name;
        const auto& tags = modification.tags;
        const auto tag = std::find_if(tags.begin(), tags.end(),
                                      [](const Tag& one) { return one.kind != TagKind::Info; });
        if (tag == tags.end())
            return {};
        return tag->kind == TagKind::Glycan ? glycanText(tag->glycan) : tagText(*tag);
    }

    /// The monosaccharides of a part that is written or named as a glycan.
    std::vector<BackboneSugar> sugarsOf(const LaidPart& part) const
    {
        std::vector<BackboneSugar> sugars;
        for (const GlycanPart& one : glycanOf(*part.modification, part.weight)) {
            const std::vector<GlycanPart> single = {{one.name, one.formula, 1}};
            if (const Parsed<PartWeight> weight = m_weigher.glycan(single))
                sugars.push_back(
                    {glycanText(single), balanced(*weight), balancedAtoms(*weight), one.count});
        }
        return sugars;
    }

    /// The monosaccharides that a tag lists, or a name of Unimod's such as "Hex(5)HexNAc(2)".
    std::vector<GlycanPart> glycanOf(const Modification& modification,
                                     const PartWeight& weight) const
    {
        for (const Tag& tag : modification.tags) {
            if (tag.kind == TagKind::Glycan)
                return tag.glycan;
        }
        if (!weight.entry)
            return {};
        const QString name = QString(weight.entry->name).remove(u'(').remove(u')');
        TextCursor cursor(name);
        const Parsed<std::vector<GlycanPart>> glycan = takeGlycan(&cursor);
        if (!glycan || !cursor.atEnd())
            return {};
        const Parsed<PartWeight> named = m_weigher.glycan(*glycan);
        return named && named->composition == weight.composition ? *glycan
                                                                 : std::vector<GlycanPart>();
    }

    /// The reporter ions of a label. Their proton is natural, as charges are.
    std::vector<ReporterIon> reportersOf(const PartWeight& weight) const
    {
        std::vector<ReporterIon> reporters;
        if (!weight.entry)
            return reporters;
        for (const LabelIon& ion : weight.entry->reporters) {
            const Parsed<PartWeight> whole = m_weigher.atoms(ion.composition);
            if (!whole)
                continue;
            PartWeight charged = *whole;
            charged.charge = 1;
            charged.masses -= Masses{electronMass, electronMass};
            reporters.push_back({ion.name, balanced(charged), balancedAtoms(charged)});
        }
        return reporters;
    }

    void addPart(const LaidPart& part)
    {
        BackboneChain& chain = m_chains[part.chain];
        const QString endLetter = QChar(u'\0');
        switch (part.place) {
        case LaidPlace::Unit:
            addToUnit(part.unit, part.weight, &chain);
            chain.groups.push_back({part.unit, groupOf(part, QString(chain.letters[part.unit]))});
            break;
        case LaidPlace::LeftEnd:
            addToEnd(part.weight, &chain.leftGroup, &chain.compositions.leftGroup);
            chain.groups.push_back({0, groupOf(part, endLetter), true});
            break;
        case LaidPlace::RightEnd:
            addToEnd(part.weight, &chain.rightGroup, &chain.compositions.rightGroup);
            chain.groups.push_back({part.unit, groupOf(part, endLetter), true});
            break;
        case LaidPlace::Labile:
            chain.labile.push_back(groupOf(part, {}));
            break;
        case LaidPlace::Open:
            addOpen(part, &chain);
            break;
        }
    }

    void addOpen(const LaidPart& part, BackboneChain* chain) const
    {
        QString letters;
        for (const qsizetype unit : part.units)
            letters += chain->letters[unit];
        const BackboneGroup group = groupOf(part, letters);
        for (int i = 0; i < part.count; ++i)
            chain->open.push_back({group, part.units, sharedBy(part.modification->placement)});
    }

    /// How many of a modification may share a residue where no others may, or 0.
    static int sharedBy(const PlacementRules& placement)
    {
        return placement.isWithUnknown ? 0 : placement.limit.value_or(1);
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
        if (link.sites.size() == 1) {
            addToUnit(unit, link.weight, &m_chains[chain]);
            BackboneGroup group{balanced(link.weight), {}, balancedAtoms(link.weight)};
            group.name = nameOf(*link.modification, link.weight);
            m_chains[chain].groups.push_back({unit, std::move(group)});
        }
        for (std::size_t i = 1; i < link.sites.size(); ++i) {
            const PartWeight& weight = i == 1 ? link.weight : PartWeight();
            m_links.push_back({qsizetype(chain), unit, qsizetype(link.sites[i].first),
                               link.sites[i].second, balanced(weight), balancedAtoms(weight)});
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
