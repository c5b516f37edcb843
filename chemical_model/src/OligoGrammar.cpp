#include "ChemicalFactory.h"
#include "OligoParts.h"
#include "OligoScanner.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace chem {

namespace {

/// A mass in place of a base. It brings a group of its own, which the numbers of the groups behind
/// it allow for.
const QRegularExpression NumberPattern(u"([-+]?[0-9]*\\.?[0-9]+)"_s);

/// One nucleotide with its marks, as older programs wrote it. Kept beside the generated grammar,
/// which alone is in force.
[[maybe_unused]] const QRegularExpression
    fixedNucleotidePattern(u"([\\[{]?)([a-z+]?)([A-Z])([^a-zA-Z0-9_+\\[\\]{}]?)([\\]}]?)"_s);

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

// The templates are filled in one go, so that a key such as "%2" stays plain text.

QString oligoUnitExpression(const OligoAlphabets& alphabets)
{
    return u"([%1]?)(([%2])|%4)([%3]*)"_s.arg(alphabets.riboses, alphabets.nucleobases,
                                              alphabets.phosphates, NumberPattern.pattern());
}

QString oligoFullExpression(const OligoAlphabets& alphabets)
{
    return u"^([%1]?)(([%2]?([%3]|%5)[%4]*)+)([%6]?)$"_s.arg(
        alphabets.fivePrimeMarks, alphabets.riboses, alphabets.nucleobases, alphabets.phosphates,
        NumberPattern.pattern(), alphabets.threePrimeMarks);
}

OligoAlphabets ChemicalFactory::oligoAlphabets() const
{
    return {alphabetOf(fivePrimeTerminals()), alphabetOf(riboses()), alphabetOf(nucleobases()),
            alphabetOf(phosphates()), alphabetOf(threePrimeTerminals())};
}

QRegularExpression ChemicalFactory::generateFullOligoRegex() const
{
    return QRegularExpression(oligoFullExpression(oligoAlphabets()));
}

QRegularExpression ChemicalFactory::generateOligoSequenceRegex() const
{
    return QRegularExpression(oligoUnitExpression(oligoAlphabets()));
}

bool ChemicalFactory::isValidOligoSequence(const QString& sequence) const
{
    QStringView rest = sequence;
    while (true) {
        const qsizetype comma = rest.indexOf(u',');
        if (!oligoScanner().matches(comma < 0 ? rest : rest.first(comma)))
            return false;
        if (comma < 0)
            return true;
        rest = rest.sliced(comma + 1);
    }
}

void ChemicalFactory::prepareOligoReader()
{
    m_oligoScanner = std::make_shared<OligoScanner>(oligoAlphabets());
    m_oligoParts = makeOligoParts();
}

std::shared_ptr<const OligoParts> ChemicalFactory::makeOligoParts() const
{
    return std::make_shared<OligoParts>(
        OligoParts::Blocks{LetterTable(riboses()), LetterTable(nucleobases()),
                           LetterTable(phosphates()), LetterTable(fivePrimeTerminals()),
                           LetterTable(threePrimeTerminals()), defaultRibose, defaultPhosphate},
        OligoSites::Pieces{hydrogen, hydroxyl, oxygen, hydrogenPair});
}

} // namespace chem
