#pragma once

#include "chemistry/Chemistry.h"
#include <FragmentIons.h>

#include <QString>
#include <QStringView>

#include <CLI/CLI.hpp>
#include <span>
#include <string>
#include <vector>

namespace tool {

/// The options that say which fragment ions are wanted.
class IonChoice
{
public:
    /// Adds the options to a command; this object outlives it.
    void addTo(CLI::App* command);

    /// What was asked for, of a molecule that is made of these isotopes. Throws UsageError where it
    /// makes no sense.
    ions::IonOptions options(const Chemistry& chemistry,
                             std::span<const ions::Atom> isotopes = {}) const;

private:
    std::string m_series = "b,y";
    std::string m_charges = "1";
    std::string m_losses;
    std::string m_labels = "mzpaf";
    int m_maxLosses = 1;
};

/// Whole numbers and ranges separated by commas, such as "1-3,5" or "-1,-2". Throws UsageError that
/// names the option.
std::vector<int> readList(const std::string& text, const QString& option);

/// A loss as its cell has it: that of "-H2O" is "H2O".
QString lossCell(const QString& loss);

} // namespace tool
