#pragma once

#include "SmallMolecules.h"

#include <rapidcheck/gtest.h>

/// \file
/// Random groups and proteins for the laws of all molecules. The masses are multiples of powers of
/// two, so that sums and differences are exact.

namespace randomProteins {

using smallMolecules::Position;

/// Few different values, so that equal ones meet.
inline chem::MoleculeEntity anyGroup()
{
    const QString formulaText = *rc::gen::element(QStringLiteral("C"), QStringLiteral("CH2"),
                                                  QStringLiteral("H2"), QStringLiteral("O"));
    const double mass = *rc::gen::inRange(1, 5) * 0.5;
    if (*rc::gen::arbitrary<bool>())
        return smallMolecules::group(formulaText, mass);
    return smallMolecules::namedGroup(QStringLiteral("name"), QStringLiteral("code"), formulaText,
                                      mass);
}

inline chem::Modification anyModification()
{
    QList<Position> places;
    for (int i = *rc::gen::inRange(0, 3); i > 0; --i)
        places.append({*rc::gen::inRange(0, 2), *rc::gen::inRange(0, 2)});
    return chem::Modification(anyGroup(), places);
}

inline chem::MoleculeEntity anyProtein()
{
    QList<chem::Chain> chains;
    for (int i = *rc::gen::inRange(1, 4); i > 0; --i) {
        QString letters;
        for (int length = *rc::gen::inRange(0, 9); length > 0; --length)
            letters += QChar(*rc::gen::inRange<char16_t>(u'A', u'Z'));
        chains.append(smallMolecules::letterChain(letters));
    }
    return smallMolecules::moleculeOf(chains);
}

} // namespace randomProteins
