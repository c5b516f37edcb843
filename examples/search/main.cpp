// Finds the peptides of a FASTA file that fragment spectra show: candidates by the mass of the
// precursor, and the one whose b and y ions explain the spectrum best.
//
//   search PROTEINS.fasta SPECTRA.mgf PPM
//
// Cysteine is carbamidomethylated, methionine may be oxidised. A spectrum may name its known
// peptide as SEQ; the program ends with 1 if it finds another.

#include "../common/Digest.h"
#include "../common/Fasta.h"
#include "Spectra.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype missedCleavages = 1;
constexpr qsizetype shortestPeptide = 6;

/// Reads C as carbamidomethylated and m as oxidised methionine.
QSharedPointer<chem::ChemicalFactory> searchFactory()
{
    const auto aminoAcid = chem::ChemicalFactory::AminoAcidBlock;
    const auto factory = chem::ChemicalFactory::construct(QString());
    factory->setBuildingBlock(aminoAcid, u"C"_s, u"Carbamidomethylcysteine"_s, u"C5H8N2O2S"_s);
    factory->setBuildingBlock(aminoAcid, u"m"_s, u"Methionine sulfoxide"_s, u"C5H9NO2S"_s);
    return factory;
}

struct Candidate
{
    double monoMass;
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

/// The tryptic peptides of a protein with known letters, in all forms.
void appendCandidates(const FastaEntry& protein, const chem::ChemicalFactory& factory,
                      QList<Candidate>* candidates)
{
    static const QRegularExpression trypsin(u"(?<=[KR])(?!P)"_s);
    //! [Candidates]
    const QList<Peptide> peptides = digest(protein.sequence, trypsin, missedCleavages);
    for (const Peptide& peptide : peptides) {
        if (peptide.sequence.size() < shortestPeptide ||
            !unknownLetters(peptide.sequence, factory).isEmpty())
            continue;
        const QStringList forms = oxidisedForms(peptide.sequence);
        for (const QString& form : forms) {
            const double mass = factory.constructLinearPeptideComplex(form)->monoMass();
            candidates->append({mass, form, protein.name});
        }
    }
    //! [Candidates]
}

/// The intensity of the highest peak within the tolerance; 0 if there is none.
double intensityAt(double massToCharge, double ppm, const QList<QPointF>& peaks)
{
    const double width = massToCharge * ppm * 1e-6;
    const auto isBelow = [](const QPointF& peak, double value) {
        return peak.x() < value;
    };
    double highest = 0.0;
    auto peak = std::lower_bound(peaks.cbegin(), peaks.cend(), massToCharge - width, isBelow);
    for (; peak != peaks.cend() && peak->x() <= massToCharge + width; ++peak)
        highest = std::max(highest, peak->y());
    return highest;
}

/// The share of a spectrum's intensity that the singly charged b and y ions explain.
double score(const QString& sequence, const Spectrum& spectrum, double ppm,
             const chem::ChemicalFactory& factory)
{
    const double proton = protonMass(factory);
    //! [Score]
    QList<chem::SimpleFragment> fragments;
    chem::generateLinearFragments(*factory.constructLinearPeptideComplex(sequence), fragments);
    double explained = 0.0;
    for (const chem::SimpleFragment& fragment : std::as_const(fragments)) {
        if (fragment.type == chem::FragmentType::B || fragment.type == chem::FragmentType::Y)
            explained += intensityAt(fragment.monoMass + proton, ppm, spectrum.peaks);
    }
    return explained / spectrum.intensity();
    //! [Score]
}

struct Identification
{
    Candidate candidate;
    double score = 0.0;
    int tried = 0;
};

bool isLighter(const Candidate& candidate, double mass)
{
    return candidate.monoMass < mass;
}

/// The best of the candidates that have the mass of the precursor.
Identification best(const Spectrum& spectrum, const QList<Candidate>& candidates, double ppm,
                    const chem::ChemicalFactory& factory)
{
    //! [Best]
    const double mass = spectrum.neutralMass(factory);
    const double width = mass * ppm * 1e-6;
    Identification found;
    auto candidate =
        std::lower_bound(candidates.cbegin(), candidates.cend(), mass - width, isLighter);
    for (; candidate != candidates.cend() && candidate->monoMass <= mass + width; ++candidate) {
        const double share = score(candidate->sequence, spectrum, ppm, factory);
        ++found.tried;
        if (share > found.score)
            found = {*candidate, share, found.tried};
    }
    //! [Best]
    return found;
}

QList<Candidate> candidatesOf(const QList<FastaEntry>& proteins,
                              const chem::ChemicalFactory& factory)
{
    QList<Candidate> candidates;
    for (const FastaEntry& protein : proteins)
        appendCandidates(protein, factory, &candidates);
    std::sort(candidates.begin(), candidates.end(),
              [](const Candidate& left, const Candidate& right) {
                  return left.monoMass < right.monoMass;
              });
    return candidates;
}

} // namespace

int main(int argc, char* argv[])
{
    const QStringList arguments = QCoreApplication(argc, argv).arguments();
    QFile fasta(arguments.value(1));
    QFile mgf(arguments.value(2));
    const double ppm = arguments.value(3).toDouble();
    if (ppm <= 0.0 || !fasta.open(QIODevice::ReadOnly) || !mgf.open(QIODevice::ReadOnly)) {
        QTextStream(stderr) << "usage: search PROTEINS.fasta SPECTRA.mgf PPM\n";
        return 2;
    }
    QTextStream fastaText(&fasta);
    QTextStream mgfText(&mgf);
    const auto factory = searchFactory();
    const QList<Candidate> candidates = candidatesOf(readFasta(fastaText), *factory);
    const QList<Spectrum> spectra = readSpectra(mgfText);

    QTextStream out(stdout);
    out << candidates.size() << " candidates, " << spectra.size() << " spectra\n";
    qsizetype wrong = 0;
    for (const Spectrum& spectrum : spectra) {
        const Identification found = best(spectrum, candidates, ppm, *factory);
        const bool isRight = found.candidate.sequence == spectrum.knownSequence;
        out << spectrum.title << ": " << found.candidate.sequence << " of "
            << found.candidate.protein << ", " << qRound(100 * found.score)
            << " % explained, best of " << found.tried << ", "
            << (isRight ? "as published\n" : "not as published\n");
        wrong += isRight || spectrum.knownSequence.isEmpty() ? 0 : 1;
    }
    return wrong > 0 ? 1 : 0;
}
