#pragma once

#include <barrier>
#include <concepts>
#include <thread>
#include <vector>

/// \file
/// Work on many threads at once, for the tests that look for races.

#if defined(__SANITIZE_THREAD__)
#define RACES_ARE_DETECTED 1
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define RACES_ARE_DETECTED 1
#endif
#endif

namespace manyThreads {

/// Whether the thread sanitizer watches: only then does a race fail a test for certain.
#ifdef RACES_ARE_DETECTED
constexpr bool racesAreDetected = true;
#else
constexpr bool racesAreDetected = false;
#endif

/// How often a test repeats itself on fresh objects. What is written on first use, as a shared text
/// that detaches from its copies, is written once in each object's life: later rounds on the same
/// object see nothing, so it takes many short lives and not a long one.
constexpr int rounds = racesAreDetected ? 100 : 10;

/// The same for tests whose objects take long to make.
constexpr int longRounds = racesAreDetected ? 20 : 3;

constexpr int threadCount = 4;

/// Calls `work` with the number of its thread, or without if it takes none.
template <typename Work>
void callAs([[maybe_unused]] int number, const Work& work)
{
    if constexpr (std::invocable<Work, int>)
        work(number);
    else
        work();
}

/// Runs `work` on this many threads that start at the same moment. Work that takes a number gets
/// that of its thread, from 0.
template <typename Work>
void atOnce(const Work& work, int count = threadCount)
{
    std::barrier start(count);
    std::vector<std::jthread> threads; // joined before the barrier goes
    threads.reserve(static_cast<std::size_t>(count));
    for (int number = 0; number < count; ++number) {
        threads.emplace_back([&start, &work, number] {
            start.arrive_and_wait();
            callAs(number, work);
        });
    }
}

/// Runs `work` on many threads at once, again and again, each time on what `make` makes anew.
template <typename Make, typename Work>
void atOnceOnFresh(int times, const Make& make, const Work& work)
{
    for (int round = 0; round < times; ++round) {
        const auto object = make();
        atOnce([&object, &work] { work(object); });
    }
}

} // namespace manyThreads
