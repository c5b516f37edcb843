#include "NucleotideTable.h"

#include "Backbone.h"
#include "RandomTexts.h"
#include "RefusedTexts.h"
#include "TestSeed.h"
#include <zel_chemical_model/ChemicalFactory.h>
#include <zel_chemical_model/LinearComplex.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using chem::ChemicalFactory;

/// A text as the factory parses it and weighs it by a complex, or nothing.
class ByFactory
{
public:
    explicit ByFactory(const ChemicalFactory& factory)
        : m_factory(factory)
    {
    }

    bool isText(const QString& text) const { return read(text).has_value(); }

    std::optional<Masses> masses(const QString& text) const
    {
        const auto parts = read(text);
        if (!parts)
            return {};
        const auto complex = m_factory.constructLinearOligoComplex(
            parts->nucleotides, parts->fivePrime, parts->threePrime);
        return Masses{complex->monoMass(), complex->averageMass()};
    }

    /// Behind the longest beginning that some text goes on from, tried with all short endings.
    qsizetype refusedPosition(const QString& text) const
    {
        static const QStringList endings = allTexts(u"A5.*}"_s, 2);
        for (qsizetype size = 1; size <= text.size(); ++size) {
            const bool canGoOn =
                std::any_of(endings.begin(), endings.end(), [&](const QString& ending) {
                    return isText(text.first(size) + ending);
                });
            if (!canGoOn)
                return size - 1;
        }
        return text.size();
    }

private:
    struct Parts
    {
        QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
        chem::NamedMolecule fivePrime;
        chem::NamedMolecule threePrime;
    };

    std::optional<Parts> read(const QString& text) const
    {
        Parts parts;
        if (!m_factory.parseNucleotideSequence(text, &parts.nucleotides, &parts.fivePrime,
                                               &parts.threePrime))
            return {};
        return parts;
    }

    const ChemicalFactory& m_factory;
};

void expectMasses(const Masses& masses, const Masses& expected)
{
    EXPECT_NEAR(masses.monoisotopic, expected.monoisotopic, 1e-9);
    EXPECT_NEAR(masses.average, expected.average, 1e-9);
}

/// Compares table and factory; gives whether the text is one.
bool expectSameReading(const QString& text, const NucleotideTable& nucleotides,
                       const ByFactory& factory)
{
    SCOPED_TRACE(text.toStdString());
    const std::optional<Masses> expected = factory.masses(text);
    const Parsed<Masses> masses = nucleotides.oligonucleotide(text);
    EXPECT_EQ(masses.hasValue(), expected.has_value());
    if (masses && expected)
        expectMasses(*masses, *expected);
    return expected.has_value();
}

const QString everyCharacter = u"[{+defmrACGQTU*.]}0123456789-"_s;

TEST(NucleotideTable, TextsWeighWhatTheFirstLibrarySays)
{
    const NucleotideTable nucleotides;
    const auto factory = chem::defaultChemicalFactory();
    for (const QString& text :
         {u"A"_s, u"ACGT"_s, u"rA*rC*rG"_s, u"{ACG}"_s, u"[AC]"_s, u"AC*"_s, u"AC."_s, u"A**C"_s,
          u"eT*eQ*eA"_s, u"+A+C"_s, u"d5A"_s, u"300"_s, u"A300"_s, u"{300]"_s, u"A+1.5C"_s}) {
        const auto complex = factory->constructLinearOligoComplex(text);
        SCOPED_TRACE(text.toStdString());
        expectMasses(nucleotides.oligonucleotide(text).value(),
                     {complex->monoMass(), complex->averageMass()});
    }
}

/// Every text of up to four characters, one of each role, and what has none.
TEST(NucleotideTable, ReadsAndRefusesAllShortTextsAsTheFactoryDoes)
{
    const auto factory = chem::defaultChemicalFactory();
    const NucleotideTable nucleotides;
    int read = 0;
    int refused = 0;
    for (const QString& text : allTexts(u"{d+A5.-*}X\n"_s, 4))
        ++(expectSameReading(text, nucleotides, ByFactory(*factory)) ? read : refused);
    EXPECT_GT(read, 500);
    EXPECT_GT(refused, 10000);
}

TEST(NucleotideTable, RefusesAtTheFirstCharacterThatNoTextGoesOnWith)
{
    const auto factory = chem::defaultChemicalFactory();
    const NucleotideTable nucleotides;
    const ByFactory slow(*factory);
    int refused = 0;
    for (const QString& text : allTexts(u"{dA5.-*}X"_s, 3)) {
        const Parsed<Masses> masses = nucleotides.oligonucleotide(text);
        if (masses)
            continue;
        ASSERT_EQ(masses.error().position, slow.refusedPosition(text)) << text.toStdString();
        ++refused;
    }
    EXPECT_GT(refused, 500);
    expectRefused([&](const QString& text) { return nucleotides.oligonucleotide(text); },
                  std::vector<RefusedText>{{u""_s, 0, u"nucleotide"_s},
                                           {u"rA*rX"_s, 4, u"nucleotide"_s},
                                           {u"AC GT"_s, 2, u"nucleotide"_s},
                                           {u"ACd"_s, 3, u"nucleotide"_s},
                                           {u"AC}A"_s, 3, u"nucleotide"_s},
                                           {u"A5.x"_s, 3, u"nucleotide"_s},
                                           {u"A\u0410"_s, 1, u"nucleotide"_s}});
}

