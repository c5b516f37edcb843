#include "program/Program.h"
#include "readers/InputFile.h"
#include "support/Number.h"
#include "support/OptionText.h"
#include <FormulaSearch.h>
#include <Ionization.h>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

/// More rows than anybody reads.
constexpr qsizetype mostFormulas = 1'000'000;

struct Options
{
    std::string mass;
    std::string ion;
    std::string elements = "CHNOS";
    std::string limit;
    std::string tolerance = "10ppm";
};

/// What is looked for: a mass, or the m/z of an ion.
struct Measured
{
    std::optional<ions::Ionization> ion;
    double value = 0.0;
    ions::Tolerance tolerance;

    double neutralMass() const { return ion ? ion->neutralMass(value) : value; }
    /// What a formula of this mass would be measured as.
    double calculated(double mass) const { return ion ? ion->mz(mass) : mass; }
    bool accepts(double mass) const { return tolerance.accepts(value, calculated(mass)); }
    double ppm(double mass) const { return ions::ppmError(value, calculated(mass)); }

    /// Daltons of neutral mass that surely hold all that is accepted.
    ions::Tolerance wide() const
    {
        const double daltonsPerMz =
            neutralMass() > 0.0 && ion ? ion->neutralMass(1.0) - ion->neutralMass(0.0) : 1.0;
        return ions::daltons(1.01 * daltonsPerMz * tolerance.around(value) + 1e-9);
    }
};

ions::Composition readAtoms(const QString& option, const std::string& text)
{
    if (text.empty())
        return {};
    return readOption(option, text,
                      [](const QString& atoms) { return ions::Composition::read(atoms); });
}

/// The least double bonds and rings: below 0 a formula has more hydrogens and halogens than
/// valences allow. What bears its charge by itself, such as tetramethylammonium as [M]+, lacks a
/// bond for each half of it.
double lowestUnsaturation(const std::optional<ions::Ionization>& ion)
{
    return ion && ion->carriers().isEmpty() ? -0.5 * std::abs(ion->charge()) : 0.0;
}

ions::FormulaLimits limitsOf(const Options& options, const Measured& measured)
{
    const ions::Composition limit = readAtoms(u"--limit"_s, options.limit);
    ions::FormulaLimits limits;
    limits.formulas = mostFormulas;
    limits.lowestUnsaturation = lowestUnsaturation(measured.ion);
    const ions::Composition elements = readAtoms(u"--elements"_s, options.elements);
    for (const ions::Composition::Term& term : elements.terms()) {
        ions::AtomLimits atom{term.atom};
        if (limit.count(term.atom) != 0)
            atom.highest = limit.count(term.atom);
        limits.atoms.push_back(atom);
    }
    if (limits.atoms.empty())
        throw UsageError{u"--elements: expected an element"_s};
    const bool areKnown = std::all_of(
        limit.terms().begin(), limit.terms().end(), [&](const ions::Composition::Term& term) {
            return term.count > 0 &&
                   std::any_of(limits.atoms.begin(), limits.atoms.end(),
                               [&](const auto& atom) { return atom.atom == term.atom; });
        });
    if (!areKnown)
        throw UsageError{u"--limit: expected counts of elements that --elements names"_s};
    return limits;
}

Measured readMeasured(const Options& options)
{
    Measured measured;
    if (!options.ion.empty()) {
        measured.ion = readOption(u"--ion"_s, options.ion,
                                  [](const QString& ion) { return ions::Ionization::read(ion); });
    }
    measured.tolerance = readOption(u"--tolerance"_s, options.tolerance, [](const QString& text) {
        return ions::Tolerance::read(text);
    });
    return measured;
}

ions::Parsed<std::vector<ions::FormulaMatch>>
search(const Measured& measured, const ions::FormulaLimits& limits, const ions::AtomMasses& atoms)
{
    auto found = ions::findFormulas(measured.neutralMass(), measured.wide(), limits, atoms);
    if (!found)
        return ions::Error{found.error().message, 0};
    if (!found->isComplete) {
        return ions::Error{
            u"expected less to try: give a smaller --tolerance, or fewer --elements, "
            u"or --limit them"_s,
            0};
    }
    auto matches = std::move(found).value().matches;
    std::erase_if(matches, [&](const auto& match) { return !measured.accepts(match.mass); });
    for (ions::FormulaMatch& match : matches)
        match.ppm = measured.ppm(match.mass);
    std::stable_sort(matches.begin(), matches.end(), [](const auto& left, const auto& right) {
        return std::abs(left.ppm) < std::abs(right.ppm);
    });
    return matches;
}

void run(const Options& options, Task* task)
{
    Measured measured = readMeasured(options);
    const ions::FormulaLimits limits = limitsOf(options, measured);
    Table table({u"composition"_s, u"monoisotopic"_s, u"ppm"_s}, task->form);
    const auto text = onlyText(fromShell(options.mass), &task->complaints);
    if (!text)
        return;
    const auto mass = readNumber(text->second.toUtf8());
    if (!mass) {
        task->complaints.report(text->first, {u"expected a mass in daltons"_s, 0});
        return;
    }
    measured.value = *mass;
    const auto matches = search(measured, limits, task->chemistry.atoms());
    if (!matches) {
        task->complaints.report(text->first, matches.error());
        return;
    }
    for (const ions::FormulaMatch& match : *matches)
        table.add({match.composition.toString(), match.mass, match.ppm});
}

} // namespace

void addFormulasCommand(Program* program)
{
    const auto options = std::make_shared<Options>();
    CLI::App* command =
        program->addCommand("formulas", "Find the compositions of a mass",
                            "zel formulas 195.0877 --ion '[M+H]+' --elements CHNO --tolerance 5ppm",
                            [options](Task* task) { run(*options, task); });
    command->add_option("MASS", options->mass, "A neutral monoisotopic mass; with --ion the m/z")
        ->required();
    command->add_option("--ion", options->ion, "What the mass was measured as, such as [M+H]+");
    command->add_option("--elements", options->elements, "Elements that a formula may hold")
        ->capture_default_str();
    command->add_option("--limit", options->limit, "The most of some of them, such as C40N5");
    command->add_option("--tolerance", options->tolerance, "How far a mass may lie away")
        ->capture_default_str();
}

} // namespace tool
