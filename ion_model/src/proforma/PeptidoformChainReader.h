#pragma once

#include "ProForma.h"
#include "support/TextCursor.h"

#include <optional>
#include <vector>

namespace ions {

/// Steps over a name in parentheses behind as many ">" as there are marks: `(>name)`.
std::optional<Error> takeChainName(TextCursor* cursor, int marks, QString* name);

/// Whether such a name comes next.
bool atChainName(const TextCursor& cursor, int marks);

/// Reads one chain, step by step from the left, up to what belongs to no chain.
class PeptidoformChainReader
{
public:
    /// Reads at `cursor` into `chain`, which holds nothing yet.
    PeptidoformChainReader(TextCursor* cursor, PeptidoformChain* chain)
        : m_cursor(*cursor)
        , m_chain(*chain)
    {
    }

    /// Reads the chain; the cursor stands behind it, or somewhere in it where this gives a refusal.
    std::optional<Error> read();

private:
    using Failure = std::optional<Error>;

    /// A modification in front of a chain, before it is clear what it is.
    struct Leading
    {
        Modification modification;
        std::optional<int> count; ///< Behind "^".
    };

    Failure readLeading();
    Failure takeLeading(std::vector<Leading>* leading);
    Failure placeUnlocalised(std::vector<Leading> leading);
    Failure placeLeftEnd(std::vector<Leading> leading);
    Failure readLabile();
    Failure readSequence();
    Failure readResidue(bool isNewRun);
    Failure readRange();
    Failure readRangeResidues();
    Failure readRangeModifications(ResidueRange* range);
    Failure readRightEnd();

    TextCursor& m_cursor;
    PeptidoformChain& m_chain;
};

} // namespace ions
