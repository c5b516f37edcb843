#pragma once

#include <QStringView>
#include <QtGlobal>

#include <array>
#include <optional>
#include <vector>

namespace ions {

/// Where an agent cuts, as classes of the letters around the cut: the two in front of it and the
/// two behind it. One look-up a letter, whatever the rule.
class LetterRule
{
public:
    /// Compiles a regular expression of look-behinds and look-aheads, plain and negated, each of
    /// one or two letters or classes of letters, with groups and alternatives, such as
    /// `(?<=[^DE])(?=[AFILMV][^P])`. Nothing for any other expression, and for one that comes to
    /// more than eight alternatives.
    static std::optional<LetterRule> compile(QStringView expression);

    /// Appends the places of `text` that the rule cuts, from 1 to its length less 1: a cut at 3 is
    /// between the third and the fourth letter.
    void appendCuts(QStringView text, std::vector<qsizetype>& cuts) const;

private:
    /// Each letter of ASCII, any other letter, and the place beyond an end of the text.
    static constexpr std::size_t letterCount = 130;

    /// For each letter a byte for each of the four places, from the farther one in front of the
    /// cut; in each byte a bit for each alternative, set where the letter cannot stand there.
    std::array<quint32, letterCount> m_misfits{};
};

} // namespace ions
