#include "ProForma.h"
#include "proforma/IonLayout.h"
#include "proforma/ModificationText.h"
#include "proforma/MoleculeContent.h"
#include "proforma/PartWeigher.h"
#include "proforma/PlacelessParts.h"
#include <zel_chemical_model/ChemicalFactory.h>
#include <zel_chemical_model/LinearComplex.h>
#include <zel_chemical_model/Modify.h>
#include <zel_chemical_model/StructuredBuilders.h>

#include <algorithm>
#include <limits>
#include <map>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Failure = std::optional<Error>;
using Position = MoleculePosition;

/// The first library takes a mass of exactly 0 for one that is to be computed from the formula,
/// where it would miss the isotopes: carbon-12 in place of carbon weighs nothing.
double stored(double mass, const Composition& composition)
{
    return mass == 0.0 && !composition.isEmpty() ? std::numeric_limits<double>::min() : mass;
}

chem::NamedMolecule named(const PartWeight& weight, const QString& name, const QString& code)
{
    const double average = stored(weight.masses.average, weight.composition);
    const double monoisotopic = stored(weight.masses.monoisotopic, weight.composition);
    return {chem::Molecule(weight.composition.toFormula(), average, monoisotopic), name, code};
}

/// The readable name of a residue that has the atoms of a natural amino acid; else empty.
QString nameOf(QChar letter, const ResidueTable& residues)
{
    QList<QSharedPointer<const chem::AminoAcid>> natural;
    chem::NamedMolecule ends[2];
    const auto factory = chem::defaultChemicalFactory();
    factory->parseAminoAcidSequence(letter, &natural, &ends[0], &ends[1]);
    const Composition* const own = residues.composition(letter.unicode());
    const auto atoms = Composition::fromFormula(natural.first()->formula());
    return own && atoms && *own == *atoms ? natural.first()->name : QString();
}

/// Arranges the parts of an ion as a molecule of the first library.
class MoleculeBuilder
{
public:
    MoleculeBuilder(const PeptidoformIon& ion, const IonLayout& layout, const PartWeigher& weigher,
                    const ResidueTable& residues)
        : m_ion(ion)
        , m_layout(layout)
        , m_weigher(weigher)
        , m_residues(residues)
    {
    }

    Parsed<chem::MoleculeEntity> build()
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
        QList<chem::Chain> chains;
        for (const QList<chem::MoleculeEntity>& residues : m_chains) {
            chains.append(
                chem::Chain(QString(), QString(), residues, chem::MoleculeType::Peptide, {}));
        }
        return chem::constructStructuredMolecule(QString(), QString(), chains, m_open, m_links,
                                                 chem::MoleculeType::Protein);
    }

