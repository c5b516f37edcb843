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
    out << phosphoserine.sequence() << ' ' << QString::number(phosphoserine.monoMass(), 'f', 4)
        << " Da\n";

    //! [ModifiedFragments]
    const auto mine = ChemicalFactory::construct(QString());
    mine->setBuildingBlock(ChemicalFactory::AminoAcidBlock, u"s"_s, u"Phosphoserine"_s,
                           u"C3H6NO5P"_s);
    const auto complex = mine->constructLinearPeptideComplex(u"GAsTK"_s);
    //! [ModifiedFragments]
    QList<SimpleFragment> fragments;
    generateLinearFragments(*complex, fragments);
    for (const SimpleFragment& fragment : std::as_const(fragments)) {
        if (fragment.type == FragmentType::B) {
            out << 'b' << fragment.sequence.size() << ' '
                << QString::number(fragment.monoMass, 'f', 4) << ' ' << fragment.sequence << '\n';
        }
    }
}
