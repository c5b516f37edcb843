#include "FailingAllocator.h"

#include <execinfo.h>
#include <malloc.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <limits>
#include <new>

// The program's own definitions take the place of those of the C library and of the address
// sanitizer, for itself and for every shared library that it loads. They hand on to the next ones
// by their second names: no look-up at run time, which would have to allocate itself.
#ifdef FAULTS_WITH_ADDRESS_SANITIZER
#define NEXT(function) __interceptor_##function
#else
#define NEXT(function) __libc_##function
#endif

extern "C" {
void* NEXT(malloc)(std::size_t size);
void* NEXT(calloc)(std::size_t count, std::size_t size);
void* NEXT(realloc)(void* block, std::size_t size);
void* NEXT(memalign)(std::size_t alignment, std::size_t size);
void NEXT(free)(void* block);

#ifdef FAULTS_WITH_ADDRESS_SANITIZER
int __sanitizer_get_ownership(const volatile void* block);
std::size_t __sanitizer_get_allocated_size(const volatile void* block);
#endif
}

#ifdef FAULTS_WITH_ADDRESS_SANITIZER
// IsoSpec++ 2.2.1 keeps what it has allocated in a constructor when a later allocation fails, and
// so does QRegularExpression of Qt 6.4 when it matches, partly what PCRE2 has allocated for it.
// What the dynamic linker keeps is no leak; the sanitizer tells it by who called malloc(), which is
// this program's own here.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions()
{
    return "leak:libIsoSpec++.so\nleak:QRegularExpression\nleak:libpcre2-16\nleak:ld-linux\n";
}
#endif

namespace faults {

namespace {

constexpr std::size_t never = std::numeric_limits<std::size_t>::max();

// Constant-initialised and part of the program itself, so that reading them allocates nothing.
thread_local constinit std::size_t remaining = never;
thread_local constinit bool isLasting = false;
thread_local constinit bool isRefusing = false;
thread_local constinit bool isRecording = false;
thread_local constinit CallStack callStack;
thread_local constinit Request request;
constinit RefusalAction refusalAction = nullptr;

constinit std::atomic<std::size_t> liveBlocks = 0;
constinit std::atomic<std::size_t> liveBytes = 0;
constinit std::atomic<std::size_t> mostBytes = 0;

/// The first refusal is recorded; all of them are told to the action.
void noteRefusal(Request refused)
{
    isRecording = true;
    if (!isRefusing) {
        isRefusing = true;
        request = refused;
        callStack.record();
    }
    if (refusalAction)
        refusalAction(refused);
    isRecording = false;
}

/// Tells whether this allocation is to fail.
bool refuses(Way way, std::size_t size)
{
    if (remaining == never || isRecording)
        return false;
    const bool isRefused = isRefusing ? isLasting : --remaining == 0;
    if (isRefused)
        noteRefusal({way, size});
    return isRefused;
}

std::size_t sizeOf(void* block)
{
#ifdef FAULTS_WITH_ADDRESS_SANITIZER
    // What the sanitizer asked for while it started is not its own.
    return __sanitizer_get_ownership(block) ? __sanitizer_get_allocated_size(block) : 0;
#else
    return malloc_usable_size(block);
#endif
}

void* counted(void* block)
{
    if (!block)
        return block;
    liveBlocks.fetch_add(1, std::memory_order_relaxed);
    const std::size_t size = sizeOf(block);
    const std::size_t bytes = liveBytes.fetch_add(size, std::memory_order_relaxed) + size;
    std::size_t most = mostBytes.load(std::memory_order_relaxed);
    while (bytes > most && !mostBytes.compare_exchange_weak(most, bytes, std::memory_order_relaxed))
        ;
    return block;
}

void discount(void* block)
{
    if (!block)
        return;
    liveBlocks.fetch_sub(1, std::memory_order_relaxed);
    liveBytes.fetch_sub(sizeOf(block), std::memory_order_relaxed);
}

void* refused()
{
    errno = ENOMEM;
    return nullptr;
}

void* allocate(std::size_t size, Way way)
{
    return refuses(way, size) ? refused() : counted(NEXT(malloc)(size));
}

void* allocateAligned(std::size_t alignment, std::size_t size, Way way)
{
    return refuses(way, size) ? refused() : counted(NEXT(memalign)(alignment, size));
}

void* reallocate(void* block, std::size_t size)
{
    if (refuses(Way::Malloc, size))
        return refused();
    if (!block)
        return counted(NEXT(malloc)(size));
    const std::size_t before = sizeOf(block);
    void* const moved = NEXT(realloc)(block, size);
    if (!moved && size > 0)
        return moved; // the old block lives on
    liveBlocks.fetch_sub(1, std::memory_order_relaxed);
    liveBytes.fetch_sub(before, std::memory_order_relaxed);
    return counted(moved);
}

void release(void* block)
{
    discount(block);
    NEXT(free)(block);
}

void* orThrow(void* block)
{
    if (!block)
        throw std::bad_alloc();
    return block;
}

/// One byte at least: `new` never gives null.
std::size_t atLeastOne(std::size_t size)
{
    return size > 0 ? size : 1;
}

} // namespace

OutOfMemory::OutOfMemory(std::size_t n, Shortage shortage)
{
    isRefusing = false;
    isLasting = shortage == Shortage::Lasting;
    callStack.size = 0;
    remaining = n;
}

OutOfMemory::~OutOfMemory()
{
    remaining = never;
}

bool hasRunOut()
{
    return isRefusing;
}

void CallStack::record()
{
    size = backtrace(frames, mostFrames);
}

const CallStack& refusedCalls()
{
    return callStack;
}

Request refusedRequest()
{
    return request;
}

void onRefusal(RefusalAction action)
{
    refusalAction = action;
}

Usage usage()
{
    return {liveBlocks.load(), liveBytes.load()};
}

std::size_t peakBytes()
{
    return mostBytes.load();
}

void beginPeak()
{
    mostBytes = liveBytes.load();
}

} // namespace faults

