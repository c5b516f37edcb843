#include "TestPrinters.h"
#include "TestSeed.h"
#include <ChemicalModel.h>

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using chem::ChemicalFactory;
using chem::Molecule;
using chem::NamedMolecule;
using chem::Nucleotide;
using Nucleotides = QList<QSharedPointer<const Nucleotide>>;

struct Parsed
{
    bool isValid = false;
    Nucleotides nucleotides;
    NamedMolecule fivePrime;
    NamedMolecule threePrime;
};

Parsed parse(const ChemicalFactory& factory, const QString& text)
{
    Parsed result;
    result.isValid = factory.parseNucleotideSequence(text, &result.nucleotides, &result.fivePrime,
                                                     &result.threePrime);
    return result;
}

Parsed parse(const QString& text)
{
    return parse(*chem::defaultChemicalFactory(), text);
}

QString formulaOf(const Molecule& molecule)
{
    return molecule.formula().toString();
}

QSharedPointer<chem::MoleculeComplex> complexOf(const QString& text)
{
    return chem::defaultChemicalFactory()->constructLinearOligoComplex(text);
}

// The plain cases.

TEST(OligoSequence, LastNucleotideLosesItsImplicitPhosphate)
{
    const Parsed at = parse(u"AT"_s);
    ASSERT_TRUE(at.isValid);
    ASSERT_EQ(at.nucleotides.size(), 2);
    EXPECT_EQ(at.nucleotides[0]->nucleobase.name, u"Adenine"_s);
    EXPECT_EQ(at.nucleotides[0]->name, u"Adenine"_s);
    EXPECT_EQ(at.nucleotides[0]->code, u"A"_s);
    EXPECT_EQ(at.nucleotides[0]->ribose.name, u"2'-deoxyribose (DNA)"_s);
    EXPECT_EQ(at.nucleotides[0]->ribose.code, QString());
    EXPECT_EQ(at.nucleotides[0]->phosphate.name, u"phosphodiester"_s);
    EXPECT_EQ(at.nucleotides[1]->nucleobase.code, u"T"_s);
    EXPECT_EQ(at.nucleotides[1]->ribose.name, u"2'-deoxyribose (DNA)"_s);
    EXPECT_TRUE(at.nucleotides[1]->phosphate.formula().isEmpty());
    EXPECT_EQ(complexOf(u"AT"_s)->formula().toString(), u"C20H26N7O10P"_s);
}

TEST(OligoSequence, UnmarkedEndsAreNamedAndCarryNoCode)
{
    const Parsed a = parse(u"A"_s);
    EXPECT_EQ(a.fivePrime.name, u"5Prime"_s);
    EXPECT_EQ(a.fivePrime.code, QString());
    EXPECT_EQ(formulaOf(a.fivePrime), u"H"_s);
    EXPECT_EQ(a.threePrime.name, u"3Prime"_s);
    EXPECT_EQ(a.threePrime.code, QString());
    EXPECT_EQ(formulaOf(a.threePrime), u"HO"_s);
}

TEST(OligoSequence, ExplicitPhosphateStaysAtTheEnd)
{
    for (const QString& text : {u"AT*"_s, u"AT."_s}) {
        SCOPED_TRACE(text.toStdString());
        const Parsed parsed = parse(text);
        ASSERT_EQ(parsed.nucleotides.size(), 2);
        EXPECT_EQ(parsed.nucleotides[1]->code, text.sliced(1));
        EXPECT_EQ(parsed.nucleotides[1]->phosphate.code, text.sliced(2));
        EXPECT_FALSE(parsed.nucleotides[1]->phosphate.formula().isEmpty());
    }
}

TEST(OligoSequence, ExplicitPhosphateHasNoName)
{
    const Parsed parsed = parse(u"rA*"_s);
    ASSERT_EQ(parsed.nucleotides.size(), 1);
    const Nucleotide& nucleotide = *parsed.nucleotides.first();
    EXPECT_EQ(nucleotide.code, u"rA*"_s);
    EXPECT_EQ(nucleotide.ribose.name, u"2'-hydroxy (RNA)"_s);
    EXPECT_EQ(nucleotide.phosphate.name, QString());
    EXPECT_EQ(nucleotide.phosphate.code, u"*"_s);
    EXPECT_EQ(formulaOf(nucleotide.phosphate), u"HO2PS"_s);
}

TEST(OligoSequence, SeveralPhosphateMarksAddUpInOneLinkage)
{
    const Parsed parsed = parse(u"A**.C"_s);
    ASSERT_EQ(parsed.nucleotides.size(), 2);
    EXPECT_EQ(parsed.nucleotides[0]->phosphate.code, u"**."_s);
    EXPECT_EQ(formulaOf(parsed.nucleotides[0]->phosphate), u"H3O7P3S2"_s);
}

