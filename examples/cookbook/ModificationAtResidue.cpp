#include "Recipes.h"

void modificationAtResidue(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const Chain chain = constructPeptideChain(u"A"_s, u""_s, u"GASTK"_s, factory.data());
    const MoleculeEntity peptide =
        constructProteinFromChains(u"example"_s, {chain}, {}, {}, factory.data());
    const Molecule phospho = factory->constructMolecule(u"HPO3"_s);

    //! [ModifiedChain]
    // At residue 3 of chain 0; position 0 is the N-terminus.
    const MoleculeEntity phosphoserine = Modify(Modification(phospho, {{0, 3}})).transform(peptide);
    //! [ModifiedChain]
    out << phosphoserine.sequence() << ' ' << daltons(phosphoserine.monoMass()) << '\n';
}
