#pragma once

#include "Answers.h"

/// \file
/// The families of requests, and which public function each one calls. A function that several
/// families call stands where its own results are looked at.
///
/// | Family | Calls |
/// |---|---|
/// | formulas | `parseChemicalFormula`, all of `ChemicalFormula` |
/// | masses | `constructMolecule`, `calculateMassesForFormula`,
/// `calculateMassesForElementCountArrays`, `ChemicalFactory::modifyMolecule`,
/// `moleculeBasedOnAverageMass`, `moleculeBasedOnMonoMass`, `Molecule`, `NamedMolecule`,
/// `zel::Error` | | factories | `construct`, `init` and the tables of a derived class, copies,
/// moves and assignments of a factory, `defaultChemicalFactory`, `normalize` | | blocks |
/// `buildingBlockType`, `buildingBlockTypes`, `setBuildingBlock`,
/// `convertOldOligoBuildingBlockFormula`, `standardPeptideTermini`, `standardOligoTermini`,
/// `ChainDelimeter` | | peptides | `parseAminoAcidSequence`, `constructLinearPeptideComplex`,
/// `AminoAcid` | | strands | `isValidOligoSequence`, `generateFullOligoRegex`,
/// `generateOligoSequenceRegex`, `parseNucleotideSequence`, both `constructLinearOligoComplex`,
/// `constructLinearOligoComplexes`, `Nucleotide` | | glycans | `isValidGlycanComposition`,
/// `constructGlycanModification`, `modifyMoleculeWithGlycan` | | fragments | both
/// `generateLinearFragments`, `typeToString`, `ComplexResidue`, `FragmentationSite`,
/// `MoleculeComplex`, `Fragment` | | entities | `MoleculeEntity` of each kind, `Chain`, `Link`,
/// `Modification`, comparisons, the five builders | | steps | `Modify`, `Unmodify`,
/// `EstablishLink`, `ChainFragmenter`, `TransformationEntity`, `chem::modifyMolecule` | | clips |
/// `ClipOptions`, `generateClips` | | matches | `ObservedMassEntity`, `match`,
/// `absoluteMassToleranceDelta` | | enumerations | both `staticMetaObject`, their text and stream
/// forms | | envelopes | `generateIsotopeEnvelope` |

void askFormulas(Answers* answers);
void askMasses(Answers* answers);
void askFactories(Answers* answers);
void askBlocks(Answers* answers);
void askPeptides(Answers* answers);
void askStrands(Answers* answers);
void askGlycans(Answers* answers);
void askFragments(Answers* answers);
void askEntities(Answers* answers);
void askSteps(Answers* answers);
void askClips(Answers* answers);
void askMatches(Answers* answers);
void askEnumerations(Answers* answers);
void askEnvelopes(Answers* answers);
