#include "Recipes.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <stdexcept>

bool isRefused(const ChemicalFactory& factory);

namespace {

//! [IsotopeTextTest]
/// Whether these are whole percentages, or fractions that add up to 1.
bool areAbundances(const QList<double>& values)
{
    const double sum = std::accumulate(values.cbegin(), values.cend(), 0.0);
    const bool areFractions = std::abs(sum - 1.0) < 1e-6;
    return std::all_of(values.cbegin(), values.cend(), [&](double value) {
        return value > 0.0 && (areFractions || (sum == 100.0 && value == std::floor(value)));
    });
}

/// What is wrong with an isotope text; empty if nothing is.
QString isotopeTextProblem(const QString& text)
{
    static const QRegularExpression blanks(u"\\s+"_s);
    static const QRegularExpression entry(
        QRegularExpression::anchoredPattern(u"([A-Z][a-z]?)[1-9][0-9]*:([0-9]+(?:\\.[0-9]+)?)"_s));
    QMap<QString, QList<double>> abundances;
    const QStringList parts = text.split(blanks);
    for (const QString& part : parts) {
        const QRegularExpressionMatch match = entry.match(part);
        if (!match.hasMatch())
            return u"no entry: '%1'"_s.arg(part);
        abundances[match.captured(1)].append(match.captured(2).toDouble());
    }
    for (auto element = abundances.cbegin(); element != abundances.cend(); ++element) {
        if (!areAbundances(element.value()))
            return u"neither whole percentages nor fractions of 1: "_s + element.key();
    }
    return QString();
}
//! [IsotopeTextTest]

/// A factory with these isotopes; null, with the reason in `problem`, if it would not be right.
QSharedPointer<ChemicalFactory> labelledFactory(const QString& text, QString* problem)
{
    *problem = isotopeTextProblem(text);
    if (!problem->isEmpty())
        return {};
    try {
        const auto factory = ChemicalFactory::construct(text);
        if (!isRefused(*factory))
            return factory;
        *problem = u"unknown symbol"_s;
    } catch (const std::invalid_argument& error) { // abundances that are not in (0, 1]
        *problem = QString::fromUtf8(error.what());
    }
    return {};
}

const QList<QString> goodTexts = {u"C13:1"_s,           u"C13:99 C12:1"_s,
                                  u"C12:0.5 C13:0.5"_s, u"N15:0.987 N14:0.013"_s,
                                  u"H2:100"_s,          u"N15:98 N14:2 C13:0.995 C12:0.005"_s};

const QList<QString> wrongTexts = {
    u"N15:98.7 N14:1.3"_s,
    u"N15:99.5 N14:0.5"_s,
    u"N15:99 N14:2"_s,
    u"C13:0.6 C12:0.6"_s,
    u"C13:1.5"_s,
    u"C13:0"_s,
    u"C13:-1"_s,
    u"C13:x"_s,
    u"C13:nan"_s,
    u"13C:1"_s,
    u"C:1"_s,
    u"C13"_s,
    u"C13x:1"_s,
    u"C13:1:2"_s,
    u" C13:1"_s,
    u"C13:1 "_s,
    u"C13:99, C12:1"_s,
    u"C13=1"_s,
    u"Xx13:1"_s,
    u"C13:100 C12:0"_s,
};

} // namespace

void isotopeTexts(QTextStream& out)
{
    const QList<QString> texts = {u"N15:98 N14:2"_s,     u"N15:0.987 N14:0.013"_s,
                                  u"N15:98.7 N14:1.3"_s, u"N15:99.5 N14:0.5"_s,
                                  u"13C:99 12C:1"_s,     u"Xx13:1"_s};
    for (const QString& text : texts) {
        QString problem;
        const auto factory = labelledFactory(text, &problem);
        out << text << ": ";
        if (factory.isNull()) {
            out << problem << '\n';
            continue;
        }
        const auto peptide = factory->constructLinearPeptideComplex(u"DRVYIHPF"_s);
        out << QString::number(peptide->monoMass(), 'f', 4) << " Da monoisotopic, "
            << QString::number(peptide->averageMass(), 'f', 3) << " Da average\n";
    }
}

void isotopeTextsProved(QTextStream& out)
{
    const auto isRight = [](const QString& text) {
        QString problem;
        return !labelledFactory(text, &problem).isNull();
    };
    for (const QString& text : goodTexts)
        out << (isRight(text) ? "ok " : "FAILED ") << text << '\n';
    for (const QString& text : wrongTexts)
        out << (isRight(text) ? "FAILED " : "ok, refused ") << text << '\n';
}

void isotopeTextsUnchecked(QTextStream& out)
{
    // Written like this, nobody is told: the shares of nitrogen add up to 1.01.
    const auto wrong = ChemicalFactory::construct(u"N15:98.7 N14:1.3"_s);
    const auto right = ChemicalFactory::construct(u"N15:0.987 N14:0.013"_s);
    for (const auto& factory : {wrong, right}) {
        const auto peptide = factory->constructLinearPeptideComplex(u"DRVYIHPF"_s);
        out << QString::number(peptide->averageMass(), 'f', 3) << " Da average\n";
    }
    try {
        ChemicalFactory::construct(u"N15:99.5 N14:0.5"_s); // a share of 1.005
    } catch (const std::invalid_argument& error) {
        out << error.what() << '\n';
    }
}
