#include "ConstCalls.h"
#include "ManyThreads.h"

#include <gtest/gtest.h>

#include <set>

using namespace Qt::StringLiterals;
using manyThreads::atOnce;
using manyThreads::atOnceOnFresh;

namespace {

TEST(ConstFunctionsThreads, FirstUseOfTheDefaultFactoryFromAllAtOnce)
{
    // Each test is a process of its own, so this is the first use.
    atOnce([] {
        EXPECT_EQ(chem::defaultChemicalFactory()->constructMolecule(u"C"_s).monoMass(), 12.0);
    });
}

/// The class of a function, or nothing for one that stands alone.
std::string classOf(const std::string& function)
{
    const std::size_t end = function.find("::");
    return end == std::string::npos ? std::string() : function.substr(0, end);
}

std::set<std::string> allClasses()
{
    std::set<std::string> classes;
    for (const ConstCall& function : constCalls())
        classes.insert(classOf(function.function));
    return classes;
}

/// The const functions of one class.
class RacesOfConstFunctions : public testing::TestWithParam<std::string>
{
protected:
    void SetUp() override
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    }
    void TearDown() override { qInstallMessageHandler(nullptr); }
};

TEST_P(RacesOfConstFunctions, OnFreshObjects)
{
    for (const ConstCall& function : constCalls()) {
        if (classOf(function.function) != GetParam())
            continue;
        const int rounds = function.makesFactory ? manyThreads::longRounds : manyThreads::rounds;
        for (int round = 0; round < rounds; ++round) {
            const SharedObjects shared;
            const SharedObjects copy = shared; // what is shared has to part before it is written
            atOnce([&] { function.call(shared); });
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Threads, RacesOfConstFunctions, testing::ValuesIn(allClasses()),
                         [](const auto& parameter) {
                             return parameter.param.empty() ? "NoClass" : parameter.param;
                         });

/// A complex of each kind, with the factory that they come from.
struct Complexes
{
    QSharedPointer<chem::ChemicalFactory> factory = chem::ChemicalFactory::construct(QString());
    QSharedPointer<const chem::MoleculeComplex> peptide =
        factory->constructLinearPeptideComplex(u"DRVYIHPF"_s);
    QSharedPointer<const chem::MoleculeComplex> strand =
        factory->constructLinearOligoComplex(u"rA*CGT"_s);
};

TEST(ConstFunctionsThreads, ReadersOfOneFreshFactory)
{
    atOnceOnFresh(
        manyThreads::longRounds, [] { return Complexes(); },
        [](const Complexes& shared) {
            const auto& factory = *shared.factory;
            EXPECT_TRUE(factory.isValidOligoSequence(u"rA*CGT"_s));
            EXPECT_TRUE(factory.generateFullOligoRegex().match(u"AC"_s).hasMatch());
            EXPECT_TRUE(factory.generateOligoSequenceRegex().match(u"AC"_s).hasMatch());
            EXPECT_TRUE(factory.isValidGlycanComposition(u"Hex(2)"_s));
            QList<QSharedPointer<const chem::MoleculeComplex>> ladder;
            factory.constructLinearOligoComplexes(u"ACGT"_s, 2, 2, &ladder);
            EXPECT_EQ(ladder.size(), 5);
            chem::NamedMolecule left;
            chem::NamedMolecule right;
            QList<QSharedPointer<const chem::AminoAcid>> residues;
            factory.parseAminoAcidSequence(u"GAVL"_s, &residues, &left, &right);
            EXPECT_EQ(residues.size(), 4);
            QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
            EXPECT_TRUE(factory.parseNucleotideSequence(u"ACGT"_s, &nucleotides, &left, &right));
            EXPECT_EQ(nucleotides.size(), 4);
            const chem::ChemicalFactory copy = factory;
            EXPECT_EQ(copy.constructLinearPeptideComplex(u"GA"_s)->residues.size(), 4);
        });
}

TEST(ConstFunctionsThreads, FragmentsAndEnvelopesOfOneFreshFactory)
{
    atOnceOnFresh(
        manyThreads::longRounds, [] { return Complexes(); },
        [](const Complexes& shared) {
            QList<chem::SimpleFragment> flat;
            chem::generateLinearFragments(*shared.peptide, flat);
            EXPECT_EQ(flat.size(), 80);
            chem::generateLinearFragments(*shared.strand, flat);
            QList<QSharedPointer<chem::Fragment>> rich;
            shared.factory->generateLinearFragments(*shared.peptide, &rich);
            shared.factory->generateLinearFragments(*shared.strand, &rich);
            EXPECT_EQ(rich.size(), 80 + 34);
            QList<QPointF> envelope;
            shared.factory->generateIsotopeEnvelope(*shared.strand, 1, &envelope, true);
            EXPECT_FALSE(envelope.isEmpty());
        });
}

TEST(ConstFunctionsThreads, OddAlphabetsAreReadByAllAtOnce)
{
    const auto makeFactory = [] {
        const auto factory = chem::ChemicalFactory::construct(QString());
        factory->setBuildingBlock(chem::ChemicalFactory::NucleobaseBlock, u"\u0100-\u0200"_s,
                                  u"range"_s, u"C1"_s);
        return factory;
    };
    atOnceOnFresh(manyThreads::longRounds, makeFactory, [](const auto& factory) {
        EXPECT_TRUE(factory->isValidOligoSequence(u"A\u0150C"_s));
    });
}

TEST(ConstFunctionsThreads, SharedEntitiesAreReadAndCopied)
{
    const auto makeProtein = [] {
        const chem::Chain chain = chem::constructPeptideChain(
            u"A"_s, u"A"_s, u"DRVYIHPFKR"_s, chem::defaultChemicalFactory().data());
        return chem::Modify(chem::Modification(42.5, {{0, 3}}))
            .transform(chem::constructProteinFromChains(
                u"p"_s, {chain, chain}, {}, {chem::Link(-2.0, {{0, 1}, {1, 1}})}, nullptr));
    };
    const QList<chem::ObservedMassEntity> observed = {100.0, makeProtein().averageMass(), 1e6};
    atOnceOnFresh(manyThreads::rounds, makeProtein, [&](const chem::MoleculeEntity& protein) {
        const chem::MoleculeEntity copy = protein;
        EXPECT_TRUE(copy == protein);
        EXPECT_EQ(copy.chains().size(), 2);
        EXPECT_TRUE(copy.chains()[0] == protein.chains()[0]);
        EXPECT_EQ(copy.transformations().size(), 1);
        EXPECT_FALSE(copy.sequence().isEmpty());
        EXPECT_EQ(chem::match(copy, observed, {}).size(), 1);
        const chem::MoleculeEntity rebuilt = chem::Molecule(copy.formula(), 0.0, 0.0);
        EXPECT_GT(rebuilt.monoMass(), 0.0);
        const auto clips =
            chem::generateClips(copy, nullptr, chem::ClipOptions::createClipByDepth(1, 1, 1, 1));
        EXPECT_EQ(clips.size(), 8);
    });
}

TEST(ConstFunctionsThreads, BuildersAndRebuiltFormulas)
{
    const auto factory = chem::defaultChemicalFactory();
    const auto makeBlank = [] {
        QList<chem::MoleculeEntity> residues;
        for (const QString& code : {u"G"_s, u"A"_s})
            residues.append(chem::NamedMolecule(chem::Molecule(), QString(), code));
        chem::StructuredMolecule molecule;
        molecule.type = chem::MoleculeType::Peptide;
        molecule.chains = {chem::Chain(QString(), QString(), residues, molecule.type, {})};
        return chem::MoleculeEntity(molecule);
    };
    atOnceOnFresh(manyThreads::rounds, makeBlank, [&](const chem::MoleculeEntity& blank) {
        const chem::Chain chain =
            chem::constructPeptideChain(u"A"_s, u"A"_s, u"GA"_s, factory.data());
        EXPECT_TRUE(chem::constructProteinFromChains(u"p"_s, {chain}, {}, {}, nullptr) == blank);
    });
}

TEST(ConstFunctionsThreads, FormulasThatShareAMapAreWrittenApart)
{
    const auto makeFormula = [] {
        return chem::ChemicalFactory::parseChemicalFormula(u"C6H12O6"_s);
    };
    atOnceOnFresh(manyThreads::rounds, makeFormula, [](const chem::ChemicalFormula& shared) {
        chem::ChemicalFormula own = shared;
        own += chem::ChemicalFactory::parseChemicalFormula(u"H2O"_s);
        own *= 2;
        EXPECT_EQ(own.toString(), u"C12H28O14"_s);
        EXPECT_EQ(shared.toString(), u"C6H12O6"_s);
    });
}

TEST(ConstFunctionsThreads, LabelledFactoriesAreMadeByAllAtOnce)
{
    // The expressions that read the text are compiled by whoever comes first.
    atOnce([] {
        const auto factory = chem::ChemicalFactory::construct(u"C13:99 C12:1"_s);
        EXPECT_EQ(factory->constructMolecule(u"C2"_s).monoMass(), 2 * 13.0033548352);
    });
}

} // namespace
