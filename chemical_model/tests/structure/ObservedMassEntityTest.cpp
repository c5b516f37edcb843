#include "MessageRecorder.h"
#include "TestPrinters.h"
#include "TestSeed.h"
#include <ChemicalModel.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

using chem::MassTolerance;
using chem::MatchingParameters;
using chem::MoleculeEntity;
using chem::ObservedMassEntity;
using Masses = QList<double>;

MatchingParameters within(double value, int unit = 0)
{
    MatchingParameters parameters;
    parameters.massTolerance = {value, unit};
    return parameters;
}

QList<ObservedMassEntity> observed(const Masses& masses)
{
    return QList<ObservedMassEntity>(masses.cbegin(), masses.cend());
}

Masses matched(const MoleculeEntity& entity, const Masses& masses,
               const MatchingParameters& parameters)
{
    Masses found;
    for (const chem::Match& match : chem::match(entity, observed(masses), parameters)) {
        found.append(match.observedMass.mass());
        EXPECT_TRUE(match.entity == entity || std::isnan(entity.averageMass()));
    }
    return found;
}

TEST(ObservedMassEntity, HoldsANumber)
{
    const ObservedMassEntity mass = 5.0;
    EXPECT_EQ(mass.mass(), 5.0);
    EXPECT_EQ(mass.monoMass(), 5.0);
    static_assert(!std::is_constructible_v<ObservedMassEntity, int>);
    static_assert(!std::is_constructible_v<ObservedMassEntity, float>);
    static_assert(!std::is_constructible_v<ObservedMassEntity, MoleculeEntity>);
    static_assert(!std::is_default_constructible_v<ObservedMassEntity>);
    static_assert(std::is_copy_assignable_v<ObservedMassEntity>);
    static_assert(std::is_nothrow_move_constructible_v<ObservedMassEntity>);
}

TEST(ObservedMassEntity, HasNoIntensityAndSaysSo)
{
    const MessageRecorder recorder;
    chem::match(1000.0, observed({1000.0}), within(1.0)); // needs none
    EXPECT_EQ(ObservedMassEntity(5.0).intensity(), 0.0);
    ASSERT_EQ(MessageRecorder::messages().size(), 1);
    const auto& message = MessageRecorder::messages().first();
    EXPECT_EQ(message.type, QtWarningMsg);
    EXPECT_EQ(message.category, u"default"_s);
    EXPECT_EQ(message.file, u"chemical_model/src/ObservedMassEntity"_s);
    EXPECT_EQ(message.function, u"chem::ObservedMassEntityInternal::intensity<double>"_s);
    EXPECT_EQ(message.text, u"Unimplemented code."_s);
}

TEST(ObservedMassEntity, ParametersStartAtZero)
{
    const MatchingParameters parameters;
    for (const MassTolerance& tolerance : {parameters.massTolerance, parameters.secondTolerance,
                                           parameters.thirdTolerance, parameters.fourthTolerance}) {
        EXPECT_EQ(tolerance.value, 0.0);
        EXPECT_EQ(tolerance.unit, 0);
    }
}

TEST(ObservedMassEntity, TolerancesInDaltons)
{
    EXPECT_EQ(chem::absoluteMassToleranceDelta(1000.0, within(10.0, 1)), 0.01);
    EXPECT_EQ(chem::absoluteMassToleranceDelta(1000.0, within(1.0, 2)), 10.0);
    for (const int unit : {0, 7, -1, 3})
        EXPECT_EQ(chem::absoluteMassToleranceDelta(1000.0, within(0.5, unit)), 0.5);
    EXPECT_EQ(chem::absoluteMassToleranceDelta(3.0, within(0.1, 1)), 0.1 * 3.0 / 1000000.0);
    EXPECT_EQ(chem::absoluteMassToleranceDelta(3.0, within(0.1, 2)), 0.1 * 3.0 / 100.0);
}

/// A model, measurements, a tolerance, and what matches.
struct WindowCase
{
    const char* what;
    MoleculeEntity model;
    Masses masses;
    MatchingParameters parameters;
    Masses matched;
};

