#include "FragmentIons.h"

#include "IonLists.h"
#include "TestPrinters.h"
#include <zel_chemical_model/ChemicalFactory.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <numeric>
#include <set>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

constexpr double proton = 1.00727646688;

Backbone peptide(const QString& sequence)
{
    return Backbone::peptide(sequence, residues()).value();
}

void expectFragmentsOfTheFirstLibrary(const Backbone& backbone,
                                      const chem::MoleculeComplex& complex,
                                      const std::vector<Series>& wanted)
{
    const FragmentIons ions = ionsOf(backbone, series(wanted));
    const qsizetype size = std::ssize(backbone.chains()[0].units);
    ASSERT_EQ(qsizetype(ions.mz().size()), std::ssize(wanted) * (size - 1));
    const auto fragments = fragmentsOf(complex, ions);
    for (const auto& [ion, fragment] : fragments) {
        ASSERT_NEAR(ions.mz()[std::size_t(ion)], fragment.monoMass() + proton, 1e-7)
            << ions.label(backbone, ion).toStdString();
    }
    ASSERT_GE(std::ssize(fragments), (std::ssize(wanted) - 1) * (size - 1));
}

TEST(FragmentIons, PeptideSeriesAreThoseOfTheFirstLibrary)
{
    const auto factory = chem::defaultChemicalFactory();
    for (const QString& sequence : {u"DRVYIHPF"_s, u"GG"_s, u"ACDEFGHIKLMNPQRSTVWY"_s}) {
        expectFragmentsOfTheFirstLibrary(
            peptide(sequence), *factory->constructLinearPeptideComplex(sequence), peptideSeries);
    }
}

TEST(FragmentIons, OligonucleotideSeriesAreThoseOfTheFirstLibrary)
{
    const auto factory = chem::defaultChemicalFactory();
    for (const QString& text :
         {u"ACGT"_s, u"rArCrGrU"_s, u"{A*C.G*T}"_s, u"eT*eQ*dAdG"_s, u"AC*"_s, u"mA+CfG"_s}) {
        SCOPED_TRACE(text.toStdString());
        expectFragmentsOfTheFirstLibrary(Backbone::oligonucleotide(text, *factory).value(),
                                         *factory->constructLinearOligoComplex(text), oligoSeries);
    }
}

/// Shifts at 1+ from the residues, as tables of fragment ions print them.
TEST(FragmentIons, SeriesOfAPeptideHaveTheirPublishedShifts)
{
    const std::vector<std::pair<Series, double>> shifts = {
        {Series::A, -26.987639},  {Series::B, 1.007276},  {Series::C, 18.033825},
        {Series::X, 44.997105},   {Series::Y, 19.017841}, {Series::Z, 1.991292},
        {Series::ZDot, 2.999117},
    };
    for (const auto& [wanted, shift] : shifts) {
        const FragmentIons ions = ionsOf(peptide(u"GG"_s), series({wanted}));
        ASSERT_EQ(ions.mz().size(), 1U);
        EXPECT_NEAR(ions.mz()[0], 57.021464 + shift, 2e-6) << int(wanted);
    }
}

TEST(FragmentIons, ComeInTheOrderOfTheOptionsWithNumbersThatFollow)
{
    IonOptions options = series({Series::Y, Series::B});
    options.charges = {2, 1};
    const FragmentIons ions = ionsOf(peptide(u"PEPTIDE"_s), options);
    ASSERT_EQ(ions.runs().size(), 4U);
    EXPECT_EQ(ions.runs()[0].series, Series::Y);
    EXPECT_EQ(ions.runs()[0].charge, 2);
    EXPECT_EQ(ions.runs()[1].charge, 1);
    EXPECT_EQ(ions.runs()[2].series, Series::B);
    for (const IonRun& run : ions.runs()) {
        EXPECT_EQ(run.firstNumber, 1U);
        EXPECT_EQ(run.count, 6U);
    }
    EXPECT_EQ(ions.label(peptide(u"PEPTIDE"_s), 0), u"y1^2"_s);
    EXPECT_EQ(ions.label(peptide(u"PEPTIDE"_s), 11), u"y6"_s);
    EXPECT_EQ(ions.label(peptide(u"PEPTIDE"_s), 23), u"b6"_s);
    EXPECT_EQ(ions.label(peptide(u"PEPTIDE"_s), 24), u""_s);
}

