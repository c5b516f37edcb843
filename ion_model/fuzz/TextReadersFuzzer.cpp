// The first byte chooses a reader, the others pieces of its notation; the laws are those of the
// tests.

#include "FuzzInput.h"
#include "TextReaders.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const auto& readers = readerLaws::allReaders();
    const readerLaws::Reader& reader = readers[data[0] % readers.size()];
    const auto outcome = reader.check(textOf(data + 1, size - 1, reader.pieces));
    require(!outcome.brokenLaw, outcome.brokenLaw);
    return 0;
}
