#include "RandomProteins.h"
#include "TestFormulas.h"
#include "TestPrinters.h"
#include <ChemicalModel.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using chem::AminoAcid;
using chem::Chain;
using chem::ChemicalFormula;
using chem::Link;
using chem::Modification;
using chem::Molecule;
using chem::MoleculeEntity;
using chem::MoleculeType;
using chem::NamedMolecule;
using chem::StructuredMolecule;

Molecule oxygen()
{
    return Molecule(formulaWith({{u"O"_s, 1}}), 16.5, 16.25);
}

StructuredMolecule structured()
{
    StructuredMolecule molecule;
    molecule.formula = formulaWith({{u"C"_s, 2}});
    molecule.type = MoleculeType::Protein;
    molecule.monoMass = 24.25;
    molecule.averageMass = 24.5;
    molecule.chains = {Chain(u"chain"_s, u"c"_s, {NamedMolecule(oxygen(), u"residue"_s, u"R"_s)},
                             MoleculeType::Peptide, {})};
    molecule.links = {Link()};
    molecule.modifications = {Modification()};
    molecule.name = u"name"_s;
    molecule.code = u"code"_s;
    molecule.description = u"described"_s;
    molecule.transformations = {chem::TransformationEntity(chem::Modify(Modification()), 5)};
    return molecule;
}

TEST(MoleculeEntity, AnswersEachQuestionForEachType)
{
    struct Row
    {
        const char* type;
        MoleculeEntity entity;
        double averageMass;
        double monoMass;
        MoleculeType moleculeType;
        QString formula;
        QString sequence;
        QString name;
        QString code;
        QString description;
        qsizetype chains;
        qsizetype modifications;
        qsizetype links;
        qsizetype transformations;
    };
    const NamedMolecule named(oxygen(), u"Oxygen"_s, u"O"_s);
    const QString none;
    const auto unknown = MoleculeType::Unknown;
    const std::vector<Row> rows = {
        {"nullptr", nullptr, 0, 0, unknown, none, none, none, none, none, 0, 0, 0, 0},
        {"int", 7, 7, 7, unknown, none, none, none, none, none, 0, 0, 0, 0},
        {"double", -2.5, -2.5, -2.5, unknown, none, none, none, none, none, 0, 0, 0, 0},
        {"Modification", Modification(named, {{0, 1}}), 0, 0, unknown, none, none, none, none, none,
         0, 0, 0, 0},
        {"Molecule", oxygen(), 16.5, 16.25, unknown, u"O"_s, none, none, none, none, 0, 0, 0, 0},
        {"NamedMolecule", named, 16.5, 16.25, unknown, u"O"_s, none, u"Oxygen"_s, u"O"_s, none, 0,
         0, 0, 0},
        {"AminoAcid", AminoAcid(named), 16.5, 16.25, MoleculeType::AminoAcid, u"O"_s, none,
         u"Oxygen"_s, u"O"_s, none, 0, 0, 0, 0},
        {"StructuredMolecule", structured(), 24.5, 24.25, MoleculeType::Protein, u"C2"_s,
         u"R[*1][*1][]"_s, u"name"_s, u"code"_s, none, 1, 1, 1, 1}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.type);
        EXPECT_EQ(row.entity.averageMass(), row.averageMass);
        EXPECT_EQ(row.entity.monoMass(), row.monoMass);
        EXPECT_EQ(row.entity.type(), row.moleculeType);
        EXPECT_EQ(row.entity.formula().toString(), row.formula);
        EXPECT_EQ(row.entity.sequence(), row.sequence);
        EXPECT_EQ(row.entity.name(), row.name);
        EXPECT_EQ(row.entity.code(), row.code);
        EXPECT_EQ(row.entity.description(), row.description);
        EXPECT_EQ(row.entity.chains().size(), row.chains);
        EXPECT_EQ(row.entity.modifications().size(), row.modifications);
        EXPECT_EQ(row.entity.links().size(), row.links);
        EXPECT_EQ(row.entity.transformations().size(), row.transformations);
    }
}

template <typename T>
constexpr bool isHeld = std::is_constructible_v<MoleculeEntity, T>;

