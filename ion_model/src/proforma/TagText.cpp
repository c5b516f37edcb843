#include "proforma/TagText.h"

#include "proforma/AsciiLetters.h"
#include "proforma/FormulaText.h"
#include "proforma/GlycanText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Failure = std::optional<Error>;

/// A word in front of a colon, and what it makes of the tag.
struct Prefix
{
    std::u16string_view word; ///< As canonical text spells it.
    TagKind kind;
    TagVocabulary vocabulary;
};

constexpr std::array prefixes = {
    Prefix{u"U", TagKind::Name, TagVocabulary::Unimod},
    Prefix{u"M", TagKind::Name, TagVocabulary::PsiMod},
    Prefix{u"R", TagKind::Name, TagVocabulary::Resid},
    Prefix{u"X", TagKind::Name, TagVocabulary::Xlmod},
    Prefix{u"G", TagKind::Name, TagVocabulary::Gnome},
    Prefix{u"UNIMOD", TagKind::Accession, TagVocabulary::Unimod},
    Prefix{u"MOD", TagKind::Accession, TagVocabulary::PsiMod},
    Prefix{u"RESID", TagKind::Accession, TagVocabulary::Resid},
    Prefix{u"XLMOD", TagKind::Accession, TagVocabulary::Xlmod},
    Prefix{u"GNO", TagKind::Accession, TagVocabulary::Gnome},
    Prefix{u"Obs", TagKind::Mass, TagVocabulary::Observed},
    Prefix{u"Formula", TagKind::Formula, TagVocabulary::None},
    Prefix{u"Glycan", TagKind::Glycan, TagVocabulary::None},
    Prefix{u"INFO", TagKind::Info, TagVocabulary::None},
};

constexpr qsizetype longestPrefix = 7;

/// The prefix that comes next, with its colon; null if there is none.
const Prefix* prefixAt(const TextCursor& cursor)
{
    const QStringView rest = cursor.rest();
    const QStringView start = rest.first(std::min(rest.size(), longestPrefix + 1));
    const qsizetype colon = start.indexOf(u':');
    if (colon <= 0)
        return nullptr;
    const QStringView word = start.first(colon);
    const auto* const prefix =
        std::find_if(prefixes.begin(), prefixes.end(),
                     [word](const Prefix& known) { return isSameWord(word, known.word); });
    return prefix == prefixes.end() ? nullptr : prefix;
}

bool atSign(const TextCursor& cursor)
{
    return cursor.peek() == u'+' || cursor.peek() == u'-';
}

/// Counts the brackets that open and close inside a name.
class Nesting
{
public:
    explicit Nesting(char16_t closing)
        : m_closing(closing)
    {
    }

    bool isOutside() const { return m_square == 0 && m_curly == 0; }

    /// Whether a name may go on with this character.
    bool isInside(char16_t c)
    {
        if (c == u'[')
            ++m_square;
        else if (c == u']')
            return --m_square >= 0;
        else if (c == u'{' && m_closing == u'}')
            ++m_curly;
        else if (c == u'}' && m_closing == u'}')
            return --m_curly >= 0;
        return c != u'|' && c != u'#';
    }

private:
    char16_t m_closing;
    qsizetype m_square = 0;
    qsizetype m_curly = 0; ///< Counts where braces close the tag.
};

/// A name or remark: up to the end of the tag, with brackets in it that close.
Failure takeText(TextCursor* cursor, char16_t closing, QString* text)
{
    const QStringView rest = cursor->rest();
    const qsizetype start = cursor->position();
    Nesting nesting(closing);
    while (!cursor->atEnd()) {
        const char16_t c = cursor->peek();
        if (nesting.isOutside() && (c == closing || c == u'|' || c == u'#'))
            break;
        if (!nesting.isInside(c))
            return cursor->expected(u"the end of the brackets in this name"_s);
        if (Failure failure = takeGraphic(cursor))
            return failure;
    }
    *text = rest.first(cursor->position() - start).toString();
    return {};
}

Failure takeName(TextCursor* cursor, char16_t closing, QString* text)
{
    const TextCursor start = *cursor;
    Failure failure = takeText(cursor, closing, text);
    if (!failure && text->isEmpty())
        return start.expected(u"a modification: its name, accession, formula, glycan or mass"_s);
    return failure;
}

/// A number without sign, its digits kept.
Failure takeDigits(TextCursor* cursor)
{
    if (!cursor->atDigit())
        return cursor->expected(u"a digit"_s);
    while (cursor->atDigit())
        cursor->skip();
    return {};
}

Failure takeMass(TextCursor* cursor, QString* text)
{
    const TextCursor start = *cursor;
    if (!atSign(*cursor))
        return cursor->expected(u"\"+\" or \"-\" and a mass"_s);
    cursor->skip();
    Failure failure = takeDecimal(cursor);
    if (failure)
        return failure;
    *text = start.rest().first(cursor->position() - start.position()).toString();
    if (!std::isfinite(text->toDouble()))
        return Error{u"this mass is too large"_s, start.position()};
    return {};
}

