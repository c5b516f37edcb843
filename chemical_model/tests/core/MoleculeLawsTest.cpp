#include "SmallMolecules.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <vector>

/// \file
/// What holds for the comparison, matching, linking and cutting of all molecules. The masses are
/// multiples of powers of two, so that sums and differences are exact.

using namespace Qt::StringLiterals;
using namespace smallMolecules;
using chem::Modification;
using chem::MoleculeEntity;

namespace {

/// Few different values, so that equal ones meet.
MoleculeEntity anyGroup()
{
    const QString formulaText = *rc::gen::element(u"C"_s, u"CH2"_s, u"H2"_s, u"O"_s);
    const double mass = *rc::gen::inRange(1, 5) * 0.5;
    if (*rc::gen::arbitrary<bool>())
        return group(formulaText, mass);
    return namedGroup(u"name"_s, u"code"_s, formulaText, mass);
}

Modification anyModification()
{
    QList<Position> places;
    for (int i = *rc::gen::inRange(0, 3); i > 0; --i)
        places.append({*rc::gen::inRange(0, 2), *rc::gen::inRange(0, 2)});
    return Modification(anyGroup(), places);
}

MoleculeEntity anyProtein()
{
    QList<chem::Chain> chains;
    for (int i = *rc::gen::inRange(1, 4); i > 0; --i) {
        QString letters;
        for (int length = *rc::gen::inRange(0, 9); length > 0; --length)
            letters += QChar(*rc::gen::inRange<char16_t>(u'A', u'Z'));
        chains.append(letterChain(letters));
    }
    return moleculeOf(chains);
}

RC_GTEST_PROP(ComparisonLaws, EqualityOfMoleculesIsMutual, ())
{
    const MoleculeEntity one = anyGroup();
    const MoleculeEntity other = anyGroup();
    RC_ASSERT((one == other) == (other == one));
    RC_ASSERT(one == one);
}

RC_GTEST_PROP(ComparisonLaws, NameOfAGroupDoesNotMakeItAnotherOne, ())
{
    const MoleculeEntity one = anyGroup();
    const MoleculeEntity renamed = chem::NamedMolecule(
        chem::Molecule(one.formula(), one.averageMass(), one.monoMass()), u"other"_s, u"o"_s);
    RC_ASSERT(one == renamed);
}

RC_GTEST_PROP(ComparisonLaws, OneOfTwoDifferentModificationsSortsFirst, ())
{
    const Modification one = anyModification();
    const Modification other = anyModification();
    RC_ASSERT(!(one < one));
    RC_ASSERT((one < other) + (other < one) + (one == other) == 1);
}

RC_GTEST_PROP(ComparisonLaws, ModificationsCanBeSorted, ())
{
    QList<Modification> modifications;
    for (int i = *rc::gen::inRange(0, 12); i > 0; --i)
        modifications.append(anyModification());
    std::sort(modifications.begin(), modifications.end());
    for (qsizetype i = 0; i < modifications.size(); ++i) {
        for (qsizetype j = i; j < modifications.size(); ++j)
            RC_ASSERT(!(modifications[j] < modifications[i]));
    }
}

RC_GTEST_PROP(MatchingLaws, MatchesAreTheMeasurementsWithinTheTolerance, ())
{
    const double model = *rc::gen::inRange(1, 400) / 4.0;
    const double tolerance = *rc::gen::inRange(0, 80) / 4.0;
    auto masses = *rc::gen::container<std::vector<double>>(
        rc::gen::map(rc::gen::inRange(0, 480), [](int quarters) { return quarters / 4.0; }));
    std::sort(masses.begin(), masses.end());

    chem::MatchingParameters parameters;
    parameters.massTolerance = {tolerance, 0};
    const auto matches = chem::match(
        model, QList<chem::ObservedMassEntity>(masses.cbegin(), masses.cend()), parameters);
    std::vector<double> matched;
    for (const chem::Match& match : matches)
        matched.push_back(match.observedMass.mass());
    std::erase_if(masses, [&](double mass) { return std::abs(mass - model) > tolerance; });
    RC_ASSERT(matched == masses);
}

RC_GTEST_PROP(MatchingLaws, WiderToleranceLosesNoMatch, ())
{
    const MoleculeEntity model = *rc::gen::inRange(1, 1000000) / 977.0;
    QList<chem::ObservedMassEntity> observed;
    double mass = 0.0;
    for (int i = *rc::gen::inRange(0, 60); i > 0; --i)
        observed.append(mass += *rc::gen::inRange(0, 100000) / 991.0);
    const int unit = *rc::gen::inRange(0, 3);
    const double width = *rc::gen::inRange(0, 100000) / 100.0;
    chem::MatchingParameters narrow;
    narrow.massTolerance = {width, unit};
    chem::MatchingParameters wide;
    wide.massTolerance = {width * 2, unit};
    RC_ASSERT(chem::match(model, observed, narrow).size() <=
              chem::match(model, observed, wide).size());
}

RC_GTEST_PROP(LinkLaws, LinkAddsItsBridgeAndChangesNoResidue, ())
{
    const MoleculeEntity protein = anyProtein();
    const MoleculeEntity bridge = anyGroup();
    const chem::Link::Connection connection = {{0, *rc::gen::inRange(0, 5)},
                                               {0, *rc::gen::inRange(0, 5)}};
    const MoleculeEntity linked = chem::EstablishLink(bridge, connection).transform(protein);
    RC_ASSERT(linked.averageMass() == protein.averageMass() + bridge.averageMass());
    RC_ASSERT(linked.monoMass() == protein.monoMass() + bridge.monoMass());
    RC_ASSERT(linked.chains() == protein.chains());
    RC_ASSERT(linked.links().size() == protein.links().size() + 1);
    RC_ASSERT(linked.links().last().connection() == connection);
}

RC_GTEST_PROP(CuttingLaws, PiecesOfAChainWeighTheChain, ())
{
    const MoleculeEntity protein = anyProtein();
    const chem::Chain chain = protein.chains().first();
    const int size = static_cast<int>(chain.residues().size());
    const int cut = *rc::gen::inRange(0, size + 1);
    const MoleculeEntity nothing = 0;
    const auto pieceOf = [&](int start, int end) {
        return chem::ChainFragmenter({{nothing, {QString(), 0, start, end}, nothing}})
            .transform(protein);
    };
    const MoleculeEntity left = pieceOf(0, cut);
    const MoleculeEntity right = pieceOf(cut, size);
    const MoleculeEntity whole = moleculeOf({chain});
    RC_ASSERT(left.averageMass() + right.averageMass() == whole.averageMass());
    RC_ASSERT(left.monoMass() + right.monoMass() == whole.monoMass());
    RC_ASSERT(QString(left.sequence() + right.sequence()) == whole.sequence());
}

RC_GTEST_PROP(CuttingLaws, WholeChainCutOutIsTheChain, ())
{
    const MoleculeEntity protein = anyProtein();
    const QList<chem::Chain> chains = protein.chains();
    const int index = *rc::gen::inRange(0, static_cast<int>(chains.size()));
    const int size = static_cast<int>(chains[index].residues().size());
    const MoleculeEntity nothing = nullptr;
    const MoleculeEntity piece =
        chem::ChainFragmenter({{nothing, {QString(), index, 0, size}, nothing}}).transform(protein);
    RC_ASSERT(piece.averageMass() == moleculeOf({chains[index]}).averageMass());
    RC_ASSERT(piece.sequence() == moleculeOf({chains[index]}).sequence());
}

RC_GTEST_PROP(ModificationLaws, PlaceOfAModificationDoesNotChangeTheWeight, ())
{
    const MoleculeEntity protein = anyProtein();
    const MoleculeEntity added = anyGroup();
    const int size = static_cast<int>(protein.chains().first().residues().size());
    const Position place = {0, *rc::gen::inRange(0, size)};
    const MoleculeEntity onResidue = chem::Modify(Modification(added, {place})).transform(protein);
    const MoleculeEntity anywhere = chem::Modify(added).transform(protein);
    RC_ASSERT(onResidue.averageMass() == anywhere.averageMass());
    RC_ASSERT(onResidue.monoMass() == anywhere.monoMass());
    RC_ASSERT(onResidue.formula().elementCountMap() == anywhere.formula().elementCountMap());
    RC_ASSERT(onResidue.averageMass() == protein.averageMass() + added.averageMass());
}

RC_GTEST_PROP(ModificationLaws, OrderOfTwoModificationsDoesNotChangeTheWeight, ())
{
    const MoleculeEntity protein = anyProtein();
    const chem::Modify one(anyGroup());
    const chem::Modify other(anyGroup());
    const MoleculeEntity oneFirst = other.transform(one.transform(protein));
    const MoleculeEntity otherFirst = one.transform(other.transform(protein));
    RC_ASSERT(oneFirst == otherFirst);
    RC_ASSERT(oneFirst.averageMass() == otherFirst.averageMass());
}

} // namespace
