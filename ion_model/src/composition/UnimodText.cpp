#include "Composition.h"
#include "composition/AtomSums.h"
#include "composition/Elements.h"
#include "support/TextCursor.h"

#include <QLatin1StringView>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

struct Group
{
    const char* name;
    const char* formula;
};

/// The groups of Unimod's compositions: sugars as residues, the others as what they add in place of
/// a hydrogen.
constexpr std::array groups = {
    Group{"Hex", "C6H10O5"}, Group{"HexNAc", "C8H13NO5"}, Group{"dHex", "C6H10O4"},
    Group{"HexA", "C6H8O6"}, Group{"HexN", "C6H11NO4"},   Group{"Hep", "C7H12O6"},
    Group{"Pent", "C5H8O4"}, Group{"NeuAc", "C11H17NO8"}, Group{"NeuGc", "C11H17NO9"},
    Group{"Kdn", "C9H14O8"}, Group{"Me", "CH2"},          Group{"Ac", "C2H2O"},
    Group{"Sulf", "SO3"},    Group{"Water", "H2O"},
};

bool isLetter(char16_t c)
{
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

QStringView takeLetters(TextCursor& cursor)
{
    const QStringView rest = cursor.rest();
    const auto end =
        std::find_if(rest.begin(), rest.end(), [](QChar c) { return !isLetter(c.unicode()); });
    const QStringView letters = rest.first(end - rest.begin());
    cursor.skip(letters.size());
    return letters;
}

/// What one name stands for: a group, an element, or an isotope where a mass number precedes it.
Parsed<Composition> takeName(TextCursor& cursor)
{
    const qsizetype start = cursor.position();
    int massNumber = 0;
    if (cursor.atDigit()) {
        const Parsed<int> number = cursor.takeNumber();
        if (!number)
            return number.error();
        massNumber = *number;
    }
    const qsizetype nameStart = cursor.position();
    const QStringView name = takeLetters(cursor);
    if (massNumber == 0 && nameStart == start) {
        const auto group = std::find_if(groups.begin(), groups.end(), [name](const Group& g) {
            return name == QLatin1StringView(g.name);
        });
        if (group != groups.end())
            return Composition::read(QString::fromLatin1(group->formula));
    }
    const Atom element = Atom::element(name);
    if (element.atomicNumber == 0)
        return Error{u"expected an element, an isotope such as 13C or a group such as HexNAc"_s,
                     nameStart};
    if (nameStart != start &&
        (massNumber < element.atomicNumber || massNumber > 3 * element.atomicNumber))
        return Error{u"expected a mass number that "_s + element.symbol() + u" can have"_s, start};
    return Composition({element.atomicNumber, quint16(massNumber)});
}

Parsed<int> takeCount(TextCursor& cursor)
{
    if (!cursor.take(u'('))
        return 1;
    const Parsed<int> count = cursor.takeSignedCount();
    if (count && !cursor.take(u')'))
        return cursor.expected(u"\")\""_s);
    return count;
}

} // namespace

Parsed<Composition> Composition::readUnimod(QStringView text)
{
    TextCursor cursor(text);
    AtomSums sums;
    do {
        const qsizetype start = cursor.position();
        const Parsed<Composition> name = takeName(cursor);
        if (!name)
            return name.error();
        const Parsed<int> count = takeCount(cursor);
        if (!count)
            return count.error();
        sums.add(*name, *count, start);
    } while (cursor.take(u' '));
    if (!cursor.atEnd())
        return cursor.expected(u"a blank or the end"_s);
    return sums.total();
}

} // namespace ions