TEST(FragmentIons, RunsCanBeWalkedByAlgorithms)
{
    IonOptions options = series({Series::B, Series::Y});
    for (const bool hasLosses : {false, true}) {
        if (hasLosses)
            options.losses = {LossRule::read(u"H2O@T", residues().atoms()).value()};
        const FragmentIons ions = ionsOf(peptide(u"PEPTIDE"_s), options);
        const IonRuns runs = ions.runs();
        const auto sum =
            std::accumulate(runs.begin(), runs.end(), 0U,
                            [](quint32 s, const IonRun& run) { return s + run.count; });
        EXPECT_EQ(sum, ions.mz().size());
        const auto isOfY = [](const IonRun& run) {
            return run.series == Series::Y;
        };
        EXPECT_EQ((*std::find_if(runs.begin(), runs.end(), isOfY)).firstNumber, 1U);
        EXPECT_EQ(std::ssize(runs), std::distance(runs.begin(), runs.end()));
        auto next = runs.begin();
        EXPECT_EQ((*next++).series, Series::B);
        EXPECT_TRUE(next != runs.begin());
    }
}

/// PEPTIDE's b and y ions as textbooks and calculators print them.
TEST(FragmentIons, PeptideHasItsKnownIons)
{
    const std::vector<double> b = {98.0600, 227.1026, 324.1554, 425.2031, 538.2871, 653.3141};
    const std::vector<double> y = {148.0604, 263.0874, 376.1714, 477.2191, 574.2719, 703.3145};
    const FragmentIons ions = ionsOf(peptide(u"PEPTIDE"_s), IonOptions());
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_NEAR(ions.mz()[i], b[i], 1e-4);
        EXPECT_NEAR(ions.mz()[i + 6], y[i], 1e-4);
    }
}

RC_GTEST_PROP(FragmentIons, AnIonAndItsComplementMakeThePrecursor, ())
{
    const auto letters =
        *rc::gen::container<std::string>(*rc::gen::inRange<std::size_t>(2, 40),
                                         rc::gen::elementOf(std::string("ACDEFGHIKLMNPQRSTVWY")));
    const Backbone backbone = peptide(QString::fromStdString(letters));
    const std::size_t cuts = letters.size() - 1;
    const FragmentIons ions = ionsOf(backbone, IonOptions());
    const double sum = backbone.masses().monoisotopic + 2 * proton;
    for (std::size_t k = 1; k <= cuts; ++k)
        RC_ASSERT(std::abs(ions.mz()[k - 1] + ions.mz()[2 * cuts - k] - sum) < 1e-6);
}

TEST(FragmentIons, ChargesOfEitherSignTakeAndAddProtons)
{
    IonOptions options;
    options.charges = {1, 2, 3, -1, -2, 0};
    const Backbone backbone = peptide(u"PEPTIDE"_s);
    const auto ions = byLabel(ionsOf(backbone, options), backbone);
    const double b3 = ions.at(u"b3"_s)[0] - proton;
    EXPECT_NEAR(ions.at(u"b3^2"_s)[0], (b3 + 2 * proton) / 2, 1e-7);
    EXPECT_NEAR(ions.at(u"b3^3"_s)[0], (b3 + 3 * proton) / 3, 1e-7);
    EXPECT_NEAR(ions.at(u"b3^-1"_s)[0], b3 - proton, 1e-7);
    EXPECT_NEAR(ions.at(u"b3^-2"_s)[0], (b3 - 2 * proton) / 2, 1e-7);
    EXPECT_EQ(ions.size(), 5U * 12U);
}

TEST(FragmentIons, ChargesThatNoIonHasAreRefused)
{
    FragmentIons ions = ionsOf(peptide(u"PEPTIDE"_s), IonOptions());
    IonOptions options;
    options.charges = {1, 10001};
    EXPECT_TRUE(ions.assign(peptide(u"PEPTIDE"_s), options).has_value());
    EXPECT_TRUE(ions.mz().empty());
    EXPECT_TRUE(ions.runs().empty());
}

TEST(FragmentIons, ShiftsThatARunCannotTellAreRefused)
{
    for (const int hydrogens : {128, -128, 1 << 20}) {
        FragmentIons ions = ionsOf(peptide(u"PEPTIDE"_s), IonOptions());
        IonOptions options;
        options.hydrogens = {0, hydrogens};
        EXPECT_TRUE(ions.assign(peptide(u"PEPTIDE"_s), options).has_value());
        EXPECT_TRUE(ions.mz().empty());
    }
}

TEST(FragmentIons, LossesGoToEveryIonOrToThoseThatHoldAResidue)
{
    IonOptions options = series({Series::B, Series::Y});
    options.losses = {LossRule::read(u"NH3", residues().atoms()).value(),
                      LossRule::read(u"H2O@STED", residues().atoms()).value()};
    const Backbone backbone = peptide(u"GGSGG"_s);
    const auto ions = byLabel(ionsOf(backbone, options), backbone);
    EXPECT_NEAR(ions.at(u"b1"_s)[0] - ions.at(u"b1-NH3"_s)[0], 17.026549, 1e-6);
    EXPECT_FALSE(ions.contains(u"b2-H2O"_s));
    EXPECT_NEAR(ions.at(u"b3"_s)[0] - ions.at(u"b3-H2O"_s)[0], 18.010565, 1e-6);
    EXPECT_FALSE(ions.contains(u"y2-H2O"_s));
    EXPECT_TRUE(ions.contains(u"y3-H2O"_s));
    EXPECT_FALSE(ions.contains(u"b3-NH3-H2O"_s));
    EXPECT_EQ(ions.size(), 8U + 8U + 4U);
}

