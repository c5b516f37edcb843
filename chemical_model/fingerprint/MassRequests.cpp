#include "Factories.h"
#include "Families.h"
#include "Texts.h"

#include <limits>

using namespace Qt::StringLiterals;
using namespace chem;

namespace {

constexpr quint64 seed = 2;
constexpr int formulaCount = 220;
constexpr double stale = 7.0;

void askCalculators(Answers* answers, const ChemicalFactory& factory, const QString& text)
{
    const ChemicalFormula formula = ChemicalFactory::parseChemicalFormula(text);
    double monoMass = stale;
    double averageMass = stale;
    const zel::Error error = factory.calculateMassesForFormula(formula, &monoMass, &averageMass);
    answers->add("calculateMassesForFormula", formula, error.hasError(), monoMass, averageMass);
}

void askArrays(Answers* answers, const ChemicalFactory& factory, Choices* choices)
{
    QList<QString> elements;
    QList<int> counts;
    for (int entries = choices->below(5); entries > 0; --entries) {
        elements.append(choices->of<QString>({u"C"_s, u"H"_s, u"S"_s, u"Sn"_s, u"Xx"_s, u"E"_s}));
        counts.append(choices->oneIn(8) ? -3 : choices->below(300));
    }
    if (choices->oneIn(6))
        elements.append(u"N"_s); // without a count
    double monoMass = stale;
    double averageMass = stale;
    const zel::Error error =
        factory.calculateMassesForElementCountArrays(elements, counts, &monoMass, &averageMass);
    answers->add("calculateMassesForElementCountArrays", elements, counts, error.hasError(),
                 monoMass, averageMass);
}

void askEstimates(Answers* answers, const ChemicalFactory& factory, const QString& text,
                  double mass)
{
    answers->add("moleculeBasedOnAverageMass", text, mass,
                 factory.moleculeBasedOnAverageMass(text, mass));
    answers->add("moleculeBasedOnMonoMass", text, mass,
                 factory.moleculeBasedOnMonoMass(text, mass));
}

void askArithmetic(Answers* answers, const Molecule& one, const Molecule& other, int factor)
{
    answers->add("Molecule +", one + other);
    answers->add("Molecule -", one - other);
    Molecule changed = one;
    changed += other;
    answers->add("Molecule +=", changed);
    changed -= one;
    answers->add("Molecule -=", changed);
    changed *= factor;
    answers->add("Molecule *=", factor, changed);
    NamedMolecule named(one, u"name"_s, u"code"_s);
    named += other;
    answers->add("NamedMolecule +=", named);
    NamedMolecule taken = std::move(named);
    named = NamedMolecule();
    answers->add("NamedMolecule move", taken, named);
}

void askFactory(Answers* answers, const ChemicalFactory& factory, Choices* choices)
{
    Molecule previous;
    for (int i = 0; i < formulaCount; ++i) {
        const QString text = choices->oneIn(3) ? anyFormulaText(choices) : anyMoleculeText(choices);
        const Molecule molecule = factory.constructMolecule(text);
        answers->add("constructMolecule", text, molecule);
        askCalculators(answers, factory, text);
        askArrays(answers, factory, choices);
        const int times = choices->from(-3, 3);
        answers->add("modifyMolecule", text, times, factory.modifyMolecule(previous, text, times));
        const double mass = choices->number(100000);
        askEstimates(answers, factory, text, mass);
        askArithmetic(answers, molecule, previous, times);
        previous = molecule;
    }
}

void askOddEstimates(Answers* answers)
{
    using Limits = std::numeric_limits<double>;
    for (const QString& text :
         {u"C4.9384H7.7583N1.3577O1.4773S0.0417"_s, u"H-2"_s, u"Xx"_s, u"C-1H2"_s, QString()}) {
        for (const double mass : {0.0, -0.0, -1500.5, 1e300, Limits::infinity(),
                                  Limits::quiet_NaN(), Limits::denorm_min()})
            askEstimates(answers, *defaultChemicalFactory(), text, mass);
    }
}

void askErrors(Answers* answers)
{
    for (const int code : {0, 1, 2, -1, 12345}) {
        zel::Error error(code);
        const zel::Error taken = std::move(error);
        answers->add("Error", code, taken.hasError());
    }
}

} // namespace

void askMasses(Answers* answers)
{
    Choices choices(seed);
    for (const auto& factory : factories())
        askFactory(answers, *factory, &choices);
    askOddEstimates(answers);
    askErrors(answers);
}
