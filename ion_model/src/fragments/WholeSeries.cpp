#include "fragments/WholeSeries.h"

#include <algorithm>
#include <array>

namespace ions {

namespace {

/// The sums that kinds of ions start from, for ions of neighbouring numbers at a time.
class EndSums
{
public:
    static constexpr std::size_t blockSize = 4;
    template <std::size_t size>
    using Block = std::array<std::array<double, size>, 5>; // by IonSums

    EndSums(const BackboneChain& chain, const double* sums, double rightTotal)
        : m_chain(chain)
        , m_sums(sums)
        , m_rightTotal(rightTotal)
    {
    }

    /// Those of the ions with so many units more than `shorter`.
    template <std::size_t size>
    void fill(std::size_t shorter, Block<size>* block) const
    {
        auto& [left, withLinkage, withoutBase, right, rightWithLinkage] = *block;
        const std::size_t last = m_chain.units.size() - 1 - shorter;
        for (std::size_t i = 0; i < size; ++i) {
            left[i] = m_sums[shorter + 1 + i];
            right[i] = m_rightTotal - m_sums[last - i];
        }
        if (m_chain.linkages.empty())
            return;
        for (std::size_t i = 0; i < size; ++i) {
            withLinkage[i] = left[i] + m_chain.linkages[shorter + i].monoisotopic;
            withoutBase[i] = left[i] - m_chain.bases[shorter + i].monoisotopic;
            rightWithLinkage[i] = right[i];
            right[i] -= m_chain.linkages[last - i - 1].monoisotopic;
        }
    }

private:
    const BackboneChain& m_chain;
    const double* m_sums;
    double m_rightTotal;
};

/// Writes runs of `count` ions each behind each other. The last block overlaps the one before it:
/// one loop for all kinds, whose end a processor foresees better than that of one a run.
template <std::size_t size>
void writeBlocks(const EndSums& sums, const std::vector<EndKind>& kinds, std::size_t count,
                 double* mz)
{
    EndSums::Block<size> block;
    for (std::size_t first = 0; first < count; first += size) {
        const std::size_t start = std::min(first, count - size);
        sums.fill<size>(start, &block);
        double* ions = mz + start;
        for (const EndKind& kind : kinds) {
            const auto& from = block[std::size_t(kind.sums)];
            for (std::size_t i = 0; i < size; ++i)
                ions[i] = (from[i] + kind.added) * kind.scale;
            ions += count;
        }
    }
}

} // namespace

void writeWholeSeries(const std::vector<EndKind>& kinds, const BackboneChain& chain,
                      const double* sums, double rightTotal, double* mz)
{
    const EndSums ends(chain, sums, rightTotal);
    const std::size_t count = chain.units.size() - 1;
    if (count >= EndSums::blockSize)
        writeBlocks<EndSums::blockSize>(ends, kinds, count, mz);
    else
        writeBlocks<1>(ends, kinds, count, mz);
}

} // namespace ions
