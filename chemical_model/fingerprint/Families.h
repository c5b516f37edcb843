#pragma once

#include "Answers.h"

/// \file
/// The families of requests, each with the public functions that it calls. Together they call every
/// exported one; a function that several families call is named where its own results are read.

/// `parseChemicalFormula` and all of `ChemicalFormula`.
void askFormulas(Answers* answers);

/// `constructMolecule`, `calculateMassesForFormula`, `calculateMassesForElementCountArrays`,
/// `ChemicalFactory::modifyMolecule`, `moleculeBasedOnAverageMass`, `moleculeBasedOnMonoMass`,
/// `Molecule`, `NamedMolecule`, `zel::Error`.
void askMasses(Answers* answers);

/// `construct`, copies, moves and assignments of a factory, `init` and the tables of a derived
/// class, `defaultChemicalFactory`, `normalize`.
void askFactories(Answers* answers);

/// `buildingBlockType`, `buildingBlockTypes`, `setBuildingBlock`, `standardPeptideTermini`,
/// `standardOligoTermini`, `convertOldOligoBuildingBlockFormula`, `ChainDelimeter`.
void askBlocks(Answers* answers);

/// `parseAminoAcidSequence`, `constructLinearPeptideComplex`, `AminoAcid`.
void askPeptides(Answers* answers);

/// `isValidOligoSequence`, `generateFullOligoRegex`, `generateOligoSequenceRegex`,
/// `parseNucleotideSequence`, both `constructLinearOligoComplex`, `constructLinearOligoComplexes`,
/// `Nucleotide`.
void askStrands(Answers* answers);

/// `isValidGlycanComposition`, `constructGlycanModification`, `modifyMoleculeWithGlycan`.
void askGlycans(Answers* answers);

/// Both `generateLinearFragments`, `typeToString`, `ComplexResidue`, `FragmentationSite`,
/// `MoleculeComplex`, `Fragment`.
void askFragments(Answers* answers);

/// `MoleculeEntity` of each kind, `Chain`, `Link`, `Modification`, their comparisons, and the five
/// builders of structured molecules.
void askEntities(Answers* answers);

/// `Modify`, `Unmodify`, `EstablishLink`, `ChainFragmenter`, `TransformationEntity`,
/// `chem::modifyMolecule`.
void askSteps(Answers* answers);

/// `ClipOptions`, `generateClips`.
void askClips(Answers* answers);

/// `ObservedMassEntity`, `absoluteMassToleranceDelta`, `match`.
void askMatches(Answers* answers);

/// The `staticMetaObject` of both enumerations, their text and stream forms.
void askEnumerations(Answers* answers);

/// `generateIsotopeEnvelope`.
void askEnvelopes(Answers* answers);
