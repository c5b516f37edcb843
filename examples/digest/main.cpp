// Cuts a protein by a residue rule and looks the pieces up in a list of measured masses.
//
//   digest SEQUENCE BEFORE AFTER MASSES.txt PPM
//
// BEFORE is a regular expression of what stands before a cut, AFTER plain text of what stands
// behind it or empty: "[KR](?!P)" and "" for trypsin. MASSES.txt holds neutral average masses in
// daltons.

#include "../common/MassList.h"
#include <ChemicalModel.h>

#include <QTextStream>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The places where a chain may be cut, taken from the clips of a residue rule, with both its ends.
QList<int> cutPlaces(const QList<chem::MoleculeEntity>& clips, int residueCount)
{
    QList<int> places = {1, residueCount + 1};
    for (qsizetype i = 1; i < clips.size(); ++i) { // the first clip is the whole chain
        const chem::ParentChainLocus locus = clips[i].chains().first().parentLocus();
        places << locus.start << locus.end;
    }
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

} // namespace

int main(int argc, char* argv[])
{
    QTextStream out(stdout);
    QTextStream errors(stderr);
    if (argc != 6) {
        errors << "usage: digest SEQUENCE BEFORE AFTER MASSES.txt PPM\n";
        return 2;
    }
    const QString sequence = QString::fromLocal8Bit(argv[1]);
    const QString before = QString::fromLocal8Bit(argv[2]);
    const QString after = QString::fromLocal8Bit(argv[3]);
    const QList<double> masses = readMassList(QString::fromLocal8Bit(argv[4]));
    chem::MatchingParameters parameters;
    parameters.massTolerance = {QString::fromLocal8Bit(argv[5]).toDouble(), 1};
    const QList<chem::ObservedMassEntity> observed(masses.cbegin(), masses.cend());

    const auto factory = chem::defaultChemicalFactory();
    const chem::Chain chain =
        chem::constructPeptideChain(u"chain"_s, QString(), sequence, factory.data());
    const chem::MoleculeEntity protein =
        chem::constructProteinFromChains(u"protein"_s, {chain}, {}, {}, factory.data());
    const auto clips = chem::generateClips(
        protein, factory.data(), chem::ClipOptions::createClipByResidue({before}, {after}));
    const QList<int> places = cutPlaces(clips, static_cast<int>(sequence.size()));

    // A piece between two cuts is a peptide once it has its termini back.
    const chem::MoleculeEntity start = chain.residues().first();
    const chem::MoleculeEntity end = chain.residues().last();
    constexpr qsizetype missedCleavages = 1;
    qsizetype matched = 0;
    for (qsizetype i = 0; i + 1 < places.size(); ++i) {
        for (qsizetype j = i + 1; j <= i + 1 + missedCleavages && j < places.size(); ++j) {
            const chem::ChainFragmenter cut({{start, {QString(), 0, places[i], places[j]}, end}});
            const chem::MoleculeEntity peptide = cut.transform(protein);
            const QString text = sequence.mid(places[i] - 1, places[j] - places[i]);
            for (const chem::Match& match : chem::match(peptide, observed, parameters)) {
                const double error = match.observedMass.mass() - peptide.averageMass();
                out << u"%1 - %2"_s.arg(places[i]).arg(places[j] - 1).leftJustified(12)
                    << QString::number(peptide.averageMass(), 'f', 3).rightJustified(12)
                    << QString::number(match.observedMass.mass(), 'f', 3).rightJustified(12)
                    << QString::number(error / peptide.averageMass() * 1e6, 'f', 1)
                           .rightJustified(8)
                    << u" ppm  "_s << text << '\n';
                ++matched;
            }
        }
    }
    out << matched << " matches of " << masses.size() << " measured masses\n";
    return matched > 0 ? 0 : 1;
}
