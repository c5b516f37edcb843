#include "backbone/ChainReader.h"

#include "backbone/PlainParts.h"
#include "masses/EntityMasses.h"
#include <zel_chemical_model/StructuredMolecule.h>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using chem::MoleculeEntity;
using chem::MoleculeType;

constexpr qsizetype partsOfNucleotide = 3;
constexpr double leastMass = 1e-6;

/// By name, by a code that is no letter, or, where it has neither, by what it weighs: nothing else
/// weighs as little as a hydrogen or a hydroxyl.
bool isAmong(std::span<const MoleculePart> ends, const MoleculeEntity& residue)
{
    const QString name = residue.name();
    const QString code = residue.code();
    const bool isNameless = name.isEmpty() && code.isEmpty();
    return std::any_of(ends.begin(), ends.end(), [&](const MoleculePart& end) {
        return isNameless
                   ? isSameMass(massesOf(residue), end.masses)
                   : (!name.isEmpty() && name == end.name) || (code.size() > 1 && code == end.code);
    });
}

bool isLeftEnd(const MoleculeEntity& residue, const ResidueTable& table)
{
    const MoleculeType type = residue.type();
    return type == MoleculeType::NTerminal || type == MoleculeType::FivePrimeTerminal ||
           (type != MoleculeType::AminoAcid && isAmong(table.leftEnds(), residue));
}

bool isRightEnd(const MoleculeEntity& residue, const ResidueTable& table)
{
    const MoleculeType type = residue.type();
    return type == MoleculeType::CTerminal || type == MoleculeType::ThreePrimeTerminal ||
           (type != MoleculeType::AminoAcid && isAmong(table.rightEnds(), residue));
}

bool isAminoAcid(const MoleculeEntity& residue)
{
    return residue.type() == MoleculeType::AminoAcid || residue.code().size() == 1;
}

/// A letter that no dictionary has weighs nothing, unless a modification says what is there.
bool hasMass(const Masses& masses)
{
    return isFinite(masses) && std::abs(masses.monoisotopic) > leastMass;
}

QChar letterOf(const MoleculeEntity& residue)
{
    const QString code = residue.code();
    return code.size() == 1 ? code.front() : QChar();
}

/// By name, and by code where the text had one: a sugar that is not written has none.
bool isPart(std::span<const MoleculePart> parts, const MoleculeEntity& residue)
{
    const QString name = residue.name();
    const QString code = residue.code();
    return std::any_of(parts.begin(), parts.end(), [&](const MoleculePart& part) {
        return part.name == name && (code.isEmpty() || part.code == code);
    });
}

/// A linkage has the marks of its text as its code; one that is not there has none.
bool isLinkage(std::span<const MoleculePart> marks, const MoleculeEntity& residue)
{
    const QString code = residue.code();
    return std::all_of(code.begin(), code.end(), [marks](QChar letter) {
        return std::any_of(marks.begin(), marks.end(),
                           [letter](const MoleculePart& mark) { return mark.code == letter; });
    });
}

/// A number in place of a base names a mass, not a nucleotide.
bool isNumber(const MoleculeEntity& base)
{
    return base.monoMass() != 0.0 && base.formula().isEmpty();
}

} // namespace

ChainReader::ChainReader(const QList<MoleculeEntity>& residues, MoleculeType type, qsizetype index,
                         const ResidueTable& table)
    : m_residues(residues)
    , m_type(type)
    , m_index(index)
    , m_table(table)
{
}

Error ChainReader::refusal(const QString& expected, qsizetype residue) const
{
    return {u"expected "_s + expected, -1, m_index, residue};
}

bool ChainReader::isEnd(const MoleculeEntity& residue) const
{
    return isLeftEnd(residue, m_table) || isRightEnd(residue, m_table);
}

std::optional<Error> ChainReader::read()
{
    if (auto error = readEnds())
        return error;
    switch (m_type) {
    case MoleculeType::Peptide:
    case MoleculeType::Protein:
        return readPeptide();
    case MoleculeType::OligoNucleotide:
        return readOligonucleotide();
    default:
        return refusal(u"a chain of amino acids or of nucleotides"_s, -1);
    }
}

/// What an entity is made of, as far as its formula tells.
Composition ChainReader::compositionOf(const MoleculeEntity& residue) const
{
    return weighedComposition(residue.formula(), massesOf(residue), m_table.atoms()).valueOr({});
}

/// What an end bears beyond what an end has at least.
Composition ChainReader::groupOf(const MoleculeEntity& end, const Composition& plain) const
{
    Composition group = compositionOf(end);
    return !group.isEmpty() && group.add(plain, -1) ? group : Composition();
}

std::optional<Error> ChainReader::readEnds()
{
    const BreakMasses& breaks = m_table.breaks();
    m_last = m_residues.size();
    m_chain.hasLeftEnd = !m_residues.isEmpty() && isLeftEnd(m_residues.first(), m_table);
    if (m_chain.hasLeftEnd) {
        m_first = 1;
        m_chain.leftGroup = massesOf(m_residues.first()) - breaks.hydrogen;
        m_chain.compositions.leftGroup = groupOf(m_residues.first(), Composition({1, 0}));
    }
    m_chain.hasRightEnd = m_last > m_first && isRightEnd(m_residues.last(), m_table);
    if (m_chain.hasRightEnd) {
        --m_last;
        m_chain.rightGroup = massesOf(m_residues.last()) - (breaks.water - breaks.hydrogen);
        Composition hydroxyl({1, 0});
        static_cast<void>(hydroxyl.add({8, 0}, 1));
        m_chain.compositions.rightGroup = groupOf(m_residues.last(), hydroxyl);
    }
    if (!isFinite(m_chain.leftGroup))
        return refusal(u"an end with a mass"_s, 0);
    if (!isFinite(m_chain.rightGroup))
        return refusal(u"an end with a mass"_s, m_last);
    if (m_first == m_last)
        return refusal(u"a chain with a residue between its ends"_s, -1);
    return {};
}