TEST(OligoSequence, NumberAtTheEndTakesTheImplicitPhosphateBeforeIt)
{
    const Parsed implicitLinkage = parse(u"A100"_s);
    ASSERT_EQ(implicitLinkage.nucleotides.size(), 2);
    EXPECT_TRUE(implicitLinkage.nucleotides[0]->phosphate.formula().isEmpty());
    EXPECT_EQ(implicitLinkage.nucleotides[0]->code, u"A"_s);
    EXPECT_EQ(formulaOf(*implicitLinkage.nucleotides[0]), u"C10H11N5O2"_s);

    const Parsed explicitLinkage = parse(u"A*100"_s);
    ASSERT_EQ(explicitLinkage.nucleotides.size(), 2);
    EXPECT_EQ(explicitLinkage.nucleotides[0]->phosphate.code, u"*"_s);
}

TEST(OligoSequence, NumberIsABaseOfThatMassWithoutSugarOrPhosphate)
{
    const Parsed parsed = parse(u"100.25A"_s);
    ASSERT_EQ(parsed.nucleotides.size(), 2);
    const Nucleotide& number = *parsed.nucleotides[0];
    EXPECT_EQ(number.nucleobase.name, u"~~~"_s);
    EXPECT_EQ(number.nucleobase.code, u"100.25"_s);
    EXPECT_EQ(number.averageMass(), 100.25);
    EXPECT_EQ(number.monoMass(), 100.25);
    EXPECT_TRUE(number.formula().isEmpty());
    EXPECT_TRUE(number.ribose.name.isEmpty());
    EXPECT_TRUE(number.phosphate.name.isEmpty());
    EXPECT_EQ(number.code, u"100.25"_s);
    EXPECT_TRUE(parsed.nucleotides[1]->phosphate.formula().isEmpty());
}

TEST(OligoSequence, NumberMayHaveAWrittenSugarAndPhosphate)
{
    const Parsed parsed = parse(u"r-5*A"_s);
    ASSERT_EQ(parsed.nucleotides.size(), 2);
    EXPECT_EQ(parsed.nucleotides[0]->ribose.code, u"r"_s);
    EXPECT_EQ(parsed.nucleotides[0]->nucleobase.averageMass(), -5.0);
    EXPECT_EQ(parsed.nucleotides[0]->phosphate.code, u"*"_s);
    EXPECT_EQ(parsed.nucleotides[0]->code, u"r-5*"_s);
}

TEST(OligoSequence, BareNumberIsAMassWithoutTerminals)
{
    const Parsed bare = parse(u"100"_s);
    ASSERT_EQ(bare.nucleotides.size(), 1);
    EXPECT_EQ(bare.fivePrime.averageMass(), 0.0);
    EXPECT_TRUE(bare.fivePrime.name.isEmpty());
    EXPECT_EQ(bare.threePrime.averageMass(), 0.0);
    EXPECT_EQ(complexOf(u"100"_s)->averageMass(), 100.0);

    const Parsed marked = parse(u"[100]"_s);
    EXPECT_EQ(marked.fivePrime.name, u"5'-OH"_s);
    EXPECT_EQ(marked.threePrime.name, u"3'-OH"_s);

    const Parsed halfMarked = parse(u"[100"_s);
    EXPECT_EQ(halfMarked.fivePrime.name, u"5'-OH"_s);
    EXPECT_TRUE(halfMarked.threePrime.name.isEmpty());
}

TEST(OligoSequence, MarksChooseTheTerminals)
{
    const Parsed parsed = parse(u"{AT}"_s);
    EXPECT_EQ(parsed.fivePrime.name, u"5'-P"_s);
    EXPECT_EQ(formulaOf(parsed.fivePrime), u"H2O3P"_s);
    EXPECT_EQ(parsed.threePrime.name, u"3'-P"_s);
    EXPECT_EQ(formulaOf(parsed.threePrime), u"H2O4P"_s);
}

TEST(OligoSequence, RefusedTextAppendsNothingAndStillWritesTheTerminals)
{
    const auto factory = chem::defaultChemicalFactory();
    Parsed parsed = parse(u"A"_s);
    const bool isValid = factory->parseNucleotideSequence(u"A C"_s, &parsed.nucleotides,
                                                          &parsed.fivePrime, &parsed.threePrime);
    EXPECT_FALSE(isValid);
    EXPECT_EQ(parsed.nucleotides.size(), 1);
    EXPECT_EQ(parsed.fivePrime.name, u"5Prime"_s);
    EXPECT_EQ(parsed.threePrime.name, u"3Prime"_s);
}

