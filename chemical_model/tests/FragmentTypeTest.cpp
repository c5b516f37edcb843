#include "TestPrinters.h"
#include <FragmentType.h>

#include <QDataStream>
#include <QDebug>
#include <QIODevice>
#include <QMetaEnum>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using chem::ZEL_QEnumsFragmentType::FragmentType;

const QMetaObject& meta()
{
    return chem::ZEL_QEnumsFragmentType::staticMetaObject;
}

TEST(FragmentType, HasItsNamesAndNumbers)
{
    const QStringList names = {u"A"_s,
                               u"Adot"_s,
                               u"B"_s,
                               u"C"_s,
                               u"Cdot"_s,
                               u"D"_s,
                               u"AB"_s,
                               u"W"_s,
                               u"X"_s,
                               u"Xdot"_s,
                               u"Y"_s,
                               u"Z"_s,
                               u"Zdot"_s,
                               u"Immonium"_s,
                               u"Oxonium"_s,
                               u"Precursor"_s,
                               u"PrecursorFrag"_s,
                               u"Unknown"_s};
    ASSERT_EQ(meta().enumeratorCount(), 1);
    const QMetaEnum enumeration = meta().enumerator(0);
    EXPECT_STREQ(enumeration.name(), "FragmentType");
    EXPECT_TRUE(enumeration.isScoped());
    ASSERT_EQ(enumeration.keyCount(), names.size());
    for (int i = 0; i < names.size(); ++i) {
        EXPECT_EQ(enumeration.value(i), i);
        EXPECT_EQ(QString::fromLatin1(enumeration.key(i)), names[i]);
    }
}

TEST(FragmentType, IsKnownToTheMetaObjectSystem)
{
    EXPECT_STREQ(meta().className(), "chem::ZEL_QEnumsFragmentType");
    EXPECT_EQ(meta().methodCount(), 0);
    EXPECT_EQ(meta().propertyCount(), 0);
    EXPECT_STREQ(QMetaType::fromType<FragmentType>().name(),
                 "chem::ZEL_QEnumsFragmentType::FragmentType");
    const int id = qRegisterMetaType<FragmentType>();
    EXPECT_NE(id, 0);
    EXPECT_EQ(QMetaType::fromName("chem::ZEL_QEnumsFragmentType::FragmentType").id(), id);
}

TEST(FragmentType, PrintsByName)
{
    QString text;
    QDebug(&text) << FragmentType::Unknown;
    EXPECT_TRUE(text.trimmed().endsWith(u"Unknown"_s)) << text.toStdString();
}

TEST(FragmentType, StreamsAsAnUncheckedNumberOfThirtyTwoBits)
{
    for (const int number : {0, 5, 17, 18, -7, 2147483647}) {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << static_cast<FragmentType>(number);
        ASSERT_EQ(bytes.size(), 4);

        QDataStream rawIn(bytes);
        qint32 raw = 0;
        rawIn >> raw;
        EXPECT_EQ(raw, number);

        QDataStream in(bytes);
        FragmentType read = FragmentType::A;
        in >> read;
        EXPECT_EQ(static_cast<int>(read), number);
    }
}

} // namespace
