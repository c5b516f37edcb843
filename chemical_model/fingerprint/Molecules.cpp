#include "Molecules.h"

#include "Texts.h"

using namespace Qt::StringLiterals;
using namespace chem;

namespace {

constexpr int longestPeptide = 8;
constexpr int longestStrand = 4;

QString anyName(Choices* choices)
{
    return choices->of<QString>({u"alpha"_s, u"beta"_s, QString(), u"\u03b3 \"chain\""_s});
}

MoleculeEntity anyResidue(Choices* choices)
{
    const auto factory = defaultChemicalFactory();
    if (choices->oneIn(3))
        return anyGroup(choices);
    const QString formula = anyMoleculeText(choices);
    const QString code = choices->text(u"GASKDE"_s, 1);
    return AminoAcid(NamedMolecule(factory->constructMolecule(formula), u"residue"_s, code));
}

Chain chainByHand(Choices* choices)
{
    const QString name = anyName(choices);
    const int type = choices->below(18);
    QList<MoleculeEntity> residues;
    for (int count = choices->below(6); count > 0; --count)
        residues.append(anyResidue(choices));
    const int start = choices->below(3);
    return Chain(name, u"hand"_s, residues, static_cast<MoleculeType>(type),
                 {u"locus"_s, 0, start, start + 2});
}

} // namespace

MoleculeEntity anyGroup(Choices* choices)
{
    const auto factory = defaultChemicalFactory();
    const int kind = choices->below(16);
    switch (kind) {
    case 0:
        return nullptr;
    case 1:
        return 7;
    case 2:
        return 2.5;
    case 3:
        return Molecule(ChemicalFactory::parseChemicalFormula(u"CH2"_s), 0.0, -0.0); // to rebuild
    case 4:
        return Modification(MoleculeEntity(80.0), {{0, 1}});
    default:
        static const QList<QString> formulas = {u"HPO3"_s, u"H-2"_s,     u"O"_s,
                                                u"CH2"_s,  u"C2H2O"_s,   u"N-1H-1O"_s,
                                                u"C10"_s,  u"C6H10O5"_s, u"H"_s};
        const Molecule molecule = factory->constructMolecule(choices->of(formulas));
        if (kind % 2 == 0)
            return molecule;
        return NamedMolecule(molecule, u"group"_s, u"g"_s);
    }
}

std::pair<int, int> anyPosition(Choices* choices)
{
    const int chain = choices->oneIn(12) ? choices->from(-2, 5) : choices->below(2);
    const int residue = choices->oneIn(12) ? choices->from(-2, 14) : choices->below(7);
    return {chain, residue};
}

Modification anyModification(Choices* choices)
{
    const MoleculeEntity group = anyGroup(choices);
    QList<std::pair<int, int>> places;
    for (int count = choices->oneIn(3) ? choices->below(4) : 1; count > 0; --count)
        places.append(anyPosition(choices));
    return {group, places};
}

Link anyLink(Choices* choices)
{
    const MoleculeEntity bridge = anyGroup(choices);
    const auto first = anyPosition(choices);
    const auto second = anyPosition(choices);
    return {bridge, {first, second}};
}

Chain anyChain(Choices* choices)
{
    const auto factory = defaultChemicalFactory();
    const QString name = anyName(choices);
    switch (choices->below(6)) {
    case 0:
        return chainByHand(choices);
    case 1:
        return constructOligoNucleotideChain(name, u"strand"_s,
                                             anyOligoText(choices, longestStrand), factory.data());
    default:
        return constructPeptideChain(name, u"peptide"_s, anyPeptideText(choices, longestPeptide),
                                     factory.data());
    }
}

MoleculeEntity anyMolecule(Choices* choices)
{
    QList<Chain> chains;
    for (int count = choices->oneIn(10) ? 0 : choices->from(1, 3); count > 0; --count)
        chains.append(anyChain(choices));
    QList<Modification> modifications;
    for (int count = choices->below(3); count > 0; --count)
        modifications.append(anyModification(choices));
    QList<Link> links;
    for (int count = choices->below(3); count > 0; --count)
        links.append(anyLink(choices));
    const int type = choices->below(18);
    return constructStructuredMolecule(anyName(choices), u"code"_s, chains, modifications, links,
                                       static_cast<MoleculeType>(type));
}
