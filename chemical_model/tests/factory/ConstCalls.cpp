#include "ConstCalls.h"

namespace {

/// Takes what a call gives, so that the compiler sees a use of it.
template <typename... Results>
void use(const Results&...)
{
}

using Calls = QList<ConstCall>;
using Shared = const SharedObjects&;

Calls formulaCalls()
{
    using chem::ChemicalFormula;
    return {
        ConstCall("ChemicalFormula::ChemicalFormula",
                  [](Shared s) { use(ChemicalFormula(s.formula)); }),
        ConstCall("ChemicalFormula::elementCount",
                  [](Shared s) { use(s.formula.elementCount(s.elements[0])); }),
        ConstCall("ChemicalFormula::elementCountMap",
                  [](Shared s) { use(s.formula.elementCountMap()); }),
        ConstCall("ChemicalFormula::isEmpty", [](Shared s) { use(s.formula.isEmpty()); }),
        ConstCall("ChemicalFormula::isValid",
                  [](Shared s) { use(s.formula.isValid(), s.loss.isValid()); }),
        ConstCall("ChemicalFormula::negativeElementCounts",
                  [](Shared s) {
                      QList<QString> elements = s.elements;
                      QList<int> counts = s.counts;
                      s.loss.negativeElementCounts(&elements, &counts);
                  }),
        ConstCall("ChemicalFormula::positiveElementCounts",
                  [](Shared s) {
                      QList<QString> elements = s.elements;
                      QList<int> counts = s.counts;
                      s.formula.positiveElementCounts(&elements, &counts);
                  }),
        ConstCall("ChemicalFormula::negativeFormulaString",
                  [](Shared s) { use(s.loss.negativeFormulaString()); }),
        ConstCall("ChemicalFormula::positiveFormulaString",
                  [](Shared s) { use(s.loss.positiveFormulaString()); }),
        ConstCall("ChemicalFormula::toIsoFormulaString",
                  [](Shared s) { use(s.formula.toIsoFormulaString()); }),
        ConstCall("ChemicalFormula::toString",
                  [](Shared s) { use(s.formula.toString(), s.loss.toString()); }),
        ConstCall("ChemicalFormula::toThermoFormulaString",
                  [](Shared s) { use(s.formula.toThermoFormulaString()); }),
        ConstCall("ChemicalFormula::operator+", [](Shared s) { use(s.formula + s.loss); }),
        ConstCall("ChemicalFormula::operator-", [](Shared s) { use(s.formula - s.loss); }),
        ConstCall("ChemicalFormula::operator+=",
                  [](Shared s) {
                      ChemicalFormula own = s.formula;
                      own += s.loss;
                  }),
        ConstCall("ChemicalFormula::operator-=",
                  [](Shared s) {
                      ChemicalFormula own = s.formula;
                      own -= s.loss;
                  }),
    };
}

Calls moleculeCalls()
{
    using chem::Molecule;
    using chem::NamedMolecule;
    return {
        ConstCall("Molecule::Molecule", [](Shared s) { use(Molecule(s.formula, 2.0, 1.0)); }),
        ConstCall("Molecule::averageMass", [](Shared s) { use(s.molecule.averageMass()); }),
        ConstCall("Molecule::formula", [](Shared s) { use(s.molecule.formula()); }),
        ConstCall("Molecule::monoMass", [](Shared s) { use(s.molecule.monoMass()); }),
        ConstCall("Molecule::operator+", [](Shared s) { use(s.molecule + s.aminoAcid); }),
        ConstCall("Molecule::operator-", [](Shared s) { use(s.molecule - s.nucleotide); }),
        ConstCall("Molecule::operator+=",
                  [](Shared s) {
                      Molecule own = s.molecule;
                      own += s.nucleotide;
                  }),
        ConstCall("Molecule::operator-=",
                  [](Shared s) {
                      Molecule own = s.molecule;
                      own -= s.nucleotide;
                  }),
        ConstCall("NamedMolecule::NamedMolecule",
                  [](Shared s) { use(NamedMolecule(s.molecule, s.name, s.code)); }),
        ConstCall("NamedMolecule::operator+=",
                  [](Shared s) {
                      NamedMolecule own = s.namedMolecule;
                      own += s.aminoAcid;
                  }),
        ConstCall("AminoAcid::AminoAcid", [](Shared s) { use(chem::AminoAcid(s.namedMolecule)); }),
        ConstCall("Nucleotide::Nucleotide",
                  [](Shared s) {
                      use(chem::Nucleotide(s.nucleotide.nucleobase, s.nucleotide.ribose,
                                           s.nucleotide.phosphate, s.name, s.code));
                  }),
    };
}

Calls complexCalls()
{
    return {
        ConstCall("ComplexResidue::ComplexResidue",
                  [](Shared s) { use(chem::ComplexResidue(s.namedMolecule, 1)); }),
        ConstCall("ComplexResidue::ComplexResidue",
                  [](Shared s) { use(chem::ComplexResidue(s.molecule, s.name, s.code, 1)); }),
        ConstCall("FragmentationSite::FragmentationSite",
                  [](Shared s) {
                      use(chem::FragmentationSite(chem::FragmentType::B, s.molecule, s.aminoAcid));
                  }),
        ConstCall("MoleculeComplex::MoleculeComplex",
                  [](Shared s) {
                      use(chem::MoleculeComplex(s.molecule, s.peptide.residues, s.peptide.sites));
                  }),
        ConstCall("Fragment::Fragment",
                  [](Shared s) {
                      const chem::Fragment& last = *s.richFragments.constLast();
                      use(chem::Fragment(last, s.code, last.residues, last.sites, &s.peptide));
                  }),
        ConstCall("generateLinearFragments",
                  [](Shared s) {
                      QList<chem::SimpleFragment> fragments = s.flatFragments;
                      chem::generateLinearFragments(s.peptide, fragments);
                      chem::generateLinearFragments(s.strand, fragments);
                  }),
    };
}

Calls factoryTextCalls()
{
    using chem::ChemicalFactory;
    return {
        ConstCall("ChemicalFactory::buildingBlockType",
                  [](Shared s) { use(ChemicalFactory::buildingBlockType(s.blockLabel)); }),
        ConstCall(
            "ChemicalFactory::construct",
            [](Shared s) { use(ChemicalFactory::construct(s.isotopeText)); }, true),
        ConstCall(
            "ChemicalFactory::init", [](Shared s) { use(OpenFactory(s.isotopeText)); }, true),
        ConstCall("ChemicalFactory::ChemicalFactory",
                  [](Shared s) { use(ChemicalFactory(s.factory)); }),
        ConstCall("ChemicalFactory::operator=",
                  [](Shared s) {
                      OpenFactory own{OpenFactory::WithoutInit()};
                      own = s.factory;
                  }),
        ConstCall("ChemicalFactory::setBuildingBlock",
                  [](Shared s) {
                      ChemicalFactory own = s.factory;
                      own.setBuildingBlock(ChemicalFactory::SugarBlock, s.code, s.name,
                                           s.formulaText);
                  }),
        ConstCall("ChemicalFactory::parseChemicalFormula",
                  [](Shared s) { use(ChemicalFactory::parseChemicalFormula(s.formulaText)); }),
        ConstCall("ChemicalFactory::convertOldOligoBuildingBlockFormula",
                  [](Shared s) {
                      use(ChemicalFactory::convertOldOligoBuildingBlockFormula(
                          s.formulaText, ChemicalFactory::RiboseBlock));
                  }),
        ConstCall("ChemicalFactory::constructGlycanModification",
                  [](Shared s) { use(s.factory.constructGlycanModification(s.glycanText)); }),
        ConstCall("ChemicalFactory::isValidGlycanComposition",
                  [](Shared s) { use(s.factory.isValidGlycanComposition(s.glycanText)); }),
        ConstCall(
            "ChemicalFactory::modifyMoleculeWithGlycan",
            [](Shared s) { use(s.factory.modifyMoleculeWithGlycan(s.molecule, s.glycanText)); }),
        ConstCall("ChemicalFactory::generateFullOligoRegex",
                  [](Shared s) { use(s.factory.generateFullOligoRegex().match(s.strandText)); }),
        ConstCall(
            "ChemicalFactory::generateOligoSequenceRegex",
            [](Shared s) { use(s.factory.generateOligoSequenceRegex().match(s.strandText)); }),
        ConstCall("ChemicalFactory::isValidOligoSequence",
                  [](Shared s) { use(s.factory.isValidOligoSequence(s.strandText)); }),
    };
}

Calls factoryMassCalls()
{
    return {
        ConstCall("ChemicalFactory::calculateMassesForElementCountArrays",
                  [](Shared s) {
                      double mono = 0.0;
                      double average = 0.0;
                      s.factory.calculateMassesForElementCountArrays(s.elements, s.counts, &mono,
                                                                     &average);
                  }),
        ConstCall("ChemicalFactory::calculateMassesForFormula",
                  [](Shared s) {
                      double mono = 0.0;
                      double average = 0.0;
                      s.factory.calculateMassesForFormula(s.loss, &mono, &average);
                  }),
        ConstCall("ChemicalFactory::constructMolecule",
                  [](Shared s) { use(s.factory.constructMolecule(s.formulaText)); }),
        ConstCall("ChemicalFactory::modifyMolecule",
                  [](Shared s) { use(s.factory.modifyMolecule(s.molecule, s.lossText, 2)); }),
        ConstCall(
            "ChemicalFactory::moleculeBasedOnAverageMass",
            [](Shared s) { use(s.factory.moleculeBasedOnAverageMass(s.formulaText, 1000.0)); }),
        ConstCall("ChemicalFactory::moleculeBasedOnMonoMass",
                  [](Shared s) { use(s.factory.moleculeBasedOnMonoMass(s.formulaText, 1000.0)); }),
        ConstCall("ChemicalFactory::generateIsotopeEnvelope",
                  [](Shared s) {
                      QList<QPointF> envelope;
                      s.factory.generateIsotopeEnvelope(s.molecule, 1, &envelope, true);
                  }),
    };
}

Calls factoryChainCalls()
{
    return {
        ConstCall("ChemicalFactory::constructLinearOligoComplex",
                  [](Shared s) { use(s.factory.constructLinearOligoComplex(s.strandText)); }),
        ConstCall("ChemicalFactory::constructLinearOligoComplex",
                  [](Shared s) {
                      use(s.factory.constructLinearOligoComplex(s.nucleotides, s.fivePrime,
                                                                s.threePrime));
                  }),
        ConstCall("ChemicalFactory::constructLinearOligoComplexes",
                  [](Shared s) {
                      QList<QSharedPointer<const chem::MoleculeComplex>> ladder;
                      s.factory.constructLinearOligoComplexes(s.strandText, 1, 1, &ladder);
                  }),
        ConstCall("ChemicalFactory::constructLinearPeptideComplex",
                  [](Shared s) { use(s.factory.constructLinearPeptideComplex(s.peptideText)); }),
        ConstCall("ChemicalFactory::generateLinearFragments",
                  [](Shared s) {
                      QList<QSharedPointer<chem::Fragment>> fragments = s.richFragments;
                      s.factory.generateLinearFragments(s.peptide, &fragments);
                      s.factory.generateLinearFragments(s.strand, &fragments);
                  }),
        ConstCall("ChemicalFactory::parseAminoAcidSequence",
                  [](Shared s) {
                      QList<QSharedPointer<const chem::AminoAcid>> residues;
                      chem::NamedMolecule left = s.namedMolecule;
                      chem::NamedMolecule right = s.namedMolecule;
                      s.factory.parseAminoAcidSequence(s.peptideText, &residues, &left, &right);
                  }),
        ConstCall("ChemicalFactory::parseNucleotideSequence",
                  [](Shared s) {
                      QList<QSharedPointer<const chem::Nucleotide>> nucleotides = s.nucleotides;
                      chem::NamedMolecule left = s.fivePrime;
                      chem::NamedMolecule right = s.threePrime;
                      s.factory.parseNucleotideSequence(s.strandText, &nucleotides, &left, &right);
                  }),
        ConstCall("ChemicalFactory::standardOligoTermini",
                  [](Shared s) {
                      chem::NamedMolecule left = s.fivePrime;
                      chem::NamedMolecule right = s.threePrime;
                      s.factory.standardOligoTermini(&left, &right);
                  }),
        ConstCall("ChemicalFactory::standardPeptideTermini",
                  [](Shared s) {
                      chem::NamedMolecule left = s.fivePrime;
                      chem::NamedMolecule right = s.threePrime;
                      s.factory.standardPeptideTermini(&left, &right);
                  }),
    };
}

/// Asks every entity the same question.
template <auto question>
void askAll(const SharedObjects& shared)
{
    for (const chem::MoleculeEntity& entity : shared.entities)
        use((entity.*question)());
    use((shared.protein.*question)());
}

Calls entityCalls()
{
    using chem::MoleculeEntity;
    return {
        ConstCall("MoleculeEntity::MoleculeEntity",
                  [](Shared s) {
                      for (const MoleculeEntity& entity : s.entities)
                          use(MoleculeEntity(entity));
                  }),
        ConstCall("MoleculeEntity::operator=",
                  [](Shared s) {
                      MoleculeEntity own = s.protein;
                      for (const MoleculeEntity& entity : s.entities)
                          own = entity;
                  }),
        ConstCall("MoleculeEntity::averageMass", askAll<&MoleculeEntity::averageMass>),
        ConstCall("MoleculeEntity::monoMass", askAll<&MoleculeEntity::monoMass>),
        ConstCall("MoleculeEntity::formula", askAll<&MoleculeEntity::formula>),
        ConstCall("MoleculeEntity::type", askAll<&MoleculeEntity::type>),
        ConstCall("MoleculeEntity::sequence", askAll<&MoleculeEntity::sequence>),
        ConstCall("MoleculeEntity::name", askAll<&MoleculeEntity::name>),
        ConstCall("MoleculeEntity::code", askAll<&MoleculeEntity::code>),
        ConstCall("MoleculeEntity::description", askAll<&MoleculeEntity::description>),
        ConstCall("MoleculeEntity::chains", askAll<&MoleculeEntity::chains>),
        ConstCall("MoleculeEntity::modifications", askAll<&MoleculeEntity::modifications>),
        ConstCall("MoleculeEntity::links", askAll<&MoleculeEntity::links>),
        ConstCall("MoleculeEntity::transformations", askAll<&MoleculeEntity::transformations>),
        ConstCall("MoleculeEntity::operator==",
                  [](Shared s) {
                      for (const MoleculeEntity& entity : s.entities)
                          use(entity == s.protein, entity == entity);
                  }),
    };
}

Calls structuredCalls()
{
    return {
        ConstCall("Chain::Chain",
                  [](Shared s) {
                      use(chem::Chain(s.name, s.code, s.chains[0].residues(),
                                      chem::MoleculeType::Peptide, s.locus));
                  }),
        ConstCall("Chain::residues", [](Shared s) { use(s.chains[0].residues()); }),
        ConstCall("Chain::name", [](Shared s) { use(s.chains[0].name()); }),
        ConstCall("Chain::code", [](Shared s) { use(s.chains[0].code()); }),
        ConstCall("Chain::type", [](Shared s) { use(s.chains[0].type()); }),
        ConstCall("Chain::parentLocus", [](Shared s) { use(s.chains[0].parentLocus()); }),
        ConstCall("Chain::operator==",
                  [](Shared s) { use(s.chains[0] == s.chains[1], s.chains[0] == s.chains[0]); }),
        ConstCall("Link::entity", [](Shared s) { use(s.links[0].entity()); }),
        ConstCall("Link::connection", [](Shared s) { use(s.links[0].connection()); }),
        ConstCall("Link::operator==", [](Shared s) { use(s.links[0] == s.links[0]); }),
        ConstCall("Modification::Modification",
                  [](Shared s) {
                      use(chem::Modification(s.protein,
                                             s.modifications[0].possibleChainLocations()));
                  }),
        ConstCall("Modification::entity", [](Shared s) { use(s.modifications[0].entity()); }),
        ConstCall("Modification::possibleChainLocations",
                  [](Shared s) { use(s.modifications[0].possibleChainLocations()); }),
        ConstCall("Modification::averageMass",
                  [](Shared s) { use(s.modifications[0].averageMass()); }),
        ConstCall("Modification::monoMass", [](Shared s) { use(s.modifications[0].monoMass()); }),
        ConstCall("Modification::formula", [](Shared s) { use(s.modifications[0].formula()); }),
        ConstCall("Modification::operator==",
                  [](Shared s) { use(s.modifications[0] == s.modifications[0]); }),
        ConstCall("Modification::operator<",
                  [](Shared s) { use(s.modifications[0] < s.modifications[0]); }),
    };
}

Calls builderCalls()
{
    return {
        ConstCall("constructPeptideChain",
                  [](Shared s) {
                      use(chem::constructPeptideChain(s.name, s.code, s.peptideText, &s.factory));
                  }),
        ConstCall("constructOligoNucleotideChain",
                  [](Shared s) {
                      use(chem::constructOligoNucleotideChain(s.name, s.code, s.strandText,
                                                              &s.factory));
                  }),
        ConstCall("constructOligoNucleotide",
                  [](Shared s) {
                      use(chem::constructOligoNucleotide(s.name, s.code, s.strandText, &s.factory));
                  }),
        ConstCall("constructProteinFromChains",
                  [](Shared s) {
                      use(chem::constructProteinFromChains(s.name, s.chains, s.modifications,
                                                           s.links, &s.factory));
                  }),
        ConstCall("constructStructuredMolecule",
                  [](Shared s) {
                      use(chem::constructStructuredMolecule(s.name, s.code, s.chains,
                                                            s.modifications, s.links,
                                                            chem::MoleculeType::Protein));
                  }),
    };
}

/// Applies a step; that it may be refused is no matter here.
void apply(const chem::Transformation& step, const chem::MoleculeEntity& molecule)
{
    try {
        step.transform(molecule);
    } catch (const char*) {
    }
}

QList<const chem::Transformation*> stepsOf(const SharedObjects& shared)
{
    return {&shared.modify,     &shared.unmodify,   &shared.establishLink, &shared.chainFragmenter,
            &shared.history[0], &shared.history[1], &shared.history[2],    &shared.history[3]};
}

Calls stepCalls()
{
    return {
        ConstCall("Transformation::transform",
                  [](Shared s) {
                      for (const chem::Transformation* step : stepsOf(s)) {
                          apply(*step, s.protein);
                          apply(*step, s.structured);
                      }
                  }),
        ConstCall("Transformation::type",
                  [](Shared s) {
                      for (const chem::Transformation* step : stepsOf(s))
                          use(step->type());
                  }),
        ConstCall("Modify::Modify", [](Shared s) { use(chem::Modify(s.modifications[0])); }),
        ConstCall("Modify::transform", [](Shared s) { apply(s.modify, s.protein); }),
        ConstCall("Modify::type", [](Shared s) { use(s.modify.type()); }),
        ConstCall("Unmodify::transform", [](Shared s) { apply(s.unmodify, s.protein); }),
        ConstCall("Unmodify::type", [](Shared s) { use(s.unmodify.type()); }),
        ConstCall("EstablishLink::transform", [](Shared s) { apply(s.establishLink, s.protein); }),
        ConstCall("EstablishLink::type", [](Shared s) { use(s.establishLink.type()); }),
        ConstCall("ChainFragmenter::ChainFragmenter",
                  [](Shared s) { use(chem::ChainFragmenter(s.pieces)); }),
        ConstCall("ChainFragmenter::ChainFragmenter",
                  [](Shared s) { use(chem::ChainFragmenter(s.chainFragmenter)); }),
        ConstCall("ChainFragmenter::transform",
                  [](Shared s) { apply(s.chainFragmenter, s.protein); }),
        ConstCall("ChainFragmenter::type", [](Shared s) { use(s.chainFragmenter.type()); }),
        ConstCall("TransformationEntity::TransformationEntity",
                  [](Shared s) { use(chem::TransformationEntity(s.history[0])); }),
        ConstCall("TransformationEntity::operator=",
                  [](Shared s) {
                      chem::TransformationEntity own = s.history[0];
                      own = s.history[1];
                  }),
        ConstCall("TransformationEntity::transform",
                  [](Shared s) { apply(s.history[0], s.protein); }),
        ConstCall("TransformationEntity::type", [](Shared s) { use(s.history[0].type()); }),
        ConstCall("modifyMolecule",
                  [](Shared s) {
                      use(chem::modifyMolecule(s.protein, s.namedMolecule,
                                               s.links[0].connection().first));
                  }),
    };
}

Calls clipCalls()
{
    using chem::ClipOptions;
    return {
        ConstCall("ClipOptions::createClipByResidue",
                  [](Shared s) { use(ClipOptions::createClipByResidue(s.before, s.after)); }),
        ConstCall("ClipOptions::clipType", [](Shared s) { use(s.clipOptions[3].clipType()); }),
        ConstCall("ClipOptions::residueBeforeAfterVector",
                  [](Shared s) { use(s.clipOptions[3].residueBeforeAfterVector()); }),
        ConstCall("ClipOptions::depthFromStartSingle",
                  [](Shared s) { use(s.clipOptions[2].depthFromStartSingle()); }),
        ConstCall("ClipOptions::depthFromEndSingle",
                  [](Shared s) { use(s.clipOptions[2].depthFromEndSingle()); }),
        ConstCall("ClipOptions::depthFromStartDouble",
                  [](Shared s) { use(s.clipOptions[2].depthFromStartDouble()); }),
        ConstCall("ClipOptions::depthFromEndDouble",
                  [](Shared s) { use(s.clipOptions[2].depthFromEndDouble()); }),
        ConstCall("generateClips",
                  [](Shared s) {
                      for (const ClipOptions& options : s.clipOptions)
                          use(chem::generateClips(s.protein, &s.factory, options));
                  }),
    };
}

Calls matchingCalls()
{
    using chem::ObservedMassEntity;
    return {
        ConstCall("ObservedMassEntity::ObservedMassEntity",
                  [](Shared s) { use(ObservedMassEntity(s.observedMasses[0])); }),
        ConstCall("ObservedMassEntity::operator=",
                  [](Shared s) {
                      ObservedMassEntity own = s.observedMasses[0];
                      own = s.observedMasses[1];
                  }),
        ConstCall("ObservedMassEntity::mass", [](Shared s) { use(s.observedMasses[0].mass()); }),
        ConstCall("ObservedMassEntity::monoMass",
                  [](Shared s) { use(s.observedMasses[0].monoMass()); }),
        ConstCall("ObservedMassEntity::intensity",
                  [](Shared s) { use(s.observedMasses[0].intensity()); }),
        ConstCall(
            "absoluteMassToleranceDelta",
            [](Shared s) { use(chem::absoluteMassToleranceDelta(1000.0, s.matchingParameters)); }),
        ConstCall(
            "match",
            [](Shared s) { use(chem::match(s.protein, s.observedMasses, s.matchingParameters)); }),
    };
}

} // namespace

const QList<ConstCall>& constCalls()
{
    static const QList<ConstCall> calls =
        formulaCalls() + moleculeCalls() + complexCalls() + factoryTextCalls() +
        factoryMassCalls() + factoryChainCalls() + entityCalls() + structuredCalls() +
        builderCalls() + stepCalls() + clipCalls() + matchingCalls();
    return calls;
}
