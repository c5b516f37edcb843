#include "readers/Spectrum.h"

#include <algorithm>
#include <numeric>

namespace tool {

void Peaks::sort()
{
    if (std::is_sorted(mz.begin(), mz.end()))
        return;
    std::vector<std::size_t> order(mz.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::stable_sort(order.begin(), order.end(),
                     [this](std::size_t left, std::size_t right) { return mz[left] < mz[right]; });
    Peaks sorted;
    for (const std::size_t place : order) {
        sorted.mz.push_back(mz[place]);
        sorted.intensities.push_back(intensities[place]);
    }
    *this = std::move(sorted);
}

} // namespace tool
