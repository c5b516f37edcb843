#include "Recipes.h"

#include <algorithm>

//! [CutPlaces]
/// Where a rule cuts a chain: the ends of the left pieces among its clips, with both chain ends.
QList<int> cutPlaces(const MoleculeEntity& protein, const ClipOptions& rule, int residueCount)
{
    QList<int> places = {1, residueCount + 1};
    const QList<MoleculeEntity> clips = generateClips(protein, nullptr, rule);
    for (qsizetype i = 1; i < clips.size(); ++i) { // the first clip is the whole chain
        const ParentChainLocus locus = clips[i].chains().first().parentLocus();
        places << locus.start << locus.end;
    }
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}
//! [CutPlaces]

void missedCleavages(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const QString sequence = u"MKWVTFRPISLLFLFSSAYSR"_s;
    const Chain chain = constructPeptideChain(u"A"_s, u""_s, sequence, factory.data());
    const MoleculeEntity protein =
        constructProteinFromChains(u"example"_s, {chain}, {}, {}, factory.data());

    //! [MissedCleavages]
    const ClipOptions trypsin = ClipOptions::createClipByResidue({u"[KR](?!P)"_s}, {QString()});
    const QList<int> places = cutPlaces(protein, trypsin, static_cast<int>(sequence.size()));

    // A piece between two cuts gets the termini of the chain. It keeps links and modifications.
    const MoleculeEntity start = chain.residues().first();
    const MoleculeEntity end = chain.residues().last();
    constexpr qsizetype missed = 1;
    for (qsizetype i = 0; i + 1 < places.size(); ++i) {
        for (qsizetype j = i + 1; j <= i + 1 + missed && j < places.size(); ++j) {
            const ChainFragmenter cut({{start, {QString(), 0, places[i], places[j]}, end}});
            const MoleculeEntity peptide = cut.transform(protein);
            out << peptide.sequence() << ' ' << QString::number(peptide.monoMass(), 'f', 4)
                << " Da\n";
        }
    }
    //! [MissedCleavages]
}
