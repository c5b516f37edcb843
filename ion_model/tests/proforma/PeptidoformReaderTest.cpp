#include "ProForma.h"
#include "ProFormaExamples.h"
#include "RefusedTexts.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

Peptidoform read(const QString& text)
{
    const Parsed<Peptidoform> peptidoform = Peptidoform::read(text);
    EXPECT_TRUE(peptidoform.hasValue())
        << text.toStdString() << ": "
        << (peptidoform ? "" : peptidoform.error().message.toStdString());
    return peptidoform.valueOr({});
}

const PeptidoformChain& firstChain(const Peptidoform& peptidoform)
{
    return peptidoform.ions.at(0).chains.at(0);
}

/// Whether a rule takes the text: rules for parts of a text do not take the text of a whole.
bool isTaken(const ProFormaExample& example)
{
    const Parsed<Peptidoform> whole = Peptidoform::read(wholeText(example));
    if (!whole)
        return false;
    const PeptidoformChain& chain = firstChain(*whole);
    if (example.rule == u"sequenceElement")
        return chain.residues.size() == 1;
    if (example.rule == u"modMass")
        return chain.modifications.at(0).modification.tags.at(0).kind == TagKind::Mass;
    return true;
}

TEST(PeptidoformReader, TakesAndRefusesTheTextsOfTheStandard)
{
    int count = 0;
    for (const ProFormaExample& example : proFormaExamples()) {
        const Parsed<Peptidoform> whole = Peptidoform::read(wholeText(example));
        EXPECT_EQ(isTaken(example), example.isPositive)
            << example.rule.toStdString() << " " << example.text.toStdString() << " "
            << (whole ? "" : whole.error().message.toStdString());
        ++count;
    }
    EXPECT_EQ(count, 171);
}

TEST(PeptidoformReader, CanonicalTextsOfTheStandardReadBackToEqualValues)
{
    for (const ProFormaExample& example : proFormaExamples()) {
        const Parsed<Peptidoform> whole = Peptidoform::read(wholeText(example));
        if (!whole)
            continue;
        SCOPED_TRACE(example.text.toStdString());
        const QString text = whole->toString();
        EXPECT_EQ(read(text), *whole);
        EXPECT_EQ(read(text).toString(), text);
    }
}

TEST(PeptidoformReader, WritesCanonicalText)
{
    const QList<std::pair<QString, QString>> texts = {
        {u"em[unimod:0035]k/+2"_s, u"EM[UNIMOD:35]K/2"_s},
        {u"A[mod:00046][xlmod:02000#xl1]"_s, u"A[MOD:46][XLMOD:2000#XL1]"_s},
        {u"A[resid:AA0037][gno:G1]"_s, u"A[RESID:AA0037][GNO:G1]"_s},
        {u"A[u:oxidation][U:35][oXidation]"_s, u"A[U:oxidation][U:35][oXidation]"_s},
        {u"A[u:+01.50][-0.0][obs:+1]"_s, u"A[U:+01.50][-0.0][Obs:+1]"_s},
        {u"A[formula: H 1 C2[13C1] O+1 H:Z1]"_s, u"A[Formula:C2[13C]H2O:z+1]"_s},
        {u"A[Formula:C1C-1]"_s, u"A[Formula:H0]"_s},
        {u"A[Formula:C:z0]"_s, u"A[Formula:C]"_s},
        {u"A[glycan:hex1NEUACHexNAc2 Hex]"_s, u"A[Glycan:NeuAcHexNAc2Hex2]"_s},
        {u"A[Glycan:Neu5Ac2Hex]"_s, u"A[Glycan:NeuAc2Hex]"_s},
        {u"A[Glycan:Neu5HexNeu5AcNeu]"_s, u"A[Glycan:NeuAcNeu6Hex]"_s},
        {u"A[Glycan:{CHO:z+1}Hex{C1H1O1:z1}2{C}]"_s, u"A[Glycan:Hex{C}{CHO:z+1}3]"_s},
        {u"A[Glycan:Hex0]"_s, u"A[Glycan:Hex0]"_s},
        {u"A[info:a b|x#g1|y#g1]"_s, u"A[INFO:a b#g1|x|y]"_s},
        {u"A[x#branch]//A[#Branch]"_s, u"A[x#BRANCH]//A[#BRANCH]"_s},
        {u"[x]?[y|comup|position:k,n-term:a|limit:02|comkp]^03?A"_s,
         u"[x][y|Position:K,N-term:A|Limit:2|CoMKP|CoMUP]^3?A"_s},
        {u"<[b]@k><15N><D><[a]@C-Term,n-term:q><13C>A"_s,
         u"<2H><13C><15N><[a]@C-term,N-term:Q><[b]@K>A"_s},
        {u"(>>>x)(>>y)(>z(1))A//(>w)A/2+A/-02"_s, u"(>>>x)(>>y)(>z(1))A//(>w)A/2+A/-2"_s},
        {u"A/[Na1:z1^01,H:z+1^2]"_s, u"A/[Na:z+1,H:z+1^2]"_s},
        {u"a(?b[x]c)(d[y]e)[z]-[w][#1]"_s, u"A(?B[x]C)(D[y]E)[z]-[w][#1]"_s},
    };
    for (const auto& [text, canonical] : texts)
        EXPECT_EQ(read(text).toString(), canonical);
}

