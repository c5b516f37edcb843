#include "EveryAllocation.h"

#include "ChildProcess.h"
#include "FailingAllocator.h"
#include "WaysOut.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <map>
#include <new>

namespace faults {

namespace {

/// How an attempt ended.
enum class Ending { NeededNoMore, Thrown, DidWithout };

Ending endingOf(Attempt* attempt, std::size_t n, Shortage shortage)
{
    const OutOfMemory outOfMemory(n, shortage);
    try {
        attempt->call();
    } catch (const std::bad_alloc&) {
        return Ending::Thrown;
    }
    return hasRunOut() ? Ending::DidWithout : Ending::NeededNoMore;
}

/// The allocations of one call refused one after another, as the child process does it.
class Trial
{
public:
    Trial(Afterwards afterwards, const MakeAttempt& make, Shortage shortage, Report* report)
        : m_afterwards(afterwards)
        , m_make(make)
        , m_shortage(shortage)
        , m_report(report)
        , m_before(make()->observed())
        , m_success(fieldsOfSuccess())
    {
        warmUp();
    }

    /// Goes on from the allocation that the report names. Returns what is wrong, or nothing.
    std::string run()
    {
        std::string complaint;
        if (m_afterwards == Afterwards::OldOrNew && m_before == m_success)
            complaint = "old and new cannot be told apart";
        for (bool isDone = false; !isDone && complaint.empty();) {
            const Usage before = usage();
            isDone = tryOnce(&complaint);
            if (complaint.empty() && usage().blocks != before.blocks)
                checkLeak(usage().blocks - before.blocks, &complaint);
            if (complaint.empty() && !isDone)
                ++m_report->point;
        }
        if (complaint.empty() && fieldsOfSuccess() != m_success)
            complaint = "a later call gives another result\n" +
                        fields::differences(fieldsOfSuccess(), m_success);
        return complaint;
    }

private:
    fields::Fields fieldsOfSuccess() const
    {
        const std::unique_ptr<Attempt> attempt = m_make();
        attempt->call();
        return attempt->observed();
    }

    /// Lets everything be made that is made once in a process.
    void warmUp() const
    {
        Usage before;
        do {
            before = usage();
            fieldsOfSuccess();
        } while (usage().blocks != before.blocks);
    }

    /// True if the call needed no more allocations than those tried.
    bool tryOnce(std::string* complaint)
    {
        const std::unique_ptr<Attempt> attempt = m_make();
        const Ending ending = endingOf(attempt.get(), m_report->point, m_shortage);
        if (ending == Ending::NeededNoMore)
            return true;
        const fields::Fields left = attempt->observed();
        if (ending == Ending::DidWithout)
            checkResult(left, complaint);
        else
            checkRest(left, complaint);
        return false;
    }

    void checkRest(const fields::Fields& left, std::string* complaint)
    {
        ++m_report->thrown;
        if (m_afterwards == Afterwards::OldOrNew && left != m_before && left != m_success)
            *complaint = "neither old nor new, unlike the old one in\n" +
                         fields::differences(left, m_before) + "and the new one in\n" +
                         fields::differences(left, m_success);
    }

    void checkResult(const fields::Fields& result, std::string* complaint)
    {
        if (result == m_success)
            ++m_report->didWithout;
        else if (m_afterwards != Afterwards::OldOrNew && isKnownToMislead(refusedCalls()))
            ++m_report->misled;
        else
            *complaint = "another result without an exception, refused in\n" +
                         textOf(refusedCalls()) + fields::differences(result, m_success);
    }

    void checkLeak(std::size_t blocks, std::string* complaint)
    {
        if (isKnownToLeak(refusedCalls()))
            ++m_report->leaks;
        else
            *complaint = std::to_string(blocks) +
                         " blocks are alive that were not before, refused in\n" +
                         textOf(refusedCalls());
    }

    Afterwards m_afterwards;
    const MakeAttempt& m_make;
    Shortage m_shortage;
    Report* m_report;
    fields::Fields m_before;
    fields::Fields m_success;
};

void printCounts(const Report& report, const std::map<std::string, int>& crashes)
{
    std::cout << "  " << report.point - 1 << " allocation points: " << report.thrown << " thrown, "
              << report.didWithout << " done without";
    if (report.misled > 0)
        std::cout << ", PCRE2 misled in " << report.misled;
    if (report.leaks > 0)
        std::cout << ", IsoSpec++ or Qt leaked in " << report.leaks;
    for (const auto& [wayOut, count] : crashes)
        std::cout << ", " << count << " x " << wayOut;
    std::cout << '\n';
}

void refuseEach(Afterwards afterwards, const MakeAttempt& make, Shortage shortage)
{
    const SharedReport report;
    std::map<std::string, int> crashes;
    report->point = 1;
    while (true) {
        const ChildEnding ending = runInChild(
            report.get(), [&] { return Trial(afterwards, make, shortage, report.get()).run(); });
        if (ending == ChildEnding::Good)
            break;
        const std::string way = ending == ChildEnding::Crashed ? knownWayOut(*report) : "";
        ASSERT_FALSE(way.empty()) << "allocation " << report->point << ": " << complaintOf(*report);
        if (std::getenv("FAULTS_SHOW_WAYS_OUT"))
            std::cout << complaintOf(*report);
        ++crashes[way];
        ++report->point;
    }
    printCounts(*report, crashes);
}

} // namespace

void failAtEveryAllocation(Afterwards afterwards, const MakeAttempt& make)
{
    for (const Shortage shortage : {Shortage::Once, Shortage::Lasting})
        ASSERT_NO_FATAL_FAILURE(refuseEach(afterwards, make, shortage));
}

} // namespace faults
