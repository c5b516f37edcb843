#include "readers/NameText.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr qsizetype mostBytesOfACharacter = 4;

bool goesOn(char byte)
{
    return (quint8(byte) & 0xc0) == 0x80;
}

/// The bytes of the first character, or of what looks like one.
QByteArrayView firstCharacter(QByteArrayView bytes)
{
    qsizetype size = 1;
    while (size < bytes.size() && size < mostBytesOfACharacter && goesOn(bytes[size]))
        ++size;
    return bytes.first(size);
}

/// A mark of the order of bytes, which is for the start of a file, is a character here.
QString decoded(QByteArrayView bytes)
{
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    return decoder(bytes);
}

} // namespace

QString nameOf(QByteArrayView bytes)
{
    if (bytes.isValidUtf8())
        return decoded(bytes);
    QString name;
    while (!bytes.isEmpty()) {
        const QByteArrayView character = firstCharacter(bytes);
        if (character.isValidUtf8()) {
            name += decoded(character);
        } else {
            for (const char byte : character)
                name += u"%%1"_s.arg(quint8(byte), 2, 16, QLatin1Char('0')).toUpper();
        }
        bytes = bytes.sliced(character.size());
    }
    return name;
}

} // namespace tool
