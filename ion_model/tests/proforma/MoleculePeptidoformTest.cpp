#include "BuiltMolecules.h"
#include "PeptidoformMolecules.h"
#include <zel_chemical_model/Clips.h>
#include <zel_chemical_model/EstablishLink.h>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

chem::MoleculeEntity named(const QString& formula, const QString& name)
{
    const chem::Molecule atoms =
        chem::defaultChemicalFactory()->modifyMolecule(chem::Molecule(), formula, 1);
    return chem::NamedMolecule(atoms, name, {});
}

/// A step that puts a group on a place of the first chain.
chem::MoleculeEntity with(const chem::MoleculeEntity& molecule, const chem::MoleculeEntity& group,
                          int place)
{
    return chem::Modify(chem::Modification(group, {{0, place}})).transform(molecule);
}

chem::MoleculeEntity ofParts(const QList<chem::Chain>& chains,
                             const QList<chem::Modification>& modifications,
                             const QList<chem::Link>& links)
{
    return chem::constructProteinFromChains({}, chains, modifications, links, nullptr);
}

void expectRefusal(const chem::MoleculeEntity& molecule, const QString& reason, qsizetype chain,
                   qsizetype residue)
{
    SCOPED_TRACE(reason.toStdString());
    const Parsed<Peptidoform> value = peptidoformOf(molecule);
    ASSERT_FALSE(value.hasValue()) << value->toString().toStdString();
    EXPECT_TRUE(value.error().message.contains(reason)) << value.error().message.toStdString();
    EXPECT_EQ(value.error().chain, chain);
    EXPECT_EQ(value.error().residue, residue);
}

TEST(MoleculePeptidoform, ProgramsModificationsAreNamedByTheirAtoms)
{
    const chem::MoleculeEntity peptide = builtPeptide(u"PESTIDE"_s);
    EXPECT_EQ(textOf(peptide), u"PESTIDE"_s);
    EXPECT_EQ(textOf(modified(peptide, u"HPO3"_s, {{0, 3}})), u"PES[Phospho]TIDE"_s);
    EXPECT_EQ(textOf(modified(peptide, u"C2H2O"_s, {{0, 0}})), u"[Acetyl]-PESTIDE"_s);
    EXPECT_EQ(textOf(modified(peptide, u"HNO-1"_s, {{0, 8}})), u"PESTIDE-[Amidated]"_s);
    EXPECT_EQ(textOf(modified(peptide, u"C100H3Fe"_s, {{0, 1}})), u"P[Formula:C100H3Fe]ESTIDE"_s);
}

/// Oxidation has the atoms of Ala->Ser, methylation those of Gly->Ala and five more.
TEST(MoleculePeptidoform, AmongEqualsNoExchangeOfResiduesThenTheLowestNumber)
{
    const chem::MoleculeEntity peptide = builtPeptide(u"AMA"_s);
    EXPECT_EQ(textOf(modified(peptide, u"O"_s, {{0, 2}})), u"AM[Oxidation]A"_s);
    EXPECT_EQ(textOf(modified(peptide, u"CH2"_s, {{0, 2}})), u"AM[Methyl]A"_s);
    EXPECT_EQ(textOf(modified(peptide, u"H-2O-1"_s, {{0, 2}})), u"AM[Dehydrated]A"_s);
    EXPECT_EQ(textOf(modified(peptide, u"H-1N-1O"_s, {{0, 2}})), u"AM[Deamidated]A"_s);
}

TEST(MoleculePeptidoform, NamesCountOnlyIfTheyTellTheTruth)
{
    const chem::MoleculeEntity peptide = builtPeptide(u"ASA"_s);
    EXPECT_EQ(textOf(with(peptide, named(u"HPO3"_s, u"U:phospho"_s), 2)), u"AS[U:phospho]A"_s);
    EXPECT_EQ(textOf(with(peptide, named(u"HPO3"_s, u"Sulfo"_s), 2)), u"AS[Phospho]A"_s);
    EXPECT_EQ(textOf(with(peptide, named(u"HPO3"_s, u"my phosphate"_s), 2)), u"AS[Phospho]A"_s);
    EXPECT_EQ(textOf(with(peptide, named(u"HPO3"_s, u"Phospho]A[+1"_s), 2)), u"AS[Phospho]A"_s);
    EXPECT_EQ(textOf(with(peptide, named(u"HPO3"_s, u"Phospho#g1"_s), 2)), u"AS[Phospho#g1]A"_s);
    // One label for two groups would make them one.
    EXPECT_EQ(textOf(with(with(peptide, named(u"HPO3"_s, u"Phospho#g1"_s), 2),
                          named(u"HPO3"_s, u"Phospho#g1"_s), 1)),
              u"A[Phospho#g1]S[Phospho]A"_s);
    EXPECT_EQ(textOf(with(with(peptide, named(u"HPO3"_s, u"Phospho#g1(0.9)"_s), 2),
                          named(u"HPO3"_s, u"Phospho#g1(0.1)"_s), 1)),
              u"A[Phospho#g1(0.1)]S[Phospho]A"_s);
}

