#include <MoleculeType.h>

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

using chem::ZEL_QEnumsMoleculeType::MoleculeType;

static_assert(std::is_same_v<chem::MoleculeType, MoleculeType>);
static_assert(!std::is_convertible_v<MoleculeType, int>, "the enumeration is scoped");
static_assert(sizeof(MoleculeType) == 4);

struct NamedValue
{
    MoleculeType value;
    int number;
    const char* name;
};

// Saved streams hold these numbers.
constexpr std::array<NamedValue, 18> values{{
    {MoleculeType::Peptide, 0, "Peptide"},
    {MoleculeType::Protein, 1, "Protein"},
    {MoleculeType::OligoNucleotide, 2, "OligoNucleotide"},
    {MoleculeType::Sugar, 3, "Sugar"},
    {MoleculeType::Link, 4, "Link"},
    {MoleculeType::AminoAcid, 5, "AminoAcid"},
    {MoleculeType::Nucleotide, 6, "Nucleotide"},
    {MoleculeType::Ribose, 7, "Ribose"},
    {MoleculeType::Nucleobase, 8, "Nucleobase"},
    {MoleculeType::Phosphate, 9, "Phosphate"},
    {MoleculeType::PostTransModification, 10, "PostTransModification"},
    {MoleculeType::FivePrimeTerminal, 11, "FivePrimeTerminal"},
    {MoleculeType::ThreePrimeTerminal, 12, "ThreePrimeTerminal"},
    {MoleculeType::NTerminal, 13, "NTerminal"},
    {MoleculeType::CTerminal, 14, "CTerminal"},
    {MoleculeType::MassValue, 15, "MassValue"},
    {MoleculeType::Averagine, 16, "Averagine"},
    {MoleculeType::Unknown, 17, "Unknown"},
}};

const QMetaObject& metaObject = chem::ZEL_QEnumsMoleculeType::staticMetaObject;

TEST(MoleculeType, MetaObjectIsNamedAfterTheNamespace)
{
    EXPECT_STREQ(metaObject.className(), "chem::ZEL_QEnumsMoleculeType");
}

TEST(MoleculeType, MetaObjectHasOneScopedEnumerationAndNothingElse)
{
    ASSERT_EQ(metaObject.enumeratorCount(), 1);
    EXPECT_STREQ(metaObject.enumerator(0).name(), "MoleculeType");
    EXPECT_TRUE(metaObject.enumerator(0).isScoped());
    EXPECT_EQ(metaObject.methodCount(), 0);
    EXPECT_EQ(metaObject.propertyCount(), 0);
}

TEST(MoleculeType, EnumeratorsHaveTheirNamesAndNumbers)
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

TEST(MoleculeType, MetaTypeHasTheFullNameAndOneId)
{
    const QMetaType type = QMetaType::fromType<MoleculeType>();
    EXPECT_STREQ(type.name(), "chem::ZEL_QEnumsMoleculeType::MoleculeType");
    EXPECT_NE(type.id(), 0);
    EXPECT_EQ(qMetaTypeId<MoleculeType>(), type.id());
    EXPECT_EQ(QMetaType::fromName("chem::ZEL_QEnumsMoleculeType::MoleculeType").id(), type.id());
    EXPECT_EQ(QMetaEnum::fromType<MoleculeType>().enclosingMetaObject(), &metaObject);
}

QString debugText(MoleculeType value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text;
}

TEST(MoleculeType, DebugOutputEndsWithTheEnumerator)
{
    for (const NamedValue& expected : values)
        EXPECT_TRUE(debugText(expected.value).endsWith(u"::"_s + QLatin1String(expected.name)))
            << expected.name << ": " << debugText(expected.value).toStdString();
}

TEST(MoleculeType, DebugOutputOfANumberWithoutNameShowsTheNumber)
{
    EXPECT_TRUE(debugText(static_cast<MoleculeType>(99)).endsWith(u"MoleculeType(99)"_s))
        << debugText(static_cast<MoleculeType>(99)).toStdString();
}

QByteArray streamed(MoleculeType value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes;
}

TEST(MoleculeType, StreamHoldsAnIntegerOf32Bits)
{
    EXPECT_EQ(streamed(MoleculeType::Averagine), QByteArray::fromHex("00000010"));
    EXPECT_EQ(streamed(static_cast<MoleculeType>(-2)), QByteArray::fromHex("fffffffe"));
}

TEST(MoleculeType, StreamGivesEveryNumberBackUnchecked)
{
    for (const int number : {0, 1, 16, 17, 18, 99, -1, std::numeric_limits<int>::max(),
                             std::numeric_limits<int>::min()}) {
        QDataStream stream(streamed(static_cast<MoleculeType>(number)));
        MoleculeType value = MoleculeType::Peptide;
        stream >> value;
        EXPECT_EQ(static_cast<int>(value), number);
        EXPECT_TRUE(stream.atEnd());
    }
}

} // namespace
