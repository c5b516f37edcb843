#include "PeptidoformMolecules.h"
#include "ProFormaExamples.h"
#include "RandomPeptidoforms.h"
#include <zel_chemical_model/ChemicalFactory.h>
#include <zel_chemical_model/LinearComplex.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Position = std::pair<int, int>;

/// The whole of one ion, as weigh() has it, with nothing left out.
void expectThereAndBack(const QString& text)
{
    SCOPED_TRACE(text.toStdString());
    const Peptidoform value = peptidoform(text);
    const auto molecule = moleculeOf(value);
    ASSERT_TRUE(molecule.hasValue()) << molecule.error().message.toStdString();
    EXPECT_TRUE(isSameWeight(weightOf(text)->masses, *molecule)) << molecule->monoMass();
    EXPECT_EQ(textOf(*molecule), value.toString());
    const Parsed<Peptidoform> back = peptidoformOf(*molecule);
    EXPECT_TRUE(back && *back == value);
}

TEST(PeptidoformMolecule, EqualPeptidoformsComeBack)
{
    for (const QString& text :
         {u"PEPTIDE"_s, u"EM[Oxidation]EVEES[Phospho]PEK"_s,
          u"EM[U:Oxidation]EVEES[UNIMOD:21]PEK"_s,
          u"[iTRAQ4plex]-EM[Oxidation]EVNES[Phospho]PEK[iTRAQ4plex]-[Methyl]"_s,
          u"[Acetyl][+1.5]-AG-[Amidated][-2]"_s, u"AM[+15.9949]EK[Obs:+42.1|no such]"_s,
          u"SEQUEN[Glycan:HexNAcHex2]CE"_s, u"RTAAX[+367.0537]WT"_s, u"UOJ"_s,
          u"S[Formula:[13C2]C-2H2N]K"_s, u"A[Formula:[12C2]C-2]G"_s,
          u"<13C><15N>ATPEM[Oxidation]K"_s, u"<D>GS[Formula:[1H2]C]"_s, u"G[+0]A"_s,
          u"S[Phospho][Methyl]T"_s, u"PEPT[Oxidation|Position:M]IDE"_s,
          u"A[Phospho|Sulfo|Obs:+79.97]"_s}) {
        expectThereAndBack(text);
    }
}

TEST(PeptidoformMolecule, EqualPlacesComeBack)
{
    for (const QString& text :
         {u"[Phospho]?PEPTIDE"_s, u"[Phospho]^3?PESTSTIDE"_s, u"[Phospho|Position:S,T]?PESTIDE"_s,
          u"[Oxidation|Position:M]^2[Phospho]?MAMSM"_s, u"[Oxidation|Position:M]?PEMTIDE"_s,
          u"[Oxidation|CoMKP]?PEPT[Phospho]IDE"_s, u"EMEVT[#g1]S[#g1]ES[Phospho#g1]PEK"_s,
          u"[Phospho#s1]?EM[Oxidation]EVT[#s1]S[#s1]ES[#s1]PEK"_s, u"[Phospho#s1]?ES[#s1]PEK"_s,
          u"[Phospho#s1]^2?EVT[#s1]S[#s1]ES[#s1]"_s, u"AHAM[Oxidation#1]TEG-[#1]"_s,
          u"AHAM[#1]TEG-[Oxidation#1]"_s, u"[Deamidated#1]-FEEAQ[#1]A"_s, u"AM[Oxidation#1]G"_s,
          u"[Phospho]?PEP"_s, u"[Phospho|Position:N-term]?PEP"_s,
          u"S[Phospho#g1]S[#g1]//S[Phospho#g1]S[#g1]"_s}) {
        expectThereAndBack(text);
    }
}

TEST(PeptidoformMolecule, EqualBridgesComeBack)
{
    for (const QString& text :
         {u"EVTSEKC[Dehydro#XL1]LEMSC[#XL1]EFD"_s, u"EVTSEKC[#XL7]LEMSC[X:Disulfide#XL7]EFD"_s,
          u"SEK[XLMOD:02001#XL1]UENCE//EMEVTK[XLMOD:02001#XL1]SESPEK"_s,
          u"SEK[X:DSS#XL1]UENCE//EMEVTK[#XL1]SESPEK"_s, u"EMK[X:DSS#XL1]EVTK"_s,
          u"ETFGD[U:Dehydrated#BRANCH]A//R[#BRANCH]ATER"_s, u"K[X:DSS#XL1]K[#XL1]//AK[#XL1]"_s,
          u"[X:DSS#XL1]-AK[#XL1]"_s, u"AC[X:Disulfide#XL1]C[X:Disulfide#XL2]AC[#XL2]C[#XL1]"_s,
          u"AA//GG//K"_s, u"AS[Phospho#g1]S[#g1]//[Phospho|Position:S]?SAS"_s}) {
        expectThereAndBack(text);
    }
}

