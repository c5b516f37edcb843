#pragma once

#include <ChemicalFormula.h>

#include <QMap>
#include <QString>

#include <initializer_list>
#include <utility>

/// A formula with exactly these entries.
inline chem::ChemicalFormula formulaWith(std::initializer_list<std::pair<QString, double>> entries)
{
    QMap<QString, double> counts;
    for (const auto& [symbol, count] : entries)
        counts.insert(symbol, count);
    return chem::ChemicalFormula(counts);
}
