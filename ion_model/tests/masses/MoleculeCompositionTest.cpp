#include "AtomMasses.h"
#include "BuiltMolecules.h"
#include "Composition.h"
#include "IsotopePattern.h"
#include "TestPrinters.h"
#include <zel_chemical_model/EstablishLink.h>

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

const AtomMasses& atoms()
{
    return residues().atoms();
}

Error refusalOf(const chem::MoleculeEntity& molecule)
{
    const auto composition = Composition::ofMolecule(molecule, atoms());
    EXPECT_FALSE(composition.hasValue());
    return composition ? Error() : composition.error();
}

/// Formulas as pharmacopoeias and databases of compounds print them.
TEST(MoleculeComposition, BuiltMoleculesHaveTheirPublishedFormulas)
{
    EXPECT_EQ(Composition::ofMolecule(builtPeptide(u"DRVYIHPF"_s), atoms())->toString(),
              u"C50H71N13O12"_s); // angiotensin II
    EXPECT_EQ(Composition::ofMolecule(builtOligo(u"TT"_s), atoms())->toString(),
              u"C20H27N4O12P"_s); // thymidylyl thymidine
    const chem::MoleculeEntity amide =
        modified(builtPeptide(u"CYIQNCPLG"_s), u"HNO-1"_s, {{0, 10}});
    const chem::MoleculeEntity oxytocin =
        chem::EstablishLink(group(u"H-2"_s), {{0, 1}, {0, 6}}).transform(amide);
    EXPECT_EQ(Composition::ofMolecule(oxytocin, atoms())->toString(), u"C43H66N12O12S2"_s);
}

TEST(MoleculeComposition, AChainCountsItsEnds)
{
    EXPECT_EQ(Composition::ofChain(peptideChain(u"DRVYIHPF"_s), atoms())->toString(),
              u"C50H71N13O12"_s);
    EXPECT_EQ(Composition::ofChain(peptideChain(QString()), atoms())->toString(), u"H2O"_s);
}

TEST(MoleculeComposition, EntitiesWithoutChainsAreOnePart)
{
    EXPECT_EQ(Composition::ofMolecule(group(u"HPO3"_s), atoms())->toString(), u"HO3P"_s);
    EXPECT_EQ(Composition::ofMolecule(group(u"H-2O-1"_s), atoms())->toString(), u"H-2O-1"_s);
    EXPECT_TRUE(Composition::ofMolecule(nullptr, atoms())->isEmpty());
    EXPECT_FALSE(Composition::ofMolecule(18.010565, atoms()).hasValue());
    EXPECT_FALSE(Composition::ofMolecule(std::numeric_limits<double>::quiet_NaN(), atoms()));
}

TEST(MoleculeComposition, HeavyAtomsStandUnderTheirIsotopes)
{
    const chem::Molecule heavy =
        atoms().molecule(formula(u"[13C6][15N2]C-6N-2"_s)).value(); // heavy lysine's excess
    const chem::MoleculeEntity peptide =
        chem::Modify(chem::Modification(heavy, {{0, 2}})).transform(builtPeptide(u"GK"_s));
    EXPECT_EQ(Composition::ofMolecule(peptide, atoms())->toString(),
              u"C2[13C6]H17N[15N2]O3"_s); // of C8H17N3O3
}

TEST(MoleculeComposition, TheFirstPartWithoutItsFormulaIsNamed)
{
    const chem::MoleculeEntity peptide = builtPeptide(u"GAST"_s);
    const chem::Modification bareMass(79.966331, {{0, 3}});
    const Error residue = refusalOf(chem::Modify(bareMass).transform(peptide));
    EXPECT_EQ(residue.chain, 0);
    EXPECT_EQ(residue.residue, 3);
    EXPECT_TRUE(residue.message.contains(u"formula"_s));

    const chem::MoleculeEntity open = chem::Modify(chem::Modification(14.01565, {{0, 1}, {0, 2}}))
                                          .transform(modified(peptide, u"CH2"_s, {{0, 1}, {0, 2}}));
    EXPECT_TRUE(refusalOf(open).message.startsWith(u"modification 2: "_s));

    const chem::MoleculeEntity linked =
        chem::EstablishLink(138.06808, {{0, 1}, {0, 2}}).transform(peptide);
    EXPECT_TRUE(refusalOf(linked).message.startsWith(u"link 1: "_s));
}