TEST(OligoSequence, NucleotidesAreAppendedBehindEarlierOnes)
{
    const auto factory = chem::defaultChemicalFactory();
    Parsed parsed = parse(u"AC."_s);
    factory->parseNucleotideSequence(u"GT"_s, &parsed.nucleotides, &parsed.fivePrime,
                                     &parsed.threePrime);
    ASSERT_EQ(parsed.nucleotides.size(), 4);
    EXPECT_EQ(parsed.nucleotides[2]->code, u"G"_s);
}

TEST(OligoSequence, NumberBehindEarlierNucleotidesCountsThemAsItsOwn)
{
    // The list is the caller's: a lone number behind an entry keeps its terminals and takes the
    // implicit phosphate of that entry.
    const auto factory = chem::defaultChemicalFactory();
    Parsed parsed = parse(u"AC"_s);
    parsed.nucleotides.removeLast(); // leaves A with its implicit phosphate
    factory->parseNucleotideSequence(u"7"_s, &parsed.nucleotides, &parsed.fivePrime,
                                     &parsed.threePrime);
    ASSERT_EQ(parsed.nucleotides.size(), 2);
    EXPECT_TRUE(parsed.nucleotides[0]->phosphate.formula().isEmpty());
    EXPECT_EQ(parsed.fivePrime.name, u"5Prime"_s);
}

TEST(OligoSequence, NumberBehindEarlierNucleotidesLeavesAWrittenPhosphate)
{
    Parsed parsed = parse(u"AC*"_s);
    chem::defaultChemicalFactory()->parseNucleotideSequence(u"7"_s, &parsed.nucleotides,
                                                            &parsed.fivePrime, &parsed.threePrime);
    ASSERT_EQ(parsed.nucleotides.size(), 3);
    EXPECT_EQ(parsed.nucleotides[1]->phosphate.formula().toString(), u"HO2PS"_s);
}

TEST(OligoSequence, BlanksAreIgnoredByTheTextEntryAlone)
{
    ASSERT_TRUE(complexOf(u" A C\t"_s));
    EXPECT_EQ(complexOf(u" A C\t"_s)->formula().toString(),
              complexOf(u"AC"_s)->formula().toString());
    EXPECT_FALSE(parse(u"A C"_s).isValid);
}

TEST(OligoSequence, TextOutsideTheGrammarGivesNoComplex)
{
    for (const QString& text : {u""_s, u"a"_s, u"A+"_s, u"AC["_s, u"AC,GT"_s, u"X"_s})
        EXPECT_FALSE(complexOf(text)) << text.toStdString();
}

TEST(OligoSequence, TotalIsSummedFromTheEndsInward)
{
    const Parsed parsed = parse(u"[rA*mC+G.dT]"_s);
    Molecule total = parsed.fivePrime + parsed.threePrime;
    for (const auto& nucleotide : parsed.nucleotides)
        total += *nucleotide;
    const auto complex = complexOf(u"[rA*mC+G.dT]"_s);
    EXPECT_EQ(complex->averageMass(), total.averageMass());
    EXPECT_EQ(complex->monoMass(), total.monoMass());
    EXPECT_EQ(complex->formula().elementCountMap(), total.formula().elementCountMap());
    EXPECT_TRUE(complex->code.isNull());
    EXPECT_TRUE(complex->name.isNull());
}

TEST(OligoSequence, ResiduesCarryTheLabelsOfTheirNucleotides)
{
    const auto complex = complexOf(u"rA*C"_s);
    ASSERT_EQ(complex->residues.size(), 4);
    EXPECT_EQ(complex->residues[0]->name, u"5Prime"_s);
    EXPECT_EQ(complex->residues[1]->code, u"rA*"_s);
    EXPECT_EQ(complex->residues[1]->name, u"Adenine"_s);
    EXPECT_EQ(complex->residues[3]->name, u"3Prime"_s);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(complex->residues[i]->position, i);
}

// The sites of each position.

struct SiteText
{
    chem::FragmentType type;
    QString delta;
    QString lost;
};

void expectSites(const QList<QSharedPointer<chem::FragmentationSite>>& sites,
                 const QList<SiteText>& expected)
{
    ASSERT_EQ(sites.size(), expected.size());
    for (qsizetype i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(sites[i]->type, expected[i].type);
        EXPECT_EQ(formulaOf(sites[i]->delta), expected[i].delta);
        EXPECT_EQ(formulaOf(sites[i]->lost), expected[i].lost);
    }
}

