#include "RandomMolecules.h"
#include "SameMolecules.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace randomMolecules;

namespace {

using chem::Molecule;

bool isValidGlycan(const QString& composition)
{
    return chem::defaultChemicalFactory()->isValidGlycanComposition(composition);
}

Molecule glycan(const QString& composition)
{
    return chem::defaultChemicalFactory()->constructGlycanModification(composition);
}

TEST(GlycanReader, IsCheckedAndAddedUp)
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
        {u"Hex(\u0662)"_s, false, u""_s},                           // an Arabic-Indic digit
        {u"Pent(1)Hex(99999999999)Fuc(1)"_s, false, u"C11H18O8"_s}, // each term is checked
        {u"dHex(1)"_s, true, u"C6H10O4"_s},
        {u"Fuc(1)"_s, true, u"C6H10O4"_s},
        {u"NeuAc(1)NeuGc(1)"_s, true, u"C22H34N2O17"_s},
        {u"Na(1)"_s, true, u"Na"_s},
        {u"Sodium(1)"_s, true, u"Na"_s},
        {u"HexNA(1)"_s, false, u""_s}};
    for (const Case& c : cases) {
        EXPECT_EQ(isValidGlycan(c.text), c.isValid) << c.text.toStdString();
        EXPECT_EQ(glycan(c.text).formula().toString(), c.formula) << c.text.toStdString();
    }
}

TEST(GlycanReader, LargestCountIsStillMultiplied)
{
    EXPECT_TRUE(isValidGlycan(u"Na(2147483647)"_s));
    EXPECT_EQ(glycan(u"Na(2147483647)"_s).formula().elementCount(u"Na"_s), 2147483647);
}

TEST(GlycanReader, SkippedTermsLeaveNoEntry)
{
    EXPECT_TRUE(glycan(u"Hex(0)"_s).formula().isEmpty());
    EXPECT_EQ(glycan(u"Hex(0)"_s).averageMass(), 0.0);
}

TEST(GlycanReader, DictionaryDecidesWhatAResidueWeighsButNotWhatCanBeWritten)
{
    const auto factory = chem::ChemicalFactory::construct(QString());
    factory->setBuildingBlock(chem::ChemicalFactory::SugarBlock, u"Hex"_s, u"Heavy"_s, u"C1"_s);
    factory->setBuildingBlock(chem::ChemicalFactory::SugarBlock, u"Kdn"_s, u"New"_s, u"C1"_s);
    EXPECT_EQ(factory->constructGlycanModification(u"Hex(2)"_s).monoMass(), 24.0);
    EXPECT_FALSE(factory->isValidGlycanComposition(u"Kdn(1)"_s));
}

TEST(GlycanReader, FactoryWithoutDictionariesRefusesAndSkips)
{
    const auto factory = chem::ChemicalFactory::construct(u" "_s);
    EXPECT_FALSE(factory->isValidGlycanComposition(u"Hex(1)"_s));
    EXPECT_TRUE(factory->constructGlycanModification(u"Hex(1)"_s).formula().isEmpty());
}

TEST(GlycanReader, LongTextsAreReadInOneGo)
{
    EXPECT_FALSE(isValidGlycan(u"Hex"_s + QString(1000000, u' ')));
    EXPECT_FALSE(isValidGlycan(QString(1000000, u'(')));
    EXPECT_EQ(glycan(u"Hex(1) "_s.repeated(20000)).formula().elementCount(u"C"_s), 120000);
}

TEST(GlycanReader, StoredMassesAreSummedInTheOrderOfTheText)
{
    const auto sugars = naturalFactory().buildingBlocks.value(chem::ChemicalFactory::SugarBlock);
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
    expectSame(glycan(u"HexNAc(7)NeuAc(9)Fuc(3)"_s), forwards);
    expectSame(glycan(u"Fuc(3)NeuAc(9)HexNAc(7)"_s), backwards);
}

TEST(GlycanReader, BothNamesOfSodiumGiveOneMolecule)
{
    expectSame(glycan(u"Na(3)"_s), glycan(u"Sodium(3)"_s));
    EXPECT_GT(glycan(u"Na(3)"_s).monoMass(), 0.0);
}

TEST(GlycanReader, NameWithoutAnEntryIsRefusedAndSkipped)
{
    OpenFactory factory;
    factory.buildingBlocks[chem::ChemicalFactory::SugarBlock].remove(u"Hex"_s);
    EXPECT_FALSE(factory.isValidGlycanComposition(u"Fuc(1)Hex(1)"_s));
    EXPECT_EQ(factory.constructGlycanModification(u"Fuc(1)Hex(1)"_s).formula().toString(),
              u"C6H10O4"_s);
    EXPECT_TRUE(factory.isValidGlycanComposition(u"Fuc(1)"_s));
}

TEST(GlycanReader, BrokenTextsAndEndlessCountsAreRefused)
{
    EXPECT_FALSE(isValidGlycan(u"Hex(1)"_s + QChar(0xd800))); // half a surrogate pair
    EXPECT_TRUE(glycan(u"Hex(1)"_s + QChar(0xd800)).formula().isEmpty());
    EXPECT_TRUE(isValidGlycan(u"Hex(1)"_s + QChar(u'\0') + u"Hex(1)"_s));
    EXPECT_FALSE(isValidGlycan(u"Hex("_s + QString(1000000, u'9') + u')'));
    EXPECT_EQ(glycan(u"Hex("_s + QString(1000000, u'0') + u"7)"_s).formula().toString(),
              u"C42H70O35"_s);
}

RC_GTEST_PROP(GlycanReaderLaws, OrderOfTermsDoesNotMatterToTheComposition, ())
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
    RC_ASSERT(isValidGlycan(forwards) && isValidGlycan(backwards));
    RC_ASSERT(glycan(forwards).formula().toString() == glycan(backwards).formula().toString());
}

RC_GTEST_PROP(GlycanReaderLaws, TermsOfOneSugarAreCountedTogether, ())
{
    const QString sugar = *rc::gen::element(u"Hex"_s, u"HexNAc"_s, u"Fuc"_s, u"dHex"_s, u"Pent"_s,
                                            u"NeuAc"_s, u"NeuGc"_s, u"Na"_s, u"Sodium"_s);
    const int one = *rc::gen::inRange(0, 1000);
    const int other = *rc::gen::inRange(0, 1000);
    const auto term = [&sugar](int count) -> QString {
        return sugar + u'(' + QString::number(count) + u')';
    };
    RC_ASSERT(isAlike(glycan(term(one) + term(other)), glycan(term(one + other))));
}

} // namespace
