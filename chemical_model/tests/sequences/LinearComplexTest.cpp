#include "FragmentLists.h"
#include "SameMolecules.h"

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

TEST(LinearComplex, AminoAcidHoldsTheDictionaryEntryItIsMadeFrom)
{
    const NamedMolecule entry = namedOf(u"C2H3NO"_s, 57.1, 57.0, u"Glycine"_s, u"G"_s);
    expectSame(AminoAcid(entry), entry);
}

// 0.1 + (0.2 + 0.3) and (0.1 + 0.2) + 0.3 differ in the last bit; the sugar and the linkage are
// joined first.
TEST(LinearComplex, NucleotideIsBasePlusTheSumOfSugarAndPhosphate)
{
    ASSERT_NE(0.1 + (0.2 + 0.3), (0.1 + 0.2) + 0.3);
    const Nucleotide nucleotide = sampleNucleotide();
    EXPECT_EQ(nucleotide.averageMass(), 0.1 + (0.2 + 0.3));
    EXPECT_EQ(nucleotide.monoMass(), 0.7 + (0.1 + 0.2));
    EXPECT_EQ(nucleotide.formula().elementCountMap(),
              (Counts{{u"C"_s, 10}, {u"H"_s, 12}, {u"N"_s, 5}, {u"O"_s, 5}, {u"P"_s, 1}}));
}

TEST(LinearComplex, NucleotideKeepsCopiesOfItsPartsAndTheLabelsGiven)
{
    const Nucleotide nucleotide = sampleNucleotide();
    EXPECT_EQ(nucleotide.name, u"Adenine"_s);
    EXPECT_EQ(nucleotide.code, u"dA."_s);
    expectSame(nucleotide.nucleobase, namedOf(u"C5H4N5"_s, 0.1, 0.7, u"Adenine"_s, u"A"_s));
    expectSame(nucleotide.ribose, namedOf(u"C5O2H7"_s, 0.2, 0.1, u"sugar"_s, u"d"_s));
    expectSame(nucleotide.phosphate, namedOf(u"HPO3"_s, 0.3, 0.2, u"linkage"_s, u"."_s));
}

TEST(LinearComplex, NucleotideWithoutPhosphateIsBasePlusSugar)
{
    const Nucleotide nucleotide(namedOf(u"C5H4N5"_s, 2.0, 1.0, u"Adenine"_s, u"A"_s),
                                namedOf(u"C5O2H7"_s, 20.0, 10.0, u"sugar"_s, u"d"_s),
                                NamedMolecule(), u"Adenine"_s, u"dA"_s);
    EXPECT_EQ(nucleotide.averageMass(), 22.0);
    EXPECT_EQ(nucleotide.monoMass(), 11.0);
    EXPECT_TRUE(nucleotide.phosphate.formula().isEmpty());
}

TEST(LinearComplex, ResidueCopiesMoleculeAndLabelsOfTheMonomer)
{
    const NamedMolecule glycine = namedOf(u"C2H3NO"_s, 57.1, 57.0, u"Glycine"_s, u"G"_s);
    const ComplexResidue residue(glycine, 3);
    EXPECT_EQ(residue.position, 3);
    expectSame(residue, glycine);
}

TEST(LinearComplex, ResidueTakesTheNameBeforeTheCode)
{
    const ComplexResidue residue(moleculeOf(u"OH"_s, 17.1, 17.0), u"CTerm"_s, u"-OH"_s, 9);
    EXPECT_EQ(residue.position, 9);
    expectSame(residue, namedOf(u"OH"_s, 17.1, 17.0, u"CTerm"_s, u"-OH"_s));
}

// The masses are free numbers: a delta computed again from its formula would not have them.
TEST(LinearComplex, SiteDeltaIsGainedMinusLostFieldByField)
{
    const FragmentationSite site(FragmentType::Z, moleculeOf(u"O1H1"_s, 0.3, 5.0),
                                 moleculeOf(u"H2P1"_s, 0.1, 7.5));
    EXPECT_EQ(site.type, FragmentType::Z);
    expectSame(site.delta, moleculeOf(u"OH-1P-1"_s, 0.3 - 0.1, 5.0 - 7.5));
}

TEST(LinearComplex, SiteKeepsWhatIsLost)
{
    const Molecule formyl = moleculeOf(u"C1O1H1"_s, 29.1, 29.0);
    expectSame(FragmentationSite(FragmentType::A, Molecule(), formyl).lost, formyl);
}

TEST(LinearComplex, ComplexHoldsTotalAndListsAndHasNullTexts)
{
    const auto residue =
        QSharedPointer<ComplexResidue>::create(Molecule(), QString(), QString(), 0);
    const auto site =
        QSharedPointer<FragmentationSite>::create(FragmentType::B, Molecule(), Molecule());
    const MoleculeComplex complex(moleculeOf(u"H2O"_s, 18.1, 18.0), {residue}, {{site}});
    EXPECT_TRUE(complex.code.isNull());
    EXPECT_TRUE(complex.name.isNull());
    expectSame(static_cast<const Molecule&>(complex), moleculeOf(u"H2O"_s, 18.1, 18.0));
    EXPECT_EQ(complex.residues, QList<QSharedPointer<ComplexResidue>>{residue});
    EXPECT_EQ(complex.sites.size(), 1);
    EXPECT_EQ(complex.sites.value(0), QList<QSharedPointer<FragmentationSite>>{site});
}

TEST(LinearComplex, FragmentHoldsWhatItIsMadeFrom)
{
    const MoleculeComplex complex(Molecule(), {}, {});
    const auto residue =
        QSharedPointer<ComplexResidue>::create(Molecule(), QString(), QString(), 0);
    const auto site =
        QSharedPointer<FragmentationSite>::create(FragmentType::B, Molecule(), Molecule());
    const Fragment fragment(moleculeOf(u"H2O"_s, 18.1, 18.0), u"b"_s, {residue}, {site}, &complex);
    expectSame(static_cast<const Molecule&>(fragment), moleculeOf(u"H2O"_s, 18.1, 18.0));
    EXPECT_EQ(fragment.typeLabel, u"b"_s);
    ASSERT_EQ(fragment.residues.size(), 1);
    EXPECT_EQ(fragment.residues.first(), residue);
    ASSERT_EQ(fragment.sites.size(), 1);
    EXPECT_EQ(fragment.sites.first(), site);
    EXPECT_EQ(fragment.parentComplex, &complex);
}

TEST(LinearComplex, LinksOfAFragmentReadAsNullOnceTheComplexIsGone)
{
    auto complex = peptide(u"GA"_s);
    const QSharedPointer<Fragment> fragment = richFragments(*complex).constFirst();
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
