#include "TestPrinters.h"
#include <MoleculeType.h>

#include <QDataStream>
#include <QDebug>
#include <QIODevice>
#include <QMetaEnum>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using chem::ZEL_QEnumsMoleculeType::MoleculeType;

const QMetaObject& meta()
{
    return chem::ZEL_QEnumsMoleculeType::staticMetaObject;
}

TEST(MoleculeType, HasItsNamesAndNumbers)
{
    const QStringList names = {u"Peptide"_s,
                               u"Protein"_s,
                               u"OligoNucleotide"_s,
                               u"Sugar"_s,
                               u"Link"_s,
                               u"AminoAcid"_s,
                               u"Nucleotide"_s,
                               u"Ribose"_s,
                               u"Nucleobase"_s,
                               u"Phosphate"_s,
                               u"PostTransModification"_s,
                               u"FivePrimeTerminal"_s,
                               u"ThreePrimeTerminal"_s,
                               u"NTerminal"_s,
                               u"CTerminal"_s,
                               u"MassValue"_s,
                               u"Averagine"_s,
                               u"Unknown"_s};
    ASSERT_EQ(meta().enumeratorCount(), 1);
    const QMetaEnum enumeration = meta().enumerator(0);
    EXPECT_STREQ(enumeration.name(), "MoleculeType");
    EXPECT_TRUE(enumeration.isScoped());
    ASSERT_EQ(enumeration.keyCount(), names.size());
    for (int i = 0; i < names.size(); ++i) {
        EXPECT_EQ(enumeration.value(i), i);
        EXPECT_EQ(QString::fromLatin1(enumeration.key(i)), names[i]);
    }
}

TEST(MoleculeType, IsKnownToTheMetaObjectSystem)
{
    EXPECT_STREQ(meta().className(), "chem::ZEL_QEnumsMoleculeType");
    EXPECT_EQ(meta().methodCount(), 0);
    EXPECT_EQ(meta().propertyCount(), 0);
    EXPECT_STREQ(QMetaType::fromType<MoleculeType>().name(),
                 "chem::ZEL_QEnumsMoleculeType::MoleculeType");
    const int id = qRegisterMetaType<MoleculeType>();
    EXPECT_NE(id, 0);
    EXPECT_EQ(QMetaType::fromName("chem::ZEL_QEnumsMoleculeType::MoleculeType").id(), id);
}

TEST(MoleculeType, PrintsByName)
{
    QString text;
    QDebug(&text) << MoleculeType::Unknown;
    EXPECT_TRUE(text.trimmed().endsWith(u"Unknown"_s)) << text.toStdString();
}

TEST(MoleculeType, StreamsAsAnUncheckedNumberOfThirtyTwoBits)
{
    for (const int number : {0, 5, 17, 18, -7, 2147483647}) {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << static_cast<MoleculeType>(number);
        ASSERT_EQ(bytes.size(), 4);

        QDataStream rawIn(bytes);
        qint32 raw = 0;
        rawIn >> raw;
        EXPECT_EQ(raw, number);

        QDataStream in(bytes);
        MoleculeType read = MoleculeType::Peptide;
        in >> read;
        EXPECT_EQ(static_cast<int>(read), number);
    }
}

} // namespace
