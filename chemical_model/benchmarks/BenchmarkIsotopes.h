#pragma once

#include <ChemicalFormula.h>

#include <QList>

#include <IsoSpec++/isoSpec++.h>

#include <IsoSpec++/element_tables.h>

/// A formula as the arrays that IsoSpec++ takes, natural abundances, for the floors.
struct IsoArrays
{
    explicit IsoArrays(const chem::ChemicalFormula& formula)
    {
        const auto& counts = formula.elementCountMap();
        for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
            isotopeNumbers.append(appendIsotopes(entry.key()));
            atomCounts.append(static_cast<int>(entry.value()));
        }
    }

    IsoSpec::Iso iso() const
    {
        return IsoSpec::Iso(static_cast<int>(atomCounts.size()), isotopeNumbers.constData(),
                            atomCounts.constData(), masses.constData(), abundances.constData());
    }

    QList<int> isotopeNumbers;
    QList<int> atomCounts;
    QList<double> masses;
    QList<double> abundances;

private:
    int appendIsotopes(const QString& symbol)
    {
        int isotopes = 0;
        for (std::size_t i = 0; i < ISOSPEC_NUMBER_OF_ISOTOPIC_ENTRIES; ++i) {
            if (symbol.toLatin1() != IsoSpec::elem_table_symbol[i])
                continue;
            masses.append(IsoSpec::elem_table_mass[i]);
            abundances.append(IsoSpec::elem_table_probability[i]);
            ++isotopes;
        }
        return isotopes;
    }
};
