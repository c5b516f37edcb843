#include "FormulaSearch.h"

#include "PatternInputs.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <tuple>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

constexpr Atom carbon = {6, 0};
constexpr Atom hydrogen = {1, 0};
constexpr Atom nitrogen = {7, 0};
constexpr Atom oxygen = {8, 0};
constexpr Atom sulfur = {16, 0};

FormulaLimits allOf(const std::vector<Atom>& atoms)
{
    FormulaLimits limits;
    for (const Atom atom : atoms)
        limits.atoms.push_back({atom});
    return limits;
}

QStringList textsOf(const FormulaMatches& found)
{
    QStringList texts;
    for (const FormulaMatch& match : found.matches)
        texts.append(match.composition.toString());
    return texts;
}

struct Candidate
{
    QString text;
    double mass = 0.0;
    double unsaturation = 0.0;
};

/// Every formula of a small world but the empty one, counted up like the wheels of a counter.
std::vector<Candidate> worldOf(const std::vector<AtomLimits>& atoms)
{
    std::vector<Composition> world = {Composition()};
    for (const AtomLimits& limit : atoms) {
        std::vector<Composition> larger;
        for (const Composition& composition : world) {
            for (int count = limit.lowest; count <= limit.highest; ++count) {
                larger.push_back(composition);
                EXPECT_TRUE(larger.back().add(limit.atom, count));
            }
        }
        world = std::move(larger);
    }
    std::vector<Candidate> candidates;
    for (const Composition& composition : world) {
        if (!composition.isEmpty())
            candidates.push_back({composition.toString(),
                                  natural().weigh(composition)->monoisotopic,
                                  unsaturation(composition)});
    }
    return candidates;
}

/// What the search should find in a world, found by looking at all of it.
QStringList expectedIn(const std::vector<Candidate>& world, double mass, double width,
                       const FormulaLimits& limits)
{
    std::vector<std::tuple<double, QString>> found;
    for (const Candidate& candidate : world) {
        if (std::abs(mass - candidate.mass) <= width &&
            candidate.unsaturation >= limits.lowestUnsaturation &&
            candidate.unsaturation <= limits.highestUnsaturation)
            found.emplace_back(std::abs(mass - candidate.mass) / candidate.mass, candidate.text);
    }
    std::sort(found.begin(), found.end());
    QStringList texts;
    for (const auto& [distance, text] : found)
        texts.append(text);
    return texts;
}

/// Looks for the masses of some formulas, shifted a little, and for masses between them.
void expectAsInWorld(const FormulaLimits& limits, double width)
{
    const std::vector<Candidate> world = worldOf(limits.atoms);
    qsizetype compared = 0;
    for (std::size_t i = 0; i < world.size(); i += 1 + world.size() / 150) {
        for (const double shift : {-0.013, 0.0017, 0.41}) {
            const double mass = world[i].mass + shift;
            const auto found = findFormulas(mass, daltons(width), limits, natural());
            ASSERT_TRUE(found.hasValue()) << found.error().message.toStdString();
            const QStringList expected = expectedIn(world, mass, width, limits);
            EXPECT_EQ(textsOf(*found), expected) << mass;
            EXPECT_TRUE(found->isComplete);
            compared += expected.size();
        }
    }
    EXPECT_GT(compared, 100);
}

TEST(FormulaSearch, SmallWorldsAreSearchedWhole)
{
    expectAsInWorld({{{hydrogen, 0, 12}, {carbon, 0, 8}, {nitrogen, 0, 3}, {oxygen, 0, 3}}}, 0.02);
    expectAsInWorld({{{sulfur, 0, 3}, {oxygen, 1, 4}, {hydrogen, 2, 20}, {{17, 0}, 0, 2}}}, 0.05);
    expectAsInWorld({{{carbon, 0, 4}, {{6, 13}, 0, 6}, {hydrogen, 0, 8}, {{1, 2}, 0, 8}}}, 0.05);
}

TEST(FormulaSearch, AtomsOfEqualMassAreToldApartByText)
{
    expectAsInWorld({{{carbon, 0, 5}, {{6, 12}, 0, 4}, {hydrogen, 0, 20}}}, 0.02);
}

TEST(FormulaSearch, UnsaturationIsLimitedAtBothEnds)
{
    FormulaLimits limits{
        {{hydrogen, 0, 20}, {carbon, 0, 8}, {nitrogen, 0, 3}, {oxygen, 0, 3}}, 0.0, 2.5};
    expectAsInWorld(limits, 0.05);
    limits.lowestUnsaturation = 2.5;
    expectAsInWorld(limits, 0.2);
}

TEST(FormulaSearch, KnownMoleculesAreFound)
{
    const std::vector<std::pair<double, QString>> molecules = {
        {180.06339, u"C6H12O6"_s},     {194.08038, u"C8H10N4O2"_s}, {386.35487, u"C27H46O"_s},
        {334.09873, u"C16H18N2O4S"_s}, {18.01056, u"H2O"_s},        {1045.53451, u"C50H71N13O12"_s},
    };
    for (const auto& [mass, text] : molecules) {
        const auto found = findFormulas(
            mass, ppm(3), allOf({carbon, hydrogen, nitrogen, oxygen, sulfur}), natural());
        EXPECT_TRUE(textsOf(*found).contains(text)) << text.toStdString();
        EXPECT_TRUE(found->isComplete);
    }
}

