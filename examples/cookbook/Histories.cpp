#include "Recipes.h"

namespace {

void walkBack(MoleculeEntity molecule, QTextStream& out)
{
    //! [HistoryWalk]
    while (!molecule.transformations().isEmpty()) {
        QList<TransformationEntity> history = molecule.transformations();
        out << "step of type " << history.last().type() << " gave "
            << QString::number(molecule.averageMass(), 'f', 2) << " Da\n";
        molecule = history.last().original();
    }
    //! [HistoryWalk]
    out << "first: " << molecule.sequence() << '\n';
}

void repeat(const MoleculeEntity& molecule, const MoleculeEntity& another, QTextStream& out)
{
    //! [HistoryRepeat]
    const QList<TransformationEntity> history = molecule.transformations();
    MoleculeEntity other = another;
    for (const TransformationEntity& entry : history)
        other = entry.transform(other);
    //! [HistoryRepeat]
    out << "the same steps: " << other.sequence() << '\n';
}

void takeOff(MoleculeEntity molecule, const MoleculeEntity& phospho, QTextStream& out)
{
    //! [HistoryMessage]
    try {
        molecule = Unmodify(Modification(phospho, {{0, 3}})).transform(molecule);
    } catch (const char* message) {
        out << message << '\n'; // molecule is as it was
    }
    //! [HistoryMessage]
    out << "still " << molecule.sequence() << '\n';
}

void forget(const MoleculeEntity& molecule, QTextStream& out)
{
    //! [HistoryEnd]
    const MoleculeEntity withoutHistory =
        constructStructuredMolecule(molecule.name(), molecule.code(), molecule.chains(),
                                    molecule.modifications(), molecule.links(), molecule.type());
    //! [HistoryEnd]
    out << "entries: " << withoutHistory.transformations().size() << '\n';
}

} // namespace

void histories(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const Chain chain = constructPeptideChain(u"A"_s, u""_s, u"GASTK"_s, factory.data());
    MoleculeEntity molecule = constructProteinFromChains(u"example"_s, {chain}, {}, {}, nullptr);
    const MoleculeEntity phospho = factory->constructMolecule(u"HPO3"_s);
    //! [History]
    // Position 0 is the N-terminus, so the serine of GASTK lies at 3 of chain 0.
    molecule = Modify(Modification(phospho, {{0, 3}})).transform(molecule);
    molecule = ChainFragmenter({{0, {u""_s, 0, 1, 4}, 0}}).transform(molecule);
    // molecule.transformations(): Modify, ChainFragmenter
    //! [History]
    out << molecule.transformations().size() << " steps: " << molecule.sequence() << '\n';
    walkBack(molecule, out);
    const Chain second = constructPeptideChain(u"B"_s, u""_s, u"MKSAR"_s, factory.data());
    const MoleculeEntity another =
        constructProteinFromChains(u"another"_s, {second}, {}, {}, nullptr);
    repeat(molecule, another, out);
    takeOff(another, phospho, out);
    forget(molecule, out);
}