TEST(FragmentIons, SeveralLossesNeedSeveralResidues)
{
    IonOptions options = series({Series::B});
    options.losses = {LossRule::read(u"H2O@ST", residues().atoms()).value(),
                      LossRule::read(u"NH3", residues().atoms()).value()};
    options.maxLosses = 2;
    const Backbone backbone = peptide(u"GSTG"_s);
    const auto ions = byLabel(ionsOf(backbone, options), backbone);
    EXPECT_FALSE(ions.contains(u"b2-H2O-H2O"_s));
    EXPECT_NEAR(ions.at(u"b3"_s)[0] - ions.at(u"b3-H2O-H2O"_s)[0], 2 * 18.010565, 2e-6);
    EXPECT_TRUE(ions.contains(u"b2-H2O-NH3"_s));
    EXPECT_TRUE(ions.contains(u"b1-NH3-NH3"_s));
    EXPECT_FALSE(ions.contains(u"b1-NH3-H2O"_s));
}

TEST(FragmentIons, ALossOfARuleAndOfAGroupIsOne)
{
    const LossRule rule = LossRule::read(u"H3PO4", residues().atoms()).value();
    const LossRule ofSerine = LossRule::read(u"H3PO4@S", residues().atoms()).value();
    BackboneChain chain = peptide(u"GSTG"_s).chains()[0];
    chain.groups = {{1, {{80.0, 80.0}, {{u"H3O4P"_s, rule.loss.masses}}}},
                    {2, {{80.0, 80.0}, {{u"H3O4P"_s, rule.loss.masses}}}}};
    const Backbone backbone = Backbone::ofChains({chain}, {}, residues().breaks()).value();
    IonOptions options = series({Series::B});
    options.maxLosses = 2;
    options.losses = {rule};
    EXPECT_EQ(ionsOf(backbone, options).losses().size(), 3U); // none, one and two
    EXPECT_EQ(ionsOf(backbone, options).mz().size(), 9U);
    options.losses = {ofSerine};
    const auto ions = byLabel(ionsOf(backbone, options), backbone);
    EXPECT_FALSE(ions.contains(u"b1-H3PO4"_s));
    EXPECT_FALSE(ions.contains(u"b2-H3PO4-H3PO4"_s)); // the serine bears one
    EXPECT_TRUE(ions.contains(u"b3-H3PO4-H3PO4"_s));
    EXPECT_EQ(ions.size(), 3U + 2U + 1U);
}

TEST(FragmentIons, LossesOfALabelledMoleculeAreLabelled)
{
    const AtomMasses& atoms = residues().atoms();
    const std::vector<Atom> isotopes = {{1, 2}, {8, 18}};
    const LossRule heavy = LossRule::read(u"H2O@S", atoms, isotopes).value();
    EXPECT_EQ(heavy.loss.name, u"H2O"_s);
    EXPECT_EQ(heavy.loss.masses, LossRule::read(u"D2[18O]", atoms)->loss.masses);
    EXPECT_EQ(LossRule::read(u"NH3", atoms, std::vector<Atom>{{8, 18}})->loss.masses,
              LossRule::read(u"NH3", atoms)->loss.masses);
}

TEST(FragmentIons, LossRulesAreReadStrictly)
{
    const AtomMasses& atoms = residues().atoms();
    EXPECT_EQ(LossRule::read(u"H2O@STED", atoms)->residues, u"STED"_s);
    EXPECT_EQ(LossRule::read(u"H2O@", atoms).error().position, 4);
    EXPECT_EQ(LossRule::read(u"H2O@Se", atoms).error().position, 5);
    EXPECT_EQ(LossRule::read(u"h2o", atoms).error().position, 0);
    EXPECT_EQ(LossRule::read(u"Og", atoms).error().position, 0);
}

TEST(FragmentIons, HydrogenShiftsStandInLabels)
{
    IonOptions options = series({Series::Z, Series::ZDot});
    options.hydrogens = {0, -1, 2};
    const Backbone backbone = peptide(u"GG"_s);
    const auto ions = byLabel(ionsOf(backbone, options), backbone);
    EXPECT_EQ(ions.at(u"z1"_s).size(), 2U); // z and z. with a hydrogen less
    EXPECT_NEAR(ions.at(u"z1+H"_s)[0] - ions.at(u"z1"_s)[0], 1.00782503, 1e-6);
    EXPECT_TRUE(ions.contains(u"z1-H"_s));
    EXPECT_TRUE(ions.contains(u"z1+2H"_s));
    EXPECT_TRUE(ions.contains(u"z1+3H"_s));
}