TEST(FormulaSearch, CaffeineIsTheNearestWithAtMostFourOxygens)
{
    const FormulaLimits limits{{{carbon}, {hydrogen}, {nitrogen}, {oxygen, 1, 4}}, 0.0};
    const auto found = findFormulas(194.0804, ppm(5), limits, natural());
    EXPECT_EQ(found->matches[0].composition.toString(), u"C8H10N4O2"_s);
}

TEST(FormulaSearch, TheNearestComeFirstAndTheFlagTellsOfTheOthers)
{
    FormulaLimits limits = allOf({carbon, hydrogen, nitrogen, oxygen, sulfur});
    const auto all = findFormulas(500.2, ppm(20), limits, natural());
    ASSERT_GT(all->matches.size(), 100U);
    for (const qsizetype limit : {1, 7, 50}) {
        limits.formulas = limit;
        const auto some = findFormulas(500.2, ppm(20), limits, natural());
        EXPECT_FALSE(some->isComplete);
        EXPECT_EQ(textsOf(*some), textsOf(*all).first(limit));
    }
    limits.formulas = qsizetype(all->matches.size());
    EXPECT_TRUE(findFormulas(500.2, ppm(20), limits, natural())->isComplete);
}

TEST(FormulaSearch, StepsThatAreUsedUpEndTheSearchAndTheFlagTellsIt)
{
    FormulaLimits limits = allOf({carbon, hydrogen, nitrogen, oxygen, sulfur});
    limits.steps = 1000;
    EXPECT_FALSE(findFormulas(90000.0, ppm(1), limits, natural())->isComplete);
}

TEST(FormulaSearch, WithoutAtomsThereIsNothing)
{
    const auto found = findFormulas(18.0, daltons(100.0), {}, natural());
    EXPECT_TRUE(found->matches.empty());
    EXPECT_TRUE(found->isComplete);
    // Nor is a formula without atoms one, however wide the tolerance.
    EXPECT_EQ(textsOf(*findFormulas(0.5, daltons(1.0), allOf({hydrogen}), natural())),
              QStringList{u"H"_s});
}

TEST(FormulaSearch, LowestCountsHeavierThanTheMassGiveNothing)
{
    const auto found = findFormulas(100.0, ppm(10), {{{carbon, 9}, {hydrogen}}}, natural());
    EXPECT_TRUE(found->matches.empty());
}

TEST(FormulaSearch, NoToleranceFindsTheVeryMass)
{
    const double glucose = natural().weigh(formula(u"C6H12O6"_s))->monoisotopic;
    const auto found =
        findFormulas(glucose, Tolerance(), allOf({carbon, hydrogen, oxygen}), natural());
    EXPECT_EQ(textsOf(*found), QStringList{u"C6H12O6"_s});
    EXPECT_EQ(found->matches[0].ppm, 0.0);
}

TEST(FormulaSearch, LabelledTablesGiveTheirOwnMasses)
{
    const AtomMasses heavy = natural().labelled({7, 15}, 0.99).value();
    const double mass = 2 * 15.0001089 + 28.0312998; // 15N2 and C2H4
    const auto found =
        findFormulas(mass, ppm(2), {{{carbon, 0, 3}, {hydrogen}, {nitrogen, 1}}}, heavy);
    EXPECT_EQ(textsOf(*found), QStringList{u"C2H4N2"_s});
}

struct RefusedSearch
{
    double mass = 100.0;
    Tolerance tolerance;
    FormulaLimits limits;
    qsizetype position = -1;
};

TEST(FormulaSearch, ContradictionsAreRefused)
{
    const double infinite = std::numeric_limits<double>::infinity();
    FormulaLimits noFormulas;
    noFormulas.formulas = 0;
    FormulaLimits noSteps;
    noSteps.steps = 0;
    const std::vector<RefusedSearch> cases = {
        {0.0, ppm(1), {}},
        {-5.0, ppm(1), {}},
        {std::nan(""), ppm(1), {}},
        {infinite, ppm(1), {}},
        {1.1e8, ppm(1), {}},
        {100.0, ppm(1e6), {}},
        {100.0, daltons(infinite), {}},
        {100.0, ppm(1), noFormulas},
        {100.0, ppm(1), noSteps},
        {100.0, ppm(1), {{{carbon}}, std::nan("")}},
        {100.0, ppm(1), {{{carbon}}, 0.0, std::nan("")}},
        {100.0, ppm(1), {{{carbon}}, 1.0, 0.5}},
        {100.0, ppm(1), {{{carbon}, {{118, 0}}}}, 1},
        {100.0, ppm(1), {{{}}}, 0},
        {100.0, ppm(1), {{{carbon}, {hydrogen}, {carbon, 1, 2}}}, 2},
        {100.0, ppm(1), {{{carbon, -1}}}, 0},
        {100.0, ppm(1), {{{carbon, 3, 2}}}, 0},
    };
    for (const RefusedSearch& refused : cases) {
        const auto found = findFormulas(refused.mass, refused.tolerance, refused.limits, natural());
        ASSERT_FALSE(found.hasValue()) << refused.mass;
        EXPECT_EQ(found.error().position, refused.position) << refused.mass;
        EXPECT_FALSE(found.error().message.isEmpty());
    }
}

