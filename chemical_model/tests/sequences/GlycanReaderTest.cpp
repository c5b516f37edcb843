#include "OpenFactory.h"
#include "TestFormulas.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using chem::Molecule;

bool isValid(const QString& composition)
{
    return chem::defaultChemicalFactory()->isValidGlycanComposition(composition);
}

Molecule glycan(const QString& composition)
{
    return chem::defaultChemicalFactory()->constructGlycanModification(composition);
}

TEST(GlycanComposition, IsCheckedAndAddedUp)
{
    struct Case
    {
        QString text;
        bool isValid;
        QString formula;
    };
    const QList<Case> cases = {
        {u""_s, false, u""_s},
        {u"glycan"_s, false, u""_s},
        {u"Hex(2)"_s, true, u"C12H20O10"_s},
        {u"Hex(1) Hex(1)"_s, true, u"C12H20O10"_s},
        {u"HexNAc(2)Hex(5)"_s, true, u"C46H76N2O35"_s},
        {u"Hex (2)"_s, true, u"C12H20O10"_s},
        {u"Hex\t\n(2)"_s, true, u"C12H20O10"_s},
        {u"Hex\u00a0(2)"_s, false, u""_s}, // a no-break space is no white space of the notation
        {u"Hex( 2 )"_s, false, u""_s},
        {u"xyz Hex(1) xyz"_s, true, u"C6H10O5"_s},
        {u"xHex(1)"_s, true, u"C6H10O5"_s},
        {u"hex(1)"_s, false, u""_s},
        {u"Hex2"_s, false, u""_s},
        {u"Hex()"_s, false, u""_s},
        {u"Hex(0)"_s, true, u""_s},
        {u"Hex(007)"_s, true, u"C42H70O35"_s},
        {u"Hex(-1)"_s, false, u""_s},
        {u"Hex(2147483648)"_s, false, u""_s},
        {u"Hex(99999999999)"_s, false, u""_s},
        {u"Hex(99999999999)Pent(1)"_s, false, u"C5H8O4"_s},
        {u"Hex(\u0662)"_s, false, u""_s}, // an Arabic-Indic digit
        {u"dHex(1)"_s, true, u"C6H10O4"_s},
        {u"Fuc(1)"_s, true, u"C6H10O4"_s},
        {u"NeuAc(1)NeuGc(1)"_s, true, u"C22H34N2O17"_s},
        {u"Na(1)"_s, true, u"Na"_s},
        {u"Sodium(1)"_s, true, u"Na"_s},
        {u"HexNA(1)"_s, false, u""_s}};
    for (const Case& c : cases) {
        EXPECT_EQ(isValid(c.text), c.isValid) << c.text.toStdString();
        EXPECT_EQ(glycan(c.text).formula().toString(), c.formula) << c.text.toStdString();
    }
}

TEST(GlycanComposition, LargestCountIsStillMultiplied)
{
    EXPECT_TRUE(isValid(u"Na(2147483647)"_s));
    EXPECT_EQ(glycan(u"Na(2147483647)"_s).formula().elementCount(u"Na"_s), 2147483647);
}

TEST(GlycanComposition, SkippedTermsLeaveNoEntry)
{
    EXPECT_TRUE(glycan(u"Hex(0)"_s).formula().isEmpty());
    EXPECT_EQ(glycan(u"Hex(0)"_s).averageMass(), 0.0);
}

TEST(GlycanComposition, MassesAreSumsOfStoredMasses)
{
    const OpenFactory factory;
    const auto sugars = factory.buildingBlocks.value(chem::ChemicalFactory::SugarBlock);
    Molecule hexoses = sugars.value(u"Hex"_s);
    hexoses *= 5;
    Molecule acetylhexosamines = sugars.value(u"HexNAc"_s);
    acetylhexosamines *= 2;
    Molecule expected;
    expected += acetylhexosamines;
    expected += hexoses;
    EXPECT_EQ(glycan(u"HexNAc(2)Hex(5)"_s).monoMass(), expected.monoMass());
    EXPECT_EQ(glycan(u"HexNAc(2)Hex(5)"_s).averageMass(), expected.averageMass());
}