private:
    void addChain(const PeptidoformChain& chain)
    {
        QList<chem::MoleculeEntity>& residues = m_chains.emplace_back();
        residues.append(endEntity(true, m_residues.leftEnds()));
        for (const QChar letter : chain.residues)
            residues.append(residueEntity(letter));
        residues.append(endEntity(false, m_residues.rightEnds()));
    }

    /// The end of a peptide, which the reader of peptides writes and the table lists first.
    chem::MoleculeEntity endEntity(bool isLeft, std::span<const MoleculePart> ends) const
    {
        const PartWeight weight = m_weigher.atoms(plainEnd(isLeft)).value();
        return named(weight, ends.front().name, ends.front().code);
    }

    /// Equal residues share one entity.
    chem::MoleculeEntity residueEntity(QChar letter)
    {
        const auto known = m_letters.find(letter);
        if (known != m_letters.end())
            return known->second;
        const chem::AminoAcid residue(
            named(m_layout.residue(letter), nameOf(letter, m_residues), letter));
        return m_letters.emplace(letter, residue).first->second;
    }

    int positionOf(LaidPlace place, std::size_t chain, qsizetype unit) const
    {
        const bool isLeft = place == LaidPlace::LeftEnd;
        return place == LaidPlace::RightEnd ? int(m_chains[chain].size()) - 1
               : isLeft                     ? 0
                                            : int(unit) + 1;
    }

    Position positionOf(const LaidMention& mention) const
    {
        return {int(mention.chain), positionOf(mention.place, mention.chain, mention.unit)};
    }

    void addPart(const LaidPart& part)
    {
        if (part.place == LaidPlace::Open)
            addOpen(part);
        else
            modify({int(part.chain), positionOf(part.place, part.chain, part.unit)},
                   named(part.weight, modificationText(*part.modification), {}));
    }

    void modify(const Position& position, const chem::MoleculeEntity& group)
    {
        chem::MoleculeEntity& residue = m_chains[std::size_t(position.first)][position.second];
        residue = chem::Modify(group).transform(residue);
    }

    void addOpen(const LaidPart& part)
    {
        const QList<Position> places = placesOf(part);
        const chem::MoleculeEntity group =
            named(part.weight, modificationText(*part.modification), codeOf(part));
        const bool isKnown = places.size() == 1 && !part.mentions.empty() && group.code().isEmpty();
        for (int i = 0; i < part.count; ++i) {
            if (isKnown)
                modify(places.front(), group);
            else
                m_open.append(chem::Modification(group, places));
        }
    }

    static bool isPlaced(const LaidMention& mention) { return mention.place != LaidPlace::Open; }

    /// Where a label stands, the described place first; else the units that rules name.
    QList<Position> placesOf(const LaidPart& part) const
    {
        const auto& mentions = part.mentions;
        const bool isRanged =
            std::any_of(mentions.begin(), mentions.end(), [](const LaidMention& mention) {
                return !isPlaced(mention) && !mention.isEverywhere;
            });
        QList<Position> places;
        for (const LaidMention& mention : mentions) {
            const bool isDescribed = mention.modification == part.modification;
            if (isPlaced(mention) && !isRanged)
                places.insert(isDescribed ? 0 : places.size(), positionOf(mention));
        }
        const bool isAnywhere = part.isEverywhere && m_chains.size() == 1 &&
                                part.modification->placement.positions.empty();
        if (!places.isEmpty() || (isAnywhere && !isRanged))
            return places;
        for (const qsizetype unit : part.units)
            places.append({int(part.chain), int(unit) + 1});
        return places;
    }

    /// The label of what is described in front of a chain and may sit where the label stands.
    static QString codeOf(const LaidPart& part)
    {
        const auto& mentions = part.mentions;
        const bool isInFront =
            std::any_of(mentions.begin(), mentions.end(), [&part](const LaidMention& mention) {
                return mention.isEverywhere && mention.modification == part.modification;
            });
        const auto placed = std::find_if(mentions.begin(), mentions.end(), isPlaced);
        return isInFront && placed != mentions.end() ? modificationText(*placed->modification)
                                                     : QString();
    }

    Failure addLink(const LaidLink& link)
    {
        std::vector<LaidMention> ends = link.mentions;
        const bool isUnsure = std::any_of(ends.begin(), ends.end(),
                                          [](const LaidMention& end) { return !isPlaced(end); });
        if (isUnsure)
            return Error{u"expected a link between known places"_s, link.position.index};
        std::stable_partition(ends.begin(), ends.end(), [&link](const LaidMention& end) {
            return end.modification == link.modification;
        });
        const QString text = modificationText(*link.modification);
        if (ends.size() == 1)
            modify(positionOf(ends.front()), named(link.weight, text, {}));
        for (std::size_t i = 1; i < ends.size(); ++i) {
            const chem::NamedMolecule bridge = named(i == 1 ? link.weight : PartWeight(), text,
                                                     modificationText(*ends[i].modification));
            m_links.append({bridge, {positionOf(ends.front()), positionOf(ends[i])}});
        }
        return {};
    }

    const PeptidoformIon& m_ion;
    const IonLayout& m_layout;
    const PartWeigher& m_weigher;
    const ResidueTable& m_residues;
    std::map<QChar, chem::MoleculeEntity> m_letters;
    std::vector<QList<chem::MoleculeEntity>> m_chains; ///< Ends included.
    QList<chem::Modification> m_open;
    QList<chem::Link> m_links;
};

} // namespace

Parsed<chem::MoleculeEntity> Peptidoform::molecule(qsizetype ion, const ResidueTable& residues,
                                                   const ModificationTable& modifications,
                                                   Placeless placeless) const
{
    const Parsed<Peptidoform> placed = withPlaces(*this, ion, placeless);
    if (!placed)
        return placed.error();
    const PartWeigher weigher(residues, modifications, placed->isotopes);
    const Parsed<IonLayout> layout = IonLayout::of(*placed, 0, weigher);
    if (!layout)
        return layout.error();
    return MoleculeBuilder(placed->ions.front(), *layout, weigher, residues).build();
}

} // namespace ions
