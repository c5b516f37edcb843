#include "proforma/ModificationText.h"

#include "proforma/AsciiLetters.h"
#include "proforma/TagText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Failure = std::optional<Error>;

/// Steps over a word, whatever its case.
bool takeWord(TextCursor* cursor, QStringView word)
{
    const QStringView rest = cursor->rest();
    if (rest.size() < word.size() || !isSameWord(rest.first(word.size()), word))
        return false;
    cursor->skip(word.size());
    return true;
}

/// Reads what stands between the brackets of one modification.
class ModificationReader
{
public:
    ModificationReader(TextCursor* cursor, ModificationBrackets brackets,
                       Modification* modification)
        : m_cursor(*cursor)
        , m_modification(*modification)
        , m_hasLabel(brackets == ModificationBrackets::Labelled)
        , m_closing(brackets == ModificationBrackets::Labile ? u'}' : u']')
    {
    }

    Failure read()
    {
        m_modification.position = {m_cursor.position()};
        m_cursor.skip();
        if (m_hasLabel && m_cursor.peek() == u'#')
            return readLabelAlone();
        Failure failure = readTag();
        while (!failure && m_cursor.take(u'|'))
            failure = readAlternative();
        return failure ? failure : close(u"\"|\" or "_s);
    }

private:
    Failure close(const QString& others)
    {
        if (m_cursor.take(m_closing))
            return {};
        return m_cursor.expected(others + u'"' + QChar(m_closing) + u'"');
    }

    Failure readLabelAlone()
    {
        Failure failure = readLabel();
        return failure ? failure : close({});
    }

    Failure readTag()
    {
        Failure failure = takeTag(&m_cursor, m_closing, &m_modification.tags.emplace_back());
        if (!failure && m_hasLabel && m_cursor.peek() == u'#')
            failure = readLabel();
        return failure;
    }

    Failure readAlternative()
    {
        if (takeWord(&m_cursor, u"Position:"))
            return readPositions();
        if (takeWord(&m_cursor, u"Limit:"))
            return readLimit();
        if (takeFlag(u"CoMKP"))
            return set(&m_modification.placement.isWithKnown);
        if (takeFlag(u"CoMUP"))
            return set(&m_modification.placement.isWithUnknown);
        return readTag();
    }

    /// A word that is all of an alternative. A label does not make a name of it: the label is
    /// written with the first description, and the word would be alone then.
    bool takeFlag(QStringView word)
    {
        const TextCursor start = m_cursor;
        if (!takeWord(&m_cursor, word))
            return false;
        const char16_t next = m_cursor.peek();
        const bool isAll = next == u'|' || next == m_closing || next == u'#';
        if (!isAll)
            m_cursor = start;
        return isAll;
    }

    static Failure set(bool* flag)
    {
        *flag = true;
        return {};
    }

    Failure readPositions()
    {
        do {
            const Parsed<PlaceRule> place = takePlace(&m_cursor);
            if (!place)
                return place.error();
            m_modification.placement.positions.push_back(*place);
        } while (m_cursor.take(u','));
        return atEndOfAlternative(u"\",\", "_s);
    }

    Failure readLimit()
    {
        const TextCursor start = m_cursor;
        const Parsed<int> limit = m_cursor.takeNumber();
        if (!limit)
            return limit.error();
        if (m_modification.placement.limit)
            return start.expected(u"one limit, not two"_s);
        m_modification.placement.limit = *limit;
        return atEndOfAlternative(u"a digit, "_s);
    }

    Failure atEndOfAlternative(const QString& others) const
    {
        if (m_cursor.peek() == u'|' || m_cursor.peek() == m_closing)
            return {};
        return m_cursor.expected(others + u"\"|\" or \""_s + QChar(m_closing) + u'"');
    }

    Failure readLabel()
    {
        const TextCursor start = m_cursor;
        ModificationLabel label;
        if (Failure failure = takeLabel(&label))
            return failure;
        const bool isFirst = m_modification.label.kind == ModificationLabel::None;
        if (!isFirst && m_modification.label != label)
            return start.expected(u"one label for a modification, not two"_s);
        m_modification.label = std::move(label);
        return {};
    }

