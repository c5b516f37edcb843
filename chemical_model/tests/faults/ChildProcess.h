#pragma once

#include "FailingAllocator.h"

#include <array>
#include <functional>
#include <string>

namespace faults {

/// What a child process tells its parent, in memory that both share.
struct Report
{
    std::size_t point = 0; ///< The allocation that is being refused, counted from 1.
    std::size_t thrown = 0;
    std::size_t didWithout = 0;
    std::size_t misled = 0;
    std::size_t leaks = 0;

    enum class Death {
        None,
        Signal,
        Terminate, ///< An exception met a noexcept function.
        Sanitizer,
        Stopped ///< By the test, before what is undefined.
    };
    Death death = Death::None;
    int signal = 0;
    Request request;   ///< The refused request, if the child died of it.
    CallStack refused; ///< The calls to the refused allocation, if the child died of it.
    CallStack dying;   ///< The calls to where it died.
    std::array<char, 8192> complaint{};
};

/// A report that a child can write and its parent reads.
class SharedReport
{
public:
    SharedReport();
    ~SharedReport();
    SharedReport(const SharedReport&) = delete;
    SharedReport& operator=(const SharedReport&) = delete;

    Report* get() const { return m_report; }
    Report* operator->() const { return m_report; }
    Report& operator*() const { return *m_report; }

private:
    Report* m_report;
};

enum class ChildEnding {
    Good,
    Complained, ///< The report holds what is wrong.
    Crashed,    ///< The report holds where.
};

/// Ends the child at the refused allocation.
[[noreturn]] void stopChild();

/// Runs `work`, which returns what is wrong or nothing, in a child process. With the address
/// sanitizer, a leak in the child is wrong as well.
ChildEnding runInChild(Report* report, const std::function<std::string()>& work);

/// The calls with the names that the dynamic symbols give them, one a line.
std::string textOf(const CallStack& calls);

/// Why a child did not end well.
std::string complaintOf(const Report& report);

} // namespace faults