TEST(PeptidoformReader, KeepsWhatATagSaysWithoutLookingItUp)
{
    const Tag tag =
        firstChain(read(u"A[U:no such thing]"_s)).modifications.at(0).modification.tags.at(0);
    EXPECT_EQ(tag.kind, TagKind::Name);
    EXPECT_EQ(tag.vocabulary, TagVocabulary::Unimod);
    EXPECT_EQ(tag.text, u"no such thing"_s);
    EXPECT_EQ(tag.position.index, 2);
}

TEST(PeptidoformReader, ValuesThatDifferInOnePartAreUnequal)
{
    const QList<QStringList> families = {
        {u"A"_s, u"C"_s, u"AA"_s, u"A//A"_s, u"A+A"_s},
        {u"(>>>a)A"_s, u"(>>>b)A"_s, u"(>>a)A"_s, u"(>>b)A"_s, u"(>a)A"_s, u"(>b)A"_s},
        {u"<13C>A"_s, u"<15N>A"_s, u"<[x]@A>A"_s, u"<[y]@A>A"_s, u"<[x]@C>A"_s,
         u"<[x]@N-term:A>A"_s, u"<[x]@C-term:A>A"_s, u"<[x]@N-term>A"_s},
        {u"A/2"_s, u"A/3"_s, u"A/[Na:z+1]"_s, u"A/[K:z+1]"_s, u"A/[Na:z+2]"_s, u"A/[Na:z+1^2]"_s},
        {u"[x]?A"_s, u"[y]?A"_s, u"[x]^2?A"_s, u"[x]^3?A"_s, u"{x}A"_s, u"{y}A"_s, u"[x]-A"_s,
         u"[y]-A"_s, u"A-[x]"_s, u"A-[y]"_s},
        {u"A[x]A"_s, u"AA[x]"_s, u"A[y]A"_s, u"(?AA)"_s, u"(AA)[x]"_s, u"(AA)[y]"_s, u"A(A)[x]"_s,
         u"(A)[x]A"_s},
        {u"A[x]"_s, u"A[y]"_s, u"A[+1]"_s, u"A[U:x]"_s, u"A[M:x]"_s, u"A[x|y]"_s, u"A[INFO:x]"_s,
         u"A[Formula:C]"_s, u"A[Formula:H]"_s, u"A[Formula:C:z+1]"_s, u"A[Formula:C:z+2]"_s,
         u"A[Glycan:Hex]"_s, u"A[Glycan:Hex2]"_s, u"A[Glycan:HexNAc]"_s, u"A[Glycan:{C}]"_s,
         u"A[Glycan:{H}]"_s},
        {u"A[x#XL1]"_s, u"A[x#XL2]"_s, u"A[x#BRANCH]"_s, u"A[x#g1]"_s, u"A[x#g2]"_s,
         u"A[x#g1(0.5)]"_s, u"A[x#g1(0.6)]"_s},
        {u"[x|Position:A]?A"_s, u"[x|Position:C]?A"_s, u"[x|Position:N-term]?A"_s,
         u"[x|Position:A,C]?A"_s, u"[x|Limit:2]?A"_s, u"[x|Limit:3]?A"_s, u"[x|CoMKP]?A"_s,
         u"[x|CoMUP]?A"_s}};
    for (const QStringList& texts : families) {
        for (const QString& left : texts) {
            for (const QString& right : texts)
                EXPECT_EQ(read(left) == read(right), left == right)
                    << left.toStdString() << ' ' << right.toStdString();
        }
    }
}