/// Immonium ions as tables print them.
TEST(FragmentIons, ImmoniumIonsAreResiduesLessCarbonMonoxide)
{
    const Backbone backbone = peptide(u"HFWYPK"_s);
    const auto ions = byLabel(ionsOf(backbone, series({Series::Immonium})), backbone);
    EXPECT_NEAR(ions.at(u"IH"_s)[0], 110.0713, 1e-4);
    EXPECT_NEAR(ions.at(u"IF"_s)[0], 120.0808, 1e-4);
    EXPECT_NEAR(ions.at(u"IW"_s)[0], 159.0917, 1e-4);
    EXPECT_NEAR(ions.at(u"IY"_s)[0], 136.0757, 1e-4);
    EXPECT_NEAR(ions.at(u"IP"_s)[0], 70.0651, 1e-4);
}

TEST(FragmentIons, InternalIonsAreEveryPieceOfTwoOrMoreFromTheMiddle)
{
    const Backbone backbone = peptide(u"PEPTIDE"_s);
    const auto ions = byLabel(ionsOf(backbone, series({Series::Internal})), backbone);
    EXPECT_EQ(ions.size(), 10U); // of five residues in the middle
    EXPECT_NEAR(ions.at(u"m2:3"_s)[0], 129.042593 + 97.052764 + proton, 1e-5);
    EXPECT_TRUE(ions.contains(u"m5:6"_s));
    EXPECT_TRUE(ions.contains(u"m2:6"_s));
    EXPECT_FALSE(ions.contains(u"m1:3"_s));
    EXPECT_FALSE(ions.contains(u"m3:7"_s));
}

TEST(FragmentIons, EndGroupsGoWithTheirEnd)
{
    BackboneChain chain = peptide(u"GGG"_s).chains()[0];
    chain.leftGroup = {42.010565, 42.0};
    chain.rightGroup = {-0.984016, -1.0};
    const Backbone backbone = Backbone::ofChains({chain}, {}, residues().breaks()).value();
    const FragmentIons ions = ionsOf(backbone, IonOptions());
    const FragmentIons plain = ionsOf(peptide(u"GGG"_s), IonOptions());
    EXPECT_NEAR(ions.mz()[0] - plain.mz()[0], 42.010565, 1e-9);
    EXPECT_NEAR(ions.mz()[2] - plain.mz()[2], -0.984016, 1e-9);
}

TEST(FragmentIons, PiecesWithoutEndsHaveIonsWithoutThem)
{
    constexpr double glycine = 57.021464;
    BackboneChain chain = peptide(u"GGG"_s).chains()[0];
    chain.hasLeftEnd = chain.hasRightEnd = false;
    const Backbone backbone = Backbone::ofChains({chain}, {}, residues().breaks()).value();
    const FragmentIons ions = ionsOf(backbone, IonOptions());
    ASSERT_EQ(ions.mz().size(), 4U);
    EXPECT_NEAR(ions.mz()[0], glycine - 1.007825 + proton, 1e-6);              // b1 less H
    EXPECT_NEAR(ions.mz()[2], glycine + 18.010565 - 17.002740 + proton, 1e-6); // y1 less OH
    EXPECT_NEAR(ions.mz()[0] + ions.mz()[3], 3 * glycine + 2 * proton, 1e-6);  // b1 and y2
    EXPECT_NEAR(backbone.masses().monoisotopic, 3 * glycine, 1e-6);
}

TEST(FragmentIons, LabileGroupsAreInThePrecursorOnly)
{
    BackboneChain chain = peptide(u"GSG"_s).chains()[0];
    chain.labile.push_back({{203.079373, 203.2}, {}});
    const Backbone backbone = Backbone::ofChains({chain}, {}, residues().breaks()).value();
    const FragmentIons ions = ionsOf(backbone, series({Series::Precursor, Series::B}));
    const double bare = residues().peptide(u"GSG")->monoisotopic + proton;
    ASSERT_EQ(ions.mz().size(), 4U);
    EXPECT_NEAR(ions.mz()[0], bare + 203.079373, 1e-6);
    EXPECT_NEAR(ions.mz()[1], bare, 1e-6);
    EXPECT_EQ(ions.runs()[1].variant, 1);
    EXPECT_EQ(ions.label(backbone, 0), u"p"_s);
    EXPECT_NEAR(ions.mz()[2], 57.021464 + proton, 1e-6);
}

