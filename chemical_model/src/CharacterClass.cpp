#include "CharacterClass.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace chem {

namespace {

bool isBracket(QChar character)
{
    return character == u'[' || character == u']';
}

/// Whether a class of this inside looks like `[.x.]`, `[:x:]` or `[=x=]`, which the engine refuses.
bool looksLikePosixName(QStringView text)
{
    const QStringView openers = u".:=";
    return text.size() > 1 && openers.contains(text.front()) && text.front() == text.back();
}

/// Whether nothing but escaped brackets means more than itself. A backslash is never the last
/// character of a self-contained text.
bool isPlain(QStringView text)
{
    if (text.startsWith(u'^') || text.contains(u'-') || looksLikePosixName(text) ||
        !text.isValidUtf16())
        return false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != u'\\')
            continue;
        ++i; // the escaped character
        if (!isBracket(text[i]))
            return false;
    }
    return true;
}

std::vector<char32_t> plainCharacters(const QString& text)
{
    std::vector<char32_t> characters;
    for (const uint character : text.toUcs4()) {
        if (character != U'\\') // escapes the bracket behind it
            characters.push_back(character);
    }
    return characters;
}

} // namespace

bool CharacterClass::isSelfContained(QStringView text)
{
    if (text.isEmpty() || text == u'^')
        return false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (isBracket(text[i]))
            return false;
        if (text[i] != u'\\')
            continue;
        ++i; // the escaped character
        // A quotation and a control character may take the closing bracket along.
        if (i == text.size() || text[i] == u'Q' || text[i] == u'E' || text[i] == u'c')
            return false;
    }
    return true;
}

CharacterClass::CharacterClass(const QString& text)
{
    if (isPlain(text)) {
        m_characters = plainCharacters(text);
        return;
    }
    m_form = Form::Special;
    m_expression.setPattern(u'[' + text + u']');
}

bool CharacterClass::holds(char32_t character) const
{
    return m_expression.match(QString::fromUcs4(&character, 1)).hasMatch();
}

} // namespace chem
