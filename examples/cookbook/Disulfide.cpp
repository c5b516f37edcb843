#include "Recipes.h"

void disulfide(QTextStream& out)
{
    //! [Disulfide]
    const auto factory = defaultChemicalFactory();
    const Chain chain =
        constructPeptideChain(u"somatostatin"_s, u"S"_s, u"AGCKNFFWKTFTSC"_s, factory.data());
    const MoleculeEntity reduced =
        constructProteinFromChains(u"somatostatin"_s, {chain}, {}, {}, factory.data());

    // Position 0 is the N-terminus, so residue n of the sequence stands at position n.
    const Molecule twoHydrogensLess = factory->modifyMolecule({}, u"H-2"_s, 1);
    const MoleculeEntity oxidised =
        EstablishLink(twoHydrogensLess, {{0, 3}, {0, 14}}).transform(reduced);
    out << reduced.sequence() << ' ' << QString::number(reduced.averageMass(), 'f', 2) << " Da\n"
        << oxidised.sequence() << ' ' << QString::number(oxidised.averageMass(), 'f', 2) << " Da\n";
    //! [Disulfide]
}
