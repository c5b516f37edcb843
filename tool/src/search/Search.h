#pragma once

#include "readers/Fasta.h"
#include "readers/Spectrum.h"
#include "search/PeptideForms.h"
#include <Digest.h>
#include <Tolerance.h>

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace tool {

/// How a search is done.
struct SearchSettings
{
    ions::Protease protease;
    ions::DigestOptions digest;
    ions::Tolerance tolerance;         ///< Of precursors, by their neutral masses.
    ions::Tolerance fragmentTolerance; ///< Of b and y ions at 1+ and 2+.
    Rules rules;
    std::vector<int> charges; ///< Of spectra that state none.
    std::vector<int>
        isotopeErrors; ///< Neutrons by which a precursor may have been taken too heavy.
    int threads = 1;
    bool hasDecoys = true;
};

/// A peptide that a spectrum may be of.
struct Candidate
{
    QString letters;
    std::vector<RuleIndex> places; ///< What each place bears, ends included.
    double score = 0.0;
    int matched = 0; ///< Ions with a peak.
    int charge = 0;
    double ppm = 0.0; ///< Of the precursor's mass.
    bool isDecoy = false;
};

/// What a spectrum was found to be.
struct Finding
{
    Candidate best;
    QString peptidoform;
    double q = 0.0; ///< NaN without decoys.
    QStringList
        proteins; ///< In the order of the database; for a decoy those of the peptide itself.
};

/// Finds the best candidate of each spectrum; nothing for those that have none. The same at any
/// number of threads: of equal scores the one with more matched ions is better, then the one whose
/// text comes first, then a peptide of the database before a decoy, then the smaller charge.
///
/// Holds sequences, spectra and one candidate for each spectrum and thread, no peptides.
std::vector<std::optional<Finding>> search(const std::vector<Sequence>& database,
                                           const std::vector<Spectrum>& spectra,
                                           const SearchSettings& settings,
                                           const ions::ResidueTable& residues,
                                           const std::function<void(double share)>& progress);

/// The share of false ones among all that score at least as well as each: decoys and one more by
/// targets, at most 1 and at most that of every worse score.
std::vector<double> qValues(const std::vector<double>& scores, const std::vector<bool>& areDecoys);

} // namespace tool