TEST(ObservedMassEntity, WindowLiesAroundTheAverageMassOfTheModel)
{
    const auto water = chem::defaultChemicalFactory()->constructMolecule(u"H2O"_s);
    const Masses around = {998.9, 999.0, 1000.0, 1001.0, 1001.1};
    const Masses wide = {400.0, 500.0, 1000.0, 1500.0, 1800.0};
    const MassTolerance half = {50.0, 2};
    const QList<WindowCase> cases = {
        {"both edges belong to it", 1000.0, around, within(1.0), {999.0, 1000.0, 1001.0}},
        {"no measurement", 1000.0, {}, within(1.0), {}},
        {"all below", 1000.0, {1.0, 2.0}, within(1.0), {}},
        {"all above", 1000.0, {2000.0}, within(1.0), {}},
        {"without tolerance", 1000.0, {999.9999999, 1000.0, 1000.0000001}, {}, {1000.0}},
        {"a mass listed twice", 1000.0, {1000.0, 1000.0}, within(0.1), {1000.0, 1000.0}},
        {"a tolerance below zero", 1000.0, around, within(-1.0), {}},
        {"zero and parts per million", nullptr, {-0.1, 0.0, 0.1}, within(10.0, 1), {0.0}},
        {"zero and percent", nullptr, {-0.1, 0.0, 0.1}, within(10.0, 2), {0.0}},
        {"the average mass",
         chem::Molecule({}, 100.0, 200.0),
         {100.0, 200.0},
         within(1.0),
         {100.0}},
        {"a rebuilt mass",
         chem::Molecule(water.formula(), 0.0, 0.0),
         {17.0, 18.0, 19.0},
         within(0.5),
         {18.0}},
        // At the measured masses half of them would give 200 to 900.
        {"half of the model's mass", 1000.0, wide, within(50.0, 2), {500.0, 1000.0, 1500.0}},
        {"the same in parts", 1000.0, wide, within(500000.0, 1), {500.0, 1000.0, 1500.0}},
        {"part of a mass below zero", -1000.0, {-1000.0}, within(1.0, 1), {}},
        {"the first tolerance alone", 1000.0, wide, {{1.0, 0}, half, half, half}, {1000.0}}};
    for (const WindowCase& each : cases)
        EXPECT_EQ(matched(each.model, each.masses, each.parameters), each.matched) << each.what;
}

/// The search and what follows it, written down once more over plain numbers.
Masses matchedByHand(double a, const Masses& masses, double delta)
{
    const double edge = a - delta;
    qsizetype first = 0;
    qsizetype count = masses.size();
    while (count > 0) {
        const qsizetype half = count / 2;
        if (masses[first + half] < edge) {
            first += half + 1;
            count -= half + 1;
        } else {
            count = half;
        }
    }
    Masses found;
    for (qsizetype i = first; i < masses.size(); ++i) {
        if (a - (masses[i] + delta) > 0.0)
            continue;
        if (a - (masses[i] - delta) < 0.0)
            break;
        found.append(masses[i]);
    }
    return found;
}

bool isSame(const Masses& a, const Masses& b)
{
    return std::equal(a.cbegin(), a.cend(), b.cbegin(), b.cend(), [](double x, double y) {
        return x == y || (std::isnan(x) && std::isnan(y));
    });
}

TEST(ObservedMassEntity, AnyListGivesWhatTheSearchFinds)
{
    std::mt19937 random(testSeed(3));
    for (int round = 0; round < 3000; ++round) {
        Masses masses;
        for (auto i = random() % 12; i > 0; --i)
            masses.append(random() % 40 ? static_cast<double>(random() % 20) : std::nan(""));
        if (round % 2) // what is not a number comes first, so that the order is one
            std::sort(masses.begin(), masses.end(),
                      [](double a, double b) { return std::isnan(a) ? !std::isnan(b) : a < b; });
        const double model = static_cast<double>(random() % 20 + 1);
        const double delta = static_cast<double>(random() % 5) - 1.0;
        ASSERT_TRUE(
            isSame(matched(model, masses, within(delta)), matchedByHand(model, masses, delta)));
    }
}

TEST(ObservedMassEntity, MassesAtTheEdgesAreComparedWithTheRoundedSums)
{
    std::mt19937 random(testSeed(5));
    std::uniform_real_distribution<double> modelMass(100.0, 5000.0);
    std::uniform_real_distribution<double> tolerance(0.001, 2.0);
    int decidedByRounding = 0;
    for (int round = 0; round < 2000; ++round) {
        const double model = modelMass(random);
        const double delta = tolerance(random);
        Masses masses;
        for (const double edge : {model - delta, model + delta}) {
            const double below = std::nextafter(edge, 0.0);
            const double above = std::nextafter(edge, 1e9);
            masses += {std::nextafter(below, 0.0), below, edge, above, std::nextafter(above, 1e9)};
        }
        const Masses expected = matchedByHand(model, masses, delta);
        ASSERT_EQ(matched(model, masses, within(delta)), expected);
        const auto inWindow = std::count_if(masses.cbegin(), masses.cend(), [&](double mass) {
            return std::abs(model - mass) <= delta;
        });
        decidedByRounding += inWindow == expected.size() ? 0 : 1;
    }
    EXPECT_GT(decidedByRounding, 0); // else the form of the comparison could not be seen
}

