#include "sequences/LetterTable.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

chem::LetterTable tableOf(const QStringList& keys)
{
    QMap<QString, chem::NamedMolecule> dictionary;
    for (const QString& key : keys)
        dictionary.insert(key, chem::NamedMolecule({}, u"name of "_s + key, key));
    return chem::LetterTable(dictionary);
}

TEST(LetterTable, FindsLettersOfEveryScript)
{
    const chem::LetterTable table = tableOf({u"A"_s, u"é"_s, u"Ω"_s, QString(QChar(u'\0'))});
    EXPECT_EQ(table.entry(u'A').name, u"name of A"_s);
    EXPECT_EQ(table.entry(u'é').name, u"name of é"_s);
    EXPECT_EQ(table.entry(u'Ω').name, u"name of Ω"_s);
    EXPECT_EQ(table.entry(u'\0').code, QString(QChar(u'\0')));
}

TEST(LetterTable, MissingLetterWeighsNothingAndHasNoTexts)
{
    const chem::LetterTable table = tableOf({u"A"_s});
    for (const QChar letter : {u'a', u'B', u'é', u'\xffff'}) {
        EXPECT_TRUE(table.entry(letter).name.isEmpty());
        EXPECT_TRUE(table.entry(letter).code.isEmpty());
        EXPECT_TRUE(table.entry(letter).formula().isEmpty());
        EXPECT_EQ(table.entry(letter).averageMass(), 0.0);
    }
}

TEST(LetterTable, KeysOfSeveralCharactersAreNoLetters)
{
    const chem::LetterTable table = tableOf({u"AB"_s, u""_s});
    EXPECT_TRUE(table.entry(u'A').name.isEmpty());
    EXPECT_TRUE(table.entry(u'B').name.isEmpty());
}

// The letters up to U+007F and those beyond are kept apart, so both sides of the border count.
TEST(LetterTable, FindsItsOwnLettersAmongAllThereAre)
{
    const QString letters = u"\nAz\x7f\x80é\u4e00\xd83d\xde00\xffff"_s;
    const chem::LetterTable table = tableOf(letters.split(QString(), Qt::SkipEmptyParts));
    for (int unicode = 0; unicode <= 0xffff; ++unicode) {
        const QString letter((QChar(unicode)));
        ASSERT_EQ(table.entry(letter.front()).code, letters.contains(letter) ? letter : QString())
            << unicode;
    }
}

} // namespace
