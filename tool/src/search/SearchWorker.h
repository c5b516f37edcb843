#pragma once

#include "search/PrecursorIndex.h"
#include "search/Search.h"
#include <Backbone.h>
#include <FragmentIons.h>
#include <PeakMatch.h>

#include <functional>
#include <optional>
#include <vector>

namespace tool {

/// What all threads of a search read.
struct SearchTask
{
    SearchTask(const SearchSettings& settings, const ions::ResidueTable& residues,
               PrecursorIndex precursors, std::vector<Peaks> peaks);

    const SearchSettings& settings;
    const ions::ResidueTable& residues;
    PrecursorIndex precursors;
    std::vector<Peaks> peaks; ///< Of each spectrum, the highest 100.
    bool isCutBefore;         ///< Whether cuts lie before the residues that tell them.
    ions::IonOptions wanted;  ///< b and y at 1+ and 2+.
};

/// The best candidate of each spectrum so far.
using Bests = std::vector<std::optional<Candidate>>;

/// Lists the peptides of a protein that are searched for, those behind a removed initiator
/// methionine among them. Peptides with a letter of no mass are left out.
class PeptideLister
{
public:
    explicit PeptideLister(const SearchTask* task);

    /// Hands over each peptide of a protein, whose letters live as long as the protein does.
    void list(QStringView protein, const std::function<void(const PeptideContext&)>& take);

private:
    const SearchTask* m_task;
    ions::DigestOptions m_options;
    double m_methionine;
    ions::Digest m_digest;
};

/// Searches proteins, one after the other, in one thread.
class SearchWorker
{
public:
    explicit SearchWorker(const SearchTask* task);

    /// Looks at all peptides of a protein.
    void search(QStringView protein);

    /// Puts what was found better than it is known into `bests`.
    void uniteInto(Bests* bests) const;

private:
    void searchForms(const PeptideContext& peptide, bool isDecoy);
    void score(const PeptideContext& peptide, const std::vector<RuleIndex>& places, double mass,
               bool isDecoy);
    void scoreSpectrum(const Precursor& precursor, Candidate* candidate);
    bool layOutIons(const PeptideContext& peptide, const std::vector<RuleIndex>& places);
    ions::SeriesMatch matchOf(const Peaks& peaks, ions::Series series) const;

    const SearchTask* m_task;
    PeptideLister m_lister;
    PeptideForms m_forms;
    std::span<const Precursor> m_near; ///< Those of the mass at hand.
    ions::FragmentIons m_fragments;
    ions::PeakMatches m_matches;
    Bests m_bests;
};

} // namespace tool
