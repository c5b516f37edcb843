#include "Recipes.h"

void disulfide(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    //! [Disulfide]
    const Chain chain =
        constructPeptideChain(u"somatostatin"_s, u"S"_s, u"AGCKNFFWKTFTSC"_s, factory.data());
    const MoleculeEntity reduced =
        constructProteinFromChains(u"somatostatin"_s, {chain}, {}, {}, factory.data());

    // Position 0 is the N-terminus, so residue n of the sequence stands at position n.
    const Molecule twoHydrogensLess = factory->modifyMolecule({}, u"H-2"_s, 1);
    const MoleculeEntity oxidised =
        EstablishLink(twoHydrogensLess, {{0, 3}, {0, 14}}).transform(reduced);
    //! [Disulfide]
    for (const MoleculeEntity& molecule : {reduced, oxidised})
        out << molecule.sequence() << ' ' << daltons(molecule.averageMass(), 2) << '\n';
}