TEST(MoleculeEntity, TakesItsEightTypesAndNoOther)
{
    static_assert(isHeld<std::nullptr_t> && isHeld<int> && isHeld<double>);
    static_assert(isHeld<Modification> && isHeld<StructuredMolecule> && isHeld<AminoAcid>);
    static_assert(isHeld<Molecule> && isHeld<NamedMolecule>);
    static_assert(std::is_convertible_v<double, MoleculeEntity>);
    static_assert(std::is_convertible_v<Modification, MoleculeEntity>);
    static_assert(!isHeld<long> && !isHeld<float> && !isHeld<bool> && !isHeld<unsigned>);
    static_assert(!isHeld<QString> && !isHeld<const char*> && !isHeld<Chain> && !isHeld<Link>);
    static_assert(!isHeld<ChemicalFormula> && !isHeld<chem::Nucleotide> && !isHeld<chem::Fragment>);
    static_assert(!std::is_default_constructible_v<MoleculeEntity>);
}

TEST(MoleculeEntity, CopiesShareAndMovesLeaveNothingBehind)
{
    MoleculeEntity original = oxygen();
    const MoleculeEntity copy = original;
    EXPECT_EQ(copy.averageMass(), 16.5);
    MoleculeEntity moved = std::move(original);
    EXPECT_EQ(moved.averageMass(), 16.5);
    original = 3; // a moved-from entity can be assigned to
    EXPECT_EQ(original.averageMass(), 3.0);
    original = std::move(moved);
    EXPECT_EQ(original.averageMass(), 16.5);
    static_assert(std::is_nothrow_move_constructible_v<MoleculeEntity>);
    static_assert(std::is_nothrow_move_assignable_v<MoleculeEntity>);
}

TEST(MoleculeEntity, BlankEntitiesAreEqual)
{
    EXPECT_TRUE(MoleculeEntity(0) == MoleculeEntity(nullptr));
    EXPECT_TRUE(MoleculeEntity(0.0) == MoleculeEntity(nullptr));
    EXPECT_TRUE(MoleculeEntity(-0.0) == MoleculeEntity(0));
    EXPECT_TRUE(MoleculeEntity(5.0) == MoleculeEntity(5));
}

// Rebuilding.

TEST(MoleculeEntity, MassOfZeroIsWorkedOutFromTheFormula)
{
    const auto water = chem::defaultChemicalFactory()->constructMolecule(u"H2O"_s);
    for (const double absent : {0.0, -0.0}) {
        const Molecule stored(water.formula(), absent, absent);
        const MoleculeEntity entity = stored;
        EXPECT_EQ(entity.averageMass(), water.averageMass());
        EXPECT_EQ(entity.monoMass(), water.monoMass());
        EXPECT_EQ(stored.averageMass(), 0.0);
    }
    const MoleculeEntity half = Molecule(water.formula(), 18.5, 0.0);
    EXPECT_EQ(half.averageMass(), 18.5);
    EXPECT_EQ(half.monoMass(), water.monoMass());
}

TEST(MoleculeEntity, MassThatIsNotANumberIsReturnedAsItIs)
{
    const MoleculeEntity entity = Molecule(formulaWith({{u"C"_s, 1}}), std::nan(""), std::nan(""));
    EXPECT_TRUE(std::isnan(entity.averageMass()));
    EXPECT_TRUE(std::isnan(entity.monoMass()));
}

TEST(MoleculeEntity, UnknownElementsLeaveTheMassAtZero)
{
    const MoleculeEntity entity = Molecule(formulaWith({{u"Xx"_s, 1}}), 0.0, 0.0);
    EXPECT_EQ(entity.averageMass(), 0.0);
    EXPECT_EQ(entity.monoMass(), 0.0);
}

StructuredMolecule ofCodes(MoleculeType type, const QStringList& codes)
{
    QList<MoleculeEntity> residues;
    for (const QString& code : codes)
        residues.append(NamedMolecule(Molecule(), QString(), code));
    StructuredMolecule molecule;
    molecule.type = type;
    molecule.chains = {Chain(QString(), QString(), residues, type, {})};
    return molecule;
}

TEST(MoleculeEntity, PeptideWithoutAFormulaIsLaidOutFromItsSequence)
{
    const MoleculeEntity peptide = ofCodes(MoleculeType::Peptide, {u"G"_s, u"A"_s});
    EXPECT_EQ(peptide.formula().toString(), u"C5H10N2O3"_s);
    const auto factory = chem::defaultChemicalFactory();
    EXPECT_EQ(peptide.monoMass(), factory->constructMolecule(u"C5H10N2O3"_s).monoMass());
    EXPECT_EQ(peptide.averageMass(), factory->constructMolecule(u"C5H10N2O3"_s).averageMass());
}

