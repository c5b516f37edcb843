#include "factory/PreparedFactory.h"

#include "core/Unshared.h"
#include "factory/StandardBlocks.h"
#include "isotopes/MassRatio.h"

using namespace Qt::StringLiterals;

namespace chem {

namespace {

/// The building blocks for one thread.
OligoBlocks own(const OligoBlocks& blocks)
{
    return {.fivePrimeTerminals = unshared(blocks.fivePrimeTerminals),
            .riboses = unshared(blocks.riboses),
            .nucleobases = unshared(blocks.nucleobases),
            .phosphates = unshared(blocks.phosphates),
            .threePrimeTerminals = unshared(blocks.threePrimeTerminals),
            .defaultRibose = unshared(blocks.defaultRibose),
            .defaultPhosphate = unshared(blocks.defaultPhosphate)};
}

template <typename Reader, typename Make>
std::shared_ptr<const Reader> lent(const PerThread<Reader>* readers, const Make& make)
{
    if (!readers)
        return std::shared_ptr<const Reader>(new Reader(make()));
    return {std::shared_ptr<void>(), &readers->get(make)};
}

} // namespace

std::shared_ptr<const ChemicalFactory::Prepared> ChemicalFactory::Prepared::make(IsotopeTable table)
{
    return std::make_shared<Prepared>(std::make_shared<Isotopes>(std::move(table)));
}

void ChemicalFactory::Prepared::writeIsotopes(const IsotopeTable& table, ChemicalFactory* factory)
{
    for (const IsotopeTable::Isotope& isotope : table.isotopes()) {
        const qsizetype position = factory->isotopes.size();
        factory->isotopesBySymbol[isotope.symbol].append(position);
        factory->isotopesByAtomicNumber[isotope.atomicNumber].append(position);
        factory->isotopesByName[isotope.name].append(position);
        factory->isotopes.append({isotope.atomicNumber, isotope.extraNeutrons, isotope.name,
                                  isotope.symbol, isotope.mass, isotope.abundance});
    }
}

void ChemicalFactory::Prepared::fillBuildingBlocks(ChemicalFactory* factory)
{
    // What a nucleotide does not name has no code, which tells it from what is written.
    const auto unwritten = [factory](const StandardBlock& block) {
        return NamedMolecule(factory->constructMolecule(block.formula), block.name, QString());
    };
    for (const BuildingBlockType type :
         {SugarBlock, AminoAcidBlock, NucleobaseBlock, RiboseBlock, PhosphateBlock,
          FivePrimeTerminalBlock, ThreePrimeTerminalBlock}) {
        if (type == RiboseBlock)
            factory->defaultRibose = unwritten(standardRibose());
        if (type == PhosphateBlock)
            factory->defaultPhosphate = unwritten(standardPhosphate());
        QMap<QString, NamedMolecule> blocks;
        for (const StandardBlock& block : standardBlocks(type)) {
            const Molecule molecule = factory->constructMolecule(block.formula);
            blocks.insert(block.key, NamedMolecule(molecule, block.name, block.code));
        }
        factory->buildingBlocks.insert(type, blocks);
    }
}

void ChemicalFactory::Prepared::fillConstants(ChemicalFactory* factory)
{
    factory->water = factory->constructMolecule(u"H2O1"_s);
    factory->waterPair = factory->constructMolecule(u"H4O2"_s);
    factory->hydroxyl = factory->constructMolecule(u"O1H1"_s);
    factory->oxygen = factory->constructMolecule(u"O1"_s);
    factory->hydrogen = factory->constructMolecule(u"H1"_s);
    factory->hydrogenPair = factory->constructMolecule(u"H2"_s);
    factory->amine = factory->constructMolecule(u"N1H2"_s);
    factory->ammonia = factory->constructMolecule(u"N1H3"_s);
    factory->formyl = factory->constructMolecule(u"C1O1H1"_s);
    factory->electron = factory->constructMolecule(u"E"_s);
    factory->proton = factory->hydrogen - factory->electron;
}

bool ChemicalFactory::Prepared::ownsDictionary(const ChemicalFactory& factory,
                                               BuildingBlockType type)
{
    const auto dictionary = factory.buildingBlocks.constFind(type);
    return factory.buildingBlocks.isDetached() &&
           (dictionary == factory.buildingBlocks.cend() || dictionary->isDetached());
}

void ChemicalFactory::Prepared::insertBlock(BuildingBlockType type, const NamedMolecule& block,
                                            ChemicalFactory* factory)
{
    // Made first, as it may fail.
    std::shared_ptr<const Prepared> withoutReaders;
    if (factory->m_prepared)
        withoutReaders = std::make_shared<Prepared>(factory->m_prepared->isotopes);
    const auto dictionary = factory->buildingBlocks.find(type);
    if (dictionary == factory->buildingBlocks.end())
        factory->buildingBlocks.insert(type, {{block.code, block}});
    else
        dictionary->insert(block.code, block);
    factory->m_prepared = std::move(withoutReaders);
}

/// The small groups for one thread.
ChainGroups ChemicalFactory::Prepared::ownGroups(const ChemicalFactory& factory)
{
    return {.hydrogen = unshared(factory.hydrogen),
            .hydrogenPair = unshared(factory.hydrogenPair),
            .oxygen = unshared(factory.oxygen),
            .hydroxyl = unshared(factory.hydroxyl),
            .amine = unshared(factory.amine),
            .ammonia = unshared(factory.ammonia),
            .formyl = unshared(factory.formyl)};
}

std::shared_ptr<const PeptideReader>
ChemicalFactory::Prepared::peptideReader(const ChemicalFactory& factory)
{
    const auto make = [&factory] {
        return PeptideReader(unshared(factory.buildingBlocks.value(AminoAcidBlock)),
                             ownGroups(factory));
    };
    return lent(factory.m_prepared ? &factory.m_prepared->peptideReaders : nullptr, make);
}

OligoBlocks ChemicalFactory::Prepared::oligoBlocks(const ChemicalFactory& factory)
{
    const auto& blocks = factory.buildingBlocks;
    return {.fivePrimeTerminals = blocks.value(FivePrimeTerminalBlock),
            .riboses = blocks.value(RiboseBlock),
            .nucleobases = blocks.value(NucleobaseBlock),
            .phosphates = blocks.value(PhosphateBlock),
            .threePrimeTerminals = blocks.value(ThreePrimeTerminalBlock),
            .defaultRibose = factory.defaultRibose,
            .defaultPhosphate = factory.defaultPhosphate};
}

std::shared_ptr<const OligoReader>
ChemicalFactory::Prepared::oligoReader(const ChemicalFactory& factory)
{
    const auto make = [&factory] {
        return OligoReader(own(oligoBlocks(factory)), ownGroups(factory));
    };
    return lent(factory.m_prepared ? &factory.m_prepared->oligoReaders : nullptr, make);
}

std::shared_ptr<const GlycanReader>
ChemicalFactory::Prepared::glycanReader(const ChemicalFactory& factory)
{
    const auto make = [&factory] {
        return GlycanReader(unshared(factory.buildingBlocks.value(SugarBlock)));
    };
    return lent(factory.m_prepared ? &factory.m_prepared->glycanReaders : nullptr, make);
}

double ChemicalFactory::Prepared::averageToMonoMassRatio(const ChemicalFactory& factory,
                                                         const ChemicalFormula& formula)
{
    return factory.m_prepared
               ? chem::averageToMonoMassRatio(formula, factory.m_prepared->isotopes->masses)
               : 0.0;
}

} // namespace chem
