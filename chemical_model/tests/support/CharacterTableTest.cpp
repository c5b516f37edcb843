#include "support/CharacterTable.h"

#include <gtest/gtest.h>

#include <map>

namespace {

TEST(CharacterTable, CharacterWithoutAValueHasTheDefaultOne)
{
    const chem::CharacterTable<int> table;
    for (const QChar character : {u'\0', u'A', u'\x7f', u'\x80', u'é', u'\xffff'})
        EXPECT_EQ(table.value(character), 0);
}

TEST(CharacterTable, LaterValueReplacesTheEarlierOne)
{
    chem::CharacterTable<int> table;
    for (const QChar character : {u'A', u'é'}) {
        table.insert(character, 1);
        table.insert(character, 2);
        EXPECT_EQ(table.value(character), 2);
    }
}

// The characters up to U+007F and those beyond are kept apart, so both sides of the border count.
TEST(CharacterTable, EachCharacterHasItsOwnValueAmongAllThereAre)
{
    const std::map<int, int> values = {{0, 1},     {'A', 2},    {0x7f, 3},   {0x80, 4},  {0xe9, 5},
                                       {0x100, 6}, {0x4e00, 7}, {0xd83d, 8}, {0xffff, 9}};
    chem::CharacterTable<int> table;
    for (const auto& [unicode, value] : values)
        table.insert(QChar(unicode), value);
    for (int unicode = 0; unicode <= 0xffff; ++unicode) {
        const auto known = values.find(unicode);
        ASSERT_EQ(table.value(QChar(unicode)), known == values.end() ? 0 : known->second)
            << unicode;
    }
}

} // namespace
