#include "support/TextCursor.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace ions {

Parsed<int> TextCursor::takeNumber()
{
    if (!atDigit())
        return expected(u"a number"_s);
    const qsizetype start = m_at;
    qint64 value = 0;
    for (; atDigit(); skip()) {
        if (value <= std::numeric_limits<int>::max())
            value = 10 * value + (peek() - u'0');
    }
    if (value > std::numeric_limits<int>::max())
        return Error{u"this number is too large, at most 2147483647 is expected"_s, start};
    return int(value);
}

Parsed<int> TextCursor::takeSignedCount()
{
    const bool isNegative = take(u'-');
    const qsizetype start = m_at;
    const Parsed<int> number = takeNumber();
    if (!number)
        return number.error();
    if (*number == 0)
        return Error{u"expected a count other than 0"_s, start};
    return isNegative ? -*number : *number;
}

Error TextCursor::expected(const QString& what) const
{
    return {u"expected "_s + what, m_at};
}

} // namespace ions
