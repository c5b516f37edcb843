#pragma once

#include "FragmentIons.h"

#include <QStringList>

/// \file
/// The ions that several programs ask for.

/// All series of oligonucleotides.
inline ions::IonOptions nineSeries()
{
    using ions::Series;
    ions::IonOptions options;
    options.series = {Series::A, Series::B, Series::C, Series::D, Series::AMinusB,
                      Series::W, Series::X, Series::Y, Series::Z};
    return options;
}

/// b and y ions with charges 1 to 3, with and without one of these losses.
inline ions::IonOptions threeCharges(const QStringList& losses, const ions::AtomMasses& atoms)
{
    ions::IonOptions options;
    options.charges = {1, 2, 3};
    for (const QString& loss : losses)
        options.losses.push_back(ions::LossRule::read(loss, atoms).value());
    return options;
}
