#include "chemistry/Substance.h"
#include "program/OptionChecks.h"
#include "program/Program.h"
#include "readers/InputFile.h"
#include "support/Number.h"
#include <IsotopePattern.h>

#include <array>
#include <cmath>
#include <span>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Options
{
    std::string text;
    Notation notation = Notation::ProForma;
    int charge = 0;
    double coverage = ions::usualCoverage;
    bool isFine = false;
};

/// The atoms of a molecule and of what charges it.
struct ChargedAtoms
{
    std::array<ions::IsotopeGroup, 2> groups;
    int charge = 0;

    /// Masses lack an electron for each charge.
    double mz(double mass) const
    {
        return charge == 0 ? mass : (mass - charge * ions::electronMass) / std::abs(charge);
    }
};

/// Puts an ion together: hydrogens of nature for the charge that was asked for, else the carriers
/// that the text states. Hydrogens that go are those of the molecule.
ions::Parsed<ChargedAtoms> charged(const Substance& substance, int charge,
                                   const Chemistry& chemistry)
{
    if (!substance.composition)
        return substance.composition.error();
    ions::Composition molecule = *substance.composition;
    ions::Composition carriers = substance.carriers;
    if (charge != 0) {
        const int protons = charge - substance.ownCharge;
        carriers = ions::Composition(ions::Atom{1}, protons);
    }
    ions::Composition added;
    bool fits = true;
    for (const ions::Composition::Term& term : carriers.terms())
        fits = (term.count < 0 ? molecule : added).add(term.atom, term.count) && fits;
    if (!fits)
        return ions::Error{u"expected fewer atoms"_s, 0};
    return ChargedAtoms{{ions::IsotopeGroup{molecule, chemistry.atoms()},
                         ions::IsotopeGroup{added, chemistry.natural}},
                        charge != 0 ? charge : substance.charge};
}

/// Masses and shares, one of each a row.
struct Envelope
{
    std::vector<double> masses;
    std::vector<double> shares;
};

ions::Parsed<Envelope> nominal(const ChargedAtoms& atoms, double coverage)
{
    const auto pattern = ions::IsotopePattern::of(atoms.groups, coverage);
    if (!pattern)
        return pattern.error();
    return Envelope{pattern->centroids(), pattern->shares()};
}

ions::Parsed<Envelope> fine(const ChargedAtoms& atoms, double coverage)
{
    const auto structure = ions::fineStructure(atoms.groups, coverage);
    if (!structure)
        return structure.error();
    if (!structure->isComplete)
        return ions::Error{u"this takes more than 1000000 isotopologues: ask for less coverage"_s};
    return Envelope{structure->masses, structure->shares};
}

ions::Parsed<ChargedAtoms> readAtoms(const QString& text, const Options& options,
                                     const Chemistry& chemistry)
{
    const auto substance = readSubstance(text, options.notation, chemistry);
    return substance ? charged(*substance, options.charge, chemistry) : substance.error();
}

void run(const Options& options, Task* task)
{
    Table table({u"mz"_s, u"share"_s}, task->form);
    const auto text = onlyText(fromShell(options.text), &task->complaints);
    if (!text)
        return;
    const auto atoms = readAtoms(text->second, options, task->chemistry);
    if (!atoms) {
        task->complaints.report(text->first, atoms.error());
        return;
    }
    const auto envelope =
        options.isFine ? fine(*atoms, options.coverage) : nominal(*atoms, options.coverage);
    if (!envelope) {
        task->complaints.report(text->first, {envelope.error().message, 0});
        return;
    }
    for (std::size_t i = 0; i < envelope->masses.size(); ++i)
        table.add({atoms->mz(envelope->masses[i]), envelope->shares[i]});
}

} // namespace

void addEnvelopeCommand(Program* program)
{
    const auto options = std::make_shared<Options>();
    CLI::App* command = program->addCommand("envelope", "Compute the isotope pattern of a text",
                                            "zel envelope DRVYIHPF --charge 2 --coverage 0.999",
                                            [options](Task* task) { run(*options, task); });
    addText(command, &options->text);
    addNotation(command, &options->notation);
    command
        ->add_option("--charge", options->charge,
                     "The charge, by natural hydrogens; else that of the text, else the masses are "
                     "neutral")
        ->check(wholeNumber(-10000, 10000));
    command->add_option("--coverage", options->coverage, "The share of the molecules to cover")
        ->capture_default_str()
        ->check([](const std::string& text) {
            const auto value = readNumber(text);
            return value && *value > 0.0 && *value <= ions::largestCoverage
                       ? std::string()
                       : std::string("expected a share above 0 and at most 1 - 1e-9");
        });
    command->add_flag("--fine", options->isFine, "List isotopologues one by one");
}

} // namespace tool
