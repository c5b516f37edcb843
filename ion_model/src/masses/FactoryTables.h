#pragma once

#include <zel_chemical_model/ChemicalFactory.h>

namespace ions {

/// What a factory holds, for this library to read: its isotopes and its building blocks.
class FactoryTables : public chem::ChemicalFactory
{
public:
    using chem::ChemicalFactory::BuildingBlockType;
    using chem::ChemicalFactory::IsotopeRecord;

    explicit FactoryTables(const chem::ChemicalFactory& factory);

    const QList<IsotopeRecord>& isotopeRecords() const { return isotopes; }

    /// The entries of one kind by their codes.
    QMap<QString, chem::NamedMolecule> entries(BuildingBlockType type) const;

    /// The sugar of a nucleotide that names none.
    const chem::NamedMolecule& unnamedSugar() const { return defaultRibose; }
    /// The linkage of a nucleotide that names none.
    const chem::NamedMolecule& unnamedLinkage() const { return defaultPhosphate; }
    /// The 5' end of an oligonucleotide that marks none.
    const chem::Molecule& hydrogenAtom() const { return hydrogen; }
    /// The 3' end of an oligonucleotide that marks none.
    const chem::Molecule& hydroxylGroup() const { return hydroxyl; }
};

} // namespace ions