TEST(ObservedMassEntity, WhatIsNotANumberIsOutsideNoWindow)
{
    const double nan = std::nan("");
    EXPECT_EQ(matched(nan, {1.0, 2.0}, within(1.0)), Masses({1.0, 2.0}));
    EXPECT_EQ(matched(1000.0, {1.0, 2000.0}, within(nan)), Masses({1.0, 2000.0}));
    EXPECT_EQ(matched(nan, {1.0, 2.0}, within(1.0, 1)), Masses({1.0, 2.0}));
    const auto matches = chem::match(1000.0, observed({nan}), within(1.0));
    ASSERT_EQ(matches.size(), 1);
    EXPECT_TRUE(std::isnan(matches[0].observedMass.mass()));
}

TEST(ObservedMassEntity, MembersStandInTheirOrder)
{
    const MatchingParameters parameters = {{1.0, 1}, {2.0, 2}, {3.0, 3}, {4.0, 4}};
    const MassTolerance MatchingParameters::*const members[] = {
        &MatchingParameters::massTolerance, &MatchingParameters::secondTolerance,
        &MatchingParameters::thirdTolerance, &MatchingParameters::fourthTolerance};
    for (int i = 0; i < 4; ++i) {
        const MassTolerance& tolerance = parameters.*members[i];
        EXPECT_EQ(tolerance.value, i + 1.0);
        EXPECT_EQ(tolerance.unit, i + 1);
    }
    static_assert(std::is_same_v<decltype(MassTolerance::unit), qint32>);
    const chem::Match match = {1.0, 2.0};
    EXPECT_EQ(match.entity.averageMass(), 1.0);
    EXPECT_EQ(match.observedMass.mass(), 2.0);
}

TEST(ObservedMassEntity, RelativeTolerancesAreMultipliedBeforeTheyAreDivided)
{
    EXPECT_EQ(chem::absoluteMassToleranceDelta(825.75, within(0.3, 1)), 0.3 * 825.75 / 1000000.0);
    EXPECT_NE(0.3 * 825.75 / 1000000.0, 0.3 * (825.75 / 1000000.0)); // else any order would do
    EXPECT_EQ(chem::absoluteMassToleranceDelta(825.75, within(0.3, 2)), 0.3 * 825.75 / 100.0);
    EXPECT_NE(0.3 * 825.75 / 100.0, 0.3 * (825.75 / 100.0));
}

RC_GTEST_PROP(ObservedMassEntityLaws, MatchesAreTheMeasurementsWithinTheTolerance, ())
{
    const double model = *rc::gen::inRange(1, 400) / 4.0;
    const double tolerance = *rc::gen::inRange(0, 80) / 4.0;
    auto masses = *rc::gen::container<std::vector<double>>(
        rc::gen::map(rc::gen::inRange(0, 480), [](int quarters) { return quarters / 4.0; }));
    std::sort(masses.begin(), masses.end());

    chem::MatchingParameters parameters;
    parameters.massTolerance = {tolerance, 0};
    const auto matches = chem::match(
        model, QList<chem::ObservedMassEntity>(masses.cbegin(), masses.cend()), parameters);
    std::vector<double> matched;
    for (const chem::Match& match : matches)
        matched.push_back(match.observedMass.mass());
    std::erase_if(masses, [&](double mass) { return std::abs(mass - model) > tolerance; });
    RC_ASSERT(matched == masses);
}

RC_GTEST_PROP(ObservedMassEntityLaws, WiderToleranceLosesNoMatch, ())
{
    const MoleculeEntity model = *rc::gen::inRange(1, 1000000) / 977.0;
    QList<chem::ObservedMassEntity> observed;
    double mass = 0.0;
    for (int i = *rc::gen::inRange(0, 60); i > 0; --i)
        observed.append(mass += *rc::gen::inRange(0, 100000) / 991.0);
    const int unit = *rc::gen::inRange(0, 3);
    const double width = *rc::gen::inRange(0, 100000) / 100.0;
    chem::MatchingParameters narrow;
    narrow.massTolerance = {width, unit};
    chem::MatchingParameters wide;
    wide.massTolerance = {width * 2, unit};
    RC_ASSERT(chem::match(model, observed, narrow).size() <=
              chem::match(model, observed, wide).size());
}

} // namespace
