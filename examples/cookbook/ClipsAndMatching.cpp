#include "Recipes.h"

namespace {

void printMatches(const MoleculeEntity& clip, const MoleculeEntity& peptide,
                  const QList<Match>& matches, QTextStream& out)
{
    const QList<Chain> chains = clip.chains();
    const ParentChainLocus locus = chains.first().parentLocus();
    for (const Match& found : matches) {
        out << "residues " << locus.start << " to " << locus.end - 1 << ": "
            << daltons(peptide.averageMass(), 3) << ", measured "
            << QString::number(found.observedMass.mass(), 'f', 3) << '\n';
    }
}

} // namespace

void clipsAndMatching(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const Chain chain =
        constructPeptideChain(u"angiotensin"_s, u"A"_s, u"DRVYIHPFHL"_s, factory.data());
    const MoleculeEntity molecule =
        constructProteinFromChains(u"angiotensin I"_s, {chain}, {}, {}, factory.data());

    //! [ClipsAndMatching]
    // Up to two residues off either end, and no trim of both ends at once.
    const QList<MoleculeEntity> clips =
        generateClips(molecule, factory.data(), ClipOptions::createClipByDepth(2, 2, 0, 0));

    // Measured neutral average masses, in ascending order.
    const QList<ObservedMassEntity> observed = {1025.16, 1046.18, 1181.40, 1296.49};
    MatchingParameters parameters;
    parameters.massTolerance = {20.0, 1}; // 1 stands for ppm

    // A clip is residues alone. The water of its two ends is missing until it is put on.
    const Modify addWater(factory->constructMolecule(u"H2O"_s));
    for (const MoleculeEntity& clip : clips) {
        const MoleculeEntity peptide = addWater.transform(clip);
        printMatches(clip, peptide, match(peptide, observed, parameters), out);
    }
    //! [ClipsAndMatching]
}
