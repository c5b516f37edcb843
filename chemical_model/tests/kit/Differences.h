#pragma once

#include <ChemicalModel.h>

#include <array>
#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

/// \file
/// Values compared field by field, so that a failure names what differs. `differences(a, b)` is ""
/// where all that can be observed of both is the same; what `fieldsOf(a)` gives stays as it was
/// when `a` changes. Needs no test framework, so fuzzers can use it.

namespace fields {

/// The observable fields of a value, as text under the paths that lead to them.
class Fields
{
public:
    using Field = std::pair<std::string, std::string>;

    void append(const std::string& path, const std::string& text)
    {
        m_list.emplace_back(path, text);
    }
    const std::vector<Field>& list() const { return m_list; }
    bool operator==(const Fields&) const = default;

private:
    std::vector<Field> m_list;
};

inline std::string inside(const std::string& path, const std::string& name)
{
    return path.empty() ? name : path + '.' + name;
}

inline void addField(Fields* fields, const std::string& path, const std::string& text)
{
    fields->append(path, text);
}

inline void addField(Fields* fields, const std::string& path, const QString& text)
{
    fields->append(path, '"' + text.toStdString() + '"');
}

inline void addField(Fields* fields, const std::string& path, bool value)
{
    fields->append(path, value ? "true" : "false");
}

inline void addField(Fields* fields, const std::string& path, int value)
{
    fields->append(path, std::to_string(value));
}

/// With all its digits: two texts are the same where the bits are.
inline void addField(Fields* fields, const std::string& path, double value)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.17g", value);
    fields->append(path, text.data());
}

inline void addField(Fields* fields, const std::string& path, const std::pair<int, int>& position)
{
    fields->append(path, '(' + std::to_string(position.first) + ", " +
                             std::to_string(position.second) + ')');
}

inline void addField(Fields* fields, const std::string& path, const chem::ChemicalFormula& formula)
{
    const QMap<QString, double>& counts = formula.elementCountMap();
    for (auto count = counts.cbegin(); count != counts.cend(); ++count)
        addField(fields, path + '[' + count.key().toStdString() + ']', count.value());
}

inline void addField(Fields* fields, const std::string& path, const chem::Molecule& molecule)
{
    addField(fields, inside(path, "averageMass"), molecule.averageMass());
    addField(fields, inside(path, "monoMass"), molecule.monoMass());
    addField(fields, inside(path, "formula"), molecule.formula());
}

inline void addField(Fields* fields, const std::string& path, const chem::NamedMolecule& molecule)
{
    addField(fields, inside(path, "name"), molecule.name);
    addField(fields, inside(path, "code"), molecule.code);
    addField(fields, path, static_cast<const chem::Molecule&>(molecule));
}

inline void addField(Fields* fields, const std::string& path, const chem::Nucleotide& nucleotide)
{
    addField(fields, path, static_cast<const chem::NamedMolecule&>(nucleotide));
    addField(fields, inside(path, "nucleobase"), nucleotide.nucleobase);
    addField(fields, inside(path, "ribose"), nucleotide.ribose);
    addField(fields, inside(path, "phosphate"), nucleotide.phosphate);
}

inline void addField(Fields* fields, const std::string& path, const chem::FragmentationSite& site)
{
    addField(fields, inside(path, "type"), static_cast<int>(site.type));
    addField(fields, inside(path, "delta"), site.delta);
    addField(fields, inside(path, "lost"), site.lost);
}

inline void addField(Fields* fields, const std::string& path, const chem::ParentChainLocus& locus)
{
    addField(fields, inside(path, "label"), locus.label);
    addField(fields, inside(path, "chain"), locus.chain);
    addField(fields, inside(path, "start"), locus.start);
    addField(fields, inside(path, "end"), locus.end);
}

template <typename T>
void addField(Fields* fields, const std::string& path, const QList<T>& values)
{
    addField(fields, inside(path, "size"), static_cast<int>(values.size()));
    for (qsizetype i = 0; i < values.size(); ++i)
        addField(fields, path + '[' + std::to_string(i) + ']', values[i]);
}

