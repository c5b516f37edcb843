#include "chemistry/Substance.h"
#include "program/Program.h"
#include "readers/InputFile.h"
#include <IsotopePattern.h>

#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Options
{
    std::vector<std::string> texts;
    Notation notation = Notation::ProForma;
};

/// The mass of the likeliest isotopologue; NaN where the atoms are not known or more are lost than
/// are there.
double mostAbundant(const Substance& substance, const Chemistry& chemistry)
{
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    if (!substance.composition)
        return none;
    const std::array groups{ions::IsotopeGroup{*substance.composition, chemistry.atoms()}};
    // Where formulas on the molecule bear charges, it lacks their electrons.
    const double electrons = substance.ownCharge * ions::electronMass;
    const auto mass = ions::mostAbundantMass(groups);
    return mass ? *mass - electrons : none;
}

void addRow(const QString& text, const Substance& substance, const Chemistry& chemistry,
            Table* table)
{
    table->add({text, substance.composition ? substance.composition->toString() : QString(),
                substance.masses.monoisotopic, substance.masses.average,
                mostAbundant(substance, chemistry), substance.mz});
}

void run(const Options& options, Task* task)
{
    Table table(
        {u"text"_s, u"composition"_s, u"monoisotopic"_s, u"average"_s, u"most_abundant"_s, u"mz"_s},
        task->form);
    forEachText(fromShell(options.texts), &task->complaints,
                [&](const Place& place, const QString& text) {
                    const auto substances = readSubstances(text, options.notation, task->chemistry);
                    if (!substances) {
                        task->complaints.report(place, substances.error());
                        return;
                    }
                    for (const Substance& substance : *substances)
                        addRow(text, substance, task->chemistry, &table);
                });
}

} // namespace

void addMassCommand(Program* program)
{
    const auto options = std::make_shared<Options>();
    CLI::App* command = program->addCommand("mass", "Weigh texts and give their compositions",
                                            "zel mass 'EM[Oxidation]EVEES[Phospho]PEK/2' DRVYIHPF",
                                            [options](Task* task) { run(*options, task); });
    addTexts(command, &options->texts);
    addNotation(command, &options->notation);
}

} // namespace tool
