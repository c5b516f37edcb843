#include "NaturalFactory.h"
#include "SameMolecules.h"

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
    const auto dictionary = naturalFactory().buildingBlocks.value(type);
    EXPECT_EQ(dictionary.size(), rows.size());
    for (const Row& row : rows) {
        SCOPED_TRACE(row.key.toStdString());
        ASSERT_TRUE(dictionary.contains(row.key));
        EXPECT_EQ(dictionary[row.key].formula().toString(), row.formula);
        expectSame(dictionary[row.key],
                   chem::NamedMolecule(naturalFactory().constructMolecule(row.formula), row.name,
                                       row.code));
    }
}

TEST(StandardBlocks, HoldTheAminoAcids)
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

TEST(StandardBlocks, HoldTheSugarsAndSodium)
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

TEST(StandardBlocks, HoldTheNucleobases)
{
    expectDictionary(ChemicalFactory::NucleobaseBlock,
                     {{u"A"_s, u"A"_s, u"Adenine"_s, u"C5H4N5"_s},
                      {u"G"_s, u"G"_s, u"Guanine"_s, u"C5H4N5O"_s},
                      {u"C"_s, u"C"_s, u"Cytosine"_s, u"C4H4N3O"_s},
                      {u"Q"_s, u"Q"_s, u"methyl-Cytosine"_s, u"C5H6N3O"_s},
                      {u"T"_s, u"T"_s, u"Thymine"_s, u"C5H5N2O2"_s},
                      {u"U"_s, u"U"_s, u"Uracil"_s, u"C4H3N2O2"_s}});
}

TEST(StandardBlocks, HoldTheRiboses)
{
    expectDictionary(ChemicalFactory::RiboseBlock,
                     {{u"r"_s, u"r"_s, u"2'-hydroxy (RNA)"_s, u"C5H7O3"_s},
                      {u"d"_s, u"d"_s, u"2'-deoxyribose (DNA)"_s, u"C5H7O2"_s},
                      {u"m"_s, u"m"_s, u"2'-O-methyl"_s, u"C6H9O3"_s},
                      {u"e"_s, u"e"_s, u"2'-O-methoxyethyl"_s, u"C8H13O4"_s},
                      {u"+"_s, u"+"_s, u"2',4'-methylene bridge (LNA)"_s, u"C6H7O3"_s},
                      {u"f"_s, u"f"_s, u"fluoro"_s, u"C5H6FO2"_s}});
}

TEST(StandardBlocks, HoldTheLinkagesAndEndsOfStrands)
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

TEST(StandardBlocks, KindsForCallersStartWithoutADictionary)
{
    EXPECT_EQ(naturalFactory().buildingBlocks.size(), 7);
    for (const int type : {4, 6, 7, 8, 9, 12}) {
        EXPECT_FALSE(naturalFactory().buildingBlocks.contains(
            static_cast<ChemicalFactory::BuildingBlockType>(type)));
    }
}

TEST(StandardBlocks, DefaultsCarryNoCode)
{
    EXPECT_EQ(naturalFactory().defaultRibose.name, u"2'-deoxyribose (DNA)"_s);
    EXPECT_EQ(naturalFactory().defaultRibose.code, QString());
    EXPECT_EQ(naturalFactory().defaultRibose.formula().toString(), u"C5H7O2"_s);
    EXPECT_EQ(naturalFactory().defaultPhosphate.name, u"phosphodiester"_s);
    EXPECT_EQ(naturalFactory().defaultPhosphate.code, QString());
    EXPECT_EQ(naturalFactory().defaultPhosphate.formula().toString(), u"HO3P"_s);
}

} // namespace
