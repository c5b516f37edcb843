// The examples that stand in the headers' comments. What their comments promise is tested here.

#include "Promises.h"
#include "Recipes.h"

namespace {

void formulas(QTextStream& out)
{
    ChemicalFormula formula = ChemicalFactory::parseChemicalFormula(u"C6H12O6"_s);
    formula += ChemicalFactory::parseChemicalFormula(u"H-2O-1"_s); // loses water
    formula.toString();                                            // "C6H10O5"
    require(formula.toString() == u"C6H10O5", "ChemicalFormula", out);
}

void molecules(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const Molecule water = factory->constructMolecule(u"H2O"_s);
    const Molecule glycine = factory->constructMolecule(u"C2H5NO2"_s);
    const Molecule residue = glycine - water; // 57.02146 Da monoisotopic
    require(isNear(residue.monoMass(), 57.02146, 5e-6), "Molecule", out);
}

void factories(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const Molecule glucose = factory->constructMolecule(u"C6H12O6"_s); // 180.06339 Da
    const auto peptide = factory->constructLinearPeptideComplex(u"DRVYIHPF"_s);
    peptide->monoMass(); // 1045.53451 Da
    require(isNear(glucose.monoMass(), 180.06339, 5e-6), "ChemicalFactory, glucose", out);
    require(isNear(peptide->monoMass(), 1045.53451, 5e-6), "ChemicalFactory, peptide", out);
}

void complexes(QTextStream& out)
{
    const auto peptide = defaultChemicalFactory()->constructLinearPeptideComplex(u"DRVYIHPF"_s);
    peptide->residues.size();                            // 10: two terminals, eight residues
    const QString first = peptide->residues.at(1)->name; // "Aspartic acid"
    peptide->sites.at(1).size();                         // 10 ways to break behind it
    require(peptide->residues.size() == 10 && first == u"Aspartic acid" &&
                peptide->sites.at(1).size() == 10,
            "MoleculeComplex", out);
    QList<SimpleFragment> fragments;
    generateLinearFragments(*peptide, fragments);
    const SimpleFragment b1 = fragments.first(); // of DRVYIHPF: 115.02694 Da, letters "D"
    require(b1.type == FragmentType::B && b1.sequence == u"D" &&
                isNear(b1.monoMass, 115.02694, 5e-6),
            "SimpleFragment", out);
}

void entities(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const MoleculeEntity mass = 1045.5;                                 // a bare mass, in daltons
    const MoleculeEntity group = factory->constructMolecule(u"HPO3"_s); // 79.96633 Da
    require(mass.averageMass() == 1045.5 && isNear(group.monoMass(), 79.96633, 5e-6),
            "MoleculeEntity", out);
}

void partsOfMolecules(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    // A disulfide takes two hydrogens away.
    const MoleculeEntity twoHydrogensLess = factory->modifyMolecule({}, u"H-2"_s, 1);
    const Link disulfide(twoHydrogensLess, {{0, 7}, {1, 7}});
    require(isNear(disulfide.entity().monoMass(), -2.01565, 5e-6), "Link", out);

    const MoleculeEntity phospho = factory->constructMolecule(u"HPO3"_s);
    const Modification onResidue3(phospho, {{0, 3}});       // placed
    const Modification onEither(phospho, {{0, 3}, {0, 4}}); // one group, two candidates
    const Modification somewhere(phospho, {});              // place unknown
    require(onResidue3 < onEither && somewhere < onResidue3, "Modification", out);
}

void steps(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const Chain chain = constructPeptideChain(u"A"_s, u"A"_s, u"GASTK"_s, factory.data());
    const MoleculeEntity peptide =
        constructProteinFromChains(u"example"_s, {chain}, {}, {}, nullptr);
    peptide.sequence(); // "H-GASTK-OH"
    require(peptide.sequence() == u"H-GASTK-OH", "StructuredBuilders", out);

    const Modification phosphorylation(factory->constructMolecule(u"HPO3"_s), {{0, 3}});
    const MoleculeEntity phosphopeptide = Modify(phosphorylation).transform(peptide);
    phosphopeptide.sequence(); // "H-GAS[]TK-OH"
    require(phosphopeptide.sequence() == u"H-GAS[]TK-OH", "Modify", out);

    const MoleculeEntity again = Unmodify(phosphorylation).transform(phosphopeptide);
    again.transformations().size(); // 2: the history grows
    require(again.transformations().size() == 2, "Unmodify", out);

    const MoleculeEntity blank = nullptr;
    const ChainFragmenter middle({{blank, {QString(), 0, 2, 5}, blank}}); // residues 2, 3 and 4
    middle.transform(peptide).sequence();                                 // "AST"
    require(middle.transform(peptide).sequence() == u"AST", "ChainFragmenter", out);

    // Behind lysine and arginine, but not before proline.
    const ClipOptions trypsin = ClipOptions::createClipByResidue({u"[KR](?!P)"_s}, {QString()});
    const QList<MoleculeEntity> clips = generateClips(peptide, nullptr, trypsin);
    require(clips.size() == 2, "generateClips", out);
}

void links(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const Chain chain = constructPeptideChain(u"A"_s, u"A"_s, u"AGCKNFFWKTFTSC"_s, factory.data());
    const MoleculeEntity reduced =
        constructProteinFromChains(u"reduced"_s, {chain}, {}, {}, nullptr);
    const EstablishLink disulfide(factory->modifyMolecule({}, u"H-2"_s, 1), {{0, 3}, {0, 14}});
    const MoleculeEntity somatostatin = disulfide.transform(reduced);
    require(isNear(reduced.averageMass() - somatostatin.averageMass(), 2.01588, 5e-6),
            "EstablishLink", out);
}

void failingStep(MoleculeEntity molecule, const Modification& modification, QTextStream& out)
{
    const QString before = molecule.sequence();
    try {
        molecule = Unmodify(modification).transform(molecule);
    } catch (const char* message) {
        qWarning("%s", message);
    }
    require(molecule.sequence() == before, "Transformation", out);
}

void matching(QTextStream& out)
{
    const MoleculeEntity peptide = 1046.185;
    MatchingParameters parameters;
    parameters.massTolerance = {10.0, 1}; // 10 ppm
    const QList<ObservedMassEntity> observed = {1046.18, 1046.19, 1300.5};
    match(peptide, observed, parameters).size(); // 2 for 1046.185 Da
    require(match(peptide, observed, parameters).size() == 2, "match", out);
}

void isotopes(QTextStream& out)
{
    QList<double> abundances = {99.0, 1.0};
    normalize(abundances); // 0.99 and 0.01
    require(abundances == QList<double>{0.99, 0.01}, "normalize", out);
}

} // namespace

void headerExamples(QTextStream& out)
{
    formulas(out);
    molecules(out);
    factories(out);
    complexes(out);
    entities(out);
    partsOfMolecules(out);
    steps(out);
    links(out);
    failingStep(nullptr, Modification(18.0, {}), out);
    matching(out);
    isotopes(out);
}
