// A byte string is the text of a peptidoform: read, written and read again, or refused where it
// goes wrong. What it weighs and what it becomes is asked by PeptidoformFuzzer; without that, this
// one reads some hundred times as many texts.

#include "PeptidoformLaws.h"
#include "Require.h"

#include <QByteArrayView>
#include <QString>

#include <cstddef>
#include <cstdint>

using namespace ions;

namespace {

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text =
        QString::fromUtf8(QByteArrayView(reinterpret_cast<const char*>(data), qsizetype(size)));
    const Parsed<Peptidoform> read = Peptidoform::read(text);
    if (read)
        requireLaw(lawBrokenByText(*read));
    else
        checkRefusal(read.error(), text);
    return 0;
}
