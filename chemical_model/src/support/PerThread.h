#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>

namespace chem {

/// A number for the calling thread, counted from 0 in the order of first calls.
std::size_t numberOfThisThread();

/// A value of which each thread has a copy of its own, made when the thread first asks for it.
///
/// What a thread reads out of the building blocks counts references on their formulas. Threads that
/// count on one formula slow each other down below the speed of a single one, so what one thread
/// hands out must share nothing with what another hands out.
///
/// The number of copies is bounded, and a thread uses the one at its number modulo that bound. So
/// two threads can use one copy at the same time, where there are many threads or many have ended:
/// that costs time and nothing else. Numbers are not given back when a thread ends, as that takes
/// an object of the thread, and glibc ends the process if it gets no memory to register one. A copy
/// lives as long as this object.
template <typename T>
class PerThread
{
public:
    PerThread() = default;
    PerThread(const PerThread&) = delete;
    PerThread& operator=(const PerThread&) = delete;

    ~PerThread()
    {
        for (const auto& copy : m_copies)
            delete copy.load(std::memory_order_relaxed);
    }

    /// The copy of the calling thread; `make` gives it at the first call and may throw.
    template <typename Make>
    const T& get(const Make& make) const
    {
        std::atomic<const T*>& copy = m_copies[numberOfThisThread() % mostCopies];
        if (const T* made = copy.load(std::memory_order_acquire))
            return *made;
        std::unique_ptr<const T> made(new T(make()));
        const T* other = nullptr;
        const bool isFirst = copy.compare_exchange_strong(
            other, made.get(), std::memory_order_acq_rel, std::memory_order_acquire);
        return isFirst ? *made.release() : *other;
    }

private:
    static constexpr std::size_t mostCopies = 32;
    mutable std::array<std::atomic<const T*>, mostCopies> m_copies{};
};

} // namespace chem
