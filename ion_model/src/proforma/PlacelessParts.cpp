#include "proforma/PlacelessParts.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Failure = std::optional<Error>;

bool isRemark(const Tag& tag)
{
    return tag.kind == TagKind::Info;
}

bool isNothing(const Modification& modification)
{
    return modification.tags.empty() && modification.label.kind == ModificationLabel::None;
}

/// The charges that the formulas of a tag bear.
std::vector<int*> chargesOf(Tag* tag)
{
    std::vector<int*> charges = {&tag->formula.charge};
    for (GlycanPart& part : tag->glycan)
        charges.push_back(&part.formula.charge);
    return charges;
}

/// Goes through one ion and refuses or takes away what has no place.
class PlacelessParts
{
public:
    explicit PlacelessParts(Placeless placeless)
        : m_isDropping(placeless == Placeless::Dropped)
    {
    }

    Failure cleanIon(PeptidoformIon* ion)
    {
        Failure failure = cleanName(&ion->name, u"an ion"_s);
        if (!failure && (ion->protons || !ion->carriers.empty())) {
            const bool isCarried = !ion->carriers.empty();
            failure = refusal(u"charges"_s, isCarried ? ion->carriers[0].position : TextPosition());
            ion->protons.reset();
            ion->carriers.clear();
        }
        for (m_chain = 0; !failure && m_chain < std::ssize(ion->chains); ++m_chain)
            failure = cleanChain(&ion->chains[std::size_t(m_chain)]);
        m_chain = -1;
        return failure;
    }

    Failure cleanName(QString* name, const QString& owner)
    {
        if (name->isEmpty())
            return {};
        name->clear();
        return refusal(u"the name of "_s + owner, {});
    }

    Failure cleanRules(std::vector<FixedModification>* rules)
    {
        return cleanList(rules, [](FixedModification& rule) { return &rule.modification; });
    }

    Failure cleanIons(Peptidoform* peptidoform, qsizetype ion)
    {
        if (peptidoform->ions.size() == 1)
            return {};
        peptidoform->ions = {std::move(peptidoform->ions[std::size_t(ion)])};
        return refusal(u"several ions"_s, {});
    }

private:
    Failure refusal(const QString& part, TextPosition position) const
    {
        if (m_isDropping)
            return {};
        return Error{u"expected nothing that a molecule has no place for: "_s + part,
                     position.index, m_chain};
    }

    Failure cleanChain(PeptidoformChain* chain)
    {
        Failure failure = cleanName(&chain->name, u"a chain"_s);
        if (!failure && !chain->labile.empty())
            failure = refusal(u"labile modifications"_s, chain->labile.front().position);
        chain->labile.clear();
        if (!failure)
            failure = cleanRanges(chain);
        if (!failure)
            failure = cleanPlain(&chain->leftEnd);
        if (!failure)
            failure = cleanList(&chain->modifications,
                                [](ResidueModification& one) { return &one.modification; });
        if (!failure)
            failure = cleanPlain(&chain->rightEnd);
        if (failure)
            return failure;
        return cleanList(&chain->unlocalised,
                         [](UnlocalisedModification& one) { return &one.modification; });
    }

    /// The places of modifications in a range are known, their range as such is not.
    Failure cleanRanges(PeptidoformChain* chain)
    {
        if (chain->ranges.empty())
            return {};
        const TextPosition position{chain->positions.of(chain->ranges.front().first)};
        if (Failure failure = refusal(u"ranges"_s, position))
            return failure;
        for (ResidueRange& range : chain->ranges) {
            if (Failure failure = cleanPlain(&range.modifications))
                return failure;
        }
        std::erase_if(chain->ranges,
                      [](const ResidueRange& range) { return range.modifications.empty(); });
        return {};
    }

    Failure cleanPlain(std::vector<Modification>* modifications)
    {
        return cleanList(modifications, [](Modification& modification) { return &modification; });
    }

    template <typename Part, typename Get>
    Failure cleanList(std::vector<Part>* parts, const Get& modificationOf)
    {
        for (Part& part : *parts) {
            if (Failure failure = clean(modificationOf(part)))
                return failure;
        }
        std::erase_if(*parts, [&](Part& part) { return isNothing(*modificationOf(part)); });
        return {};
    }

    Failure clean(Modification* modification)
    {
        const TextPosition position = modification->position;
        Failure failure;
        if (std::erase_if(modification->tags, isRemark) > 0)
            failure = refusal(u"remarks"_s, position);
        if (!failure && !modification->label.score.isEmpty())
            failure = refusal(u"scores"_s, position);
        modification->label.score.clear();
        for (Tag& tag : modification->tags) {
            for (int* const charge : chargesOf(&tag)) {
                if (!failure && std::exchange(*charge, 0) != 0)
                    failure = refusal(u"charges"_s, tag.position);
            }
        }
        return failure;
    }

    bool m_isDropping;
    qsizetype m_chain = -1; ///< For refusals.
};

} // namespace

Parsed<Peptidoform> withPlaces(const Peptidoform& peptidoform, qsizetype ion, Placeless placeless)
{
    if (ion < 0 || ion >= std::ssize(peptidoform.ions))
        return Error{u"expected the number of an ion, from 0"_s};
    Peptidoform clean = peptidoform;
    PlacelessParts parts(placeless);
    Failure failure = parts.cleanName(&clean.name, u"a peptidoform"_s);
    if (!failure)
        failure = parts.cleanIons(&clean, ion);
    if (!failure)
        failure = parts.cleanRules(&clean.fixed);
    if (!failure)
        failure = parts.cleanIon(&clean.ions.front());
    return failure ? Parsed<Peptidoform>(*std::move(failure)) : std::move(clean);
}

} // namespace ions