    Failure takeLabel(ModificationLabel* label)
    {
        m_cursor.skip();
        const QStringView rest = m_cursor.rest();
        const auto end = std::find_if_not(rest.begin(), rest.end(), isLetterOrDigit);
        const QStringView word = rest.first(end - rest.begin());
        if (word.isEmpty())
            return m_cursor.expected(u"a label of letters and digits"_s);
        m_cursor.skip(word.size());
        if (isSameWord(word, u"BRANCH")) {
            label->kind = ModificationLabel::Branch;
            return {};
        }
        const bool isLink = word.size() > 2 && isSameWord(word.first(2), u"XL");
        label->kind = isLink ? ModificationLabel::CrossLink : ModificationLabel::Ambiguous;
        label->name = word.sliced(isLink ? 2 : 0).toString();
        return isLink ? Failure() : takeScore(&label->score);
    }

    Failure takeScore(QString* score)
    {
        if (!m_cursor.take(u'('))
            return {};
        const TextCursor start = m_cursor;
        if (m_cursor.peek() == u'-' || m_cursor.peek() == u'+')
            m_cursor.skip();
        if (Failure failure = takeDecimal(&m_cursor))
            return failure;
        *score = start.rest().first(m_cursor.position() - start.position()).toString();
        if (m_cursor.take(u')'))
            return {};
        return m_cursor.expected(u"a digit or \")\""_s);
    }

    TextCursor& m_cursor;
    Modification& m_modification;
    bool m_hasLabel;
    char16_t m_closing;
};

QString placementText(const PlacementRules& placement)
{
    QString text;
    if (!placement.positions.empty())
        text += u"|Position:"_s + placesText(placement.positions);
    if (placement.limit)
        text += u"|Limit:"_s + QString::number(*placement.limit);
    if (placement.isWithKnown)
        text += u"|CoMKP"_s;
    if (placement.isWithUnknown)
        text += u"|CoMUP"_s;
    return text;
}

} // namespace

std::optional<Error> takeModification(TextCursor* cursor, ModificationBrackets brackets,
                                      Modification* modification)
{
    return ModificationReader(cursor, brackets, modification).read();
}

Parsed<PlaceRule> takePlace(TextCursor* cursor)
{
    PlaceRule place;
    const char16_t capital = capitalOf(cursor->peek());
    if (capital == 0)
        return cursor->expected(u"a residue, \"N-term\" or \"C-term\""_s);
    cursor->skip();
    if ((capital != u'N' && capital != u'C') || !cursor->take(u'-')) {
        place.residue = capital;
        return place;
    }
    place.terminal = capital == u'N' ? PlaceRule::NTerm : PlaceRule::CTerm;
    for (const char16_t wanted : {u'T', u'E', u'R', u'M'}) {
        if (capitalOf(cursor->peek()) != wanted)
            return cursor->expected(u"\"term\" behind \"-\""_s);
        cursor->skip();
    }
    if (!cursor->take(u':'))
        return place;
    place.residue = capitalOf(cursor->peek());
    if (place.residue == 0)
        return cursor->expected(u"a residue"_s);
    cursor->skip();
    return place;
}

QString labelText(const ModificationLabel& label)
{
    switch (label.kind) {
    case ModificationLabel::None:
        return {};
    case ModificationLabel::CrossLink:
        return u"#XL"_s + label.name;
    case ModificationLabel::Branch:
        return u"#BRANCH"_s;
    case ModificationLabel::Ambiguous:
        break;
    }
    return u"#"_s + label.name +
           (label.score.isEmpty() ? QString() : u"("_s + label.score + u")"_s);
}

QString modificationText(const Modification& modification)
{
    QString text;
    for (const Tag& tag : modification.tags) {
        const bool isFirst = &tag == modification.tags.data();
        text += (isFirst ? QString() : u"|"_s) + tagText(tag);
        if (isFirst)
            text += labelText(modification.label);
    }
    if (modification.tags.empty())
        text += labelText(modification.label);
    return text + placementText(modification.placement);
}

QString placeText(const PlaceRule& place)
{
    const QString residue = place.residue == 0 ? QString() : QString(QChar(place.residue));
    if (place.terminal == PlaceRule::Anywhere)
        return residue;
    return (place.terminal == PlaceRule::NTerm ? u"N-term"_s : u"C-term"_s) +
           (residue.isEmpty() ? residue : u":"_s + residue);
}

QString placesText(const std::vector<PlaceRule>& places)
{
    QStringList texts;
    for (const PlaceRule& place : places)
        texts.append(placeText(place));
    return texts.join(u',');
}

} // namespace ions
