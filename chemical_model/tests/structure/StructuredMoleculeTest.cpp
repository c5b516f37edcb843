#include "Differences.h"
#include "RandomProteins.h"
#include "TestFormulas.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

using chem::Chain;
using chem::Link;
using chem::Modification;
using chem::Molecule;
using chem::MoleculeEntity;
using chem::MoleculeType;
using chem::NamedMolecule;
using chem::ParentChainLocus;
using chem::StructuredMolecule;
using fields::differences;
using Places = QList<std::pair<int, int>>;

MoleculeEntity residue(const QString& code, double mass = 1.0)
{
    return NamedMolecule(Molecule({}, mass, mass), u"name of "_s + code, code);
}

Chain chain(const QList<MoleculeEntity>& residues, const QString& name = u"chain"_s,
            const QString& code = u"c"_s)
{
    return Chain(name, code, residues, MoleculeType::Peptide, ParentChainLocus());
}

TEST(StructuredMolecule, PartsStartBlank)
{
    EXPECT_EQ(differences(MoleculeEntity(StructuredMolecule()), MoleculeEntity(nullptr)), "");
    EXPECT_EQ(differences(Modification(), Modification(0, {})), "");
    EXPECT_EQ(differences(Link(), Link(0, {{0, 0}, {0, 0}})), "");
    EXPECT_EQ(differences(ParentChainLocus(), ParentChainLocus{u""_s, 0, 0, 0}), "");
    static_assert(std::is_aggregate_v<StructuredMolecule>);
    static_assert(!std::is_default_constructible_v<Chain>);
}

TEST(StructuredMolecule, ChainKeepsWhatItIsMadeOf)
{
    const Chain any(u"name"_s, u"code"_s, {residue(u"A"_s)}, MoleculeType::Sugar,
                    {u"label"_s, 1, 2, 3});
    EXPECT_EQ(any.name(), u"name"_s);
    EXPECT_EQ(any.code(), u"code"_s);
    EXPECT_EQ(any.type(), MoleculeType::Sugar);
    EXPECT_EQ(any.residues().size(), 1);
    EXPECT_EQ(differences(any.parentLocus(), ParentChainLocus{u"label"_s, 1, 2, 3}), "");
}

TEST(StructuredMolecule, ChainsCompareAllButTheirCodes)
{
    const auto peptide = MoleculeType::Peptide;
    const QList<MoleculeEntity> residues = {residue(u"A"_s)};
    const Chain base(u"n"_s, u"c"_s, residues, peptide, {u"l"_s, 1, 2, 3});
    EXPECT_EQ(base, Chain(u"n"_s, u"other"_s, residues, peptide, {u"l"_s, 1, 2, 3}));
    EXPECT_EQ(base, Chain(u"n"_s, u"c"_s, {residue(u"B"_s)}, peptide, {u"l"_s, 1, 2, 3}));
    const QList<Chain> others = {
        Chain(u"m"_s, u"c"_s, residues, peptide, {u"l"_s, 1, 2, 3}),
        Chain(u"n"_s, u"c"_s, residues, MoleculeType::Protein, {u"l"_s, 1, 2, 3}),
        Chain(u"n"_s, u"c"_s, residues, peptide, {u"k"_s, 1, 2, 3}),
        Chain(u"n"_s, u"c"_s, residues, peptide, {u"l"_s, 0, 2, 3}),
        Chain(u"n"_s, u"c"_s, residues, peptide, {u"l"_s, 1, 0, 3}),
        Chain(u"n"_s, u"c"_s, residues, peptide, {u"l"_s, 1, 2, 4}),
        Chain(u"n"_s, u"c"_s, {}, peptide, {u"l"_s, 1, 2, 3}),
        Chain(u"n"_s, u"c"_s, {residue(u"A"_s, 2.0)}, peptide, {u"l"_s, 1, 2, 3})};
    for (const Chain& other : others)
        EXPECT_FALSE(base == other) << fields::differences(base, other);
}

TEST(StructuredMolecule, ChainEqualsItsOwnCopyWithoutALookAtTheResidues)
{
    // A mass that is not a number equals nothing, so only a look would tell the two apart.
    const Chain nan = chain({residue(u"A"_s, std::nan(""))});
    const Chain copy = nan;
    EXPECT_TRUE(nan == copy);
    EXPECT_FALSE(nan == chain({residue(u"A"_s, std::nan(""))}));
}

