#pragma once

#include <QString>
#include <QStringList>

/// The commands that answer something; `help` tells about them.
inline QStringList commandNames()
{
    using namespace Qt::StringLiterals;
    return {u"read"_s,     u"mass"_s,  u"ions"_s,     u"digest"_s,
            u"envelope"_s, u"match"_s, u"formulas"_s, u"search"_s};
}
