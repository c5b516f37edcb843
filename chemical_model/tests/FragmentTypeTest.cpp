#include <FragmentType.h>

#include <QDataStream>
#include <QDebug>
#include <QIODevice>
#include <QMetaEnum>
#include <QMetaType>

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

using chem::ZEL_QEnumsFragmentType::FragmentType;

static_assert(std::is_same_v<chem::FragmentType, FragmentType>);
static_assert(!std::is_convertible_v<FragmentType, int>, "the enumeration is scoped");
static_assert(sizeof(FragmentType) == 4);

struct NamedValue
{
    FragmentType value;
    int number;
    const char* name;
};

// Saved streams hold these numbers.
constexpr std::array<NamedValue, 18> values{{
    {FragmentType::A, 0, "A"},
    {FragmentType::Adot, 1, "Adot"},
    {FragmentType::B, 2, "B"},
    {FragmentType::C, 3, "C"},
    {FragmentType::Cdot, 4, "Cdot"},
    {FragmentType::D, 5, "D"},
    {FragmentType::AB, 6, "AB"},
    {FragmentType::W, 7, "W"},
    {FragmentType::X, 8, "X"},
    {FragmentType::Xdot, 9, "Xdot"},
    {FragmentType::Y, 10, "Y"},
    {FragmentType::Z, 11, "Z"},
    {FragmentType::Zdot, 12, "Zdot"},
    {FragmentType::Immonium, 13, "Immonium"},
    {FragmentType::Oxonium, 14, "Oxonium"},
    {FragmentType::Precursor, 15, "Precursor"},
    {FragmentType::PrecursorFrag, 16, "PrecursorFrag"},
    {FragmentType::Unknown, 17, "Unknown"},
}};

const QMetaObject& metaObject = chem::ZEL_QEnumsFragmentType::staticMetaObject;

TEST(FragmentType, MetaObjectIsNamedAfterTheNamespace)
{
    EXPECT_STREQ(metaObject.className(), "chem::ZEL_QEnumsFragmentType");
}

TEST(FragmentType, MetaObjectHasOneScopedEnumerationAndNothingElse)
{
    ASSERT_EQ(metaObject.enumeratorCount(), 1);
    EXPECT_STREQ(metaObject.enumerator(0).name(), "FragmentType");
    EXPECT_TRUE(metaObject.enumerator(0).isScoped());
    EXPECT_EQ(metaObject.methodCount(), 0);
    EXPECT_EQ(metaObject.propertyCount(), 0);
}

TEST(FragmentType, EnumeratorsHaveTheirNamesAndNumbers)
{
    const QMetaEnum enumeration = metaObject.enumerator(0);
    ASSERT_EQ(enumeration.keyCount(), 18);
    for (const NamedValue& expected : values) {
        SCOPED_TRACE(expected.name);
        EXPECT_EQ(static_cast<int>(expected.value), expected.number);
        EXPECT_EQ(enumeration.value(expected.number), expected.number);
        EXPECT_STREQ(enumeration.key(expected.number), expected.name);
        EXPECT_STREQ(enumeration.valueToKey(expected.number), expected.name);
        EXPECT_EQ(enumeration.keyToValue(expected.name), expected.number);
    }
}

TEST(FragmentType, MetaTypeHasTheFullNameAndOneId)
{
    const QMetaType type = QMetaType::fromType<FragmentType>();
    EXPECT_STREQ(type.name(), "chem::ZEL_QEnumsFragmentType::FragmentType");
    EXPECT_NE(type.id(), 0);
    EXPECT_EQ(qMetaTypeId<FragmentType>(), type.id());
    EXPECT_EQ(QMetaType::fromName("chem::ZEL_QEnumsFragmentType::FragmentType").id(), type.id());
    EXPECT_EQ(QMetaEnum::fromType<FragmentType>().enclosingMetaObject(), &metaObject);
}

QString debugText(FragmentType value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text;
}

TEST(FragmentType, DebugOutputEndsWithTheEnumerator)
{
    for (const NamedValue& expected : values)
        EXPECT_TRUE(debugText(expected.value).endsWith(u"::"_s + QLatin1String(expected.name)))
            << expected.name << ": " << debugText(expected.value).toStdString();
}

TEST(FragmentType, DebugOutputOfANumberWithoutNameShowsTheNumber)
{
    EXPECT_TRUE(debugText(static_cast<FragmentType>(99)).endsWith(u"FragmentType(99)"_s))
        << debugText(static_cast<FragmentType>(99)).toStdString();
}

QByteArray streamed(FragmentType value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes;
}

TEST(FragmentType, StreamHoldsAnIntegerOf32Bits)
{
    EXPECT_EQ(streamed(FragmentType::PrecursorFrag), QByteArray::fromHex("00000010"));
    EXPECT_EQ(streamed(static_cast<FragmentType>(-2)), QByteArray::fromHex("fffffffe"));
}

TEST(FragmentType, StreamGivesEveryNumberBackUnchecked)
{
    for (const int number : {0, 1, 16, 17, 18, 99, -1, std::numeric_limits<int>::max(),
                             std::numeric_limits<int>::min()}) {
        QDataStream stream(streamed(static_cast<FragmentType>(number)));
        FragmentType value = FragmentType::A;
        stream >> value;
        EXPECT_EQ(static_cast<int>(value), number);
        EXPECT_TRUE(stream.atEnd());
    }
}

} // namespace
