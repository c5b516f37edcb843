#include "TestPrinters.h"
#include <ChemicalFactory.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using chem::FragmentType;
using chem::Molecule;

QSharedPointer<chem::MoleculeComplex> complexOf(const QString& sequence)
{
    return chem::defaultChemicalFactory()->constructLinearPeptideComplex(sequence);
}

Molecule molecule(const QString& formula)
{
    return chem::defaultChemicalFactory()->constructMolecule(formula);
}

TEST(PeptideSequence, ParsedResiduesAreAppendedAndTerminiOverwritten)
{
    QList<QSharedPointer<const chem::AminoAcid>> residues;
    chem::NamedMolecule nTerminal;
    chem::NamedMolecule cTerminal;
    const auto factory = chem::defaultChemicalFactory();
    factory->parseAminoAcidSequence(u"GA"_s, &residues, &nTerminal, &cTerminal);
    nTerminal.name = u"changed"_s;
    factory->parseAminoAcidSequence(u"H"_s, &residues, &nTerminal, &cTerminal);
    ASSERT_EQ(residues.size(), 3);
    EXPECT_EQ(residues[0]->code, u"G"_s);
    EXPECT_EQ(residues[0]->name, u"Glycine"_s);
    EXPECT_EQ(residues[1]->code, u"A"_s);
    EXPECT_EQ(residues[2]->code, u"H"_s);
    EXPECT_EQ(residues[2]->name, u"Glycine"_s);
    EXPECT_EQ(residues[2]->formula().toString(), u"C6H7N3O"_s);
    EXPECT_EQ(nTerminal.name, u"NTerm"_s);
    EXPECT_EQ(nTerminal.code, u"H-"_s);
    EXPECT_EQ(cTerminal.name, u"CTerm"_s);
    EXPECT_EQ(cTerminal.code, u"-OH"_s);
}

TEST(PeptideSequence, EmptyTextIsWater)
{
    const auto complex = complexOf(QString());
    ASSERT_EQ(complex->residues.size(), 2);
    ASSERT_EQ(complex->sites.size(), 2);
    EXPECT_EQ(complex->formula().toString(), u"H2O"_s);
    EXPECT_EQ(complex->monoMass(), molecule(u"H"_s).monoMass() + molecule(u"OH"_s).monoMass());
}

TEST(PeptideSequence, TotalIsTheSumOfTheResidues)
{
    EXPECT_EQ(complexOf(u"GA"_s)->formula().toString(), u"C5H10N2O3"_s);
}

TEST(PeptideSequence, TerminiStandAtBothEnds)
{
    const auto complex = complexOf(u"G"_s);
    ASSERT_EQ(complex->residues.size(), 3);
    EXPECT_EQ(complex->residues[0]->name, u"NTerm"_s);
    EXPECT_EQ(complex->residues[0]->code, u"H-"_s);
    EXPECT_EQ(complex->residues[1]->name, u"Glycine"_s);
    EXPECT_EQ(complex->residues[2]->name, u"CTerm"_s);
    EXPECT_EQ(complex->residues[2]->code, u"-OH"_s);
}

TEST(PeptideSequence, UnknownLetterIsResidueOfNoMass)
{
    for (const QString& text : {u"ga"_s, u"XB"_s, u"  "_s, u"1/"_s, u"😀"_s}) {
        SCOPED_TRACE(text.toStdString());
        const auto complex = complexOf(text);
        ASSERT_EQ(complex->residues.size(), 4);
        EXPECT_EQ(complex->formula().toString(), u"H2O"_s);
        for (const int position : {1, 2}) {
            EXPECT_EQ(complex->sites[position].size(), 10);
            EXPECT_TRUE(complex->residues[position]->code.isEmpty());
            EXPECT_TRUE(complex->residues[position]->name.isEmpty());
            EXPECT_EQ(complex->residues[position]->averageMass(), 0.0);
        }
    }
}

TEST(PeptideSequence, BlanksAndDelimitersAreResiduesOfTheirOwn)
{
    EXPECT_EQ(complexOf(u"A A"_s)->residues.size(), 5);
    EXPECT_EQ(complexOf(u"A/G"_s)->residues.size(), 5);
    EXPECT_EQ(complexOf(u"A A"_s)->formula().toString(), complexOf(u"AA"_s)->formula().toString());
}