TEST(OligoSequence, SitesFollowTheNeighbouringPhosphates)
{
    using enum chem::FragmentType;
    const auto complex = complexOf(u"A*CG"_s); // phosphates: HPO2S, HPO3, none
    ASSERT_EQ(complex->sites.size(), 5);
    EXPECT_TRUE(complex->sites[0].isEmpty());
    EXPECT_TRUE(complex->sites[4].isEmpty());
    expectSites(complex->sites[1], {{D, u"HO"_s, u""_s},
                                    {B, u"O(-1)P(-1)S(-1)"_s, u"HO2PS"_s},
                                    {C, u"H(-1)"_s, u"HO"_s},
                                    {chem::FragmentType::A, u"H(-2)O(-2)P(-1)S(-1)"_s, u"H2O2PS"_s},
                                    {W, u"H"_s, u""_s},
                                    {Y, u"H"_s, u""_s},
                                    {Z, u"H(-1)O(-1)"_s, u"HO"_s},
                                    {X, u"H(-1)O(-1)"_s, u"HO"_s}});
    // P = HPO3, B = C4H4N3O, P' = HPO2S
    expectSites(complex->sites[2], {{AB, u"C(-4)H(-7)N(-3)O(-4)P(-1)"_s, u"C4H7N3O4P"_s},
                                    {D, u"HO"_s, u""_s},
                                    {B, u"O(-2)P(-1)"_s, u"HO3P"_s},
                                    {C, u"H(-1)"_s, u"HO"_s},
                                    {chem::FragmentType::A, u"H(-2)O(-3)P(-1)"_s, u"H2O3P"_s},
                                    {W, u"H2O2PS"_s, u""_s},
                                    {Y, u"H"_s, u""_s},
                                    {Z, u"H(-1)O(-1)"_s, u"HO"_s},
                                    {X, u"OPS"_s, u"HO"_s}});
    // P is empty on the last nucleotide, P' = HPO3
    expectSites(complex->sites[3], {{D, u"HO"_s, u""_s},
                                    {B, u"HO"_s, u""_s},
                                    {C, u"H(-1)"_s, u"HO"_s},
                                    {chem::FragmentType::A, u"H(-1)"_s, u"H"_s},
                                    {W, u"H2O3P"_s, u""_s},
                                    {Y, u"H"_s, u""_s},
                                    {Z, u"H(-1)O(-1)"_s, u"HO"_s},
                                    {X, u"O2P"_s, u"HO"_s}});
}

TEST(OligoSequence, SitesAreNewAtEachPosition)
{
    const auto complex = complexOf(u"AAAA"_s);
    for (const auto& site : complex->sites[2]) {
        for (const auto& other : complex->sites[3])
            EXPECT_NE(site.data(), other.data());
    }
}

TEST(OligoSequence, DeltaMassesAreGainedMinusLost)
{
    const auto factory = chem::defaultChemicalFactory();
    const Parsed parsed = parse(u"ACG"_s);
    const Nucleotide& middle = *parsed.nucleotides[1];
    const Molecule lost =
        Molecule(middle.phosphate) + middle.nucleobase + factory->constructMolecule(u"H2"_s);
    const auto site = complexOf(u"ACG"_s)->sites[2].first();
    EXPECT_EQ(site->lost.monoMass(), lost.monoMass());
    EXPECT_EQ(site->delta.monoMass(), 0.0 - lost.monoMass());
    EXPECT_EQ(site->delta.averageMass(), 0.0 - lost.averageMass());
}

// Truncation ladders.

QList<QSharedPointer<const chem::MoleculeComplex>> ladder(const QString& text, int five, int three)
{
    QList<QSharedPointer<const chem::MoleculeComplex>> complexes;
    chem::defaultChemicalFactory()->constructLinearOligoComplexes(text, five, three, &complexes);
    return complexes;
}

QStringList codesOf(const chem::MoleculeComplex& complex)
{
    QStringList codes;
    for (qsizetype i = 1; i < complex.residues.size() - 1; ++i)
        codes.append(complex.residues[i]->code);
    return codes;
}

TEST(OligoSequence, LadderListsTheWholeThenBothEnds)
{
    const auto complexes = ladder(u"{ACGT}"_s, 2, 2);
    ASSERT_EQ(complexes.size(), 5);
    EXPECT_EQ(codesOf(*complexes[0]).join(u""_s), u"ACGT"_s);
    EXPECT_EQ(codesOf(*complexes[1]).join(u""_s), u"CGT"_s);
    EXPECT_EQ(codesOf(*complexes[2]).join(u""_s), u"GT"_s);
    EXPECT_EQ(codesOf(*complexes[3]).join(u""_s), u"ACG"_s);
    EXPECT_EQ(codesOf(*complexes[4]).join(u""_s), u"AC"_s);
    for (const auto& complex : complexes) {
        EXPECT_EQ(complex->residues.first()->name, u"5'-P"_s);
        EXPECT_EQ(complex->residues.last()->name, u"3'-P"_s);
    }
}

TEST(OligoSequence, ThreePrimeTruncationKeepsTheImplicitPhosphate)
{
    const auto complexes = ladder(u"ACG"_s, 0, 1);
    ASSERT_EQ(complexes.size(), 2);
    const Molecule difference = *complexes[1] - *complexOf(u"AC"_s);
    EXPECT_EQ(formulaOf(difference), u"HO3P"_s);
}

