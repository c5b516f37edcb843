#include "RandomProteins.h"
#include "TestFormulas.h"
#include "TestPrinters.h"
#include <ChemicalModel.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

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

/// What an entity answers; what stands in no row is empty.
struct Answers
{
    MoleculeEntity entity;
    double averageMass = 0.0;
    double monoMass = 0.0;
    MoleculeType type = MoleculeType::Unknown;
    QString formula = {};
    QString sequence = {};
    QString name = {};
    QString code = {};
    qsizetype parts = 0; ///< Chains, and as many modifications, links and entries of the history.
};

TEST(MoleculeEntity, AnswersEachQuestionForEachType)
{
    const NamedMolecule named(oxygen(), u"Oxygen"_s, u"O"_s);
    const QList<Answers> rows = {
        {nullptr},
        {0},
        {0.0},
        {7, 7, 7},
        {-2.5, -2.5, -2.5},
        {Modification(named, {{0, 1}})},
        {oxygen(), 16.5, 16.25, MoleculeType::Unknown, u"O"_s},
        {named, 16.5, 16.25, MoleculeType::Unknown, u"O"_s, {}, u"Oxygen"_s, u"O"_s},
        {AminoAcid(named), 16.5, 16.25, MoleculeType::AminoAcid, u"O"_s, {}, u"Oxygen"_s, u"O"_s},
        {structured(), 24.5, 24.25, MoleculeType::Protein, u"C2"_s, u"R[*1][*1][]"_s, u"name"_s,
         u"code"_s, 1}};
    for (qsizetype row = 0; row < rows.size(); ++row) {
        SCOPED_TRACE(row);
        const Answers& expected = rows[row];
        EXPECT_EQ(expected.entity.averageMass(), expected.averageMass);
        EXPECT_EQ(expected.entity.monoMass(), expected.monoMass);
        EXPECT_EQ(expected.entity.type(), expected.type);
        EXPECT_EQ(expected.entity.formula().toString(), expected.formula);
        EXPECT_EQ(expected.entity.sequence(), expected.sequence);
        EXPECT_EQ(expected.entity.name(), expected.name);
        EXPECT_EQ(expected.entity.code(), expected.code);
        EXPECT_EQ(expected.entity.description(), QString());
        EXPECT_EQ(expected.entity.chains().size(), expected.parts);
        EXPECT_EQ(expected.entity.modifications().size(), expected.parts);
        EXPECT_EQ(expected.entity.links().size(), expected.parts);
        EXPECT_EQ(expected.entity.transformations().size(), expected.parts);
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
    static_assert(std::is_nothrow_move_constructible_v<MoleculeEntity>);
    static_assert(std::is_nothrow_move_assignable_v<MoleculeEntity>);
}

// Rebuilding.

TEST(MoleculeEntity, MassOfZeroIsComputedFromTheFormula)
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

/// Two entities and whether they are equal.
struct Comparison
{
    const char* what;
    MoleculeEntity one;
    MoleculeEntity other;
    bool isEqual;
};

QList<Comparison> comparisons()
{
    const Molecule water = chem::defaultChemicalFactory()->constructMolecule(u"H2O"_s);
    const Molecule withoutMasses(water.formula(), 0.0, 0.0);
    const Molecule dipeptide = chem::defaultChemicalFactory()->constructMolecule(u"C5H10N2O3"_s);
    const auto carbon = [](double count) {
        return Molecule(formulaWith({{u"C"_s, count}}), 1.0, 1.0);
    };
    const MoleculeEntity nan = std::nan("");
    return {
        {"blank ones", 0, nullptr, true},
        {"a blank mass", 0.0, nullptr, true},
        {"a blank mass below zero", -0.0, 0, true},
        {"whole numbers of both types", 5.0, 5, true},
        {"names do not matter", oxygen(), AminoAcid(NamedMolecule(oxygen(), u"x"_s, u"y"_s)), true},
        {"formulas matter", 16.5, oxygen(), false},
        {"monoisotopic masses", Molecule(oxygen().formula(), 16.5, 16.0), oxygen(), false},
        {"average masses", Molecule(oxygen().formula(), 16.0, 16.25), oxygen(), false},
        {"other elements", Molecule(formulaWith({{u"N"_s, 1}}), 16.5, 16.25), oxygen(), false},
        {"entries of zero do not print",
         Molecule(formulaWith({{u"C"_s, 0}, {u"O"_s, 1}}), 16.5, 16.25), oxygen(), true},
        {"formulas as they print", carbon(1 + 1e-13), carbon(1), true},
        {"six digits are printed", carbon(1234567), carbon(1234568), true}, // C1.23457e+06
        {"masses to twelve digits", 1000.0, 1000.0000000005, true},
        {"and no further", 1000.0, 1000.000000002, false},
        {"small masses too", 0.5, 0.5000000000005, true},
        {"a difference at the bound", 0, 1e-12, true},
        {"and behind it", 0, 1.0000001e-12, false},
        {"what is not a number", nan, nan, false},
        {"rebuilt masses", withoutMasses, water, true},
        {"rebuilt masses are not blank", withoutMasses, 0, false},
        {"a rebuilt formula", ofCodes(MoleculeType::Peptide, {u"G"_s, u"A"_s}), dipeptide, true},
    };
}

TEST(MoleculeEntity, ComparesRebuiltMassesAndPrintedFormulasBothWays)
{
    for (const Comparison& each : comparisons()) {
        EXPECT_EQ(each.one == each.other, each.isEqual) << each.what;
        EXPECT_EQ(each.other == each.one, each.isEqual) << each.what;
    }
}

TEST(MoleculeEntity, TakesOverAndReleasesWhatIsMovedIntoIt)
{
    QString name = u"a name"_s;
    name.detach();
    NamedMolecule named(oxygen(), name, QString());
    MoleculeEntity first = std::move(named);
    EXPECT_TRUE(named.name.isNull());
    EXPECT_EQ(first.name(), name);
    MoleculeEntity second = std::move(first);
    second = 1; // had the source kept its share, the text would still be shared
    EXPECT_TRUE(name.isDetached());

    first = NamedMolecule(oxygen(), name, QString()); // one that was moved from
    EXPECT_FALSE(name.isDetached());
    second = std::move(first);
    second = 1;
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

TEST(MoleculeEntity, SeveralChainsAreLaidOutAsOneText)
{
    StructuredMolecule peptide = ofCodes(MoleculeType::Peptide, {u"G"_s});
    peptide.chains += ofCodes(MoleculeType::Peptide, {u"A"_s}).chains;
    peptide.modifications = {Modification(5.0, {})};
    EXPECT_EQ(MoleculeEntity(peptide).sequence(), u"G/A[]"_s);
    // What is no residue has no mass, so there is one pair of ends.
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
