#include "Recipes.h"

namespace {

// The reference antibody NISTmAb (RM 8671), as a cell secretes it: without the last lysine of its
// heavy chain.
const QString heavySequence =
    u"QVTLRESGPALVKPTQTLTLTCTFSGFSLSTAGMSVGWIRQPPGKALEWLADIWWDDKKHYNPSLKDRLTISKDTSKNQVVLKVTNMDPADTA"
    u"TYY"
    u"CARDMIFNFYFDVWGQGTTVTVSSASTKGPSVFPLAPSSKSTSGGTAALGCLVKDYFPEPVTVSWNSGALTSGVHTFPAVLQSSGLYSLSSVV"
    u"TVP"
    u"SSSLGTQTYICNVNHKPSNTKVDKRVEPKSCDKTHTCPPCPAPELLGGPSVFLFPPKPKDTLMISRTPEVTCVVVDVSHEDPEVKFNWYVDGV"
    u"EVH"
    u"NAKTKPREEQYNSTYRVVSVLTVLHQDWLNGKEYKCKVSNKALPAPIEKTISKAKGQPREPQVYTLPPSREEMTKNQVSLTCLVKGFYPSDIA"
    u"VEW"
    u"ESNGQPENNYKTTPPVLDSDGSFFLYSKLTVDKSRWQQGNVFSCSVMHEALHNHYTQKSLSLSPG"_s;
const QString lightSequence = u"DIQMTQSPSTLSASVGDRVTITCSASSRVGYMHWYQQKPGKAPKLLIYDTSKLASGVPSRFSGSGSG"
                              u"TEFTLTISSLQPDDFATYYCFQGSGYPFT"
                              u"FGGGTKVEIKRTVAAPSVFIFPPSDEQLKSGTASVVCLLNNFYPREAKVQWKVDNALQSGNSQESVT"
                              u"EQDSKDSTYSLSSTLTLSKADYEKHKVYA"
                              u"CEVTHQGLSSPVTKSFNRGEC"_s;

/// The places of the cysteines of a chain, in its order.
QList<std::pair<int, int>> cysteines(int chain, const QString& sequence)
{
    QList<std::pair<int, int>> places;
    for (qsizetype i = 0; i < sequence.size(); ++i) {
        if (sequence[i] == u'C')
            places.append({chain, static_cast<int>(i) + 1}); // place 0 is the N-terminus
    }
    return places;
}

/// The sixteen disulfides of an IgG1: chains 0 and 2 are heavy, 1 and 3 are light.
QList<Link> disulfideLinks(const MoleculeEntity& bridge)
{
    QList<Link> links;
    const auto firstHeavy = cysteines(0, heavySequence);
    const auto secondHeavy = cysteines(2, heavySequence);
    for (const int pair : {0, 2, 7, 9}) {
        links.append({bridge, {firstHeavy[pair], firstHeavy[pair + 1]}});
        links.append({bridge, {secondHeavy[pair], secondHeavy[pair + 1]}});
    }
    for (const int hinge : {5, 6})
        links.append({bridge, {firstHeavy[hinge], secondHeavy[hinge]}});
    for (const int chain : {1, 3}) {
        const auto light = cysteines(chain, lightSequence);
        links.append({bridge, {light[0], light[1]}});
        links.append({bridge, {light[2], light[3]}});
        links.append({bridge, {(chain == 1 ? firstHeavy : secondHeavy)[4], light[4]}});
    }
    return links;
}

} // namespace

void antibody(QTextStream& out)
{
    //! [Antibody]
    const auto factory = defaultChemicalFactory();
    const Chain heavy = constructPeptideChain(u"heavy"_s, u"H"_s, heavySequence, factory.data());
    const Chain light = constructPeptideChain(u"light"_s, u"L"_s, lightSequence, factory.data());
    const Molecule glycan = factory->constructGlycanModification(u"HexNAc(4)Hex(3)dHex(1)"_s);
    const Molecule pyroglutamate = factory->modifyMolecule({}, u"H-3N-1"_s, 1);
    const Molecule disulfide = factory->modifyMolecule({}, u"H-2"_s, 1);

    // Places are pairs of chain and residue: a glycan at asparagine 300 of each heavy chain.
    const MoleculeEntity antibody =
        constructProteinFromChains(u"NISTmAb"_s, {heavy, light, heavy, light},
                                   {{glycan, {{0, 300}}},
                                    {glycan, {{2, 300}}},
                                    {pyroglutamate, {{0, 1}}},
                                    {pyroglutamate, {{2, 1}}}},
                                   disulfideLinks(disulfide), factory.data());
    out << antibody.formula().toString() << ' ' << QString::number(antibody.averageMass(), 'f', 2)
        << " Da\n";
    //! [Antibody]
}
