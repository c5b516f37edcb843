#pragma once

#include "MoleculeEntity.h"
#include <zel_chemical_model/ChemicalModelExport.h>

#include <QList>
#include <QString>

#include <limits>

namespace chem {

class ChemicalFactory;

/// \addtogroup steps
/// @{

/// How far to trim the chains of a molecule, or at which residues to cut them.
class ZEL_CHEMICAL_MODEL_EXPORT ClipOptions
{
public:
    /// The ways to clip. The numbers are stable.
    enum ClipType {
        NoClipping = 0,    ///< The molecule itself.
        ClipAll = 1,       ///< Every trim of one end.
        ClipByResidue = 2, ///< Cuts by residue rules.
        ClipByDepth = 3,   ///< Trims of one or both ends up to given depths.
    };

    /// A residue rule: cut where `before` stands just before and `after` just behind.
    ///
    /// `before` is a regular expression over the one-letter codes of the chain and `after` is plain
    /// text behind its match. If `before` is empty, `after` is the regular expression and the cut
    /// lies before its match. A rule of two empty texts is skipped, and an invalid expression never
    /// matches.
    struct ResidueBeforeAfter
    {
        QString before; ///< What must precede the cut.
        QString after;  ///< What must follow the cut.
    };

    /// Options that clip nothing.
    ClipOptions() = default;

    /// Options that give the molecule itself.
    static ClipOptions createNoClipping();

    /// Options that trim one end of a chain at a time, down to one residue.
    static ClipOptions createClipAll();

    /// Options that trim up to `startSingle` residues off the start or up to `endSingle` off the
    /// end, and then up to `startDouble` and `endDouble` off both. Depths of 0 and below add
    /// nothing; at least one residue stays.
    static ClipOptions createClipByDepth(int startSingle, int endSingle, int startDouble,
                                         int endDouble);

    /// Options that cut by the rules made of the two lists, index by index, up to the end of the
    /// shorter.
    static ClipOptions createClipByResidue(const QList<QString>& before,
                                           const QList<QString>& after);

    ClipType clipType() const { return m_clipType; } ///< The way to clip.

    /// The residue rules; empty unless made by createClipByResidue().
    QList<ResidueBeforeAfter> residueBeforeAfterVector() const { return m_residueBeforeAfter; }

    /// \name Depths
    /// Numbers of residues, as given to createClipByDepth(); 2147483647 stands for any depth in the
    /// first two, which all other options have.
    /// @{

    /// Most residues off the start where the end stays.
    int depthFromStartSingle() const { return m_depthFromStartSingle; }
    /// Most residues off the end where the start stays.
    int depthFromEndSingle() const { return m_depthFromEndSingle; }
    /// Most residues off the start where the end is trimmed too.
    int depthFromStartDouble() const { return m_depthFromStartDouble; }
    /// Most residues off the end where the start is trimmed too.
    int depthFromEndDouble() const { return m_depthFromEndDouble; }

    /// @}

private:
    ClipType m_clipType = NoClipping;
    QList<ResidueBeforeAfter> m_residueBeforeAfter;
    int m_depthFromStartSingle = std::numeric_limits<int>::max();
    int m_depthFromEndSingle = std::numeric_limits<int>::max();
    int m_depthFromStartDouble = 0;
    int m_depthFromEndDouble = 0;
};

/// Lists the clips of a molecule: for each chain the whole chain without its terminals and its
/// trims or cuts, each as a molecule of one chain named "fragment" with a history entry that points
/// back. They come chain by chain; by depth, trims of both ends follow behind those of one end of
/// all chains.
///
/// Clips are neither sorted nor made unique, and no terminal groups are added. The first range of a
/// chain that is cut by residue rules holds the chain's first terminal. A chain with a residue
/// whose code is not one character long, such as an unknown letter, gives only that range. The
/// factory is not used and may be null. Throws nothing. Each clip costs its residues, and all
/// links, modifications and history entries of the molecule; createClipAll() gives one clip fewer
/// than twice the residues of a chain. Any number of threads may clip one molecule at once.
///
/// Clips of a residue rule are both sides of each cut and reach to an end of the chain, so that all
/// of them together grow with the square of the chain: 35,000 residues take seconds and 2 GB. To
/// digest a sequence, cut its text and make the peptides from the pieces.
///
/// \code
/// // Behind lysine and arginine, but not before proline.
/// const ClipOptions trypsin = ClipOptions::createClipByResidue({u"[KR](?!P)"_s}, {QString()});
/// const QList<MoleculeEntity> clips = generateClips(peptide, nullptr, trypsin);
/// \endcode
ZEL_CHEMICAL_MODEL_EXPORT QList<MoleculeEntity> generateClips(const MoleculeEntity& molecule,
                                                              const ChemicalFactory* factory,
                                                              const ClipOptions& options);

/// @}

} // namespace chem

Q_DECLARE_TYPEINFO(chem::ClipOptions::ResidueBeforeAfter, Q_RELOCATABLE_TYPE);
