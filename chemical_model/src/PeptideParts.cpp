#include "PeptideParts.h"

#include <atomic>

namespace chem {

PeptidePartsByThread::PeptidePartsByThread(const std::function<PeptideParts()>& make)
{
    for (PeptideParts& copy : m_copies)
        copy = make();
}

const PeptideParts& PeptidePartsByThread::forThisThread() const
{
    static std::atomic<std::size_t> threadCount = 0;
    thread_local const std::size_t turn = threadCount++ % copyCount;
    return m_copies[turn];
}

} // namespace chem
