#include "sequences/OligoGrammar.h"

using namespace Qt::StringLiterals;

namespace chem {

namespace {

/// A mass in place of a base. It brings a group of its own, which the numbers of the groups behind
/// it allow for.
constexpr QStringView numberPattern = u"([-+]?[0-9]*\\.?[0-9]+)";

/// A key as part of a character class. Only brackets are escaped: ranges, negations and backslashes
/// keep their meaning.
QString escapeForCharacterClass(const QString& key)
{
    return key.simplified().replace(u'[', u"\\["_s).replace(u']', u"\\]"_s);
}

/// All keys of a dictionary, one after the other.
QString alphabetOf(const QMap<QString, NamedMolecule>& dictionary)
{
    QString alphabet;
    for (auto entry = dictionary.cbegin(); entry != dictionary.cend(); ++entry)
        alphabet += escapeForCharacterClass(entry.key());
    return alphabet;
}

} // namespace

OligoAlphabets alphabetsOf(const OligoBlocks& blocks)
{
    return {alphabetOf(blocks.fivePrimeTerminals), alphabetOf(blocks.riboses),
            alphabetOf(blocks.nucleobases), alphabetOf(blocks.phosphates),
            alphabetOf(blocks.threePrimeTerminals)};
}

// The templates are filled in one go, so that a key such as "%2" stays plain text.

QString oligoUnitExpression(const OligoAlphabets& alphabets)
{
    return u"([%1]?)(([%2])|%4)([%3]*)"_s.arg(alphabets.riboses, alphabets.nucleobases,
                                              alphabets.phosphates, numberPattern);
}

QString oligoFullExpression(const OligoAlphabets& alphabets)
{
    return u"^([%1]?)(([%2]?([%3]|%5)[%4]*)+)([%6]?)$"_s.arg(
        alphabets.fivePrimeMarks, alphabets.riboses, alphabets.nucleobases, alphabets.phosphates,
        numberPattern, alphabets.threePrimeMarks);
}

} // namespace chem
