// Finds the peptides of a FASTA file that fragment spectra show: candidates by the mass of the
// precursor, and the one whose b and y ions fit the spectrum best.
//
//   search PROTEINS.fasta SPECTRA.mgf PPM
//
// Cysteine is carbamidomethylated, methionine may be oxidised. A spectrum may name its known
// peptide as SEQ; the program ends with 1 if it finds another.

#include "../common/Fasta.h"
#include "Spectra.h"
#include <ChemicalModel.h>
#include <IonModel.h>

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <vector>

using namespace ions;
using namespace Qt::StringLiterals;

namespace {

//! [Residues]
/// Residues with carbamidomethylated C, and m for oxidised methionine.
ResidueTable searchResidues()
{
    const auto aminoAcid = chem::ChemicalFactory::AminoAcidBlock;
    const auto factory = chem::ChemicalFactory::construct(QString());
    factory->setBuildingBlock(aminoAcid, u"C"_s, u"Carbamidomethylcysteine"_s, u"C5H8N2O2S"_s);
    factory->setBuildingBlock(aminoAcid, u"m"_s, u"Methionine sulfoxide"_s, u"C5H9NO2S"_s);
    return ResidueTable(*factory);
}
//! [Residues]

struct Candidate
{
    double mass;
    QString sequence;
    QString protein;
};

/// A peptide as it is, and with each one of its methionines oxidised.
QStringList oxidisedForms(const QString& sequence)
{
    QStringList forms = {sequence};
    for (qsizetype at = sequence.indexOf(u'M'); at >= 0; at = sequence.indexOf(u'M', at + 1)) {
        forms.append(sequence);
        forms.last()[at] = u'm';
    }
    return forms;
}

/// The peptides of all proteins in all forms, by mass.
std::vector<Candidate> candidatesOf(const QList<FastaEntry>& proteins, const ResidueTable& residues)
{
    std::vector<Candidate> candidates;
    //! [Candidates]
    const Protease trypsin = Protease::named(u"Trypsin").value();
    const DigestOptions options{.missedCleavages = 1, .minLength = 6, .maxLength = 50};
    Digest digest;
    for (const FastaEntry& protein : proteins) {
        digest.cleave(protein.sequence, trypsin, residues, options);
        for (std::size_t i = 0; i < digest.size(); ++i) {
            if (std::isnan(digest.monoisotopic()[i]))
                continue; // it holds a letter without a mass
            const qsizetype start = digest.starts()[i];
            const QString peptide = protein.sequence.sliced(start, digest.ends()[i] - start);
            const QStringList forms = oxidisedForms(peptide);
            for (const QString& form : forms)
                candidates.push_back({residues.peptide(form)->monoisotopic, form, protein.name});
        }
    }
    //! [Candidates]
    std::sort(candidates.begin(), candidates.end(),
              [](const Candidate& left, const Candidate& right) { return left.mass < right.mass; });
    return candidates;
}

/// Scores peptides one after the other in the same memory.
class Scorer
{
public:
    Scorer(const ResidueTable& residues, const Tolerance& tolerance)
        : m_residues(residues)
        , m_tolerance(tolerance)
    {
        m_options.series = {Series::B, Series::Y};
        m_options.charges = {1, 2};
    }

    double score(const QString& sequence, const Spectrum& spectrum);

private:
    ResidueTable m_residues;
    Tolerance m_tolerance;
    IonOptions m_options;
    Backbone m_peptide;
    FragmentIons m_ions;
    PeakMatches m_matches;
};

//! [Score]
double Scorer::score(const QString& sequence, const Spectrum& spectrum)
{
    if (m_peptide.assignPeptide(sequence, m_residues) || m_ions.assign(m_peptide, m_options))
        return 0.0; // refused
    matchPeaks(spectrum.mz, spectrum.intensities, m_ions.mz(), m_tolerance, PeakChoice::MostIntense,
               &m_matches);
    SeriesMatch b, y;
    for (std::size_t i = 0; i < m_matches.size(); ++i) {
        const bool isB = m_matches.ions[i] < m_ions.mz().size() / 2; // all b stand before all y
        SeriesMatch& series = isB ? b : y;
        series.count += 1;
        series.intensity += spectrum.intensities[m_matches.peaks[i]];
    }
    return matchScore(b, y);
}
//! [Score]

struct Identification
{
    Candidate candidate;
    double score = 0.0;
    std::size_t tried = 0;
};

/// The best of the candidates, whose masses are given, with the mass of the precursor.
Identification best(const Spectrum& spectrum, const std::vector<Candidate>& candidates,
                    const std::vector<double>& masses, const Tolerance& tolerance, Scorer* scorer)
{
    //! [Best]
    const double mass = Ionization::protons(spectrum.charge).neutralMass(spectrum.precursor);
    const PeakRange range = peaksAround(masses, mass, tolerance);
    Identification found;
    found.tried = range.size();
    for (std::size_t i = range.first; i < range.last; ++i) {
        const double score = scorer->score(candidates[i].sequence, spectrum);
        if (score > found.score) {
            found.candidate = candidates[i];
            found.score = score;
        }
    }
    //! [Best]
    return found;
}

/// Finds and prints the peptides of all spectra; tells how many are not the known ones.
int search(const std::vector<Candidate>& candidates, const QList<Spectrum>& spectra,
           const Tolerance& tolerance, Scorer* scorer, QTextStream& out)
{
    std::vector<double> masses;
    for (const Candidate& candidate : candidates)
        masses.push_back(candidate.mass);
    int wrong = 0;
    for (const Spectrum& spectrum : spectra) {
        const Identification found = best(spectrum, candidates, masses, tolerance, scorer);
        const bool isRight = found.candidate.sequence == spectrum.knownSequence;
        out << spectrum.title << ": " << found.candidate.sequence << " of "
            << found.candidate.protein << ", score " << QString::number(found.score, 'f', 1)
            << ", best of " << found.tried << ", "
            << (isRight ? "as published\n" : "not as published\n");
        wrong += isRight || spectrum.knownSequence.isEmpty() ? 0 : 1;
    }
    return wrong;
}

} // namespace

int main(int argc, char* argv[])
{
    const QStringList arguments = QCoreApplication(argc, argv).arguments();
    QFile fasta(arguments.value(1));
    QFile mgf(arguments.value(2));
    const double width = arguments.value(3).toDouble();
    if (width <= 0.0 || !fasta.open(QIODevice::ReadOnly) || !mgf.open(QIODevice::ReadOnly)) {
        QTextStream(stderr) << "usage: search PROTEINS.fasta SPECTRA.mgf PPM\n";
        return 2;
    }
    QTextStream fastaText(&fasta);
    QTextStream mgfText(&mgf);
    const ResidueTable residues = searchResidues();
    const std::vector<Candidate> candidates = candidatesOf(readFasta(fastaText), residues);
    const QList<Spectrum> spectra = readSpectra(mgfText);

    QTextStream out(stdout);
    out << candidates.size() << " candidates, " << spectra.size() << " spectra\n";
    Scorer scorer(residues, ppm(width));
    return search(candidates, spectra, ppm(width), &scorer, out) > 0 ? 1 : 0;
}