inline void addField(Fields* fields, const std::string& path, const chem::Chain& chain);
inline void addField(Fields* fields, const std::string& path, const chem::Link& link);
inline void addField(Fields* fields, const std::string& path, const chem::Modification& value);
inline void addField(Fields* fields, const std::string& path, const chem::TransformationEntity&);

/// All that can be asked of a molecule.
inline void addField(Fields* fields, const std::string& path, const chem::MoleculeEntity& molecule)
{
    addField(fields, inside(path, "type"), static_cast<int>(molecule.type()));
    addField(fields, inside(path, "name"), molecule.name());
    addField(fields, inside(path, "code"), molecule.code());
    addField(fields, inside(path, "description"), molecule.description());
    addField(fields, inside(path, "sequence"), molecule.sequence());
    addField(fields, inside(path, "averageMass"), molecule.averageMass());
    addField(fields, inside(path, "monoMass"), molecule.monoMass());
    addField(fields, inside(path, "formula"), molecule.formula());
    addField(fields, inside(path, "chains"), molecule.chains());
    addField(fields, inside(path, "links"), molecule.links());
    addField(fields, inside(path, "modifications"), molecule.modifications());
    addField(fields, inside(path, "transformations"), molecule.transformations());
}

inline void addField(Fields* fields, const std::string& path, const chem::Chain& chain)
{
    addField(fields, inside(path, "name"), chain.name());
    addField(fields, inside(path, "code"), chain.code());
    addField(fields, inside(path, "type"), static_cast<int>(chain.type()));
    addField(fields, inside(path, "parentLocus"), chain.parentLocus());
    addField(fields, inside(path, "residues"), chain.residues());
}

inline void addField(Fields* fields, const std::string& path, const chem::Link& link)
{
    addField(fields, inside(path, "first"), link.connection().first);
    addField(fields, inside(path, "second"), link.connection().second);
    addField(fields, inside(path, "entity"), link.entity());
}

inline void addField(Fields* fields, const std::string& path, const chem::Modification& value)
{
    addField(fields, inside(path, "places"), value.possibleChainLocations());
    addField(fields, inside(path, "entity"), value.entity());
}

/// The step and what tells the molecule before it from others: that one has a history as well, and
/// all of each would grow without end.
inline void addField(Fields* fields, const std::string& path,
                     const chem::TransformationEntity& entry)
{
    chem::TransformationEntity copy = entry; // asking for the molecule before a step is not const
    const chem::MoleculeEntity original = copy.original();
    addField(fields, inside(path, "type"), static_cast<int>(entry.type()));
    addField(fields, inside(path, "original.averageMass"), original.averageMass());
    addField(fields, inside(path, "original.sequence"), original.sequence());
    addField(fields, inside(path, "original.steps"),
             static_cast<int>(original.transformations().size()));
}

inline void addField(Fields* fields, const std::string& path, const Fields& known)
{
    for (const auto& [name, text] : known.list())
        fields->append(inside(path, name), text);
}

template <typename T>
Fields fieldsOf(const T& value)
{
    Fields fields;
    addField(&fields, std::string(), value);
    return fields;
}

/// The fields that differ, a line each.
inline std::string differingLines(const Fields& one, const Fields& other)
{
    std::map<std::string, std::string> others(other.list().begin(), other.list().end());
    std::string lines;
    for (const auto& [path, text] : one.list()) {
        const auto found = others.extract(path);
        if (!found)
            lines += path + ": " + text + " and no such field\n";
        else if (found.mapped() != text)
            lines += path + ": " + text + " and " + found.mapped() + '\n';
    }
    for (const auto& [path, text] : others)
        lines += path + ": no such field and " + text + '\n';
    return lines;
}

/// The differences of any two values that have fields; "" if all are the same.
template <typename A, typename B>
std::string differences(const A& one, const B& other)
{
    return differingLines(fieldsOf(one), fieldsOf(other));
}

} // namespace fields
