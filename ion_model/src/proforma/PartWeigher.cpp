#include "proforma/PartWeigher.h"

#include "proforma/TagText.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

Error tooManyAtoms()
{
    return {u"this makes more than 2147483647 atoms of a kind, too large"_s};
}

PartWeight bareMass(const Tag& tag)
{
    const double mass = tag.text.toDouble();
    return {{mass, mass}, {}, true, 0, nullptr};
}

} // namespace

bool isSameWeight(const PartWeight& left, const PartWeight& right)
{
    constexpr double rounding = 1e-9; // daltons
    return left.composition == right.composition && left.charge == right.charge &&
           std::abs(left.masses.monoisotopic - right.masses.monoisotopic) < rounding;
}

std::optional<Error> PartWeigher::refusal() const
{
    const auto twice =
        std::adjacent_find(m_isotopes.begin(), m_isotopes.end(), [](Atom left, Atom right) {
            return left.atomicNumber == right.atomicNumber && left != right;
        });
    if (twice != m_isotopes.end())
        return Error{u"expected one isotope for all atoms of "_s + twice->symbol() +
                     u", not two"_s};
    for (const Atom isotope : m_isotopes) {
        const Parsed<Masses> masses = m_residues.atoms().weigh(Composition(isotope));
        if (!masses)
            return Error{masses.error().message};
    }
    return {};
}

Parsed<PartWeight> PartWeigher::atoms(Composition composition) const
{
    for (const Atom isotope : m_isotopes) {
        if (!composition.label(isotope))
            return tooManyAtoms();
    }
    const Parsed<Masses> masses = m_residues.atoms().weigh(composition);
    if (!masses)
        return Error{masses.error().message};
    return PartWeight{*masses, std::move(composition), false, 0, nullptr};
}

Parsed<PartWeight> PartWeigher::residue(char16_t letter) const
{
    if (letter == u'X') // it stands for what its modification says
        return PartWeight();
    const Composition* const composition = m_residues.composition(letter);
    const Masses masses = m_residues.residue(letter);
    if (std::isnan(masses.average)) {
        const QString all = m_residues.candidates(letter);
        return Error{u"the residue "_s + QChar(letter) +
                     (all.isEmpty() ? u" has no mass"_s : u" may be any of "_s + all)};
    }
    if (!m_isotopes.empty() && composition)
        return atoms(*composition);
    if (!m_isotopes.empty())
        return Error{u"the atoms of the residue "_s + QChar(letter) + u" are unknown"_s};
    return PartWeight{masses, composition ? *composition : Composition(), !composition, 0, nullptr};
}

Parsed<PartWeight> PartWeigher::modification(const Modification& modification) const
{
    const Tag* observed = nullptr;
    const Tag* refused = nullptr;
    for (const Tag& alternative : modification.tags) {
        if (alternative.kind == TagKind::Info)
            continue;
        if (alternative.vocabulary == TagVocabulary::Observed) {
            observed = observed ? observed : &alternative;
            continue;
        }
        Parsed<PartWeight> weight = tag(alternative);
        if (weight)
            return weight;
        refused = refused ? refused : &alternative;
    }
    if (observed)
        return bareMass(*observed);
    return refused ? Parsed<PartWeight>(refusalOf(*refused)) : PartWeight();
}

BreakMasses PartWeigher::breaks() const
{
    BreakMasses breaks = m_residues.breaks();
    if (m_isotopes.empty())
        return breaks;
    const auto weigh = [this](QStringView formula, Masses* masses) {
        if (const Parsed<PartWeight> part = atoms(Composition::read(formula).value()))
            *masses = part->masses;
    };
    weigh(u"H", &breaks.hydrogen);
    weigh(u"CO", &breaks.carbonMonoxide);
    weigh(u"NH3", &breaks.ammonia);
    weigh(u"H2O", &breaks.water);
    return breaks;
}

Parsed<PartWeight> PartWeigher::tag(const Tag& tag) const
{
    switch (tag.kind) {
    case TagKind::Mass:
        return bareMass(tag);
    case TagKind::Formula:
        return formula(tag.formula);
    case TagKind::Glycan:
        return glycan(tag.glycan);
    default:
        return entry(tag);
    }
}

Parsed<PartWeight> PartWeigher::formula(const ChargedFormula& formula) const
{
    Parsed<PartWeight> weight = atoms(formula.composition);
    if (!weight)
        return weight;
    PartWeight ion = *std::move(weight);
    const double electrons = formula.charge * electronMass;
    ion.masses -= {electrons, electrons};
    ion.charge = formula.charge;
    return ion;
}

Parsed<PartWeight> PartWeigher::glycan(const std::vector<GlycanPart>& parts) const
{
    ChargedFormula sum;
    qint64 charge = 0;
    for (const GlycanPart& part : parts) {
        const MoleculePart* const known =
            part.name.isEmpty() ? nullptr : m_residues.monosaccharide(part.name);
        if (!known && !part.name.isEmpty())
            return Error{u"no monosaccharide is called "_s + part.name};
        if (!sum.composition.add(known ? known->composition : part.formula.composition, part.count))
            return tooManyAtoms();
        charge += qint64(part.formula.charge) * part.count;
        if (std::abs(charge) > std::numeric_limits<int>::max())
            return Error{u"this makes more than 2147483647 charges, too large"_s};
    }
    sum.charge = int(charge);
    return formula(sum);
}

Parsed<PartWeight> PartWeigher::entry(const Tag& tag) const
{
    const ModificationEntry* const known = find(tag);
    if (!known)
        return Error{u"no mass is known for \""_s + tagText(tag) + u'"'};
    PartWeight weight{known->masses, known->composition, false, 0, known};
    if (known->composition.isEmpty()) {
        weight.isBare = known->masses != Masses();
        return weight;
    }
    if (m_isotopes.empty())
        return weight;
    Parsed<PartWeight> labelled = atoms(known->composition);
    if (!labelled)
        return labelled;
    weight = *std::move(labelled);
    weight.entry = known;
    return weight;
}

/// The entry of a name or an accession. The library has tables of two vocabularies; entries of the
/// others are what a caller adds by the text of their tag, "MOD:46".
const ModificationEntry* PartWeigher::find(const Tag& tag) const
{
    const bool isName = tag.kind == TagKind::Name;
    if (isName && tag.vocabulary == TagVocabulary::None)
        return m_modifications.byName(tag.text);
    const bool isUnimod = tag.vocabulary == TagVocabulary::Unimod;
    if (!isUnimod && tag.vocabulary != TagVocabulary::Xlmod)
        return m_modifications.byName(Vocabulary::Custom, tagText(tag));
    const Vocabulary vocabulary = isUnimod ? Vocabulary::Unimod : Vocabulary::Xlmod;
    if (isName)
        return m_modifications.byName(vocabulary, tag.text);
    bool isNumber = false;
    const int accession = tag.text.toInt(&isNumber);
    return isNumber ? m_modifications.byAccession(vocabulary, accession) : nullptr;
}

/// Why a tag has no mass. Names that are spelled like an unknown one are looked for here alone,
/// since that reads the whole table, and another description may have a mass.
Error PartWeigher::refusalOf(const Tag& tag) const
{
    QString message = this->tag(tag).error().message;
    const QStringList nearest = tag.kind == TagKind::Name && !find(tag)
                                    ? m_modifications.nearestNames(tag.text)
                                    : QStringList();
    if (!nearest.isEmpty())
        message += u", the nearest names are "_s + nearest.join(u", "_s);
    return {message, tag.position.index};
}

} // namespace ions
