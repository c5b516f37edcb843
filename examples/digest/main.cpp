// Cuts the proteins of a FASTA file with trypsin and prints each peptide with its mass, or why it
// has none. With a list of measured masses it prints the peptides that match instead.
//
//   digest PROTEINS.fasta [MASSES.txt PPM]
//
// MASSES.txt holds neutral average masses in daltons. Ends with 1 if nothing matches.

#include "../common/Digest.h"
#include "../common/Fasta.h"
#include "../common/MassList.h"

#include <QFile>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype missedCleavages = 1;

QString place(const Peptide& peptide)
{
    const qsizetype last = peptide.position + peptide.sequence.size() - 1;
    return u"%1 to %2"_s.arg(peptide.position).arg(last);
}

/// The unknown letters of a peptide with their positions in the protein: "U 14, X 15".
QString unknownText(const Peptide& peptide, const chem::ChemicalFactory& factory)
{
    QStringList texts;
    for (const qsizetype position : unknownLetters(peptide.sequence, factory)) {
        const QChar letter = peptide.sequence.at(position - 1);
        texts.append(u"%1 %2"_s.arg(letter).arg(peptide.position + position - 1));
    }
    return texts.join(u", "_s);
}

void printPeptide(const Peptide& peptide, const chem::ChemicalFactory& factory, QTextStream& out)
{
    const QString unknown = unknownText(peptide, factory);
    out << "  " << place(peptide) << ": " << peptide.sequence << ' ';
    if (unknown.isEmpty()) {
        const auto complex = factory.constructLinearPeptideComplex(peptide.sequence);
        out << QString::number(complex->monoMass(), 'f', 4) << " Da\n";
    } else {
        out << "has no mass: " << unknown << '\n';
    }
}

/// The measured masses, and how far they may be off.
struct Measurements
{
    QList<chem::ObservedMassEntity> observed;
    chem::MatchingParameters parameters;
};

Measurements measurements(const QString& path, double ppm)
{
    const QList<double> masses = readMassList(path);
    Measurements measured;
    measured.observed = QList<chem::ObservedMassEntity>(masses.cbegin(), masses.cend());
    measured.parameters.massTolerance = {ppm, 1};
    return measured;
}

/// Prints the measurements that match a peptide, and says how many.
qsizetype printMatches(const Peptide& peptide, const Measurements& measured,
                       const chem::ChemicalFactory& factory, QTextStream& out)
{
    if (!unknownLetters(peptide.sequence, factory).isEmpty())
        return 0;
    const chem::Molecule molecule = *factory.constructLinearPeptideComplex(peptide.sequence);
    const QList<chem::Match> matches =
        chem::match(molecule, measured.observed, measured.parameters);
    for (const chem::Match& match : matches) {
        const double error = match.observedMass.mass() / molecule.averageMass() - 1.0;
        out << "  " << place(peptide) << ": " << peptide.sequence << ' '
            << QString::number(molecule.averageMass(), 'f', 3) << " Da, measured "
            << QString::number(match.observedMass.mass(), 'f', 3) << ", "
            << QString::number(error * 1e6, 'f', 1) << " ppm\n";
    }
    return matches.size();
}

} // namespace

int main(int argc, char* argv[])
{
    QTextStream out(stdout);
    QFile file;
    if (argc == 2 || argc == 4)
        file.setFileName(QString::fromLocal8Bit(argv[1]));
    if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly)) {
        QTextStream(stderr) << "usage: digest PROTEINS.fasta [MASSES.txt PPM]\n";
        return 2;
    }
    const auto factory = chem::defaultChemicalFactory();
    const bool isSearch = argc == 4;
    const Measurements measured = isSearch
                                      ? measurements(QString::fromLocal8Bit(argv[2]),
                                                     QString::fromLocal8Bit(argv[3]).toDouble())
                                      : Measurements();

    const QRegularExpression trypsin(u"(?<=[KR])(?!P)"_s);
    QTextStream text(&file);
    const QList<FastaEntry> proteins = readFasta(text);
    qsizetype matched = 0;
    for (const FastaEntry& protein : proteins) {
        out << protein.name << ", " << protein.sequence.size() << " residues\n";
        const QList<Peptide> peptides = digest(protein.sequence, trypsin, missedCleavages);
        for (const Peptide& peptide : peptides) {
            if (isSearch)
                matched += printMatches(peptide, measured, *factory, out);
            else
                printPeptide(peptide, *factory, out);
        }
    }
    if (isSearch)
        out << matched << " matches of " << measured.observed.size() << " measured masses\n";
    return isSearch && matched == 0 ? 1 : 0;
}