TEST(PeptidoformReader, AssignsIntoUsedValuesAsIntoNewOnes)
{
    Peptidoform used;
    for (const ProFormaExample& example : proFormaExamples()) {
        const Parsed<Peptidoform> whole = Peptidoform::read(wholeText(example));
        const std::optional<Error> failure = used.assign(wholeText(example));
        EXPECT_EQ(failure.has_value(), !whole.hasValue());
        EXPECT_EQ(used, whole.valueOr({}));
        EXPECT_FALSE(used.assign(u"PEPTIDE"_s));
        EXPECT_EQ(used, read(u"PEPTIDE"_s));
    }
}

TEST(PeptidoformReader, RemembersWhereResiduesStood)
{
    const Peptidoform peptidoform = read(u"[x]-AC[y](DE)[z]F"_s);
    const TextPositions& positions = firstChain(peptidoform).positions;
    const QList<qsizetype> expected = {4, 5, 10, 11, 16};
    for (qsizetype residue = 0; residue < expected.size(); ++residue)
        EXPECT_EQ(positions.of(residue), expected[residue]);
    EXPECT_EQ(TextPositions().of(0), -1);
}

TEST(PeptidoformReader, NamesWhatCanStandWhereItStops)
{
    const QList<RefusedText> texts = {
        {u""_s, 0, u"a residue"_s},
        {u"PEP TIDE"_s, 3, u"a residue"_s},
        {u"PEPT1DE"_s, 4, u"\"/\""_s},
        {u"A[]"_s, 2, u"a modification"_s},
        {u"A[Oxidation"_s, 11, u"\"]\""_s},
        {u"A[Oxidation|]"_s, 12, u"a modification"_s},
        {u"A[Cation:Al[III]"_s, 16, u"\"]\""_s},
        {u"A[x[a|b]]"_s, 5, u"brackets"_s},
        {u"A[Oxidation#]"_s, 12, u"a label"_s},
        {u"A[Oxidation#g1#g2]"_s, 14, u"\"|\" or \"]\""_s},
        {u"A[Oxidation#g1|U:Oxidation#g2]"_s, 26, u"one label"_s},
        {u"A[#g1(0.5]"_s, 9, u"\")\""_s},
        {u"A[#XL1(0.5)]"_s, 6, u"\"]\""_s},
        {u"A[+1.]"_s, 5, u"a digit"_s},
        {u"A[+x]"_s, 3, u"a digit"_s},
        {u"A[U:+1.5e3]"_s, 8, u"a digit"_s},
        {u"A[Obs:phospho]"_s, 6, u"a mass"_s},
        {u"A[UNIMOD:x]"_s, 9, u"the number"_s},
        {u"A[UNIMOD:3x]"_s, 10, u"\"]\""_s},
        {u"A[RESID:]"_s, 8, u"letters and digits"_s},
        {u"A[Formula:]"_s, 10, u"an element"_s},
        {u"A[Formula:c]"_s, 10, u"an element"_s},
        {u"A[Formula:CX]"_s, 11, u"a count"_s},
        {u"A[Formula:[13C]"_s, 15, u"\"]\""_s},
        {u"A[Formula:[99C]]"_s, 11, u"C can have"_s},
        {u"A[Formula:C3000000000]"_s, 11, u"too large"_s},
        {u"A[Formula:C2147483647C]"_s, 21, u"more than 2147483647"_s},
        {u"A[Formula:C:z]"_s, 13, u"a number"_s},
        {u"A[Formula:C:2]"_s, 12, u"\"z\""_s},
        {u"A[Glycan:]"_s, 9, u"a monosaccharide"_s},
        {u"A[Glycan:HexNex]"_s, 14, u"a monosaccharide"_s},
        {u"A[Glycan:HexQ]"_s, 12, u"a monosaccharide"_s},
        {u"A[Glycan:Hex{C]"_s, 14, u"\"}\""_s},
        {u"A[Glycan:Hex3000000000]"_s, 12, u"too large"_s},
        {u"A[Glycan:Hex2147483647Hex]"_s, 22, u"too large"_s},
        {u"A[x|Position:1]"_s, 13, u"N-term"_s},
        {u"A[x|Position:N-tern]"_s, 18, u"\"term\""_s},
        {u"A[x|Limit:]"_s, 10, u"a number"_s},
        {u"[x|CoMKP#g1]?AA"_s, 8, u"\"|\" or \"]\""_s},
        {u"[#g1]?AA"_s, 5, u"\"-\""_s},
        {u"[A]^2-AA"_s, 5, u"no counts"_s},
        {u"[A][B][C]-AA"_s, 9, u"at most two"_s},
        {u"{A}[B]?AA"_s, 6, u"\"-\""_s},
        {u"[A]-[B]?AA"_s, 4, u"a residue"_s},
        {u"[A]AA"_s, 3, u"\"?\""_s},
        {u"{A#g1}AA"_s, 2, u"\"}\""_s},
        {u"AA-"_s, 3, u"\"[\""_s},
        {u"AA-[A][B][C]"_s, 9, u"the end"_s},
        {u"(AA)"_s, 4, u"\"[\""_s},
        {u"(AA)A"_s, 4, u"\"[\""_s},
        {u"(AA)[#g1]"_s, 5, u"a modification"_s},
        {u"(?)A"_s, 2, u"a residue"_s},
        {u"(A(?A))[x]"_s, 2, u"\")\""_s},
        {u"A/2//A"_s, 3, u"the end"_s},
        {u"A/"_s, 2, u"a charge"_s},
        {u"A/3000000000"_s, 2, u"too large"_s},
        {u"A/[Na]"_s, 5, u"a charge"_s},
        {u"A/[Na:z+1"_s, 9, u"\"^\""_s},
        {u"A+"_s, 2, u"a residue"_s},
        {u"A//"_s, 3, u"a residue"_s},
        {u"<13>A"_s, 3, u"an element"_s},
        {u"<T>A"_s, 1, u"13C"_s},
        {u"<[x]>A"_s, 4, u"\"@\""_s},
        {u"<[x]@>A"_s, 5, u"a residue"_s},
        {u"<[x#g1]@A>A"_s, 3, u"\"]\""_s},
        {u"A<13C>"_s, 1, u"the end"_s},
        {u"(>)A"_s, 2, u"a name"_s},
        {u"(>a(b)A"_s, 7, u"\")\""_s},
        {u"(>a)(>>b)A"_s, 5, u"a residue"_s},
        {u"A[a\u0007]"_s, 3, u"printable"_s},
        {u"A[a"_s + QChar(0xd800) + u"]"_s, 3, u"printable"_s},
    };
    expectRefused([](const QString& text) { return Peptidoform::read(text); }, texts);
}

} // namespace

} // namespace ions
