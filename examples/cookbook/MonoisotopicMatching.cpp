#include "Recipes.h"

void monoisotopicMatching(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const auto peptide = factory->constructLinearPeptideComplex(u"DRVYIHPF"_s);
    const QList<ObservedMassEntity> observed = {1045.534, 1046.185};
    MatchingParameters parameters;
    parameters.massTolerance = {10.0, 1};

    //! [MonoisotopicMatching]
    const MoleculeEntity byAverage = Molecule(*peptide);
    const MoleculeEntity byMonoisotopic = peptide->monoMass();
    //! [MonoisotopicMatching]
    for (const MoleculeEntity& entity : {byAverage, byMonoisotopic}) {
        const QList<Match> matches = match(entity, observed, parameters);
        for (const Match& found : matches)
            out << QString::number(found.observedMass.mass(), 'f', 3) << '\n';
    }
}