TEST(FormulaSearch, UnsaturationCountsRingsAndDoubleBonds)
{
    const std::vector<std::pair<QString, double>> molecules = {
        {u"CH4"_s, 0.0},      {u"C6H6"_s, 4.0},     {u"C2H2"_s, 2.0}, {u"C8H10N4O2"_s, 6.0},
        {u"CHCl3"_s, 0.0},    {u"H2O"_s, 0.0},      {u"CH3"_s, 0.5},  {u"CO2"_s, 2.0},
        {u"C2H5NaO"_s, 0.0},  {u"SiH4"_s, 0.0},     {u"BH3"_s, 0.0},  {u"C6F6"_s, 4.0},
        {u"CHBrI2"_s, 0.0},   {u"PH3"_s, 0.0},      {u"AsH3"_s, 0.0}, {u"SnH4"_s, 0.0},
        {u"[13C6]D6"_s, 4.0}, {u"MgH2"_s, 0.0},     {u"He"_s, 0.0},   {u"XeF2"_s, -1.0},
        {u"HgCl2"_s, 0.0},    {u"C10H10Fe"_s, 6.0}, {u"KF"_s, 0.0},   {u"Ts2"_s, 0.0},
        {u"SeH2"_s, 0.0},     {u"Og"_s, 0.0},       {u"TlH3"_s, 0.0}, {u"PbH4"_s, 0.0},
        {u"H-2"_s, 2.0},      {u"ZnH2"_s, 0.0},     {u"CsI"_s, 0.0},  {u"H2S"_s, 0.0},
    };
    for (const auto& [text, bonds] : molecules)
        EXPECT_EQ(unsaturation(formula(text)), bonds) << text.toStdString();
    EXPECT_EQ(unsaturation(Composition()), 1.0);
}

RC_GTEST_PROP(FormulaSearch, AFormulaIsFoundByItsOwnMass, ())
{
    Composition composition;
    for (const auto& [atom, most] :
         {std::pair(carbon, 20), std::pair(hydrogen, 40), std::pair(nitrogen, 5),
          std::pair(oxygen, 8), std::pair(Atom{1, 2}, 3)})
        RC_ASSERT(composition.add(atom, *rc::gen::inRange(0, most)));
    RC_PRE(!composition.isEmpty());
    const double exact = natural().weigh(composition)->monoisotopic;
    const double measured = exact * (1.0 + *rc::gen::inRange(-999, 999) * 1e-9);
    const auto found = findFormulas(measured, ppm(1),
                                    allOf({carbon, hydrogen, nitrogen, oxygen, {1, 2}}), natural());
    RC_ASSERT(textsOf(*found).contains(composition.toString()));
    for (const FormulaMatch& match : found->matches) {
        const double mass = natural().weigh(match.composition)->monoisotopic;
        RC_ASSERT(match.mass == mass);
        RC_ASSERT(std::abs(measured - mass) <= mass * 1e-6);
        RC_ASSERT(match.ppm == ppmError(measured, mass));
        RC_ASSERT(match.unsaturation == unsaturation(match.composition));
    }
}

TEST(Averagine, TenThousandUnitsHaveTheirAtoms)
{
    const auto composition = averagine(1111254.0, MassKind::Average, natural());
    const std::vector<std::pair<Atom, double>> unit = {
        {carbon, 49384}, {nitrogen, 13577}, {oxygen, 14773}, {sulfur, 417}, {hydrogen, 77583}};
    // Atomic masses have changed in the fifth digit since the unit was published.
    for (const auto& [atom, count] : unit)
        EXPECT_NEAR(composition->count(atom), count, 1.0 + 2e-4 * count);
}

TEST(Averagine, OneUnitIsRounded)
{
    EXPECT_EQ(averagine(111.1254, MassKind::Average, natural())->toString(), u"C5H21NO"_s);
}

RC_GTEST_PROP(Averagine, HydrogensMeetTheMass, ())
{
    const double mass = 0.6 * std::pow(5e6, *rc::gen::inRange(0, 100000) / 1e5);
    for (const MassKind kind : {MassKind::Monoisotopic, MassKind::Average}) {
        const Masses masses = natural().weigh(*averagine(mass, kind, natural())).value();
        const double met = kind == MassKind::Average ? masses.average : masses.monoisotopic;
        RC_ASSERT(std::abs(met - mass) < 0.505);
    }
}

TEST(Averagine, MassesOfNoMoleculeAreRefused)
{
    for (const double mass : {0.0, -1.0, 1.1e8, std::nan("")})
        EXPECT_FALSE(averagine(mass, MassKind::Average, natural()).hasValue()) << mass;
}

} // namespace

} // namespace ions
