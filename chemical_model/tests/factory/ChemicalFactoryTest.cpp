#include "OpenFactory.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using chem::ChemicalFactory;

TEST(ChemicalFactory, DefaultIsOneSharedFactoryWithNaturalIsotopes)
{
    const auto first = chem::defaultChemicalFactory();
    EXPECT_EQ(first.data(), chem::defaultChemicalFactory().data());
    const auto own = ChemicalFactory::construct(QString());
    EXPECT_NE(own.data(), first.data());
    for (const QString& formula : {u"C6H12O6"_s, u"E"_s, u"Pt3Se"_s}) {
        EXPECT_EQ(own->constructMolecule(formula).monoMass(),
                  first->constructMolecule(formula).monoMass());
        EXPECT_EQ(own->constructMolecule(formula).averageMass(),
                  first->constructMolecule(formula).averageMass());
    }
}

TEST(ChemicalFactory, ConstantsHaveTheirFormulas)
{
    const OpenFactory factory;
    const QList<std::pair<chem::Molecule, QString>> constants = {
        {factory.water, u"H2O"_s},       {factory.waterPair, u"H4O2"_s},
        {factory.hydroxyl, u"HO"_s},     {factory.hydrogen, u"H"_s},
        {factory.oxygen, u"O"_s},        {factory.amine, u"H2N"_s},
        {factory.hydrogenPair, u"H2"_s}, {factory.ammonia, u"H3N"_s},
        {factory.formyl, u"C1H1O"_s},    {factory.electron, u"E"_s},
        {factory.proton, u"E(-1)H"_s}};
    for (const auto& [molecule, formula] : constants) {
        EXPECT_EQ(molecule.formula().toString(), formula);
        if (formula != u"E(-1)H") {
            EXPECT_EQ(molecule.monoMass(), factory.constructMolecule(formula).monoMass());
            EXPECT_EQ(molecule.averageMass(), factory.constructMolecule(formula).averageMass());
        }
    }
}

TEST(ChemicalFactory, ElectronWeighsTwiceOnAverage)
{
    // Two rows of abundance 1 stand under its symbol: the first is the monoisotopic mass, both add
    // up to the average.
    const OpenFactory factory;
    EXPECT_EQ(factory.electron.monoMass(), 0.000548579909065);
    EXPECT_EQ(factory.electron.averageMass(), 0.001097159909065);
}

TEST(ChemicalFactory, ProtonIsHydrogenMinusElectron)
{
    const OpenFactory factory;
    EXPECT_EQ(factory.proton.formula().elementCount(u"H"_s), 1);
    EXPECT_EQ(factory.proton.formula().elementCount(u"E"_s), -1);
    EXPECT_EQ(factory.proton.monoMass(), 1.007276452360935);
    EXPECT_EQ(factory.proton.averageMass(), 1.006844308477866);
    EXPECT_EQ(factory.proton.monoMass(), factory.hydrogen.monoMass() - factory.electron.monoMass());
}

TEST(ChemicalFactory, ExtensionStaysNull)
{
    const OpenFactory factory;
    EXPECT_TRUE(factory.sharedExtension.isNull());
}

TEST(ChemicalFactory, ChainDelimiterIsASlash)
{
    EXPECT_EQ(ChemicalFactory::ChainDelimeter, QChar(u'/'));
}

TEST(ChemicalFactory, CopiesDifferByWhatIsWrittenAfterwards)
{
    const auto original = ChemicalFactory::construct(QString());
    ChemicalFactory copy = *original;
    copy.setBuildingBlock(ChemicalFactory::AminoAcidBlock, u"X"_s, u"Any"_s, u"C1"_s);
    EXPECT_EQ(copy.constructLinearPeptideComplex(u"X"_s)->formula().elementCount(u"C"_s), 1);
    EXPECT_EQ(original->constructLinearPeptideComplex(u"X"_s)->formula().elementCount(u"C"_s), 0);

    ChemicalFactory assigned = *chem::defaultChemicalFactory();
    assigned = copy;
    EXPECT_EQ(assigned.constructLinearPeptideComplex(u"X"_s)->formula().elementCount(u"C"_s), 1);
}

