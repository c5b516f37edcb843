#include "RandomTexts.h"
#include "TestPrinters.h"
#include "TestSeed.h"
#include "TextReaders.h"

#include <gtest/gtest.h>

#include <ostream>

/// \file
/// Every reader of the library against texts that are almost right, and texts that are nothing like
/// it: see ReaderLaws.h for what has to hold.

using namespace Qt::StringLiterals;

namespace readerLaws {

void PrintTo(const Reader& reader, std::ostream* stream)
{
    *stream << reader.name;
}

namespace {

class BadInput : public testing::TestWithParam<Reader>
{
protected:
    /// Checks a text and counts how it was taken.
    void check(const QString& text)
    {
        const Outcome outcome = GetParam().check(text);
        ++(outcome.isRead ? m_read : m_refused);
        if (outcome.brokenLaw)
            ADD_FAILURE() << outcome.brokenLaw << ": \"" << text.left(200).toStdString() << '"';
    }

    int read() const { return m_read; }
    int refused() const { return m_refused; }

private:
    int m_read = 0;
    int m_refused = 0;
};

INSTANTIATE_TEST_SUITE_P(Readers, BadInput, testing::ValuesIn(allReaders()),
                         [](const auto& reader) { return std::string(reader.param.name); });

template <typename List>
const auto& oneOf(std::mt19937& random, const List& list)
{
    return list[qsizetype(random() % std::size_t(list.size()))];
}

/// A piece of the notation, now and then any character, halves of surrogate pairs among them.
QString randomPiece(std::mt19937& random, const Reader& reader)
{
    return random() % 8 == 0 ? QString(QChar(char16_t(random() % 0x10000)))
                             : oneOf(random, reader.pieces);
}

/// The text with one piece put in, replaced, taken out, doubled or moved.
void mutate(QString& text, std::mt19937& random, const Reader& reader)
{
    const auto at = qsizetype(random() % std::size_t(text.size() + 1));
    const auto length = qsizetype(random() % 4);
    switch (random() % 5) {
    case 0:
        text.insert(at, randomPiece(random, reader));
        break;
    case 1:
        text.replace(at, length, randomPiece(random, reader));
        break;
    case 2:
        text.remove(at, 1 + length);
        break;
    case 3:
        text.insert(at, text.mid(at, 1 + length));
        break;
    default: {
        const QString moved = text.mid(at, 1 + length);
        text.remove(at, 1 + length);
        text.insert(qsizetype(random() % std::size_t(text.size() + 1)), moved);
    }
    }
}

TEST_P(BadInput, AHundredThousandMutatedTextsAreReadOrRefused)
{
    std::mt19937 random(testSeed(20261125));
    for (int i = 0; i < 100000 / GetParam().slowness && !HasFailure(); ++i) {
        QString text = oneOf(random, GetParam().texts);
        for (auto times = 1 + random() % 4; times > 0; --times)
            mutate(text, random, GetParam());
        check(text);
    }
    EXPECT_GT(read(), 50);
    EXPECT_GT(refused(), 2000);
}

/// Every text of up to three pieces, so that no short one is left to chance.
TEST_P(BadInput, AllShortTextsAreReadOrRefused)
{
    const QStringList& pieces = GetParam().pieces;
    check(QString());
    for (const QString& first : pieces) {
        check(first);
        for (const QString& second : pieces) {
            check(first + second);
            for (const QString& third : pieces)
                check(first + second + third);
        }
    }
    EXPECT_GT(refused(), 0);
}

/// A character of each plane, in front, inside and behind, and halves of its pair.
TEST_P(BadInput, CharactersOfEveryPlaneAreReadOrRefused)
{
    const QString text = GetParam().texts.front();
    const qsizetype middle = text.size() / 2;
    for (char32_t plane = 0; plane <= 16; ++plane) {
        for (const char32_t place : {0x0U, 0x41U, 0x663U, 0xf9ecU, 0xfffdU, 0xffffU}) {
            const char32_t code = plane * 0x10000U + place;
            const QString odd = QString::fromUcs4(&code, 1);
            const QStringList texts = {odd,
                                       odd + text,
                                       text + odd,
                                       text + odd.left(1),
                                       odd.right(1) + text,
                                       text.first(middle) + odd + text.sliced(middle)};
            for (const QString& oddText : texts)
                check(oddText);
        }
    }
    EXPECT_GT(refused(), 100);
}

TEST_P(BadInput, EveryCharacterOfTheBasicPlaneIsReadOrRefused)
{
    const QString text = GetParam().texts.front();
    // Any character may stand in an expression, and each is compiled.
    const int step = GetParam().check == readExpression ? 20 : GetParam().slowness;
    for (int code = 0; code < 0x10000; code += step)
        check(text.first(1) + QChar(char16_t(code)) + text.sliced(1));
    EXPECT_GT(read() + refused(), 3000);
}

/// A million characters of a few kinds behind a text. That they end is what is shown: a reader that
/// looks back at all it has read would take hours.
TEST_P(BadInput, AMillionCharactersComeToAnEnd)
{
    constexpr qsizetype size = 1000000;
    const QStringList& known = GetParam().pieces;
    QStringList pieces = {u"9"_s, u"+H"_s, u" H"_s, u"("_s};
    for (qsizetype at = 0; at < known.size(); at += 5)
        pieces.append(known[at]);
    for (const QString& piece : pieces)
        check(GetParam().texts.front() + piece.repeated(size / piece.size()));
    EXPECT_GT(refused(), 0);
}

TEST_P(BadInput, HugeNumbersAreReadOrRefused)
{
    static const QRegularExpression number(u"[0-9]+"_s);
    const QStringList hugeNumbers = {u"2147483647"_s,
                                     u"2147483648"_s,
                                     u"4294967296"_s,
                                     u"9223372036854775808"_s,
                                     u"18446744073709551617"_s,
                                     QString(5000, u'9'),
                                     QString(5000, u'0') + u'2',
                                     u"00"_s,
                                     u"1e309"_s,
                                     u"0."_s + QString(400, u'0') + u'1'};
    for (QString text : GetParam().texts) {
        text = text.contains(number) ? text : text + u"1"_s;
        for (const QString& huge : hugeNumbers)
            check(QString(text).replace(number, huge));
    }
    EXPECT_GT(read() + refused(), 0);
}

} // namespace

} // namespace readerLaws
