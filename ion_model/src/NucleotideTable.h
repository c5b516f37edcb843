#pragma once

#include "Parsed.h"
#include "ResidueTable.h"
#include <zel_chemical_model/ChemicalFactory.h>
#include <zel_ion_model/IonModelExport.h>

#include <QStringView>

#include <memory>

namespace ions {

/// \addtogroup ion_tables
/// @{

/// What the parts of oligonucleotide text weigh, read once from a factory's dictionaries and laid
/// out so that text is read and summed in one pass.
///
/// Text is that of the first library: nucleotides of a sugar, a base and linkages, all but the base
/// optional, between optional marks of the ends. Numbers in place of bases, and dictionaries whose
/// keys are more than single characters, are read by the factory's own reader, at its speed.
///
/// **A letter without a sugar is DNA.** What Ribonuclease products and RnaTable call `AUCG` is here
/// `rArUrCrG`, with a `}` behind it for a 3'-phosphate; `AUCG` is DNA with uracil and weighs 16 Da
/// less for each nucleotide.
///
/// \code
/// const NucleotideTable nucleotides;                       // natural isotopes
/// nucleotides.oligonucleotide(u"rA*rC*rG")->monoisotopic;  // 949.13979 Da
/// nucleotides.oligonucleotide(u"rA*rX").error().position;  // 4
/// nucleotides.oligonucleotide(u"AUCACCUUUG")->monoisotopic;             // 2920.473 Da: DNA
/// nucleotides.oligonucleotide(u"rArUrCrArCrCrUrUrUrG}")->monoisotopic;  // 3160.388 Da: RNA
/// \endcode
///
/// Copies share what was read. Every const function may be called from any number of threads.
class ZEL_ION_MODEL_EXPORT NucleotideTable
{
public:
    /// Reads the default factory: natural isotopes, standard building blocks.
    NucleotideTable();

    /// Reads `factory`, which is not needed afterwards.
    explicit NucleotideTable(const chem::ChemicalFactory& factory);

    /// The masses of an oligonucleotide with its ends. Refused is what the factory refuses, at the
    /// first character that no text goes on with, or at the end of a text that breaks off. Blanks
    /// are refused as well.
    Parsed<Masses> oligonucleotide(QStringView text) const;

    /// What breaking a chain adds and takes.
    const BreakMasses& breaks() const;

private:
    friend class Backbone;
    struct Content;

    std::shared_ptr<const Content> m_content;
};

/// @}

} // namespace ions
