#pragma once

#include <cstdio>
#include <cstring>
#include <functional>
#include <span>

/// \file
/// One piece of work by its name, for a tool that counts instructions: counts repeat where times do
/// not.

/// Work on `items` inputs. `prepare` builds the inputs and gives what is to be measured.
struct Workload
{
    const char* name;
    int items;
    std::function<std::function<void()>(int)> prepare;
};

/// What the counting tool looks for; the name must not be inlined away.
[[gnu::noinline]] inline void measured(const std::function<void()>& run)
{
    run();
}

/// The main function of a program of workloads: runs the one that its argument names. Everything is
/// prepared first and run once outside of `measured`, so that first use is not counted. Without an
/// argument, the names and how many items each works on are listed.
inline int runWorkload(std::span<const Workload> workloads, int argumentCount, char* arguments[])
{
    for (const Workload& workload : workloads) {
        if (argumentCount < 2) {
            std::printf("%s %d\n", workload.name, workload.items);
        } else if (std::strcmp(arguments[1], workload.name) == 0) {
            const std::function<void()> run = workload.prepare(workload.items);
            run();
            measured(run);
            return 0;
        }
    }
    return argumentCount < 2 ? 0 : 1;
}
