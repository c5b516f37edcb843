#include "EveryAllocation.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace faults;

using chem::ChemicalFactory;
using chem::ChemicalFormula;
using chem::Molecule;

/// With a loss, a fraction and a symbol of three letters, which texts and masses treat apart.
ChemicalFormula oddFormula()
{
    return ChemicalFactory::parseChemicalFormula(u"C6H12O6N-2S1.5Xyz3Na"_s);
}

ChemicalFormula wholeFormula()
{
    return ChemicalFactory::parseChemicalFormula(u"C6H12O6N2Na1000001"_s);
}

TEST(FormulaFaults, ReadingFormulaText)
{
    failAtEveryAllocation(
        Afterwards::OldOrNew, [] { return ChemicalFormula(); },
        [](ChemicalFormula& formula) {
            formula =
                ChemicalFactory::parseChemicalFormula(u"(C6)(H12)O6 Xyz0.5 H-2 Na Cl S P K"_s);
        });
}

TEST(FormulaFaults, WritingFormulaText)
{
    const auto make = [] {
        return std::tuple(oddFormula(), wholeFormula(), QString(), QString(), QString(), QString(),
                          QString());
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [odd, whole, forPeople, iso, thermo, gains, losses] = state;
        forPeople = odd.toString();
        iso = whole.toIsoFormulaString();
        thermo = whole.toThermoFormulaString();
        gains = odd.positiveFormulaString();
        losses = odd.negativeFormulaString();
    });
}

TEST(FormulaFaults, ListingElements)
{
    const auto make = [] {
        return std::tuple(oddFormula(), QList<QString>{u"old"_s}, QList<int>{1});
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [formula, elements, counts] = state;
        formula.positiveElementCounts(&elements, &counts);
        formula.negativeElementCounts(&elements, &counts);
    });
}

TEST(FormulaFaults, AddingAndMultiplyingFormulas)
{
    const auto make = [] {
        return std::tuple(oddFormula(), wholeFormula(), ChemicalFormula());
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [odd, whole, result] = state;
        result = odd + whole - odd;
        odd += whole;
        whole -= odd;
        result *= -3;
    });
}

TEST(FormulaFaults, AddingAndMultiplyingMolecules)
{
    const auto make = [] {
        return std::tuple(Molecule(oddFormula(), 2.0, 1.0), Molecule(wholeFormula(), 4.0, 3.0));
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [odd, whole] = state;
        whole = whole + odd - odd;
        odd += whole;
        whole -= odd;
        whole *= 2;
    });
}

TEST(FormulaFaults, WorkingOutMasses)
{
    const auto make = [] {
        return std::tuple(*chem::defaultChemicalFactory(), oddFormula(), Molecule(), Molecule(),
                          Molecule(), 0.0, 0.0, QList<QString>{u"C"_s, u"Xyz"_s}, QList<int>{1, 2});
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [factory, formula, made, modified, loss, mono, average, elements, counts] = state;
        made = factory.constructMolecule(u"C6H12O6Xyz2E"_s);
        modified = factory.modifyMolecule(made, u"O1H-2"_s, -2);
        factory.calculateMassesForFormula(formula, &mono, &average);
        factory.calculateMassesForElementCountArrays(elements, counts, &mono, &average);
    });
}

TEST(FormulaFaults, EstimatingMasses)
{
    const auto make = [] {
        return std::tuple(*chem::defaultChemicalFactory(), Molecule(), Molecule());
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [factory, byAverage, byMono] = state;
        byAverage = factory.moleculeBasedOnAverageMass(u"C5H8NO"_s, 1000.0);
        byMono = factory.moleculeBasedOnMonoMass(u"C5H8NO"_s, 1000.0);
    });
}

TEST(FormulaFaults, Envelopes)
{
    const auto make = [] {
        const auto factory = chem::defaultChemicalFactory();
        return std::tuple(*factory, factory->constructMolecule(u"C6H12O6Xyz1"_s),
                          QList<QPointF>{{1.0, 2.0}}, Molecule());
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [factory, molecule, envelope, result] = state;
        result = factory.generateIsotopeEnvelope(molecule, 2, &envelope, true);
    });
}

TEST(FormulaFaults, RefusedEnvelopes)
{
    const auto make = [] {
        return std::tuple(oddFormula(), QList<QPointF>{{1.0, 2.0}});
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [formula, envelope] = state;
        chem::defaultChemicalFactory()->generateIsotopeEnvelope(Molecule(formula, 1.0, 1.0), 1,
                                                                &envelope, false);
    });
}

TEST(FormulaFaults, NormalizingAbundances)
{
    failAtEveryAllocation(
        Afterwards::OldOrNew,
        [] {
            const QList<double> values = {99.0, 1.0};
            return std::tuple(values, values); // two lists that share their storage
        },
        [](auto& values) { chem::normalize(std::get<0>(values)); });
}

} // namespace
