#include "Families.h"
#include "Texts.h"

#include <limits>

using namespace Qt::StringLiterals;
using namespace chem;

namespace {

constexpr quint64 seed = 1;
constexpr int formulaCount = 2400;
constexpr int oddMapCount = 400;

void askForms(Answers* answers, const ChemicalFormula& formula)
{
    answers->add("toString", formula, formula.toString());
    answers->add("toIsoFormulaString", formula, formula.toIsoFormulaString());
    answers->add("toThermoFormulaString", formula, formula.toThermoFormulaString());
    answers->add("positiveFormulaString", formula, formula.positiveFormulaString());
    answers->add("negativeFormulaString", formula, formula.negativeFormulaString());
}

void askCounts(Answers* answers, const ChemicalFormula& formula, const QString& element)
{
    answers->add("isEmpty", formula, formula.isEmpty());
    answers->add("isValid", formula, formula.isValid());
    answers->add("elementCount", formula, element, formula.elementCount(element));
    QList<QString> elements = {u"stale"_s};
    QList<int> counts = {7};
    formula.positiveElementCounts(&elements, &counts);
    answers->add("positiveElementCounts", formula, elements, counts);
    formula.negativeElementCounts(&elements, &counts);
    answers->add("negativeElementCounts", formula, elements, counts);
}

void askArithmetic(Answers* answers, const ChemicalFormula& one, const ChemicalFormula& other,
                   int factor)
{
    answers->add("operator+", one, other, one + other);
    answers->add("operator-", one, other, one - other);
    ChemicalFormula sum = one;
    sum += other;
    answers->add("operator+=", sum, one);
    sum -= one;
    answers->add("operator-=", sum, one);
    sum *= factor;
    answers->add("operator*=", factor, sum);
    ChemicalFormula taken = std::move(sum);
    sum = other;
    taken = std::move(sum);
    answers->add("move", taken);
}

double oddCount(Choices* choices)
{
    using Limits = std::numeric_limits<double>;
    static const QList<double> counts = {0.0,
                                         -0.0,
                                         1e-13,
                                         -1e-13,
                                         1.0 + 1e-13,
                                         2147483647.0,
                                         2147483648.0,
                                         -2147483648.0,
                                         -2147483649.0,
                                         1e300,
                                         0.5,
                                         -0.5,
                                         1e15,
                                         123456.5,
                                         Limits::quiet_NaN(),
                                         Limits::infinity(),
                                         -Limits::infinity()};
    return choices->of(counts);
}

/// Counts that no text gives.
ChemicalFormula oddFormula(Choices* choices)
{
    static const QList<QString> symbols = {u"C"_s, u"H"_s, u"N"_s, u"Xx"_s, QString(), u"h"_s};
    QMap<QString, double> counts;
    for (int entries = choices->below(5); entries > 0; --entries) {
        const QString symbol = choices->of(symbols);
        const double count = oddCount(choices);
        counts.insert(symbol, count);
    }
    return ChemicalFormula(counts);
}

} // namespace

void askFormulas(Answers* answers)
{
    Choices choices(seed);
    ChemicalFormula previous;
    for (int i = 0; i < formulaCount; ++i) {
        const QString text = anyFormulaText(&choices);
        const ChemicalFormula formula = ChemicalFactory::parseChemicalFormula(text);
        answers->add("parseChemicalFormula", text, formula);
        askForms(answers, formula);
        askCounts(answers, formula, choices.of<QString>({u"C"_s, u"H"_s, u"Fe"_s, u"Xx"_s}));
        askArithmetic(answers, formula, previous, choices.from(-3, 3));
        previous = formula;
    }
    for (int i = 0; i < oddMapCount; ++i) {
        const ChemicalFormula formula = oddFormula(&choices);
        askForms(answers, formula);
        askCounts(answers, formula, u"C"_s);
        const ChemicalFormula other = oddFormula(&choices);
        askArithmetic(answers, formula, other, choices.from(-2, 2));
    }
}
