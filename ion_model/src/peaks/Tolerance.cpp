#include "Tolerance.h"

#include "support/TextCursor.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

bool isOfNumber(QChar c)
{
    return (c >= u'0' && c <= u'9') || c == u'.';
}

} // namespace

Parsed<Tolerance> Tolerance::read(QStringView text)
{
    const auto end = std::find_if_not(text.begin(), text.end(), isOfNumber);
    const QStringView number = text.first(end - text.begin());
    bool isNumber = false;
    const double width = number.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(width))
        return Error{u"expected a number such as 10 or 0.02"_s, 0};
    TextCursor cursor(text);
    cursor.skip(number.size());
    cursor.take(u' ');
    if (cursor.rest().compare("ppm"_L1, Qt::CaseInsensitive) == 0)
        return ppm(width);
    if (cursor.rest().compare("Da"_L1, Qt::CaseInsensitive) == 0)
        return daltons(width);
    return cursor.expected(u"the unit, ppm or Da"_s);
}

} // namespace ions
