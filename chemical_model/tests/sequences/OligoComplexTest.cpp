#include "OpenFactory.h"
#include "TestPrinters.h"
#include "TestSeed.h"
#include <ChemicalFactory.h>

#include <gtest/gtest.h>

#include <bit>
#include <random>

using namespace Qt::StringLiterals;

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

struct ExpectedSite
{
    FragmentType type;
    Molecule gained;
    Molecule lost;
};

/// The sites of nucleotide `index`.
QList<ExpectedSite> expectedSites(const OpenFactory& factory, const Nucleotides& nucleotides,
                                  qsizetype index)
{
    const Molecule nothing;
    const Molecule phosphate = nucleotides[index]->phosphate;
    const Molecule base = nucleotides[index]->nucleobase;
    const Molecule before = index > 0 ? Molecule(nucleotides[index - 1]->phosphate) : nothing;
    QList<ExpectedSite> sites;
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

bool hasSameBits(double a, double b)
{
    return std::bit_cast<quint64>(a) == std::bit_cast<quint64>(b);
}

/// Whether formula and masses are the same to the bit.
bool isSame(const Molecule& a, const Molecule& b)
{
    const QMap<QString, double>& counts = a.formula().elementCountMap();
    const QMap<QString, double>& otherCounts = b.formula().elementCountMap();
    return hasSameBits(a.averageMass(), b.averageMass()) &&
           hasSameBits(a.monoMass(), b.monoMass()) && counts.keys() == otherCounts.keys() &&
           std::equal(counts.cbegin(), counts.cend(), otherCounts.cbegin(), hasSameBits);
}

void expectResidue(const chem::ComplexResidue& residue, const NamedMolecule& expected,
                   qsizetype position)
{
    ASSERT_TRUE(isSame(residue, expected));
    ASSERT_EQ(residue.code, expected.code);
    ASSERT_EQ(residue.name, expected.name);
    ASSERT_EQ(residue.position, position);
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
        total += *nucleotides[i];
        expectResidue(*complex.residues[i + 1], *nucleotides[i], i + 1);
        const QList<ExpectedSite> expected = expectedSites(factory, nucleotides, i);
        ASSERT_EQ(complex.sites[i + 1].size(), expected.size());
        for (qsizetype k = 0; k < expected.size(); ++k) {
            const FragmentationSite site(expected[k].type, expected[k].gained, expected[k].lost);
            ASSERT_EQ(complex.sites[i + 1][k]->type, site.type);
            ASSERT_TRUE(isSame(complex.sites[i + 1][k]->delta, site.delta));
            ASSERT_TRUE(isSame(complex.sites[i + 1][k]->lost, site.lost));
        }
    }
    expectResidue(*complex.residues[n + 1], threePrime, n + 1);
    ASSERT_TRUE(isSame(complex, total));
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
    const auto pick = [&random](const QStringList& list) {
        return list[static_cast<qsizetype>(random() % static_cast<std::size_t>(list.size()))];
    };
    const QStringList riboses = {QString(), QString(), u"r"_s, u"m"_s, u"e"_s, u"s"_s};
    const QStringList bases = {u"A"_s, u"C"_s, u"G"_s, u"X"_s, u"100"_s, u"-0.1"_s, u"1e5"_s};
    const QStringList phosphates = {QString(), QString(), u"*"_s, u"."_s, u"!"_s, u"*!"_s, u"p"_s};
    QString text = pick({QString(), u"["_s, u"{"_s});
    for (std::size_t length = 1 + random() % 30; length > 0; --length)
        text += pick(riboses) + pick(bases) + pick(phosphates);
    return text + pick({QString(), u"]"_s, u"}"_s, u">"_s});
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
        ASSERT_FALSE(HasFatalFailure()) << text.toStdString();
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
        ASSERT_FALSE(HasFatalFailure()) << text.toStdString();
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
