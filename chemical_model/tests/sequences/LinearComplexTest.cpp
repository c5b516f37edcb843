#include "TestPrinters.h"
#include <ChemicalFactory.h>
#include <LinearComplex.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

using chem::AminoAcid;
using chem::ChemicalFactory;
using chem::ComplexResidue;
using chem::Fragment;
using chem::FragmentationSite;
using chem::FragmentType;
using chem::Molecule;
using chem::MoleculeComplex;
using chem::NamedMolecule;
using chem::Nucleotide;

static_assert(std::is_base_of_v<NamedMolecule, AminoAcid>);
static_assert(std::is_base_of_v<NamedMolecule, Nucleotide>);
static_assert(std::is_base_of_v<NamedMolecule, ComplexResidue>);
static_assert(std::is_base_of_v<NamedMolecule, MoleculeComplex>);
static_assert(std::is_base_of_v<Molecule, Fragment>);
static_assert(!std::is_base_of_v<NamedMolecule, Fragment>);
static_assert(!std::is_base_of_v<Molecule, FragmentationSite>);

static_assert(sizeof(AminoAcid) == sizeof(NamedMolecule), "an amino acid adds no field");

static_assert(!std::is_polymorphic_v<AminoAcid>);
static_assert(!std::is_polymorphic_v<Nucleotide>);
static_assert(!std::is_polymorphic_v<ComplexResidue>);
static_assert(!std::is_polymorphic_v<FragmentationSite>);
static_assert(!std::is_polymorphic_v<MoleculeComplex>);
static_assert(!std::is_polymorphic_v<Fragment>);

static_assert(sizeof(ComplexResidue::position) == 4 && std::is_signed_v<int>);
static_assert(std::is_same_v<decltype(Fragment::parentComplex), const MoleculeComplex*>);
static_assert(std::is_constructible_v<Nucleotide, const NamedMolecule&, const NamedMolecule&,
                                      const NamedMolecule&, const QString&, const QString&>);

/// A molecule whose two masses are free numbers, so that a sum shows what was added to what.
Molecule moleculeOf(const QString& formula, double averageMass, double monoMass)
{
    return Molecule(ChemicalFactory::parseChemicalFormula(formula), averageMass, monoMass);
}

NamedMolecule namedOf(const QString& formula, double averageMass, double monoMass,
                      const QString& name, const QString& code)
{
    return NamedMolecule(moleculeOf(formula, averageMass, monoMass), name, code);
}

using Counts = QMap<QString, double>;

Nucleotide sampleNucleotide()
{
    return Nucleotide(namedOf(u"C5H4N5"_s, 0.1, 0.7, u"Adenine"_s, u"A"_s),
                      namedOf(u"C5O2H7"_s, 0.2, 0.1, u"sugar"_s, u"d"_s),
                      namedOf(u"HPO3"_s, 0.3, 0.2, u"linkage"_s, u"."_s), u"Adenine"_s, u"dA."_s);
}

TEST(AminoAcid, HoldsTheDictionaryEntryItIsMadeFrom)
{
    const AminoAcid glycine(namedOf(u"C2H3NO"_s, 57.1, 57.0, u"Glycine"_s, u"G"_s));
    EXPECT_EQ(glycine.code, u"G"_s);
    EXPECT_EQ(glycine.name, u"Glycine"_s);
    EXPECT_EQ(glycine.averageMass(), 57.1);
    EXPECT_EQ(glycine.monoMass(), 57.0);
    EXPECT_EQ(glycine.formula().toString(), u"C2H3NO"_s);
}

// 0.1 + (0.2 + 0.3) and (0.1 + 0.2) + 0.3 differ in the last bit; the sugar and the linkage are
// joined first.
TEST(Nucleotide, IsBasePlusTheSumOfSugarAndPhosphate)
{
    ASSERT_NE(0.1 + (0.2 + 0.3), (0.1 + 0.2) + 0.3);
    const Nucleotide nucleotide = sampleNucleotide();
    EXPECT_EQ(nucleotide.averageMass(), 0.1 + (0.2 + 0.3));
    EXPECT_EQ(nucleotide.monoMass(), 0.7 + (0.1 + 0.2));
    EXPECT_EQ(nucleotide.formula().elementCountMap(),
              (Counts{{u"C"_s, 10}, {u"H"_s, 12}, {u"N"_s, 5}, {u"O"_s, 5}, {u"P"_s, 1}}));
}

