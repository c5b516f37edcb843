#include "OpenFactory.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using chem::ChemicalFactory;

struct Row
{
    QString key;
    QString code;
    QString name;
    QString formula; ///< In display form, computed by hand from the pieces.
};

void expectDictionary(ChemicalFactory::BuildingBlockType type, const QList<Row>& rows)
{
    const OpenFactory factory;
    const auto dictionary = factory.buildingBlocks.value(type);
    EXPECT_EQ(dictionary.size(), rows.size());
    for (const Row& row : rows) {
        SCOPED_TRACE(row.key.toStdString());
        ASSERT_TRUE(dictionary.contains(row.key));
        const chem::NamedMolecule entry = dictionary.value(row.key);
        EXPECT_EQ(entry.code, row.code);
        EXPECT_EQ(entry.name, row.name);
        EXPECT_EQ(entry.formula().toString(), row.formula);
        EXPECT_EQ(entry.monoMass(), factory.constructMolecule(row.formula).monoMass());
        EXPECT_EQ(entry.averageMass(), factory.constructMolecule(row.formula).averageMass());
    }
}

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

TEST(BuildingBlocks, AminoAcids)
{
    expectDictionary(ChemicalFactory::AminoAcidBlock,
                     {{u"A"_s, u"A"_s, u"Alanine"_s, u"C3H5NO"_s},
                      {u"R"_s, u"R"_s, u"Arginine"_s, u"C6H12N4O"_s},
                      {u"N"_s, u"N"_s, u"Asparagine"_s, u"C4H6N2O2"_s},
                      {u"D"_s, u"D"_s, u"Aspartic acid"_s, u"C4H5NO3"_s},
                      {u"C"_s, u"C"_s, u"Cysteine"_s, u"C3H5NOS"_s},
                      {u"Q"_s, u"Q"_s, u"Glutamine"_s, u"C5H8N2O2"_s},
                      {u"E"_s, u"E"_s, u"Glutamic acid"_s, u"C5H7NO3"_s},
                      {u"G"_s, u"G"_s, u"Glycine"_s, u"C2H3NO"_s},
                      {u"H"_s, u"H"_s, u"Glycine"_s, u"C6H7N3O"_s}, // a name that programs know
                      {u"I"_s, u"I"_s, u"Isoleucine"_s, u"C6H11NO"_s},
                      {u"L"_s, u"L"_s, u"Leucine"_s, u"C6H11NO"_s},
                      {u"K"_s, u"K"_s, u"Lysine"_s, u"C6H12N2O"_s},
                      {u"M"_s, u"M"_s, u"Methionine"_s, u"C5H9NOS"_s},
                      {u"F"_s, u"F"_s, u"Phenylalanine"_s, u"C9H9NO"_s},
                      {u"P"_s, u"P"_s, u"Proline"_s, u"C5H7NO"_s},
                      {u"S"_s, u"S"_s, u"Serine"_s, u"C3H5NO2"_s},
                      {u"T"_s, u"T"_s, u"Threonine"_s, u"C4H7NO2"_s},
                      {u"W"_s, u"W"_s, u"Tryptophan"_s, u"C11H10N2O"_s},
                      {u"Y"_s, u"Y"_s, u"Tyrosine"_s, u"C9H9NO2"_s},
                      {u"V"_s, u"V"_s, u"Valine"_s, u"C5H9NO"_s}});
}

TEST(BuildingBlocks, Sugars)
{
    expectDictionary(ChemicalFactory::SugarBlock,
                     {{u"Hex"_s, u"Hex"_s, u"Hexose"_s, u"C6H10O5"_s},
                      {u"dHex"_s, u"dHex"_s, u"deoxyHexose"_s, u"C6H10O4"_s},
                      {u"Fuc"_s, u"Fuc"_s, u"Fucose"_s, u"C6H10O4"_s},
                      {u"HexNAc"_s, u"HexNAc"_s, u"N-Acetylhexosamine"_s, u"C8H13NO5"_s},
                      {u"Pent"_s, u"Pent"_s, u"Pentose"_s, u"C5H8O4"_s},
                      {u"NeuAc"_s, u"NeuAc"_s, u"N-acetyl neuraminic acid"_s, u"C11H17NO8"_s},
                      {u"NeuGc"_s, u"NeuGc"_s, u"N-glycoyl neuraminic acid"_s, u"C11H17NO9"_s},
                      {u"Sodium"_s, u"Sodium"_s, u"Sodium"_s, u"Na"_s},
                      {u"Na"_s, u"Sodium"_s, u"Sodium"_s, u"Na"_s}});
}

