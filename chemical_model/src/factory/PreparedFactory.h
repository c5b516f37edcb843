#pragma once

#include "ChemicalFactory.h"
#include "isotopes/ElementMasses.h"
#include "isotopes/IsotopeTable.h"
#include "sequences/GlycanReader.h"
#include "sequences/OligoReader.h"
#include "sequences/PeptideReader.h"
#include "support/PerThread.h"

#include <memory>
#include <utility>

namespace chem {

/// What follows from a factory's isotopes and dictionaries, and what fills and changes them. Copies
/// of the factory share it until one of them is changed.
///
/// The functions that work on a factory are static members of this nested type because only these
/// reach its protected members without one more declaration in the public header.
struct ChemicalFactory::Prepared
{
    /// What follows from the isotopes alone.
    struct Isotopes
    {
        explicit Isotopes(IsotopeTable isotopeTable)
            : table(std::move(isotopeTable))
            , masses(table)
        {
        }

        IsotopeTable table;
        ElementMasses masses;
    };

    explicit Prepared(std::shared_ptr<const Isotopes> sharedIsotopes)
        : isotopes(std::move(sharedIsotopes))
    {
    }

    std::shared_ptr<const Isotopes> isotopes;
    PerThread<PeptideReader> peptideReaders;
    PerThread<OligoReader> oligoReaders;
    PerThread<GlycanReader> glycanReaders;

    static std::shared_ptr<const Prepared> make(IsotopeTable table);

    /// Writes the tables that derived classes read.
    static void writeIsotopes(const IsotopeTable& table, ChemicalFactory* factory);
    static void fillBuildingBlocks(ChemicalFactory* factory);
    static void fillConstants(ChemicalFactory* factory);

    /// Whether no copy of the factory shares the dictionary of `type`, so that it can be changed in
    /// place.
    static bool ownsDictionary(const ChemicalFactory& factory, BuildingBlockType type);

    /// Puts a block under its code, whole or not at all. A dictionary that is missing comes with
    /// its first entry. The readers are made anew when they are next asked for.
    static void insertBlock(BuildingBlockType type, const NamedMolecule& block,
                            ChemicalFactory* factory);

    /// What oligonucleotide text is made from at the moment.
    static OligoBlocks oligoBlocks(const ChemicalFactory& factory);

    /// The reader of the calling thread, lent without counting references. A factory that was moved
    /// from has nowhere to keep one: it is made for one call, from what the move left.
    static std::shared_ptr<const PeptideReader> peptideReader(const ChemicalFactory& factory);
    static std::shared_ptr<const OligoReader> oligoReader(const ChemicalFactory& factory);
    static std::shared_ptr<const GlycanReader> glycanReader(const ChemicalFactory& factory);

    /// As chem::averageToMonoMassRatio(); 0.0 in a factory that was moved from.
    static double averageToMonoMassRatio(const ChemicalFactory& factory,
                                         const ChemicalFormula& formula);

private:
    static ChainGroups ownGroups(const ChemicalFactory& factory);
};

} // namespace chem
