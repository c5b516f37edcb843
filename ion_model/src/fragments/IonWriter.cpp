#include "fragments/IonWriter.h"

#include "fragments/SeriesMasses.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <numeric>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

constexpr int largestCharge = 10000;
constexpr int mostHydrogens = 127;
constexpr int unlimited = std::numeric_limits<int>::max();

bool hasLoss(const BackboneGroup& group, const NeutralLoss& loss)
{
    return std::find(group.losses.begin(), group.losses.end(), loss) != group.losses.end();
}

std::vector<qsizetype> allOf(std::span<const BackboneChain> chains)
{
    std::vector<qsizetype> indices(chains.size());
    std::iota(indices.begin(), indices.end(), 0);
    return indices;
}

} // namespace

IonWriter::IonWriter(const Backbone& backbone, const IonOptions& options, FragmentIons& ions)
    : m_backbone(backbone)
    , m_options(options)
    , m_ions(ions)
{
}

std::optional<Error> IonWriter::write()
{
    clear();
    for (const int charge : m_options.charges) {
        if (charge > largestCharge || charge < -largestCharge)
            return Error{u"expected charges from -10000 to 10000"_s};
    }
    for (const int hydrogens : m_options.hydrogens) {
        if (hydrogens > mostHydrogens || hydrogens < -mostHydrogens)
            return Error{u"expected at most 127 hydrogens more or less"_s};
    }
    const auto failure = isPlain() ? writePlain() : writeAll();
    if (failure)
        clear();
    return failure;
}

void IonWriter::clear()
{
    m_ions.m_size = 0;
    m_ions.m_runs.clear();
    m_ions.m_sums.clear();
    m_ions.m_losses.resize(1);
}

/// One chain that nothing but its units and ends belongs to, whose ions lose nothing: what a search
/// asks for millions of times.
bool IonWriter::isPlain() const
{
    if (m_backbone.chains().size() != 1 || !m_backbone.links().empty() || !m_options.losses.empty())
        return false;
    const BackboneChain& chain = m_backbone.chains()[0];
    const bool isBare = chain.lossy.empty() && chain.open.empty() && chain.labile.empty();
    return isBare && std::all_of(m_options.series.begin(), m_options.series.end(),
                                 [](Series s) { return isLeftSeries(s) || isRightSeries(s); });
}

IonWriter::Chain IonWriter::sumUp(qsizetype index)
{
    const BackboneChain& chain = m_backbone.chains()[std::size_t(index)];
    const std::size_t size = chain.units.size();
    const std::size_t start = m_ions.m_sums.size();
    m_ions.m_sums.resize(start + size + 1);
    double* const sums = m_ions.m_sums.data() + start;
    double sum = chain.leftGroup.monoisotopic;
    sums[0] = sum;
    const bool hasLinkages = !chain.linkages.empty();
    for (std::size_t i = 0; i < size; ++i) {
        if (hasLinkages && i > 0)
            sum += chain.linkages[i - 1].monoisotopic;
        sum += chain.units[i].monoisotopic;
        sums[i + 1] = sum;
    }
    const double trailing = hasLinkages ? chain.linkages.back().monoisotopic : 0.0;
    return {&chain, start, sum + trailing + chain.rightGroup.monoisotopic, index, qsizetype(size)};
}

std::optional<Error> IonWriter::writePlain()
{
    const Chain chain = sumUp(0);
    const Polymer polymer = chain.chain->polymer;
    const NumberSpan numbers{1, chain.size - 1};
    for (const Series series : m_options.series) {
        if (!arises(series, polymer))
            continue;
        for (const int hydrogens : m_options.hydrogens) {
            for (const int charge : m_options.charges) {
                if (charge != 0)
                    writeRun({series, hydrogens, charge, 0}, chain, numbers, 0.0, 0);
            }
        }
    }
    return {};
}