TEST(FragmentIons, LossesOfAGroupNeedTheGroup)
{
    const NeutralLoss phosphoricAcid{u"H3PO4"_s, {97.976896, 97.995}};
    BackboneChain chain = peptide(u"GSSG"_s).chains()[0];
    chain.units[1] += {79.966331, 79.98};
    chain.groups.push_back({1, {{79.966331, 79.98}, {phosphoricAcid}}});
    const Backbone backbone = Backbone::ofChains({chain}, {}, residues().breaks()).value();
    const auto ions = byLabel(ionsOf(backbone, IonOptions()), backbone);
    EXPECT_FALSE(ions.contains(u"b1-H3PO4"_s));
    EXPECT_NEAR(ions.at(u"b2"_s)[0] - ions.at(u"b2-H3PO4"_s)[0], 97.976896, 1e-6);
    EXPECT_FALSE(ions.contains(u"y2-H3PO4"_s));
    EXPECT_TRUE(ions.contains(u"y3-H3PO4"_s));
    IonOptions without;
    without.hasGroupLosses = false;
    EXPECT_EQ(byLabel(ionsOf(backbone, without), backbone).size(), 6U);
}

/// All masses that an ion has when each open group is put on each of its units in turn.
std::set<qint64> massesByPlacement(const BackboneChain& chain, qsizetype begin, qsizetype end)
{
    std::set<qint64> masses = {0};
    for (const OpenGroup& open : chain.open) {
        std::set<qint64> more;
        for (const qint64 mass : masses) {
            for (const qsizetype unit : open.units) {
                const bool isHeld = unit >= begin && unit < end;
                more.insert(mass + (isHeld ? std::llround(open.group.masses.monoisotopic) : 0));
            }
        }
        masses = more;
    }
    return masses;
}

/// Whole masses of open groups make the sums exact; every way to place them is tried.
RC_GTEST_PROP(FragmentIons, OpenGroupsGiveEveryMassThatTheirPlacesGiveAndEachOnce, ())
{
    const qsizetype size = *rc::gen::inRange(2, 9);
    BackboneChain chain = peptide(QString(size, u'G')).chains()[0];
    const int groups = *rc::gen::inRange(1, 4);
    for (int i = 0; i < groups; ++i) {
        const auto units = *rc::gen::unique<std::vector<qsizetype>>(
            *rc::gen::inRange<std::size_t>(1, std::size_t(size) + 1),
            rc::gen::inRange<qsizetype>(0, size));
        // Two may weigh what a third does, or nothing.
        OpenGroup open{{{double(*rc::gen::elementOf(std::vector<int>{0, 17, 34, 51})), 0.0}, {}},
                       units};
        std::sort(open.units.begin(), open.units.end());
        chain.open.push_back(open);
    }
    const Backbone backbone = Backbone::ofChains({chain}, {}, residues().breaks()).value();
    const FragmentIons ions = ionsOf(backbone, series({Series::B, Series::Y, Series::Internal}));
    const double glycine = residues().residue(u'G').monoisotopic;
    std::map<std::tuple<Series, quint32, qsizetype>, std::set<qint64>> found;
    for (qsizetype i = 0; i < std::ssize(ions.mz()); ++i) {
        const auto [index, offset] = ions.runOf(i);
        const IonRun& run = ions.runs()[std::size_t(index)];
        const qsizetype number = qsizetype(run.firstNumber) + offset;
        const qsizetype units =
            run.series == Series::Internal ? number - qsizetype(run.start) + 1 : number;
        const double water = run.series == Series::Y ? 18.0105647 : 0.0;
        const double rest = ions.mz()[std::size_t(i)] - double(units) * glycine - proton - water;
        RC_ASSERT(std::abs(rest - std::round(rest)) < 1e-4);
        RC_ASSERT((found[{run.series, run.start, number}].insert(std::llround(rest)).second));
    }
    for (const auto& [key, masses] : found) {
        const auto [of, start, number] = key;
        const qsizetype begin = of == Series::Y   ? size - number
                                : of == Series::B ? 0
                                                  : qsizetype(start) - 1;
        const qsizetype end = of == Series::Y ? size : number;
        RC_ASSERT(masses == massesByPlacement(chain, begin, end));
    }
}

TEST(FragmentIons, MoreThanSixteenVariantsOfAnIonAreRefused)
{
    BackboneChain chain = peptide(u"GGGG"_s).chains()[0];
    for (const double mass : {100.0, 101.0, 103.0, 107.0})
        chain.open.push_back({{{mass, 100.0}, {}}, {0, 3}});
    FragmentIons ions;
    EXPECT_FALSE(
        ions.assign(Backbone::ofChains({chain}, {}, residues().breaks()).value(), {}).has_value());
    EXPECT_EQ(ions.mz().size(), 2U * 3U * 16U);
    chain.open.push_back({{{50.0, 50.0}, {}}, {0, 3}});
    const auto refusal =
        ions.assign(Backbone::ofChains({chain}, {}, residues().breaks()).value(), {});
    ASSERT_TRUE(refusal.has_value());
    EXPECT_EQ(refusal->chain, 0);
    EXPECT_TRUE(ions.mz().empty());
}

