#pragma once

#include "ManyThreads.h"

#include <QByteArray>
#include <QDataStream>
#include <QDebug>
#include <QIODevice>
#include <QMetaEnum>
#include <QMetaType>
#include <QString>

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <type_traits>

/// \file
/// What holds for each enumeration that is registered with Qt: its names, its numbers and the forms
/// in which it is printed and saved. A test file instantiates the suite with a description of its
/// enumeration.

template <typename Enumeration>
struct NamedValue
{
    Enumeration value;
    int number;
    const char* name;
};

/// `Description` has the type as `Type`, its meta-object, the names of type and namespace, and its
/// values.
template <typename Description>
class RegisteredEnumeration : public testing::Test
{
protected:
    using Type = typename Description::Type;

    static_assert(!std::is_convertible_v<Type, int>, "the enumeration is scoped");
    static_assert(sizeof(Type) == 4);

    static QByteArray fullName()
    {
        return QByteArray(Description::space) + "::" + Description::name;
    }

    static QString debugText(Type value)
    {
        QString text;
        QDebug(&text).nospace() << value;
        return text;
    }

    static QByteArray streamed(Type value)
    {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream << value;
        return bytes;
    }
};

TYPED_TEST_SUITE_P(RegisteredEnumeration);

TYPED_TEST_P(RegisteredEnumeration, MetaObjectIsNamedAfterTheNamespace)
{
    EXPECT_STREQ(TypeParam::metaObject().className(), TypeParam::space);
}

TYPED_TEST_P(RegisteredEnumeration, MetaObjectHasOneScopedEnumerationAndNothingElse)
{
    const QMetaObject& metaObject = TypeParam::metaObject();
    ASSERT_EQ(metaObject.enumeratorCount(), 1);
    EXPECT_STREQ(metaObject.enumerator(0).name(), TypeParam::name);
    EXPECT_TRUE(metaObject.enumerator(0).isScoped());
    EXPECT_EQ(metaObject.methodCount(), 0);
    EXPECT_EQ(metaObject.propertyCount(), 0);
}

/// The key of a value, which Qt takes as an int or, since 6.11, as an unsigned number of 64 bits.
template <typename Value>
const char* keyOf(const QMetaEnum& enumeration, int number,
                  const char* (QMetaEnum::*valueToKey)(Value) const)
{
    return (enumeration.*valueToKey)(static_cast<Value>(number));
}

TYPED_TEST_P(RegisteredEnumeration, EnumeratorsHaveTheirNamesAndNumbers)
{
    const QMetaEnum enumeration = TypeParam::metaObject().enumerator(0);
    ASSERT_EQ(enumeration.keyCount(), 18);
    ASSERT_EQ(std::size(TypeParam::values), 18U);
    for (const auto& expected : TypeParam::values) {
        SCOPED_TRACE(expected.name);
        EXPECT_EQ(static_cast<int>(expected.value), expected.number);
        EXPECT_EQ(enumeration.value(expected.number), expected.number);
        EXPECT_STREQ(enumeration.key(expected.number), expected.name);
        EXPECT_STREQ(keyOf(enumeration, expected.number, &QMetaEnum::valueToKey), expected.name);
        EXPECT_EQ(enumeration.keyToValue(expected.name), expected.number);
    }
}

TYPED_TEST_P(RegisteredEnumeration, MetaTypeHasTheFullNameAndOneId)
{
    using Enumeration = typename TypeParam::Type;
    const QMetaType type = QMetaType::fromType<Enumeration>();
    EXPECT_EQ(QByteArray(type.name()), this->fullName());
    EXPECT_NE(type.id(), 0);
    EXPECT_EQ(qMetaTypeId<Enumeration>(), type.id());
    EXPECT_EQ(QMetaType::fromName(this->fullName()).id(), type.id());
    EXPECT_EQ(QMetaEnum::fromType<Enumeration>().enclosingMetaObject(), &TypeParam::metaObject());
}

// Not among the tests for the thread sanitizer, which cannot see into the lock of Qt's registry.
TYPED_TEST_P(RegisteredEnumeration, ThreadsThatRegisterItAtOnceGetOneId)
{
    std::array<int, manyThreads::threadCount> ids{};
    manyThreads::atOnce([&ids](int thread) {
        ids.at(std::size_t(thread)) = qMetaTypeId<typename TypeParam::Type>();
    });
    for (const int id : ids)
        EXPECT_EQ(id, QMetaType::fromName(this->fullName()).id());
    EXPECT_NE(ids.front(), 0);
}

TYPED_TEST_P(RegisteredEnumeration, DebugOutputEndsWithTheEnumerator)
{
    for (const auto& expected : TypeParam::values) {
        const QString text = this->debugText(expected.value);
        EXPECT_TRUE(text.endsWith(QStringLiteral("::") + QLatin1String(expected.name)))
            << expected.name << ": " << text.toStdString();
    }
}

TYPED_TEST_P(RegisteredEnumeration, DebugOutputOfANumberWithoutNameShowsTheNumber)
{
    const QString text = this->debugText(static_cast<typename TypeParam::Type>(99));
    EXPECT_TRUE(text.endsWith(QLatin1String(TypeParam::name) + QStringLiteral("(99)")))
        << text.toStdString();
}

TYPED_TEST_P(RegisteredEnumeration, StreamHoldsAnIntegerOf32Bits)
{
    using Enumeration = typename TypeParam::Type;
    EXPECT_EQ(this->streamed(static_cast<Enumeration>(16)), QByteArray::fromHex("00000010"));
    EXPECT_EQ(this->streamed(static_cast<Enumeration>(-2)), QByteArray::fromHex("fffffffe"));
}

TYPED_TEST_P(RegisteredEnumeration, StreamGivesEveryNumberBackUnchecked)
{
    using Enumeration = typename TypeParam::Type;
    for (const int number : {0, 1, 16, 17, 18, 99, -1, std::numeric_limits<int>::max(),
                             std::numeric_limits<int>::min()}) {
        QDataStream stream(this->streamed(static_cast<Enumeration>(number)));
        Enumeration value = Enumeration(0);
        stream >> value;
        EXPECT_EQ(static_cast<int>(value), number);
        EXPECT_TRUE(stream.atEnd());
    }
}

REGISTER_TYPED_TEST_SUITE_P(RegisteredEnumeration, MetaObjectIsNamedAfterTheNamespace,
                            MetaObjectHasOneScopedEnumerationAndNothingElse,
                            EnumeratorsHaveTheirNamesAndNumbers, MetaTypeHasTheFullNameAndOneId,
                            ThreadsThatRegisterItAtOnceGetOneId, DebugOutputEndsWithTheEnumerator,
                            DebugOutputOfANumberWithoutNameShowsTheNumber,
                            StreamHoldsAnIntegerOf32Bits, StreamGivesEveryNumberBackUnchecked);