TEST(GlycanComposition, IsAddedToAMolecule)
{
    const auto factory = chem::defaultChemicalFactory();
    const Molecule peptide = *factory->constructLinearPeptideComplex(u"NGS"_s);
    const Molecule expected = peptide + glycan(u"Hex(3)Fuc(1)"_s);
    const Molecule modified = factory->modifyMoleculeWithGlycan(peptide, u"Hex(3)Fuc(1)"_s);
    EXPECT_EQ(modified.monoMass(), expected.monoMass());
    EXPECT_EQ(modified.averageMass(), expected.averageMass());
    EXPECT_EQ(modified.formula().toString(), expected.formula().toString());
    EXPECT_EQ(factory->modifyMoleculeWithGlycan(peptide, u"?"_s).monoMass(), peptide.monoMass());
}

TEST(GlycanComposition, DictionaryDecidesWhatAResidueWeighsButNotWhatCanBeWritten)
{
    const auto factory = chem::ChemicalFactory::construct(QString());
    factory->setBuildingBlock(chem::ChemicalFactory::SugarBlock, u"Hex"_s, u"Heavy"_s, u"C1"_s);
    factory->setBuildingBlock(chem::ChemicalFactory::SugarBlock, u"Kdn"_s, u"New"_s, u"C1"_s);
    EXPECT_EQ(factory->constructGlycanModification(u"Hex(2)"_s).monoMass(), 24.0);
    EXPECT_FALSE(factory->isValidGlycanComposition(u"Kdn(1)"_s));
}

TEST(GlycanComposition, FactoryWithoutDictionariesRefusesAndSkips)
{
    const auto factory = chem::ChemicalFactory::construct(u" "_s);
    EXPECT_FALSE(factory->isValidGlycanComposition(u"Hex(1)"_s));
    EXPECT_TRUE(factory->constructGlycanModification(u"Hex(1)"_s).formula().isEmpty());
}

TEST(GlycanComposition, LongTextsAreReadInOneGo)
{
    EXPECT_FALSE(isValid(u"Hex"_s + QString(1000000, u' ')));
    EXPECT_FALSE(isValid(QString(1000000, u'(')));
    EXPECT_EQ(glycan(u"Hex(1) "_s.repeated(20000)).formula().elementCount(u"C"_s), 120000);
}

RC_GTEST_PROP(GlycanLaws, OrderOfTermsDoesNotMatterToTheComposition, ())
{
    const QStringList names = {u"Hex"_s, u"HexNAc"_s, u"Fuc"_s, u"NeuAc"_s, u"Na"_s};
    QStringList terms;
    for (const auto& [name, count] :
         *rc::gen::nonEmpty(rc::gen::container<std::vector<std::pair<int, int>>>(
             rc::gen::pair(rc::gen::inRange(0, 5), rc::gen::inRange(0, 50)))))
        terms.append(u"%1(%2)"_s.arg(names[name]).arg(count));
    const QString forwards = terms.join(u" "_s);
    std::reverse(terms.begin(), terms.end());
    const QString backwards = terms.join(u"-"_s);
    RC_ASSERT(isValid(forwards) && isValid(backwards));
    RC_ASSERT(glycan(forwards).formula().toString() == glycan(backwards).formula().toString());
}

TEST(GlycanComposition, EveryTermIsChecked)
{
    EXPECT_FALSE(isValid(u"Pent(1)Hex(99999999999)"_s));
    EXPECT_FALSE(isValid(u"Pent(1)Hex(2147483648)Fuc(1)"_s));
    EXPECT_EQ(glycan(u"Pent(1)Hex(99999999999)Fuc(1)"_s).formula().toString(), u"C11H18O8"_s);
}