/// All examples of the standard: most are refused for parts that have no place or no mass.
TEST(PeptidoformMolecule, ExamplesThatMoleculesHoldComeBackEqual)
{
    int compared = 0;
    for (const ProFormaExample& example : proFormaExamples()) {
        const Parsed<Peptidoform> value = Peptidoform::read(wholeText(example));
        if (!value || !moleculeOf(*value))
            continue;
        SCOPED_TRACE(value->toString().toStdString());
        const auto molecule = *moleculeOf(*value);
        EXPECT_EQ(lawBrokenByMolecule(*value), nullptr);
        ++compared;
        if (value->fixed.empty()) {
            EXPECT_EQ(textOf(molecule), value->toString());
            EXPECT_TRUE(*peptidoformOf(molecule) == *value);
        } else {
            EXPECT_FALSE(textOf(molecule).contains(u'<'));
        }
    }
    EXPECT_GE(compared, 71);
}

/// With all that has no place left out, every example that has a mass is a molecule.
TEST(PeptidoformMolecule, ExamplesAreMoleculesWithoutWhatHasNoPlace)
{
    int compared = 0;
    for (const ProFormaExample& example : proFormaExamples()) {
        const Parsed<Peptidoform> value = Peptidoform::read(wholeText(example));
        if (!value || !value->weigh(0, naturalResidues(), standardModifications()))
            continue;
        SCOPED_TRACE(value->toString().toStdString());
        const auto molecule = moleculeOf(*value, Placeless::Dropped);
        ASSERT_TRUE(molecule.hasValue()) << molecule.error().message.toStdString();
        const char* const broken = lawBrokenThroughMolecules(*value);
        EXPECT_EQ(broken, nullptr) << broken << " " << textOf(*molecule).toStdString();
        ++compared;
    }
    EXPECT_GE(compared, 119);
}

RC_GTEST_PROP(PeptidoformMolecule, LawsHoldForTextsOfTheGrammar, ())
{
    const unsigned seed = *rc::gen::inRange<unsigned>(0, std::numeric_limits<unsigned>::max());
    const Peptidoform value = Peptidoform::read(RandomPeptidoform(seed).text()).value();
    RC_ASSERT(lawBrokenByMolecule(value) == nullptr);
    if (const char* broken = lawBrokenThroughMolecules(value)) {
        const auto molecule = moleculeOf(value, Placeless::Dropped);
        RC_FAIL(value.toString().toStdString() + " is " + textOf(*molecule).toStdString() + ": " +
                broken);
    }
}

/// Texts whose names are all known, so that nearly every one is a molecule.
QString knownPeptidoform()
{
    const auto pick = [](const QStringList& texts) {
        return texts[*rc::gen::inRange<qsizetype>(0, texts.size())];
    };
    static const QStringList front = {{},
                                      u"[Phospho]?"_s,
                                      u"[Oxidation|Position:M]^2?"_s,
                                      u"<13C>"_s,
                                      u"<15N><D>"_s,
                                      u"<[+1]@K,N-term>"_s,
                                      u"[Acetyl]-"_s,
                                      u"[Phospho#s1]?[#s1]-"_s,
                                      u"[Phospho#s1]^2?"_s,
                                      u"<34S>"_s};
    static const QStringList units = {u"A"_s,
                                      u"M"_s,
                                      u"K"_s,
                                      u"S[Phospho]"_s,
                                      u"M[+15.99]"_s,
                                      u"C[#XL1]"_s,
                                      u"S[#g1]"_s,
                                      u"X[+100]"_s,
                                      u"C[X:Disulfide#XL1]"_s,
                                      u"T[#s1]"_s,
                                      u"K[U:Methyl]"_s,
                                      u"N[Glycan:Hex2]"_s,
                                      u"R[Label:13C(6)]"_s,
                                      u"S[Phospho#g1]"_s,
                                      u"(ST)[Phospho]"_s};
    QString text = pick(front);
    for (int count = *rc::gen::inRange(1, 9); count > 0; --count)
        text += pick(units);
    return text + pick({{}, u"-[Amidated]"_s, u"-[+5][#g1]"_s, u"//AK[Methyl]"_s, u"//C[#XL1]A"_s});
}

