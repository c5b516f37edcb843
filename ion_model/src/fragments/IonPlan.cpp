#include "fragments/IonPlan.h"

#include "fragments/SeriesMasses.h"

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

Polymer polymerOf(const Backbone& backbone)
{
    return backbone.chains().empty() ? Polymer::Peptide : backbone.chains()[0].polymer;
}

constexpr int largestCharge = 10000;
constexpr int mostHydrogens = 127;

/// Whether a number is larger than `most`, whatever its sign.
bool hasMoreThan(int most, const std::vector<int>& numbers)
{
    return std::any_of(numbers.begin(), numbers.end(),
                       [most](int number) { return number > most || number < -most; });
}

std::optional<Error> refusalOf(const IonOptions& options, const LossTable& losses)
{
    if (hasMoreThan(largestCharge, options.charges))
        return Error{u"expected charges from -10000 to 10000"_s};
    if (hasMoreThan(mostHydrogens, options.hydrogens))
        return Error{u"expected at most 127 hydrogens more or less"_s};
    if (losses.isTooLarge())
        return Error{u"expected at most 1000 combinations of losses"_s};
    return {};
}

bool isOfEnd(Series series)
{
    return isLeftSeries(series) || isRightSeries(series);
}

IonSums sumsOf(Series series, Polymer polymer)
{
    const PartAtBreak part = partAtBreak(series, polymer);
    if (isRightSeries(series))
        return part == PartAtBreak::WithLinkage ? IonSums::RightWithLinkage : IonSums::Right;
    if (part == PartAtBreak::WithLinkage)
        return IonSums::LeftWithLinkage;
    return part == PartAtBreak::WithoutBase ? IonSums::LeftWithoutBase : IonSums::Left;
}

} // namespace

IonRun IonKind::run() const
{
    IonRun run;
    run.charge = qint16(charge);
    run.loss = quint16(loss);
    run.series = series;
    run.hydrogens = qint8(hydrogens);
    return run;
}

IonPlan::IonPlan(const Backbone& backbone, const IonOptions& options)
    : m_options(options)
    , m_breaks(backbone.breaks())
    , m_polymer(polymerOf(backbone))
    , m_losses(backbone, options)
    , m_refusal(refusalOf(options, m_losses))
{
    if (m_refusal)
        return;
    listKinds();
    if (std::all_of(options.series.begin(), options.series.end(), isOfEnd))
        listEndKinds(m_polymer);
}

bool IonPlan::isFor(const Backbone& backbone, const IonOptions& options) const
{
    return m_options == options && m_polymer == polymerOf(backbone) &&
           m_breaks == backbone.breaks() && m_losses.hasGroupsOf(backbone, options);
}

void IonPlan::listKinds()
{
    for (const Series series : m_options.series) {
        for (const int hydrogens : m_options.hydrogens) {
            for (const int charge : m_options.charges) {
                for (std::size_t loss = 0; charge != 0 && loss < m_losses.sets().size(); ++loss)
                    m_kinds.push_back({series, hydrogens, charge, loss});
            }
        }
    }
}

void IonPlan::listEndKinds(Polymer polymer)
{
    for (const IonKind& kind : m_kinds) {
        if (!arises(kind.series, polymer))
            continue;
        m_endKinds.push_back({kind, chargedMass(kind, polymer), 1.0 / std::abs(kind.charge),
                              sumsOf(kind.series, polymer)});
        m_isUniform = m_isUniform && m_losses.sets()[kind.loss].isOfAny;
    }
}

double IonPlan::chargedMass(const IonKind& kind, Polymer polymer) const
{
    const double series =
        isOfMolecule(kind.series) ? 0.0 : seriesMass(kind.series, polymer, m_breaks);
    return series + kind.hydrogens * m_breaks.hydrogen.monoisotopic +
           kind.charge * m_breaks.proton - m_losses.sets()[kind.loss].mass;
}

} // namespace ions
