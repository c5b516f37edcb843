#include "../common/Digest.h"
#include "Recipes.h"

void missedCleavages(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const QString sequence = u"MKWVTFRPISLLFLFSSAYSR"_s;
    const Chain chain = constructPeptideChain(u"A"_s, u""_s, sequence, factory.data());
    const Modification oxidation(factory->constructMolecule(u"O"_s), {{0, 1}});
    const MoleculeEntity protein = Modify(oxidation).transform(
        constructProteinFromChains(u"example"_s, {chain}, {}, {}, nullptr));

    const QList<qsizetype> places = cutPlaces(sequence, QRegularExpression(u"(?<=[KR])(?!P)"_s));
    const MoleculeEntity start = chain.residues().first();
    const MoleculeEntity end = chain.residues().last();
    for (qsizetype i = 0; i + 1 < places.size(); ++i) {
        //! [MissedCleavages]
        // Residue n stands at position n, so a place counts one less.
        const int from = static_cast<int>(places[i]) + 1;
        const int to = static_cast<int>(places[i + 1]) + 1;
        const MoleculeEntity peptide =
            ChainFragmenter({{start, {QString(), 0, from, to}, end}}).transform(protein);
        //! [MissedCleavages]
        out << peptide.sequence() << ' ' << daltons(peptide.monoMass()) << '\n';
    }
}
