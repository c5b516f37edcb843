#include "search/PeptideForms.h"

#include <bit>

namespace tool {

namespace {

bool isResidueRule(const Rule& rule, char16_t letter)
{
    return rule.position == RulePosition::Anywhere && rule.takes(letter);
}

/// Tells whether a rule takes the left end of a peptide, or the right one.
bool takesEnd(const Rule& rule, const PeptideContext& peptide, bool isLeft)
{
    if (isLeft ? !rule.isLeft() : !rule.isRight())
        return false;
    const bool isProteinEnd = isLeft ? peptide.isProteinStart : peptide.isProteinEnd;
    return rule.takes(isLeft ? peptide.letters.front() : peptide.letters.back()) &&
           (!rule.isOfProtein() || isProteinEnd);
}

} // namespace

PeptideForms::PeptideForms(const Rules* rules)
    : m_rules(rules)
    , m_counts(rules->variable.size())
{
    for (const auto* list : {&rules->variable, &rules->fixed}) {
        for (const Rule& rule : *list)
            m_masses.push_back(rule.mass);
    }
    m_fixedLetter.fill(noRule);
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter) {
        for (std::size_t i = 0; i < rules->variable.size(); ++i) {
            if (isResidueRule(rules->variable[i], letter))
                m_ofLetter[letter] |= 1U << i;
        }
        for (std::size_t i = rules->fixed.size(); i-- > 0;) { // the first one counts
            if (isResidueRule(rules->fixed[i], letter))
                m_fixedLetter[letter] = RuleIndex(rules->variable.size() + i);
        }
    }
}

void PeptideForms::layOut(const PeptideContext& peptide)
{
    const auto size = std::size_t(peptide.letters.size());
    m_places.assign(size + 2, noRule);
    m_open.clear();
    m_available.assign(m_rules->variable.size(), 0);
    m_mass = peptide.mass;
    layOutEnd(peptide, 0);
    for (std::size_t i = 0; i < size; ++i) {
        const char16_t letter = peptide.letters[qsizetype(i)].unicode() & 127;
        const RuleIndex fixed = m_fixedLetter[letter];
        m_places[i + 1] = fixed;
        if (fixed != noRule)
            m_mass += massOf(fixed);
        else if (m_ofLetter[letter] != 0)
            open(i + 1, m_ofLetter[letter]);
    }
    layOutEnd(peptide, size + 1);
}

void PeptideForms::layOutEnd(const PeptideContext& peptide, std::size_t place)
{
    for (std::size_t i = 0; i < m_rules->fixed.size(); ++i) {
        if (takesEnd(m_rules->fixed[i], peptide, place == 0)) {
            m_places[place] = RuleIndex(m_rules->variable.size() + i);
            m_mass += massOf(m_places[place]);
            return;
        }
    }
    quint32 rules = 0;
    for (std::size_t i = 0; i < m_rules->variable.size(); ++i) {
        if (takesEnd(m_rules->variable[i], peptide, place == 0))
            rules |= 1U << i;
    }
    if (rules != 0)
        open(place, rules);
}

void PeptideForms::open(std::size_t place, quint32 rules)
{
    m_open.push_back({place, rules});
    for (; rules != 0; rules &= rules - 1)
        ++m_available[std::size_t(std::countr_zero(rules))];
}

} // namespace tool
