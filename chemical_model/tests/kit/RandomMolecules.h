#pragma once

#include "NaturalFactory.h"

#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

/// \file
/// Random texts for the laws of all molecules, and what such a law says of two molecules.

namespace randomMolecules {

/// A text of units such as letters, at least `fewest` and at most `most` of them.
inline QString anyTextOf(const QStringList& units, int fewest, int most)
{
    const int count = *rc::gen::inRange(fewest, most + 1);
    QString text;
    for (const int index : *rc::gen::container<std::vector<int>>(
             static_cast<std::size_t>(count), rc::gen::inRange<int>(0, int(units.size()))))
        text += units[index];
    return text;
}

inline QString anyText(const QString& letters, int fewest = 0, int most = 40)
{
    return anyTextOf(letters.split(QString(), Qt::SkipEmptyParts), fewest, most);
}

inline QString anyFormulaText()
{
    const QStringList symbols = QStringLiteral("C H N O P S Na Cl Fe Se Br Sn").split(u' ');
    QString text;
    for (int terms = *rc::gen::inRange(1, 7); terms > 0; --terms)
        text += symbols[*rc::gen::inRange(0, 12)] + QString::number(*rc::gen::inRange(0, 400));
    return text;
}

/// A formula of some elements, each counted from `lowest` up to but not including `end`.
inline chem::ChemicalFormula anyFormula(int lowest, int end)
{
    QMap<QString, double> counts;
    for (const QString& symbol : QStringLiteral("C H N O S Na Cl Hex").split(u' ')) {
        if (*rc::gen::arbitrary<bool>())
            counts.insert(symbol, *rc::gen::inRange(lowest, end));
    }
    return chem::ChemicalFormula(counts);
}

inline chem::Molecule molecule(const QString& formula)
{
    return naturalFactory().constructMolecule(formula);
}

inline bool isNear(double a, double b, double relative = 1e-11)
{
    return std::abs(a - b) <= relative * std::max({1.0, std::abs(a), std::abs(b)});
}

/// Equal counts, where an element that has cancelled out counts as absent.
inline bool isSameComposition(const chem::ChemicalFormula& a, const chem::ChemicalFormula& b)
{
    const QMap<QString, double> difference = (a - b).elementCountMap();
    return std::all_of(difference.cbegin(), difference.cend(),
                       [](double count) { return count == 0.0; });
}

/// The same composition, and masses that differ by no more than the rounding of their sums, as
/// large as terms of `scale` make it.
inline bool isAlike(const chem::Molecule& a, const chem::Molecule& b, double scale = 0.0)
{
    const double most =
        1e-11 * std::max({1.0, scale, std::abs(a.averageMass()), std::abs(b.averageMass())});
    return isSameComposition(a.formula(), b.formula()) &&
           std::abs(a.monoMass() - b.monoMass()) <= most &&
           std::abs(a.averageMass() - b.averageMass()) <= most;
}

} // namespace randomMolecules