std::optional<Error> ChainReader::readPeptide()
{
    m_chain.polymer = Polymer::Peptide;
    for (qsizetype position = m_first; position < m_last; ++position) {
        if (auto error = readAminoAcid(position))
            return error;
    }
    return {};
}

/// Inside a chain anything that weighs is a residue. In the first or last place it might as well be
/// an end that nobody knows.
std::optional<Error> ChainReader::readAminoAcid(qsizetype position)
{
    const MoleculeEntity& residue = m_residues[position];
    const bool isOutermost = position == 0 || position == m_residues.size() - 1;
    if (isOutermost && !isAminoAcid(residue))
        return refusal(u"an amino acid or an end that the factory knows"_s, position);
    if (residue.type() != MoleculeType::AminoAcid && isEnd(residue))
        return refusal(u"an amino acid, not an end, inside a chain"_s, position);
    const Masses masses = massesOf(residue);
    if (!hasMass(masses))
        return refusal(u"a residue with a mass"_s, position);
    m_chain.units.push_back(masses);
    m_chain.letters.append(letterOf(residue));
    const qsizetype unit = position - m_first;
    if (!plainUnit(m_chain, unit, m_table))
        m_chain.compositions.units.emplace_back(unit, compositionOf(residue));
    for (const chem::Modification& modification : residue.modifications()) {
        const MoleculeEntity group = modification.entity();
        m_chain.groups.push_back({unit, {massesOf(group), {}, {}, {}, {}, group.name()}});
    }
    return {};
}

std::optional<Error> ChainReader::readOligonucleotide()
{
    m_chain.polymer = Polymer::Oligonucleotide;
    for (qsizetype position = m_first; position < m_last; position += partsOfNucleotide) {
        if (auto error = readNucleotide(position))
            return error;
    }
    return {};
}

std::optional<Error> ChainReader::readNucleotide(qsizetype position)
{
    if (position + partsOfNucleotide > m_last)
        return refusal(u"a sugar, a base and a linkage for each nucleotide"_s, position);
    const MoleculeEntity& sugar = m_residues[position];
    const MoleculeEntity& base = m_residues[position + 1];
    const MoleculeEntity& linkage = m_residues[position + 2];
    if (isNumber(base))
        return refusal(u"a base, not the mass of one"_s, position + 1);
    if (!isPart(m_table.sugars(), sugar))
        return refusal(position == 0 ? u"a sugar or a 5' end"_s : u"a sugar"_s, position);
    if (!isPart(m_table.bases(), base))
        return refusal(u"a base"_s, position + 1);
    if (!isLinkage(m_table.linkages(), linkage))
        return refusal(u"a linkage"_s, position + 2);
    const std::array masses = {massesOf(sugar), massesOf(base), massesOf(linkage)};
    const auto odd = std::find_if_not(masses.begin(), masses.end(), isFinite);
    if (odd != masses.end())
        return refusal(u"a part with a mass"_s, position + (odd - masses.begin()));
    addNucleotide(sugar, base, linkage);
    return {};
}

void ChainReader::addNucleotide(const MoleculeEntity& sugar, const MoleculeEntity& base,
                                const MoleculeEntity& linkage)
{
    const qsizetype unit = std::ssize(m_chain.units);
    m_chain.units.push_back(massesOf(sugar) + massesOf(base));
    m_chain.bases.push_back(massesOf(base));
    m_chain.linkages.push_back(massesOf(linkage));
    m_chain.letters.append(letterOf(base));
    BackboneCompositions& known = m_chain.compositions;
    if (!plainUnit(m_chain, unit, m_table)) {
        Composition both = compositionOf(base);
        const Composition other = compositionOf(sugar);
        const bool isKnown = !both.isEmpty() && !other.isEmpty() && both.add(other);
        known.units.emplace_back(unit, isKnown ? both : Composition());
    }
    if (!plainBase(m_chain, unit, m_table))
        known.bases.emplace_back(unit, compositionOf(base));
    if (!plainLinkage(m_chain, unit, m_table))
        known.linkages.emplace_back(unit, compositionOf(linkage));
}

std::optional<UnitPlace> ChainReader::placeOf(qsizetype residue) const
{
    if (residue < 0 || residue >= m_residues.size())
        return {};
    const qsizetype inside = std::clamp(residue, m_first, m_last - 1) - m_first;
    if (m_chain.polymer == Polymer::Peptide)
        return UnitPlace{inside, false};
    const bool isEnd = residue < m_first || residue >= m_last;
    return UnitPlace{inside / partsOfNucleotide,
                     !isEnd && inside % partsOfNucleotide == partsOfNucleotide - 1};
}

} // namespace ions