TEST(StructuredMolecule, LinksCompareEntitiesAndDirections)
{
    EXPECT_TRUE(Link() == Link(MoleculeEntity(0), {{0, 0}, {0, 0}}));
    const Link link(2.0, {{0, 1}, {2, 3}});
    EXPECT_EQ(link.entity().averageMass(), 2.0);
    EXPECT_EQ(link.connection(), (Link::Connection{{0, 1}, {2, 3}}));
    EXPECT_TRUE(link == Link(2, {{0, 1}, {2, 3}}));
    EXPECT_FALSE(link == Link(2.0, {{2, 3}, {0, 1}}));
    EXPECT_FALSE(link == Link(2.5, {{0, 1}, {2, 3}}));
    for (const Link::Connection& other :
         {Link::Connection{{9, 1}, {2, 3}}, Link::Connection{{0, 9}, {2, 3}},
          Link::Connection{{0, 1}, {9, 3}}, Link::Connection{{0, 1}, {2, 9}}})
        EXPECT_FALSE(link == Link(2.0, other));
    EXPECT_TRUE(Link(1.0, {{0, 1}, {0, 1}}) == Link(1.0, {{0, 1}, {0, 1}}));
}

TEST(StructuredMolecule, ModificationForwardsToItsEntityWithRebuiltMasses)
{
    const auto water = chem::defaultChemicalFactory()->constructMolecule(u"H2O"_s);
    const Modification modification(Molecule(water.formula(), 0.0, 0.0), {{1, 2}});
    EXPECT_EQ(modification.averageMass(), water.averageMass());
    EXPECT_EQ(modification.monoMass(), water.monoMass());
    EXPECT_EQ(modification.formula().toString(), u"H2O"_s);
    EXPECT_EQ(modification.possibleChainLocations(), Places({{1, 2}}));
}

TEST(StructuredMolecule, ModificationsCompareEntitiesAndPlacesInOrder)
{
    EXPECT_TRUE(Modification(1.0, {{0, 1}, {0, 2}}) == Modification(1, {{0, 1}, {0, 2}}));
    EXPECT_FALSE(Modification(1.0, {{0, 1}, {0, 2}}) == Modification(1, {{0, 2}, {0, 1}}));
    EXPECT_FALSE(Modification(1.0, {{0, 1}}) == Modification(1, {}));
    EXPECT_FALSE(Modification(1.0, {}) == Modification(2.0, {}));
}

Modification group(double average, double mono, const QString& symbol, const Places& places)
{
    return Modification(Molecule(formulaWith({{symbol, 1}}), average, mono), places);
}

TEST(StructuredMolecule, ModificationsSortByMassesThenFormulaThenPlaces)
{
    const QList<Modification> ascending = {
        group(1.0, 9.0, u"Z"_s, {{9, 9}}), group(2.0, 1.0, u"Z"_s, {{9, 9}}),
        group(2.0, 2.0, u"A"_s, {{9, 9}}), group(2.0, 2.0, u"B"_s, {}),
        group(2.0, 2.0, u"B"_s, {{0, 1}}), group(2.0, 2.0, u"B"_s, {{0, 1}, {0, 2}}),
        group(2.0, 2.0, u"B"_s, {{0, 2}}), group(2.0, 2.0, u"B"_s, {{1, 0}}),
        group(2.0, 2.0, u"a"_s, {})};
    for (qsizetype i = 0; i < ascending.size(); ++i) {
        for (qsizetype j = 0; j < ascending.size(); ++j)
            EXPECT_EQ(ascending[i] < ascending[j], i < j) << i << ' ' << j;
    }
}

TEST(StructuredMolecule, NearlyEqualMassesSortByFormula)
{
    const Modification heavier = group(2.0 + 1e-12, 2.0, u"A"_s, {});
    const Modification lighter = group(2.0, 2.0 + 1e-12, u"B"_s, {});
    EXPECT_TRUE(heavier < lighter);
    EXPECT_FALSE(lighter < heavier);
}