std::optional<Error> IonWriter::writeAll()
{
    m_losses.emplace(m_backbone, m_options);
    if (m_losses->isTooLarge())
        return Error{u"expected at most 1000 combinations of losses"_s};
    for (const LossSet& set : m_losses->sets()) {
        if (!set.label.isEmpty())
            m_ions.m_losses.push_back(set.label);
    }
    if (auto failure = plan())
        return failure;
    for (const Series series : m_options.series) {
        for (const int hydrogens : m_options.hydrogens) {
            for (const int charge : m_options.charges) {
                for (std::size_t loss = 0; charge != 0 && loss < m_losses->sets().size(); ++loss)
                    writeKind({series, hydrogens, charge, loss});
            }
        }
    }
    return {};
}

std::optional<Error> IonWriter::plan()
{
    for (qsizetype i = 0; i < std::ssize(m_backbone.chains()); ++i) {
        m_chains.push_back(sumUp(i));
        const Chain& chain = m_chains.back();
        const NumberSpan numbers{1, chain.size - 1};
        const auto left = openVariants(*chain.chain, UnitRange::left(chain.size), numbers);
        const auto right = openVariants(*chain.chain, UnitRange::right(chain.size), numbers);
        if (!left || !right)
            return Error{u"expected at most 16 ways in which one ion holds open groups"_s, -1, i};
        m_plans.push_back({cutSegments(m_backbone, i), *left, *right});
    }
    return {};
}

void IonWriter::writeKind(const Kind& kind)
{
    if (kind.series == Series::Precursor) {
        writePrecursor(kind);
        return;
    }
    for (const Chain& chain : m_chains) {
        if (!arises(kind.series, chain.chain->polymer))
            continue;
        if (kind.series == Series::Immonium)
            writeImmonium(kind, chain);
        else if (kind.series == Series::Internal)
            writeInternal(kind, chain);
        else
            writeTerminal(kind, chain);
    }
}

void IonWriter::writeTerminal(const Kind& kind, const Chain& chain)
{
    const bool isLeft = isLeftSeries(kind.series);
    const Plan& plan = m_plans[std::size_t(chain.index)];
    const UnitRange range = isLeft ? UnitRange::left(chain.size) : UnitRange::right(chain.size);
    const std::vector<OpenVariant>& variants = isLeft ? plan.left : plan.right;
    for (const CutSegment& segment : plan.segments) {
        const CutSide& side = isLeft ? segment.left : segment.right;
        const NumberSpan cuts =
            isLeft ? NumberSpan{segment.firstCut, segment.lastCut}
                   : NumberSpan{chain.size - segment.lastCut, chain.size - segment.firstCut};
        for (std::size_t i = 0; i < variants.size(); ++i) {
            const NumberSpan numbers = numbersWithLosses(kind, chain, range, variants[i],
                                                         side.chains, cuts & variants[i].numbers);
            writeRun(kind, chain, numbers, side.mass + variants[i].mass, i);
        }
    }
}

/// The whole molecule with its labile groups, and without them where it has any.
void IonWriter::writePrecursor(const Kind& kind)
{
    const LossSet& set = m_losses->sets()[kind.loss];
    const std::vector<qsizetype> chains = allOf(m_backbone.chains());
    for (std::size_t i = 0; i < set.times.size(); ++i) {
        if (set.times[i] > holdersInChains(m_losses->kinds()[i], chains))
            return;
    }
    double labile = 0.0;
    bool hasLabile = false;
    for (const BackboneChain& chain : m_backbone.chains()) {
        hasLabile = hasLabile || !chain.labile.empty();
        for (const BackboneGroup& group : chain.labile)
            labile += group.masses.monoisotopic;
    }
    if (m_chains.empty())
        return;
    const double mass = m_backbone.masses().monoisotopic + chargedMass(kind, Polymer::Peptide);
    *appendRun(kind, m_chains.front(), {0, 0}, 0) = mass / std::abs(kind.charge);
    if (hasLabile)
        *appendRun(kind, m_chains.front(), {0, 0}, 1) = (mass - labile) / std::abs(kind.charge);
}

