#pragma once

#include <cstddef>

/// \file
/// An allocator in place of the system's, which counts what is alive and can be told to run out of
/// memory. Linux with glibc only.

namespace faults {

/// What happens behind the allocation that fails.
enum class Shortage {
    Once,   ///< The others succeed.
    Lasting ///< All others fail too, until the shortage ends.
};

/// While it lives, memory runs out at the n-th allocation that this thread makes.
class OutOfMemory
{
public:
    OutOfMemory(std::size_t n, Shortage shortage);
    ~OutOfMemory();
    OutOfMemory(const OutOfMemory&) = delete;
    OutOfMemory& operator=(const OutOfMemory&) = delete;
};

/// Tells whether the last shortage has refused an allocation.
bool hasRunOut();

/// The calls that led to the first refused allocation, innermost first.
struct CallStack
{
    static constexpr int mostFrames = 48;
    void* frames[mostFrames] = {};
    int size = 0;

    /// Records the calls that led here. Allocates nothing, but for the first time in a process.
    void record();
};
const CallStack& refusedCalls();

/// How memory was asked for.
enum class Way { Malloc, New, NewOfArray };

/// The request that was refused first.
struct Request
{
    Way way = Way::Malloc;
    std::size_t size = 0;
};
Request refusedRequest();

/// Calls `action` when a request is refused for the first time, before the asker sees it. The
/// action may end the process.
using RefusalAction = void (*)(Request request);
void onRefusal(RefusalAction action);

/// What is allocated at the moment, by all threads.
struct Usage
{
    std::size_t blocks = 0;
    std::size_t bytes = 0;
};
Usage usage();

/// The most bytes that were alive at once since beginPeak().
std::size_t peakBytes();
void beginPeak();

} // namespace faults
