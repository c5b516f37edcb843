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

TEST(ChemicalFactory, ExtensionStaysNull)
{
    const OpenFactory factory;
    EXPECT_TRUE(factory.sharedExtension.isNull());
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