TEST(Nucleotide, KeepsCopiesOfItsPartsAndTheLabelsGiven)
{
    const Nucleotide nucleotide = sampleNucleotide();
    EXPECT_EQ(nucleotide.name, u"Adenine"_s);
    EXPECT_EQ(nucleotide.code, u"dA."_s);
    EXPECT_EQ(nucleotide.nucleobase.code, u"A"_s);
    EXPECT_EQ(nucleotide.nucleobase.averageMass(), 0.1);
    EXPECT_EQ(nucleotide.nucleobase.formula().toString(), u"C5H4N5"_s);
    EXPECT_EQ(nucleotide.ribose.code, u"d"_s);
    EXPECT_EQ(nucleotide.ribose.name, u"sugar"_s);
    EXPECT_EQ(nucleotide.ribose.averageMass(), 0.2);
    EXPECT_EQ(nucleotide.phosphate.code, u"."_s);
    EXPECT_EQ(nucleotide.phosphate.name, u"linkage"_s);
    EXPECT_EQ(nucleotide.phosphate.averageMass(), 0.3);
}

TEST(Nucleotide, WithoutPhosphateIsBasePlusSugar)
{
    const Nucleotide nucleotide(namedOf(u"C5H4N5"_s, 2.0, 1.0, u"Adenine"_s, u"A"_s),
                                namedOf(u"C5O2H7"_s, 20.0, 10.0, u"sugar"_s, u"d"_s),
                                NamedMolecule(), u"Adenine"_s, u"dA"_s);
    EXPECT_EQ(nucleotide.averageMass(), 22.0);
    EXPECT_EQ(nucleotide.monoMass(), 11.0);
    EXPECT_TRUE(nucleotide.phosphate.formula().isEmpty());
}

TEST(ComplexResidue, CopiesMoleculeAndLabelsOfTheMonomer)
{
    const ComplexResidue residue(namedOf(u"C2H3NO"_s, 57.1, 57.0, u"Glycine"_s, u"G"_s), 3);
    EXPECT_EQ(residue.position, 3);
    EXPECT_EQ(residue.code, u"G"_s);
    EXPECT_EQ(residue.name, u"Glycine"_s);
    EXPECT_EQ(residue.averageMass(), 57.1);
    EXPECT_EQ(residue.monoMass(), 57.0);
}

TEST(ComplexResidue, TakesTheNameBeforeTheCode)
{
    const ComplexResidue residue(moleculeOf(u"OH"_s, 17.1, 17.0), u"CTerm"_s, u"-OH"_s, 9);
    EXPECT_EQ(residue.position, 9);
    EXPECT_EQ(residue.name, u"CTerm"_s);
    EXPECT_EQ(residue.code, u"-OH"_s);
    EXPECT_EQ(residue.averageMass(), 17.1);
    EXPECT_EQ(residue.monoMass(), 17.0);
}

// The masses are free numbers: a delta computed again from its formula would not have them.
TEST(FragmentationSite, DeltaIsGainedMinusLostFieldByField)
{
    const FragmentationSite site(FragmentType::Z, moleculeOf(u"O1H1"_s, 0.3, 5.0),
                                 moleculeOf(u"H2P1"_s, 0.1, 7.5));
    EXPECT_EQ(site.type, FragmentType::Z);
    EXPECT_EQ(site.delta.averageMass(), 0.3 - 0.1);
    EXPECT_EQ(site.delta.monoMass(), 5.0 - 7.5);
    EXPECT_EQ(site.delta.formula().elementCountMap(),
              (Counts{{u"H"_s, -1}, {u"O"_s, 1}, {u"P"_s, -1}}));
}

