#include "core/Unshared.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using chem::ChemicalFormula;
using chem::Molecule;
using chem::NamedMolecule;

Molecule water()
{
    QMap<QString, double> counts = {{u"H"_s, 2.0}, {u"O"_s, 1.0}};
    return Molecule(ChemicalFormula(counts), 18.015, 18.011);
}

bool sharesFormula(const Molecule& one, const Molecule& other)
{
    return one.formula().elementCountMap().isSharedWith(other.formula().elementCountMap());
}

TEST(Unshared, MoleculeIsEqualAndHasAFormulaOfItsOwn)
{
    const Molecule original = water();
    ASSERT_TRUE(sharesFormula(original, Molecule(original)));
    const Molecule copy = chem::unshared(original);
    EXPECT_FALSE(sharesFormula(original, copy));
    EXPECT_EQ(copy.formula().elementCountMap(), original.formula().elementCountMap());
    EXPECT_EQ(copy.averageMass(), original.averageMass());
    EXPECT_EQ(copy.monoMass(), original.monoMass());
}

// A literal has no data whose references could be counted: a copy of it would only cost memory.
TEST(Unshared, TextsOfTheHeapAreCopiedAndLiteralsAreNot)
{
    const QString text = u"name "_s + QString::number(7);
    const NamedMolecule original(water(), text, u"code"_s);
    const NamedMolecule copy = chem::unshared(original);
    EXPECT_EQ(copy.name, original.name);
    EXPECT_EQ(copy.code, original.code);
    EXPECT_NE(copy.name.constData(), original.name.constData());
    EXPECT_EQ(copy.code.constData(), original.code.constData());
    EXPECT_TRUE(chem::unshared(NamedMolecule()).name.isNull());
}

TEST(Unshared, DictionaryHasEntriesOfItsOwnUnderTheSameKeys)
{
    const QMap<QString, NamedMolecule> original = {
        {u"W"_s, NamedMolecule(water(), u"Water"_s, u"w"_s)}, {QString(), NamedMolecule()}};
    const QMap<QString, NamedMolecule> copy = chem::unshared(original);
    EXPECT_EQ(copy.keys(), original.keys());
    EXPECT_EQ(copy[u"W"_s].name, u"Water"_s);
    EXPECT_FALSE(sharesFormula(copy[u"W"_s], original[u"W"_s]));
}

} // namespace