TEST(ChemicalFactory, MovesCarryEverythingAlong)
{
    ChemicalFactory source = *chem::defaultChemicalFactory();
    ChemicalFactory target = std::move(source);
    EXPECT_TRUE(target.isValidOligoSequence(u"ACGT"_s));
    source = target; // a moved-from factory can be assigned to
    EXPECT_TRUE(source.isValidOligoSequence(u"ACGT"_s));
    ChemicalFactory other = *chem::defaultChemicalFactory();
    other = std::move(target);
    EXPECT_EQ(other.constructMolecule(u"C"_s).monoMass(), 12.0);
    static_assert(std::is_nothrow_move_constructible_v<ChemicalFactory>);
}

TEST(ChemicalFactory, MovedFromKeepsItsConstantsAndNothingElse)
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

TEST(ChemicalFactory, OutlivesTheOneThatItWasCopiedFrom)
{
    auto original = ChemicalFactory::construct(QString());
    const ChemicalFactory copy = *original;
    original.reset();
    EXPECT_EQ(copy.constructLinearPeptideComplex(u"GA"_s)->formula().toString(), u"C5H10N2O3"_s);
}

TEST(ChemicalFactory, WithoutATableAnswersQuietly)
{
    const OpenFactory factory{OpenFactory::WithoutInit()};
    EXPECT_EQ(factory.constructMolecule(u"C6H12O6"_s).averageMass(), 0.0);
    EXPECT_EQ(factory.constructMolecule(u"C6H12O6"_s).formula().toString(), u"C6H12O6"_s);
    EXPECT_FALSE(factory.isValidOligoSequence(u"A"_s));
    EXPECT_FALSE(factory.isValidGlycanComposition(u"Hex(1)"_s));
    EXPECT_EQ(factory.constructLinearPeptideComplex(u"GA"_s)->residues.size(), 4);
    EXPECT_FALSE(factory.constructLinearOligoComplex(u"A"_s));
    QList<QPointF> envelope = {{1, 2}};
    factory.generateIsotopeEnvelope(factory.constructMolecule(u"C"_s), 1, &envelope, true);
    EXPECT_TRUE(envelope.isEmpty());
    EXPECT_EQ(factory.moleculeBasedOnMonoMass(u"C"_s, 5.0).averageMass(), 0.0);
}

TEST(ChemicalFactory, IsMadeByItsOwnFunctionsAlone)
{
    static_assert(!std::is_default_constructible_v<ChemicalFactory>);
    static_assert(std::is_copy_constructible_v<ChemicalFactory>);
    static_assert(!std::is_polymorphic_v<ChemicalFactory>);
}

TEST(ChemicalFactory, ExtensionIsCopiedMovedAndReleasedWithTheFactory)
{
    struct WithExtension : public ChemicalFactory
    {
        using ChemicalFactory::Extension;
        using ChemicalFactory::sharedExtension;
    };
    int released = 0;
    const auto countRelease = [&released](WithExtension::Extension*) {
        ++released;
    };
    static char anyObject = 0;
    {
        WithExtension original;
        original.sharedExtension = QSharedPointer<WithExtension::Extension>(
            reinterpret_cast<WithExtension::Extension*>(&anyObject), countRelease);
        const WithExtension copy = original;
        EXPECT_EQ(copy.sharedExtension, original.sharedExtension);
        const WithExtension moved = std::move(original);
        EXPECT_EQ(moved.sharedExtension, copy.sharedExtension);
        EXPECT_TRUE(original.sharedExtension.isNull()); // NOLINT(bugprone-use-after-move)
        EXPECT_EQ(released, 0);
    }
    EXPECT_EQ(released, 1);
}

} // namespace
