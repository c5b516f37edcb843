#include "search/Search.h"

#include "search/CandidateText.h"
#include "search/PrecursorIndex.h"
#include "search/SearchWorker.h"

#include <QHash>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>
#include <mutex>
#include <numeric>
#include <thread>

namespace tool {

namespace {

/// What a neutron more weighs in a peptide: carbon-13 less carbon-12.
constexpr double neutronMass = 1.0033548378;
constexpr double basePeak = 100.0;

std::vector<Precursor> precursorsOf(const std::vector<Spectrum>& spectra,
                                    const SearchSettings& settings, double proton)
{
    std::vector<Precursor> precursors;
    for (std::size_t i = 0; i < spectra.size(); ++i) {
        for (const int charge :
             spectra[i].charges.empty() ? settings.charges : spectra[i].charges) {
            const double mass = charge * (spectra[i].precursor - proton);
            for (const int neutrons : settings.isotopeErrors)
                precursors.push_back({mass - neutrons * neutronMass, i, charge});
        }
    }
    return precursors;
}

/// Peaks whose highest is 100.
std::vector<Peaks> scaledPeaks(const std::vector<Spectrum>& spectra)
{
    std::vector<Peaks> scaled;
    for (const Spectrum& spectrum : spectra) {
        Peaks& peaks = scaled.emplace_back(spectrum.peaks);
        const auto highest = std::max_element(peaks.intensities.begin(), peaks.intensities.end());
        const double height = highest == peaks.intensities.end() ? 0.0 : *highest;
        for (double& intensity : peaks.intensities)
            intensity = height > 0.0 ? intensity / height * basePeak : 0.0;
    }
    return scaled;
}

/// Lets each thread take sequences until there are none, then unites what they found.
Bests searchAll(const std::vector<Sequence>& database, const SearchTask& task,
                const std::function<void(double)>& progress)
{
    constexpr std::size_t chunk = 16;
    std::atomic<std::size_t> next = 0;
    std::mutex mutex;
    Bests bests(task.peaks.size());
    const auto work = [&] {
        SearchWorker worker(&task);
        for (std::size_t first; (first = next.fetch_add(chunk)) < database.size();) {
            const std::size_t last = std::min(first + chunk, database.size());
            for (std::size_t i = first; i < last; ++i)
                worker.search(database[i].letters);
            const std::lock_guard lock(mutex);
            progress(double(last) / double(database.size()));
        }
        const std::lock_guard lock(mutex);
        worker.uniteInto(&bests);
    };
    std::vector<std::thread> threads;
    for (int i = 1; i < task.settings.threads; ++i)
        threads.emplace_back(work);
    work();
    for (std::thread& thread : threads)
        thread.join();
    return bests;
}

/// The names of the sequences that hold each peptide that was found.
QHash<QString, QStringList> proteinsOf(const Bests& bests, const std::vector<Sequence>& database,
                                       const SearchTask& task)
{
    QHash<QString, QStringList> proteins;
    for (const auto& best : bests) {
        if (best)
            proteins.insert(targetLetters(*best, task.isCutBefore), {});
    }
    PeptideLister lister(&task);
    for (const Sequence& sequence : database) {
        lister.list(sequence.letters, [&](const PeptideContext& peptide) {
            const auto found = proteins.find(peptide.letters.toString());
            if (found != proteins.end() && !found->contains(sequence.name))
                found->append(sequence.name);
        });
    }
    return proteins;
}

void addQValues(std::vector<std::optional<Finding>>* findings, bool hasDecoys)
{
    std::vector<double> scores;
    std::vector<bool> areDecoys;
    for (const auto& finding : *findings) {
        if (finding) {
            scores.push_back(finding->best.score);
            areDecoys.push_back(finding->best.isDecoy);
        }
    }
    const std::vector<double> q = qValues(scores, areDecoys);
    std::size_t next = 0;
    for (auto& finding : *findings) {
        if (finding)
            finding->q = hasDecoys ? q[next++] : std::numeric_limits<double>::quiet_NaN();
    }
}

} // namespace

std::vector<double> qValues(const std::vector<double>& scores, const std::vector<bool>& areDecoys)
{
    std::vector<std::size_t> order(scores.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        return scores[left] > scores[right];
    });
    const auto decoys = std::size_t(std::count(areDecoys.begin(), areDecoys.end(), true));
    // From the worst on; those of one score have the counts of all of them.
    std::vector<double> q(scores.size());
    double smallest = 1.0;
    double decoysSoFar = double(decoys);
    for (std::size_t end = order.size(); end > 0;) {
        smallest = std::min(smallest, (decoysSoFar + 1.0) / (double(end) - decoysSoFar));
        const double score = scores[order[end - 1]];
        for (; end > 0 && scores[order[end - 1]] == score; --end) {
            q[order[end - 1]] = smallest;
            decoysSoFar -= areDecoys[order[end - 1]] ? 1.0 : 0.0;
        }
    }
    return q;
}

std::vector<std::optional<Finding>> search(const std::vector<Sequence>& database,
                                           const std::vector<Spectrum>& spectra,
                                           const SearchSettings& settings,
                                           const ions::ResidueTable& residues,
                                           const std::function<void(double)>& progress)
{
    const double proton = residues.breaks().proton;
    const SearchTask task(
        settings, residues,
        PrecursorIndex(precursorsOf(spectra, settings, proton), settings.tolerance),
        scaledPeaks(spectra));
    const Bests bests = searchAll(database, task, progress);
    const auto proteins = proteinsOf(bests, database, task);
    std::vector<std::optional<Finding>> findings(spectra.size());
    for (std::size_t i = 0; i < bests.size(); ++i) {
        if (bests[i]) {
            findings[i] = Finding{*bests[i], peptidoformText(*bests[i], settings.rules), 0.0,
                                  proteins.value(targetLetters(*bests[i], task.isCutBefore))};
        }
    }
    addQValues(&findings, settings.hasDecoys);
    return findings;
}

} // namespace tool
