#include "support/PerThread.h"

namespace chem {

std::size_t numberOfThisThread()
{
    static std::atomic<std::size_t> threads = 0;
    thread_local const std::size_t number = threads++;
    return number;
}

} // namespace chem