TEST(MoleculeEntity, OligonucleotideWithoutAFormulaIsLaidOutFromItsSequence)
{
    const MoleculeEntity strand = ofCodes(MoleculeType::OligoNucleotide, {u"A"_s, u"T"_s});
    EXPECT_EQ(strand.formula().toString(), u"C20H26N7O10P"_s);
    const MoleculeEntity refused = ofCodes(MoleculeType::OligoNucleotide, {u"?"_s});
    EXPECT_TRUE(refused.formula().isEmpty());
    EXPECT_EQ(refused.averageMass(), 0.0);
}

TEST(MoleculeEntity, OtherTypesAreNotLaidOut)
{
    for (const auto type : {MoleculeType::Protein, MoleculeType::Unknown, MoleculeType::Sugar})
        EXPECT_TRUE(MoleculeEntity(ofCodes(type, {u"G"_s})).formula().isEmpty());
    EXPECT_TRUE(MoleculeEntity(ofCodes(MoleculeType::Peptide, {})).formula().isEmpty());
}

TEST(MoleculeEntity, FormulaOfZerosCountsAsAFormula)
{
    StructuredMolecule peptide = ofCodes(MoleculeType::Peptide, {u"G"_s});
    peptide.formula = formulaWith({{u"C"_s, 0}});
    EXPECT_EQ(MoleculeEntity(peptide).formula().toString(), QString());
}

// Comparing.

TEST(MoleculeEntity, ComparesChemistryAlone)
{
    EXPECT_TRUE(MoleculeEntity(oxygen()) ==
                MoleculeEntity(AminoAcid(NamedMolecule(oxygen(), u"x"_s, u"y"_s))));
    EXPECT_FALSE(MoleculeEntity(16.5) == MoleculeEntity(oxygen()));
    EXPECT_FALSE(MoleculeEntity(Molecule(oxygen().formula(), 16.5, 16.0)) ==
                 MoleculeEntity(oxygen()));
    EXPECT_FALSE(MoleculeEntity(Molecule(oxygen().formula(), 16.0, 16.25)) ==
                 MoleculeEntity(oxygen()));
    EXPECT_FALSE(MoleculeEntity(Molecule(formulaWith({{u"N"_s, 1}}), 16.5, 16.25)) ==
                 MoleculeEntity(oxygen()));
}

TEST(MoleculeEntity, FormulasAreComparedAsTheyPrint)
{
    const Molecule withZero(formulaWith({{u"C"_s, 0}, {u"O"_s, 1}}), 16.5, 16.25);
    const Molecule rounded(formulaWith({{u"O"_s, 1 + 1e-13}}), 16.5, 16.25);
    EXPECT_TRUE(MoleculeEntity(withZero) == MoleculeEntity(oxygen()));
    EXPECT_TRUE(MoleculeEntity(rounded) == MoleculeEntity(oxygen()));
}

TEST(MoleculeEntity, MassesAreComparedToTwelveDigits)
{
    EXPECT_TRUE(MoleculeEntity(1000.0) == MoleculeEntity(1000.0000000005));
    EXPECT_FALSE(MoleculeEntity(1000.0) == MoleculeEntity(1000.000000002));
    EXPECT_TRUE(MoleculeEntity(0.5) == MoleculeEntity(0.5000000000005));
    EXPECT_FALSE(MoleculeEntity(std::nan("")) == MoleculeEntity(std::nan("")));
    const MoleculeEntity nan = std::nan("");
    EXPECT_FALSE(nan == nan);
}

TEST(MoleculeEntity, MillionResiduesAreHeldAndReleased)
{
    const auto factory = chem::defaultChemicalFactory();
    const QString text = u"ACDEFGHIKL"_s.repeated(100000);
    const MoleculeEntity molecule = chem::constructStructuredMolecule(
        u"long"_s, QString(),
        {chem::constructPeptideChain(u"A"_s, QString(), text, factory.data())}, {}, {},
        MoleculeType::Peptide);
    const MoleculeEntity copy = molecule;
    EXPECT_EQ(copy.sequence().size(), 1000000 + 5);
}

/// The molecule inside a new one, put there by `nest`.
template <typename Nest>
MoleculeEntity nested(int depth, Nest nest)
{
    MoleculeEntity inner = 1.0;
    for (int level = 0; level < depth; ++level) {
        StructuredMolecule outer;
        nest(&outer, inner);
        inner = std::move(outer);
    }
    return inner;
}

constexpr int greatDepth = 200000;