TEST(PeptideSequence, TenSitesAreSharedByAllPositionsInTheirOrder)
{
    struct Site
    {
        FragmentType type;
        QString delta;
        QString lost;
    };
    const QList<Site> expected = {{FragmentType::B, u"H(-1)"_s, u"H"_s},
                                  {FragmentType::Y, u"H"_s, u""_s},
                                  {FragmentType::A, u"C(-1)H(-1)O(-1)"_s, u"C1H1O"_s},
                                  {FragmentType::Adot, u"C(-1)O(-1)"_s, u"C1H1O"_s},
                                  {FragmentType::C, u"H2N"_s, u""_s},
                                  {FragmentType::Cdot, u"H3N"_s, u""_s},
                                  {FragmentType::X, u"C1H(-1)O"_s, u"H2"_s},
                                  {FragmentType::Xdot, u"C1O"_s, u"H"_s},
                                  {FragmentType::Z, u"H(-2)N(-1)"_s, u"H2N"_s},
                                  {FragmentType::Zdot, u"H(-1)N(-1)"_s, u"H2N"_s}};
    const auto complex = complexOf(u"GPx"_s);
    ASSERT_EQ(complex->sites[1].size(), expected.size());
    for (qsizetype i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(complex->sites[1][i]->type, expected[i].type);
        EXPECT_EQ(complex->sites[1][i]->delta.formula().toString(), expected[i].delta);
        EXPECT_EQ(complex->sites[1][i]->lost.formula().toString(), expected[i].lost);
        EXPECT_EQ(complex->sites[1][i].data(), complex->sites[2][i].data());
        EXPECT_EQ(complex->sites[1][i].data(), complex->sites[3][i].data());
    }
    EXPECT_EQ(complex->sites[1][3]->delta.formula().elementCount(u"H"_s), 0);
    EXPECT_TRUE(complex->sites[1][3]->delta.formula().elementCountMap().contains(u"H"_s));
}

TEST(PeptideSequence, EachComplexHasSitesOfItsOwn)
{
    EXPECT_NE(complexOf(u"G"_s)->sites[1][0].data(), complexOf(u"G"_s)->sites[1][0].data());
}

TEST(PeptideSequence, SiteMassesAreGainedMinusLost)
{
    const auto site = complexOf(u"G"_s)->sites[1][6];
    EXPECT_EQ(site->delta.monoMass(),
              molecule(u"C1O1H1"_s).monoMass() - molecule(u"H2"_s).monoMass());
    EXPECT_EQ(site->delta.averageMass(),
              molecule(u"C1O1H1"_s).averageMass() - molecule(u"H2"_s).averageMass());
}

TEST(PeptideSequence, MegabytesAreLaidOut)
{
    const auto complex = complexOf(u"ACDEFGHIKL"_s.repeated(100000));
    EXPECT_EQ(complex->residues.size(), 1000002);
}

RC_GTEST_PROP(PeptideLaws, TotalHasTheBitsOfAddingResidueByResidue, ())
{
    const QString letters = u"ACDEFGHIKLMNPQRSTVWYXz /é"_s;
    QString sequence;
    for (const int index : *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 25)))
        sequence += letters[index];
    const auto complex = complexOf(sequence);
    Molecule total = molecule(u"H1"_s) + molecule(u"O1H1"_s);
    for (qsizetype i = 1; i <= sequence.size(); ++i)
        total += *complex->residues[i];
    RC_ASSERT(complex->averageMass() == total.averageMass());
    RC_ASSERT(complex->monoMass() == total.monoMass());
    RC_ASSERT(complex->formula().elementCountMap() == total.formula().elementCountMap());
}

RC_GTEST_PROP(PeptideLaws, JoiningTwoPeptidesLosesOneWater, ())
{
    const QString letters = u"ACDEFGHIKLMNPQRSTVWY"_s;
    const auto anyPeptide = [&] {
        QString sequence;
        for (const int index : *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 20)))
            sequence += letters[index];
        return sequence;
    };
    const QString left = anyPeptide();
    const QString right = anyPeptide();
    const Molecule joined = *complexOf(left + right) + molecule(u"H2O"_s);
    RC_ASSERT(joined.formula().toString() ==
              (*complexOf(left) + *complexOf(right)).formula().toString());
}

} // namespace
