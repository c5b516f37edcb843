#pragma once

#include "AtomMasses.h"
#include "Composition.h"
#include "Parsed.h"
#include "Tolerance.h"
#include <zel_ion_model/IonModelExport.h>

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <utility>
#include <vector>

namespace ions {

/// \addtogroup ion_tables
/// @{

/// Where the name of a modification comes from.
enum class Vocabulary {
    Unimod, ///< Unimod, release of 2024-08-12.
    Xlmod,  ///< The XLMOD ontology of cross-linkers.
    Custom  ///< Added by a caller.
};

/// Where a modification may sit in a chain.
enum class ChainPosition { Anywhere, AnyNTerm, AnyCTerm, ProteinNTerm, ProteinCTerm };

/// A place that a vocabulary allows. Nothing in this library forbids others.
struct ModificationSite
{
    char16_t residue = 0;                             ///< A letter; 0 for an end itself.
    ChainPosition position = ChainPosition::Anywhere; ///< Where in the chain.
    QString classification; ///< The vocabulary's word, such as "Post-translational".
};

/// What a modified residue loses in fragmentation.
struct ModificationLoss
{
    char16_t residue = 0;    ///< The residue that bears the modification; 0 for an end.
    Composition composition; ///< What goes away as a neutral molecule.
};

/// An ion that a label gives in fragmentation, whatever it sits on.
struct LabelIon
{
    QString name;            ///< As labels of ions have it: "TMT127N".
    Composition composition; ///< Of the ion, which lacks one electron.
};

/// A modification of a vocabulary: what it adds to a residue or an end.
struct ModificationEntry
{
    Vocabulary vocabulary = Vocabulary::Custom; ///< Whose it is.
    int accession = 0;                          ///< Its number there; 0 if it has none.
    QString name;                               ///< Its name, as the vocabulary spells it.
    Composition composition;                    ///< What it adds; negative counts are taken away.
    Masses masses;                              ///< What it adds in daltons, see the class.
    std::vector<ModificationSite> sites;        ///< Places that the vocabulary allows.
    std::vector<ModificationLoss> losses;       ///< Losses that the vocabulary knows.
    std::vector<LabelIon> reporters = {};       ///< Reporter ions, lightest first.
};

/// Modifications by name, accession and mass: Unimod and XLMOD as they come with the library, and
/// whatever a caller adds.
///
/// \code
/// const ModificationTable table = ModificationTable::standard(AtomMasses());
/// table.byName(u"phospho")->masses.monoisotopic;        // 79.966331 Da
/// table.byAccession(Vocabulary::Unimod, 35)->name;      // "Oxidation"
/// \endcode
///
/// Nothing weighs the composition of an entry that a caller adds: its masses are the caller's to
/// fill, by AtomMasses::weigh() with the table of the molecules that it will modify, or as they
/// were measured where no composition is known.
///
/// A value. Making the standard table reads some 1,600 entries and takes milliseconds: make it once
/// and pass it on. Entries stay where they are until the table is changed or goes away. Every const
/// function may be called from any number of threads.
class ZEL_ION_MODEL_EXPORT ModificationTable
{
public:
    /// A table without entries.
    ModificationTable() = default;

    /// Unimod's 1,543 modifications and 60 cross-linkers of XLMOD, with masses by `atoms`: those of
    /// the residues that they are used with.
    static ModificationTable standard(const AtomMasses& atoms);

    /// Adds an entry. Gives false and changes nothing if its name is empty, if its vocabulary has
    /// the name, whose case does not count, or the accession already, or if a mass is no finite
    /// number, or is 0 though the composition adds or takes atoms. One that only exchanges isotopes
    /// may weigh 0, as it does where the molecule is labelled throughout.
    bool add(ModificationEntry entry);

    /// The entries in the order in which they were added.
    const std::vector<ModificationEntry>& entries() const { return m_entries; }

    /// The entry with this name, whose case does not count: Unimod's, else XLMOD's, else a
    /// caller's. Null if there is none.
    const ModificationEntry* byName(QStringView name) const;
    /// The entry of one vocabulary with this name; null if there is none.
    const ModificationEntry* byName(Vocabulary vocabulary, QStringView name) const;
    /// The entry of one vocabulary with this number; null if there is none.
    const ModificationEntry* byAccession(Vocabulary vocabulary, int accession) const;

    /// All entries whose monoisotopic mass lies around `mass`, nearest first, then in the order in
    /// which they were added. None for a mass that is no finite number.
    std::vector<const ModificationEntry*> byMass(double mass, const Tolerance& tolerance) const;

    /// Names that are spelled much like `name`, nearest first: for messages. At most `count`, none
    /// if that is below 1.
    QStringList nearestNames(QStringView name, qsizetype count = 3) const;

private:
    std::vector<ModificationEntry> m_entries;
    QHash<std::pair<int, QString>, qsizetype> m_byName; ///< By vocabulary and folded name.
    QHash<std::pair<int, int>, qsizetype> m_byAccession;
    std::vector<std::pair<double, qsizetype>> m_byMass; ///< By monoisotopic mass.
};

/// @}

} // namespace ions
