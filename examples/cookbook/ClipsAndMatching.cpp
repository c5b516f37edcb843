#include "Recipes.h"

void clipsAndMatching(QTextStream& out)
{
    //! [ClipsAndMatching]
    const auto factory = defaultChemicalFactory();
    const Chain chain =
        constructPeptideChain(u"angiotensin"_s, u"A"_s, u"DRVYIHPFHL"_s, factory.data());
    const MoleculeEntity molecule =
        constructProteinFromChains(u"angiotensin I"_s, {chain}, {}, {}, factory.data());

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
        const ParentChainLocus locus = clip.chains().first().parentLocus();
        const MoleculeEntity peptide = addWater.transform(clip);
        const QList<Match> matches = match(peptide, observed, parameters);
        for (const Match& found : matches) {
            out << "residues " << locus.start << " to " << locus.end - 1 << ": "
                << QString::number(peptide.averageMass(), 'f', 3) << " Da, measured "
                << QString::number(found.observedMass.mass(), 'f', 3) << '\n';
        }
    }
    //! [ClipsAndMatching]
}