TEST(OligoSequence, LadderBeyondTheLengthFollowsTheListsRules)
{
    const auto fivePrime = ladder(u"AC"_s, 3, 0);
    ASSERT_EQ(fivePrime.size(), 4);
    EXPECT_EQ(fivePrime[2]->residues.size(), 2);
    EXPECT_EQ(fivePrime[3]->residues.size(), 2);
    EXPECT_EQ(fivePrime[2]->formula().toString(), u"H2O"_s);

    const auto threePrime = ladder(u"AC"_s, 0, 3);
    ASSERT_EQ(threePrime.size(), 4);
    EXPECT_EQ(threePrime[2]->residues.size(), 2);
    EXPECT_EQ(threePrime[3]->residues.size(), 4);
}

TEST(OligoSequence, LadderOfRefusedTextHoldsTerminalsAlone)
{
    const auto complexes = ladder(u"A C"_s, 1, 1);
    ASSERT_EQ(complexes.size(), 3);
    for (const auto& complex : complexes) {
        ASSERT_EQ(complex->residues.size(), 2);
        EXPECT_EQ(complex->residues[0]->name, u"5Prime"_s);
        EXPECT_EQ(complex->residues[1]->name, u"3Prime"_s);
    }
}

TEST(OligoSequence, LadderWithoutPositiveCountsIsTheWholeAlone)
{
    EXPECT_EQ(ladder(u"AC"_s, 0, 0).size(), 1);
    EXPECT_EQ(ladder(u"AC"_s, -3, -1).size(), 1);
}

TEST(OligoSequence, LadderIsAppended)
{
    QList<QSharedPointer<const chem::MoleculeComplex>> complexes = {complexOf(u"A"_s)};
    chem::defaultChemicalFactory()->constructLinearOligoComplexes(u"CG"_s, 0, 0, &complexes);
    EXPECT_EQ(complexes.size(), 2);
}

// Arguments that are one object.

TEST(OligoSequence, OneObjectForBothEndsHoldsTheThreePrimeEnd)
{
    const auto nameOf = [](const QString& text) {
        Nucleotides nucleotides;
        NamedMolecule end;
        chem::defaultChemicalFactory()->parseNucleotideSequence(text, &nucleotides, &end, &end);
        return end.name;
    };
    EXPECT_EQ(nameOf(u"AC"_s), u"3Prime"_s);
    EXPECT_EQ(nameOf(u"{A]"_s), u"3'-OH"_s);
    EXPECT_EQ(nameOf(u"100]"_s), u"3'-OH"_s);
    EXPECT_EQ(nameOf(u"refused"_s), u"3Prime"_s);
    // What is default after a bare number is set before the marks are read.
    EXPECT_EQ(nameOf(u"[100"_s), u"5'-OH"_s);
}

TEST(OligoSequence, TextMayLieInAnyOfTheOutputs)
{
    const QString text = u"{rA*fC.mG}"_s;
    const Parsed expected = parse(text);
    const auto expectSame = [&expected](const Parsed& found) {
        ASSERT_TRUE(found.isValid);
        ASSERT_EQ(found.nucleotides.size(), 3);
        for (qsizetype i = 0; i < 3; ++i)
            EXPECT_EQ(found.nucleotides[i]->code, expected.nucleotides[i]->code);
        EXPECT_EQ(found.fivePrime.name, expected.fivePrime.name);
        EXPECT_EQ(found.threePrime.name, expected.threePrime.name);
        EXPECT_EQ(found.fivePrime.monoMass(), expected.fivePrime.monoMass());
        EXPECT_EQ(found.threePrime.monoMass(), expected.threePrime.monoMass());
    };
    const auto factory = chem::defaultChemicalFactory();
    for (QString NamedMolecule::*field : {&NamedMolecule::name, &NamedMolecule::code}) {
        for (NamedMolecule Parsed::*end : {&Parsed::fivePrime, &Parsed::threePrime}) {
            Parsed found;
            QString& own = found.*end.*field;
            own = QString(text.constData(), text.size()); // shared with nothing that outlives it
            found.isValid = factory->parseNucleotideSequence(own, &found.nucleotides,
                                                             &found.fivePrime, &found.threePrime);
            expectSame(found);
        }
    }
}