RC_GTEST_PROP(PeptidoformMolecule, LawsHoldForKnownModifications, ())
{
    const Parsed<Peptidoform> value = Peptidoform::read(knownPeptidoform());
    RC_PRE(value.hasValue());
    const auto molecule = moleculeOf(*value, Placeless::Dropped);
    RC_PRE(molecule.hasValue());
    if (lawBrokenByMolecule(*value))
        RC_FAIL(value->toString().toStdString() + " weighs something else as a molecule");
    if (const char* broken = lawBrokenThroughMolecules(*value))
        RC_FAIL(value->toString().toStdString() + " is " + textOf(*molecule).toStdString() + ": " +
                broken);
}

TEST(PeptidoformMolecule, RulesAreWrittenOut)
{
    EXPECT_EQ(textOf(moleculeOf(u"<[Carbamidomethyl]@C>AC[+5]AC"_s)),
              u"AC[+5]AC[Carbamidomethyl]"_s);
    EXPECT_EQ(textOf(moleculeOf(u"<[TMT6plex]@K,N-term>KAK"_s)),
              u"[TMT6plex]-K[TMT6plex]AK[TMT6plex]"_s);
}

TEST(PeptidoformMolecule, PlainPeptidesAreThoseOfTheFirstLibrary)
{
    const auto complex =
        chem::defaultChemicalFactory()->constructLinearPeptideComplex(u"ACDEFGHIKLMNPQRSTVWY"_s);
    const chem::MoleculeEntity molecule = moleculeOf(u"ACDEFGHIKLMNPQRSTVWY"_s);
    EXPECT_EQ(molecule.sequence(), u"H-ACDEFGHIKLMNPQRSTVWY-OH"_s);
    EXPECT_EQ(molecule.formula().toString(), complex->formula().toString());
    EXPECT_NEAR(molecule.monoMass(), complex->monoMass(), 1e-9);
    EXPECT_EQ(molecule.type(), chem::MoleculeType::Protein);
    EXPECT_EQ(molecule.chains().first().type(), chem::MoleculeType::Peptide);
    EXPECT_EQ(molecule.chains().first().residues()[1].name(), u"Alanine"_s);
    EXPECT_EQ(molecule.chains().first().residues()[1].type(), chem::MoleculeType::AminoAcid);
}

TEST(PeptidoformMolecule, ModificationsAreStepsOnTheirResidue)
{
    const QList<chem::MoleculeEntity> residues =
        moleculeOf(u"[Acetyl]-PEM[Oxidation]-[Amidated]"_s).chains().first().residues();
    ASSERT_EQ(residues.size(), 5);
    const QStringList names = {u"Acetyl"_s, {}, {}, u"Oxidation"_s, u"Amidated"_s};
    for (qsizetype i = 0; i < residues.size(); ++i) {
        const QList<chem::Modification> groups = residues[i].modifications();
        ASSERT_EQ(groups.size(), names[i].isEmpty() ? 0 : 1) << i;
        EXPECT_EQ(residues[i].transformations().size(), groups.size());
        const QString name = groups.isEmpty() ? QString() : groups.first().entity().name();
        EXPECT_EQ(name, names[i]);
    }
}

TEST(PeptidoformMolecule, OpenModificationsHaveTheirPlacesTheDescribedOneFirst)
{
    const auto places = [](const QString& text) {
        const QList<chem::Modification> all = moleculeOf(text).modifications();
        EXPECT_EQ(all.size(), 1) << text.toStdString();
        return all.value(0).possibleChainLocations();
    };
    EXPECT_EQ(places(u"[Phospho]?PEST"_s), QList<Position>());
    EXPECT_EQ(places(u"PES[#g1]T[Phospho#g1]"_s), (QList<Position>{{0, 4}, {0, 3}}));
    EXPECT_EQ(places(u"[#g1]-PES[Phospho#g1]-[#g1]"_s), (QList<Position>{{0, 3}, {0, 0}, {0, 4}}));
    EXPECT_EQ(places(u"[Phospho|Position:S,T]?PEST"_s), (QList<Position>{{0, 3}, {0, 4}}));
    EXPECT_EQ(places(u"AA//[Phospho]?SS"_s), (QList<Position>{{1, 1}, {1, 2}}));
}

