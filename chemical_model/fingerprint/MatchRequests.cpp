#include "Choices.h"
#include "Families.h"
#include "MessageRecorder.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;
using namespace chem;

namespace {

constexpr quint64 seed = 12;
constexpr int listCount = 400;
constexpr int modelsPerList = 12;
constexpr int observedCount = 60;

double oddNumber(Choices* choices)
{
    using Limits = std::numeric_limits<double>;
    return choices->of<double>({0.0, -0.0, -1.5, 1e-300, 1e300, Limits::infinity(),
                                -Limits::infinity(), Limits::quiet_NaN()});
}

MassTolerance anyTolerance(Choices* choices)
{
    const int unit = choices->oneIn(6) ? choices->from(-1, 4) : choices->below(3);
    const int width = unit == 1 ? 20000 : unit == 2 ? 3 : 40;
    const double value = choices->oneIn(12) ? oddNumber(choices) : choices->number(width);
    return {value, unit};
}

MatchingParameters anyParameters(Choices* choices)
{
    MatchingParameters parameters;
    parameters.massTolerance = anyTolerance(choices);
    parameters.secondTolerance = anyTolerance(choices);
    return parameters;
}

QList<double> anyMasses(Choices* choices)
{
    QList<double> masses;
    for (int i = choices->below(observedCount); i > 0; --i)
        masses.append(choices->number(2000));
    std::sort(masses.begin(), masses.end());
    return masses;
}

/// A model by its mass: near a measurement, so that edges are met, or anywhere.
MoleculeEntity anyModel(Choices* choices, const QList<double>& masses)
{
    if (choices->oneIn(12))
        return oddNumber(choices);
    if (masses.isEmpty() || choices->oneIn(3))
        return choices->number(2000);
    const double measured = choices->of(masses);
    return choices->oneIn(2) ? measured : measured + choices->number(10);
}

void askList(Answers* answers, Choices* choices)
{
    const QList<double> masses = anyMasses(choices);
    const QList<ObservedMassEntity> observed(masses.cbegin(), masses.cend());
    answers->add("observed", observed);
    for (int i = 0; i < modelsPerList; ++i) {
        const MoleculeEntity model = anyModel(choices, masses);
        const MatchingParameters parameters = anyParameters(choices);
        const MassTolerance& tolerance = parameters.massTolerance;
        const double mass = model.averageMass();
        answers->add("absoluteMassToleranceDelta", mass, tolerance.value, tolerance.unit,
                     absoluteMassToleranceDelta(mass, parameters));
        QList<ObservedMassEntity> found;
        for (const Match& one : match(model, observed, parameters))
            found.append(one.observedMass);
        answers->add("match", mass, tolerance.value, tolerance.unit, found);
    }
}

void askObserved(Answers* answers, double mass)
{
    MessageRecorder::messages().clear();
    ObservedMassEntity observed = mass;
    ObservedMassEntity taken = std::move(observed);
    observed = taken;
    const ObservedMassEntity copy = observed;
    observed = std::move(taken);
    answers->add("ObservedMassEntity", copy.mass(), observed.monoMass(), copy.intensity());
    for (const MessageRecorder::Message& message : MessageRecorder::messages())
        answers->detail(message.category, message.text);
}

} // namespace

void askMatches(Answers* answers)
{
    Choices choices(seed);
    for (int i = 0; i < listCount; ++i) {
        askList(answers, &choices);
        const double mass = choices.oneIn(4) ? oddNumber(&choices) : choices.number(5000);
        askObserved(answers, mass);
    }
}
