#pragma once

#include <ChemicalFactory.h>

/// \file
/// Factories that several families ask.

/// Isotope configurations in percent and in fractions, of one element and of several, with isotopes
/// that the table knows and others.
const QList<QString>& labelledConfigurations();

/// The factory with natural isotopes and one for each of the configurations.
const QList<QSharedPointer<const chem::ChemicalFactory>>& factories();
