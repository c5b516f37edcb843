#include "EveryAllocation.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

using namespace Qt::StringLiterals;
using namespace faults;

using chem::ChemicalFactory;
using Factory = QSharedPointer<ChemicalFactory>;

/// A copy, which is made faster than a factory.
Factory natural()
{
    static const Factory original = ChemicalFactory::construct(QString());
    return Factory::create(*original);
}

/// With other isotopes and other building blocks for every reader than natural().
Factory changed()
{
    const Factory factory = ChemicalFactory::construct(u"C13:99 C12:1"_s);
    factory->setBuildingBlock(ChemicalFactory::AminoAcidBlock, u"J"_s, u"new"_s, u"C3N"_s);
    factory->setBuildingBlock(ChemicalFactory::RiboseBlock, u"b"_s, u"new"_s, u"C7"_s);
    factory->setBuildingBlock(ChemicalFactory::SugarBlock, u"Hex"_s, u"new"_s, u"C9"_s);
    return factory;
}

/// Setting one block leaves the old factory or the new one.
void expectSafeSetting(ChemicalFactory::BuildingBlockType type, const QString& code)
{
    failAtEveryAllocation(Afterwards::OldOrNew, natural, [type, &code](const Factory& factory) {
        factory->setBuildingBlock(type, code, u"set"_s, u"C11H7O5"_s);
    });
}

TEST(FactoryFaults, MakingANaturalALabelledAndAnUnreadableFactory)
{
    for (const QString& text : {QString(), u"C13:0.9 C12:0.1 N15:1"_s, u"C13:0.9 Xx1:1"_s}) {
        failAtEveryAllocation(
            Afterwards::OldOrNew, [] { return Factory(); },
            [&text](Factory& factory) { factory = ChemicalFactory::construct(text); });
    }
}

TEST(FactoryFaults, SettingABlockIsAllOrNothing)
{
    expectSafeSetting(ChemicalFactory::AminoAcidBlock, u"J"_s);
    expectSafeSetting(ChemicalFactory::NucleobaseBlock, u"Z"_s);
    expectSafeSetting(ChemicalFactory::RiboseBlock, u"b"_s);
    expectSafeSetting(ChemicalFactory::PhosphateBlock, u"!"_s);
    expectSafeSetting(ChemicalFactory::FivePrimeTerminalBlock, u"{"_s);
    expectSafeSetting(ChemicalFactory::ThreePrimeTerminalBlock, u"}"_s);
    expectSafeSetting(ChemicalFactory::SugarBlock, u"Hex"_s);
    expectSafeSetting(ChemicalFactory::GlycanBlock, u"new"_s); // nothing reads it
    // Only the engine understands a base of this key.
    expectSafeSetting(ChemicalFactory::NucleobaseBlock, u"\\](?:PEG)?[x"_s);
}

TEST(FactoryFaults, CopyingAFactory)
{
    const auto make = [] {
        return std::tuple(natural(), std::optional<ChemicalFactory>());
    };
    failAtEveryAllocation(Afterwards::OldOrNew, make, [](auto& state) {
        auto& [original, copy] = state;
        copy.emplace(*original);
    });
}

TEST(FactoryFaults, AssigningAFactoryIsAllOrNothing)
{
    const auto make = [] {
        return std::tuple(natural(), changed());
    };
    failAtEveryAllocation(Afterwards::OldOrNew, make, [](auto& state) {
        auto& [target, source] = state;
        *target = *source;
    });
}

TEST(FactoryFaults, AssigningAFactoryByMoveIsAllOrNothing)
{
    const auto make = [] {
        return std::tuple(natural(), changed());
    };
    failAtEveryAllocation(Afterwards::OldOrNew, make, [](auto& state) {
        auto& [target, source] = state;
        *target = std::move(*source);
    });
}

TEST(FactoryFaults, RewritingFormulasOfTheOlderConvention)
{
    failAtEveryAllocation(
        Afterwards::OldOrNew, [] { return QString(); },
        [](QString& text) {
            text = ChemicalFactory::convertOldOligoBuildingBlockFormula(
                u"C5H10O4"_s, ChemicalFactory::RiboseBlock);
        });
}

TEST(FactoryFaults, FindingBlocksAndLabels)
{
    const auto make = [] {
        return std::tuple(0, QString());
    };
    failAtEveryAllocation(Afterwards::OldOrNew, make, [](auto& state) {
        auto& [type, label] = state;
        type = ChemicalFactory::buildingBlockType(u"5' Terminal"_s);
        label = ChemicalFactory::typeToString(chem::FragmentType::Zdot);
    });
}

} // namespace
