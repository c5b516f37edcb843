#include "Choices.h"
#include "Factories.h"
#include "Families.h"
#include "MessageRecorder.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

/// \file
/// IsoSpec++ computes probabilities with logarithms and exponentials, whose last bits are those of
/// the platform's mathematics library: half of the points differ between x86-64 and arm64, by at
/// most 1.4 * 10^-12. Positions and shares are therefore rounded to a millionth. A value next to a
/// rounding border would still go one way here and the other way there, so the seed is one with
/// which no value comes nearer to a border than 10^-10. Each run checks that and stops if a value
/// does, as may happen after a change of the corpus: then take the next seed.

using namespace Qt::StringLiterals;
using namespace chem;

namespace {

constexpr quint64 seed = 18;
constexpr int moleculeCount = 20;
constexpr double steps = 1e6;   // to a dalton, or to a whole share
constexpr double margin = 1e-4; // of a step

/// The number of whole steps next to a value.
qint64 rounded(double value)
{
    const double inSteps = value < 0 ? value * steps - 0.5 : value * steps + 0.5;
    const auto whole = static_cast<qint64>(inSteps);
    const double beyond = inSteps - static_cast<double>(whole);
    const double distance = beyond < 0 ? -beyond : beyond;
    if (distance < margin || distance > 1.0 - margin) {
        std::fprintf(stderr, "%.17g is too near to a rounding border\n", value);
        std::abort();
    }
    return whole;
}

/// A molecule that has an envelope, small enough to be enumerated at once.
QString anyComposition(Choices* choices)
{
    const int carbon = choices->from(1, 60);
    const int hydrogen = choices->from(1, 100);
    QString text = u'C' + QString::number(carbon) + u'H' + QString::number(hydrogen);
    for (const QString& symbol : {u"N"_s, u"O"_s, u"S"_s}) {
        const int count = choices->below(8);
        text += symbol + QString::number(count);
    }
    if (choices->oneIn(4))
        text += choices->of<QString>({u"Cl2"_s, u"Br"_s, u"Se"_s, u"Pt"_s, u"Na"_s, u"P3"_s});
    if (choices->oneIn(8))
        text += choices->of<QString>({u"Xx"_s, u"N-20"_s, u"O0.5"_s, u"E"_s});
    return text;
}

void askEnvelope(Answers* answers, const ChemicalFactory& factory, const QString& text, int charge,
                 bool isProtonated)
{
    MessageRecorder::messages().clear();
    QList<QPointF> envelope = {QPointF(7.0, 7.0)};
    const Molecule ion = factory.generateIsotopeEnvelope(factory.constructMolecule(text), charge,
                                                         &envelope, isProtonated);
    answers->add("generateIsotopeEnvelope", text, charge, isProtonated, ion, envelope.size());
    for (const QPointF& point : std::as_const(envelope)) {
        const qint64 x = rounded(point.x());
        answers->detail(x, rounded(point.y()));
    }
    for (const MessageRecorder::Message& message : MessageRecorder::messages())
        answers->detail(message.category, message.text);
}

/// Beyond IsoSpec++'s limit of 10485758 atoms, where its exception passes through.
void askTooMany(Answers* answers, const ChemicalFactory& factory)
{
    QList<QPointF> envelope;
    try {
        factory.generateIsotopeEnvelope(factory.constructMolecule(u"C10485759"_s), 1, &envelope,
                                        false);
        answers->add("generateIsotopeEnvelope", "too many atoms", envelope.size());
    } catch (const std::exception&) {
        answers->add("generateIsotopeEnvelope", "too many atoms", "throws");
    }
}

} // namespace

void askEnvelopes(Answers* answers)
{
    Choices choices(seed);
    for (const auto& factory : factories()) {
        for (int i = 0; i < moleculeCount; ++i) {
            const QString text = anyComposition(&choices);
            const int charge = choices.from(-3, 6);
            const bool isProtonated = choices.oneIn(2);
            askEnvelope(answers, *factory, text, charge, isProtonated);
        }
        for (const QString& text : {QString(), u"Xx3"_s, u"H-1"_s, u"H"_s, u"E2"_s})
            askEnvelope(answers, *factory, text, 1, false);
    }
    askTooMany(answers, *defaultChemicalFactory());
}