#define REPLACEMENT extern "C" __attribute__((visibility("default")))

REPLACEMENT void* malloc(std::size_t size)
{
    return faults::allocate(size, faults::Way::Malloc);
}

REPLACEMENT void* calloc(std::size_t count, std::size_t size)
{
    return faults::refuses(faults::Way::Malloc, count * size)
               ? faults::refused()
               : faults::counted(NEXT(calloc)(count, size));
}

REPLACEMENT void* realloc(void* block, std::size_t size)
{
    return faults::reallocate(block, size);
}

REPLACEMENT void* reallocarray(void* block, std::size_t count, std::size_t size)
{
    std::size_t bytes = 0;
    if (__builtin_mul_overflow(count, size, &bytes))
        return faults::refused();
    return faults::reallocate(block, bytes);
}

REPLACEMENT void* memalign(std::size_t alignment, std::size_t size)
{
    return faults::allocateAligned(alignment, size, faults::Way::Malloc);
}

REPLACEMENT void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    return faults::allocateAligned(alignment, size, faults::Way::Malloc);
}

REPLACEMENT int posix_memalign(void** block, std::size_t alignment, std::size_t size)
{
    void* const made = faults::allocateAligned(alignment, size, faults::Way::Malloc);
    if (!made)
        return ENOMEM;
    *block = made;
    return 0;
}

REPLACEMENT void free(void* block)
{
    faults::release(block);
}

#undef REPLACEMENT
#define REPLACEMENT __attribute__((visibility("default")))

// The sanitizer's `new` does not ask malloc, so `new` is replaced as well.

REPLACEMENT void* operator new(std::size_t size)
{
    return faults::orThrow(faults::allocate(faults::atLeastOne(size), faults::Way::New));
}

REPLACEMENT void* operator new[](std::size_t size)
{
    return faults::orThrow(faults::allocate(faults::atLeastOne(size), faults::Way::NewOfArray));
}

REPLACEMENT void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return faults::allocate(faults::atLeastOne(size), faults::Way::New);
}

REPLACEMENT void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return faults::allocate(faults::atLeastOne(size), faults::Way::NewOfArray);
}

REPLACEMENT void* operator new(std::size_t size, std::align_val_t alignment)
{
    return faults::orThrow(faults::allocateAligned(static_cast<std::size_t>(alignment),
                                                   faults::atLeastOne(size), faults::Way::New));
}

REPLACEMENT void* operator new[](std::size_t size, std::align_val_t alignment)
{
    return faults::orThrow(faults::allocateAligned(
        static_cast<std::size_t>(alignment), faults::atLeastOne(size), faults::Way::NewOfArray));
}

REPLACEMENT void* operator new(std::size_t size, std::align_val_t alignment,
                               const std::nothrow_t&) noexcept
{
    return faults::allocateAligned(static_cast<std::size_t>(alignment), faults::atLeastOne(size),
                                   faults::Way::New);
}

REPLACEMENT void* operator new[](std::size_t size, std::align_val_t alignment,
                                 const std::nothrow_t&) noexcept
{
    return faults::allocateAligned(static_cast<std::size_t>(alignment), faults::atLeastOne(size),
                                   faults::Way::NewOfArray);
}

REPLACEMENT void operator delete(void* block) noexcept
{
    faults::release(block);
}

REPLACEMENT void operator delete[](void* block) noexcept
{
    faults::release(block);
}

REPLACEMENT void operator delete(void* block, std::size_t) noexcept
{
    faults::release(block);
}

REPLACEMENT void operator delete[](void* block, std::size_t) noexcept
{
    faults::release(block);
}

REPLACEMENT void operator delete(void* block, const std::nothrow_t&) noexcept
{
    faults::release(block);
}

REPLACEMENT void operator delete[](void* block, const std::nothrow_t&) noexcept
{
    faults::release(block);
}

REPLACEMENT void operator delete(void* block, std::align_val_t) noexcept
{
    faults::release(block);
}

REPLACEMENT void operator delete[](void* block, std::align_val_t) noexcept
{
    faults::release(block);
}

REPLACEMENT void operator delete(void* block, std::size_t, std::align_val_t) noexcept
{
    faults::release(block);
}

REPLACEMENT void operator delete[](void* block, std::size_t, std::align_val_t) noexcept
{
    faults::release(block);
}
