#include "OpenFactory.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

using chem::ChemicalFactory;

TEST(BuildingBlocks, KindsHaveFixedNumbersAndLabels)
{
    const QStringList labels = {u"Amino Acid"_s,
                                u"Nucleobase"_s,
                                u"Ribose"_s,
                                u"Phosphate"_s,
                                u"Glycan"_s,
                                u"Sugar"_s,
                                u"Protein N-Terminal"_s,
                                u"Protein C-Terminal"_s,
                                u"N-Terminal"_s,
                                u"C-Terminal"_s,
                                u"5' Terminal"_s,
                                u"3' Terminal"_s};
    EXPECT_EQ(ChemicalFactory::buildingBlockTypes.size(), 12);
    for (int i = 0; i < labels.size(); ++i) {
        EXPECT_EQ(ChemicalFactory::buildingBlockTypes.value(labels[i]), i);
        EXPECT_EQ(ChemicalFactory::buildingBlockType(labels[i]), i);
    }
    EXPECT_EQ(ChemicalFactory::AminoAcidBlock, 0);
    EXPECT_EQ(ChemicalFactory::GlycanBlock, 4);
    EXPECT_EQ(ChemicalFactory::SugarBlock, 5);
    EXPECT_EQ(ChemicalFactory::CTerminalBlock, 9);
    EXPECT_EQ(ChemicalFactory::ThreePrimeTerminalBlock, 11);
    EXPECT_EQ(ChemicalFactory::NoBlock, 12);
}

TEST(BuildingBlocks, LabelsAreMatchedExactly)
{
    for (const QString& label : {u"sugar"_s, u""_s, u"Sugar "_s, u"5 Terminal"_s, u"NoBlock"_s})
        EXPECT_EQ(ChemicalFactory::buildingBlockType(label), 12) << label.toStdString();
}

TEST(BuildingBlocks, StoringCreatesTheDictionaryOfAKindAndNothingElse)
{
    OpenFactory factory;
    factory.setBuildingBlock(ChemicalFactory::GlycanBlock, u"G1"_s, u"one"_s, u"C6"_s);
    EXPECT_EQ(factory.buildingBlocks.size(), 8);
    const auto entry = factory.buildingBlocks.value(ChemicalFactory::GlycanBlock).value(u"G1"_s);
    EXPECT_EQ(entry.name, u"one"_s);
    EXPECT_EQ(entry.code, u"G1"_s);
    EXPECT_EQ(entry.monoMass(), 72.0);
    EXPECT_EQ(factory.buildingBlocks.value(ChemicalFactory::SugarBlock).size(), 9);
}

TEST(BuildingBlocks, StoringAddsOrReplacesWholeEntries)
{
    OpenFactory factory;
    factory.setBuildingBlock(ChemicalFactory::AminoAcidBlock, u"X"_s, u"Any"_s, u"Xx3"_s);
    factory.setBuildingBlock(ChemicalFactory::AminoAcidBlock, u"G"_s, u"Heavy"_s, u"C2"_s);
    const auto aminoAcids = factory.buildingBlocks.value(ChemicalFactory::AminoAcidBlock);
    EXPECT_EQ(aminoAcids.size(), 21);
    EXPECT_EQ(aminoAcids.value(u"X"_s).averageMass(), 0.0);
    EXPECT_EQ(aminoAcids.value(u"X"_s).formula().toString(), u"Xx3"_s);
    EXPECT_EQ(aminoAcids.value(u"G"_s).name, u"Heavy"_s);
    EXPECT_EQ(aminoAcids.value(u"G"_s).formula().toString(), u"C2"_s);
    EXPECT_EQ(factory.constructLinearPeptideComplex(u"G"_s)->formula().toString(), u"C2H2O"_s);
}

TEST(BuildingBlocks, StoringLeavesTheDefaultsAlone)
{
    OpenFactory factory;
    factory.setBuildingBlock(ChemicalFactory::RiboseBlock, QString(), u"other"_s, u"C1"_s);
    factory.setBuildingBlock(ChemicalFactory::PhosphateBlock, u"."_s, u"other"_s, u"C1"_s);
    EXPECT_EQ(factory.defaultRibose.formula().toString(), u"C5H7O2"_s);
    EXPECT_EQ(factory.defaultPhosphate.formula().toString(), u"HO3P"_s);
}

TEST(BuildingBlocks, EarlierCopyDoesNotSeeWhatIsStored)
{
    OpenFactory factory;
    const OpenFactory copy = factory;
    factory.setBuildingBlock(ChemicalFactory::NucleobaseBlock, u"X"_s, u"Any"_s, u"C1"_s);
    EXPECT_EQ(copy.buildingBlocks.value(ChemicalFactory::NucleobaseBlock).size(), 6);
    EXPECT_FALSE(copy.isValidOligoSequence(u"X"_s));
    EXPECT_TRUE(factory.isValidOligoSequence(u"X"_s));
}

