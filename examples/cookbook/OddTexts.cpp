// The tests of odd text, proved on texts that look right to a chemist and are read as something
// else.

#include "Recipes.h"

#include <algorithm>

// The tests, in QuietFailures.cpp.
bool isKnownComposition(const QString& text, const ChemicalFactory& factory);
bool isKnownGlycan(const QString& text, const ChemicalFactory& factory);
bool canBeRead(const QString& code, ChemicalFactory::BuildingBlockType type);

namespace {

const QList<QString> compositions = {
    u"C6H12O6"_s, u"NaCl"_s,       u"H2O"_s,       u"C8H10N4O2"_s,   u"CH3COOH"_s,
    u"CO"_s,      u"Co"_s,         u"C6 H12 O6"_s, u"C10H11N4Na2"_s, u"C6470H10012N1726O2013S42"_s,
    u"C"_s,       u"C1048576H2"_s,
};

const QList<QString> noCompositions = {
    u"(CH2)3"_s,
    u"[13C]6H12O6"_s,
    u"CH3-CH2-OH"_s,
    u"C6H12O6-H2O"_s,
    u"PO4(3-)"_s,
    u"2H2O"_s,
    u"HPO3*2"_s,
    u"NaCl+H2O"_s,
    u"Fe3+"_s,
    u"Na+"_s,
    u"HPO4 2-"_s,
    u"CuSO4.5H2O"_s,
    u"CuSO4\u00B75H2O"_s,
    u"CuSO4 * 5 H2O"_s,
    u"C6H12O6(H2O)2"_s,
    u"D2O"_s,
    u"13C6H12O6"_s,
    u"13CH4"_s,
    u"C[13]H4"_s,
    u"FE2O3"_s,
    u"C 6H 12"_s,
    u"c6h12o6"_s,
    u"C\u2086H\u2081\u2082O\u2086"_s,
    u"1.5H2O"_s,
    u"C0.9H2"_s,
    u"CH3COOH/H2O"_s,
    u"C2H5OH:H2O"_s,
    u"H2SO4 98%"_s,
    u"Caffeine"_s,
    u"CH3Xx"_s,
    u"H-2O-1"_s,
    u"C6H12O6\n"_s,
    u" C6H12O6"_s,
    u"C1e3"_s,
    u"C99999999999"_s,
    u"C0H4"_s,
    u"E"_s,
    u"R-OH"_s,
    u"MeOH"_s,
    QString(),
};

const QList<QString> glycans = {
    u"HexNAc(2)Hex(5)"_s, u"HexNAc(4)Hex(3)Fuc(1)"_s, u"Hex(5) HexNAc(4) NeuAc(2)"_s,
    u"Hex (5)"_s,         u"dHex(1)Pent(1)"_s,        u"NeuGc(1)Na(1)"_s,
};

const QList<QString> noGlycans = {
    u"HexNAc4Hex3Fuc(1)"_s,
    u"HexNAc(4)Hex3Fuc(1)"_s,
    u"hex(5)"_s,
    u"Hex5HexNAc4"_s,
    u"HexNac(2)Hex(5)"_s,
    u"HexA(1)Hex(2)"_s,
    u"KDN(1)Hex(3)"_s,
    u"HexNAc(2)+Hex(5)"_s,
    u"HexNAc(2)-Hex(5)"_s,
    u"Hex(5)HexNAc(2"_s,
    u"2Hex(5)"_s,
    u"Hex(5)2"_s,
    u"Hex(-1)HexNAc(2)"_s,
    u"Hex(1.5)HexNAc(2)"_s,
    u"Hex(99999999999)"_s,
    u"Hex( 5 )HexNAc(2)"_s,
    u"Hex[5]HexNAc(2)"_s,
    u"H5N4F1"_s,
    u"Hex(5)\n"_s,
    QString(),
};

/// Prints a line for each kind of text, and every text that is not judged as it should be.
template <typename Texts, typename Test>
void prove(const QString& what, const Texts& texts, bool isGood, Test test, QTextStream& out)
{
    qsizetype wrong = 0;
    for (const auto& text : texts) {
        if (test(text) != isGood) {
            out << "FAILED " << what << ": " << text << '\n';
            ++wrong;
        }
    }
    if (wrong == 0 && !texts.isEmpty())
        out << texts.size() << ' ' << what << (isGood ? ": accepted\n" : ": refused\n");
}

using Type = ChemicalFactory::BuildingBlockType;

/// Reads a text that holds the code once, and gives the mass that it came to.
double massOfText(const ChemicalFactory& factory, Type type, const QString& code)
{
    switch (type) {
    case ChemicalFactory::AminoAcidBlock:
        return factory.constructLinearPeptideComplex(u"G"_s + code + u"G"_s)->monoMass();
    case ChemicalFactory::SugarBlock:
        return factory.constructGlycanModification(code + u"(1)"_s).monoMass();
    default:
        break;
    }
    const QMap<Type, QString> patterns = {{ChemicalFactory::NucleobaseBlock, u"dG%1 dG"_s},
                                          {ChemicalFactory::RiboseBlock, u"dG%1GdG"_s},
                                          {ChemicalFactory::PhosphateBlock, u"dGdG%1dG"_s},
                                          {ChemicalFactory::FivePrimeTerminalBlock, u"%1dG"_s},
                                          {ChemicalFactory::ThreePrimeTerminalBlock, u"dG%1"_s}};
    const QString text = patterns.value(type).replace(u"%1"_s, code);
    const auto complex = factory.constructLinearOligoComplex(text);
    return complex ? complex->monoMass() : 0.0;
}

/// Whether a reader finds the block that stands under a code: its mass is one that only it has.
bool isFound(const QString& code, Type type)
{
    constexpr double heavy = 20000.0;
    const auto factory = ChemicalFactory::construct(QString());
    factory->setBuildingBlock(type, code, u"heavy"_s, u"U100"_s);
    const double mass = massOfText(*factory, type, code);
    return mass > heavy && mass < 2.0 * heavy + heavy / 2.0;
}

const QMap<Type, QList<QString>> codes = {
    {ChemicalFactory::AminoAcidBlock, {u"s"_s, u"U"_s, u"C"_s, u"*"_s, u"\u00E4"_s}},
    {ChemicalFactory::NucleobaseBlock, {u"I"_s, u"Z"_s, u"A"_s, u"$"_s}},
    {ChemicalFactory::RiboseBlock, {u"t"_s, u"+"_s, u"c"_s, u"m"_s}},
    {ChemicalFactory::PhosphateBlock, {u"$"_s, u"*"_s, u"."_s, u"#"_s}},
    {ChemicalFactory::FivePrimeTerminalBlock, {u"<"_s, u"["_s, u"b"_s}},
    {ChemicalFactory::ThreePrimeTerminalBlock, {u">"_s, u"]"_s, u"b"_s}},
    {ChemicalFactory::SugarBlock, {u"Hex"_s, u"NeuAc"_s, u"Na"_s}},
};

const QMap<Type, QList<QString>> noCodes = {
    {ChemicalFactory::AminoAcidBlock, {u"Sec"_s, u"pS"_s, u"\U0001F9EA"_s, QString()}},
    {ChemicalFactory::NucleobaseBlock, {u"iG"_s, u"5Me"_s, u" "_s, QString()}},
    {ChemicalFactory::RiboseBlock, {u"moe"_s, u"LNA"_s, u" "_s, u"\t"_s, QString()}},
    {ChemicalFactory::PhosphateBlock, {u"ps"_s, u"**"_s, u" "_s, QString()}},
    {ChemicalFactory::FivePrimeTerminalBlock, {u"5P"_s, u" "_s, QString()}},
    {ChemicalFactory::ThreePrimeTerminalBlock, {u"3P"_s, u" "_s, QString()}},
    {ChemicalFactory::SugarBlock,
     {u"KDN"_s, u"HexA"_s, u"hex"_s, u"H"_s, u"Hex(1)Hex"_s, QString()}},
    {ChemicalFactory::GlycanBlock, {u"G"_s}},
    {ChemicalFactory::NTerminalBlock, {u"Ac"_s, u"a"_s}},
};

/// Numbers, commas between texts, and what has a meaning of its own inside a class of characters.
const QList<QString> specialCodes = {u"0"_s, u"9"_s, u","_s, u"-"_s, u"^"_s, u"\\"_s};

} // namespace

