#include "factory/PreparedFactory.h"

#include "ManyThreads.h"
#include "OligoLetters.h"
#include "OpenFactory.h"
#include "SameMolecules.h"
#include "isotopes/ElementMasses.h"
#include "support/Logging.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;
using namespace oligoLetters;
using chem::ChemicalFactory;
using chem::OligoUnit;
using manyThreads::atOnce;
using manyThreads::atOnceOnFresh;

namespace {

TEST(PreparedFactory, ConstantsHaveTheirFormulas)
{
    const OpenFactory factory;
    const QList<std::pair<chem::Molecule, QString>> constants = {
        {factory.water, u"H2O"_s},  {factory.waterPair, u"H4O2"_s}, {factory.hydroxyl, u"HO"_s},
        {factory.hydrogen, u"H"_s}, {factory.oxygen, u"O"_s},       {factory.hydrogenPair, u"H2"_s},
        {factory.amine, u"H2N"_s},  {factory.ammonia, u"H3N"_s},    {factory.formyl, u"C1H1O"_s},
        {factory.electron, u"E"_s}};
    for (const auto& [molecule, formula] : constants) {
        EXPECT_EQ(molecule.formula().toString(), formula);
        expectSame(molecule, factory.constructMolecule(formula));
    }
}

TEST(PreparedFactory, ElectronWeighsTwiceOnAverage)
{
    // Two rows of abundance 1 stand under its symbol: the first is the monoisotopic mass, both add
    // up to the average.
    const OpenFactory factory;
    EXPECT_EQ(factory.electron.monoMass(), 0.000548579909065);
    EXPECT_EQ(factory.electron.averageMass(), 0.001097159909065);
}

TEST(PreparedFactory, ProtonIsHydrogenMinusElectron)
{
    const OpenFactory factory;
    EXPECT_EQ(factory.proton.formula().elementCount(u"H"_s), 1);
    EXPECT_EQ(factory.proton.formula().elementCount(u"E"_s), -1);
    EXPECT_EQ(factory.proton.monoMass(), 1.007276452360935);
    EXPECT_EQ(factory.proton.averageMass(), 1.006844308477866);
    EXPECT_EQ(factory.proton.monoMass(), factory.hydrogen.monoMass() - factory.electron.monoMass());
}

TEST(PreparedFactory, MovedFromKeepsItsConstantsAndNothingElse)
{
    OpenFactory source;
    const OpenFactory target = std::move(source);
    // NOLINTBEGIN(bugprone-use-after-move)
    EXPECT_EQ(source.hydrogen.monoMass(), target.hydrogen.monoMass());
    chem::NamedMolecule left;
    chem::NamedMolecule right;
    for (const bool isPeptide : {true, false}) {
        if (isPeptide)
            source.standardPeptideTermini(&left, &right);
        else
            source.standardOligoTermini(&left, &right);
        EXPECT_EQ(left.monoMass(), source.hydrogen.monoMass());
        EXPECT_EQ(left.name, u"NTerm"_s);
        EXPECT_EQ(right.averageMass(), source.hydroxyl.averageMass());
        EXPECT_EQ(right.code, u"-OH"_s);
    }
    const auto peptide = source.constructLinearPeptideComplex(u"GA"_s);
    EXPECT_EQ(peptide->formula().toString(), u"H2O"_s);
    EXPECT_EQ(peptide->sites[1][1]->delta.monoMass(), source.hydrogen.monoMass());
    EXPECT_EQ(source.constructMolecule(u"C"_s).monoMass(), 0.0);
    EXPECT_FALSE(source.isValidOligoSequence(u"A"_s));

    QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
    ASSERT_TRUE(target.parseNucleotideSequence(u"AC"_s, &nucleotides, &left, &right));
    const auto own = target.constructLinearOligoComplex(nucleotides, left, right);
    const auto movedFrom = source.constructLinearOligoComplex(nucleotides, left, right);
    ASSERT_EQ(movedFrom->sites[1].size(), own->sites[1].size());
    for (qsizetype i = 0; i < own->sites[1].size(); ++i)
        EXPECT_EQ(movedFrom->sites[1][i]->delta.monoMass(), own->sites[1][i]->delta.monoMass());
    // NOLINTEND(bugprone-use-after-move)
}

TEST(PreparedFactory, OutlivesTheOneThatItWasCopiedFrom)
{
    auto original = ChemicalFactory::construct(QString());
    const ChemicalFactory copy = *original;
    original.reset();
    EXPECT_EQ(copy.constructLinearPeptideComplex(u"GA"_s)->formula().toString(), u"C5H10N2O3"_s);
}

// What the threads of a factory share.

TEST(PreparedFactory, NucleotidesAreFoundAndMadeByAllThreads)
{
    const auto makeOne = [] {
        return std::make_unique<chem::OligoNucleotides>(blocks(u"AC"_s), sites());
    };
    atOnceOnFresh(manyThreads::rounds, makeOne, [](const auto& nucleotides) {
        const OligoUnit unit = unitOf(u"r", u"A", u"*");
        EXPECT_EQ(nucleotides->find(unit, false)->nucleotide.name, u"name of A"_s);
        EXPECT_EQ(nucleotides->make(unit, false).name, u"name of A"_s);
    });
}

TEST(PreparedFactory, TextIsMatchedAndSplitByAllThreads)
{
    for (const QString& nucleobases : {u"ACGTé"_s, u"A-Z"_s, u"AC])([A"_s}) {
        const auto makeScanner = [&nucleobases] {
            return chem::OligoScanner({u"{"_s, u"rd"_s, nucleobases, u"*"_s, u"}"_s});
        };
        const auto isRead = [](const chem::OligoScanner& scanner) {
            return scanner.split(u"{rA*C}") && scanner.units(u"rA*C").size() == 2;
        };
        const bool expected = isRead(makeScanner());
        atOnceOnFresh(manyThreads::rounds, makeScanner, [&](const chem::OligoScanner& scanner) {
            EXPECT_EQ(scanner.matches(u"{rA*C}"), expected);
            EXPECT_EQ(isRead(scanner), expected);
        });
    }
}

TEST(PreparedFactory, MassesOfElementsAreFoundByAllThreads)
{
    const auto makeMasses = [] {
        chem::ElementMasses masses;
        masses.add(u"C"_s, {{12.0, 13.0}, {0.75, 0.25}});
        masses.add(u"Xyz"_s, {{5.0}, {1.0}});
        return masses;
    };
    atOnceOnFresh(manyThreads::rounds, makeMasses, [](const chem::ElementMasses& masses) {
        EXPECT_EQ(masses.find(u"C")->average, 12.25);
        EXPECT_EQ(masses.find(u"Xyz")->mono, 5.0);
        EXPECT_FALSE(masses.find(u"Xy"));
    });
}

TEST(PreparedFactory, LoggingCategoryIsFoundByAllThreads)
{
    atOnce([] {
        EXPECT_STREQ(chem::existingLoggingCategory("zel.never", QtDebugMsg)->categoryName(),
                     "zel.generic");
    });
}

} // namespace
