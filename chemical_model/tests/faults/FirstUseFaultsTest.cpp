#include "ChildProcess.h"
#include "Describe.h"
#include "WaysOut.h"

#include <gtest/gtest.h>

#include <iostream>

namespace {

using namespace Qt::StringLiterals;
using namespace faults;

// What is made once in a process may fail to be made. Then a later use must make it. Each test
// needs a process in which nothing has been used yet, so these come first in the program.

using Use = std::function<std::string()>;

/// One use without memory from the n-th allocation on and one with memory, in a fresh process.
std::string useTwice(std::size_t n, const Use& use, Report* report)
{
    {
        const OutOfMemory outOfMemory(n, Shortage::Lasting);
        try {
            use();
        } catch (const std::bad_alloc&) {
            ++report->thrown;
        }
    }
    report->didWithout = hasRunOut() ? 0 : 1;
    const std::string first = use();
    return first == use() ? "" : "two uses differ";
}

void expectSecondUseToWork(const Use& use, const std::string& expected)
{
    const SharedReport report;
    for (report->point = 1; report->didWithout == 0; ++report->point) {
        const ChildEnding ending = runInChild(report.get(), [&] {
            const std::string complaint = useTwice(report->point, use, report.get());
            return complaint.empty() && use() != expected ? "a later use gives " + use()
                                                          : complaint;
        });
        const bool isKnown = ending == ChildEnding::Crashed && !knownWayOut(*report).empty();
        ASSERT_TRUE(ending == ChildEnding::Good || isKnown)
            << "allocation " << report->point << ": " << complaintOf(*report);
    }
    std::cout << "  " << report->point - 2 << " allocation points: " << report->thrown
              << " thrown\n";
}

/// Fails at every allocation in turn until the use succeeds, in one process: what failed is made
/// anew each time.
std::string useUntilMade(const Use& use, const std::string& expected, Report* report)
{
    for (bool isMade = false; !isMade; ++report->point) {
        const OutOfMemory outOfMemory(report->point, Shortage::Lasting);
        try {
            use();
            isMade = !hasRunOut();
        } catch (const std::bad_alloc&) {
            ++report->thrown;
        }
    }
    return use() == expected ? "" : "another result: " + use();
}

TEST(FirstUseFaults, DefaultFactoryIsMadeByALaterCall)
{
    const Use use = [] {
        return describe(chem::defaultChemicalFactory()->constructMolecule(u"C6"_s));
    };
    const std::string expected =
        describe(chem::ChemicalFactory::construct(QString())->constructMolecule(u"C6"_s));
    const SharedReport report;
    report->point = 1;
    ChildEnding ending;
    while ((ending = runInChild(report.get(),
                                [&] { return useUntilMade(use, expected, report.get()); })) ==
               ChildEnding::Crashed &&
           !knownWayOut(*report).empty())
        ++report->point;
    EXPECT_EQ(ending, ChildEnding::Good) << complaintOf(*report);
    std::cout << "  " << report->point - 2 << " allocation points: " << report->thrown
              << " thrown\n";
}

TEST(FirstUseFaults, LabelsOfIonsAreMadeByALaterCall)
{
    expectSecondUseToWork(
        [] { return describe(chem::ChemicalFactory::typeToString(chem::FragmentType::Zdot)); },
        describe(u"z."_s));
}

} // namespace