/// A number, which leading zeros do not change, or for two vocabularies letters and digits.
Failure takeAccession(TextCursor* cursor, Tag* tag)
{
    const bool isNumber =
        tag->vocabulary != TagVocabulary::Resid && tag->vocabulary != TagVocabulary::Gnome;
    if (isNumber) {
        while (cursor->peek() == u'0' && cursor->rest().size() > 1 && cursor->rest()[1] >= u'0' &&
               cursor->rest()[1] <= u'9') {
            cursor->skip();
        }
    }
    const TextCursor start = *cursor;
    while (isNumber ? cursor->atDigit() : isLetterOrDigit(cursor->peek()))
        cursor->skip();
    tag->text = start.rest().first(cursor->position() - start.position()).toString();
    if (tag->text.isEmpty())
        return cursor->expected(isNumber ? u"the number of an accession"_s
                                         : u"the letters and digits of an accession"_s);
    return {};
}

Failure takeFormulaTag(TextCursor* cursor, Tag* tag)
{
    Parsed<ChargedFormula> formula = takeChargedFormula(cursor);
    if (!formula)
        return formula.error();
    tag->formula = *std::move(formula);
    return {};
}

Failure takeGlycanTag(TextCursor* cursor, Tag* tag)
{
    Parsed<std::vector<GlycanPart>> glycan = takeGlycan(cursor);
    if (!glycan)
        return glycan.error();
    tag->glycan = *std::move(glycan);
    return {};
}

Failure takeContent(TextCursor* cursor, char16_t closing, Tag* tag)
{
    switch (tag->kind) {
    case TagKind::Name:
        return takeName(cursor, closing, &tag->text);
    case TagKind::Accession:
        return takeAccession(cursor, tag);
    case TagKind::Formula:
        return takeFormulaTag(cursor, tag);
    case TagKind::Glycan:
        return takeGlycanTag(cursor, tag);
    case TagKind::Mass:
        return takeMass(cursor, &tag->text);
    case TagKind::Info:
        return takeText(cursor, closing, &tag->text);
    }
    Q_UNREACHABLE();
}

/// What may come behind a tag of this kind, for a message.
QString continuationOf(TagKind kind)
{
    switch (kind) {
    case TagKind::Formula:
        return u"an element, a count, a charge such as \":z+1\", "_s;
    case TagKind::Mass:
        return u"a digit, "_s;
    case TagKind::Accession:
        return u"a digit of the accession, "_s;
    default:
        return {};
    }
}

} // namespace

std::optional<Error> takeGraphic(TextCursor* cursor)
{
    const QStringView rest = cursor->rest();
    const QChar c = rest.front();
    if (c.unicode() >= u' ' && c.unicode() < u'\x7f') {
        cursor->skip();
        return {};
    }
    const bool isPair = c.isHighSurrogate() && rest.size() > 1 && rest[1].isLowSurrogate();
    const auto category = c.category();
    const bool isGraphic =
        isPair || (category != QChar::Other_Control && !c.isSurrogate() &&
                   category != QChar::Separator_Line && category != QChar::Separator_Paragraph);
    if (!isGraphic)
        return cursor->expected(u"a printable character"_s);
    cursor->skip(isPair ? 2 : 1);
    return {};
}

std::optional<Error> takeDecimal(TextCursor* cursor)
{
    Failure failure = takeDigits(cursor);
    if (!failure && cursor->take(u'.'))
        failure = takeDigits(cursor);
    return failure;
}

std::optional<Error> takeTag(TextCursor* cursor, char16_t closing, Tag* tag)
{
    tag->position = {cursor->position()};
    if (const Prefix* prefix = prefixAt(*cursor)) {
        tag->kind = prefix->kind;
        tag->vocabulary = prefix->vocabulary;
        cursor->skip(qsizetype(prefix->word.size()) + 1);
    }
    if (tag->kind == TagKind::Name && atSign(*cursor))
        tag->kind = TagKind::Mass;
    if (Failure failure = takeContent(cursor, closing, tag))
        return failure;
    const char16_t next = cursor->peek();
    if (!cursor->atEnd() && (next == u'|' || next == u'#' || next == closing))
        return {};
    return cursor->expected(continuationOf(tag->kind) + u"\"|\" or \""_s + QChar(closing) + u'"');
}

QString tagText(const Tag& tag)
{
    const auto* const prefix =
        std::find_if(prefixes.begin(), prefixes.end(), [&tag](const Prefix& known) {
            const bool isCalled = known.kind == tag.kind ||
                                  (known.kind == TagKind::Name && tag.kind == TagKind::Mass);
            return isCalled && known.vocabulary == tag.vocabulary;
        });
    const QString start = prefix == prefixes.end() ? QString() : QStringView(prefix->word) + u":"_s;
    switch (tag.kind) {
    case TagKind::Formula:
        return start + formulaText(tag.formula);
    case TagKind::Glycan:
        return start + glycanText(tag.glycan);
    default:
        return start + tag.text;
    }
}

} // namespace ions
