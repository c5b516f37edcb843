// Any text is read as an isotope configuration: it is refused quietly, refused by an exception, or
// gives a factory that computes all masses with the new isotopes.

#include "FuzzInput.h"
#include <ChemicalFactory.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

const QStringList units = {u"C13"_s,   u"C12"_s, u"N15"_s,        u"H2"_s, u"E1"_s,
                           u"Au197"_s, u"Xx5"_s, u":"_s,          u" "_s,  u"0.5"_s,
                           u"1"_s,     u"99"_s,  u"0"_s,          u"-"_s,  u"nan"_s,
                           u"inf"_s,   u"\n"_s,  u"2147483647"_s, u"e9"_s};
constexpr std::size_t longest = 60;

struct OpenFactory : public chem::ChemicalFactory
{
    explicit OpenFactory(const QString& configuration) { init(configuration); }
    using ChemicalFactory::buildingBlocks;
    using ChemicalFactory::isotopes;
    using ChemicalFactory::isotopesByName;
    using ChemicalFactory::isotopesBySymbol;
};

void requireConsistent(const OpenFactory& factory)
{
    for (qsizetype i = 0; i < factory.isotopes.size(); ++i) {
        require(factory.isotopesBySymbol.value(factory.isotopes[i].symbol).contains(i),
                "each isotope is found by its symbol");
        require(factory.isotopesByName.value(factory.isotopes[i].name).contains(i),
                "each isotope is found by its name");
    }
    const bool isRefused = factory.buildingBlocks.isEmpty();
    if (isRefused)
        require(factory.constructMolecule(u"C"_s).monoMass() == 12.0, "carbon weighs 12");
    else
        require(factory.buildingBlocks.size() == 7, "seven kinds of building blocks");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        requireConsistent(OpenFactory(textOf(data, std::min(size, longest), units)));
    } catch (const std::invalid_argument&) {
        // abundances that no isotope can have
    }
    return 0;
}