/// A label that only one residue can bear makes no difference to how many there are.
TEST(PeptidoformMolecule, EachOfSeveralModificationsIsThere)
{
    for (const QString& text :
         {u"[Phospho]^3?A//G"_s, u"[Phospho#s1]^3?A//G"_s, u"[Phospho#s1]^2?A[#s1]G"_s,
          u"[Phospho#s1]^2?(A)[Phospho#s1]G"_s}) {
        const auto molecule = moleculeOf(peptidoform(text), Placeless::Dropped);
        ASSERT_TRUE(molecule.hasValue()) << text.toStdString();
        EXPECT_NEAR(molecule->monoMass(), monoisotopic(text), 1e-8) << text.toStdString();
    }
    EXPECT_EQ(textOf(moleculeOf(u"[Phospho#s1]^2?A//G"_s)), u"A[Phospho][Phospho#s1]//G"_s);
}

TEST(PeptidoformMolecule, BridgesAreLinks)
{
    const chem::MoleculeEntity molecule = moleculeOf(u"AC[#XL1]//C[X:Disulfide#XL1]"_s);
    ASSERT_EQ(molecule.links().size(), 1);
    const chem::Link link = molecule.links().first();
    EXPECT_EQ(link.connection(), chem::Link::Connection({1, 1}, {0, 2}));
    EXPECT_NEAR(link.entity().monoMass(), -2.0156501, 1e-7);
    EXPECT_EQ(link.entity().name(), u"X:Disulfide#XL1"_s);
    EXPECT_EQ(link.entity().code(), u"#XL1"_s);
    EXPECT_EQ(molecule.chains().size(), 2);
}

TEST(PeptidoformMolecule, HeavyAtomsCarryTheirMassAndStandInTheFormula)
{
    const chem::MoleculeEntity heavy = moleculeOf(u"<13C>G[Formula:[15N]C]"_s);
    EXPECT_EQ(heavy.formula().elementCountMap().value(u"[13C]"_s), 3);
    EXPECT_EQ(heavy.formula().elementCountMap().value(u"[15N]"_s), 1);
    EXPECT_EQ(heavy.formula().elementCountMap().value(u"C"_s), 0);
    const auto composition =
        Composition::ofMolecule(heavy, naturalResidues().atoms()).value().toString();
    EXPECT_EQ(composition, compositionText(u"<13C>G[Formula:[15N]C]"_s));
}

TEST(PeptidoformMolecule, TablesOfALabelledFactoryWeighThereAndBack)
{
    const auto factory = chem::ChemicalFactory::construct(u"N15:0.99 N14:0.01"_s);
    const ResidueTable residues(*factory);
    const ModificationTable table = ModificationTable::standard(residues.atoms());
    for (const QString& text : {u"AK[Acetyl]R-[Amidated]"_s, u"<13C>AK[Acetyl]R"_s}) {
        const Peptidoform value = peptidoform(text);
        const auto molecule = value.molecule(0, residues, table);
        ASSERT_TRUE(molecule.hasValue()) << molecule.error().message.toStdString();
        EXPECT_TRUE(isSameWeight(value.weigh(0, residues, table)->masses, *molecule));
        EXPECT_FALSE(isSameWeight(weightOf(text)->masses, *molecule));
        EXPECT_EQ(Peptidoform::ofMolecule(*molecule, residues, table)->toString(), text);
    }
}

/// Where no residue tells that all atoms of an element are labelled, each group does.
TEST(PeptidoformMolecule, IsotopesOfElementsThatNoResidueHasAreWrittenOut)
{
    EXPECT_NEAR(moleculeOf(u"<34S>PEK[Sulfo]"_s).monoMass(), monoisotopic(u"<34S>PEK[Sulfo]"_s),
                1e-8);
    EXPECT_EQ(textOf(moleculeOf(u"<34S>PEK[Sulfo]"_s)), u"PEK[Formula:O3[34S]]"_s);
    EXPECT_EQ(textOf(moleculeOf(u"<34S>PEK"_s)), u"PEK"_s);
    EXPECT_EQ(textOf(moleculeOf(u"<13C>X[+100]"_s)), u"X[+100]"_s);
    EXPECT_EQ(textOf(moleculeOf(u"<D>X[+100]"_s)), u"<2H>X[+100]"_s);
}

