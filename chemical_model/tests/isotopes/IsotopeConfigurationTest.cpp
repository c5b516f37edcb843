#include "FormulaByIsoSpec.h"
#include "MessageRecorder.h"
#include "RandomMolecules.h"
#include "TestFormulas.h"
#include "TestPrinters.h"
#include <IsotopeConfiguration.h>

#include <QLoggingCategory>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace randomMolecules;

namespace {

using Values = QList<double>;

Values normalized(Values values)
{
    chem::normalize(values);
    return values;
}

TEST(IsotopeConfiguration, NormalizeScalesByTheWholeSum)
{
    EXPECT_EQ(normalized({99, 1}), Values({99 * (1.0 / 100), 1 * (1.0 / 100)}));
    EXPECT_EQ(normalized({60, 40}), Values({60 * (1.0 / 100), 40 * (1.0 / 100)}));
    EXPECT_EQ(normalized({1.0}), Values({1.0}));
    EXPECT_EQ(normalized({1.5, 1.5}), Values({0.75, 0.75}));
    EXPECT_EQ(normalized({1.5}), Values({1.5}));
    EXPECT_EQ(normalized({0.7, 1.4}), Values({0.7, 1.4}));   // 0, then 1
    EXPECT_EQ(normalized({2.5, -1.0}), Values({2.5, -1.0})); // 2, then 1
    EXPECT_EQ(normalized({5.0, -1.0}), Values({1.25, -0.25}));
}

TEST(IsotopeConfiguration, NormalizeLeavesFractionsAndLossesAlone)
{
    for (const Values& values : {Values{}, Values{0.9, 0.9}, Values{0.5, 0.5}, Values{-3.0, 2.0},
                                 Values{0.0}, Values{3e9}, Values{1e300, 5.0}}) {
        const MessageRecorder recorder;
        EXPECT_EQ(normalized(values), values);
        ASSERT_EQ(MessageRecorder::messages().size(), 1);
        const auto& message = MessageRecorder::messages().first();
        EXPECT_EQ(message.type, QtDebugMsg);
        EXPECT_EQ(message.category, u"zel.generic"_s);
        EXPECT_EQ(message.text, u"skipping normalization. sum less than threshold"_s);
    }
    const MessageRecorder recorder;
    Values nan = {std::nan("")};
    chem::normalize(nan);
    EXPECT_TRUE(std::isnan(nan.first()));
    EXPECT_EQ(MessageRecorder::messages().size(), 1);
}

TEST(IsotopeConfiguration, NormalizeIsSilentWhereTheHostWantsNoDebugMessages)
{
    QLoggingCategory::setFilterRules(u"zel.generic.debug=false"_s);
    const MessageRecorder recorder;
    normalized({});
    EXPECT_TRUE(MessageRecorder::messages().isEmpty());
    QLoggingCategory::setFilterRules(QString());
}

TEST(IsotopeConfiguration, NormalizeIsSilentWhenItScales)
{
    const MessageRecorder recorder;
    normalized({99, 1});
    EXPECT_TRUE(MessageRecorder::messages().isEmpty());
}

struct ExpectedRow
{
    int atomicNumber;
    int extraNeutrons;
    QString name;
    double mass;
    double abundance;
};

void expectRows(const QString& text, const QString& symbol, const QList<ExpectedRow>& expected)
{
    SCOPED_TRACE(text.toStdString());
    const OpenFactory factory(text);
    const QList<qsizetype> positions = factory.isotopesBySymbol.value(symbol);
    ASSERT_EQ(positions.size(), expected.size());
    for (qsizetype i = 0; i < expected.size(); ++i) {
        const auto& row = factory.isotopes[positions[i]];
        EXPECT_EQ(row.atomicNumber, expected[i].atomicNumber);
        EXPECT_EQ(row.extraNeutrons, expected[i].extraNeutrons);
        EXPECT_EQ(row.name, expected[i].name);
        EXPECT_EQ(row.symbol, symbol);
        EXPECT_EQ(row.mass, expected[i].mass);
        EXPECT_EQ(row.abundance, expected[i].abundance);
    }
}

/// The mass of an isotope of the natural table, counted from the lightest.
double naturalMass(const QString& symbol, qsizetype isotope)
{
    return naturalFactory().element(symbol, 1).masses[isotope];
}

TEST(IsotopeConfiguration, ReplacesTheRowsOfAnElement)
{
    for (const QString& text : {u"C13:1"_s, u"C13:1e9"_s}) // percentages of any size are scaled
        expectRows(text, u"C"_s, {{6, 1, u"carbon"_s, 13.0033548352, 1.0}});
    expectRows(u"C12:0.5 C13:0.5"_s, u"C"_s,
               {{6, 0, u"carbon"_s, 12.0, 0.5}, {6, 1, u"carbon"_s, 13.0033548352, 0.5}});
    expectRows(u"C12:99 C13:1"_s, u"C"_s,
               {{6, 0, u"carbon"_s, 12.0, 99 * (1.0 / 100)},
                {6, 1, u"carbon"_s, 13.0033548352, 1 * (1.0 / 100)}});
    expectRows(u"C13:0.6 C12:0.6"_s, u"C"_s,
               {{6, 1, u"carbon"_s, 13.0033548352, 0.6}, {6, 0, u"carbon"_s, 12.0, 0.6}});
    expectRows(
        u"H1:0.5\t\n H2:0.5"_s, u"H"_s,
        {{1, 0, u"hydrogen"_s, 1.00782503227, 0.5}, {1, 1, u"hydrogen"_s, 2.01410177819, 0.5}});
}

TEST(IsotopeConfiguration, ScalesEachElementOnItsOwn)
{
    expectRows(u"C12:1 N14:90 C13:3 N15:10"_s, u"C"_s,
               {{6, 0, u"carbon"_s, 12.0, 0.25}, {6, 1, u"carbon"_s, 13.0033548352, 0.75}});
    expectRows(u"C12:1 N14:90 C13:3 N15:10"_s, u"N"_s,
               {{7, 2, u"nitrogen"_s, naturalMass(u"N"_s, 0), 90 * (1.0 / 100)},
                {7, 3, u"nitrogen"_s, 15.0001088994, 10 * (1.0 / 100)}});
}

TEST(IsotopeConfiguration, NeutronsAreCountedFromTheElementThatIsNamedFirst)
{
    expectRows(u"C13:0.9 N15:0.9"_s, u"N"_s, {{7, 3, u"nitrogen"_s, 15.0001088994, 0.9}});
    expectRows(u"N15:0.9"_s, u"N"_s, {{7, 1, u"nitrogen"_s, 15.0001088994, 0.9}});
}

TEST(IsotopeConfiguration, IsotopeThatTheTableLacksGetsItsExpectedMass)
{
    expectRows(u"C14:1"_s, u"C"_s, {{6, 2, u"carbon"_s, 2 * 1.0026 + 12.0, 1.0}});
    expectRows(u"C13x:1"_s, u"C"_s, {{6, -12, u"carbon"_s, -12 * 1.0026 + 12.0, 1.0}});
    expectRows(u"C99999999999:1"_s, u"C"_s, {{6, -12, u"carbon"_s, -12 * 1.0026 + 12.0, 1.0}});
    expectRows(u"C2147483647:1"_s, u"C"_s,
               {{6, 2147483635, u"carbon"_s, 2147483635 * 1.0026 + 12.0, 1.0}});
}

TEST(IsotopeConfiguration, FurtherPiecesOfAnEntryAreIgnored)
{
    expectRows(u"C13:1:0.5:x"_s, u"C"_s, {{6, 1, u"carbon"_s, 13.0033548352, 1.0}});
}

TEST(IsotopeConfiguration, NewRowsStandAtTheEndAndTheIndicesFollow)
{
    const OpenFactory natural;
    const OpenFactory labelled(u"N15:1 C13:0.5 C12:0.5"_s);
    ASSERT_EQ(labelled.isotopes.size(), natural.isotopes.size() - 1);
    EXPECT_EQ(labelled.isotopesBySymbol.value(u"C"_s), QList<qsizetype>({289, 290}));
    EXPECT_EQ(labelled.isotopesBySymbol.value(u"N"_s), QList<qsizetype>({291}));
    EXPECT_EQ(labelled.isotopesByName.value(u"carbon"_s), QList<qsizetype>({289, 290}));
    EXPECT_EQ(labelled.isotopesByAtomicNumber.value(6), QList<qsizetype>({289, 290}));
    for (qsizetype i = 0; i < labelled.isotopes.size(); ++i) {
        EXPECT_TRUE(labelled.isotopesBySymbol.value(labelled.isotopes[i].symbol).contains(i));
        EXPECT_TRUE(labelled.isotopesByName.value(labelled.isotopes[i].name).contains(i));
        EXPECT_TRUE(
            labelled.isotopesByAtomicNumber.value(labelled.isotopes[i].atomicNumber).contains(i));
    }
}

TEST(IsotopeConfiguration, MassesAreComputedWithTheNewRows)
{
    const OpenFactory natural;
    const OpenFactory labelled(u"C13:1"_s);
    EXPECT_EQ(labelled.water.monoMass(), natural.water.monoMass());
    EXPECT_EQ(labelled.formyl.monoMass(), natural.formyl.monoMass() - 12.0 + 13.0033548352);
    for (const auto& dictionary : labelled.buildingBlocks) {
        for (const chem::NamedMolecule& block : dictionary) {
            const int carbons = block.formula().elementCount(u"C"_s);
            const double naturalMass =
                natural.constructMolecule(block.formula().toString()).monoMass();
            EXPECT_NEAR(block.monoMass(), naturalMass + carbons * 1.0033548352, 1e-9);
        }
    }
    EXPECT_EQ(labelled.constructMolecule(u"C2"_s).averageMass(), 2 * 13.0033548352);
}

TEST(IsotopeConfiguration, LabelledMassesHaveTheBitsOfAGenerator)
{
    for (const QString& text :
         {u"C13:99 C12:1"_s, u"N15:0.3 N14:0.7 H2:0.9"_s, u"S34:1 S33:1 S32:1"_s}) {
        const OpenFactory factory(text);
        for (const QString& symbol : factory.isotopesBySymbol.keys()) {
            for (const double count : {1.0, 7.0, 40.0})
                expectMassesOfIsoSpec(formulaWith({{symbol, count}}), factory, massesByIso);
        }
        expectMassesOfIsoSpec(formulaWith({{u"C"_s, 20}, {u"H"_s, 31}, {u"N"_s, 5}, {u"S"_s, 2}}),
                              factory, massesByGenerator);
    }
}

TEST(IsotopeConfiguration, EntriesAreSplitWhereAnExpressionFindsWhiteSpace)
{
    // A slow second way: what one entry would hold is no abundance, which IsoSpec++ refuses.
    QString characters;
    for (char16_t character = 0; character < 0x300; ++character)
        characters += QChar(character);
    characters.remove(u':'); // parts an entry, not two of them
    characters += u"\u1680\u180e\u2000\u2003\u200a\u200b\u2028\u2029\u202f\u205f\u3000\ufeff"_s;
    characters += QChar(0xd800);
    const QRegularExpression whiteSpace(u"\\s+"_s);
    int splitTexts = 0;
    for (const QChar character : std::as_const(characters)) {
        const QString text = u"C12:1"_s + character + u"C13:1"_s;
        SCOPED_TRACE(int(character.unicode()));
        if (text.split(whiteSpace).size() == 2) {
            EXPECT_EQ(OpenFactory(text).isotopesBySymbol.value(u"C"_s).size(), 2);
            ++splitTexts;
        } else {
            EXPECT_THROW(OpenFactory{text}, std::invalid_argument);
        }
    }
    EXPECT_EQ(splitTexts, 6); // blank, tab, line feed, vertical tab, form feed, carriage return
}

TEST(IsotopeConfiguration, LoneSurrogatesMakeNoEntry)
{
    // The expression finds no digit in such a piece and no white space in such a text.
    const QString surrogate = QChar(0xd800);
    EXPECT_TRUE(OpenFactory(u"C13"_s + surrogate + u":1"_s).buildingBlocks.isEmpty());
    EXPECT_THROW(OpenFactory(u"C12:1 C13:1:"_s + surrogate), std::invalid_argument);
}

TEST(IsotopeConfiguration, TextThatCannotBeReadLeavesAnEmptyFactoryWithNaturalIsotopes)
{
    const OpenFactory natural;
    for (const QString& text :
         {u" "_s, u" C13:1"_s, u"C13:1 "_s, u"13C:1"_s, u"C:1"_s, u":1"_s, u"C13"_s, u"C13 N15:1"_s,
          u"Xx5:1"_s, u"C13:1 Xx5:1"_s, u"c13:1"_s, u"C 13:1"_s, u"C13:1\n"_s, u"C13;1"_s,
          u"carbon"_s, u"-13:1"_s, u"C-13:1"_s}) {
        SCOPED_TRACE(text.toStdString());
        const OpenFactory refused(text);
        EXPECT_EQ(refused.isotopes.size(), natural.isotopes.size());
        EXPECT_EQ(refused.isotopesBySymbol, natural.isotopesBySymbol);
        EXPECT_TRUE(refused.buildingBlocks.isEmpty());
        EXPECT_TRUE(refused.defaultRibose.name.isEmpty());
        EXPECT_TRUE(refused.defaultPhosphate.name.isEmpty());
        EXPECT_TRUE(refused.water.formula().isEmpty());
        EXPECT_TRUE(refused.proton.formula().isEmpty());
        EXPECT_EQ(refused.constructMolecule(u"C"_s).monoMass(), 12.0);
        EXPECT_EQ(refused.constructMolecule(u"C"_s).averageMass(),
                  natural.constructMolecule(u"C"_s).averageMass());
    }
}

TEST(IsotopeConfiguration, RefusedFactoryCanStillBeGivenBlocks)
{
    const auto factory = chem::ChemicalFactory::construct(u"nonsense"_s);
    factory->setBuildingBlock(chem::ChemicalFactory::AminoAcidBlock, u"G"_s, u"Glycine"_s,
                              u"C2H3NO"_s);
    EXPECT_EQ(factory->constructLinearPeptideComplex(u"G"_s)->formula().toString(), u"C2H3NO"_s);
}

TEST(IsotopeConfiguration, AbundancesOutsideTheirRangeThrowWhenTheElementIsTouched)
{
    for (const QString& text :
         {u"C13:0"_s, u"C13:1.5"_s, u"C13:-1"_s, u"C13:x"_s, u"C13:"_s, u"C13:nan"_s, u"C13:inf"_s,
          u"C12:1 C13:0"_s, u"E1:0"_s, u"H1:2 H2:-1"_s}) {
        SCOPED_TRACE(text.toStdString());
        try {
            chem::ChemicalFactory::construct(text);
            ADD_FAILURE() << "no exception";
        } catch (const std::invalid_argument& error) {
            EXPECT_STREQ(error.what(), "All isotope probabilities p must fulfill: 0.0 < p <= 1.0");
        }
    }
}

TEST(IsotopeConfiguration, ElementOfNoBuildingBlockThrowsLater)
{
    for (const QString& text : {u"Au197:0"_s, u"Au197:nan"_s, u"Au197:1.5"_s}) {
        SCOPED_TRACE(text.toStdString());
        const auto factory = chem::ChemicalFactory::construct(text);
        EXPECT_EQ(factory->constructLinearPeptideComplex(u"G"_s)->formula().toString(),
                  u"C2H5NO2"_s);
        EXPECT_THROW(factory->constructMolecule(u"Au"_s), std::invalid_argument);
        EXPECT_THROW(factory->constructMolecule(u"Au0.5"_s), std::invalid_argument);
        EXPECT_NO_THROW(factory->constructMolecule(u"Au0"_s)); // no gain, no loss: not touched
        QList<QPointF> envelope;
        EXPECT_THROW(
            factory->generateIsotopeEnvelope(
                chem::Molecule(chem::ChemicalFactory::parseChemicalFormula(u"AuC"_s), 0, 0), 1,
                &envelope, false),
            std::invalid_argument);
    }
}

// The masses of all elements named so far are searched: carbon-14, expected at 14.0052, takes the
// mass of nitrogen-14, which lies within the window and is met first.
TEST(IsotopeConfiguration, MassesOfAllElementsNamedSoFarAreSearched)
{
    expectRows(u"C12:1 N14:1 C14:1"_s, u"C"_s,
               {{6, 0, u"carbon"_s, 12.0, 0.5}, {6, 2, u"carbon"_s, naturalMass(u"N"_s, 0), 0.5}});
    expectRows(u"C12:1 C14:1 N14:1"_s, u"C"_s,
               {{6, 0, u"carbon"_s, 12.0, 0.5}, {6, 2, u"carbon"_s, 2 * 1.0026 + 12.0, 0.5}});
}

// Counted from carbon, nickel-60 is expected at 60.1248 (0.194 off) and nickel-62 at 62.13 (0.202).
TEST(IsotopeConfiguration, KnownIsotopeIsTakenWithinAFifthOfADaltonOnly)
{
    expectRows(u"C12:1 Ni60:1"_s, u"Ni"_s, {{28, 48, u"nickel"_s, naturalMass(u"Ni"_s, 1), 1.0}});
    expectRows(u"C12:1 Ni62:1"_s, u"Ni"_s, {{28, 50, u"nickel"_s, 50 * 1.0026 + 12.0, 1.0}});
}

// Sulfur-32 weighs 31.972: the mass number of the base is its rounded mass, not a truncated one.
TEST(IsotopeConfiguration, MassNumberOfTheBaseIsRounded)
{
    expectRows(u"S34:1"_s, u"S"_s, {{16, 2, u"sulfur"_s, naturalMass(u"S"_s, 2), 1.0}});
}

TEST(IsotopeConfiguration, NameAndNumberComeFromTheFirstRow)
{
    expectRows(u"E0:1"_s, u"E"_s, {{0, 0, u"electron"_s, 0.000548579909065, 1.0}});
    const OpenFactory factory(u"E0:1"_s);
    EXPECT_EQ(factory.electron.averageMass(), factory.electron.monoMass());
    EXPECT_FALSE(factory.isotopesByName.contains(u"Electron"_s));
    EXPECT_FALSE(factory.isotopesByAtomicNumber.contains(-1));
}

TEST(IsotopeConfiguration, EveryEntryGivesARowOfItsOwn)
{
    expectRows(u"C13:25 C13:75"_s, u"C"_s,
               {{6, 1, u"carbon"_s, 13.0033548352, 25 * (1.0 / 100)},
                {6, 1, u"carbon"_s, 13.0033548352, 75 * (1.0 / 100)}});
}

TEST(IsotopeConfiguration, EachElementLeftUnscaledIsReportedOnce)
{
    const MessageRecorder recorder;
    const OpenFactory factory(u"C12:0.5 C13:0.5 N14:99 N15:1 H1:0.5"_s);
    ASSERT_EQ(MessageRecorder::messages().size(), 2); // carbon and hydrogen
    for (const auto& message : MessageRecorder::messages())
        EXPECT_EQ(message.type, QtDebugMsg);
}

TEST(IsotopeConfiguration, EmptyTextGivesNaturalIsotopesWhetherNullOrNot)
{
    const OpenFactory natural;
    const OpenFactory empty(u""_s);
    EXPECT_EQ(empty.isotopesBySymbol, natural.isotopesBySymbol);
    EXPECT_EQ(empty.buildingBlocks.size(), 7);
    EXPECT_EQ(empty.water.monoMass(), natural.water.monoMass());
}

// Its constants are empty, so nothing is added for a charge and no electron is taken off.
TEST(IsotopeConfiguration, RefusedFactoryHasNeitherProtonsNorElectronsForAnEnvelope)
{
    const OpenFactory refused(u"nonsense"_s);
    QList<QPointF> envelope;
    const chem::Molecule result =
        refused.generateIsotopeEnvelope(refused.constructMolecule(u"C1"_s), 2, &envelope, true);
    EXPECT_FALSE(result.formula().elementCountMap().contains(u"H"_s));
    ASSERT_FALSE(envelope.isEmpty());
    EXPECT_EQ(envelope[0].x(), 6.0);
}

// No isotope of carbon is near the mass of carbon-40, so each entry looks at all known masses.
TEST(IsotopeConfiguration, LongTextsAreReadInLinearTime)
{
    constexpr int entries = 100000;
    const OpenFactory factory(u"C12:1 "_s + u"C40:1 "_s.repeated(entries).trimmed());
    EXPECT_EQ(factory.isotopesBySymbol.value(u"C"_s).size(), entries + 1);
    EXPECT_EQ(factory.isotopes.last().mass, 28 * 1.0026 + 12.0);
    EXPECT_EQ(factory.isotopes.last().abundance, 1.0 / (entries + 1));
}

RC_GTEST_PROP(IsotopeConfigurationLaws, CarbonThirteenAddsOneNeutronForEachCarbon, ())
{
    static const OpenFactory labelled(u"C13:1"_s);
    const QString formula = anyFormulaText();
    const chem::Molecule natural = molecule(formula);
    const chem::Molecule heavy = labelled.constructMolecule(formula);
    const int carbons = natural.formula().elementCount(u"C"_s);
    RC_ASSERT(
        isNear(heavy.monoMass() - natural.monoMass(), carbons * (13.0033548352 - 12.0), 1e-9));
    RC_ASSERT(heavy.formula().elementCountMap() == natural.formula().elementCountMap());
}

} // namespace
