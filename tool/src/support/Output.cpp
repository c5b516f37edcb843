#include "support/Output.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace tool {

namespace {

[[noreturn]] void giveUp(int reason)
{
    if (reason == EPIPE)
        std::_Exit(0);
    std::fprintf(stderr, "zel: standard output cannot be written: %s\n", std::strerror(reason));
    std::_Exit(1);
}

} // namespace

void writeOut(QByteArrayView bytes)
{
    const auto size = std::size_t(bytes.size());
    if (std::fwrite(bytes.data(), 1, size, stdout) != size || std::fflush(stdout) != 0)
        giveUp(errno);
}

void ignoreClosedPipes()
{
    std::signal(SIGPIPE, SIG_IGN);
}

} // namespace tool
