#pragma once

#include "search/Rule.h"

#include <QString>
#include <QStringView>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace tool {

/// The rules of a search.
struct Rules
{
    std::vector<Rule> fixed;
    std::vector<Rule> variable;
    int mostVariable = 3; ///< Variable modifications that one form bears at most.
};

/// A peptide as a digest gives it, or its decoy.
struct PeptideContext
{
    QStringView letters;
    double mass = 0.0; ///< Unmodified and neutral.
    bool isProteinStart = false;
    bool isProteinEnd = false;
};

/// What a place bears: nothing, or a rule by its index, fixed ones behind the variable ones.
using RuleIndex = qint16;
inline constexpr RuleIndex noRule = -1;

/// The modified forms of peptides, without making more of them than are wanted.
///
/// Places are the left end (0), the residues (from 1) and the right end. First come the sums that
/// forms can weigh; only for those that a caller takes an interest in, the forms. Used for one
/// peptide after the other, it allocates nothing. Each thread needs one of its own.
class PeptideForms
{
public:
    explicit PeptideForms(const Rules* rules);

    /// Calls `isWanted(mass)` for each mass that forms of the peptide can have, and where it gives
    /// true `take(places)` for each form of that mass.
    template <typename IsWanted, typename Take>
    void visit(const PeptideContext& peptide, IsWanted&& isWanted, Take&& take)
    {
        layOut(peptide);
        visitSums(0, m_rules->mostVariable, m_mass, isWanted, take);
    }

    /// The mass that a place's rule adds; 0 for none.
    double massOf(RuleIndex rule) const { return rule < 0 ? 0.0 : m_masses[std::size_t(rule)]; }

private:
    /// A place that variable rules may take, one bit for each.
    struct OpenPlace
    {
        std::size_t place = 0;
        quint32 rules = 0;
    };

    void layOut(const PeptideContext& peptide);
    void layOutEnd(const PeptideContext& peptide, std::size_t place);
    void open(std::size_t place, quint32 rules);

    template <typename IsWanted, typename Take>
    void visitSums(std::size_t rule, int left, double mass, IsWanted& isWanted, Take& take)
    {
        while (rule < m_available.size() && m_available[rule] == 0)
            ++rule;
        if (rule == m_available.size()) {
            if (isWanted(mass))
                visitForms(0, take);
            return;
        }
        const int most = std::min(left, m_available[rule]);
        for (int count = 0; count <= most; ++count) {
            m_counts[rule] = count;
            m_countsSum += count;
            visitSums(rule + 1, left - count, mass + count * m_masses[rule], isWanted, take);
            m_countsSum -= count;
        }
        m_counts[rule] = 0;
    }

    /// Shares out the counted rules among the open places from `next` on.
    template <typename Take>
    void visitForms(std::size_t next, Take& take)
    {
        if (m_countsSum == 0) {
            take(std::as_const(m_places));
            return;
        }
        if (m_open.size() - next < std::size_t(m_countsSum))
            return;
        const OpenPlace& open = m_open[next];
        for (std::size_t rule = 0; rule < m_counts.size(); ++rule) {
            if (m_counts[rule] == 0 || ((open.rules >> rule) & 1U) == 0)
                continue;
            --m_counts[rule];
            --m_countsSum;
            m_places[open.place] = RuleIndex(rule);
            visitForms(next + 1, take);
            m_places[open.place] = noRule;
            ++m_counts[rule];
            ++m_countsSum;
        }
        visitForms(next + 1, take);
    }

    const Rules* m_rules;
    std::vector<double> m_masses;             ///< Of all rules.
    std::array<quint32, 128> m_ofLetter{};    ///< Variable rules that take a residue.
    std::array<RuleIndex, 128> m_fixedLetter; ///< The fixed rule that takes it.
    std::vector<RuleIndex> m_places;          ///< What each place bears in the form at hand.
    std::vector<OpenPlace> m_open;
    std::vector<int> m_available; ///< Places of each variable rule.
    std::vector<int> m_counts;    ///< Of each variable rule, those still to be placed.
    int m_countsSum = 0;
    double m_mass = 0.0; ///< With fixed modifications.
};

/// How many variable rules there may be: one bit each.
inline constexpr std::size_t mostVariableRules = 32;

} // namespace tool
