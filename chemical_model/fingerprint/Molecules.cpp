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

} // namespace

MoleculeEntity AnyParts::residue()
{
    if (m_choices->oneIn(3))
        return group();
    const QString formula = anyMoleculeText(m_choices);
    const QString code = m_choices->text(u"GASKDE"_s, 1);
    return AminoAcid(
        NamedMolecule(defaultChemicalFactory()->constructMolecule(formula), u"residue"_s, code));
}

Chain AnyParts::chainByHand()
{
    const QString name = anyName(m_choices);
    const int type = m_choices->below(18);
    const QList<MoleculeEntity> residues =
        anyStructure::listOf(m_choices->below(6), [this] { return residue(); });
    const int start = m_choices->below(3);
    return Chain(name, u"hand"_s, residues, static_cast<MoleculeType>(type),
                 {u"locus"_s, 0, start, start + 2});
}

MoleculeEntity AnyParts::group()
{
    const auto factory = defaultChemicalFactory();
    const int kind = m_choices->below(16);
    switch (kind) {
    case 0:
    case 1:
    case 2:
        return anyStructure::bareGroups()[kind];
    case 3:
        return Molecule(ChemicalFactory::parseChemicalFormula(u"CH2"_s), 0.0, -0.0); // to rebuild
    case 4:
        return Modification(MoleculeEntity(80.0), {{0, 1}});
    default:
        static const QList<QString> formulas = {u"HPO3"_s, u"H-2"_s,     u"O"_s,
                                                u"CH2"_s,  u"C2H2O"_s,   u"N-1H-1O"_s,
                                                u"C10"_s,  u"C6H10O5"_s, u"H"_s};
        const Molecule molecule = factory->constructMolecule(m_choices->of(formulas));
        if (kind % 2 == 0)
            return molecule;
        return NamedMolecule(molecule, u"group"_s, u"g"_s);
    }
}

std::pair<int, int> AnyParts::position()
{
    const int chain = m_choices->oneIn(12) ? m_choices->from(-2, 5) : m_choices->below(2);
    const int residue = m_choices->oneIn(12) ? m_choices->from(-2, 14) : m_choices->below(7);
    return {chain, residue};
}

Chain AnyParts::chain()
{
    const auto factory = defaultChemicalFactory();
    const QString name = anyName(m_choices);
    const int kind = m_choices->below(6);
    switch (kind) {
    case 0:
        return chainByHand();
    case 1:
        return constructOligoNucleotideChain(
            name, u"strand"_s, anyOligoText(m_choices, longestStrand), factory.data());
    default:
        return constructPeptideChain(name, u"peptide"_s, anyPeptideText(m_choices, longestPeptide),
                                     factory.data());
    }
}

MoleculeEntity anyMolecule(Choices* choices)
{
    AnyParts parts(choices);
    const auto [chains, modifications, links] = anyStructure::structure(&parts);
    const int type = choices->below(18);
    return constructStructuredMolecule(anyName(choices), u"code"_s, chains, modifications, links,
                                       static_cast<MoleculeType>(type));
}
