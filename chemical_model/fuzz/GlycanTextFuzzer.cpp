// Any text is read as a glycan composition; what is valid adds up term by term.

#include "FuzzInput.h"
#include <ChemicalFactory.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList units = {u"Hex"_s, u"HexNAc"_s, u"Fuc"_s, u"dHex"_s, u"NeuAc"_s,
                           u"Na"_s,  u"Sodium"_s, u"("_s,   u")"_s,    u"0"_s,
                           u"1"_s,   u"99999"_s,  u" "_s,   u"-"_s,    u"Pent(2)"_s};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = textOf(data, size, units);
    const auto factory = chem::defaultChemicalFactory();
    const bool isValid = factory->isValidGlycanComposition(text);
    const chem::Molecule glycan = factory->constructGlycanModification(text);
    require(glycan.monoMass() >= 0.0, "a glycan never lightens");
    if (isValid)
        require(factory->isValidGlycanComposition(text + u"#Hex(1)"_s),
                "a further term keeps a composition valid");
    const chem::Molecule twice = factory->constructGlycanModification(text + u'#' + text);
    for (const QString& symbol : glycan.formula().elementCountMap().keys()) {
        require(twice.formula().elementCountMap().value(symbol) ==
                    2 * glycan.formula().elementCountMap().value(symbol),
                "terms add up");
    }
    return 0;
}
