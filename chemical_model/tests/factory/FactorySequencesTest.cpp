#include "FragmentLists.h"
#include "OligoReadings.h"
#include "RandomMolecules.h"
#include "SameMolecules.h"
#include "TestFormulas.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace oligoReadings;
using namespace randomMolecules;

namespace {

using chem::ChemicalFactory;
using chem::Molecule;
using chem::NamedMolecule;
using chem::Nucleotide;

Molecule withGlycan(const Molecule& molecule, const QString& composition)
{
    return naturalFactory().modifyMoleculeWithGlycan(molecule, composition);
}

TEST(FactorySequences, ChainDelimiterIsASlashThatNoReaderKnows)
{
    EXPECT_EQ(ChemicalFactory::ChainDelimeter, u'/');
    const QString chains = u"G"_s + ChemicalFactory::ChainDelimeter + u"A"_s;
    EXPECT_EQ(peptide(chains)->residues.size(), 2 + 3); // the slash is a residue of no mass
    EXPECT_FALSE(strand(u"A"_s + ChemicalFactory::ChainDelimeter + u"C"_s));
}

TEST(FactorySequences, PeptidesAndOligonucleotidesShareStandardTermini)
{
    const auto expectTermini = [](const NamedMolecule& left, const NamedMolecule& right) {
        expectSame(left, NamedMolecule(molecule(u"H"_s), u"NTerm"_s, u"H-"_s));
        expectSame(right, NamedMolecule(molecule(u"OH"_s), u"CTerm"_s, u"-OH"_s));
    };
    NamedMolecule left;
    NamedMolecule right;
    naturalFactory().standardPeptideTermini(&left, &right);
    expectTermini(left, right);
    left = right = NamedMolecule();
    naturalFactory().standardOligoTermini(&left, &right);
    expectTermini(left, right);
}

TEST(FactorySequences, GlycanIsAddedToTheStoredMassesOfAMolecule)
{
    const Molecule odd(formulaWith({{u"C"_s, 1}}), 0.5, 0.25); // carbon weighs 12
    const Molecule sugar = naturalFactory().constructGlycanModification(u"Hex(3)Fuc(1)"_s);
    expectSame(withGlycan(odd, u"Hex(3)Fuc(1)"_s), odd + sugar);
    EXPECT_EQ(withGlycan(odd, u"Hex(2)"_s).formula().toString(), u"C13H20O10"_s);
    expectSame(withGlycan(odd, u"?"_s), odd);
}

TEST(FactorySequences, RichFragmentsAreAppended)
{
    const auto complex = peptide(u"GA"_s);
    auto fragments = richFragments(*complex);
    naturalFactory().generateLinearFragments(*complex, &fragments);
    ASSERT_EQ(fragments.size(), 40);
    EXPECT_EQ(fragments[20]->typeLabel, fragments[0]->typeLabel);
    expectSame(*fragments[20], *fragments[0]);
}

// Arguments that are one object.

TEST(FactorySequences, OneObjectForBothEndsHoldsTheThreePrimeEnd)
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

TEST(FactorySequences, TextMayLieInAnyOfTheOutputs)
{
    const QString text = u"{rA*fC.mG}"_s;
    for (QString NamedMolecule::*field : {&NamedMolecule::name, &NamedMolecule::code}) {
        for (NamedMolecule Parsed::*end : {&Parsed::fivePrime, &Parsed::threePrime}) {
            Parsed found;
            QString& own = found.*end.*field;
            own = QString(text.constData(), text.size()); // shared with nothing that outlives it
            found.isValid = naturalFactory().parseNucleotideSequence(
                own, &found.nucleotides, &found.fivePrime, &found.threePrime);
            expectSameReading(found, parse(text));
        }
    }
}

TEST(FactorySequences, TextMayBeTheCodeOfTheEntryThatItReplaces)
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

TEST(FactorySequences, TextMayLieInTheListThatALadderIsAppendedTo)
{
    QList<QSharedPointer<const chem::MoleculeComplex>> complexes = {strand(u"rAC"_s)};
    complexes.squeeze();
    const QString& text = complexes.first()->residues[1]->code;
    ASSERT_EQ(text, u"rA"_s);
    chem::defaultChemicalFactory()->constructLinearOligoComplexes(text, 1, 1, &complexes);
    ASSERT_EQ(complexes.size(), 4);
    EXPECT_EQ(complexes[1]->residues[1]->code, u"rA"_s);
}

TEST(FactorySequences, PeptideTextMayLieInEitherOfTheOutputs)
{
    for (QString NamedMolecule::*field : {&NamedMolecule::name, &NamedMolecule::code}) {
        for (const bool isLeft : {true, false}) {
            NamedMolecule nTerminal;
            NamedMolecule cTerminal;
            QString& own = (isLeft ? nTerminal : cTerminal).*field;
            own = u"GA"_s.repeated(2);
            QList<QSharedPointer<const chem::AminoAcid>> aminoAcids;
            naturalFactory().parseAminoAcidSequence(own, &aminoAcids, &nTerminal, &cTerminal);
            ASSERT_EQ(aminoAcids.size(), 4);
            EXPECT_EQ(aminoAcids[3]->code, u"A"_s);
            EXPECT_EQ(nTerminal.code, u"H-"_s);
            EXPECT_EQ(cTerminal.code, u"-OH"_s);
        }
    }
}

RC_GTEST_PROP(FactorySequencesLaws, GlycanAddsItsSugarsToAnyMolecule, ())
{
    const Molecule start = molecule(anyFormulaText());
    const int hexoses = *rc::gen::inRange(0, 30);
    const int hexosamines = *rc::gen::inRange(0, 30);
    Molecule expected = naturalFactory().modifyMolecule(start, u"C8H13NO5"_s, hexosamines);
    expected = naturalFactory().modifyMolecule(expected, u"C6H10O5"_s, hexoses);
    const QString glycan = u"HexNAc(%1)Hex(%2)"_s.arg(hexosamines).arg(hexoses);
    RC_ASSERT(isAlike(withGlycan(start, glycan), expected));
}

} // namespace
