#include "commands/IonChoice.h"
#include "program/OptionChecks.h"
#include "program/Program.h"
#include "readers/Fasta.h"
#include "readers/Mgf.h"
#include "search/Search.h"
#include "support/OptionText.h"
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <thread>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Options
{
    std::string database;
    std::string spectra;
    std::string protease = "Trypsin";
    int missed = 2;
    int min = 7;
    int max = 50;
    std::string tolerance = "10ppm";
    std::string fragmentTolerance = "20ppm";
    std::vector<std::string> fixed;
    std::vector<std::string> variable;
    int mostVariable = 3;
    std::string isotopeErrors = "0";
    std::string charges = "2,3";
    int threads = 0;
    bool hasNoDecoys = false;
};

ions::Tolerance readTolerance(const QString& option, const std::string& text)
{
    return readOption(option, text,
                      [](const QString& tolerance) { return ions::Tolerance::read(tolerance); });
}

/// Reads rules, several of which may share an option, separated by commas.
std::vector<Rule> readRules(const QString& option, const std::vector<std::string>& texts,
                            const Chemistry& chemistry)
{
    std::vector<Rule> rules;
    for (const QString& text : fromShell(texts).join(u',').split(u',', Qt::SkipEmptyParts)) {
        rules.push_back(readOption(
            option, text, [&](const QString& rule) { return Rule::read(rule, chemistry); }));
    }
    return rules;
}

Rules readRules(const Options& options, const Chemistry& chemistry)
{
    Rules rules{readRules(u"--fixed"_s, options.fixed, chemistry),
                readRules(u"--variable"_s, options.variable, chemistry), options.mostVariable};
    if (rules.variable.size() > mostVariableRules)
        throw UsageError{u"--variable: expected at most 32 rules"_s};
    return rules;
}

int threadCount(int wanted)
{
    return wanted > 0 ? wanted : std::max(1, int(std::thread::hardware_concurrency()));
}

SearchSettings readSettings(const Options& options, const Chemistry& chemistry)
{
    checkLengths(options.min, options.max);
    const auto protease = readOption(u"--protease"_s, options.protease, [](const QString& name) {
        return ions::Protease::named(name);
    });
    SearchSettings settings{.protease = protease,
                            .digest = {options.missed, options.min, options.max},
                            .tolerance = readTolerance(u"--tolerance"_s, options.tolerance),
                            .fragmentTolerance =
                                readTolerance(u"--fragment-tolerance"_s, options.fragmentTolerance),
                            .rules = readRules(options, chemistry),
                            .charges = readList(options.charges, u"--charges"_s),
                            .isotopeErrors = readList(options.isotopeErrors, u"--isotope-errors"_s),
                            .threads = threadCount(options.threads),
                            .hasDecoys = !options.hasNoDecoys};
    if (*std::min_element(settings.charges.begin(), settings.charges.end()) < 1)
        throw UsageError{u"--charges: expected charges above 0"_s};
    return settings;
}

/// Fragments are those of positive ions.
void refuseAnions(std::vector<Spectrum>* spectra, Complaints* complaints)
{
    std::erase_if(*spectra, [&](const Spectrum& spectrum) {
        const bool isAnion = std::any_of(spectrum.charges.begin(), spectrum.charges.end(),
                                         [](int charge) { return charge < 0; });
        if (isAnion)
            complaints->report(spectrum.place, {u"expected a positive charge"_s, 0});
        return isAnion;
    });
}

/// Tells how far the search is, where somebody looks at it.
void showProgress(double share)
{
    static const bool isTerminal = isatty(STDERR_FILENO) != 0;
    if (isTerminal)
        std::fprintf(stderr, share < 1.0 ? "\r%3.0f %% searched" : "\r\033[K", 100.0 * share);
}

