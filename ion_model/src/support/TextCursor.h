#pragma once

#include "Parsed.h"

#include <QString>
#include <QStringView>

namespace ions {

/// Walks through a text and tells where it stands when something else was expected.
class TextCursor
{
public:
    explicit TextCursor(QStringView text)
        : m_text(text)
    {
    }

    bool atEnd() const { return m_at == m_text.size(); }
    qsizetype position() const { return m_at; }
    QStringView rest() const { return m_text.sliced(m_at); }

    /// The next character, or U+0000 at the end.
    char16_t peek() const { return atEnd() ? char16_t(0) : m_text[m_at].unicode(); }

    bool atDigit() const { return peek() >= u'0' && peek() <= u'9'; }

    void skip(qsizetype length = 1) { m_at += length; }

    /// Steps over `character` if it comes next.
    bool take(char16_t character)
    {
        if (atEnd() || peek() != character)
            return false;
        ++m_at;
        return true;
    }

    /// Steps over a run of digits and gives its value; Error without a digit, and for values beyond
    /// 2147483647, which are refused at their first digit.
    Parsed<int> takeNumber();

    /// Steps over an optional "-" and a run of digits whose value is not 0.
    Parsed<int> takeSignedCount();

    /// The refusal of what comes next: "expected " and what should stand there.
    Error expected(const QString& what) const;

private:
    QStringView m_text;
    qsizetype m_at = 0;
};

} // namespace ions
