#include "ChildProcess.h"

#include <cxxabi.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <QDebug>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <memory>
#include <new>
#include <sys/mman.h>
#include <sys/wait.h>
#include <system_error>
#include <typeinfo>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/asan_interface.h>
#include <sanitizer/lsan_interface.h>

#define OPTIONS extern "C" __attribute__((visibility("default"))) const char*
// What the undefined-behaviour sanitizer finds ends in a signal, as it does without it.
OPTIONS __asan_default_options();
OPTIONS __asan_default_options()
{
    return "abort_on_error=1";
}
OPTIONS __ubsan_default_options();
OPTIONS __ubsan_default_options()
{
    return "abort_on_error=1";
}
#endif

namespace faults {

namespace {

constexpr int goodExit = 0;
constexpr int complaintExit = 3;
constexpr int crashExit = 4;

Report* reportOfChild = nullptr;

[[noreturn]] void die(Report::Death death, int signal)
{
    if (reportOfChild->death == Report::Death::None)
        reportOfChild->death = death;
    reportOfChild->signal = signal;
    reportOfChild->request = refusedRequest();
    reportOfChild->refused = refusedCalls();
    reportOfChild->dying.record();
    _exit(crashExit);
}

void dieOfSignal(int signal)
{
    die(Report::Death::Signal, signal);
}

[[noreturn]] void dieOfTermination()
{
    die(Report::Death::Terminate, 0);
}

void noteSanitizer(const char*)
{
    reportOfChild->death = Report::Death::Sanitizer;
}

void reportDeath(Report* report)
{
    reportOfChild = report;
    report->death = Report::Death::None;
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT})
        std::signal(signal, dieOfSignal);
    std::set_terminate(dieOfTermination);
#ifdef __SANITIZE_ADDRESS__
    __asan_set_error_report_callback(noteSanitizer);
#else
    static_cast<void>(noteSanitizer);
#endif
}

bool hasLeaks()
{
#ifdef __SANITIZE_ADDRESS__
    return __lsan_do_recoverable_leak_check() != 0;
#else
    return false; // the blocks that are alive are counted
#endif
}

void complain(Report* report, const std::string& complaint)
{
    const std::size_t size = std::min(complaint.size(), report->complaint.size() - 1);
    std::memcpy(report->complaint.data(), complaint.data(), size);
    report->complaint[size] = '\0';
}

std::string demangled(const char* name)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> text(
        abi::__cxa_demangle(name, nullptr, nullptr, &status), &std::free);
    return text ? text.get() : name;
}

[[noreturn]] void work(Report* report, const std::function<std::string()>& what)
{
    CallStack().record(); // the first time loads a library
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    reportDeath(report);
    std::string complaint;
    try {
        complaint = what();
    } catch (const std::exception& exception) {
        complaint = "another exception: " + demangled(typeid(exception).name()) + ' ' +
                    exception.what() + ", refused in\n" + textOf(refusedCalls());
    } catch (...) {
        complaint = "another exception, refused in\n" + textOf(refusedCalls());
    }
    if (complaint.empty() && hasLeaks())
        complaint = "the leak sanitizer found a leak";
    complain(report, complaint);
    std::fflush(nullptr);
    _exit(complaint.empty() ? goodExit : complaintExit);
}

} // namespace

SharedReport::SharedReport()
{
    void* const memory =
        mmap(nullptr, sizeof(Report), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        throw std::system_error(errno, std::generic_category(), "mmap");
    m_report = new (memory) Report;
}

SharedReport::~SharedReport()
{
    munmap(m_report, sizeof(Report));
}

void stopChild()
{
    die(Report::Death::Stopped, 0);
}

ChildEnding runInChild(Report* report, const std::function<std::string()>& what)
{
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0)
        throw std::system_error(errno, std::generic_category(), "fork");
    if (child == 0)
        work(report, what);
    int status = 0;
    waitpid(child, &status, 0);
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    if (code == goodExit)
        return ChildEnding::Good;
    if (code == crashExit)
        return ChildEnding::Crashed;
    if (code != complaintExit)
        complain(report, "the child ended with status " + std::to_string(status));
    return ChildEnding::Complained;
}

std::string textOf(const CallStack& calls)
{
    std::string text;
    for (int i = 0; i < calls.size; ++i) {
        Dl_info info{};
        dladdr(calls.frames[i], &info);
        const char* const file = info.dli_fname ? info.dli_fname : "?";
        const char* const slash = std::strrchr(file, '/');
        std::array<char, 32> offset{};
        std::snprintf(offset.data(), offset.size(), "+0x%zx",
                      reinterpret_cast<std::size_t>(calls.frames[i]) -
                          reinterpret_cast<std::size_t>(info.dli_fbase));
        text += std::string(slash ? slash + 1 : file) + offset.data() + ' ' +
                (info.dli_sname ? demangled(info.dli_sname) : "") + '\n';
    }
    return text;
}

std::string complaintOf(const Report& report)
{
    if (report.death == Report::Death::None)
        return report.complaint.data();
    return "died (" + std::to_string(int(report.death)) + ", signal " +
           std::to_string(report.signal) + ")\nrefused in\n" + textOf(report.refused) +
           "dying in\n" + textOf(report.dying);
}

} // namespace faults