void addRow(const Spectrum& spectrum, const std::optional<Finding>& finding, Table* table)
{
    constexpr auto none = std::nullopt;
    if (!finding) {
        table->add({spectrum.title, none, none, none, none, none, none, none, none});
        return;
    }
    const Candidate& best = finding->best;
    table->add({spectrum.title, finding->peptidoform, best.charge, best.score, best.matched,
                int(best.isDecoy), finding->q, finding->proteins.join(u';'), best.ppm});
}

void run(const Options& options, Task* task)
{
    const SearchSettings settings = readSettings(options, task->chemistry);
    const auto database = readFastaFile(fromShell(options.database), &task->complaints);
    auto spectra = readMgfFile(fromShell(options.spectra), &task->complaints);
    refuseAnions(&spectra, &task->complaints);
    const auto findings =
        search(database, spectra, settings, task->chemistry.residues, showProgress);
    Table table({u"spectrum"_s, u"peptidoform"_s, u"charge"_s, u"score"_s, u"matched"_s, u"decoy"_s,
                 u"q"_s, u"protein"_s, u"ppm"_s},
                task->form);
    for (std::size_t i = 0; i < spectra.size(); ++i)
        addRow(spectra[i], findings[i], &table);
}

void addLimits(CLI::App* command, Options* options)
{
    command->add_option("--protease", options->protease, "What cuts, by its PSI-MS name")
        ->capture_default_str();
    command->add_option("--missed", options->missed, "Cuts that may be missed")
        ->capture_default_str()
        ->check(wholeNumber(0));
    command->add_option("--min", options->min, "The least length of a peptide")
        ->capture_default_str()
        ->check(wholeNumber(1));
    command->add_option("--max", options->max, "The largest length of a peptide")
        ->capture_default_str()
        ->check(wholeNumber(1));
    command->add_option("--tolerance", options->tolerance, "Of precursors")->capture_default_str();
    command->add_option("--fragment-tolerance", options->fragmentTolerance, "Of fragments")
        ->capture_default_str();
    command
        ->add_option("--isotope-errors", options->isotopeErrors,
                     "Neutrons by which a precursor may be too heavy: 0-1")
        ->capture_default_str();
    command->add_option("--charges", options->charges, "Of spectra that state none")
        ->capture_default_str();
}

void addRules(CLI::App* command, Options* options)
{
    command
        ->add_option("--fixed", options->fixed,
                     "NAME@SITES, NAME@SITES^POSITION or NAME@POSITION: Carbamidomethyl@C")
        ->expected(1)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command
        ->add_option("--variable", options->variable,
                     "Likewise: Oxidation@M, Acetyl@Protein N-term, Gln->pyro-Glu@Q^N-term")
        ->expected(1)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command
        ->add_option("--max-variable", options->mostVariable,
                     "Variable modifications that a peptide bears at most")
        ->capture_default_str()
        ->check(wholeNumber(0));
}

} // namespace

void addSearchCommand(Program* program)
{
    const auto options = std::make_shared<Options>();
    CLI::App* command = program->addCommand(
        "search", "Find the peptides of fragment spectra in a database",
        "printf '>P1\\nMEGVNDNEEGFFSARGHR\\n' > zel.fasta; "
        "printf 'BEGIN IONS\\nPEPMASS=785.8421\\nCHARGE=2+\\n175.119 21\\n246.156 8\\n333.188 5\\n"
        "480.256 9\\nEND IONS\\n' > zel.mgf; zel search --database zel.fasta --spectra zel.mgf",
        [options](Task* task) { run(*options, task); });
    command->add_option("--database", options->database, "A FASTA file")->required();
    command->add_option("--spectra", options->spectra, "An MGF file")->required();
    addLimits(command, options.get());
    addRules(command, options.get());
    command->add_option("--threads", options->threads, "Threads; else one for each core")
        ->check(wholeNumber(1, 1024));
    command->add_flag("--no-decoys", options->hasNoDecoys, "Search no reversed peptides: no q");
}

} // namespace tool