TEST(BuildingBlocks, OldFormulasAreConvertedToThePieceThatRemains)
{
    struct Case
    {
        QString formula;
        int type;
        QString converted;
    };
    const QList<Case> cases = {{u"C5H5N5"_s, 1, u"C5H4N5"_s},
                               {u"OH"_s, 10, u"H"_s},
                               {u""_s, 1, u"H(-1)"_s},
                               {u""_s, 2, u"H(-3)O(-2)"_s},
                               {u""_s, 3, u"HO(-1)"_s},
                               {u""_s, 10, u"O(-1)"_s},
                               {u""_s, 11, u""_s},
                               {u"C5H10O4"_s, 2, u"C5H7O2"_s},
                               {u"PO4"_s, 3, u"HO3P"_s},
                               {u"H2O1C1"_s, 11, u"C1H2O"_s},
                               {u"H2O1C1"_s, 0, u"C1H2O"_s},
                               {u"H2O1C1"_s, 5, u"C1H2O"_s},
                               {u"H2O1C1"_s, 12, u"C1H2O"_s}};
    for (const Case& c : cases) {
        EXPECT_EQ(ChemicalFactory::convertOldOligoBuildingBlockFormula(
                      c.formula, static_cast<ChemicalFactory::BuildingBlockType>(c.type)),
                  c.converted)
            << c.formula.toStdString() << ' ' << c.type;
    }
}

TEST(BuildingBlocks, StoringUnderAKeyReplacesAnUnlikeCodeToo)
{
    OpenFactory factory;
    factory.setBuildingBlock(ChemicalFactory::FivePrimeTerminalBlock, u"["_s, u"own"_s, u"C1"_s);
    factory.setBuildingBlock(ChemicalFactory::SugarBlock, u"Na"_s, u"own"_s, u"Na"_s);
    const auto terminals = factory.buildingBlocks.value(ChemicalFactory::FivePrimeTerminalBlock);
    EXPECT_EQ(terminals.size(), 2);
    EXPECT_EQ(terminals.value(u"["_s).code, u"["_s); // was "]"
    const auto sugars = factory.buildingBlocks.value(ChemicalFactory::SugarBlock);
    EXPECT_EQ(sugars.value(u"Na"_s).code, u"Na"_s); // was "Sodium"
    EXPECT_EQ(sugars.value(u"Sodium"_s).name, u"Sodium"_s);
}

TEST(BuildingBlocks, EveryKindCanBeStoredNoKindIncluded)
{
    OpenFactory factory;
    for (int kind = 0; kind <= 12; ++kind) {
        const auto type = static_cast<ChemicalFactory::BuildingBlockType>(kind);
        factory.setBuildingBlock(type, u"own"_s, u"name"_s, u"C1"_s);
        EXPECT_EQ(factory.buildingBlocks.value(type).value(u"own"_s).monoMass(), 12.0) << kind;
    }
    EXPECT_EQ(factory.buildingBlocks.size(), 13);
}

TEST(BuildingBlocks, TextsMayLieInTheDictionaryThatChanges)
{
    for (const auto type : {ChemicalFactory::AminoAcidBlock, ChemicalFactory::SugarBlock}) {
        OpenFactory factory;
        factory.setBuildingBlock(type, u"J"_s, u"C3H4"_s, u"N"_s);
        const chem::NamedMolecule& entry = factory.buildingBlocks[type][u"J"_s];
        factory.setBuildingBlock(type, entry.code, entry.name, entry.name);
        const chem::NamedMolecule stored = factory.buildingBlocks[type][u"J"_s];
        EXPECT_EQ(stored.code, u"J"_s);
        EXPECT_EQ(stored.name, u"C3H4"_s);
        EXPECT_EQ(stored.formula().toString(), u"C3H4"_s);
    }
}

TEST(BuildingBlocks, RefusedIsotopesLeaveEverythingAsItWas)
{
    OpenFactory factory(u"Au197:0"_s);
    const auto before = factory.buildingBlocks.value(ChemicalFactory::AminoAcidBlock).keys();
    for (const auto type : {ChemicalFactory::AminoAcidBlock, ChemicalFactory::GlycanBlock})
        EXPECT_THROW(factory.setBuildingBlock(type, u"J"_s, u"gold"_s, u"Au"_s),
                     std::invalid_argument);
    EXPECT_EQ(factory.buildingBlocks.value(ChemicalFactory::AminoAcidBlock).keys(), before);
    EXPECT_FALSE(factory.buildingBlocks.contains(ChemicalFactory::GlycanBlock));
    EXPECT_EQ(factory.constructLinearPeptideComplex(u"J"_s)->formula().toString(), u"H2O"_s);
}

TEST(BuildingBlocks, FactoryThatWasMovedFromCanBeFilledAnew)
{
    ChemicalFactory source = *chem::defaultChemicalFactory();
    const ChemicalFactory target = std::move(source);
    // NOLINTBEGIN(bugprone-use-after-move)
    source.setBuildingBlock(ChemicalFactory::AminoAcidBlock, u"J"_s, u"any"_s, u"C2"_s);
    const auto peptide = source.constructLinearPeptideComplex(u"GJ"_s);
    // NOLINTEND(bugprone-use-after-move)
    EXPECT_EQ(peptide->formula().toString(), u"C2H2O"_s);
}

TEST(BuildingBlocks, EntryThatIsRefusedLeavesTheFactoryAsItWas)
{
    const auto factory = chem::ChemicalFactory::construct(u"Au197:1.5"_s);
    const auto earlier = factory->constructLinearPeptideComplex(u"AG"_s);
    EXPECT_THROW(factory->setBuildingBlock(chem::ChemicalFactory::AminoAcidBlock, u"A"_s,
                                           u"Auranine"_s, u"C3Au"_s),
                 std::invalid_argument);
    const auto later = factory->constructLinearPeptideComplex(u"AG"_s);
    EXPECT_EQ(later->residues.at(1)->name, u"Alanine"_s);
    EXPECT_EQ(later->monoMass(), earlier->monoMass());
}

} // namespace