TEST(MoleculeEntity, DeepNestsAreReleasedOnANormalStack)
{
    nested(greatDepth, [](StructuredMolecule* outer, const MoleculeEntity& inner) {
        outer->chains = {Chain(QString(), QString(), {inner}, MoleculeType::Unknown, {})};
    });
    nested(greatDepth, [](StructuredMolecule* outer, const MoleculeEntity& inner) {
        outer->modifications = {Modification(inner, {})};
    });
    nested(greatDepth, [](StructuredMolecule* outer, const MoleculeEntity& inner) {
        outer->links = {Link(inner, {})};
    });
    nested(greatDepth, [](StructuredMolecule* outer, const MoleculeEntity& inner) {
        outer->transformations = {chem::TransformationEntity(chem::Modify(inner), 0)};
    });
    nested(greatDepth, [](StructuredMolecule* outer, const MoleculeEntity& inner) {
        outer->transformations = {chem::TransformationEntity(chem::Modify(Modification()), inner)};
    });
    MoleculeEntity inner = 1.0;
    for (int level = 0; level < greatDepth; ++level)
        inner = Modification(inner, {});
}

TEST(MoleculeEntity, TakesOverWhatIsMovedIntoIt)
{
    QString name = u"a name"_s;
    NamedMolecule named(oxygen(), name, QString());
    const MoleculeEntity entity = std::move(named);
    EXPECT_TRUE(named.name.isNull());
    EXPECT_EQ(entity.name(), name);
}

TEST(MoleculeEntity, MovesAndAssignmentsReleaseWhatWasHeld)
{
    QString name = u"a name"_s;
    name.detach();
    MoleculeEntity first = NamedMolecule(oxygen(), name, QString());
    EXPECT_FALSE(name.isDetached()); // the entity shares it
    MoleculeEntity second = std::move(first);
    second = 1; // had the source kept its share, the text would still be shared
    EXPECT_TRUE(name.isDetached());

    first = NamedMolecule(oxygen(), name, QString());
    second = std::move(first);
    second = 1;
    EXPECT_TRUE(name.isDetached());
    {
        const MoleculeEntity last = NamedMolecule(oxygen(), name, QString());
        const MoleculeEntity copy = last;
        EXPECT_FALSE(name.isDetached());
    }
    EXPECT_TRUE(name.isDetached());
}

TEST(MoleculeEntity, CopiesShareOneValue)
{
    QString name = u"a name"_s;
    name.detach();
    const MoleculeEntity original = NamedMolecule(oxygen(), name, QString());
    const auto sharers = [&name] {
        return name.data_ptr().d_ptr()->ref_.loadRelaxed();
    };
    const int before = sharers();
    const MoleculeEntity copy = original;
    MoleculeEntity assigned = 1;
    assigned = original;
    EXPECT_EQ(sharers(), before); // a copy of the value would hold the text once more
    EXPECT_EQ(assigned.name(), name);
    static_assert(sizeof(MoleculeEntity) == sizeof(std::shared_ptr<const void>));
}

TEST(MoleculeEntity, IsComparedByRebuiltMassesAndFormulas)
{
    const Molecule water = chem::defaultChemicalFactory()->constructMolecule(u"H2O"_s);
    EXPECT_TRUE(MoleculeEntity(Molecule(water.formula(), 0.0, 0.0)) == MoleculeEntity(water));
    EXPECT_TRUE(MoleculeEntity(water) == MoleculeEntity(Molecule(water.formula(), 0.0, 0.0)));
    EXPECT_FALSE(MoleculeEntity(Molecule(water.formula(), 0.0, 0.0)) == MoleculeEntity(0));

    const Molecule dipeptide = chem::defaultChemicalFactory()->constructMolecule(u"C5H10N2O3"_s);
    const MoleculeEntity peptide = ofCodes(MoleculeType::Peptide, {u"G"_s, u"A"_s});
    EXPECT_TRUE(peptide == MoleculeEntity(dipeptide));
}

TEST(MoleculeEntity, DifferenceAtTheBoundCountsAsEqual)
{
    EXPECT_TRUE(MoleculeEntity(0) == MoleculeEntity(1e-12));
    EXPECT_FALSE(MoleculeEntity(0) == MoleculeEntity(1.0000001e-12));
}

TEST(MoleculeEntity, IsRebuiltByTheDefaultFactoryWhicheverMadeItsParts)
{
    const auto other = chem::ChemicalFactory::construct(QString());
    other->setBuildingBlock(chem::ChemicalFactory::AminoAcidBlock, u"G"_s, u"blank"_s, QString());
    const Chain chain = chem::constructPeptideChain(QString(), QString(), u"G"_s, other.data());
    StructuredMolecule peptide;
    peptide.type = MoleculeType::Peptide;
    peptide.chains = {
        Chain(QString(), QString(), {chain.residues()[1]}, MoleculeType::Peptide, {})};
    EXPECT_EQ(MoleculeEntity(peptide).formula().toString(), u"C2H5NO2"_s);
}