void IonWriter::writeImmonium(const Kind& kind, const Chain& chain)
{
    for (qsizetype unit = 0; unit < chain.size; ++unit) {
        if (!isLinked(m_backbone, chain.index, unit))
            writeMiddle(kind, chain, unit, {1, 1});
    }
}

/// From each unit but the first to each unit but the last, as far as no link ends there.
void IonWriter::writeInternal(const Kind& kind, const Chain& chain)
{
    for (qsizetype start = 1; start < chain.size - 1; ++start) {
        const qsizetype end = internalEnd(m_backbone, chain.index, start);
        writeMiddle(kind, chain, start, {2, end - start});
    }
}

/// Ions of one, two and more units from `start` on.
void IonWriter::writeMiddle(const Kind& kind, const Chain& chain, qsizetype start,
                            NumberSpan numbers)
{
    const UnitRange range = UnitRange::middle(start, chain.size);
    // One residue or a growing piece holds what a piece from the left end would at most.
    const auto variants = openVariants(*chain.chain, range, numbers);
    if (!variants || numbers.isEmpty())
        return;
    const double* const sums = m_ions.m_sums.data() + chain.sums;
    for (std::size_t i = 0; i < variants->size(); ++i) {
        const OpenVariant& variant = (*variants)[i];
        const NumberSpan held = numbersWithLosses(kind, chain, range, variant, {}, variant.numbers);
        if (held.isEmpty())
            continue;
        double* mz = appendRun(kind, chain, held, i);
        IonRun& run = m_ions.m_runs.back();
        run.start = kind.series == Series::Internal ? quint32(start + 1) : 0;
        run.firstNumber = quint32(range.end(held.first));
        const double added = variant.mass + chargedMass(kind, chain.chain->polymer);
        for (qsizetype number = held.first; number <= held.last; ++number)
            *mz++ = (sums[range.end(number)] - sums[start] + added) / std::abs(kind.charge);
    }
}

/// What an ion has beside its units, its end's group and what hangs on it, charges included.
double IonWriter::chargedMass(const Kind& kind, Polymer polymer) const
{
    const BreakMasses& breaks = m_backbone.breaks();
    const double lost = m_losses ? m_losses->sets()[kind.loss].mass : 0.0;
    const double series =
        kind.series == Series::Precursor ? 0.0 : seriesMass(kind.series, polymer, breaks);
    return series + kind.hydrogens * breaks.hydrogen.monoisotopic + kind.charge * breaks.proton -
           lost;
}

/// Makes room for the m/z of a run, which are to be written from the address that is returned on.
double* IonWriter::appendRun(const Kind& kind, const Chain& chain, NumberSpan numbers,
                             std::size_t variant)
{
    const auto count = std::size_t(numbers.last - numbers.first + 1);
    const std::size_t start = m_ions.m_size;
    m_ions.m_size += count;
    if (m_ions.m_mz.size() < m_ions.m_size)
        m_ions.m_mz.resize(std::max(m_ions.m_size, 2 * m_ions.m_mz.size()));
    m_ions.m_runs.push_back({quint32(numbers.first), quint32(count), 0, qint16(kind.charge),
                             quint16(kind.loss), kind.series, qint8(kind.hydrogens),
                             quint8(chain.index), quint8(variant)});
    return m_ions.m_mz.data() + start;
}