TEST(OligoSequence, TextMayBeTheCodeOfTheEntryThatItReplaces)
{
    // A number takes the phosphate of the entry before it, which then is another entry.
    Parsed found = parse(u"GA"_s);
    found.nucleotides.removeLast();
    auto* const entry = new Nucleotide(*found.nucleotides.takeFirst());
    const QString text = u"[100]"_s;
    entry->code = QString(text.constData(), text.size()); // shared with nothing that outlives it
    found.nucleotides.append(QSharedPointer<const Nucleotide>(entry));
    found.isValid = chem::defaultChemicalFactory()->parseNucleotideSequence(
        entry->code, &found.nucleotides, &found.fivePrime, &found.threePrime);
    ASSERT_TRUE(found.isValid);
    ASSERT_EQ(found.nucleotides.size(), 2);
    EXPECT_TRUE(found.nucleotides[0]->phosphate.formula().isEmpty());
    EXPECT_EQ(found.nucleotides[1]->code, u"100"_s);
    EXPECT_EQ(found.fivePrime.name, u"5'-OH"_s);
    EXPECT_EQ(found.threePrime.name, u"3'-OH"_s);
}

TEST(OligoSequence, TextMayLieInTheListThatALadderIsAppendedTo)
{
    QList<QSharedPointer<const chem::MoleculeComplex>> complexes = {complexOf(u"rAC"_s)};
    complexes.squeeze();
    const QString& text = complexes.first()->residues[1]->code;
    ASSERT_EQ(text, u"rA"_s);
    chem::defaultChemicalFactory()->constructLinearOligoComplexes(text, 1, 1, &complexes);
    ASSERT_EQ(complexes.size(), 4);
    EXPECT_EQ(complexes[1]->residues[1]->code, u"rA"_s);
}

// Any length.

TEST(OligoSequence, ReadsTextsOfAnyLength)
{
    for (const int length : {10, 1000, 20000, 1000000}) {
        SCOPED_TRACE(length);
        const QString text = u"{"_s + u"rA*dCT"_s.repeated(length / 3 + 1) + u"}"_s;
        EXPECT_TRUE(chem::defaultChemicalFactory()->isValidOligoSequence(text));
        const Parsed parsed = parse(text);
        ASSERT_TRUE(parsed.isValid);
        EXPECT_EQ(parsed.nucleotides.size(), 3 * (length / 3 + 1));
        EXPECT_EQ(parsed.fivePrime.name, u"5'-P"_s);
        EXPECT_EQ(parsed.threePrime.name, u"3'-P"_s);
    }
}

TEST(OligoSequence, RunsOfDigitsThatEndBadlyAreRefusedAtOnce)
{
    for (const QString& end : {u"!"_s, u"+"_s, u"e"_s}) {
        const QString text = u"1"_s.repeated(100000) + end;
        EXPECT_FALSE(parse(text).isValid);
        EXPECT_FALSE(chem::defaultChemicalFactory()->isValidOligoSequence(text));
    }
}

// The engine of regular expressions as a second implementation, written down step by step.

class ByExpressions
{
public:
    explicit ByExpressions(
        const ChemicalFactory& factory,
        const QMap<ChemicalFactory::BuildingBlockType, QMap<QString, NamedMolecule>>& dictionaries)
        : m_full(factory.generateFullOligoRegex())
        , m_unit(factory.generateOligoSequenceRegex())
        , m_dictionaries(dictionaries)
    {
    }

    QRegularExpressionMatch match(const QString& text) const
    {
        return m_full.isValid() ? m_full.match(text) : QRegularExpressionMatch();
    }

    Parsed parse(const QString& text, const ChemicalFactory& factory) const
    {
        Parsed result;
        NamedMolecule hydrogen;
        NamedMolecule hydroxyl;
        factory.standardOligoTermini(&hydrogen, &hydroxyl);
        const QRegularExpressionMatch whole = match(text);
        result.fivePrime = NamedMolecule(hydrogen, u"5Prime"_s, QString());
        result.threePrime = NamedMolecule(hydroxyl, u"3Prime"_s, QString());
        result.isValid = whole.hasMatch();
        if (!result.isValid)
            return result;

        QRegularExpressionMatchIterator matches;
        if (m_unit.isValid())
            matches = m_unit.globalMatch(whole.captured(2));
        while (matches.hasNext()) {
            const QRegularExpressionMatch unit = matches.next();
            appendUnit(unit, !matches.hasNext(), &result.nucleotides);
        }
        const QString fiveMark = whole.captured(1);
        const QString threeMark = whole.captured(6);
        if (result.nucleotides.size() == 1 && result.nucleotides[0]->nucleobase.name == u"~~~") {
            if (fiveMark.isEmpty())
                result.fivePrime = NamedMolecule();
            if (threeMark.isEmpty())
                result.threePrime = NamedMolecule();
        }
        if (fiveMark.size() == 1)
            result.fivePrime = entry(ChemicalFactory::FivePrimeTerminalBlock, fiveMark);
        if (threeMark.size() == 1)
            result.threePrime = entry(ChemicalFactory::ThreePrimeTerminalBlock, threeMark);
        return result;
    }

