#include "Texts.h"

using namespace Qt::StringLiterals;

namespace {

/// Every kind of element: usual ones, ones of many isotopes, ones of one, an electron.
const QList<QString> symbols = {
    u"C"_s,  u"H"_s, u"N"_s,  u"O"_s,  u"S"_s,  u"P"_s,  u"F"_s,  u"Cl"_s, u"Br"_s, u"I"_s,
    u"Na"_s, u"K"_s, u"Ca"_s, u"Fe"_s, u"Se"_s, u"Pt"_s, u"Hg"_s, u"Sn"_s, u"Xe"_s, u"Gd"_s,
    u"Li"_s, u"B"_s, u"Si"_s, u"Au"_s, u"U"_s,  u"Mg"_s, u"Zn"_s, u"Cu"_s, u"E"_s,
};

const QList<QString> oddNumbers = {
    u"0"_s,     u"-1"_s,         u"(-2)"_s,        u"-0"_s,  u"+3"_s,  u"0.5"_s,
    u"-1.25"_s, u"1000000"_s,    u"123456.5"_s,    u".5"_s,  u"5."_s,  u"1.2.3"_s,
    u"--1"_s,   u"2147483647"_s, u"2147483648"_s,  u"-"_s,   u" 7"_s,  u"(12)"_s,
    u"1e3"_s,   u"0.0000001"_s,  u"99999999999"_s, u"007"_s, u"1.5"_s, u"1-1"_s,
};

/// Elements that no table has, and texts that are none.
const QList<QString> oddSymbols = {
    u"Xx"_s,      u"Hexose"_s, u"c"_s,      u"hO"_s, u"CH"_s, u"_"_s,  u"\u00c5"_s, u"\u00e9"_s,
    u"Z\u00df"_s, u"\u0416"_s, u"\u00b2"_s, u"Q"_s,  u"J1"_s, u"\n"_s, u"/"_s,
};

QString numberText(int number)
{
    return number == 1 ? QString() : QString::number(number);
}

QString usualTerm(Choices* choices)
{
    const QString symbol = choices->oneIn(3) ? choices->of(symbols) : symbols.at(choices->below(6));
    const int largest = choices->oneIn(8) ? 5000 : 40;
    return symbol + numberText(choices->from(1, largest));
}

QString oddTerm(Choices* choices)
{
    const QString symbol = choices->oneIn(3) ? choices->of(oddSymbols) : choices->of(symbols);
    return symbol + choices->of(oddNumbers);
}

} // namespace

QString anyMoleculeText(Choices* choices)
{
    QString text;
    for (int terms = choices->from(1, 6); terms > 0; --terms)
        text += usualTerm(choices);
    return text;
}

QString anyFormulaText(Choices* choices)
{
    const bool isOdd = choices->oneIn(2);
    QString text;
    for (int terms = choices->from(0, 6); terms > 0; --terms)
        text += isOdd && choices->oneIn(2) ? oddTerm(choices) : usualTerm(choices);
    return text;
}

QString anyPeptideText(Choices* choices, int longest)
{
    const bool isOdd = choices->oneIn(6);
    const QString letters =
        isOdd ? u"ACDEFGHIKLMNPQRSTVWYBJOUXZacdkr -*/7\u00c5\u0410"_s : u"ACDEFGHIKLMNPQRSTVWY"_s;
    const int length = choices->from(0, longest);
    return choices->text(letters, length);
}

QString anyStrandText(Choices* choices, int longest)
{
    static const QList<QString> numbers = {u"12"_s, u"-3.5"_s, u"+100"_s, u".25"_s, u"329.0525"_s};
    QString text = choices->of<QString>({QString(), QString(), u"["_s, u"{"_s});
    for (int length = choices->from(1, longest); length > 0; --length) {
        if (choices->oneIn(2))
            text += choices->text(u"rdme+f"_s, 1);
        text += choices->oneIn(12) ? choices->of(numbers) : choices->text(u"AGCQTU"_s, 1);
        if (choices->oneIn(2)) {
            const int marks = choices->oneIn(8) ? 2 : 1;
            text += choices->text(u"*."_s, marks);
        }
    }
    return text + choices->of<QString>({QString(), QString(), u"]"_s, u"}"_s});
}

QString anyOligoText(Choices* choices, int longest)
{
    if (choices->oneIn(2))
        return anyStrandText(choices, longest);
    static const QString characters = u"AGCTUrdme+*.,[]{}0123-+. \n\u00c5"_s;
    const int length = choices->from(0, longest);
    return choices->oneIn(2) ? choices->text(u"ACGTr*"_s, length)
                             : choices->text(characters, length);
}

QString anyGlycanText(Choices* choices)
{
    static const QList<QString> names = {u"HexNAc"_s, u"Hex"_s,   u"dHex"_s,  u"Fuc"_s,
                                         u"Pent"_s,   u"NeuAc"_s, u"NeuGc"_s, u"Sodium"_s,
                                         u"Na"_s,     u"hex"_s,   u"Kdn"_s,   u"Xyl"_s};
    static const QList<QString> counts = {u"(0)"_s,   u"(2147483647)"_s, u"(2147483648)"_s,
                                          u"(-1)"_s,  u"( 2)"_s,         u" (2)"_s,
                                          u"\t(3)"_s, u"(007)"_s,        u"2"_s,
                                          u"()"_s,    u"(1.5)"_s,        u"(2"_s};
    const bool isOdd = choices->oneIn(3);
    QString text;
    for (int terms = choices->from(0, 5); terms > 0; --terms) {
        text += isOdd ? choices->of(names) : names.at(choices->below(9));
        const int count = choices->from(1, 12);
        text +=
            isOdd && choices->oneIn(2) ? choices->of(counts) : u'(' + QString::number(count) + u')';
        if (choices->oneIn(6))
            text += choices->text(u" ,;-\n"_s, 1);
    }
    return text;
}
