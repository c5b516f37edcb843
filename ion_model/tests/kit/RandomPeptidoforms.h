#pragma once

#include <QString>
#include <QStringList>

#include <random>

using namespace Qt::StringLiterals;

/// Texts of peptidoforms made by the rules of the grammar, each rule a function.
class RandomPeptidoform
{
public:
    explicit RandomPeptidoform(unsigned seed)
        : m_random(seed)
    {
    }

    QString text()
    {
        QString text = maybe([this]() -> QString { return u"(>>>"_s + name() + u')'; });
        text += many(2, [this]() -> QString { return global(); });
        text += ion();
        text += many(1, [this]() -> QString { return u"+"_s + ion(); });
        return text;
    }

private:
    int below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(m_random); }

    QString oneOf(const QStringList& texts) { return texts.at(below(int(texts.size()))); }

    template <typename Rule>
    QString maybe(const Rule& rule)
    {
        return below(4) == 0 ? rule() : QString();
    }

    template <typename Rule>
    QString many(int most, const Rule& rule)
    {
        QString text;
        for (int i = below(most + 1); i > 0; --i)
            text += rule();
        return text;
    }

    /// The text with its letters in random case.
    QString anyCase(QString text)
    {
        for (QChar& c : text)
            c = below(4) == 0 ? c.toLower() : below(4) == 0 ? c.toUpper() : c;
        return text;
    }

    QString residue() { return anyCase(QString(QChar(char16_t(u'A' + below(26))))); }
    QString integer()
    {
        return many(1, []() -> QString { return u"0"_s; }) + digits();
    }
    QString digits() { return QString::number(below(10) == 0 ? below(100000) : below(4)); }
    QString signedInteger() { return oneOf({{}, u"+"_s, u"-"_s}) + integer(); }
    QString blanks()
    {
        return many(1, []() -> QString { return u" "_s; });
    }

    QString decimal()
    {
        return integer() + maybe([this]() -> QString { return u"."_s + integer(); });
    }

    QString name()
    {
        return oneOf({u"a"_s, u"x(III)"_s, u"b>c [#|] d"_s, u"(p(q))"_s, u"\u03b1\U0001f9ea"_s});
    }

    QString formula()
    {
        QString text = blanks() + element();
        text += many(3, [this]() -> QString { return blanks() + element(); });
        return text + blanks();
    }

    QString element()
    {
        if (below(4) == 0) {
            return u"["_s + blanks() + oneOf({u"13 C"_s, u"2H"_s, u"15N"_s}) + blanks() +
                   maybe([this]() -> QString { return signedInteger(); }) + blanks() + u']';
        }
        return oneOf({u"C"_s, u"H"_s, u"Na"_s, u"Zn"_s, u"O"_s, u"Og"_s}) +
               maybe([this]() -> QString { return blanks() + signedInteger(); });
    }

    QString charge() { return anyCase(u":z"_s) + signedInteger(); }

    QString chargedFormula()
    {
        return formula() + maybe([this]() -> QString { return charge(); });
    }

    QString monosaccharide()
    {
        const QString kind =
            below(5) == 0 ? u"{"_s + chargedFormula() + u'}'
                          : anyCase(oneOf(u"Sulfate Phosphate Fuc NeuAc NeuGc Neu dHex en,aHex "
                                          "aHex HexNAcS HexNAc HexNS HexS HexP HexN Hex Sug "
                                          "Tri Tet Pen Hep Oct Non Dec"_s.split(u' ')));
        return kind + maybe([this]() -> QString { return integer(); }) + blanks();
    }

    QString glycan()
    {
        QString text = monosaccharide();
        return text + many(4, [this]() -> QString { return monosaccharide(); });
    }

    QString tag()
    {
        switch (below(9)) {
        case 0:
            return anyCase(u"Formula:"_s) + chargedFormula();
        case 1:
            return anyCase(u"Glycan:"_s) + glycan();
        case 2:
            return anyCase(oneOf({{}, u"U:"_s, u"M:"_s, u"Obs:"_s, u"G:"_s})) +
                   oneOf({u"+"_s, u"-"_s}) + decimal();
        case 3:
            return anyCase(oneOf({u"UNIMOD:"_s, u"MOD:"_s, u"XLMOD:"_s})) + integer();
        case 4:
            return anyCase(oneOf({u"GNO:G59626AS"_s, u"RESID:AA0037"_s}));
        case 5:
            return anyCase(u"INFO:"_s) + maybe([this]() -> QString { return modificationName(); });
        default:
            return anyCase(oneOf({{}, u"U:"_s, u"R:"_s, u"X:"_s})) + modificationName();
        }
    }

    QString modificationName()
    {
        return oneOf({u"Oxidation"_s, u"Gln->pyro-Glu"_s, u"Cation:Al[III]"_s, u"half cystine"_s,
                      u"a[b[c]d]e"_s, u"Label:13C(6)"_s, u"14"_s, u"\u03b2-\U0001d4d0"_s});
    }

    QString label() { return oneOf({u"#XL"_s, u"#xL"_s}) + integer(); }

    QString anyLabel()
    {
        switch (below(3)) {
        case 0:
            return label();
        case 1:
            return anyCase(u"#Branch"_s);
        default:
            return u"#g"_s + integer() +
                   maybe([this]() -> QString { return u"(0."_s + integer() + u')'; });
        }
    }

    QString place()
    {
        return below(2) == 0 ? residue()
                             : anyCase(oneOf({u"N-term"_s, u"C-term"_s})) +
                                   maybe([this]() -> QString { return u":"_s + residue(); });
    }

    QString places()
    {
        const QString first = place();
        return first + many(2, [this]() -> QString { return u","_s + place(); });
    }

    QString setting()
    {
        switch (below(4)) {
        case 0:
            return anyCase(u"|Position:"_s) + places();
        case 1:
            return anyCase(u"|CoMKP"_s);
        case 2:
            return anyCase(u"|CoMUP"_s);
        default:
            return u"|"_s + tag();
        }
    }

    QString tags()
    {
        const QString first = tag();
        return first + many(2, [this]() -> QString { return u"|"_s + tag(); });
    }

    QString modification()
    {
        const QString first = tag() + maybe([this]() -> QString { return anyLabel(); });
        return u"["_s + first + many(2, [this]() -> QString { return setting(); }) +
               maybe([this]() -> QString { return u"|Limit:"_s + integer(); }) + u']';
    }

    QString modificationOrLabel()
    {
        return below(5) == 0 ? u"["_s + anyLabel() + u']' : modification();
    }

    QString global()
    {
        if (below(2) == 0) {
            return u"<"_s + oneOf({u"13C"_s, u"15N"_s, u"D"_s, u"d"_s, u"018O"_s}) + u'>';
        }
        const QString rule = u"<["_s + tags();
        return rule + u"]@"_s + places() + u'>';
    }

    QString sequenceElement()
    {
        const QString letter = residue();
        return letter + (below(3) == 0 ? modificationOrLabel() : QString());
    }

    QString elements()
    {
        const QString first = sequenceElement();
        return first + many(3, [this]() -> QString { return sequenceElement(); });
    }

    QString section()
    {
        const int kind = below(8);
        if (kind == 0)
            return u"(?"_s + elements() + u')';
        if (kind == 1) {
            const QString range = u"("_s + elements() + u')' + modification();
            return range + many(1, [this]() -> QString { return modification(); });
        }
        return elements();
    }

    QString count()
    {
        return maybe([this]() -> QString { return u"^"_s + integer(); });
    }

    QString unlocalised()
    {
        QString text = modification() + count();
        text += many(1, [this]() -> QString { return modification() + count(); });
        return text + u'?';
    }

    QString end()
    {
        const QString first = modificationOrLabel();
        return first + many(1, [this]() -> QString { return modificationOrLabel(); });
    }

    QString chain()
    {
        QString text = maybe([this]() -> QString { return u"(>"_s + name() + u')'; });
        text += maybe([this]() -> QString {
            return unlocalised() + maybe([this]() -> QString { return unlocalised(); });
        });
        text += maybe([this]() -> QString { return u"{"_s + tags() + u'}'; });
        text += maybe([this]() -> QString { return end() + u'-'; });
        text += section();
        text += many(2, [this]() -> QString { return section(); });
        return text + maybe([this]() -> QString { return u"-"_s + end(); });
    }

    QString carrier() { return formula() + charge() + count(); }

    QString ion()
    {
        QString text = maybe([this]() -> QString { return u"(>>"_s + name() + u')'; });
        text += chain();
        text += many(1, [this]() -> QString { return u"//"_s + chain(); });
        if (below(3) == 0)
            return text + u'/' + signedInteger();
        return text + maybe([this]() -> QString {
                   QString carriers = carrier();
                   carriers += many(1, [this]() -> QString { return u","_s + carrier(); });
                   return u"/["_s + carriers + u']';
               });
    }

    std::mt19937 m_random;
};
