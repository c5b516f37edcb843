#include "TestPrinters.h"
#include "TestSeed.h"
#include <ChemicalFactory.h>
#include <LinearFragments.h>

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

namespace {

// The compositions are computed by hand from the pieces of each strand; several are those of
// known molecules: the d ion of a first dA is deoxyadenosine monophosphate, its b ion
// deoxyadenosine.

using chem::FragmentType;
using chem::Molecule;
using chem::SimpleFragment;

QSharedPointer<chem::MoleculeComplex> complexOf(const QString& text)
{
    return chem::defaultChemicalFactory()->constructLinearOligoComplex(text);
}

QList<QSharedPointer<chem::Fragment>> richIons(const chem::MoleculeComplex& complex)
{
    QList<QSharedPointer<chem::Fragment>> ions;
    chem::defaultChemicalFactory()->generateLinearFragments(complex, &ions);
    return ions;
}

QList<SimpleFragment> flatIons(const chem::MoleculeComplex& complex)
{
    QList<SimpleFragment> ions;
    chem::generateLinearFragments(complex, ions);
    return ions;
}

struct Ion
{
    QString label;
    qsizetype nucleotides;
    QString formula;
};

void expectRichIons(const QString& text, const QList<Ion>& expected)
{
    const auto complex = complexOf(text);
    const auto ions = richIons(*complex);
    ASSERT_EQ(ions.size(), expected.size());
    for (qsizetype i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(i);
        const Molecule ion = chem::defaultChemicalFactory()->constructMolecule(expected[i].formula);
        EXPECT_EQ(ions[i]->typeLabel, expected[i].label);
        EXPECT_EQ(ions[i]->residues.size() - 1, expected[i].nucleotides); // less the terminal
        EXPECT_EQ(ions[i]->formula().toString(), expected[i].formula);
        EXPECT_NEAR(ions[i]->monoMass(), ion.monoMass(), 1e-9);
        EXPECT_NEAR(ions[i]->averageMass(), ion.averageMass(), 1e-9);
    }
}

struct FlatIon
{
    QString label;
    QString sequence;
    int position;
    QString formula;
};

void expectFlatIons(const QString& text, const QList<FlatIon>& expected)
{
    const auto ions = flatIons(*complexOf(text));
    ASSERT_EQ(ions.size(), expected.size());
    for (qsizetype i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(i);
        const Molecule ion = chem::defaultChemicalFactory()->constructMolecule(expected[i].formula);
        EXPECT_EQ(chem::ChemicalFactory::typeToString(ions[i].type), expected[i].label);
        EXPECT_EQ(ions[i].sequence, expected[i].sequence);
        EXPECT_EQ(ions[i].position, expected[i].position);
        EXPECT_NEAR(ions[i].monoMass, ion.monoMass(), 1e-9);
        EXPECT_NEAR(ions[i].averageMass, ion.averageMass(), 1e-9);
    }
}

TEST(OligoFragments, IonsOfTwoDeoxynucleotides)
{
    // pA = C10H12N5O5P with its phosphate, T = C10H12N2O4, ends H and OH
    expectRichIons(u"AT"_s, {
                                {u"d"_s, 1, u"C10H14N5O6P"_s},
                                {u"b"_s, 1, u"C10H13N5O3"_s},
                                {u"c"_s, 1, u"C10H12N5O5P"_s},
                                {u"a"_s, 1, u"C10H11N5O2"_s},
                                {u"w"_s, 1, u"C10H15N2O8P"_s}, // thymidine monophosphate
                                {u"y"_s, 1, u"C10H14N2O5"_s},  // thymidine
                                {u"z"_s, 1, u"C10H12N2O4"_s},
                                {u"x"_s, 1, u"C10H13N2O7P"_s},
                                {u"d"_s, 2, u"C20H26N7O10P"_s}, // the whole
                                {u"b"_s, 2, u"C20H26N7O10P"_s}, // has no phosphate to lose
                                {u"c"_s, 2, u"C20H24N7O9P"_s},
                                {u"a"_s, 2, u"C20H24N7O9P"_s},
                                {u"w"_s, 2, u"C20H26N7O10P"_s}, // has no phosphate before it
                                {u"y"_s, 2, u"C20H26N7O10P"_s},
                                {u"z"_s, 2, u"C20H24N7O9P"_s},
                                {u"x"_s, 2, u"C20H24N7O9P"_s},
                            });
}

TEST(OligoFragments, IonsOfModifiedNucleotides)
{
    // rA* = C10H12N5O5PS, mC = C10H14N3O7P with its phosphate, G = C10H11N5O3
    expectRichIons(
        u"rA*mCG"_s,
        {
            {u"d"_s, 1, u"C10H14N5O6PS"_s},    {u"b"_s, 1, u"C10H13N5O4"_s}, // adenosine
            {u"c"_s, 1, u"C10H12N5O5PS"_s},    {u"a"_s, 1, u"C10H11N5O3"_s},
            {u"w"_s, 1, u"C10H14N5O7P"_s}, // deoxyguanosine monophosphate
            {u"y"_s, 1, u"C10H13N5O4"_s},  // deoxyguanosine
            {u"z"_s, 1, u"C10H11N5O3"_s},      {u"x"_s, 1, u"C10H12N5O6P"_s},
            {u"aB"_s, 2, u"C16H20N5O8PS"_s}, // a, less cytosine
            {u"d"_s, 2, u"C20H28N8O13P2S"_s},  {u"b"_s, 2, u"C20H27N8O10PS"_s},
            {u"c"_s, 2, u"C20H26N8O12P2S"_s},  {u"a"_s, 2, u"C20H25N8O9PS"_s},
            {u"w"_s, 2, u"C20H28N8O13P2S"_s}, // with the thioate before it
            {u"y"_s, 2, u"C20H27N8O11P"_s},    {u"z"_s, 2, u"C20H25N8O10P"_s},
            {u"x"_s, 2, u"C20H26N8O12P2S"_s},  {u"d"_s, 3, u"C30H39N13O16P2S"_s}, // the whole
            {u"b"_s, 3, u"C30H39N13O16P2S"_s}, {u"c"_s, 3, u"C30H37N13O15P2S"_s},
            {u"a"_s, 3, u"C30H37N13O15P2S"_s}, {u"w"_s, 3, u"C30H39N13O16P2S"_s},
            {u"y"_s, 3, u"C30H39N13O16P2S"_s}, {u"z"_s, 3, u"C30H37N13O15P2S"_s},
            {u"x"_s, 3, u"C30H37N13O15P2S"_s},
        });
}

TEST(OligoFragments, FlatIonsTakeTheSitesOfTheMirroredPosition)
{
    // So the first w and x lack the phosphate that stands before the last nucleotide, and the last
    // ones have it on top of the whole.
    expectFlatIons(u"AT"_s, {
                                {u"d"_s, u"A"_s, 0, u"C10H14N5O6P"_s},
                                {u"b"_s, u"A"_s, 0, u"C10H13N5O3"_s},
                                {u"c"_s, u"A"_s, 0, u"C10H12N5O5P"_s},
                                {u"a"_s, u"A"_s, 0, u"C10H11N5O2"_s},
                                {u"w"_s, u"T"_s, 1, u"C10H14N2O5"_s}, // rich: C10H15N2O8P
                                {u"y"_s, u"T"_s, 1, u"C10H14N2O5"_s},
                                {u"z"_s, u"T"_s, 1, u"C10H12N2O4"_s},
                                {u"x"_s, u"T"_s, 1, u"C10H12N2O4"_s}, // rich: C10H13N2O7P
                                {u"d"_s, u"AT"_s, 0, u"C20H26N7O10P"_s},
                                {u"b"_s, u"AT"_s, 0, u"C20H26N7O10P"_s},
                                {u"c"_s, u"AT"_s, 0, u"C20H24N7O9P"_s},
                                {u"a"_s, u"AT"_s, 0, u"C20H24N7O9P"_s},
                                {u"w"_s, u"AT"_s, 0, u"C20H27N7O13P2"_s}, // rich: C20H26N7O10P
                                {u"y"_s, u"AT"_s, 0, u"C20H26N7O10P"_s},
                                {u"z"_s, u"AT"_s, 0, u"C20H24N7O9P"_s},
                                {u"x"_s, u"AT"_s, 0, u"C20H25N7O12P2"_s}, // rich: C20H24N7O9P
                            });
}

TEST(OligoFragments, FlatIonsOfModifiedNucleotidesMeetOtherPhosphates)
{
    expectFlatIons(u"rA*mCG"_s, {
                                    {u"d"_s, u"r"_s, 0, u"C10H14N5O6PS"_s},
                                    {u"b"_s, u"r"_s, 0, u"C10H13N5O4"_s},
                                    {u"c"_s, u"r"_s, 0, u"C10H12N5O5PS"_s},
                                    {u"a"_s, u"r"_s, 0, u"C10H11N5O3"_s},
                                    {u"w"_s, u"G"_s, 2, u"C10H13N5O4"_s}, // no phosphate
                                    {u"y"_s, u"G"_s, 2, u"C10H13N5O4"_s},
                                    {u"z"_s, u"G"_s, 2, u"C10H11N5O3"_s},
                                    {u"x"_s, u"G"_s, 2, u"C10H11N5O3"_s},
                                    {u"aB"_s, u"rm"_s, 0, u"C16H20N5O8PS"_s},
                                    {u"d"_s, u"rm"_s, 0, u"C20H28N8O13P2S"_s},
                                    {u"b"_s, u"rm"_s, 0, u"C20H27N8O10PS"_s},
                                    {u"c"_s, u"rm"_s, 0, u"C20H26N8O12P2S"_s},
                                    {u"a"_s, u"rm"_s, 0, u"C20H25N8O9PS"_s},
                                    {u"w"_s, u"mG"_s, 1, u"C20H28N8O13P2S"_s}, // the same place
                                    {u"y"_s, u"mG"_s, 1, u"C20H27N8O11P"_s},
                                    {u"z"_s, u"mG"_s, 1, u"C20H25N8O10P"_s},
                                    {u"x"_s, u"mG"_s, 1, u"C20H26N8O12P2S"_s},
                                    {u"d"_s, u"rmG"_s, 0, u"C30H39N13O16P2S"_s},
                                    {u"b"_s, u"rmG"_s, 0, u"C30H39N13O16P2S"_s},
                                    {u"c"_s, u"rmG"_s, 0, u"C30H37N13O15P2S"_s},
                                    {u"a"_s, u"rmG"_s, 0, u"C30H37N13O15P2S"_s},
                                    {u"w"_s, u"rmG"_s, 0, u"C30H40N13O19P3S"_s}, // HPO3 on top
                                    {u"y"_s, u"rmG"_s, 0, u"C30H39N13O16P2S"_s},
                                    {u"z"_s, u"rmG"_s, 0, u"C30H37N13O15P2S"_s},
                                    {u"x"_s, u"rmG"_s, 0, u"C30H38N13O18P3S"_s},
                                });
}

TEST(OligoFragments, MassInPlaceOfABaseIsLostWithTheBase)
{
    // 100 stands for the base of the inner nucleotide, which has ribose r and a thioate.
    const auto complex = complexOf(u"Ar100*A"_s);
    const auto factory = chem::defaultChemicalFactory();
    const auto ions = richIons(*complex);
    ASSERT_EQ(ions.size(), 25);
    EXPECT_EQ(ions[8]->typeLabel, u"aB"_s);
    // H + pA + ribose, less two hydrogens; the thioate and the mass cancel.
    const Molecule sugarOnly = factory->constructMolecule(u"C15H18N5O8P"_s);
    EXPECT_EQ(ions[8]->formula().toString(), u"C15H18N5O8P"_s);
    EXPECT_NEAR(ions[8]->monoMass(), sugarOnly.monoMass(), 1e-9);
    EXPECT_EQ(ions[9]->typeLabel, u"d"_s);
    EXPECT_NEAR(ions[9]->monoMass(),
                factory->constructMolecule(u"C15H22N5O11P2S"_s).monoMass() + 100.0, 1e-9);
}

TEST(OligoFragments, CountIsEightForEachNucleotideAndOneMoreForEachInnerOne)
{
    for (qsizetype n = 1; n <= 30; ++n) {
        SCOPED_TRACE(n);
        const auto complex = complexOf(u"A"_s.repeated(n));
        const qsizetype expected = 8 * n + std::max<qsizetype>(0, n - 2);
        EXPECT_EQ(richIons(*complex).size(), expected);
        EXPECT_EQ(flatIons(*complex).size(), expected);
    }
    const auto factory = chem::defaultChemicalFactory();
    const auto empty = factory->constructLinearOligoComplex({}, {}, {});
    EXPECT_TRUE(richIons(*empty).isEmpty());
    EXPECT_TRUE(flatIons(*empty).isEmpty());
}

/// A strand of the usual letters.
QString randomStrand(std::mt19937& random)
{
    const auto draw = [&random](std::size_t end) {
        return random() % end;
    };
    const QStringList riboses = {QString(), u"r"_s, u"d"_s, u"m"_s, u"e"_s, u"+"_s, u"f"_s};
    const QStringList phosphates = {QString(), u"*"_s, u"."_s, u"**"_s};
    QString text;
    for (std::size_t length = 2 + draw(12); length > 0; --length) {
        text += riboses[static_cast<qsizetype>(draw(7))] + u"ACGQTU"[draw(6)] +
                phosphates[static_cast<qsizetype>(draw(4))];
    }
    return text;
}

/// The ion of this label with this many nucleotides.
const chem::Fragment& ionOf(const QList<QSharedPointer<chem::Fragment>>& ions, const QString& label,
                            qsizetype nucleotides)
{
    const auto ion = std::find_if(ions.cbegin(), ions.cend(), [&](const auto& candidate) {
        return candidate->typeLabel == label && candidate->residues.size() == nucleotides + 1;
    });
    return **ion;
}

TEST(OligoFragments, ComplementaryIonsMakeUpTheWhole)
{
    // Breaking one bond gives two pieces and loses nothing: a with w, b with x, c with y, d with z.
    std::mt19937 random(testSeed(20261121));
    const QList<std::pair<QString, QString>> pairs = {
        {u"a"_s, u"w"_s}, {u"b"_s, u"x"_s}, {u"c"_s, u"y"_s}, {u"d"_s, u"z"_s}};
    int compared = 0;
    for (int i = 0; i < 50; ++i) {
        const auto complex = complexOf(randomStrand(random));
        const auto ions = richIons(*complex);
        const qsizetype n = complex->residues.size() - 2;
        for (qsizetype k = 1; k < n; ++k) {
            for (const auto& [left, right] : pairs) {
                const Molecule sum = ionOf(ions, left, k) + ionOf(ions, right, n - k);
                ASSERT_EQ(sum.formula().toString(), complex->formula().toString());
                ASSERT_NEAR(sum.monoMass(), complex->monoMass(), 1e-8);
                ++compared;
            }
        }
    }
    EXPECT_GT(compared, 500);
}

} // namespace
