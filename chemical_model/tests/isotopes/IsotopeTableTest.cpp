#include "OpenFactory.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <IsoSpec++/element_tables.h>

using namespace Qt::StringLiterals;

namespace {

TEST(IsotopeTable, HoldsTheRowsOfIsoSpecAndOneElectronMore)
{
    const OpenFactory factory;
    ASSERT_EQ(factory.isotopes.size(), 293);
    ASSERT_EQ(ISOSPEC_NUMBER_OF_ISOTOPIC_ENTRIES, 292);
    for (int i = 0; i < 292; ++i) {
        SCOPED_TRACE(i);
        const auto& row = factory.isotopes[i];
        EXPECT_EQ(row.atomicNumber, IsoSpec::elem_table_atomicNo[i]);
        EXPECT_EQ(row.extraNeutrons, IsoSpec::elem_table_extraNeutrons[i]);
        EXPECT_EQ(row.name, QString::fromLatin1(IsoSpec::elem_table_element[i]));
        EXPECT_EQ(row.symbol, QString::fromLatin1(IsoSpec::elem_table_symbol[i]));
        EXPECT_EQ(row.mass, IsoSpec::elem_table_mass[i]);
        EXPECT_EQ(row.abundance, IsoSpec::elem_table_probability[i]);
    }
    const auto& electron = factory.isotopes.last();
    EXPECT_EQ(electron.atomicNumber, -1);
    EXPECT_EQ(electron.extraNeutrons, 0);
    EXPECT_EQ(electron.name, u"Electron"_s);
    EXPECT_EQ(electron.symbol, u"E"_s);
    EXPECT_EQ(electron.mass, 0.00054858);
    EXPECT_EQ(electron.abundance, 1.0);
}

TEST(IsotopeTable, CoversTheElementsAndThreePseudoElements)
{
    const OpenFactory factory;
    EXPECT_EQ(factory.isotopesBySymbol.size(), 87);
    EXPECT_EQ(factory.isotopesBySymbol.value(u"E"_s).size(), 2);
    EXPECT_EQ(factory.isotopesBySymbol.value(u"Me"_s).size(), 1);
    EXPECT_EQ(factory.isotopesBySymbol.value(u"Pn"_s).size(), 2);
}

TEST(IsotopeTable, EveryRowIsListedUnderItsThreeKeysInTableOrder)
{
    const OpenFactory factory;
    QMap<QString, QList<qsizetype>> bySymbol;
    QMap<int, QList<qsizetype>> byAtomicNumber;
    QMap<QString, QList<qsizetype>> byName;
    for (qsizetype i = 0; i < factory.isotopes.size(); ++i) {
        bySymbol[factory.isotopes[i].symbol].append(i);
        byAtomicNumber[factory.isotopes[i].atomicNumber].append(i);
        byName[factory.isotopes[i].name].append(i);
    }
    EXPECT_EQ(factory.isotopesBySymbol, bySymbol);
    EXPECT_EQ(factory.isotopesByAtomicNumber, byAtomicNumber);
    EXPECT_EQ(factory.isotopesByName, byName);
}

} // namespace
