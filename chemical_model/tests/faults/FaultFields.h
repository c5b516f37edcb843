#pragma once

#include "Differences.h"

#include <optional>
#include <tuple>

/// \file
/// What can be observed of the values that the tests of failing allocations use.

namespace fields {

void addField(Fields* fields, const std::string& path, const QPointF& point);
void addField(Fields* fields, const std::string& path, const QRegularExpression& expression);
void addField(Fields* fields, const std::string& path, const chem::MoleculeComplex& complex);
void addField(Fields* fields, const std::string& path, const chem::Fragment& fragment);
void addField(Fields* fields, const std::string& path, const chem::SimpleFragment& fragment);
void addField(Fields* fields, const std::string& path, const chem::ObservedMassEntity& mass);
void addField(Fields* fields, const std::string& path, const chem::Match& match);
void addField(Fields* fields, const std::string& path,
              const chem::ClipOptions::ResidueBeforeAfter& rule);
void addField(Fields* fields, const std::string& path, const chem::ClipOptions& options);
/// What the public functions of the factory make of some texts of each kind.
void addField(Fields* fields, const std::string& path, const chem::ChemicalFactory& factory);

template <typename T>
void addField(Fields* fields, const std::string& path, const QSharedPointer<T>& pointer)
{
    if (pointer)
        addField(fields, path, *pointer);
    else
        fields->append(path, "null");
}

template <typename T>
void addField(Fields* fields, const std::string& path, const std::optional<T>& value)
{
    if (value)
        addField(fields, path, *value);
    else
        fields->append(path, "nothing");
}

template <typename... T>
void addField(Fields* fields, const std::string& path, const std::tuple<T...>& values)
{
    int number = 0;
    const auto add = [&](const auto& value) {
        addField(fields, path + '<' + std::to_string(number++) + '>', value);
    };
    std::apply([&add](const T&... value) { (add(value), ...); }, values);
}

} // namespace fields
