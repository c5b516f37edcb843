#pragma once

#include <ChemicalModel.h>

#include <optional>
#include <string>
#include <tuple>

/// \file
/// Everything that can be observed of a value, as a text: every double with all its bits.

namespace faults {

std::string describe(bool value);
std::string describe(int value);
std::string describe(double value);
std::string describe(const QString& value);
std::string describe(const QPointF& value);
std::string describe(const QRegularExpression& value);
std::string describe(const chem::ChemicalFormula& value);
std::string describe(const chem::Molecule& value);
std::string describe(const chem::NamedMolecule& value);
std::string describe(const chem::MoleculeComplex& value);
std::string describe(const chem::Fragment& value);
std::string describe(const chem::SimpleFragment& value);
std::string describe(const chem::Chain& value);
std::string describe(const chem::Link& value);
std::string describe(const chem::Modification& value);
std::string describe(const chem::TransformationEntity& value);
std::string describe(const chem::MoleculeEntity& value);
std::string describe(const chem::ObservedMassEntity& value);
std::string describe(const chem::Match& value);
std::string describe(const chem::ClipOptions& value);
/// What the public functions of the factory make of some texts of each kind.
std::string describe(const chem::ChemicalFactory& value);

template <typename T>
std::string describe(const QSharedPointer<T>& value)
{
    return value ? describe(*value) : "null";
}

template <typename T>
std::string describe(const std::optional<T>& value)
{
    return value ? describe(*value) : "nothing";
}

template <typename T>
std::string describe(const QList<T>& values)
{
    std::string text = "[";
    for (const T& value : values)
        text += describe(value) + ", ";
    return text + "]";
}

template <typename... T>
std::string describe(const std::tuple<T...>& values)
{
    return std::apply([](const T&... value) { return (("{" + describe(value) + "} ") + ...); },
                      values);
}

} // namespace faults
