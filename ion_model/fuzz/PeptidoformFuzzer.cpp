// A byte string is the text of a peptidoform: weighed, laid out, made a molecule and brought back.

#include "PeptidoformLaws.h"
#include "Require.h"

#include <QByteArrayView>
#include <QString>

#include <cstddef>
#include <cstdint>

using namespace ions;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Parsed<Peptidoform> read = Peptidoform::read(
        QString::fromUtf8(QByteArrayView(reinterpret_cast<const char*>(data), qsizetype(size))));
    if (!read)
        return 0;
    // Of huge numbers, sums are only asked not to crash.
    const bool isOrdinary = hasOrdinaryNumbers(*read);
    for (qsizetype ion = 0; ion < std::ssize(read->ions); ++ion) {
        for (const auto& law : {lawBrokenByBackbone, lawBrokenByIonCompositions}) {
            const char* const broken = law(*read, ion);
            requireLaw(isOrdinary ? broken : nullptr);
        }
    }
    for (const auto& law : {lawBrokenByMolecule, lawBrokenThroughMolecules}) {
        const char* const broken = law(*read);
        requireLaw(isOrdinary ? broken : nullptr);
    }
    return 0;
}
