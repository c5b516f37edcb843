#include "ChemicalFactory.h"

#include <IsoSpec++/isoSpec++.h>

#include <IsoSpec++/element_tables.h>

using namespace Qt::StringLiterals;

namespace chem {

/// IsoSpec++'s own table, and behind it one more electron. Its symbol then has two rows of
/// abundance 1, both of which go to IsoSpec++, so an electron's average mass is the sum of both.
void ChemicalFactory::loadIsotopeTable()
{
    isotopes.reserve(ISOSPEC_NUMBER_OF_ISOTOPIC_ENTRIES + 1);
    for (std::size_t i = 0; i < ISOSPEC_NUMBER_OF_ISOTOPIC_ENTRIES; ++i) {
        isotopes.append({IsoSpec::elem_table_atomicNo[i], IsoSpec::elem_table_extraNeutrons[i],
                         QString::fromLatin1(IsoSpec::elem_table_element[i]),
                         QString::fromLatin1(IsoSpec::elem_table_symbol[i]),
                         IsoSpec::elem_table_mass[i], IsoSpec::elem_table_probability[i]});
    }
    isotopes.append({-1, 0, u"Electron"_s, u"E"_s, 0.00054858, 1.0});
}

void ChemicalFactory::indexIsotope(qsizetype position)
{
    const IsotopeRecord& record = std::as_const(isotopes)[position];
    isotopesBySymbol[record.symbol].append(position);
    isotopesByAtomicNumber[record.atomicNumber].append(position);
    isotopesByName[record.name].append(position);
}

void ChemicalFactory::indexIsotopes()
{
    isotopesBySymbol.clear();
    isotopesByAtomicNumber.clear();
    isotopesByName.clear();
    for (qsizetype position = 0; position < isotopes.size(); ++position)
        indexIsotope(position);
}

} // namespace chem