TEST(StructuredMolecule, FieldsStandInTheirOrder)
{
    const StructuredMolecule molecule = {
        {}, MoleculeType::Sugar, 1.0, 2.0, {}, {}, {}, u"name"_s, u"code"_s, u"description"_s, {}};
    const auto& [formula, type, monoMass, averageMass, chains, links, modifications, name, code,
                 description, transformations] = molecule;
    static_assert(std::is_same_v<decltype(formula), const chem::ChemicalFormula>);
    static_assert(std::is_same_v<decltype(type), const MoleculeType>);
    static_assert(std::is_same_v<decltype(chains), const QList<Chain>>);
    static_assert(std::is_same_v<decltype(links), const QList<Link>>);
    static_assert(std::is_same_v<decltype(modifications), const QList<Modification>>);
    static_assert(
        std::is_same_v<decltype(transformations), const QList<chem::TransformationEntity>>);
    EXPECT_EQ(MoleculeEntity(molecule).monoMass(), 1.0);
    EXPECT_EQ(MoleculeEntity(molecule).averageMass(), 2.0);
    EXPECT_EQ(monoMass, 1.0);
    EXPECT_EQ(averageMass, 2.0);
    EXPECT_EQ(name, u"name"_s);
    EXPECT_EQ(code, u"code"_s);
    EXPECT_EQ(description, u"description"_s);
}

TEST(StructuredMolecule, AccessorsReferToWhatIsHeld)
{
    const Chain any = chain({residue(u"A"_s)});
    EXPECT_EQ(&any.residues(), &any.residues());
    static_assert(std::is_same_v<decltype(any.residues()), const QList<MoleculeEntity>&>);
    static_assert(std::is_same_v<decltype(any.name()), const QString&>);
    static_assert(std::is_same_v<decltype(any.code()), const QString&>);
    static_assert(std::is_same_v<decltype(any.type()), const MoleculeType&>);
    static_assert(std::is_same_v<decltype(any.parentLocus()), const ParentChainLocus&>);
    const Modification modification;
    static_assert(std::is_same_v<decltype(modification.possibleChainLocations()), const Places&>);
    static_assert(std::is_same_v<decltype(modification.entity()), MoleculeEntity>);
    static_assert(std::is_same_v<decltype(Link().entity()), MoleculeEntity>);
}

TEST(StructuredMolecule, FormulaTextsSortByCodeUnit)
{
    // A surrogate pair stands before U+FF21 by code units and behind it by code points.
    const Modification pair = group(2.0, 2.0, u"\U00010400"_s, {});
    const Modification wide = group(2.0, 2.0, u"\uff21"_s, {});
    EXPECT_TRUE(pair < wide);
    EXPECT_FALSE(wide < pair);
}

TEST(StructuredMolecule, ModificationsSortByRebuiltMasses)
{
    const Modification carbon(Molecule(formulaWith({{u"C"_s, 1}}), 0.0, 0.0), {});
    EXPECT_TRUE(Modification(5.0, {}) < carbon);
    EXPECT_FALSE(carbon < Modification(5.0, {}));
    EXPECT_TRUE(carbon < Modification(13.0, {}));
}

TEST(StructuredMolecule, MassesThatAreNotNumbersHaveNoOrder)
{
    const Modification nan(std::nan(""), {});
    const Modification one(1.0, {});
    EXPECT_FALSE(nan < one);
    EXPECT_FALSE(one < nan);
    EXPECT_FALSE(nan < nan);
    EXPECT_FALSE(nan == nan);
}

RC_GTEST_PROP(StructuredMoleculeLaws, OneOfTwoDifferentModificationsSortsFirst, ())
{
    const Modification one = randomProteins::anyModification();
    const Modification other = randomProteins::anyModification();
    RC_ASSERT(!(one < one));
    RC_ASSERT((one < other) + (other < one) + (one == other) == 1);
}

RC_GTEST_PROP(StructuredMoleculeLaws, ModificationsCanBeSorted, ())
{
    QList<Modification> modifications;
    for (int i = *rc::gen::inRange(0, 12); i > 0; --i)
        modifications.append(randomProteins::anyModification());
    std::sort(modifications.begin(), modifications.end());
    for (qsizetype i = 0; i < modifications.size(); ++i) {
        for (qsizetype j = i; j < modifications.size(); ++j)
            RC_ASSERT(!(modifications[j] < modifications[i]));
    }
}

} // namespace