TEST(MoleculePeptidoform, BareMassesAreMasses)
{
    const chem::MoleculeEntity peptide = builtPeptide(u"ASA"_s);
    EXPECT_EQ(textOf(with(peptide, 79.9, 2)), u"AS[+79.9]A"_s);
    EXPECT_EQ(textOf(with(peptide, -18, 0)), u"[-18]-ASA"_s);
    EXPECT_EQ(textOf(with(peptide, nullptr, 2)), u"AS[+0]A"_s);
    expectRefusal(with(peptide, chem::Molecule({}, 80.1, 80.0), 2), u"one mass"_s, 0, 2);
}

TEST(MoleculePeptidoform, StepsShowInTheText)
{
    const chem::MoleculeEntity start = moleculeOf(u"[Acetyl]-PES[Phospho]TIDE"_s);
    const chem::MoleculeEntity more = modified(start, u"CH2"_s, {{0, 7}});
    EXPECT_EQ(textOf(more), u"[Acetyl]-PES[Phospho]TIDE[Methyl]"_s);
    const chem::Modification phospho(start.chains()[0].residues()[3].modifications()[0].entity(),
                                     {{0, 3}});
    EXPECT_EQ(textOf(chem::Unmodify(phospho).transform(more)), u"[Acetyl]-PESTIDE[Methyl]"_s);
    EXPECT_EQ(textOf(modified(start, u"CH2"_s, {{0, 1}, {0, 2}})),
              u"[Acetyl]-P[Methyl#g1]E[#g1]S[Phospho]TIDE"_s);
    EXPECT_EQ(textOf(modified(start, u"CH2"_s, {})), u"[Methyl]?[Acetyl]-PES[Phospho]TIDE"_s);
}

TEST(MoleculePeptidoform, CutsShowInTheText)
{
    const chem::MoleculeEntity start = moleculeOf(u"PES[Phospho]TIDE"_s);
    const chem::MoleculeEntity blank = nullptr;
    const chem::MoleculeEntity piece = pieceOf(start, blank, 2, 6);
    EXPECT_EQ(textOf(piece), u"[Formula:H-1]-ES[Phospho]TI-[Formula:H-1O-1]"_s);
    EXPECT_NEAR(monoisotopic(textOf(piece)), piece.monoMass(), 1e-8);
    const chem::ChainFragmenter whole(
        {{named(u"H"_s, u"NTerm"_s), {{}, 0, 2, 6}, named(u"OH"_s, u"CTerm"_s)}});
    EXPECT_EQ(textOf(whole.transform(start)), u"ES[Phospho]TI"_s);
    // Steps on a piece count from its own first residue.
    EXPECT_EQ(textOf(modified(piece, u"CH2"_s, {{0, 0}})),
              u"[Formula:H-1]-E[Methyl]S[Phospho]TI-[Formula:H-1O-1]"_s);
}

TEST(MoleculePeptidoform, CutsKeepWhatTheirPiecesHold)
{
    const chem::MoleculeEntity start = moleculeOf(u"<13C>AC[X:Disulfide#XL1]AC[#XL1]AK"_s);
    const chem::MoleculeEntity blank = nullptr;
    EXPECT_EQ(textOf(pieceOf(start, blank, 2, 5)),
              u"<13C>[Formula:H-1]-C[X:Disulfide#XL1]AC[#XL1]-[Formula:H-1O-1]"_s);
    EXPECT_EQ(textOf(pieceOf(start, blank, 3, 6)), u"<13C>[Formula:H-1]-ACA-[Formula:H-1O-1]"_s);
    expectRefusal(pieceOf(moleculeOf(u"AS[Phospho#g1]S[#g1]"_s), blank, 2, 4), u"before a cut"_s, 0,
                  2);
    const QList<chem::MoleculeEntity> clips =
        chem::generateClips(start, nullptr, chem::ClipOptions::createClipAll());
    EXPECT_EQ(clips.size(), 11);
    for (const chem::MoleculeEntity& clip : clips)
        EXPECT_NEAR(monoisotopic(textOf(clip)), clip.monoMass(), 1e-8);
}

TEST(MoleculePeptidoform, LinksOfStepsAreNamedByTheirAtoms)
{
    const chem::EstablishLink disulfide(group(u"H-2"_s), {{0, 2}, {0, 4}});
    const chem::MoleculeEntity once = disulfide.transform(builtPeptide(u"ACACA"_s));
    EXPECT_EQ(textOf(once), u"AC[X:Disulfide#XL1]AC[#XL1]A"_s);
    EXPECT_EQ(textOf(disulfide.transform(once)),
              u"AC[X:Disulfide#XL1][X:Disulfide#XL2]AC[#XL1][#XL2]A"_s);
    const chem::EstablishLink rare(group(u"C31O-2"_s), {{0, 0}, {0, 6}});
    EXPECT_EQ(textOf(rare.transform(builtPeptide(u"ACACA"_s))),
              u"[Formula:C31O-2#XL1]-ACACA-[#XL1]"_s);
    // Labels that names have are not given again.
    const chem::MoleculeEntity linked = moleculeOf(u"AC[X:Disulfide#XL1]AC[#XL1]A"_s);
    EXPECT_EQ(textOf(chem::EstablishLink(group(u"H-2"_s), {{0, 1}, {0, 3}}).transform(linked)),
              u"A[X:Disulfide#XL2]C[X:Disulfide#XL1]A[#XL2]C[#XL1]A"_s);
}

