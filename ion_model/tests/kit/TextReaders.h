#pragma once

#include "ReaderLaws.h"

/// \file
/// All readers of text with what their texts are made of.

namespace readerLaws {

/// Every reader of the library, in an order that stays: inputs of the fuzzer name them by number.
inline const std::vector<Reader>& allReaders()
{
    using namespace Qt::StringLiterals;
    static const QStringList formula = {
        u"C"_s,      u"H"_s,          u"O"_s,          u"N"_s, u"Cl"_s, u"Og"_s, u"Xx"_s,
        u"D"_s,      u"T"_s,          u"("_s,          u")"_s, u"["_s,  u"]"_s,  u"[13C]"_s,
        u"[13C6]"_s, u"."_s,          u"\u00b7"_s,     u"-"_s, u"0"_s,  u"1"_s,  u"2"_s,
        u"65536"_s,  u"2147483647"_s, u"2147483648"_s, u" "_s};
    static const QStringList aminoAcids = {u"A"_s, u"K"_s, u"R"_s, u"P"_s, u"U"_s, u"O"_s,
                                           u"J"_s, u"B"_s, u"X"_s, u"Z"_s, u"*"_s, u"k"_s};
    static const std::vector<Reader> readers = {
        {"Composition",
         readComposition,
         {u"C6H12O6"_s, u"CuSO4.5H2O"_s, u"[13C6]H12O6"_s, u"C(CH3)4"_s, u"C-2[13C2]H2N"_s,
          u"Fe4(Fe(CN)6)3"_s, u"CD3OD"_s, u"MgCl2.2(CH3OH).3H2O"_s},
         formula},
        {"UnimodText",
         readUnimod,
         {u"H(3) C(2) 13C(2) N O(-1)"_s, u"Hex HexNAc(2)"_s, u"dHex(1) NeuAc(2) Sulf"_s,
          u"2H(3) 15N(-2) Ac Water(-1)"_s},
         {u"H"_s,     u"C"_s, u"13C"_s, u"2H"_s,  u"15N"_s,  u"Hex"_s, u"HexNAc"_s,       u"Ac"_s,
          u"Water"_s, u"("_s, u")"_s,   u"(2)"_s, u"(-1)"_s, u"(0)"_s, u"(2147483647)"_s, u" "_s,
          u"9"_s,     u"0"_s, u"-"_s,   u"x"_s}},
        {"Ionization",
         readIonization,
         {u"[M+2H]2+"_s, u"[M-3H]3-"_s, u"[M+H+Na]2+"_s, u"[2M+H]+"_s, u"[M]+."_s, u"[M+Fe]3+"_s,
          u"[M+[13C]H3]+"_s, u"+2"_s, u"-3"_s, u"[M+CuSO4.5H2O-H]-"_s},
         {u"["_s,     u"]"_s,          u"M"_s,   u"+"_s,   u"-"_s,     u"."_s,
          u"H"_s,     u"Na"_s,         u"NH4"_s, u"Cl"_s,  u"Fe"_s,    u"H2O"_s,
          u"[13C]"_s, u"(CH3)2"_s,     u"2"_s,   u"3"_s,   u"10000"_s, u"10001"_s,
          u"0"_s,     u"2147483647"_s, u"Og"_s,  u"]2+"_s, u"]-"_s,    u" "_s}},
        {"Tolerance",
         readTolerance,
         {u"10ppm"_s, u"0.02Da"_s, u"10 ppm"_s, u"0.5 da"_s, u".5PPM"_s},
         {u"1"_s, u"0"_s, u"9"_s, u"."_s, u" "_s, u"ppm"_s, u"Da"_s, u"p"_s, u"m"_s, u"D"_s, u"-"_s,
          u"e5"_s, u"inf"_s, u"nan"_s, u"+"_s, u","_s}},
        {"LossRule",
         readLossRule,
         {u"H2O"_s, u"H2O@STED"_s, u"NH3@KRNQ"_s, u"H3PO4"_s, u"[13C]O2@K"_s},
         formula + QStringList{u"@"_s, u"STED"_s, u"@K"_s, u"s"_s}},
        {"Peptide", readPeptide, {u"DRVYIHPF"_s, u"ACDEFGHIKLMNPQRSTVWY"_s, u"UOJ"_s}, aminoAcids},
        {"Oligonucleotide",
         readOligonucleotide,
         {u"ACGT"_s, u"rArC*rGrU"_s, u"{A*C.G*T}"_s, u"eT*eQ*dAdG"_s, u"[AC]"_s, u"A300.5C"_s},
         {u"A"_s, u"C"_s, u"G"_s, u"T"_s,   u"U"_s,   u"Q"_s, u"r"_s,  u"d"_s,
          u"m"_s, u"e"_s, u"f"_s, u"+"_s,   u"*"_s,   u"."_s, u"-"_s,  u"["_s,
          u"]"_s, u"{"_s, u"}"_s, u"300"_s, u"0.5"_s, u" "_s, u"\n"_s, u"X"_s},
         20},
        {"Protease",
         readProtease,
         ions::Protease::names() + QStringList{u"MS:1001251"_s, u"trypsin"_s},
         {u"MS:"_s, u"1001251"_s, u"Trypsin"_s, u"/P"_s, u"Lys-C"_s, u" "_s, u"cleavage"_s},
         20},
        {"Ribonuclease",
         readRibonuclease,
         ions::Ribonuclease::names() + QStringList{u"RNase MC1"_s, u"rnase t1"_s},
         {u"RNase "_s, u"T1"_s, u"A"_s, u"MC1"_s, u"cusativin"_s, u" "_s},
         5},
        {"Expression",
         readExpression,
         {u"(?<=[KR])(?!P)"_s, u"(?=[DE])"_s, u"((?<=D))|((?=D))"_s, u"(?<=[^DE])(?=[AF][^P])"_s},
         {u"(?<="_s, u"(?="_s, u"(?!"_s, u"(?<!"_s, u"(?:"_s, u"("_s, u")"_s,    u"["_s,
          u"[^"_s,   u"]"_s,   u"|"_s,   u"K"_s,    u"R"_s,   u"P"_s, u"[KR]"_s, u"D"_s,
          u"k"_s,    u"."_s,   u"^"_s,   u"$"_s,    u"\\"_s,  u"*"_s}},
        {"LookUp",
         lookUp,
         {u"Oxidation"_s, u"phospho"_s, u"DSSO"_s, u"a-B"_s, u"z."_s, u"precursor"_s, u"Co"_s,
          u"NeuAc"_s, u"HexNAc"_s, u"GAVL"_s},
         aminoAcids + QStringList{u"."_s, u"-"_s, u"a"_s, u"Hex"_s, u"Phospho"_s, u"C"_s}},
    };
    return readers;
}

} // namespace readerLaws