TEST(MoleculeComposition, AnUnknownLetterIsNotWeighedAsNothing)
{
    EXPECT_EQ(refusalOf(builtPeptide(u"GXG"_s)).residue, 2);
    EXPECT_EQ(Composition::ofChain(peptideChain(u"GXG"_s), atoms()).error().residue, 2);
}

TEST(MoleculeComposition, FormulasThatNoCompositionHasAreRefused)
{
    QMap<QString, double> half = {{u"C"_s, 0.5}};
    QMap<QString, double> electron = {{u"E"_s, 1.0}};
    const Masses halfCarbon = 0.5 * atoms().of({6, 0});
    EXPECT_FALSE(Composition::ofMolecule(
        chem::Molecule(half, halfCarbon.average, halfCarbon.monoisotopic), atoms()));
    EXPECT_FALSE(Composition::ofMolecule(chem::Molecule(electron, 5e-4, 5e-4), atoms()));
}

TEST(MoleculeComposition, MassesMayDifferByAMillionthOfADalton)
{
    const Masses water = atoms().weigh(formula(u"H2O"_s)).value();
    const auto weighing = [&](double excess) {
        return Composition::ofMolecule(chem::Molecule(formula(u"H2O"_s).toFormula(), water.average,
                                                      water.monoisotopic + excess),
                                       atoms());
    };
    EXPECT_TRUE(weighing(9e-7).hasValue());
    EXPECT_FALSE(weighing(1.1e-6).hasValue());
    EXPECT_FALSE(weighing(-1.1e-6).hasValue());
}

TEST(MoleculeComposition, ALabelledMoleculeNeedsTheTableOfItsFactory)
{
    const auto factory = chem::ChemicalFactory::construct(u"C13:1"_s);
    const chem::MoleculeEntity heavy = chem::constructProteinFromChains(
        QString(), {chem::constructPeptideChain(QString(), QString(), u"GG"_s, factory.data())}, {},
        {}, nullptr);
    EXPECT_EQ(Composition::ofMolecule(heavy, AtomMasses(*factory))->toString(), u"C4H8N2O3"_s);
    EXPECT_EQ(refusalOf(heavy).residue, 1); // the end has no carbon
}

TEST(MoleculeComposition, TotalsThatAreNotThoseOfThePartsAreRefusedWithoutAPlace)
{
    chem::StructuredMolecule odd;
    odd.chains = {peptideChain(u"GG"_s)};
    odd.monoMass = odd.averageMass = 100.0;
    const Error error = refusalOf(odd);
    EXPECT_EQ(error.chain, -1);
    EXPECT_TRUE(error.message.contains(u"100"_s));
}

/// A pattern's centre is the average mass, which the first library adds up from residues.
TEST(MoleculeComposition, GivesAModifiedMoleculeItsIsotopePattern)
{
    const chem::MoleculeEntity phosphopeptide =
        modified(builtPeptide(u"DRVYIHPF"_s), u"HPO3"_s, {{0, 4}});
    const auto pattern = IsotopePattern::of(
        Composition::ofMolecule(phosphopeptide, atoms()).value(), atoms(), largestCoverage);
    ASSERT_TRUE(pattern.hasValue());
    double centre = 0.0;
    for (std::size_t i = 0; i < pattern->shares().size(); ++i)
        centre += pattern->shares()[i] * pattern->centroids()[i];
    EXPECT_NEAR(centre, phosphopeptide.averageMass(), 1e-4);
    EXPECT_NEAR(pattern->centroids()[0], phosphopeptide.monoMass(), 1e-6);
}

} // namespace

} // namespace ions
