#include "proforma/GlycanText.h"

#include "proforma/AsciiLetters.h"
#include "proforma/FormulaText.h"
#include "tables/DataFile.h"

#include <algorithm>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Failure = std::optional<Error>;

/// The names of the notation, in the order of canonical text.
const std::vector<QString>& monosaccharideNames()
{
    static const std::vector<QString> names = [] {
        std::vector<QString> all;
        for (const QList<QString>& row : DataFile(u"monosaccharides.tsv"_s).rows())
            all.push_back(row.at(0));
        return all;
    }();
    return names;
}

/// A name of the notation and how a text may spell it.
struct Spelling
{
    QString text;
    QString name;
};

/// Each name as it is, and the sialic acid with the place of its acetyl group as well.
const std::vector<Spelling>& spellings()
{
    static const std::vector<Spelling> all = [] {
        std::vector<Spelling> list = {{u"Neu5Ac"_s, u"NeuAc"_s}};
        for (const QString& name : monosaccharideNames())
            list.push_back({name, name});
        return list;
    }();
    return all;
}

/// How many characters `text` and `name` have in common at their starts, whatever their case.
qsizetype commonLength(QStringView text, QStringView name)
{
    const qsizetype longest = std::min(text.size(), name.size());
    qsizetype length = 0;
    while (length < longest && isSameLetter(text[length].unicode(), name[length].unicode()))
        ++length;
    return length;
}

/// Part of a way through the text.
struct Step
{
    qsizetype start = -1; ///< Where it starts; -1 where no way leads.
    GlycanPart part;
};

class GlycanWays
{
public:
    explicit GlycanWays(const TextCursor& cursor)
        : m_start(cursor)
    {
    }

    /// Follows all ways; gives the length of the one that reaches the end of the glycan.
    Parsed<qsizetype> follow()
    {
        m_steps.resize(1);
        for (qsizetype at = 0; at < std::ssize(m_steps); ++at) {
            if (at > 0 && m_steps[std::size_t(at)].start < 0)
                continue;
            if (at > 0 && isEndAt(at))
                return at;
            if (Failure failure = extend(at))
                return *std::move(failure);
        }
        return refusal();
    }

    /// The parts of the way with this length, each with its place.
    std::vector<std::pair<qsizetype, GlycanPart>> parts(qsizetype length)
    {
        std::vector<std::pair<qsizetype, GlycanPart>> parts;
        for (qsizetype at = length; at > 0;) {
            Step& step = m_steps[std::size_t(at)];
            parts.emplace_back(m_start.position() + step.start, std::move(step.part));
            at = step.start;
        }
        std::reverse(parts.begin(), parts.end());
        return parts;
    }

private:
    bool isEndAt(qsizetype at) const
    {
        const QStringView rest = m_start.rest().sliced(at);
        return rest.isEmpty() || QStringView(u"]|#}").contains(rest.front());
    }

    Failure extend(qsizetype at)
    {
        TextCursor cursor = m_start;
        cursor.skip(at);
        if (cursor.peek() == u'{')
            return extendByFormula(at, cursor);
        for (const Spelling& spelling : spellings()) {
            const qsizetype common = commonLength(cursor.rest(), spelling.text);
            m_farthest = std::max(m_farthest, at + common);
            if (common < spelling.text.size())
                continue;
            TextCursor behind = cursor;
            behind.skip(common);
            if (Failure failure = reach(at, {spelling.name, {}, 1}, behind))
                return failure;
        }
        return {};
    }

    Failure extendByFormula(qsizetype at, TextCursor cursor)
    {
        cursor.skip();
        Parsed<ChargedFormula> formula = takeChargedFormula(&cursor);
        if (!formula)
            return formula.error();
        if (!cursor.take(u'}'))
            return cursor.expected(u"an element, a charge or \"}\""_s);
        return reach(at, {{}, *std::move(formula), 1}, cursor);
    }