TEST(GlycanComposition, TermsAreSummedInTheOrderOfTheText)
{
    const OpenFactory factory;
    const auto sugars = factory.buildingBlocks.value(chem::ChemicalFactory::SugarBlock);
    const auto summed = [&sugars](const QList<std::pair<QString, int>>& terms) {
        Molecule sum;
        for (const auto& [name, count] : terms) {
            Molecule residues = sugars.value(name);
            residues *= count;
            sum += residues;
        }
        return sum;
    };
    const Molecule forwards = summed({{u"HexNAc"_s, 7}, {u"NeuAc"_s, 9}, {u"Fuc"_s, 3}});
    const Molecule backwards = summed({{u"Fuc"_s, 3}, {u"NeuAc"_s, 9}, {u"HexNAc"_s, 7}});
    ASSERT_NE(forwards.monoMass(), backwards.monoMass()); // else the order could not be seen
    EXPECT_EQ(glycan(u"HexNAc(7)NeuAc(9)Fuc(3)"_s).monoMass(), forwards.monoMass());
    EXPECT_EQ(glycan(u"HexNAc(7)NeuAc(9)Fuc(3)"_s).averageMass(), forwards.averageMass());
    EXPECT_EQ(glycan(u"Fuc(3)NeuAc(9)HexNAc(7)"_s).monoMass(), backwards.monoMass());
}

TEST(GlycanComposition, BothNamesOfSodiumGiveOneMolecule)
{
    EXPECT_EQ(glycan(u"Na(3)"_s).monoMass(), glycan(u"Sodium(3)"_s).monoMass());
    EXPECT_EQ(glycan(u"Na(3)"_s).averageMass(), glycan(u"Sodium(3)"_s).averageMass());
    EXPECT_GT(glycan(u"Na(3)"_s).monoMass(), 0.0);
}

TEST(GlycanComposition, StoredMassesOfTheMoleculeAreKept)
{
    const Molecule odd(formulaWith({{u"C"_s, 1}}), 0.5, 0.25);
    const auto factory = chem::defaultChemicalFactory();
    const Molecule sugar = glycan(u"Hex(2)"_s);
    const Molecule modified = factory->modifyMoleculeWithGlycan(odd, u"Hex(2)"_s);
    EXPECT_EQ(modified.averageMass(), 0.5 + sugar.averageMass());
    EXPECT_EQ(modified.monoMass(), 0.25 + sugar.monoMass());
    EXPECT_EQ(modified.formula().toString(), u"C13H20O10"_s);
    EXPECT_EQ(odd.averageMass(), 0.5);
}

TEST(GlycanComposition, NameWithoutAnEntryIsRefusedAndSkipped)
{
    OpenFactory factory;
    factory.buildingBlocks[chem::ChemicalFactory::SugarBlock].remove(u"Hex"_s);
    EXPECT_FALSE(factory.isValidGlycanComposition(u"Fuc(1)Hex(1)"_s));
    EXPECT_EQ(factory.constructGlycanModification(u"Fuc(1)Hex(1)"_s).formula().toString(),
              u"C6H10O4"_s);
    EXPECT_TRUE(factory.isValidGlycanComposition(u"Fuc(1)"_s));
}

TEST(GlycanComposition, BrokenTextsAndEndlessCountsAreRefused)
{
    EXPECT_FALSE(isValid(u"Hex(1)"_s + QChar(0xd800))); // half a surrogate pair
    EXPECT_TRUE(glycan(u"Hex(1)"_s + QChar(0xd800)).formula().isEmpty());
    EXPECT_TRUE(isValid(u"Hex(1)"_s + QChar(u'\0') + u"Hex(1)"_s));
    EXPECT_FALSE(isValid(u"Hex("_s + QString(1000000, u'9') + u')'));
    EXPECT_EQ(glycan(u"Hex("_s + QString(1000000, u'0') + u"7)"_s).formula().toString(),
              u"C42H70O35"_s);
}

} // namespace