TEST(FragmentationSite, KeepsWhatIsLost)
{
    const FragmentationSite site(FragmentType::A, Molecule(), moleculeOf(u"C1O1H1"_s, 29.1, 29.0));
    EXPECT_EQ(site.lost.averageMass(), 29.1);
    EXPECT_EQ(site.lost.monoMass(), 29.0);
    EXPECT_EQ(site.lost.formula().elementCountMap(),
              (Counts{{u"C"_s, 1}, {u"H"_s, 1}, {u"O"_s, 1}}));
}

TEST(MoleculeComplex, HoldsTotalAndListsAndHasNullTexts)
{
    const auto residue =
        QSharedPointer<ComplexResidue>::create(Molecule(), QString(), QString(), 0);
    const auto site =
        QSharedPointer<FragmentationSite>::create(FragmentType::B, Molecule(), Molecule());
    const MoleculeComplex complex(moleculeOf(u"H2O"_s, 18.1, 18.0), {residue}, {{site}});
    EXPECT_TRUE(complex.code.isNull());
    EXPECT_TRUE(complex.name.isNull());
    EXPECT_EQ(complex.averageMass(), 18.1);
    EXPECT_EQ(complex.monoMass(), 18.0);
    EXPECT_EQ(complex.formula().toString(), u"H2O"_s);
    EXPECT_EQ(complex.residues, QList<QSharedPointer<ComplexResidue>>{residue});
    EXPECT_EQ(complex.sites.size(), 1);
    EXPECT_EQ(complex.sites.value(0), QList<QSharedPointer<FragmentationSite>>{site});
}

TEST(Fragment, HoldsWhatItIsMadeFrom)
{
    const MoleculeComplex complex(Molecule(), {}, {});
    const auto residue =
        QSharedPointer<ComplexResidue>::create(Molecule(), QString(), QString(), 0);
    const auto site =
        QSharedPointer<FragmentationSite>::create(FragmentType::B, Molecule(), Molecule());
    const Fragment fragment(moleculeOf(u"H2O"_s, 18.1, 18.0), u"b"_s, {residue}, {site}, &complex);
    EXPECT_EQ(fragment.averageMass(), 18.1);
    EXPECT_EQ(fragment.monoMass(), 18.0);
    EXPECT_EQ(fragment.typeLabel, u"b"_s);
    ASSERT_EQ(fragment.residues.size(), 1);
    EXPECT_EQ(fragment.residues.first(), residue);
    ASSERT_EQ(fragment.sites.size(), 1);
    EXPECT_EQ(fragment.sites.first(), site);
    EXPECT_EQ(fragment.parentComplex, &complex);
}

// The layout of a complex, as the peptide reader makes it.

QSharedPointer<MoleculeComplex> peptide(const QString& sequence)
{
    return chem::defaultChemicalFactory()->constructLinearPeptideComplex(sequence);
}

TEST(MoleculeComplex, OfNoMonomersHasTheTwoTerminalsAndNoSites)
{
    const auto complex = peptide(QString());
    EXPECT_EQ(complex->residues.size(), 2);
    ASSERT_EQ(complex->sites.size(), 2);
    EXPECT_TRUE(complex->sites.first().isEmpty());
    EXPECT_TRUE(complex->sites.last().isEmpty());
}

TEST(MoleculeComplex, OfOneMonomerHasSitesAtTheMiddleOnly)
{
    const auto complex = peptide(u"G"_s);
    EXPECT_EQ(complex->residues.size(), 3);
    ASSERT_EQ(complex->sites.size(), 3);
    EXPECT_TRUE(complex->sites[0].isEmpty());
    EXPECT_EQ(complex->sites[1].size(), 10);
    EXPECT_TRUE(complex->sites[2].isEmpty());
}

TEST(MoleculeComplex, ResiduesKnowTheirPositions)
{
    const auto complex = peptide(u"DRVYIHPF"_s);
    ASSERT_EQ(complex->residues.size(), 10);
    EXPECT_EQ(complex->sites.size(), 10);
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(complex->residues[i]->position, i);
}

