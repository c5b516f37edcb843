#include "FragmentIons.h"
#include "fragments/SeriesMasses.h"

#include <QLatin1StringView>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

/// By the order of the enumeration.
constexpr std::array<const char*, 19> names = {
    "a", "a.", "b",  "c",         "c.",       "d",        "a-B", "w",       "x",       "x.",
    "y", "z",  "z.", "precursor", "immonium", "internal", "Y",   "oxonium", "reporter"};

bool isDotted(Series series)
{
    return series == Series::ADot || series == Series::CDot || series == Series::XDot ||
           series == Series::ZDot;
}

BreakGroups peptideGroups(Series series)
{
    switch (series) {
    case Series::A:
    case Series::Immonium:
        return {.carbonMonoxide = -1};
    case Series::C:
        return {.ammonia = 1};
    case Series::X:
        return {.water = 1, .carbonMonoxide = 1, .hydrogen = -2};
    case Series::Y:
        return {.water = 1};
    case Series::Z:
        return {.water = 1, .ammonia = -1};
    default:
        return {};
    }
}

BreakGroups oligoGroups(Series series)
{
    switch (series) {
    case Series::AMinusB:
        return {.hydrogen = -1};
    case Series::B:
    case Series::D:
    case Series::W:
    case Series::Y:
        return {.water = 1};
    default:
        return {};
    }
}

/// The series that a dotted one has one hydrogen more than.
Series undotted(Series series)
{
    return isDotted(series) ? Series(quint8(series) - 1) : series;
}

} // namespace

QString seriesName(Series series)
{
    const auto index = std::size_t(series);
    return QLatin1StringView(index < names.size() ? names[index] : "");
}

std::optional<Series> seriesNamed(QStringView name)
{
    const auto found = std::find_if(names.begin(), names.end(), [name](const char* known) {
        return name == QLatin1StringView(known);
    });
    if (found == names.end())
        return {};
    return Series(found - names.begin());
}

bool isLeftSeries(Series series)
{
    return series <= Series::AMinusB;
}

bool isRightSeries(Series series)
{
    return series >= Series::W && series <= Series::ZDot;
}

bool isOfMolecule(Series series)
{
    return series == Series::Precursor || series == Series::GlycanY || series == Series::Oxonium ||
           series == Series::Reporter;
}

bool arises(Series series, Polymer polymer)
{
    switch (series) {
    case Series::D:
    case Series::AMinusB:
    case Series::W:
        return polymer == Polymer::Oligonucleotide;
    case Series::Immonium:
    case Series::Internal:
        return polymer == Polymer::Peptide;
    default:
        return polymer == Polymer::Peptide || !isDotted(series);
    }
}

BreakGroups seriesGroups(Series series, Polymer polymer)
{
    BreakGroups groups = polymer == Polymer::Peptide ? peptideGroups(undotted(series))
                                                     : oligoGroups(undotted(series));
    groups.hydrogen += isDotted(series) ? 1 : 0;
    return groups;
}

double massOf(const BreakGroups& groups, const BreakMasses& breaks)
{
    return groups.water * breaks.water.monoisotopic +
           groups.carbonMonoxide * breaks.carbonMonoxide.monoisotopic +
           groups.ammonia * breaks.ammonia.monoisotopic +
           groups.hydrogen * breaks.hydrogen.monoisotopic;
}

double seriesMass(Series series, Polymer polymer, const BreakMasses& breaks)
{
    return massOf(seriesGroups(series, polymer), breaks);
}

PartAtBreak partAtBreak(Series series, Polymer polymer)
{
    if (polymer == Polymer::Peptide)
        return PartAtBreak::None;
    switch (series) {
    case Series::C:
    case Series::D:
    case Series::W:
    case Series::X:
        return PartAtBreak::WithLinkage;
    case Series::AMinusB:
        return PartAtBreak::WithoutBase;
    default:
        return PartAtBreak::None;
    }
}

} // namespace ions
