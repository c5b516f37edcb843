#include "ByteReader.h"
#include "FragmentLists.h"
#include "sequences/OligoScanner.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cstddef>
#include <cstdint>

using namespace Qt::StringLiterals;

// A fuzzer that follows coverage sees nothing inside the engine of regular expressions, so bytes
// choose among pieces of alphabets and among the characters that those allow.

namespace {

using chem::OligoAlphabets;
using chem::OligoScanner;
using chem::OligoUnit;

const QStringList& alphabetPieces()
{
    static const QStringList pieces = {u"A"_s,     u"C"_s,       u"a"_s,   u"+"_s,
                                       u"."_s,     u"1"_s,       u"\\["_s, u"\\]"_s,
                                       u"{"_s,     u"}"_s,       u"*"_s,   u"é"_s,
                                       u"😀"_s,     u"%2"_s,      u" "_s,   u"a-c"_s,
                                       u"!-~"_s,   u"^"_s,       u"-"_s,   u"\\d"_s,
                                       u"\\S"_s,   u"\\x{41}"_s, u"\\n"_s, u"z-a"_s,
                                       u"\\\\"_s,  u"\\"_s,      u"["_s,   u"]"_s,
                                       u"\\Q"_s,   u"\\E"_s,     u"\\c"_s, u"[:alpha:]"_s,
                                       u"\\\\]"_s, u"(?:"_s,     u")"_s,   QString(QChar(0xd83d)),
                                       u"😀-😎"_s,   u":"_s,       u"="_s,   QString(QChar(0xde00))};
    return pieces;
}

QString readAlphabet(ByteReader* bytes)
{
    const int pieces = static_cast<int>(alphabetPieces().size());
    QString alphabet;
    for (int count = bytes->below(4); count > 0; --count)
        alphabet += alphabetPieces()[bytes->below(pieces)];
    return alphabet;
}

QString readText(const QString& characters, ByteReader* bytes)
{
    QString text;
    while (!bytes->atEnd())
        text += characters[bytes->below(static_cast<int>(characters.size()))];
    return text;
}

void requireSameUnits(const OligoScanner& scanner, const OligoAlphabets& alphabets,
                      const QString& body)
{
    const QRegularExpression expression(chem::oligoUnitExpression(alphabets));
    QRegularExpressionMatchIterator expected;
    if (expression.isValid())
        expected = expression.globalMatch(body);
    for (const OligoUnit& unit : scanner.units(body)) {
        require(expected.hasNext(), "no unit too many");
        const QRegularExpressionMatch match = expected.next();
        require(unit.text == match.captured(0) && unit.ribose == match.captured(1) &&
                    unit.base == match.captured(3) && unit.number == match.captured(4) &&
                    unit.phosphates == match.captured(5),
                "units are split as the expression splits them");
    }
    require(!expected.hasNext(), "no unit too few");
}

/// The scanner must tell what the expressions tell, for any alphabets.
void compareWithExpressions(ByteReader bytes)
{
    OligoAlphabets alphabets;
    for (QString* alphabet : {&alphabets.fivePrimeMarks, &alphabets.riboses, &alphabets.nucleobases,
                              &alphabets.phosphates, &alphabets.threePrimeMarks})
        *alphabet = readAlphabet(&bytes);
    const QString characters = u"A12.+-\n"_s + alphabets.fivePrimeMarks + alphabets.riboses +
                               alphabets.nucleobases + alphabets.phosphates +
                               alphabets.threePrimeMarks;
    // The engine's time doubles with each digit that it can split in two.
    constexpr qsizetype bearableLength = 16;
    const QString text = readText(characters, &bytes).left(bearableLength);

    const OligoScanner scanner(alphabets);
    const QRegularExpression expression(chem::oligoFullExpression(alphabets));
    const QRegularExpressionMatch match =
        expression.isValid() ? expression.match(text) : QRegularExpressionMatch();
    const auto parts = scanner.split(text);
    require(scanner.matches(text) == match.hasMatch(), "validity is the expression's");
    require(parts.has_value() == match.hasMatch(), "what is valid is split");
    if (!parts)
        return;
    require(parts->fivePrimeMark == match.captured(1) && parts->body == match.captured(2) &&
                parts->threePrimeMark == match.captured(6),
            "marks and body are the expression's");
    requireSameUnits(scanner, alphabets, match.captured(2));
}

/// All entries must agree about one text of the usual letters.
void readUsualText(ByteReader bytes)
{
    const auto factory = chem::defaultChemicalFactory();
    const QString text = readText(u"ACGQTUACGTrdmef+-.*0123456789[]{}\n X"_s, &bytes);
    QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
    chem::NamedMolecule fivePrime;
    chem::NamedMolecule threePrime;
    const bool isRead =
        factory->parseNucleotideSequence(text, &nucleotides, &fivePrime, &threePrime);
    require(isRead == factory->isValidOligoSequence(text), "what is valid is read");
    require(isRead == !nucleotides.isEmpty(), "what is read has nucleotides");

    const auto complex = factory->constructLinearOligoComplex(text);
    // Blanks and line feeds are no obstacle to a complex.
    require(complex || !isRead, "what is read has a complex");
    if (!complex)
        return;
    const qsizetype size = complex->residues.size() - 2;
    require(flatFragments(*complex).size() == 8 * size + std::max<qsizetype>(0, size - 2),
            "eight ions for each nucleotide and a-B inside");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ByteReader bytes(data, size);
    compareWithExpressions(bytes);
    readUsualText(bytes);
    return 0;
}