/// Writes the m/z of terminal ions. The sum of a right ion is what all units come to less what
/// stands left of it.
void IonWriter::writeRun(const Kind& kind, const Chain& chain, NumberSpan numbers, double mass,
                         std::size_t variant)
{
    if (numbers.isEmpty())
        return;
    const BackboneChain& units = *chain.chain;
    const PartAtBreak part = partAtBreak(kind.series, units.polymer);
    const double added = mass + chargedMass(kind, units.polymer);
    const double scale = 1.0 / std::abs(kind.charge);
    const qsizetype count = numbers.last - numbers.first + 1;
    double* const mz = appendRun(kind, chain, numbers, variant);
    if (isLeftSeries(kind.series)) {
        const qsizetype first = numbers.first;
        const double* const sums = m_ions.m_sums.data() + chain.sums + first;
        for (qsizetype i = 0; i < count; ++i)
            mz[i] = (sums[i] + added) * scale;
        if (part == PartAtBreak::WithLinkage) {
            for (qsizetype i = 0; i < count; ++i)
                mz[i] += units.linkages[std::size_t(first + i - 1)].monoisotopic * scale;
        } else if (part == PartAtBreak::WithoutBase) {
            for (qsizetype i = 0; i < count; ++i)
                mz[i] -= units.bases[std::size_t(first + i - 1)].monoisotopic * scale;
        }
        return;
    }
    const qsizetype lastCut = chain.size - numbers.first;
    const double* const sums = m_ions.m_sums.data() + chain.sums + lastCut;
    const double total = chain.rightTotal + added;
    for (qsizetype i = 0; i < count; ++i)
        mz[i] = (total - sums[-i]) * scale;
    if (part == PartAtBreak::None && !units.linkages.empty()) {
        for (qsizetype i = 0; i < count; ++i)
            mz[i] -= units.linkages[std::size_t(lastCut - i - 1)].monoisotopic * scale;
    }
}

/// The numbers whose ions hold enough of what is lost. An ion holds what shorter ones hold.
NumberSpan IonWriter::numbersWithLosses(const Kind& kind, const Chain& chain,
                                        const UnitRange& range, const OpenVariant& variant,
                                        const std::vector<qsizetype>& others,
                                        NumberSpan numbers) const
{
    const LossSet& set = m_losses->sets()[kind.loss];
    for (std::size_t i = 0; i < set.times.size(); ++i) {
        if (set.times[i] == 0)
            continue;
        const LossKind& loss = m_losses->kinds()[i];
        int held = holdersInChains(loss, others);
        if (loss.isOfGroup)
            held += holdersAmongOpen(*chain.chain, variant, loss.loss);
        const auto isEnough = [&](qsizetype number) {
            const int own = holders(loss, *chain.chain, range.begin(number), range.end(number));
            return own == unlimited || held == unlimited || own + held >= set.times[i];
        };
        while (!numbers.isEmpty() && !isEnough(numbers.first))
            ++numbers.first;
    }
    return numbers;
}

/// How many units from `begin` to before `end` can show a loss.
int IonWriter::holders(const LossKind& loss, const BackboneChain& chain, qsizetype begin,
                       qsizetype end) const
{
    if (loss.isOfGroup) {
        return int(std::count_if(chain.lossy.begin(), chain.lossy.end(), [&](const auto& lossy) {
            return lossy.first >= begin && lossy.first < end && hasLoss(lossy.second, loss.loss);
        }));
    }
    if (loss.residues.isEmpty())
        return unlimited;
    const QStringView letters = QStringView(chain.letters).sliced(begin, end - begin);
    return int(std::count_if(letters.begin(), letters.end(),
                             [&](QChar letter) { return loss.residues.contains(letter); }));
}

/// The same for whole chains, with their open groups.
int IonWriter::holdersInChains(const LossKind& loss, const std::vector<qsizetype>& chains) const
{
    int sum = 0;
    for (const qsizetype index : chains) {
        const BackboneChain& chain = m_backbone.chains()[std::size_t(index)];
        const int own = holders(loss, chain, 0, std::ssize(chain.units));
        if (own == unlimited)
            return unlimited;
        sum += own;
        if (loss.isOfGroup) {
            sum += int(std::count_if(chain.open.begin(), chain.open.end(), [&](const auto& open) {
                return hasLoss(open.group, loss.loss);
            }));
        }
    }
    return sum;
}

} // namespace ions