TEST(MoleculeComplex, MonomersOfAPeptideShareTheirSites)
{
    const auto complex = peptide(u"GAP"_s);
    EXPECT_EQ(complex->sites[1].size(), 10);
    EXPECT_EQ(complex->sites[1], complex->sites[2]);
    EXPECT_EQ(complex->sites[1], complex->sites[3]);
}

TEST(MoleculeComplex, DoesNotShareSitesOrResiduesWithAnotherOne)
{
    const auto first = peptide(u"G"_s);
    const auto second = peptide(u"G"_s);
    for (int i = 0; i < 10; ++i)
        EXPECT_NE(first->sites[1][i], second->sites[1][i]);
    for (int i = 0; i < 3; ++i)
        EXPECT_NE(first->residues[i], second->residues[i]);
}

TEST(MoleculeComplex, EqualMonomersAreSeparateResidues)
{
    const auto complex = peptide(u"GG"_s);
    EXPECT_NE(complex->residues[1], complex->residues[2]);
}

TEST(MoleculeComplex, StaysAsItIsWhenTheDictionaryChanges)
{
    const auto factory = ChemicalFactory::construct(QString());
    const auto complex = factory->constructLinearPeptideComplex(u"G"_s);
    const double monoMass = complex->residues[1]->monoMass();
    factory->setBuildingBlock(ChemicalFactory::AminoAcidBlock, u"G"_s, u"other"_s, u"C9"_s);
    EXPECT_EQ(complex->residues[1]->monoMass(), monoMass);
    EXPECT_EQ(complex->residues[1]->name, u"Glycine"_s);
}

TEST(MoleculeComplex, ResiduesAreNoEntriesOfTheDictionary)
{
    const auto factory = ChemicalFactory::construct(QString());
    const auto edited = factory->constructLinearPeptideComplex(u"G"_s);
    edited->residues[1]->code = u"X"_s;
    *edited->residues[1] += *edited->residues[1];
    const auto fresh = factory->constructLinearPeptideComplex(u"G"_s);
    EXPECT_EQ(fresh->residues[1]->code, u"G"_s);
    EXPECT_EQ(fresh->residues[1]->formula().toString(), u"C2H3NO"_s);
}

TEST(MoleculeComplex, TotalIsTheSumOfAllResidues)
{
    const auto complex = peptide(u"GA"_s);
    double sum = 0.0;
    for (const auto& residue : std::as_const(complex->residues))
        sum += residue->monoMass();
    EXPECT_NEAR(complex->monoMass(), sum, 1e-9);
    EXPECT_EQ(complex->formula().elementCountMap(),
              (Counts{{u"C"_s, 5}, {u"H"_s, 10}, {u"N"_s, 2}, {u"O"_s, 3}}));
}

TEST(Fragment, WeakLinksReadAsNullOnceTheComplexIsGone)
{
    QList<QSharedPointer<Fragment>> fragments;
    auto complex = peptide(u"GA"_s);
    chem::defaultChemicalFactory()->generateLinearFragments(*complex, &fragments);
    ASSERT_EQ(fragments.size(), 20);
    const QSharedPointer<Fragment> fragment = fragments.first();
    ASSERT_EQ(fragment->residues.size(), 2);
    ASSERT_FALSE(fragment->residues[0].isNull());
    ASSERT_FALSE(fragment->sites[0].isNull());
    const double monoMass = fragment->monoMass();

    complex.reset();
    for (const auto& residue : std::as_const(fragment->residues))
        EXPECT_TRUE(residue.isNull());
    EXPECT_TRUE(fragment->sites[0].isNull());
    EXPECT_EQ(fragment->typeLabel, u"b"_s);
    EXPECT_EQ(fragment->monoMass(), monoMass);
    EXPECT_EQ(fragment->formula().toString(), u"C2H3NO"_s);
}

} // namespace