TEST(MoleculeEntity, MissingTextsAreNull)
{
    for (const MoleculeEntity& entity :
         {MoleculeEntity(nullptr), MoleculeEntity(0), MoleculeEntity(0.0),
          MoleculeEntity(Modification()), MoleculeEntity(oxygen())}) {
        EXPECT_TRUE(entity.name().isNull());
        EXPECT_TRUE(entity.code().isNull());
        EXPECT_TRUE(entity.description().isNull());
        EXPECT_TRUE(entity.sequence().isNull());
    }
}

TEST(MoleculeEntity, BlankNumbersAnswerLikeNothing)
{
    for (const MoleculeEntity& entity : {MoleculeEntity(0), MoleculeEntity(0.0)}) {
        EXPECT_EQ(entity.averageMass(), 0.0);
        EXPECT_EQ(entity.monoMass(), 0.0);
        EXPECT_EQ(entity.type(), MoleculeType::Unknown);
        EXPECT_TRUE(entity.formula().isEmpty());
        EXPECT_TRUE(entity.chains().isEmpty());
        EXPECT_TRUE(entity.modifications().isEmpty());
        EXPECT_TRUE(entity.links().isEmpty());
        EXPECT_TRUE(entity.transformations().isEmpty());
    }
}

template <typename Result, typename Class>
constexpr bool answers(Result (Class::*)() const)
{
    return true;
}

TEST(MoleculeEntity, AnswersByValue)
{
    static_assert(answers<double>(&MoleculeEntity::averageMass));
    static_assert(answers<const ChemicalFormula>(&MoleculeEntity::formula));
    static_assert(answers<const QList<Chain>>(&MoleculeEntity::chains));
    static_assert(answers<const QList<Modification>>(&MoleculeEntity::modifications));
    static_assert(answers<const QList<Link>>(&MoleculeEntity::links));
    static_assert(
        answers<const QList<chem::TransformationEntity>>(&MoleculeEntity::transformations));
    static_assert(answers<QString>(&MoleculeEntity::sequence));
}

TEST(MoleculeEntity, CountsThatPrintEquallyAreEqual)
{
    // Six digits are printed: both give C1.23457e+06.
    EXPECT_TRUE(MoleculeEntity(Molecule(formulaWith({{u"C"_s, 1234567}}), 1.0, 1.0)) ==
                MoleculeEntity(Molecule(formulaWith({{u"C"_s, 1234568}}), 1.0, 1.0)));
}

TEST(MoleculeEntity, SeveralChainsAreLaidOutAsOneText)
{
    StructuredMolecule peptide = ofCodes(MoleculeType::Peptide, {u"G"_s});
    peptide.chains += ofCodes(MoleculeType::Peptide, {u"A"_s}).chains;
    peptide.modifications = {Modification(5.0, {})};
    EXPECT_EQ(MoleculeEntity(peptide).sequence(), u"G/A[]"_s);
    // What is no residue weighs nothing, so there is one pair of ends.
    EXPECT_EQ(MoleculeEntity(peptide).formula().toString(), u"C5H10N2O3"_s);

    StructuredMolecule strand = ofCodes(MoleculeType::OligoNucleotide, {u"A"_s});
    strand.chains += ofCodes(MoleculeType::OligoNucleotide, {u"T"_s}).chains;
    EXPECT_TRUE(MoleculeEntity(strand).formula().isEmpty()); // outside the grammar
}

RC_GTEST_PROP(MoleculeEntityLaws, EqualityOfMoleculesIsMutual, ())
{
    const MoleculeEntity one = randomProteins::anyGroup();
    const MoleculeEntity other = randomProteins::anyGroup();
    RC_ASSERT((one == other) == (other == one));
    RC_ASSERT(one == one);
}

RC_GTEST_PROP(MoleculeEntityLaws, NameOfAGroupDoesNotMakeItAnotherOne, ())
{
    const MoleculeEntity one = randomProteins::anyGroup();
    const MoleculeEntity renamed = chem::NamedMolecule(
        chem::Molecule(one.formula(), one.averageMass(), one.monoMass()), u"other"_s, u"o"_s);
    RC_ASSERT(one == renamed);
}

} // namespace