    NamedMolecule defaultRibose;
    NamedMolecule defaultPhosphate;

private:
    NamedMolecule entry(ChemicalFactory::BuildingBlockType type, const QString& key) const
    {
        return m_dictionaries.value(type).value(key);
    }

    void appendUnit(const QRegularExpressionMatch& unit, bool isLast, Nucleotides* list) const
    {
        const QString riboseText = unit.captured(1);
        const QString phosphateText = unit.captured(5);
        const QString number = unit.captured(4);
        QString baseText = unit.captured(3);
        NamedMolecule nucleobase;
        NamedMolecule ribose;
        NamedMolecule phosphate;
        for (const QChar mark : phosphateText) {
            const NamedMolecule found = entry(ChemicalFactory::PhosphateBlock, QString(mark));
            phosphate += found;
            phosphate.code += found.code;
        }
        if (riboseText.size() == 1)
            ribose = entry(ChemicalFactory::RiboseBlock, riboseText);
        if (number.isEmpty()) {
            nucleobase = entry(ChemicalFactory::NucleobaseBlock, baseText.right(1));
            if (riboseText.isEmpty())
                ribose = defaultRibose;
            if (phosphate.code.isEmpty())
                phosphate = defaultPhosphate;
        } else {
            const double mass = number.toDouble();
            nucleobase =
                NamedMolecule(Molecule(chem::ChemicalFormula(), mass, mass), u"~~~"_s, number);
            baseText = number;
            if (isLast && !list->isEmpty() && list->last()->phosphate.code.isEmpty()) {
                const Nucleotide previous = *list->last();
                list->last() = QSharedPointer<Nucleotide>::create(previous.nucleobase,
                                                                  previous.ribose, NamedMolecule(),
                                                                  previous.name, previous.code);
            }
        }
        if (isLast && phosphate.code.isEmpty())
            phosphate = NamedMolecule();
        list->append(QSharedPointer<Nucleotide>::create(
            nucleobase, ribose, phosphate, nucleobase.name, riboseText + baseText + phosphateText));
    }

    QRegularExpression m_full;
    QRegularExpression m_unit;
    QMap<ChemicalFactory::BuildingBlockType, QMap<QString, NamedMolecule>> m_dictionaries;
};

bool isSame(const Molecule& a, const Molecule& b)
{
    return a.averageMass() == b.averageMass() && a.monoMass() == b.monoMass() &&
           a.formula().elementCountMap() == b.formula().elementCountMap();
}

bool isSame(const NamedMolecule& a, const NamedMolecule& b)
{
    return isSame(static_cast<const Molecule&>(a), static_cast<const Molecule&>(b)) &&
           a.name == b.name && a.code == b.code;
}

bool isSame(const Nucleotide& a, const Nucleotide& b)
{
    return isSame(static_cast<const NamedMolecule&>(a), static_cast<const NamedMolecule&>(b)) &&
           isSame(a.nucleobase, b.nucleobase) && isSame(a.ribose, b.ribose) &&
           isSame(a.phosphate, b.phosphate);
}

bool isSame(const Parsed& a, const Parsed& b)
{
    return a.isValid == b.isValid && isSame(a.fivePrime, b.fivePrime) &&
           isSame(a.threePrime, b.threePrime) &&
           std::equal(a.nucleotides.cbegin(), a.nucleotides.cend(), b.nucleotides.cbegin(),
                      b.nucleotides.cend(),
                      [](const auto& x, const auto& y) { return isSame(*x, *y); });
}

using Dictionaries = QMap<ChemicalFactory::BuildingBlockType, QMap<QString, NamedMolecule>>;

/// A factory whose dictionaries can be read, natural or empty.
struct OpenFactory : ChemicalFactory
{
    explicit OpenFactory(bool isEmpty) { init(isEmpty ? u" "_s : QString()); }
    using ChemicalFactory::buildingBlocks;
    using ChemicalFactory::defaultPhosphate;
    using ChemicalFactory::defaultRibose;
};

const QList<ChemicalFactory::BuildingBlockType> grammarTypes = {
    ChemicalFactory::FivePrimeTerminalBlock, ChemicalFactory::RiboseBlock,
    ChemicalFactory::NucleobaseBlock, ChemicalFactory::PhosphateBlock,
    ChemicalFactory::ThreePrimeTerminalBlock};

const QStringList plainKeys = {u"A"_s, u"B"_s, u"C"_s, u"a"_s, u"["_s, u"]"_s,  u"{"_s,  u"}"_s,
                               u"*"_s, u"."_s, u"+"_s, u"1"_s, u"7"_s, u"AB"_s, u"%2"_s, u"é"_s};
