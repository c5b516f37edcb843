#pragma once

/// \file
/// What the steps throw, word for word: programs compare it.

namespace stepMessages {

inline constexpr const char* noChain = "Attemt to put modification on non-existing chain";
inline constexpr const char* noResidue = "Attemt to put modification on non-existing residue";
inline constexpr const char* noChainToTakeFrom =
    "Attemt to remove modification from non-existing chain";
inline constexpr const char* noResidueToTakeFrom =
    "Attemt to remove modification from non-existing residue";
inline constexpr const char* notFound = "Could not remove specified modification";

inline constexpr const char* all[] = {noChain, noResidue, noChainToTakeFrom, noResidueToTakeFrom,
                                      notFound};

} // namespace stepMessages
