// Any text is read as a formula, and the forms that are written read back to the same composition.

#include "FuzzInput.h"
#include <ChemicalFactory.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QStringList units = {u"C"_s, u"H"_s, u"Na"_s, u"E"_s,   u"Xx"_s, u"("_s,
                           u")"_s, u"-"_s, u"+"_s,  u"."_s,   u"0"_s,  u"1"_s,
                           u"2"_s, u"9"_s, u"e"_s,  u"inf"_s, u" "_s};

bool agreeToSixDigits(double a, double b)
{
    return a == b || std::abs(a - b) <= 1e-5 * std::max(std::abs(a), std::abs(b));
}

void requireReadsBack(const chem::ChemicalFormula& formula)
{
    const auto read = chem::ChemicalFactory::parseChemicalFormula(formula.toIsoFormulaString());
    const auto& counts = formula.elementCountMap();
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry)
        require(agreeToSixDigits(entry.value(), read.elementCountMap().value(entry.key())),
                "the text form keeps six digits of each count");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = textOf(data, size, units);
    const auto formula = chem::ChemicalFactory::parseChemicalFormula(text);
    require(formula.toIsoFormulaString().isEmpty() || formula.isValid(),
            "only a valid formula has a text for IsoSpec++");
    require(formula.toThermoFormulaString().isEmpty() || formula.isValid(),
            "only a valid formula has a spaced text");
    if (formula.isValid())
        requireReadsBack(formula);
    const auto difference = formula - formula;
    require(difference.elementCountMap().size() == formula.elementCountMap().size(),
            "elements whose counts cancel stay");

    const auto factory = chem::defaultChemicalFactory();
    double mono = 1.0;
    double average = 1.0;
    const bool failed = factory->calculateMassesForFormula(formula, &mono, &average).hasError();
    require(!failed || (mono == 0.0 && average == 0.0), "a failure gives no masses");
    const chem::Molecule molecule = factory->constructMolecule(text);
    require(molecule.monoMass() == mono && molecule.averageMass() == average,
            "a molecule of a text has the masses of its formula");
    factory->modifyMolecule(molecule, text, -2);
    factory->moleculeBasedOnMonoMass(text, 1000.0);
    return 0;
}