    /// Notes the step up to `cursor`, the count behind it and blanks.
    Failure reach(qsizetype from, GlycanPart part, TextCursor cursor)
    {
        if (cursor.atDigit()) {
            const Parsed<int> count = cursor.takeNumber();
            if (!count)
                return count.error();
            part.count = *count;
        }
        while (cursor.peek() == u' ' || cursor.peek() == u'\t')
            cursor.skip();
        const auto at = std::size_t(cursor.position() - m_start.position());
        m_farthest = std::max(m_farthest, qsizetype(at));
        if (m_steps.size() <= at)
            m_steps.resize(at + 1);
        m_steps[at] = {from, std::move(part)};
        return {};
    }

    Error refusal() const
    {
        TextCursor end = m_start;
        end.skip(m_farthest);
        return end.expected(m_farthest == 0
                                ? u"a monosaccharide such as Hex, or a formula in braces"_s
                                : u"a monosaccharide, a count or the end of the tag"_s);
    }

    TextCursor m_start;
    std::vector<Step> m_steps; ///< By the place behind them, from the start of the glycan.
    qsizetype m_farthest = 0;  ///< Where the last way ends.
};

/// Where a part stands in canonical text: names by the table, then formulas.
std::size_t rankOf(const GlycanPart& part)
{
    const auto& names = monosaccharideNames();
    return part.name.isEmpty()
               ? names.size()
               : std::size_t(std::find(names.begin(), names.end(), part.name) - names.begin());
}

bool isSameKind(const GlycanPart& left, const GlycanPart& right)
{
    return left.name == right.name && left.formula == right.formula;
}

using PlacedPart = std::pair<qsizetype, GlycanPart>;

/// Sorts the parts into the order of canonical text.
void sortParts(std::vector<PlacedPart>* parts)
{
    std::vector<std::tuple<std::size_t, QString, std::size_t>> keys;
    for (std::size_t i = 0; i < parts->size(); ++i) {
        const GlycanPart& part = (*parts)[i].second;
        keys.emplace_back(rankOf(part), part.name.isEmpty() ? formulaText(part.formula) : QString(),
                          i);
    }
    std::sort(keys.begin(), keys.end());
    std::vector<PlacedPart> sorted;
    sorted.reserve(keys.size());
    for (const auto& [rank, text, index] : keys)
        sorted.push_back(std::move((*parts)[index]));
    *parts = std::move(sorted);
}

/// One part of each kind, with the counts of all.
Parsed<std::vector<GlycanPart>> merged(std::vector<PlacedPart> parts)
{
    sortParts(&parts);
    std::vector<GlycanPart> glycan;
    for (PlacedPart& placed : parts) {
        GlycanPart& part = placed.second;
        if (glycan.empty() || !isSameKind(glycan.back(), part)) {
            glycan.push_back(std::move(part));
            continue;
        }
        const qint64 sum = qint64(glycan.back().count) + part.count;
        if (sum > std::numeric_limits<int>::max())
            return Error{u"this makes more than 2147483647 monosaccharides of a kind, too large"_s,
                         placed.first};
        glycan.back().count = int(sum);
    }
    std::erase_if(glycan, [](const GlycanPart& part) { return part.count == 0; });
    return glycan;
}

} // namespace

Parsed<std::vector<GlycanPart>> takeGlycan(TextCursor* cursor)
{
    GlycanWays ways(*cursor);
    const Parsed<qsizetype> length = ways.follow();
    if (!length)
        return length.error();
    cursor->skip(*length);
    return merged(ways.parts(*length));
}

QString glycanText(const std::vector<GlycanPart>& glycan)
{
    if (glycan.empty())
        return u"Hex0"_s;
    QString text;
    for (const GlycanPart& part : glycan) {
        text += part.name.isEmpty() ? u"{"_s + formulaText(part.formula) + u"}"_s : part.name;
        if (part.count != 1)
            text += QString::number(part.count);
    }
    return text;
}

} // namespace ions
