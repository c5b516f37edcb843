#include "DrawnTexts.h"
#include "FragmentLists.h"
#include "OpenFactory.h"
#include "SameMolecules.h"
#include "TestSeed.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace Qt::StringLiterals;
using drawnTexts::anyOf;
using drawnTexts::draw;

namespace {

// Complexes against their definition, written down step by step with the arithmetic of molecules,
// to the last bit of every mass and count.

using chem::ChemicalFactory;
using chem::FragmentationSite;
using chem::FragmentType;
using chem::Molecule;
using chem::MoleculeComplex;
using chem::NamedMolecule;
using chem::Nucleotide;
using Nucleotides = QList<QSharedPointer<const Nucleotide>>;

struct SiteOfNucleotide
{
    FragmentType type;
    Molecule gained;
    Molecule lost;
};

/// The sites of nucleotide `index`.
QList<SiteOfNucleotide> sitesOfNucleotide(const OpenFactory& factory,
                                          const Nucleotides& nucleotides, qsizetype index)
{
    const Molecule nothing;
    const Molecule phosphate = nucleotides[index]->phosphate;
    const Molecule base = nucleotides[index]->nucleobase;
    const Molecule before = index > 0 ? Molecule(nucleotides[index - 1]->phosphate) : nothing;
    QList<SiteOfNucleotide> sites;
    if (index > 0 && index < nucleotides.size() - 1)
        sites.append({FragmentType::AB, nothing, phosphate + base + factory.hydrogenPair});
    sites.append({FragmentType::D, factory.hydroxyl, nothing});
    sites.append({FragmentType::B, factory.hydroxyl, phosphate});
    sites.append({FragmentType::C, factory.oxygen, factory.hydroxyl});
    sites.append({FragmentType::A, nothing, phosphate + factory.hydrogen});
    sites.append({FragmentType::W, before + factory.hydrogen, nothing});
    sites.append({FragmentType::Y, factory.hydrogen, nothing});
    sites.append({FragmentType::Z, nothing, factory.hydroxyl});
    sites.append({FragmentType::X, before, factory.hydroxyl});
    return sites;
}

void expectResidue(const chem::ComplexResidue& residue, const NamedMolecule& expected,
                   qsizetype position)
{
    SCOPED_TRACE(position);
    expectSame(residue, expected);
    EXPECT_EQ(residue.position, position);
}

void expectComplex(const OpenFactory& factory, const MoleculeComplex& complex,
                   const Nucleotides& nucleotides, const NamedMolecule& fivePrime,
                   const NamedMolecule& threePrime)
{
    const qsizetype n = nucleotides.size();
    ASSERT_EQ(complex.residues.size(), n + 2);
    ASSERT_EQ(complex.sites.size(), n + 2);
    ASSERT_TRUE(complex.sites.first().isEmpty() && complex.sites.last().isEmpty());
    ASSERT_TRUE(complex.name.isNull() && complex.code.isNull());
    Molecule total = fivePrime + threePrime;
    expectResidue(*complex.residues[0], fivePrime, 0);
    for (qsizetype i = 0; i < n; ++i) {
        SCOPED_TRACE(i);
        total += *nucleotides[i];
        expectResidue(*complex.residues[i + 1], *nucleotides[i], i + 1);
        const QList<SiteOfNucleotide> expected = sitesOfNucleotide(factory, nucleotides, i);
        ASSERT_EQ(complex.sites[i + 1].size(), expected.size());
        for (qsizetype k = 0; k < expected.size(); ++k) {
            SCOPED_TRACE(k);
            expectSame(*complex.sites[i + 1][k],
                       FragmentationSite(expected[k].type, expected[k].gained, expected[k].lost));
        }
    }
    expectResidue(*complex.residues[n + 1], threePrime, n + 1);
    expectSame(complex, total);
}

/// A factory with further blocks, among them counts that are no whole numbers, so that the order of
/// summation shows.
OpenFactory richFactory()
{
    OpenFactory factory;
    factory.setBuildingBlock(ChemicalFactory::NucleobaseBlock, u"X"_s, u"odd"_s, u"C0.1H-3Xx7"_s);
    factory.setBuildingBlock(ChemicalFactory::RiboseBlock, u"s"_s, u"odd"_s, u"C0.7O-0.2"_s);
    factory.setBuildingBlock(ChemicalFactory::PhosphateBlock, u"!"_s, u"odd"_s, u"P0.3H1e"_s);
    factory.setBuildingBlock(ChemicalFactory::PhosphateBlock, u"pq"_s, u"two letters"_s, u"P9"_s);
    factory.setBuildingBlock(ChemicalFactory::ThreePrimeTerminalBlock, u">"_s, u"odd"_s,
                             u"H0.1C-5"_s);
    return factory;
}

QString randomText(std::mt19937& random)
{
    const QStringList riboses = {QString(), QString(), u"r"_s, u"m"_s, u"e"_s, u"s"_s};
    const QStringList bases = {u"A"_s, u"C"_s, u"G"_s, u"X"_s, u"100"_s, u"-0.1"_s, u"1e5"_s};
    const QStringList phosphates = {QString(), QString(), u"*"_s, u"."_s, u"!"_s, u"*!"_s, u"p"_s};
    QString text = anyOf(QStringList({QString(), u"["_s, u"{"_s}), random);
    for (qsizetype length = 1 + draw(30, random); length > 0; --length)
        text += anyOf(riboses, random) + anyOf(bases, random) + anyOf(phosphates, random);
    return text + anyOf(QStringList({QString(), u"]"_s, u"}"_s, u">"_s}), random);
}

TEST(OligoComplex, HasTheBitsOfItsDefinition)
{
    const OpenFactory factory = richFactory();
    std::mt19937 random(testSeed(20261121));
    for (int i = 0; i < 500; ++i) {
        const QString text = randomText(random);
        Nucleotides nucleotides;
        NamedMolecule fivePrime;
        NamedMolecule threePrime;
        ASSERT_TRUE(factory.parseNucleotideSequence(text, &nucleotides, &fivePrime, &threePrime));
        expectComplex(factory, *factory.constructLinearOligoComplex(text), nucleotides, fivePrime,
                      threePrime);
        expectComplex(factory,
                      *factory.constructLinearOligoComplex(nucleotides, fivePrime, threePrime),
                      nucleotides, fivePrime, threePrime);
        ASSERT_FALSE(HasFailure()) << text.toStdString();
    }
}

TEST(OligoComplex, EveryRungOfALadderHasTheBitsOfItsDefinition)
{
    const OpenFactory factory = richFactory();
    std::mt19937 random(testSeed(20261122));
    for (int i = 0; i < 50; ++i) {
        const QString text = randomText(random);
        Nucleotides nucleotides;
        NamedMolecule fivePrime;
        NamedMolecule threePrime;
        factory.parseNucleotideSequence(text, &nucleotides, &fivePrime, &threePrime);
        QList<QSharedPointer<const MoleculeComplex>> ladder;
        factory.constructLinearOligoComplexes(text, 12, 12, &ladder);
        ASSERT_EQ(ladder.size(), 25);
        expectComplex(factory, *ladder[0], nucleotides, fivePrime, threePrime);
        for (qsizetype k = 1; k <= 12; ++k) {
            expectComplex(factory, *ladder[k], nucleotides.mid(k), fivePrime, threePrime);
            expectComplex(factory, *ladder[12 + k], nucleotides.mid(0, nucleotides.size() - k),
                          fivePrime, threePrime);
        }
        ASSERT_FALSE(HasFailure()) << text.toStdString();
    }
}

TEST(OligoComplex, TakesNucleotidesThatACallerBuilt)
{
    // Equal texts with other molecules, and more different bases than a chain usually has.
    const OpenFactory factory;
    std::mt19937 random(testSeed(20261123));
    Nucleotides nucleotides;
    for (int i = 0; i < 200; ++i) {
        const double mass = static_cast<double>(random() % 60);
        QMap<QString, double> counts = {{u"C"_s, mass}, {u"N"_s, 0.1}};
        const NamedMolecule base(Molecule(chem::ChemicalFormula(counts), mass, -mass), u"own"_s,
                                 u"A"_s);
        const NamedMolecule phosphate =
            random() % 3 == 0 ? factory.defaultPhosphate
                              : NamedMolecule(factory.constructMolecule(u"P"_s), u""_s, u"*"_s);
        nucleotides.append(QSharedPointer<const Nucleotide>::create(base, factory.defaultRibose,
                                                                    phosphate, u"own"_s, u"A*"_s));
    }
    const NamedMolecule fivePrime(factory.water, u"five"_s, u"5"_s);
    const NamedMolecule threePrime(factory.ammonia, u"three"_s, u"3"_s);
    const auto complex = factory.constructLinearOligoComplex(nucleotides, fivePrime, threePrime);
    expectComplex(factory, *complex, nucleotides, fivePrime, threePrime);
}

struct SiteText
{
    chem::FragmentType type;
    QString delta;
    QString lost;
};

void expectSites(const QList<QSharedPointer<chem::FragmentationSite>>& sites,
                 const QList<SiteText>& expected)
{
    ASSERT_EQ(sites.size(), expected.size());
    for (qsizetype i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(sites[i]->type, expected[i].type);
        EXPECT_EQ(sites[i]->delta.formula().toString(), expected[i].delta);
        EXPECT_EQ(sites[i]->lost.formula().toString(), expected[i].lost);
    }
}

TEST(OligoComplex, SitesFollowTheNeighbouringPhosphates)
{
    using enum chem::FragmentType;
    const auto complex = strand(u"A*CG"_s); // phosphates: HPO2S, HPO3, none
    ASSERT_EQ(complex->sites.size(), 5);
    EXPECT_TRUE(complex->sites[0].isEmpty());
    EXPECT_TRUE(complex->sites[4].isEmpty());
    expectSites(complex->sites[1], {{D, u"HO"_s, u""_s},
                                    {B, u"O(-1)P(-1)S(-1)"_s, u"HO2PS"_s},
                                    {C, u"H(-1)"_s, u"HO"_s},
                                    {chem::FragmentType::A, u"H(-2)O(-2)P(-1)S(-1)"_s, u"H2O2PS"_s},
                                    {W, u"H"_s, u""_s},
                                    {Y, u"H"_s, u""_s},
                                    {Z, u"H(-1)O(-1)"_s, u"HO"_s},
                                    {X, u"H(-1)O(-1)"_s, u"HO"_s}});
    // P = HPO3, B = C4H4N3O, P' = HPO2S
    expectSites(complex->sites[2], {{AB, u"C(-4)H(-7)N(-3)O(-4)P(-1)"_s, u"C4H7N3O4P"_s},
                                    {D, u"HO"_s, u""_s},
                                    {B, u"O(-2)P(-1)"_s, u"HO3P"_s},
                                    {C, u"H(-1)"_s, u"HO"_s},
                                    {chem::FragmentType::A, u"H(-2)O(-3)P(-1)"_s, u"H2O3P"_s},
                                    {W, u"H2O2PS"_s, u""_s},
                                    {Y, u"H"_s, u""_s},
                                    {Z, u"H(-1)O(-1)"_s, u"HO"_s},
                                    {X, u"OPS"_s, u"HO"_s}});
    // P is empty on the last nucleotide, P' = HPO3
    expectSites(complex->sites[3], {{D, u"HO"_s, u""_s},
                                    {B, u"HO"_s, u""_s},
                                    {C, u"H(-1)"_s, u"HO"_s},
                                    {chem::FragmentType::A, u"H(-1)"_s, u"H"_s},
                                    {W, u"H2O3P"_s, u""_s},
                                    {Y, u"H"_s, u""_s},
                                    {Z, u"H(-1)O(-1)"_s, u"HO"_s},
                                    {X, u"O2P"_s, u"HO"_s}});
}

TEST(OligoComplex, SitesAreNewAtEachPosition)
{
    const auto complex = strand(u"AAAA"_s);
    for (const auto& site : complex->sites[2]) {
        for (const auto& other : complex->sites[3])
            EXPECT_NE(site.data(), other.data());
    }
}

TEST(OligoComplex, NegativeZerosOfTheFirstEndSurvive)
{
    const OpenFactory factory;
    QMap<QString, double> counts = {{u"H"_s, -0.0}};
    const NamedMolecule fivePrime(Molecule(chem::ChemicalFormula(counts), -0.0, -0.0), u""_s,
                                  u""_s);
    const NamedMolecule threePrime(Molecule({}, -0.0, -0.0), u""_s, u""_s);
    const auto complex = factory.constructLinearOligoComplex({}, fivePrime, threePrime);
    EXPECT_TRUE(std::signbit(complex->averageMass()));
    EXPECT_TRUE(std::signbit(complex->formula().elementCountMap().value(u"H"_s)));
}

TEST(OligoComplex, EarlierComplexesKeepTheirBlocks)
{
    OpenFactory factory;
    const auto before = factory.constructLinearOligoComplex(u"AAA"_s);
    factory.setBuildingBlock(ChemicalFactory::NucleobaseBlock, u"A"_s, u"other"_s, u"C50"_s);
    const auto after = factory.constructLinearOligoComplex(u"AAA"_s);
    EXPECT_EQ(before->residues[1]->name, u"Adenine"_s);
    EXPECT_EQ(before->formula().elementCount(u"C"_s), 30);
    EXPECT_EQ(after->residues[1]->name, u"other"_s);
    EXPECT_EQ(after->formula().elementCount(u"C"_s), 165);
    EXPECT_EQ(after->sites[2].first()->lost.formula().elementCount(u"C"_s), 50);
}

TEST(OligoComplex, MassesFollowTheIsotopesOfItsFactory)
{
    const auto labelled = ChemicalFactory::construct(u"C13:1.0"_s);
    const auto natural = chem::defaultChemicalFactory();
    const auto heavy = labelled->constructLinearOligoComplex(u"ACGT"_s);
    const auto light = natural->constructLinearOligoComplex(u"ACGT"_s);
    const double neutron = 1.0033548378; // carbon-13 less carbon-12, in daltons
    EXPECT_NEAR(heavy->monoMass() - light->monoMass(),
                neutron * light->formula().elementCount(u"C"_s), 1e-6);
}

} // namespace
