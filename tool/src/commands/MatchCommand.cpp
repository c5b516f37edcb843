#include "commands/IonChoice.h"
#include "commands/TextIons.h"
#include "readers/PeakFile.h"
#include "support/OptionText.h"
#include <PeakMatch.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Options
{
    std::string text;
    std::string peaks;
    std::string spectrum;
    std::string tolerance = "10ppm";
    Notation notation = Notation::ProForma;
    IonChoice choice;
};

/// The only spectrum of a file, or the one whose title was given.
std::optional<Spectrum> readSpectrum(const Options& options, Complaints* complaints)
{
    const QString file = fromShell(options.peaks);
    std::vector<Spectrum> spectra = readPeakFile(file, complaints);
    const QString title = fromShell(options.spectrum);
    if (!title.isEmpty())
        std::erase_if(spectra, [&](const Spectrum& spectrum) { return spectrum.title != title; });
    if (spectra.size() == 1)
        return std::move(spectra.front());
    if (spectra.size() > 1)
        complaints->report(spectra[1].place, {u"expected one spectrum; --spectrum names one"_s, 0});
    else if (!title.isEmpty())
        complaints->report({file}, {u"expected a spectrum with the title "_s + title, 0});
    return std::nullopt;
}

/// One row for each ion with a peak, the nearest.
void addRows(const TextIons& listed, const Peaks& peaks, const ions::Tolerance& tolerance,
             Table* table)
{
    const auto& [backbone, fragments] = listed;
    ions::PeakMatches matches;
    ions::matchPeaks(peaks.mz, peaks.intensities, fragments.mz(), tolerance,
                     ions::PeakChoice::Nearest, &matches);
    for (std::size_t i = 0; i < matches.size(); ++i) {
        const double mz = fragments.mz()[matches.ions[i]];
        const double peak = peaks.mz[matches.peaks[i]];
        table->add({fragments.label(backbone, qsizetype(matches.ions[i])), mz, peak,
                    peaks.intensities[matches.peaks[i]], ions::ppmError(peak, mz)});
    }
}

void run(const Options& options, Task* task)
{
    const ions::Tolerance tolerance =
        readOption(u"--tolerance"_s, options.tolerance,
                   [](const QString& text) { return ions::Tolerance::read(text); });
    options.choice.options(task->chemistry); // wrong usage is told before anything is written
    Table table({u"label"_s, u"mz"_s, u"peak"_s, u"intensity"_s, u"ppm"_s}, task->form);
    const auto listed = readTextIons(options.text, options.notation, options.choice, task);
    const auto spectrum = readSpectrum(options, &task->complaints);
    if (listed && spectrum)
        addRows(*listed, spectrum->peaks, tolerance, &table);
}

} // namespace

void addMatchCommand(Program* program)
{
    const auto options = std::make_shared<Options>();
    CLI::App* command = program->addCommand(
        "match", "Find the fragment ions of a text among peaks",
        "printf '175.1192 2100\\n246.1560 830\\n333.1875 510\\n' | zel match EGVNDNEEGFFSAR -",
        [options](Task* task) { run(*options, task); });
    addText(command, &options->text);
    command
        ->add_option("PEAKS", options->peaks,
                     "A file of two columns, m/z and intensity, or MGF; - reads standard input")
        ->required();
    command->add_option("--spectrum", options->spectrum, "The title of the spectrum, of several");
    command->add_option("--tolerance", options->tolerance, "10ppm or 0.02Da")
        ->capture_default_str();
    addNotation(command, &options->notation, true);
    options->choice.addTo(command);
}

} // namespace tool
