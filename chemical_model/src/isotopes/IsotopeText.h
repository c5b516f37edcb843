#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace chem {

/// One entry of an isotope text, such as "C13:0.99".
struct IsotopeEntry
{
    QString symbol;
    int massNumber = 0;
    double abundance = 0.0; ///< As written: a fraction or a percentage, see normalize().
};

/// Reads an isotope text, such as "C13:0.99 C12:0.01": entries separated by white space. Nothing if
/// one of them names no isotope or gives no abundance; a blank at either end makes an empty entry.
std::optional<QList<IsotopeEntry>> readIsotopeText(const QString& text);

} // namespace chem