TEST(BuildingBlocks, Nucleobases)
{
    expectDictionary(ChemicalFactory::NucleobaseBlock,
                     {{u"A"_s, u"A"_s, u"Adenine"_s, u"C5H4N5"_s},
                      {u"G"_s, u"G"_s, u"Guanine"_s, u"C5H4N5O"_s},
                      {u"C"_s, u"C"_s, u"Cytosine"_s, u"C4H4N3O"_s},
                      {u"Q"_s, u"Q"_s, u"methyl-Cytosine"_s, u"C5H6N3O"_s},
                      {u"T"_s, u"T"_s, u"Thymine"_s, u"C5H5N2O2"_s},
                      {u"U"_s, u"U"_s, u"Uracil"_s, u"C4H3N2O2"_s}});
}

TEST(BuildingBlocks, Riboses)
{
    expectDictionary(ChemicalFactory::RiboseBlock,
                     {{u"r"_s, u"r"_s, u"2'-hydroxy (RNA)"_s, u"C5H7O3"_s},
                      {u"d"_s, u"d"_s, u"2'-deoxyribose (DNA)"_s, u"C5H7O2"_s},
                      {u"m"_s, u"m"_s, u"2'-O-methyl"_s, u"C6H9O3"_s},
                      {u"e"_s, u"e"_s, u"2'-O-methoxyethyl"_s, u"C8H13O4"_s},
                      {u"+"_s, u"+"_s, u"2',4'-methylene bridge (LNA)"_s, u"C6H7O3"_s},
                      {u"f"_s, u"f"_s, u"fluoro"_s, u"C5H6FO2"_s}});
}

TEST(BuildingBlocks, PhosphatesAndTerminals)
{
    expectDictionary(ChemicalFactory::PhosphateBlock,
                     {{u"*"_s, u"*"_s, u"phosphorothioate"_s, u"HO2PS"_s},
                      {u"."_s, u"."_s, u"phosphodiester"_s, u"HO3P"_s}});
    expectDictionary(
        ChemicalFactory::FivePrimeTerminalBlock,
        {{u"["_s, u"]"_s, u"5'-OH"_s, u"H"_s}, // opens with one bracket, is called by the other
         {u"{"_s, u"{"_s, u"5'-P"_s, u"H2O3P"_s}});
    expectDictionary(
        ChemicalFactory::ThreePrimeTerminalBlock,
        {{u"]"_s, u"]"_s, u"3'-OH"_s, u"HO"_s}, {u"}"_s, u"}"_s, u"3'-P"_s, u"H2O4P"_s}});
}

TEST(BuildingBlocks, KindsForCallersStartWithoutADictionary)
{
    const OpenFactory factory;
    EXPECT_EQ(factory.buildingBlocks.size(), 7);
    for (const int type : {4, 6, 7, 8, 9, 12}) {
        EXPECT_FALSE(
            factory.buildingBlocks.contains(static_cast<ChemicalFactory::BuildingBlockType>(type)));
    }
}

TEST(BuildingBlocks, DefaultsCarryNoCode)
{
    const OpenFactory factory;
    EXPECT_EQ(factory.defaultRibose.name, u"2'-deoxyribose (DNA)"_s);
    EXPECT_EQ(factory.defaultRibose.code, QString());
    EXPECT_EQ(factory.defaultRibose.formula().toString(), u"C5H7O2"_s);
    EXPECT_EQ(factory.defaultPhosphate.name, u"phosphodiester"_s);
    EXPECT_EQ(factory.defaultPhosphate.code, QString());
    EXPECT_EQ(factory.defaultPhosphate.formula().toString(), u"HO3P"_s);
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

TEST(BuildingBlocks, PeptidesAndOligonucleotidesShareStandardTermini)
{
    const OpenFactory factory;
    chem::NamedMolecule left;
    chem::NamedMolecule right;
    const auto expectTermini = [&] {
        EXPECT_EQ(left.name, u"NTerm"_s);
        EXPECT_EQ(left.code, u"H-"_s);
        EXPECT_EQ(left.monoMass(), factory.hydrogen.monoMass());
        EXPECT_EQ(left.formula().toString(), u"H"_s);
        EXPECT_EQ(right.name, u"CTerm"_s);
        EXPECT_EQ(right.code, u"-OH"_s);
        EXPECT_EQ(right.monoMass(), factory.hydroxyl.monoMass());
        EXPECT_EQ(right.formula().toString(), u"HO"_s);
    };
    factory.standardPeptideTermini(&left, &right);
    expectTermini();
    left = right = chem::NamedMolecule();
    factory.standardOligoTermini(&left, &right);
    expectTermini();
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

} // namespace
