#include "ChildProcess.h"
#include "FaultFields.h"
#include "WaysOut.h"

#include <gtest/gtest.h>

#include <iostream>

namespace {

using namespace Qt::StringLiterals;
using namespace faults;
using fields::differences;
using fields::Fields;
using fields::fieldsOf;

// What is made once in a process may fail to be made. Then a later use must make it. Each test
// needs a process in which nothing has been used yet, so these come first in the program.

using Use = std::function<Fields()>;

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
    const Fields first = use();
    return differences(first, use());
}

void expectSecondUseToWork(const Use& use, const Fields& expected)
{
    const SharedReport report;
    for (report->point = 1; report->didWithout == 0; ++report->point) {
        const ChildEnding ending = runInChild(report.get(), [&] {
            const std::string complaint = useTwice(report->point, use, report.get());
            return complaint + differences(use(), expected);
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
std::string useUntilMade(const Use& use, const Fields& expected, Report* report)
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
    return differences(use(), expected);
}

TEST(FirstUseFaults, DefaultFactoryIsMadeByALaterCall)
{
    const Use use = [] {
        return fieldsOf(chem::defaultChemicalFactory()->constructMolecule(u"C6"_s));
    };
    const Fields expected =
        fieldsOf(chem::ChemicalFactory::construct(QString())->constructMolecule(u"C6"_s));
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
        [] { return fieldsOf(chem::ChemicalFactory::typeToString(chem::FragmentType::Zdot)); },
        fieldsOf(u"z."_s));
}

} // namespace
