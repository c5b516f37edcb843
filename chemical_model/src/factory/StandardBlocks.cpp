#include "factory/StandardBlocks.h"

using namespace Qt::StringLiterals;

namespace chem {

namespace {

using Rows = std::vector<StandardBlock>;

/// Residues of glycans. Sodium can be written in two ways.
Rows sugarRows()
{
    return {
        {u"Hex"_s, u"Hex"_s, u"Hexose"_s, u"H10C6O5"_s},
        {u"dHex"_s, u"dHex"_s, u"deoxyHexose"_s, u"H10C6O4"_s},
        {u"Fuc"_s, u"Fuc"_s, u"Fucose"_s, u"H10C6O4"_s},
        {u"HexNAc"_s, u"HexNAc"_s, u"N-Acetylhexosamine"_s, u"H13C8N1O5"_s},
        {u"Pent"_s, u"Pent"_s, u"Pentose"_s, u"H8C5O4"_s},
        {u"NeuAc"_s, u"NeuAc"_s, u"N-acetyl neuraminic acid"_s, u"H17C11N1O8"_s},
        {u"NeuGc"_s, u"NeuGc"_s, u"N-glycoyl neuraminic acid"_s, u"H17C11N1O9"_s},
        {u"Sodium"_s, u"Sodium"_s, u"Sodium"_s, u"Na"_s},
        {u"Na"_s, u"Sodium"_s, u"Sodium"_s, u"Na"_s},
    };
}

/// Residues of peptides. Histidine has carried the name "Glycine" since the first release, and
/// programs look it up by that name.
Rows aminoAcidRows()
{
    return {
        {u"A"_s, u"A"_s, u"Alanine"_s, u"C3H5NO"_s},
        {u"R"_s, u"R"_s, u"Arginine"_s, u"C6H12N4O"_s},
        {u"N"_s, u"N"_s, u"Asparagine"_s, u"C4H6N2O2"_s},
        {u"D"_s, u"D"_s, u"Aspartic acid"_s, u"C4H5NO3"_s},
        {u"C"_s, u"C"_s, u"Cysteine"_s, u"C3H5NOS"_s},
        {u"Q"_s, u"Q"_s, u"Glutamine"_s, u"C5H8N2O2"_s},
        {u"E"_s, u"E"_s, u"Glutamic acid"_s, u"C5H7N1O3"_s},
        {u"G"_s, u"G"_s, u"Glycine"_s, u"C2H3N1O1"_s},
        {u"H"_s, u"H"_s, u"Glycine"_s, u"C6H7N3O1"_s},
        {u"I"_s, u"I"_s, u"Isoleucine"_s, u"C6H11N1O1"_s},
        {u"L"_s, u"L"_s, u"Leucine"_s, u"C6H11N1O1"_s},
        {u"K"_s, u"K"_s, u"Lysine"_s, u"C6H12N2O1"_s},
        {u"M"_s, u"M"_s, u"Methionine"_s, u"C5H9N1O1S1"_s},
        {u"F"_s, u"F"_s, u"Phenylalanine"_s, u"C9H9N1O1"_s},
        {u"P"_s, u"P"_s, u"Proline"_s, u"C5H7N1O1"_s},
        {u"S"_s, u"S"_s, u"Serine"_s, u"C3H5N1O2"_s},
        {u"T"_s, u"T"_s, u"Threonine"_s, u"C4H7N1O2"_s},
        {u"W"_s, u"W"_s, u"Tryptophan"_s, u"C11H10N2O1"_s},
        {u"Y"_s, u"Y"_s, u"Tyrosine"_s, u"C9H9N1O2"_s},
        {u"V"_s, u"V"_s, u"Valine"_s, u"C5H9N1O1"_s},
    };
}

Rows nucleobaseRows()
{
    return {
        {u"A"_s, u"A"_s, u"Adenine"_s, u"C5H4N5"_s},
        {u"G"_s, u"G"_s, u"Guanine"_s, u"C5H4N5O1"_s},
        {u"C"_s, u"C"_s, u"Cytosine"_s, u"C4H4N3O1"_s},
        {u"Q"_s, u"Q"_s, u"methyl-Cytosine"_s, u"C5H6N3O1"_s},
        {u"T"_s, u"T"_s, u"Thymine"_s, u"C5H5N2O2"_s},
        {u"U"_s, u"U"_s, u"Uracil"_s, u"C4H3N2O2"_s},
    };
}

Rows riboseRows()
{
    return {
        {u"r"_s, u"r"_s, u"2'-hydroxy (RNA)"_s, u"C5O3H7"_s},
        standardRibose(),
        {u"m"_s, u"m"_s, u"2'-O-methyl"_s, u"C6O3H9"_s},
        {u"e"_s, u"e"_s, u"2'-O-methoxyethyl"_s, u"C5O1H7C3H6O3"_s},
        {u"+"_s, u"+"_s, u"2',4'-methylene bridge (LNA)"_s, u"C5O2H7CO"_s},
        {u"f"_s, u"f"_s, u"fluoro"_s, u"C5O2H6F1"_s},
    };
}

Rows phosphateRows()
{
    return {
        {u"*"_s, u"*"_s, u"phosphorothioate"_s, u"HPO2S"_s},
        standardPhosphate(),
    };
}

/// 5' ends. The hydroxyl is found by its opening bracket and carries the code of the closing one,
/// which it shares with the 3' hydroxyl.
Rows fivePrimeTerminalRows()
{
    return {
        {u"["_s, u"]"_s, u"5'-OH"_s, u"H"_s},
        {u"{"_s, u"{"_s, u"5'-P"_s, u"H2PO3"_s},
    };
}

Rows threePrimeTerminalRows()
{
    return {
        {u"]"_s, u"]"_s, u"3'-OH"_s, u"OH"_s},
        {u"}"_s, u"}"_s, u"3'-P"_s, u"H2PO4"_s},
    };
}

} // namespace

StandardBlock standardRibose()
{
    return {u"d"_s, u"d"_s, u"2'-deoxyribose (DNA)"_s, u"C5O2H7"_s};
}

StandardBlock standardPhosphate()
{
    return {u"."_s, u"."_s, u"phosphodiester"_s, u"HPO3"_s};
}

std::vector<StandardBlock> standardBlocks(ChemicalFactory::BuildingBlockType type)
{
    switch (type) {
    case ChemicalFactory::AminoAcidBlock:
        return aminoAcidRows();
    case ChemicalFactory::NucleobaseBlock:
        return nucleobaseRows();
    case ChemicalFactory::RiboseBlock:
        return riboseRows();
    case ChemicalFactory::PhosphateBlock:
        return phosphateRows();
    case ChemicalFactory::SugarBlock:
        return sugarRows();
    case ChemicalFactory::FivePrimeTerminalBlock:
        return fivePrimeTerminalRows();
    case ChemicalFactory::ThreePrimeTerminalBlock:
        return threePrimeTerminalRows();
    default:
        return {};
    }
}

} // namespace chem
