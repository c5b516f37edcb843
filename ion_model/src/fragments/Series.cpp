#include "FragmentIons.h"
#include "fragments/SeriesMasses.h"

#include <QLatin1StringView>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

/// By the order of the enumeration.
constexpr std::array<const char*, 16> names = {"a",   "a.",        "b",        "c",       "c.", "d",
                                               "a-B", "w",         "x",        "x.",      "y",  "z",
                                               "z.",  "precursor", "immonium", "internal"};

bool isDotted(Series series)
{
    return series == Series::ADot || series == Series::CDot || series == Series::XDot ||
           series == Series::ZDot;
}

double peptideSeriesMass(Series series, const BreakMasses& breaks)
{
    switch (series) {
    case Series::A:
    case Series::Immonium:
        return -breaks.carbonMonoxide.monoisotopic;
    case Series::C:
        return breaks.ammonia.monoisotopic;
    case Series::X:
        return breaks.water.monoisotopic + breaks.carbonMonoxide.monoisotopic -
               2.0 * breaks.hydrogen.monoisotopic;
    case Series::Y:
        return breaks.water.monoisotopic;
    case Series::Z:
        return breaks.water.monoisotopic - breaks.ammonia.monoisotopic;
    default:
        return 0.0;
    }
}

double oligoSeriesMass(Series series, const BreakMasses& breaks)
{
    switch (series) {
    case Series::AMinusB:
        return -breaks.hydrogen.monoisotopic;
    case Series::B:
    case Series::D:
    case Series::W:
    case Series::Y:
        return breaks.water.monoisotopic;
    default:
        return 0.0;
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

double seriesMass(Series series, Polymer polymer, const BreakMasses& breaks)
{
    const double mass = polymer == Polymer::Peptide ? peptideSeriesMass(undotted(series), breaks)
                                                    : oligoSeriesMass(undotted(series), breaks);
    return isDotted(series) ? mass + breaks.hydrogen.monoisotopic : mass;
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
