#include "FragmentIons.h"
#include "IonLists.h"
#include "NucleotideTable.h"
#include "RandomTexts.h"
#include "TestSeed.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

// What is worked out once for many backbones, and the runs of equal length that are written
// together.

namespace ions {

namespace {

IonOptions optionsOf(const std::vector<Series>& series, const QStringList& losses)
{
    IonOptions options;
    options.series = series;
    options.charges = {1, 0, 3, -2};
    options.hydrogens = {0, 1, -1};
    options.maxLosses = 2;
    for (const QString& loss : losses)
        options.losses.push_back(LossRule::read(loss, residues().atoms()).value());
    return options;
}

/// An ion by all that tells it from others.
struct Ion
{
    IonRun run; // with the number of the ion, and how many it counts left open
    QString loss;
    double mz = 0.0;
};

std::vector<Ion> listed(const FragmentIons& ions)
{
    std::vector<Ion> list;
    for (const IonRun& run : ions.runs()) {
        for (quint32 i = 0; i < run.count; ++i) {
            Ion ion{run, ions.losses()[run.loss], ions.mz()[list.size()]};
            ion.run.firstNumber += i;
            list.push_back(ion);
        }
    }
    EXPECT_EQ(list.size(), ions.mz().size());
    return list;
}

void expectSameIons(const FragmentIons& ions, const FragmentIons& expected)
{
    const std::vector<Ion> left = listed(ions);
    const std::vector<Ion> right = listed(expected);
    ASSERT_EQ(left.size(), right.size());
    for (std::size_t i = 0; i < left.size(); ++i) {
        ASSERT_EQ(left[i].run.series, right[i].run.series);
        ASSERT_EQ(left[i].run.charge, right[i].run.charge);
        ASSERT_EQ(left[i].run.hydrogens, right[i].run.hydrogens);
        ASSERT_EQ(left[i].run.firstNumber, right[i].run.firstNumber);
        ASSERT_EQ(left[i].loss, right[i].loss);
        ASSERT_NEAR(left[i].mz, right[i].mz, 1e-9);
    }
}

/// Beside a chain of one unit, which gives no ions of its ends, all goes by the way of molecules
/// with links and open groups.
Backbone byTheLongWay(const Backbone& backbone)
{
    const BackboneChain partner = Backbone::peptide(u"G", residues())->chains()[0];
    return Backbone::ofChains({backbone.chains()[0], partner}, {}, backbone.breaks()).value();
}

void expectSameAsByTheLongWay(const Backbone& backbone, const IonOptions& options,
                              FragmentIons* ions)
{
    FragmentIons slow;
    ASSERT_FALSE(ions->assign(backbone, options).has_value());
    ASSERT_FALSE(slow.assign(byTheLongWay(backbone), options).has_value());
    expectSameIons(*ions, slow);
}

TEST(IonPlan, PeptidesOfAnyLengthGiveWhatTheLongWayGives)
{
    std::mt19937 random(testSeed(20261128));
    FragmentIons ions;
    for (const QStringList& losses : {QStringList{},
                                      {u"H2O"_s, u"NH3"_s},
                                      {u"H2O@STED"_s, u"NH3@RKNQ"_s},
                                      {u"CO"_s, u"H2O@G"_s}}) {
        const IonOptions options = optionsOf(peptideSeries, losses);
        for (int size = 1; size <= 24; ++size) {
            QString text(size, u'G');
            for (QChar& letter : text)
                letter = u"ACDEFGHIKLMNPQRSTVWY"[random() % 20];
            SCOPED_TRACE(text.toStdString());
            expectSameAsByTheLongWay(Backbone::peptide(text, residues()).value(), options, &ions);
            if (size > 1) {
                EXPECT_FALSE(ions.mz().empty());
            }
        }
    }
}

TEST(IonPlan, OligonucleotidesOfAnyLengthGiveWhatTheLongWayGives)
{
    const NucleotideTable nucleotides;
    std::mt19937 random(testSeed(20261129));
    FragmentIons ions;
    for (const QStringList& losses : {QStringList{}, {u"H2O"_s}, {u"H2O@G"_s}}) {
        const IonOptions options = optionsOf(oligoSeries, losses);
        for (int size = 1; size <= 24; ++size) {
            QString text = u"{"_s;
            for (int unit = 0; unit < size; ++unit) {
                text += randomText(random, u"re"_s, 1);
                text += u"ACGU"[random() % 4];
                text += randomText(random, u"*."_s, 2);
            }
            SCOPED_TRACE(text.toStdString());
            expectSameAsByTheLongWay(Backbone::oligonucleotide(text, nucleotides).value(), options,
                                     &ions);
        }
    }
}

BackboneChain withGroup(const QString& sequence, const QString& loss)
{
    BackboneChain chain = Backbone::peptide(sequence, residues())->chains()[0];
    const NeutralLoss lost = LossRule::read(loss, residues().atoms())->loss;
    chain.groups.push_back({2, {lost.masses, {lost}}});
    return chain;
}

/// One list for all, against one of its own for each.
TEST(IonPlan, AListThatIsUsedAgainKeepsNothingOfOtherBackbonesAndOptions)
{
    const BreakMasses breaks = residues().breaks();
    const auto labelled = chem::ChemicalFactory::construct(u"C13:100"_s);
    const std::vector<Backbone> backbones = {
        Backbone::peptide(u"PEPTIDE", residues()).value(),
        Backbone::peptide(u"GG", residues()).value(),
        Backbone::ofChains({withGroup(u"GGSGG"_s, u"H3PO4"_s)}, {}, breaks).value(),
        Backbone::ofChains({withGroup(u"GGSGG"_s, u"HPO3"_s)}, {}, breaks).value(),
        Backbone::ofChains(
            {withGroup(u"GG"_s + u"SGG"_s, u"HPO3"_s), withGroup(u"AAA"_s, u"H3PO4"_s)},
            {{0, 0, 1, 0, {}}}, breaks)
            .value(),
        Backbone::peptide(u"PEPTIDE", ResidueTable(*labelled)).value(),
        Backbone::oligonucleotide(u"rAC*GT", NucleotideTable()).value(),
        Backbone(),
    };
    std::vector<IonOptions> options = {
        IonOptions(), optionsOf(peptideSeries, {}), optionsOf(oligoSeries, {u"H2O"_s}),
        optionsOf(peptideSeries, {u"H2O@E"_s}), optionsOf(peptideSeries, {u"NH3@E"_s})};
    options.push_back(options.back());
    options.back().hasGroupLosses = false;
    options.push_back(options.back());
    options.back().maxLosses = 1;
    options.push_back(options.back());
    options.back().series.push_back(Series::Precursor);
    FragmentIons ions;
    std::mt19937 random(testSeed(20261130));
    for (int i = 0; i < 2000; ++i) {
        const Backbone& backbone = backbones[random() % backbones.size()];
        const IonOptions& wanted = options[random() % options.size()];
        FragmentIons fresh;
        ASSERT_FALSE(ions.assign(backbone, wanted).has_value());
        ASSERT_FALSE(fresh.assign(backbone, wanted).has_value());
        expectSameIons(ions, fresh);
        ASSERT_EQ(ions.runs().size(), fresh.runs().size());
    }
}

TEST(IonPlan, AListIsRightAgainBehindARefusal)
{
    const Backbone peptide = Backbone::peptide(u"PEPTIDE", residues()).value();
    IonOptions tooLarge;
    tooLarge.charges = {1, 10001};
    FragmentIons ions;
    ASSERT_FALSE(ions.assign(peptide, IonOptions()).has_value());
    EXPECT_TRUE(ions.assign(peptide, tooLarge).has_value());
    EXPECT_TRUE(ions.mz().empty());
    EXPECT_TRUE(ions.runs().empty());
    ASSERT_FALSE(ions.assign(peptide, IonOptions()).has_value());
    EXPECT_EQ(ions.mz().size(), 12U);
    EXPECT_EQ(ions.runs().size(), 2U);
}

} // namespace

} // namespace ions
