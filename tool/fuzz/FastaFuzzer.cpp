#include "FileInput.h"
#include "Require.h"
#include "readers/Fasta.h"

#include <cstdint>

/// \file
/// Any bytes as a FASTA file: what is handed over has a name and letters, and reads back from a
/// file that is written of it.

using namespace tool;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const auto sequences = recordsOf<Sequence>(bytes, readFasta);
    QByteArray written;
    for (const Sequence& sequence : sequences) {
        require(!sequence.name.isEmpty(), "a sequence has a name");
        require(!sequence.letters.isEmpty(), "a sequence has letters");
        // A stop mark behind the last letter would be taken for the one of the file.
        written += '>' + sequence.name.toUtf8() + "\r\n" + sequence.letters.toLatin1() + "*\r";
    }
    const auto again = recordsOf<Sequence>(written, readFasta);
    require(again.size() == sequences.size(), "each sequence reads back");
    for (std::size_t i = 0; i < again.size(); ++i) {
        require(again[i].name == sequences[i].name, "its name reads back");
        require(again[i].letters == sequences[i].letters, "its letters read back");
    }
    return 0;
}
