#include "RegisteredEnumeration.h"
#include <MoleculeType.h>

namespace {

using chem::ZEL_QEnumsMoleculeType::MoleculeType;

static_assert(std::is_same_v<chem::MoleculeType, MoleculeType>);

struct MoleculeTypeDescription
{
    using Type = MoleculeType;
    static const QMetaObject& metaObject()
    {
        return chem::ZEL_QEnumsMoleculeType::staticMetaObject;
    }
    static constexpr const char* name = "MoleculeType";
    static constexpr const char* space = "chem::ZEL_QEnumsMoleculeType";
    // Saved streams hold these numbers.
    static constexpr NamedValue<MoleculeType> values[] = {
        {MoleculeType::Peptide, 0, "Peptide"},
        {MoleculeType::Protein, 1, "Protein"},
        {MoleculeType::OligoNucleotide, 2, "OligoNucleotide"},
        {MoleculeType::Sugar, 3, "Sugar"},
        {MoleculeType::Link, 4, "Link"},
        {MoleculeType::AminoAcid, 5, "AminoAcid"},
        {MoleculeType::Nucleotide, 6, "Nucleotide"},
        {MoleculeType::Ribose, 7, "Ribose"},
        {MoleculeType::Nucleobase, 8, "Nucleobase"},
        {MoleculeType::Phosphate, 9, "Phosphate"},
        {MoleculeType::PostTransModification, 10, "PostTransModification"},
        {MoleculeType::FivePrimeTerminal, 11, "FivePrimeTerminal"},
        {MoleculeType::ThreePrimeTerminal, 12, "ThreePrimeTerminal"},
        {MoleculeType::NTerminal, 13, "NTerminal"},
        {MoleculeType::CTerminal, 14, "CTerminal"},
        {MoleculeType::MassValue, 15, "MassValue"},
        {MoleculeType::Averagine, 16, "Averagine"},
        {MoleculeType::Unknown, 17, "Unknown"},
    };
};

INSTANTIATE_TYPED_TEST_SUITE_P(MoleculeType, RegisteredEnumeration, MoleculeTypeDescription);

} // namespace
