#pragma once

#include "AnyStructure.h"
#include "ClipRanges.h"

#include <array>

/// \file
/// Chains of letters and rules that cut them, by the choices of a source as in AnySteps.h. Each
/// expression comes with a matcher written by hand, which reads in the place of the engine.

namespace anyClips {

struct Pattern
{
    QString text;
    clipRanges::Matcher match;
};

inline clipRanges::Matcher oneOf(const QString& set)
{
    return [set](const QString& text, qsizetype at) {
        return at < text.size() && set.contains(text[at]) ? 1 : -1;
    };
}

inline int lysineWithoutProline(const QString& text, qsizetype at)
{
    return text.mid(at).startsWith(u'K') && !text.mid(at + 1).startsWith(u'P') ? 1 : -1;
}

inline int startOfText(const QString&, qsizetype at)
{
    return at == 0 ? 0 : -1;
}

inline int nowhere(const QString&, qsizetype)
{
    return -1;
}

inline const std::array<Pattern, 8>& patterns()
{
    using clipRanges::plainText;
    static const std::array<Pattern, 8> list = {
        {{QStringLiteral("K"), plainText(QStringLiteral("K"))},
         {QStringLiteral("[KR]"), oneOf(QStringLiteral("KR"))},
         {QStringLiteral("AK"), plainText(QStringLiteral("AK"))},
         {QStringLiteral("KK"), plainText(QStringLiteral("KK"))},
         {QStringLiteral("K(?!P)"), lysineWithoutProline},
         {QStringLiteral("^"), startOfText},
         {QStringLiteral("x*"), plainText(QString())},
         {QStringLiteral("["), nowhere}}};
    return list;
}

/// The texts of rules, and the same rules by matchers.
struct Rules
{
    QStringList before;
    QStringList after;
    QList<clipRanges::Rule> byMatchers;

    void add(const QString& beforeText, const QString& afterText)
    {
        before.append(beforeText);
        after.append(afterText);
    }

    chem::ClipOptions options() const
    {
        return chem::ClipOptions::createClipByResidue(before, after);
    }
};

template <typename Choices>
void addAnyRule(Choices* choices, Rules* rules)
{
    const int kind = choices->below(5);
    const auto& [text, match] =
        patterns().at(static_cast<std::size_t>(choices->below(int(patterns().size()))));
    if (kind == 0) {
        rules->add(QString(), QString());
    } else if (kind == 1) {
        rules->add(QString(), text);
        rules->byMatchers.append({match, false, QString()});
    } else {
        const std::array<QString, 4> afters = {QString(), QStringLiteral("K"), QStringLiteral("P"),
                                               QStringLiteral("AK")};
        const QString& after = afters.at(static_cast<std::size_t>(choices->below(4)));
        rules->add(text, after);
        rules->byMatchers.append({match, true, after});
    }
}

template <typename Choices>
Rules anyRules(Choices* choices)
{
    Rules rules;
    for (int count = choices->below(4); count > 0; --count)
        addAnyRule(choices, &rules);
    return rules;
}

/// Up to three texts of up to eleven letters that the patterns know.
template <typename Choices>
QStringList anyTexts(Choices* choices)
{
    return anyStructure::listOf(choices->below(4), [choices] {
        QString text;
        for (int size = choices->below(12); size > 0; --size)
            text += QStringLiteral("AKRP")[choices->below(4)];
        return text;
    });
}

inline chem::MoleculeEntity moleculeOfTexts(const QStringList& texts)
{
    QList<chem::Chain> chains;
    for (const QString& text : texts)
        chains.append(smallMolecules::letterChain(text));
    return smallMolecules::moleculeOf(chains);
}

/// The ranges that these rules give on a molecule of these texts.
inline QList<clipRanges::Range> rangesByMatchers(const Rules& rules, const QStringList& texts)
{
    QList<clipRanges::Range> ranges;
    for (int chain = 0; chain < texts.size(); ++chain) {
        ranges.append({chain, 0, static_cast<int>(texts[chain].size()) + 1});
        for (const clipRanges::Rule& rule : rules.byMatchers)
            ranges += clipRanges::cuts(rule, texts[chain], chain);
    }
    return ranges;
}

} // namespace anyClips
