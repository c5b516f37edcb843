#pragma once

#include "ChildProcess.h"

#include <QSharedPointer>

#include <cstddef>
#include <initializer_list>
#include <string>

/// \file
/// What Qt and IsoSpec++ are known to do with an allocation that fails, apart from throwing
/// `std::bad_alloc`. Each is told by who asked for the memory. Which of the library's lines made
/// Qt ask is not looked at: a list that could be made in a safer way passes for Qt's way out.

namespace faults {

namespace detail {

/// The size of the one block in which QSharedPointer::create() keeps an object and its counts.
template <typename Object>
constexpr std::size_t sizeWithCounts()
{
    struct Block
    {
        QtSharedPointer::ExternalRefCountData counts;
        alignas(Object) std::byte object[sizeof(Object)];
    };
    return sizeof(Block);
}

void stopAtSizes(std::initializer_list<std::size_t> sizes);

} // namespace detail

/// The name of the way out that the child took, if it is a known one; else empty.
std::string knownWayOut(const Report& report);

/// To be called first where a call makes shared pointers by QSharedPointer::create(). Without
/// memory, that destroys a pointer which it has not set yet (Qt 6.4), so
/// anything can happen: the child is stopped when an allocation of the size of such an object is
/// refused.
template <typename... Objects>
void stopAtSharedPointersTo()
{
    detail::stopAtSizes({detail::sizeWithCounts<Objects>()...});
}

/// Tells whether a refused allocation is known to change a result without an exception.
bool isKnownToMislead(const CallStack& refused);

/// Tells whether a refused allocation is known to leave blocks behind.
bool isKnownToLeak(const CallStack& refused);

} // namespace faults
