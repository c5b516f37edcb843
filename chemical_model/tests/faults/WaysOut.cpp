#include "WaysOut.h"

#include <dlfcn.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace faults {

namespace {

/// Who asked for the memory: the caller of this program's allocator. Under the address sanitizer
/// the latest call is one of its own.
struct Asker
{
    std::string_view library;
    std::string_view function;
};

Asker askerOf(const CallStack& calls)
{
    static const char inThisProgram = 0;
    Dl_info program{};
    dladdr(&inThisProgram, &program);
    bool isBehindAllocator = false;
    for (int i = 0; i < calls.size; ++i) {
        Dl_info info{};
        if (!dladdr(calls.frames[i], &info))
            continue;
        if (info.dli_fbase == program.dli_fbase)
            isBehindAllocator = true;
        else if (isBehindAllocator)
            return {info.dli_fname, info.dli_sname ? info.dli_sname : ""};
    }
    return {};
}

/// Sizes of the objects that QSharedPointer::create() makes in the test.
std::vector<std::size_t> sharedSizes;

void stopAtShared(Request request)
{
    const bool isShared =
        std::find(sharedSizes.cbegin(), sharedSizes.cend(), request.size) != sharedSizes.cend();
    if (request.way == Way::New && isShared)
        stopChild();
}

bool holds(std::string_view text, std::string_view part)
{
    return text.find(part) != std::string_view::npos;
}

/// Tells whether one of the calls is in a function of this name.
bool passes(const CallStack& calls, std::string_view function)
{
    return std::any_of(calls.frames, calls.frames + calls.size, [function](void* frame) {
        Dl_info info{};
        return dladdr(frame, &info) && info.dli_sname && holds(info.dli_sname, function);
    });
}

} // namespace

void detail::stopAtSizes(std::initializer_list<std::size_t> sizes)
{
    sharedSizes = sizes;
    onRefusal(stopAtShared);
}

std::string knownWayOut(const Report& report)
{
    const Asker asker = askerOf(report.refused);
    // Qt 6.4's QList does not look whether it got memory when it is made from a list in braces or
    // from a number of equal entries, when it is copied before a change, and when room is reserved
    // in a list with entries. It then writes to the null pointer, or an assertion of Qt stops it.
    const bool isOfList = holds(asker.function, "QArrayData8allocate");
    if (isOfList && report.death == Report::Death::Signal)
        return "QList writes to null";
    // The message of that assertion needs memory too.
    if (isOfList && report.death == Report::Death::Terminate && passes(report.dying, "qt_assert"))
        return "QList writes to null";
    // Where QHash makes room for an entry it is noexcept. Nothing else here allocates arrays.
    if (report.request.way == Way::NewOfArray && report.death == Report::Death::Terminate)
        return "QHash terminates";
    // The first match in a thread registers the end of a stack that Qt keeps for each thread.
    if (passes(report.refused, "__cxa_thread_atexit_impl"))
        return "glibc aborts";
    if (report.death == Report::Death::Stopped)
        return "QSharedPointer::create() is undefined";
    return {};
}

bool isKnownToMislead(const CallStack& refused)
{
    // QRegularExpression takes PCRE2's failure to get memory for a text that does not match.
    return holds(askerOf(refused).library, "libpcre2-16.so");
}

bool isKnownToLeak(const CallStack& refused)
{
    // QRegularExpression holds the result of a match by a plain pointer while the result fills.
    return holds(askerOf(refused).library, "libIsoSpec++.so") ||
           passes(refused, "QRegularExpression");
}

} // namespace faults
