#include "EveryAllocation.h"
#include "WaysOut.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace faults;

using chem::Chain;
using chem::ClipOptions;
using chem::Link;
using chem::Modification;
using chem::MoleculeEntity;

chem::Molecule phospho()
{
    return chem::defaultChemicalFactory()->constructMolecule(u"HPO3"_s);
}

Chain peptideChain()
{
    return chem::constructPeptideChain(u"A"_s, u"a"_s, u"AKC"_s,
                                       chem::defaultChemicalFactory().data());
}

/// Two chains with a link and modifications, one of which sits on a residue, and a history.
MoleculeEntity protein()
{
    const Link link(phospho(), {{0, 1}, {1, 2}});
    const MoleculeEntity molecule = chem::constructProteinFromChains(
        u"protein"_s, {peptideChain(), peptideChain()}, {Modification(phospho(), {{0, 1}, {0, 2}})},
        {link}, nullptr);
    return chem::Modify(Modification(phospho(), {{1, 1}})).transform(molecule);
}

/// A molecule that stores no totals, so that each question lays its text out.
MoleculeEntity withoutTotals(chem::MoleculeType type, const Chain& chain)
{
    chem::StructuredMolecule molecule;
    molecule.type = type;
    molecule.chains.append(chain);
    return molecule;
}

/// `step` gives another molecule, or leaves all as it was.
void expectSafeStep(const chem::Transformation& step)
{
    const auto make = [] {
        return std::tuple(protein(), MoleculeEntity(1.0));
    };
    failAtEveryAllocation(Afterwards::OldOrNew, make, [&step](auto& state) {
        auto& [molecule, result] = state;
        result = step.transform(molecule);
    });
}

TEST(StructureFaults, HoldingEachKindOfValue)
{
    const auto make = [] {
        return std::tuple(chem::NamedMolecule(phospho(), u"name"_s, u"code"_s),
                          QList<MoleculeEntity>());
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [group, entities] = state;
        entities.append(nullptr);
        entities.append(1);
        entities.append(2.5);
        entities.append(chem::Molecule(group));
        entities.append(group);
        entities.append(chem::AminoAcid(group));
        entities.append(Modification(group, {{0, 1}}));
        entities.append(chem::StructuredMolecule());
    });
}

TEST(StructureFaults, BuildingChains)
{
    stopAtSharedPointersTo<chem::AminoAcid, chem::Nucleotide>();
    const auto make = [] {
        const auto factory = chem::ChemicalFactory::construct(QString());
        factory->isValidOligoSequence(u"A"_s); // makes the reader, which takes thousands of them
        return std::tuple(factory, QList<Chain>());
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [factory, chains] = state;
        chains.append(chem::constructPeptideChain(u"A"_s, u"a"_s, u"AKCA"_s, factory.data()));
        chains.append(
            chem::constructOligoNucleotideChain(u"B"_s, u"b"_s, u"{rA*C]"_s, factory.data()));
    });
}

TEST(StructureFaults, BuildingMolecules)
{
    stopAtSharedPointersTo<chem::AminoAcid, chem::Nucleotide>();
    const auto make = [] {
        return std::tuple(QList<Chain>{peptideChain(), peptideChain()},
                          QList<Modification>{Modification(phospho(), {})},
                          QList<Link>{Link(phospho(), {})}, QList<MoleculeEntity>());
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [chains, modifications, links, results] = state;
        const auto factory = chem::defaultChemicalFactory();
        results.append(chem::constructOligoNucleotide(u"o"_s, u"o"_s, u"rA*C"_s, factory.data()));
        results.append(
            chem::constructProteinFromChains(u"p"_s, chains, modifications, links, factory.data()));
        results.append(chem::constructStructuredMolecule(u"s"_s, u"s"_s, chains, modifications,
                                                         links, chem::MoleculeType::Peptide));
    });
}

TEST(StructureFaults, ModifyWithAndWithoutAPlace)
{
    expectSafeStep(chem::Modify(phospho()));
    expectSafeStep(chem::Modify(Modification(phospho(), {{0, 2}})));
}

TEST(StructureFaults, UnmodifyWithAndWithoutAPlace)
{
    expectSafeStep(chem::Unmodify(Modification(phospho(), {{0, 1}, {0, 2}})));
    expectSafeStep(chem::Unmodify(Modification(phospho(), {{1, 1}})));
}

TEST(StructureFaults, EstablishLink)
{
    expectSafeStep(chem::EstablishLink(phospho(), {{0, 1}, {0, 3}}));
}

TEST(StructureFaults, ModifyMoleculeAtAPlaceThatExistsAndAtNone)
{
    for (const int chain : {0, 7}) {
        const auto make = [] {
            return std::tuple(protein(), MoleculeEntity(1.0));
        };
        failAtEveryAllocation(Afterwards::OldOrNew, make, [chain](auto& state) {
            auto& [molecule, result] = state;
            result = chem::modifyMolecule(molecule, phospho(), {chain, 2});
        });
    }
}