const QStringList oddKeys = {u"-"_s,
                             u"^"_s,
                             u"\\"_s,
                             u"a-c"_s,
                             u"z-a"_s,
                             u"!-~"_s,
                             u"^A"_s,
                             u"\\d"_s,
                             u"\\w"_s,
                             u"\\S"_s,
                             u"\\Q"_s,
                             u"\\E"_s,
                             u"\\c"_s,
                             u"^"_s,
                             u"A B"_s,
                             u" "_s,
                             u"😀"_s,
                             u"\\x{41}"_s,
                             u"\\x{4"_s,
                             u"$"_s,
                             u"\\]"_s,
                             u"[:alpha:]"_s,
                             u"\x01-z"_s,
                             u"&&"_s,
                             u"|"_s,
                             u"("_s,
                             u")"_s,
                             QString(QChar(0xd800)),
                             QString(QChar(u'\0'))};

/// A number from 0 up to but not including `end`.
int draw(int end, std::mt19937& random)
{
    return static_cast<int>(random() % static_cast<unsigned>(end));
}

template <typename List>
auto anyOf(const List& list, std::mt19937& random)
{
    return list[draw(static_cast<int>(list.size()), random)];
}

/// Fills the five alphabets with keys of both kinds; one in six dictionaries may be left empty.
void addRandomKeys(OpenFactory* factory, std::mt19937& random)
{
    const bool isOdd = draw(2, random) == 0;
    for (const auto type : grammarTypes) {
        const int count = draw(4, random) + (draw(6, random) > 0 ? 1 : 0);
        for (int i = 0; i < count; ++i) {
            const QString key =
                isOdd && draw(3, random) == 0 ? anyOf(oddKeys, random) : anyOf(plainKeys, random);
            factory->setBuildingBlock(type, key, u"name of "_s + key, u"C3H5N0.5"_s);
        }
    }
}

QString randomText(const Dictionaries& dictionaries, std::mt19937& random)
{
    QString characters = u"12.+-A"_s;
    for (const auto& dictionary : dictionaries)
        characters += dictionary.keys().join(QString());
    QString text;
    const int length = draw(9, random);
    for (int i = 0; i < length; ++i)
        text += anyOf(characters, random);
    const int extra = draw(40, random);
    if (extra == 0)
        text += u'\n';
    else if (extra == 1)
        text.insert(text.size() / 2, u'\n');
    else if (extra == 2)
        text += QChar(0xdc00);
    else if (extra == 3)
        text.prepend(u"😀"_s);
    else if (extra == 4)
        text += u'é';
    return text;
}

TEST(OligoSequence, ScannerAgreesWithTheExpressionsForRandomDictionaries)
{
    // The oracle shares nothing with the scanner but the two expressions, whose texts are pinned in
    // the tests of the grammar.
    std::mt19937 random(testSeed(20261121));
    constexpr int dictionaryCount = 2500;
    constexpr int textsEach = 50;
    int compared = 0;
    int accepted = 0;
    for (int i = 0; i < dictionaryCount; ++i) {
        OpenFactory factory(i % 3 != 0);
        addRandomKeys(&factory, random);
        ByExpressions expected(factory, factory.buildingBlocks);
        expected.defaultRibose = factory.defaultRibose;
        expected.defaultPhosphate = factory.defaultPhosphate;
        for (int j = 0; j < textsEach; ++j) {
            const QString text = randomText(factory.buildingBlocks, random);
            const Parsed oracle = expected.parse(text, factory);
            ASSERT_TRUE(isSame(parse(factory, text), oracle))
                << text.toStdString() << "\n"
                << factory.generateFullOligoRegex().pattern().toStdString();
            if (!text.contains(u',')) {
                ASSERT_EQ(factory.isValidOligoSequence(text), oracle.isValid);
            }
            accepted += oracle.isValid;
            ++compared;
        }
    }
    EXPECT_EQ(compared, dictionaryCount * textsEach);
    EXPECT_GT(accepted, 10000);
    EXPECT_LT(accepted, compared - 10000);
}

TEST(OligoSequence, ScannerAgreesWithTheExpressionsForAllShortTexts)
{
    OpenFactory factory(false);
    ByExpressions expected(factory, factory.buildingBlocks);
    expected.defaultRibose = factory.defaultRibose;
    expected.defaultPhosphate = factory.defaultPhosphate;
    const QString alphabet = u"[]rA+1.*\n"_s;
    QStringList texts = {QString()};
    int compared = 0;
    for (qsizetype next = 0; next < texts.size(); ++next) {
        const QString text = texts[next];
        ASSERT_TRUE(isSame(parse(factory, text), expected.parse(text, factory)))
            << text.toStdString();
        ++compared;
        for (qsizetype i = 0; text.size() < 5 && i < alphabet.size(); ++i)
            texts.append(text + alphabet[i]);
    }
    EXPECT_EQ(compared, 1 + 9 + 81 + 729 + 6561 + 59049);
}

} // namespace