TEST(FragmentIons, VariantsCountOnlyForTheIonsThatAreAskedFor)
{
    BackboneChain chain = peptide(u"GGGG"_s).chains()[0];
    for (const double mass : {100.0, 101.0, 103.0, 107.0, 115.0})
        chain.open.push_back({{{mass, 100.0}, {}}, {1, 2}});
    const Backbone backbone = Backbone::ofChains({chain}, {}, residues().breaks()).value();
    EXPECT_EQ(ionsOf(backbone, series({Series::Precursor})).mz().size(), 1U);
    FragmentIons ions;
    for (const Series one : {Series::B, Series::Y, Series::Immonium})
        EXPECT_TRUE(ions.assign(backbone, series({one})).has_value()) << int(one);
}

TEST(FragmentIons, PiecesFromTheMiddleWithMoreThanSixteenVariantsAreRefused)
{
    // Three groups may lie across the start of a piece and three across its end: 64 ways, where an
    // ion of an end has eight at most.
    BackboneChain chain = peptide(QString(8, u'G')).chains()[0];
    for (const double mass : {100.0, 101.0, 103.0})
        chain.open.push_back({{{mass, 100.0}, {}}, {0, 2}});
    for (const double mass : {1000.0, 1010.0, 1030.0})
        chain.open.push_back({{{mass, 100.0}, {}}, {5, 7}});
    const Backbone backbone = Backbone::ofChains({chain}, {}, residues().breaks()).value();
    FragmentIons ions;
    EXPECT_FALSE(ions.assign(backbone, series({Series::B, Series::Y})).has_value());
    const auto refusal = ions.assign(backbone, series({Series::Internal}));
    ASSERT_TRUE(refusal.has_value());
    EXPECT_TRUE(ions.mz().empty());
}

TEST(FragmentIons, OpenGroupsOfOneMassMayLoseWhatAnyOfThemLoses)
{
    const NeutralLoss lost = LossRule::read(u"H3PO4", residues().atoms())->loss;
    BackboneChain chain = peptide(u"GGGG"_s).chains()[0];
    chain.open.push_back({{{100.0, 100.0}, {}}, {0, 1}});
    chain.open.push_back({{{100.0, 100.0}, {lost}}, {0, 1}});
    const Backbone backbone = Backbone::ofChains({chain}, {}, residues().breaks()).value();
    IonOptions options = series({Series::B});
    options.maxLosses = 2;
    const auto ions = byLabel(ionsOf(backbone, options), backbone);
    for (const QString& label :
         {u"b1"_s, u"b1+[+100.0000]"_s, u"b1+2[+100.0000]"_s, u"b1+[+100.0000]-H3PO4"_s,
          u"b1+2[+100.0000]-H3PO4"_s, u"b2-H3PO4"_s}) {
        EXPECT_EQ(ions.at(label).size(), 1U) << label.toStdString();
    }
    EXPECT_FALSE(ions.contains(u"b1-H3PO4"_s));
    EXPECT_FALSE(ions.contains(u"b2-H3PO4-H3PO4"_s));
}

/// Groups of different masses, each on one of two neighbours: an ion with both holds it.
Backbone withNeighbouringPlaces(int groups)
{
    BackboneChain chain = peptide(QString(4 * groups, u'G')).chains()[0];
    for (int i = 0; i < groups; ++i)
        chain.open.push_back({{{100.0 + i, 100.0}, {}}, {4 * i, 4 * i + 1}});
    return Backbone::ofChains({chain}, {}, residues().breaks()).value();
}

TEST(FragmentIons, MoreVariantsThanARunCanTellAreRefused)
{
    FragmentIons ions;
    EXPECT_FALSE(ions.assign(withNeighbouringPlaces(100), series({Series::B})).has_value());
    EXPECT_EQ(ions.mz().size(), 399U + 100U); // each b ion, and those that hold a group or not
    const auto refusal = ions.assign(withNeighbouringPlaces(300), series({Series::B}));
    ASSERT_TRUE(refusal.has_value());
    EXPECT_TRUE(refusal->message.contains(u"256"));
    EXPECT_TRUE(ions.mz().empty());
}

TEST(FragmentIons, FifteenOpenGroupsOfOneMassAreCounted)
{
    BackboneChain chain = peptide(QString(30, u'S')).chains()[0];
    for (int i = 0; i < 15; ++i)
        chain.open.push_back({{{79.966331, 80.0}, {}}, {0, 29}});
    FragmentIons ions;
    EXPECT_FALSE(
        ions.assign(Backbone::ofChains({chain}, {}, residues().breaks()).value(), {}).has_value());
    EXPECT_EQ(ions.mz().size(), 2U * 29U * 16U);
}