/// Carbon-12 in place of carbon weighs exactly 0, which the first library takes for "not known".
TEST(PeptidoformMolecule, GroupsOfNoMassKeepTheirMasses)
{
    const QString text = u"A[Formula:[12C2]C-2]G"_s;
    EXPECT_NEAR(moleculeOf(text).monoMass(), monoisotopic(u"AG"_s), 1e-9);
    EXPECT_NEAR(moleculeOf(text).averageMass(), weightOf(text)->masses.average, 1e-9);
}

void expectRefused(const QString& text, const QString& reason, const QString& dropped)
{
    SCOPED_TRACE(text.toStdString());
    const auto refused = moleculeOf(peptidoform(text));
    ASSERT_FALSE(refused.hasValue());
    EXPECT_TRUE(refused.error().message.contains(reason)) << refused.error().message.toStdString();
    const auto molecule = moleculeOf(peptidoform(text), Placeless::Dropped);
    ASSERT_TRUE(molecule.hasValue()) << molecule.error().message.toStdString();
    EXPECT_EQ(textOf(*molecule), dropped);
}

TEST(PeptidoformMolecule, WhatHasNoPlaceIsRefusedOrDropped)
{
    expectRefused(u"{Glycan:Hex}PEK"_s, u"labile"_s, u"PEK"_s);
    expectRefused(u"P(EK)[+5]"_s, u"ranges"_s, u"PE[+5#g1]K[#g1]"_s);
    expectRefused(u"P(EK)[INFO:x]"_s, u"ranges"_s, u"PEK"_s);
    expectRefused(u"P(?EK)"_s, u"ranges"_s, u"PEK"_s);
    expectRefused(u"S[Phospho#g1(0.9)]T[#g1(0.1)]"_s, u"scores"_s, u"S[Phospho#g1]T[#g1]"_s);
    expectRefused(u"S[Phospho|INFO:x]T[INFO:y]"_s, u"remarks"_s, u"S[Phospho]T"_s);
    expectRefused(u"<[+5|INFO:x]@S>SA"_s, u"remarks"_s, u"S[+5]A"_s);
    expectRefused(u"(>>>a)PEK"_s, u"name"_s, u"PEK"_s);
    expectRefused(u"(>>a)PEK"_s, u"name"_s, u"PEK"_s);
    expectRefused(u"(>a)PEK"_s, u"name"_s, u"PEK"_s);
    expectRefused(u"PEK/2"_s, u"charges"_s, u"PEK"_s);
    expectRefused(u"PEK/[Na:z+1]"_s, u"charges"_s, u"PEK"_s);
    expectRefused(u"PE[Formula:Zn:z+2]K"_s, u"charges"_s, u"PE[Formula:Zn]K"_s);
    expectRefused(u"PE[Glycan:{C8H14N:z+1}2]K"_s, u"charges"_s, u"PE[Glycan:{C8H14N}2]K"_s);
    expectRefused(u"PEK+AG"_s, u"several ions"_s, u"PEK"_s);
}

TEST(PeptidoformMolecule, RefusalsTellThePlace)
{
    const auto error = moleculeOf(peptidoform(u"AG//PS[Phospho|INFO:x]"_s)).error();
    EXPECT_EQ(error.position, 6);
    EXPECT_EQ(error.chain, 1);
    EXPECT_EQ(moleculeOf(peptidoform(u"A(?PS)"_s)).error().position, 3);
}

TEST(PeptidoformMolecule, WhatCannotBeAMoleculeIsRefusedAnyway)
{
    for (const QString& text :
         {u"A[no such]"_s, u"AX"_s, u"[Phospho|Position:S]?AAA"_s, u"[Phospho]^1001?AAA"_s,
          u"[X:DSS#XL1]?AK[#XL1]"_s, u"AK[#XL1]"_s, u"[INFO:x#g1]?A"_s, u"<12C><13C>A"_s}) {
        EXPECT_FALSE(moleculeOf(peptidoform(text), Placeless::Dropped)) << text.toStdString();
    }
    const Peptidoform one = peptidoform(u"A"_s);
    EXPECT_FALSE(one.molecule(1, naturalResidues(), standardModifications()));
    EXPECT_FALSE(one.molecule(-1, naturalResidues(), standardModifications()));
}

TEST(PeptidoformMolecule, TheWantedIonIsKept)
{
    const auto second =
        peptidoform(u"PEK+AG"_s)
            .molecule(1, naturalResidues(), standardModifications(), Placeless::Dropped);
    EXPECT_EQ(textOf(*second), u"AG"_s);
}

} // namespace

} // namespace ions