TEST(MoleculePeptidoform, ResiduesAndEndsThatWeighMoreAreModified)
{
    const auto factory = chem::ChemicalFactory::construct({});
    factory->setBuildingBlock(chem::ChemicalFactory::AminoAcidBlock, u"C"_s, u"Cam"_s,
                              u"C5H8N2O2S"_s);
    factory->setBuildingBlock(chem::ChemicalFactory::AminoAcidBlock, u"b"_s, u"beta"_s, u"C4H7"_s);
    const chem::Chain chain = chem::constructPeptideChain({}, {}, u"ACbA"_s, factory.data());
    EXPECT_EQ(textOf(ofParts({chain}, {}, {})), u"AC[Carbamidomethyl]X[Formula:C4H7]A"_s);
    QList<chem::MoleculeEntity> residues = peptideChain(u"AG"_s).residues();
    residues.first() = named(u"C2H3O"_s, u"NTerm"_s);
    EXPECT_EQ(textOf(ofResidues(residues)), u"[Acetyl]-AG"_s);
    residues[1] = chem::AminoAcid(chem::NamedMolecule(chem::Molecule({}, 80, 80), {}, u"A"_s));
    expectRefusal(ofResidues(residues), u"one mass"_s, 0, 1);
}

TEST(MoleculePeptidoform, LabelsOfAllAtomsAreToldFromThoseOfSome)
{
    const chem::MoleculeEntity heavy = moleculeOf(u"<13C><15N>AK[Acetyl]M"_s);
    EXPECT_EQ(textOf(heavy), u"<13C><15N>AK[Acetyl]M"_s);
    // An unlabelled group on a labelled peptide: the label is then that of each residue.
    const QString mixed = textOf(modified(heavy, u"CH2"_s, {{0, 1}}));
    EXPECT_FALSE(mixed.contains(u'<')) << mixed.toStdString();
    EXPECT_TRUE(mixed.startsWith(u"A[Methyl]"_s)) << mixed.toStdString();
    EXPECT_NEAR(monoisotopic(mixed), heavy.monoMass() + 14.0156501, 1e-7);
}

TEST(MoleculePeptidoform, PlacesOfLabelsAreOfOneChain)
{
    const QList<chem::Chain> two = {peptideChain(u"AS"_s), peptideChain(u"SA"_s)};
    const chem::MoleculeEntity phospho = group(u"HPO3"_s);
    EXPECT_EQ(textOf(ofParts(two, {{phospho, {{1, 1}}}}, {})), u"AS//S[Phospho]A"_s);
    EXPECT_EQ(textOf(ofParts(two, {{phospho, {{1, 1}, {1, 2}}}}, {})), u"AS//[Phospho]?SA"_s);
    expectRefusal(ofParts(two, {{phospho, {{0, 1}, {1, 1}}}}, {}), u"one chain"_s, 1, 1);
    expectRefusal(ofParts(two, {{phospho, {}}}, {}), u"several chains"_s, -1, -1);
    expectRefusal(ofParts(two, {{chem::Molecule({}, 80.1, 80.0), {{1, 1}, {1, 2}}}}, {}),
                  u"one mass"_s, 1, 1);
}

TEST(MoleculePeptidoform, WhatIsNoPeptidoformIsRefused)
{
    const chem::Chain chain = peptideChain(u"ASA"_s);
    const chem::MoleculeEntity phospho = group(u"HPO3"_s);
    expectRefusal(nullptr, u"a chain"_s, -1, -1);
    expectRefusal(group(u"H2O"_s), u"a chain"_s, -1, -1);
    expectRefusal(builtOligo(u"ACGT"_s), u"amino acids"_s, 0, -1);
    expectRefusal(builtPeptide(u"AXA"_s), u"a mass"_s, 0, 2);
    expectRefusal(ofParts({chain}, {{phospho, {{0, 9}}}}, {}), u"at a residue"_s, 0, 9);
    expectRefusal(ofParts({chain}, {}, {{phospho, {{0, 1}, {1, 1}}}}), u"between"_s, 1, 1);
    expectRefusal(ofParts({chain}, {}, {{phospho, {{0, 1}, {0, -1}}}}), u"between"_s, 0, -1);
    chem::MoleculeEntity crowded = ofParts({chain}, {}, {});
    for (int i = 0; i < 3; ++i)
        crowded = with(crowded, phospho, 0);
    expectRefusal(crowded, u"two modifications"_s, 0, 0);
}

} // namespace

} // namespace ions
