#include <ChemicalModel.h>

#include <gtest/gtest.h>

#include <barrier>
#include <functional>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int threadCount = 8;
constexpr int rounds = 20;

/// Runs `work` on many threads that start at the same moment.
void onManyThreads(const std::function<void()>& work)
{
    std::barrier start(threadCount);
    std::vector<std::thread> threads;
    threads.reserve(threadCount);
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([&] {
            start.arrive_and_wait();
            work();
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

TEST(Threads, FirstUseOfTheDefaultFactoryFromAllAtOnce)
{
    // Each test is a process of its own, so this is the first use.
    onManyThreads([] {
        EXPECT_EQ(chem::defaultChemicalFactory()->constructMolecule(u"C"_s).monoMass(), 12.0);
    });
}

TEST(Threads, EveryConstFunctionOfOneFactory)
{
    const auto factory = chem::defaultChemicalFactory();
    const auto peptide = factory->constructLinearPeptideComplex(u"DRVYIHPF"_s);
    const auto strand = factory->constructLinearOligoComplex(u"rA*CGT"_s);
    onManyThreads([&] {
        for (int i = 0; i < rounds; ++i) {
            const auto molecule = factory->constructMolecule(u"C6H12O6"_s);
            double mono = 0.0;
            double average = 0.0;
            factory->calculateMassesForFormula(molecule.formula(), &mono, &average);
            factory->calculateMassesForElementCountArrays({u"C"_s}, {2}, &mono, &average);
            factory->modifyMolecule(molecule, u"O1H-2"_s, 1);
            factory->moleculeBasedOnAverageMass(u"C5H8NO"_s, 1000.0);
            factory->moleculeBasedOnMonoMass(u"C5H8NO"_s, 1000.0);
            QList<QPointF> envelope;
            factory->generateIsotopeEnvelope(molecule, 1, &envelope, true);
            EXPECT_FALSE(envelope.isEmpty());
            EXPECT_TRUE(factory->isValidOligoSequence(u"rA*CGT"_s));
            EXPECT_TRUE(factory->generateFullOligoRegex().match(u"AC"_s).hasMatch());
            EXPECT_TRUE(factory->generateOligoSequenceRegex().match(u"AC"_s).hasMatch());
            QList<QSharedPointer<const chem::MoleculeComplex>> ladder;
            factory->constructLinearOligoComplexes(u"ACGT"_s, 2, 2, &ladder);
            EXPECT_EQ(ladder.size(), 5);
            EXPECT_TRUE(factory->isValidGlycanComposition(u"Hex(2)"_s));
            factory->modifyMoleculeWithGlycan(molecule, u"Hex(2)"_s);
            QList<QSharedPointer<chem::Fragment>> rich;
            factory->generateLinearFragments(*peptide, &rich);
            factory->generateLinearFragments(*strand, &rich);
            QList<chem::SimpleFragment> flat;
            chem::generateLinearFragments(*peptide, flat);
            chem::generateLinearFragments(*strand, flat);
            EXPECT_EQ(rich.size(), 80 + 34);
            const chem::ChemicalFactory copy = *factory;
            EXPECT_EQ(copy.constructLinearPeptideComplex(u"GA"_s)->residues.size(), 4);
        }
    });
}

TEST(Threads, OddAlphabetsAreReadByAllAtOnce)
{
    const auto factory = chem::ChemicalFactory::construct(QString());
    factory->setBuildingBlock(chem::ChemicalFactory::NucleobaseBlock, u"\u0100-\u0200"_s,
                              u"range"_s, u"C1"_s);
    onManyThreads([&] {
        for (int i = 0; i < rounds; ++i)
            EXPECT_TRUE(factory->isValidOligoSequence(u"A\u0150C"_s));
    });
}

TEST(Threads, SharedEntitiesAreReadAndCopied)
{
    const auto factory = chem::defaultChemicalFactory();
    const chem::Chain chain =
        chem::constructPeptideChain(u"A"_s, u"A"_s, u"DRVYIHPFKR"_s, factory.data());
    const chem::MoleculeEntity protein =
        chem::Modify(chem::Modification(42.5, {{0, 3}}))
            .transform(chem::constructProteinFromChains(
                u"p"_s, {chain, chain}, {}, {chem::Link(-2.0, {{0, 1}, {1, 1}})}, nullptr));
    const QList<chem::ObservedMassEntity> observed = {100.0, protein.averageMass(), 1e6};
    onManyThreads([&] {
        for (int i = 0; i < rounds; ++i) {
            const chem::MoleculeEntity copy = protein;
            EXPECT_TRUE(copy == protein);
            EXPECT_EQ(copy.chains().size(), 2);
            EXPECT_TRUE(copy.chains()[0] == protein.chains()[0]);
            EXPECT_EQ(copy.transformations().size(), 1);
            EXPECT_FALSE(copy.sequence().isEmpty());
            EXPECT_EQ(chem::match(copy, observed, {}).size(), 1);
            const chem::MoleculeEntity rebuilt = chem::Molecule(copy.formula(), 0.0, 0.0);
            EXPECT_GT(rebuilt.monoMass(), 0.0);
            const auto clips = chem::generateClips(
                copy, nullptr, chem::ClipOptions::createClipByDepth(1, 1, 1, 1));
            EXPECT_EQ(clips.size(), 8);
        }
    });
}

TEST(Threads, BuildersAndRebuiltFormulas)
{
    const auto factory = chem::defaultChemicalFactory();
    const auto blankOf = [](chem::MoleculeType type, const QStringList& codes) {
        QList<chem::MoleculeEntity> residues;
        for (const QString& code : codes)
            residues.append(chem::NamedMolecule(chem::Molecule(), QString(), code));
        chem::StructuredMolecule molecule;
        molecule.type = type;
        molecule.chains = {chem::Chain(QString(), QString(), residues, type, {})};
        return chem::MoleculeEntity(molecule);
    };
    const auto peptide = blankOf(chem::MoleculeType::Peptide, {u"G"_s, u"A"_s});
    const auto strand = blankOf(chem::MoleculeType::OligoNucleotide, {u"A"_s, u"T"_s});
    const chem::Modification water(factory->constructMolecule(u"H2O"_s), {{0, 1}, {0, 2}});
    onManyThreads([&] {
        for (int i = 0; i < rounds; ++i) {
            const chem::Chain chain =
                chem::constructPeptideChain(u"A"_s, u"A"_s, u"GA"_s, factory.data());
            EXPECT_TRUE(chem::constructProteinFromChains(u"p"_s, {chain}, {}, {}, nullptr) ==
                        peptide);
            EXPECT_TRUE(chem::constructOligoNucleotide(u"n"_s, u"c"_s, u"AT"_s, factory.data())
                            .formula()
                            .toString() == strand.formula().toString());
            EXPECT_FALSE(water < water);
            const chem::Modification copy = water;
            EXPECT_TRUE(copy == water);
        }
    });
}

TEST(Threads, FormulasThatShareAMapAreWrittenApart)
{
    const chem::ChemicalFormula shared = chem::ChemicalFactory::parseChemicalFormula(u"C6H12O6"_s);
    onManyThreads([&] {
        for (int i = 0; i < rounds; ++i) {
            chem::ChemicalFormula own = shared;
            own += chem::ChemicalFactory::parseChemicalFormula(u"H2O"_s);
            own *= 2;
            EXPECT_EQ(own.toString(), u"C12H28O14"_s);
            EXPECT_EQ(shared.toString(), u"C6H12O6"_s);
        }
    });
}

TEST(Threads, LabelledFactoriesAreMadeByAllAtOnce)
{
    // The expressions that read the text are compiled by whoever comes first.
    onManyThreads([] {
        const auto factory = chem::ChemicalFactory::construct(u"C13:99 C12:1"_s);
        EXPECT_EQ(factory->constructMolecule(u"C2"_s).monoMass(), 2 * 13.0033548352);
    });
}

TEST(Threads, ReadersAndTerminiOfOneFactory)
{
    const auto factory = chem::defaultChemicalFactory();
    onManyThreads([&] {
        for (int i = 0; i < rounds; ++i) {
            chem::NamedMolecule left;
            chem::NamedMolecule right;
            factory->standardPeptideTermini(&left, &right);
            factory->standardOligoTermini(&left, &right);
            EXPECT_EQ(right.code, u"-OH"_s);
            QList<QSharedPointer<const chem::AminoAcid>> residues;
            factory->parseAminoAcidSequence(u"GAVL"_s, &residues, &left, &right);
            EXPECT_EQ(residues.size(), 4);
            QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
            EXPECT_TRUE(factory->parseNucleotideSequence(u"ACGT"_s, &nucleotides, &left, &right));
            EXPECT_EQ(nucleotides.size(), 4);
            EXPECT_EQ(chem::ChemicalFactory::buildingBlockType(u"Sugar"_s),
                      chem::ChemicalFactory::SugarBlock);
            EXPECT_EQ(chem::ChemicalFactory::convertOldOligoBuildingBlockFormula(
                          u"OH"_s, chem::ChemicalFactory::FivePrimeTerminalBlock),
                      u"H"_s);
        }
    });
}

} // namespace