/// Valid texts with a character put in, taken out or changed.
TEST(NucleotideTable, ReadsRandomTextsAsTheFactoryDoes)
{
    const auto factory = chem::defaultChemicalFactory();
    const NucleotideTable nucleotides;
    std::mt19937 random(testSeed(20261125));
    int read = 0;
    int refused = 0;
    for (int i = 0; i < 3000; ++i) {
        QString text = i % 3 == 0 ? u"{"_s : QString();
        const int units = 1 + int(random() % 40);
        for (int unit = 0; unit < units; ++unit) {
            text += randomText(random, u"+defmr"_s, 1);
            text += u"ACGQTU"[random() % 6];
            text += randomText(random, u"*."_s, 1);
        }
        if (i % 2 == 1) {
            const auto at = qsizetype(random() % std::size_t(text.size()));
            text.replace(at, qsizetype(random() % 2), randomText(random, everyCharacter, 2));
        }
        ++(expectSameReading(text, nucleotides, ByFactory(*factory)) ? read : refused);
    }
    EXPECT_GT(read, 1500);
    EXPECT_GT(refused, 100);
}

/// Dictionaries whose characters mean several things, or more than themselves.
TEST(NucleotideTable, ReadsWhatCallersAddAsTheFactoryDoes)
{
    using Block = ChemicalFactory::BuildingBlockType;
    const std::vector<std::pair<Block, QString>> additions = {
        {ChemicalFactory::NucleobaseBlock, u"Z"_s}, // plain
        {ChemicalFactory::NucleobaseBlock, u"d"_s},
        {ChemicalFactory::PhosphateBlock, u"A"_s},
        {ChemicalFactory::RiboseBlock, u"xy"_s},
        {ChemicalFactory::RiboseBlock, u"5"_s},
        {ChemicalFactory::PhosphateBlock, u"^"_s},
        {ChemicalFactory::ThreePrimeTerminalBlock, u"*"_s},
        {ChemicalFactory::FivePrimeTerminalBlock, u"r"_s},
        {ChemicalFactory::NucleobaseBlock, u"\u0410"_s},
    };
    for (const auto& [type, key] : additions) {
        const auto factory = ChemicalFactory::construct(QString());
        factory->setBuildingBlock(type, key, u"added"_s, u"C2H3NO"_s);
        const NucleotideTable nucleotides(*factory);
        SCOPED_TRACE(key.toStdString());
        std::mt19937 random(testSeed(20261126));
        int read = 0;
        for (int i = 0; i < 1000; ++i) {
            const QString text = randomText(random, u"{drAC*}5"_s + key, 5);
            read += expectSameReading(text, nucleotides, ByFactory(*factory)) ? 1 : 0;
        }
        EXPECT_GT(read, 50);
    }
}

TEST(NucleotideTable, LabelledFactoriesGiveLabelledMasses)
{
    const auto labelled = ChemicalFactory::construct(u"N15:99 N14:1"_s);
    const NucleotideTable nucleotides(*labelled);
    EXPECT_TRUE(expectSameReading(u"{rA*rC*GT}"_s, nucleotides, ByFactory(*labelled)));
    EXPECT_GT(nucleotides.oligonucleotide(u"A")->monoisotopic,
              NucleotideTable().oligonucleotide(u"A")->monoisotopic + 4.9);
}

/// What the table lays out letter by letter, against the parts that the factory makes.
TEST(NucleotideTable, BackbonesHaveThePartsOfTheFactorysNucleotides)
{
    const auto factory = chem::defaultChemicalFactory();
    const NucleotideTable nucleotides;
    Backbone backbone;
    std::mt19937 random(testSeed(20261127));
    int compared = 0;
    for (int i = 0; i < 3000; ++i) {
        const QString text = randomText(random, u"{+rACGU*.}"_s, 12);
        QList<QSharedPointer<const chem::Nucleotide>> parts;
        chem::NamedMolecule fivePrime;
        chem::NamedMolecule threePrime;
        const bool isText = factory->parseNucleotideSequence(text, &parts, &fivePrime, &threePrime);
        ASSERT_EQ(!backbone.assignOligonucleotide(text, nucleotides), isText);
        if (!isText) {
            ASSERT_TRUE(backbone.chains().empty());
            continue;
        }
        const BackboneChain& chain = backbone.chains()[0];
        ASSERT_EQ(std::ssize(chain.units), parts.size()) << text.toStdString();
        for (std::size_t unit = 0; unit < chain.units.size(); ++unit) {
            const chem::Nucleotide& part = *parts[qsizetype(unit)];
            ASSERT_NEAR(chain.bases[unit].monoisotopic, part.nucleobase.monoMass(), 1e-9);
            ASSERT_NEAR(chain.linkages[unit].average, part.phosphate.averageMass(), 1e-9);
            ASSERT_NEAR(chain.units[unit].average + chain.linkages[unit].average,
                        part.averageMass(), 1e-9);
            ASSERT_EQ(chain.letters[qsizetype(unit)], part.nucleobase.code.front());
        }
        expectMasses(backbone.masses(), nucleotides.oligonucleotide(text).value());
        ++compared;
    }
    EXPECT_GT(compared, 100);
}

/// Against sums in a wider type: each further nucleotide weighs the same.
TEST(NucleotideTable, LongStrandsAreSummedAsWellAsShortOnes)
{
    const NucleotideTable nucleotides;
    const Backbone two = Backbone::oligonucleotide(u"rGrG", nucleotides).value();
    const BackboneChain& chain = two.chains()[0];
    const long double one =
        static_cast<long double>(chain.units[0].monoisotopic) + chain.linkages[0].monoisotopic;
    const QString text = u"rG"_s.repeated(10000);
    const double mass = nucleotides.oligonucleotide(text)->monoisotopic;
    const long double expected = two.masses().monoisotopic + 9998 * one;
    EXPECT_LT(std::abs(double(mass - expected)), 2e-9);
    EXPECT_NEAR(Backbone::oligonucleotide(text, nucleotides)->masses().monoisotopic, mass, 2e-9);
}

} // namespace

} // namespace ions