TEST(StructureFaults, ChainFragmenterKeepsLinksAndHistory)
{
    expectSafeStep(chem::ChainFragmenter(
        {{0, {u"piece"_s, 0, 1, 3}, phospho()}, {phospho(), {QString(), 1, 1, 4}, 0}}));
}

TEST(StructureFaults, RecordedStepsAreRepeated)
{
    expectSafeStep(chem::TransformationEntity(chem::Modify(phospho()), protein()));
}

void expectSafeClips(const ClipOptions& options, Afterwards afterwards = Afterwards::OldOrNew)
{
    const auto make = [] {
        return std::tuple(protein(), QList<MoleculeEntity>());
    };
    failAtEveryAllocation(afterwards, make, [&options](auto& state) {
        auto& [molecule, clips] = state;
        clips = chem::generateClips(molecule, nullptr, options);
    });
}

TEST(StructureFaults, Clips)
{
    expectSafeClips(ClipOptions::createNoClipping());
    expectSafeClips(ClipOptions::createClipAll());
    expectSafeClips(ClipOptions::createClipByDepth(1, 0, 1, 1));
}

TEST(StructureFaults, ClipsByResidue)
{
    // An expression whose engine gets no memory reports no match, so cuts may be missing.
    expectSafeClips(ClipOptions::createClipByResidue({u"K"_s, QString()}, {u"C"_s, u"[KR]"_s}),
                    Afterwards::Usable);
}

TEST(StructureFaults, OptionsOfClips)
{
    const auto make = [] {
        return std::tuple(QList<QString>{u"K"_s, QString()}, QList<QString>{u"C"_s, u"R"_s},
                          ClipOptions());
    };
    failAtEveryAllocation(Afterwards::OldOrNew, make, [](auto& state) {
        auto& [before, after, options] = state;
        options = ClipOptions::createClipByResidue(before, after);
    });
}

TEST(StructureFaults, Matching)
{
    const auto make = [] {
        return std::tuple(MoleculeEntity(100.0),
                          QList<chem::ObservedMassEntity>{99.0, 99.5, 100.0, 100.5, 101.0},
                          QList<chem::Match>());
    };
    failAtEveryAllocation(Afterwards::OldOrNew, make, [](auto& state) {
        auto& [molecule, observed, matches] = state;
        matches = chem::match(molecule, observed, {{1.0, 0}, {}, {}, {}});
    });
}

TEST(StructureFaults, HoldingObservedMasses)
{
    failAtEveryAllocation(
        Afterwards::OldOrNew, [] { return chem::ObservedMassEntity(1.0); },
        [](chem::ObservedMassEntity& mass) { mass = chem::ObservedMassEntity(2.0); });
}

void expectSafeGetters(const MoleculeEntity& molecule)
{
    const auto make = [&] {
        return std::tuple(molecule, 0.0, 0.0, chem::ChemicalFormula(), QString());
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [entity, average, mono, formula, sequence] = state;
        average = entity.averageMass();
        mono = entity.monoMass();
        formula = entity.formula();
        sequence = entity.sequence();
    });
}

TEST(StructureFaults, GettersThatLayTextOut)
{
    stopAtSharedPointersTo<chem::Nucleotide, chem::ComplexResidue, chem::FragmentationSite,
                           chem::MoleculeComplex>();
    const auto factory = chem::defaultChemicalFactory();
    expectSafeGetters(withoutTotals(chem::MoleculeType::Peptide,
                                    Chain(QString(), QString(),
                                          {chem::AminoAcid(), factory->constructMolecule(u"H2"_s)},
                                          chem::MoleculeType::Peptide, {})));
    expectSafeGetters(withoutTotals(chem::MoleculeType::Peptide, peptideChain()));
    expectSafeGetters(withoutTotals(
        chem::MoleculeType::OligoNucleotide,
        chem::constructOligoNucleotideChain(QString(), QString(), u"rA*C"_s, factory.data())));
    expectSafeGetters(chem::Molecule(phospho().formula(), 0.0, 0.0));
}

TEST(StructureFaults, SequenceTexts)
{
    expectSafeGetters(protein());
}

TEST(StructureFaults, Comparisons)
{
    const auto make = [] {
        const chem::Molecule zero(chem::ChemicalFactory::parseChemicalFormula(u"HPO3C0"_s),
                                  phospho().averageMass(), phospho().monoMass());
        return std::tuple(MoleculeEntity(phospho()), MoleculeEntity(zero), peptideChain(),
                          peptideChain(), QList<int>());
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [one, other, chain, otherChain, results] = state;
        results.append(one == other);
        results.append(chain == otherChain);
        results.append(Link(one, {}) == Link(other, {}));
        results.append(Modification(one, {}) == Modification(other, {}));
        results.append(Modification(one, {}) < Modification(other, {}));
    });
}

} // namespace
