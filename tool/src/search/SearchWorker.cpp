#include "search/SearchWorker.h"

#include "search/CandidateText.h"

#include <cmath>
#include <limits>
#include <utility>

namespace tool {

namespace {

/// Tells whether the one candidate is better than the other; texts are made where all else is
/// equal.
bool isBetter(const Candidate& left, const Candidate& right, const Rules& rules)
{
    if (left.score != right.score)
        return left.score > right.score;
    if (left.matched != right.matched)
        return left.matched > right.matched;
    const int texts = peptidoformText(left, rules).compare(peptidoformText(right, rules));
    if (texts != 0)
        return texts < 0;
    if (left.isDecoy != right.isDecoy)
        return right.isDecoy;
    return left.charge != right.charge ? left.charge < right.charge
                                       : std::abs(left.ppm) < std::abs(right.ppm);
}

void keepBetter(const Candidate& candidate, const Rules& rules, std::optional<Candidate>* best)
{
    if (!*best || isBetter(candidate, **best, rules))
        *best = candidate;
}

} // namespace

SearchTask::SearchTask(const SearchSettings& searchSettings, const ions::ResidueTable& table,
                       PrecursorIndex index, std::vector<Peaks> scaled)
    : settings(searchSettings)
    , residues(table)
    , precursors(std::move(index))
    , peaks(std::move(scaled))
    , isCutBefore(cutsBefore(searchSettings.protease))
{
    wanted.charges = {1, 2};
}

PeptideLister::PeptideLister(const SearchTask* task)
    : m_task(task)
    , m_options(task->settings.digest)
    , m_methionine(task->residues.residue(u'M').monoisotopic)
{
    // A peptide may lose its initiator and then be short enough.
    if (m_options.maxLength < std::numeric_limits<qsizetype>::max())
        ++m_options.maxLength;
}

void PeptideLister::list(QStringView protein,
                         const std::function<void(const PeptideContext&)>& take)
{
    const ions::DigestOptions& wanted = m_task->settings.digest;
    if (!m_digest.cleave(protein, m_task->settings.protease, m_task->residues, m_options))
        return;
    const bool hasInitiator = protein.startsWith(u'M');
    for (std::size_t i = 0; i < m_digest.size(); ++i) {
        const qsizetype start = m_digest.starts()[i];
        const qsizetype length = m_digest.ends()[i] - start;
        const double mass = m_digest.monoisotopic()[i];
        if (std::isnan(mass))
            continue;
        const bool isProteinEnd = start + length == protein.size();
        if (length <= wanted.maxLength) {
            take({protein.sliced(start, length), mass, start == 0 || (start == 1 && hasInitiator),
                  isProteinEnd});
        }
        if (start == 0 && hasInitiator && length > 1 && length > wanted.minLength)
            take({protein.sliced(1, length - 1), mass - m_methionine, true, isProteinEnd});
    }
}

SearchWorker::SearchWorker(const SearchTask* task)
    : m_task(task)
    , m_lister(task)
    , m_forms(&task->settings.rules)
    , m_bests(task->peaks.size())
{
}

void SearchWorker::search(QStringView protein)
{
    m_lister.list(protein, [this](const PeptideContext& peptide) {
        searchForms(peptide, false);
        if (!m_task->settings.hasDecoys)
            return;
        const QString reversed = reversedPeptide(peptide.letters, m_task->isCutBefore);
        PeptideContext decoy = peptide;
        decoy.letters = reversed;
        searchForms(decoy, true);
    });
}

void SearchWorker::searchForms(const PeptideContext& peptide, bool isDecoy)
{
    double formMass = 0.0;
    m_forms.visit(
        peptide,
        [&](double mass) {
            formMass = mass;
            m_near = m_task->precursors.near(mass);
            return !m_near.empty();
        },
        [&](const std::vector<RuleIndex>& places) { score(peptide, places, formMass, isDecoy); });
}

/// Lists the ions of a form. Gives false if it has none.
bool SearchWorker::layOutIons(const PeptideContext& peptide, const std::vector<RuleIndex>& places)
{
    ions::BackboneChain chain;
    chain.letters = peptide.letters.toString();
    chain.units.resize(std::size_t(peptide.letters.size()));
    for (std::size_t i = 0; i < chain.units.size(); ++i) {
        chain.units[i] = m_task->residues.residue(peptide.letters[qsizetype(i)].unicode());
        chain.units[i].monoisotopic += m_forms.massOf(places[i + 1]);
    }
    chain.leftGroup.monoisotopic = m_forms.massOf(places.front());
    chain.rightGroup.monoisotopic = m_forms.massOf(places.back());
    std::vector<ions::BackboneChain> chains;
    chains.push_back(std::move(chain));
    const auto backbone =
        ions::Backbone::ofChains(std::move(chains), {}, m_task->residues.breaks());
    return backbone && !m_fragments.assign(*backbone, m_task->wanted);
}

void SearchWorker::score(const PeptideContext& peptide, const std::vector<RuleIndex>& places,
                         double mass, bool isDecoy)
{
    if (!layOutIons(peptide, places))
        return;
    Candidate candidate{peptide.letters.toString(), places, 0.0, 0, 0, 0.0, isDecoy};
    for (const Precursor& precursor : m_near) {
        candidate.charge = precursor.charge;
        candidate.ppm = ions::ppmError(precursor.mass, mass);
        scoreSpectrum(precursor, &candidate);
    }
}

/// What the matches say of one series.
ions::SeriesMatch SearchWorker::matchOf(const Peaks& peaks, ions::Series series) const
{
    ions::SeriesMatch match;
    std::size_t first = 0;
    std::size_t next = 0;
    for (const ions::IonRun& run : m_fragments.runs()) {
        for (; next < m_matches.size() && m_matches.ions[next] < first + run.count; ++next) {
            if (run.series == series) {
                ++match.count;
                match.intensity += peaks.intensities[m_matches.peaks[next]];
            }
        }
        first += run.count;
    }
    return match;
}

void SearchWorker::scoreSpectrum(const Precursor& precursor, Candidate* candidate)
{
    const Peaks& peaks = m_task->peaks[precursor.spectrum];
    ions::matchPeaks(peaks.mz, peaks.intensities, m_fragments.mz(),
                     m_task->settings.fragmentTolerance, ions::PeakChoice::MostIntense, &m_matches);
    const ions::SeriesMatch b = matchOf(peaks, ions::Series::B);
    const ions::SeriesMatch y = matchOf(peaks, ions::Series::Y);
    candidate->matched = int(b.count + y.count);
    candidate->score = ions::matchScore(b, y);
    keepBetter(*candidate, m_task->settings.rules, &m_bests[precursor.spectrum]);
}

void SearchWorker::uniteInto(Bests* bests) const
{
    for (std::size_t i = 0; i < m_bests.size(); ++i) {
        if (m_bests[i])
            keepBetter(*m_bests[i], m_task->settings.rules, &(*bests)[i]);
    }
}

} // namespace tool