Backbone linked(const QString& first, qsizetype firstUnit, const QString& second,
                qsizetype secondUnit, double mass)
{
    return Backbone::ofChains({peptide(first).chains()[0], peptide(second).chains()[0]},
                              {{0, firstUnit, 1, secondUnit, {mass, mass}}}, residues().breaks())
        .value();
}

TEST(FragmentIons, AnIonOfOneChainCarriesTheWholeOtherOne)
{
    const double bridge = 138.06808;
    const Backbone backbone = linked(u"GKG"_s, 1, u"AKA"_s, 1, bridge);
    const double other = residues().peptide(u"AKA")->monoisotopic + bridge;
    const auto ions = byLabel(ionsOf(backbone, IonOptions()), backbone);
    EXPECT_EQ(ions.size(), 8U);
    EXPECT_NEAR(ions.at(u"1:b1"_s)[0], 57.021464 + proton, 1e-5);
    EXPECT_NEAR(ions.at(u"1:b2"_s)[0], 57.021464 + 128.094963 + other + proton, 1e-5);
    EXPECT_NEAR(ions.at(u"1:y1"_s)[0], 57.021464 + 18.010565 + proton, 1e-5);
    EXPECT_NEAR(ions.at(u"1:y2"_s)[0], 57.021464 + 128.094963 + 18.010565 + other + proton, 1e-5);
    EXPECT_NEAR(ions.at(u"2:b1"_s)[0], 71.037114 + proton, 1e-5);
    EXPECT_NEAR(ions.at(u"2:b2"_s)[0],
                71.037114 + 128.094963 + residues().peptide(u"GKG")->monoisotopic + bridge + proton,
                1e-5);
}

TEST(FragmentIons, LabileGroupsOfTheOtherChainAreInThePrecursorOnly)
{
    BackboneChain sweet = peptide(u"AKA"_s).chains()[0];
    sweet.labile.push_back({{162.052824, 162.1406}, {}});
    const Backbone backbone = Backbone::ofChains({peptide(u"GKG"_s).chains()[0], sweet},
                                                 {{0, 1, 1, 1, {}}}, residues().breaks())
                                  .value();
    const auto ions = byLabel(ionsOf(backbone, IonOptions()), backbone);
    const double other = residues().peptide(u"AKA")->monoisotopic;
    EXPECT_NEAR(ions.at(u"1:b2"_s)[0], 57.021464 + 128.094963 + other + proton, 1e-5);
}

TEST(FragmentIons, IonsOfLinkedChainsAndTheirComplementsMakeThePrecursor)
{
    const Backbone backbone = linked(u"GKGC"_s, 1, u"AKAC"_s, 2, 138.06808);
    const auto ions = byLabel(ionsOf(backbone, IonOptions()), backbone);
    const double sum = backbone.masses().monoisotopic + 2 * proton;
    for (const QString& chain : {u"1:"_s, u"2:"_s}) {
        for (int k = 1; k <= 3; ++k) {
            const QString left = chain + u"b"_s + QString::number(k);
            const QString right = chain + u"y"_s + QString::number(4 - k);
            EXPECT_NEAR(ions.at(left)[0] + ions.at(right)[0], sum, 1e-6) << left.toStdString();
        }
    }
}

TEST(FragmentIons, CutsInsideALoopGiveNoIon)
{
    const BackboneChain chain = peptide(u"GCGCG"_s).chains()[0];
    const Backbone loop =
        Backbone::ofChains({chain}, {{0, 1, 0, 3, {-2.01565, -2.0}}}, residues().breaks()).value();
    const auto ions = byLabel(ionsOf(loop, IonOptions()), loop);
    EXPECT_EQ(ions.size(), 4U);
    EXPECT_TRUE(ions.contains(u"b1"_s));
    EXPECT_FALSE(ions.contains(u"b2"_s));
    EXPECT_FALSE(ions.contains(u"b3"_s));
    EXPECT_NEAR(ions.at(u"b4"_s)[0], 2 * 57.021464 + 2 * 103.009185 - 2.01565 + proton, 1e-5);
}

TEST(FragmentIons, TwoLinksBetweenTwoChainsMakeALoopToo)
{
    const BackboneChain chain = peptide(u"GCGCG"_s).chains()[0];
    const Backbone backbone =
        Backbone::ofChains({chain, chain}, {{0, 1, 1, 1, {}}, {0, 3, 1, 3, {}}},
                           residues().breaks())
            .value();
    const auto ions = byLabel(ionsOf(backbone, series({Series::B})), backbone);
    EXPECT_EQ(ions.size(), 4U);
    EXPECT_TRUE(ions.contains(u"1:b1"_s));
    EXPECT_TRUE(ions.contains(u"2:b4"_s));
    EXPECT_FALSE(ions.contains(u"1:b2"_s));
}

