// A byte string is the text of a peptidoform: read, written, weighed, laid out, made a molecule and
// brought back.

#include "PeptidoformLaws.h"
#include "Require.h"

#include <QByteArrayView>
#include <QString>

#include <cstddef>
#include <cstdint>

using namespace ions;

namespace {

void requireLaw(const char* broken)
{
    require(!broken, broken);
}

void checkRefusal(const Error& error, const QString& text)
{
    require(error.position >= 0 && error.position <= text.size(),
            "an error has a place in the text");
    require(error.message.contains(u"expected") || error.message.contains(u"too large"),
            "an error says what was expected");
    const QString start = text.first(error.position);
    const Parsed<Peptidoform> before = Peptidoform::read(start);
    require(before || before.error().position == start.size() ||
                error.message.contains(u"too large"),
            "what is in front of an error is the beginning of a text");
}

/// Weighs every ion; sums of huge numbers are only asked not to crash.
void checkIons(const Peptidoform& peptidoform)
{
    const bool isOrdinary = hasOrdinaryNumbers(peptidoform);
    for (qsizetype ion = 0; ion < std::ssize(peptidoform.ions); ++ion) {
        const char* const broken = lawBrokenByBackbone(peptidoform, ion);
        requireLaw(isOrdinary ? broken : nullptr);
    }
    for (const auto& law : {lawBrokenByMolecule, lawBrokenThroughMolecules}) {
        const char* const broken = law(peptidoform);
        requireLaw(isOrdinary ? broken : nullptr);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text =
        QString::fromUtf8(QByteArrayView(reinterpret_cast<const char*>(data), qsizetype(size)));
    const Parsed<Peptidoform> read = Peptidoform::read(text);
    if (!read) {
        checkRefusal(read.error(), text);
        return 0;
    }
    requireLaw(lawBrokenByText(*read));
    checkIons(*read);
    return 0;
}
