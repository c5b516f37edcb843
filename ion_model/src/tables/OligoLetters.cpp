#include "tables/OligoLetters.h"

#include "masses/EntityMasses.h"

namespace ions {

namespace {

/// Whether a character stands for itself in the classes that the factory makes of its keys, and is
/// no digit.
bool isPlainCharacter(char16_t c)
{
    return c > u' ' && c < 127 && c != u'\\' && c != u'-' && c != u'^' && !(c >= u'0' && c <= u'9');
}

} // namespace

OligoLetters::OligoLetters(const FactoryTables& tables)
    : m_unnamedSugar(massesOf(tables.unnamedSugar()))
    , m_unnamedLinkage(massesOf(tables.unnamedLinkage()))
    , m_unmarkedFivePrime(massesOf(tables.hydrogenAtom()))
    , m_unmarkedThreePrime(massesOf(tables.hydroxylGroup()))
{
    addRole(tables, FactoryTables::FivePrimeTerminalBlock, Role::FivePrimeMark);
    addRole(tables, FactoryTables::RiboseBlock, Role::Sugar);
    addRole(tables, FactoryTables::NucleobaseBlock, Role::Base);
    addRole(tables, FactoryTables::PhosphateBlock, Role::Linkage);
    addRole(tables, FactoryTables::ThreePrimeTerminalBlock, Role::ThreePrimeMark);
    for (std::size_t state = 0; state < stateCount; ++state) {
        for (std::size_t letter = 0; letter < letterCount; ++letter)
            m_steps[state][letter] = stepFrom(State(state), letter);
    }
}

void OligoLetters::addRole(const FactoryTables& tables, FactoryTables::BuildingBlockType type,
                           Role role)
{
    const auto entries = tables.entries(type);
    m_isPlain = m_isPlain && !entries.isEmpty();
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
        const char16_t letter = entry.key().size() == 1 ? entry.key().front().unicode() : u'\0';
        if (!isPlainCharacter(letter) || m_roles[letter] != Role::None) {
            m_isPlain = false;
            continue;
        }
        m_roles[letter] = role;
        m_masses[letter] = massesOf(*entry);
    }
}

/// A nucleotide that names no sugar has the usual one, and so has one in front of another that
/// names no linkage.
OligoLetters::Step OligoLetters::stepFrom(State state, std::size_t letter) const
{
    const Role role = m_roles[letter];
    const bool isBehindUnit = state == BehindBase || state == BehindLinkage;
    const bool startsUnit = isBehindUnit || state == Start || state == BehindMark;
    Masses masses = m_masses[letter];
    if (state == Start && role != Role::FivePrimeMark)
        masses += m_unmarkedFivePrime;
    if (state == BehindBase && (role == Role::Sugar || role == Role::Base))
        masses += m_unnamedLinkage;
    if (state != BehindSugar && role == Role::Base)
        masses += m_unnamedSugar;

    if (role == Role::FivePrimeMark && state == Start)
        return {masses, BehindMark};
    if (role == Role::Sugar && startsUnit)
        return {masses, BehindSugar};
    if (role == Role::Base && (startsUnit || state == BehindSugar))
        return {masses, BehindBase};
    if (role == Role::Linkage && isBehindUnit)
        return {masses, BehindLinkage};
    if (role == Role::ThreePrimeMark && isBehindUnit)
        return {masses, Closed};
    return {};
}

OligoLetters::Reading OligoLetters::read(QStringView text) const
{
    if (text.size() > mostPlainMasses) {
        MassSum sum;
        Reading reading = follow(text, [&sum](const Masses& masses) { sum.add(masses); });
        reading.masses = sum.value();
        return reading;
    }
    Masses sum;
    Reading reading = follow(text, [&sum](const Masses& masses) { sum += masses; });
    reading.masses = sum;
    return reading;
}

template <typename Add>
OligoLetters::Reading OligoLetters::follow(QStringView text, const Add& add) const
{
    Reading reading;
    State state = Start;
    for (; reading.end < text.size(); ++reading.end) {
        const Step& step = m_steps[state][index(text[reading.end])];
        if (step.next == Stuck)
            return reading;
        add(step.masses);
        state = step.next;
    }
    if (state == BehindBase || state == BehindLinkage)
        add(m_unmarkedThreePrime);
    reading.isWhole = state == BehindBase || state == BehindLinkage || state == Closed;
    return reading;
}

} // namespace ions
