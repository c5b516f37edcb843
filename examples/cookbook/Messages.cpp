#include "Recipes.h"

void messages(QTextStream& out)
{
    //! [Messages]
    const auto factory = defaultChemicalFactory();
    const Chain chain = constructPeptideChain(u"A"_s, u""_s, u"GASTK"_s, factory.data());
    MoleculeEntity molecule =
        constructProteinFromChains(u"example"_s, {chain}, {}, {}, factory.data());
    const MoleculeEntity phospho = factory->constructMolecule(u"HPO3"_s);

    // The message is thrown as a plain const char*: std::exception does not catch it.
    const QList<std::pair<int, int>> places = {{0, 3}, {0, 30}, {4, 1}};
    for (const auto& place : places) {
        try {
            molecule = Modify(Modification(phospho, {place})).transform(molecule);
            out << molecule.sequence() << '\n';
        } catch (const char* message) {
            out << message << '\n'; // molecule is as it was
        }
    }
    //! [Messages]
}
