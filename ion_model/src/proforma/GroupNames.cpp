#include "proforma/GroupNames.h"

#include "masses/EntityMasses.h"
#include "proforma/ModificationText.h"

#include <algorithm>
#include <cmath>
#include <tuple>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

Modification withTag(TagKind kind, TagVocabulary vocabulary, const QString& text)
{
    Modification modification;
    modification.tags = {Tag{kind, vocabulary, text, {}, {}, {}}};
    return modification;
}

/// A mass with its sign, to what sums are good to: 10^-9 Da.
Modification bareMass(double mass)
{
    QString digits = QString::number(std::abs(mass), 'f', 9);
    while (digits.endsWith(u'0'))
        digits.chop(1);
    if (digits.endsWith(u'.'))
        digits.chop(1);
    return withTag(TagKind::Mass, TagVocabulary::None,
                   (mass < 0 && digits != u"0" ? u'-' : u'+') + digits);
}

bool isSubstitution(const ModificationEntry& entry)
{
    return !entry.sites.empty() &&
           std::all_of(entry.sites.begin(), entry.sites.end(), [](const ModificationSite& site) {
               return site.classification == u"AA substitution";
           });
}

} // namespace

WeighedAtoms WeighedAtoms::of(const chem::ChemicalFormula& formula, const Masses& masses,
                              const AtomMasses& atoms)
{
    Parsed<Composition> composition = weighedComposition(formula, masses, atoms);
    if (!composition)
        return {masses, {}};
    return {masses, *std::move(composition)};
}

bool isLabelled(const Composition& plain, const Composition& labelled,
                const std::vector<Atom>& isotopes)
{
    if (isotopes.empty())
        return plain == labelled;
    Composition heavy = plain;
    return std::all_of(isotopes.begin(), isotopes.end(),
                       [&heavy](Atom isotope) { return heavy.label(isotope); }) &&
           heavy == labelled;
}

std::optional<Modification> readModification(const QString& text)
{
    const QString brackets = u"["_s + text + u"]"_s;
    TextCursor cursor(brackets);
    Modification modification;
    if (takeModification(&cursor, ModificationBrackets::Labelled, &modification) || !cursor.atEnd())
        return {};
    modification.position = {};
    for (Tag& tag : modification.tags)
        tag.position = {};
    return modification;
}

Modification GroupNames::formula(const Composition& composition)
{
    Modification modification = withTag(TagKind::Formula, TagVocabulary::None, {});
    modification.tags.front().formula.composition = composition;
    return modification;
}

WeighedAtoms GroupNames::weighed(const chem::MoleculeEntity& group) const
{
    return WeighedAtoms::of(group.formula(), massesOf(group), m_atoms);
}

bool GroupNames::isSame(const Modification& modification, const WeighedAtoms& group) const
{
    const Parsed<PartWeight> weight = m_weigher.modification(modification);
    if (!weight || weight->charge != 0 || !isSameMass(weight->masses, group.masses))
        return false;
    return !group.composition || weight->isBare || weight->composition == *group.composition;
}

Parsed<Modification> GroupNames::of(const chem::MoleculeEntity& group,
                                    const std::vector<Vocabulary>& vocabularies) const
{
    const WeighedAtoms weight = weighed(group);
    const auto named = readModification(group.name());
    if (named && !named->tags.empty() && isSame(*named, weight))
        return *named;
    return of(weight, vocabularies);
}

Parsed<Modification> GroupNames::of(const WeighedAtoms& group,
                                    const std::vector<Vocabulary>& vocabularies) const
{
    if (!isFinite(group.masses))
        return Error{u"expected a modification with a mass"_s};
    if (!group.composition || group.composition->isEmpty()) {
        if (isSameMass(group.masses, {group.masses.monoisotopic, group.masses.monoisotopic}))
            return bareMass(group.masses.monoisotopic);
        return Error{u"expected a modification of known atoms, or with one mass, not with two"_s};
    }
    for (const Vocabulary vocabulary : vocabularies) {
        if (auto modification = entryOf(group, vocabulary))
            return *std::move(modification);
    }
    return formula(*group.composition);
}

/// Of entries with the same atoms one that is no exchange of amino acids, then the lowest number.
std::optional<Modification> GroupNames::entryOf(const WeighedAtoms& group,
                                                Vocabulary vocabulary) const
{
    const auto rank = [](const ModificationEntry& entry) {
        return std::tuple(isSubstitution(entry), entry.accession);
    };
    const ModificationEntry* best = nullptr;
    for (const ModificationEntry& entry : m_modifications.entries()) {
        if (entry.vocabulary != vocabulary || (best && rank(*best) < rank(entry)))
            continue;
        if (isLabelled(entry.composition, *group.composition, m_isotopes))
            best = &entry;
    }
    return best ? std::optional(written(*best, group)) : std::nullopt;
}

/// An entry by its name, or by its number where text would take the name for something else.
Modification GroupNames::written(const ModificationEntry& entry, const WeighedAtoms& group) const
{
    const bool isLinker = entry.vocabulary == Vocabulary::Xlmod;
    const QString prefix = isLinker ? u"X:"_s : QString();
    const auto named = readModification(prefix + entry.name);
    const bool isClear = named && named->label.kind == ModificationLabel::None &&
                         named->tags.size() == 1 && isSame(*named, group);
    return isClear ? *named
                   : withTag(TagKind::Accession,
                             isLinker ? TagVocabulary::Xlmod : TagVocabulary::Unimod,
                             QString::number(entry.accession));
}

} // namespace ions