void oddCodes(QTextStream& out)
{
    for (const Type type : ChemicalFactory::buildingBlockTypes) {
        const QString name = ChemicalFactory::buildingBlockTypes.key(type);
        const auto isReadable = [type](const QString& code) {
            return canBeRead(code, type);
        };
        const auto isRead = [type](const QString& code) {
            return isFound(code, type);
        };
        prove(name + u" codes"_s, codes.value(type), true, isReadable, out);
        prove(name + u" codes, as they are read"_s, codes.value(type), true, isRead, out);
        prove(name + u" codes"_s, noCodes.value(type), false, isReadable, out);
        prove(name + u" codes, as they are read"_s, noCodes.value(type), false, isRead, out);
    }
    prove(
        u"codes that mean something else in oligonucleotides"_s, specialCodes, false,
        [](const QString& code) { return canBeRead(code, ChemicalFactory::RiboseBlock); }, out);
}

void oddTexts(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const auto isComposition = [&factory](const QString& text) {
        return isKnownComposition(text, *factory);
    };
    const auto isGlycan = [&factory](const QString& text) {
        return isKnownGlycan(text, *factory);
    };
    prove(u"compositions"_s, compositions, true, isComposition, out);
    prove(u"texts that are no composition"_s, noCompositions, false, isComposition, out);
    prove(u"glycans"_s, glycans, true, isGlycan, out);
    prove(u"texts that are no glycan"_s, noGlycans, false, isGlycan, out);
}