TEST(FragmentIons, LossesOfAnotherChainCountWhereItHangs)
{
    const Backbone backbone = linked(u"GKG"_s, 1, u"SKG"_s, 1, 0.0);
    IonOptions options = series({Series::B});
    options.losses = {LossRule::read(u"H2O@S", residues().atoms()).value()};
    const auto ions = byLabel(ionsOf(backbone, options), backbone);
    EXPECT_FALSE(ions.contains(u"1:b1-H2O"_s));
    EXPECT_TRUE(ions.contains(u"1:b2-H2O"_s));
}

TEST(FragmentIons, LinkedUnitsHaveNoImmoniumIonsAndEndInternalOnes)
{
    const Backbone backbone = linked(u"GAKAG"_s, 2, u"GG"_s, 0, 0.0);
    const FragmentIons immonium = ionsOf(backbone, series({Series::Immonium}));
    EXPECT_EQ(immonium.mz().size(), 4U + 1U);
    EXPECT_TRUE(ionsOf(backbone, series({Series::Internal})).mz().empty());
}

TEST(FragmentIons, AListThatIsUsedAgainHoldsTheNewIonsOnly)
{
    FragmentIons ions = ionsOf(peptide(QString(100, u'G')), IonOptions());
    EXPECT_EQ(ions.mz().size(), 198U);
    EXPECT_FALSE(ions.assign(peptide(u"GG"_s), IonOptions()).has_value());
    EXPECT_EQ(ions.mz().size(), 2U);
    EXPECT_EQ(ions.runs().size(), 2U);
    EXPECT_FALSE(ions.assign(peptide(u"G"_s), IonOptions()).has_value());
    EXPECT_TRUE(ions.mz().empty());
    EXPECT_TRUE(ions.runs().empty());
    EXPECT_FALSE(ions.assign(Backbone(), IonOptions()).has_value());
    EXPECT_TRUE(ions.mz().empty());
    EXPECT_FALSE(ions.assign(Backbone(), series({Series::Precursor})).has_value());
    EXPECT_TRUE(ions.mz().empty());
}

TEST(FragmentIons, IonsOfAnotherBackboneHaveNoLabels)
{
    const FragmentIons ions = ionsOf(peptide(u"PEPTIDE"_s), allSeries());
    for (const Backbone& other : {Backbone(), peptide(u"P"_s)}) {
        for (qsizetype i = 0; i < std::ssize(ions.mz()); ++i) {
            const auto [run, offset] = ions.runOf(i);
            const qsizetype number = qsizetype(ions.runs()[std::size_t(run)].firstNumber) + offset;
            const bool isThere = !other.chains().empty() && number <= 1;
            EXPECT_EQ(ions.label(other, i).isEmpty(), !isThere);
        }
    }
    BackboneChain chain = peptide(u"GG"_s).chains()[0];
    chain.letters = QString(2, QChar(u'\0'));
    const Backbone unknown = Backbone::ofChains({chain}, {}, residues().breaks()).value();
    EXPECT_TRUE(byLabel(ionsOf(unknown, series({Series::Immonium})), unknown).contains(u"IX"_s));
}

TEST(FragmentIons, SeriesThatTheChainDoesNotHaveGiveNoIons)
{
    const auto factory = chem::defaultChemicalFactory();
    const Backbone strand = Backbone::oligonucleotide(u"ACGT", *factory).value();
    EXPECT_TRUE(
        ionsOf(strand, series({Series::ADot, Series::ZDot, Series::Immonium, Series::Internal}))
            .mz()
            .empty());
    EXPECT_TRUE(
        ionsOf(peptide(u"GGG"_s), series({Series::D, Series::W, Series::AMinusB})).mz().empty());
}

TEST(FragmentIons, SeriesHaveTheirNames)
{
    for (int i = 0; i <= int(Series::Reporter); ++i)
        EXPECT_EQ(seriesNamed(seriesName(Series(i))), Series(i));
    EXPECT_EQ(seriesName(Series::AMinusB), u"a-B"_s);
    EXPECT_EQ(seriesNamed(u"aB"), std::nullopt);
    EXPECT_EQ(seriesName(Series(99)), u""_s);
    EXPECT_TRUE(isLeftSeries(Series::AMinusB));
    EXPECT_FALSE(isLeftSeries(Series::W));
    EXPECT_TRUE(isRightSeries(Series::ZDot));
    EXPECT_FALSE(isRightSeries(Series::Precursor));
}

} // namespace

} // namespace ions
