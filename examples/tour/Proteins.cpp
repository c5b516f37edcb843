#include "Tour.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Masses as a spectrum would list them: made from theory, with errors of a few ppm.
const QList<double> measuredMasses = {517.615,  647.8113, 764.9785, 1039.103,
                                      1081.176, 5807.61,  5823.62,  5850.0};

chem::MatchingParameters within(double ppm)
{
    chem::MatchingParameters parameters;
    parameters.massTolerance = {ppm, 1};
    return parameters;
}

QList<chem::ObservedMassEntity> observedMasses()
{
    return QList<chem::ObservedMassEntity>(measuredMasses.cbegin(), measuredMasses.cend());
}

void printMatches(const chem::MoleculeEntity& molecule, double ppm, const QString& label)
{
    for (const chem::Match& match : chem::match(molecule, observedMasses(), within(ppm))) {
        const double mass = molecule.averageMass();
        out() << "  " << label.leftJustified(22) << column(mass, 3) << " Da, measured "
              << column(match.observedMass.mass(), 3) << ", "
              << QString::number((match.observedMass.mass() - mass) / mass * 1e6, 'f', 1)
              << " ppm\n";
    }
}

/// Human insulin: two chains, one disulfide link inside the first and two between them.
chem::MoleculeEntity insulin(const chem::ChemicalFactory& factory)
{
    const chem::Chain a =
        chem::constructPeptideChain(u"A"_s, u"A"_s, u"GIVEQCCTSICSLYQLENYCN"_s, &factory);
    const chem::Chain b =
        chem::constructPeptideChain(u"B"_s, u"B"_s, u"FVNQHLCGSHLVEALYLVCGERGFFYTPKT"_s, &factory);
    const chem::MoleculeEntity twoHydrogensLess = factory.modifyMolecule({}, u"H-2"_s, 1);
    // Positions count the terminals, so residue n of a chain stands at position n.
    const QList<chem::Link> disulfides = {{twoHydrogensLess, {{0, 6}, {0, 11}}},
                                          {twoHydrogensLess, {{0, 7}, {1, 7}}},
                                          {twoHydrogensLess, {{0, 20}, {1, 19}}}};
    return chem::constructProteinFromChains(u"insulin"_s, {a, b}, {}, disulfides, &factory);
}

void printInsulin(const chem::ChemicalFactory& factory)
{
    printTitle(u"Human insulin: two chains, three disulfide links"_s);
    const chem::MoleculeEntity protein = insulin(factory);
    out() << "  " << protein.sequence() << "\n  " << protein.formula().toString() << '\n';
    printBesidePublished(u"monoisotopic mass, Da"_s, protein.monoMass(), 5803.64, 2);
    printBesidePublished(u"average mass, Da"_s, protein.averageMass(), 5807.6, 1);

    const chem::Modification oxidation(factory.constructMolecule(u"O"_s), {});
    const chem::MoleculeEntity oxidised = chem::Modify(oxidation).transform(protein);
    out() << "  oxidised: " << oxidised.sequence() << "\n\n  measured within 10 ppm\n";
    printMatches(protein, 10, u"insulin"_s);
    printMatches(oxidised, 10, u"insulin + O"_s);
}

void printDigest(const chem::ChemicalFactory& factory)
{
    printTitle(u"Ubiquitin, modified, clipped and found again"_s);
    const QString sequence =
        u"MQIFVKTLTGKTITLEVEPSDTIENVKAKIQDKEGIPPDQQRLIFAGKQLEDGRTLSDYNIQKESTLHLVLRLRGG"_s;
    const chem::Chain chain =
        chem::constructPeptideChain(u"ubiquitin"_s, u"U"_s, sequence, &factory);
    chem::MoleculeEntity protein =
        chem::constructProteinFromChains(u"ubiquitin"_s, {chain}, {}, {}, &factory);
    protein = chem::Modify(chem::Modification(factory.constructMolecule(u"C2H2O"_s), {{0, 33}}))
                  .transform(protein); // acetylation of lysine 33
    out() << "  acetylated at lysine 33: " << QString::number(protein.averageMass(), 'f', 2)
          << " Da\n";

    const auto byDepth =
        chem::generateClips(protein, &factory, chem::ClipOptions::createClipByDepth(2, 2, 1, 1));
    out() << "\n  clips by depth (2, 2, 1, 1)\n";
    for (const chem::MoleculeEntity& clip : byDepth) {
        const chem::ParentChainLocus locus = clip.chains().first().parentLocus();
        out() << "  residues " << locus.start << " to " << locus.end - 1 << ": "
              << column(clip.averageMass(), 3) << " Da\n";
    }

    // Trypsin cuts behind lysine and arginine, but not before proline. A clip has no terminal
    // groups of its own, so the water of hydrolysis is put on before it is matched.
    const auto cuts = chem::generateClips(
        protein, &factory, chem::ClipOptions::createClipByResidue({u"[KR](?!P)"_s}, {QString()}));
    QList<int> places = {1};
    for (const chem::MoleculeEntity& clip : cuts)
        places.append(clip.chains().first().parentLocus().end);
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    out() << "\n  tryptic peptides measured within 10 ppm\n";
    const chem::MoleculeEntity blank = nullptr;
    chem::MoleculeEntity lastPeptide = protein;
    for (qsizetype i = 0; i + 1 < places.size(); ++i) {
        const chem::ChainFragmenter cut({{blank, {QString(), 0, places[i], places[i + 1]}, blank}});
        const chem::MoleculeEntity peptide =
            chem::Modify(factory.constructMolecule(u"H2O"_s)).transform(cut.transform(protein));
        printMatches(peptide, 10, sequence.mid(places[i] - 1, places[i + 1] - places[i]));
        lastPeptide = peptide;
    }

    out() << "\n  the history of the last peptide, newest step first\n";
    const auto history = lastPeptide.transformations();
    for (auto entry = history.crbegin(); entry != history.crend(); ++entry) {
        chem::TransformationEntity step = *entry;
        out() << "  step type " << step.type() << ", before it " << step.original().name() << " of "
              << QString::number(step.original().averageMass(), 'f', 2) << " Da\n";
    }
    try {
        chem::Modify(chem::Modification(nullptr, {{5, 1}})).transform(protein);
    } catch (const char* message) {
        out() << "\n  a step that cannot be done says: " << message << '\n';
    }
}

} // namespace

void tourProteins()
{
    const auto factory = chem::defaultChemicalFactory();
    printInsulin(*factory);
    printDigest(*factory);
}
