#include "fragments/IonWriter.h"

#include "backbone/ChainEnds.h"
#include "fragments/SeriesMasses.h"
#include "fragments/WholeSeries.h"

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

Error tooManyOfGlycans()
{
    return {u"expected at most 1000 ions of the glycans"_s};
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
    m_ions.m_size = 0;
    m_ions.m_runs.clear();
    m_ions.m_isUniform = false;
    usePlan();
    if (isPlain() && m_plan->isUniform()) {
        writeUniform(chainAt(0, m_backbone.m_sums.data()));
        return {};
    }
    if (m_plan->refusal())
        return m_plan->refusal();
    const auto refusal = isPlain() ? writePlain() : writeAll();
    if (refusal) {
        m_ions.m_size = 0;
        m_ions.m_runs.clear();
    }
    return refusal;
}

/// Takes the plan of the ions before, if it will do.
void IonWriter::usePlan()
{
    auto& plan = m_ions.m_plan;
    if (!plan || !plan->isFor(m_backbone, m_options)) {
        plan = std::make_shared<const IonPlan>(m_backbone, m_options);
        m_ions.m_losses.clear();
        for (const LossSet& set : plan->losses().sets())
            m_ions.m_losses.push_back(set.label);
    }
    m_plan = plan.get();
}

/// One chain whose groups sit where they are known to, and ions of its ends: what a search asks for
/// millions of times.
bool IonWriter::isPlain() const
{
    if (m_backbone.chains().size() != 1 || !m_backbone.links().empty())
        return false;
    const BackboneChain& chain = m_backbone.chains()[0];
    return chain.units.size() > 1 && chain.open.empty() && !m_plan->endKinds().empty();
}

IonWriter::Chain IonWriter::chainAt(qsizetype index, const double* sums) const
{
    const BackboneChain& chain = m_backbone.chains()[std::size_t(index)];
    const std::size_t size = chain.units.size();
    const double trailing = chain.linkages.empty() ? 0.0 : chain.linkages.back().monoisotopic;
    const double end = chainEnds(chain, m_backbone.breaks()).right.monoisotopic;
    return {&chain, sums, sums[size] + trailing + end, index, qsizetype(size)};
}

std::optional<Error> IonWriter::writePlain()
{
    const Chain chain = chainAt(0, m_backbone.m_sums.data());
    const NumberSpan numbers{1, chain.size - 1};
    const OpenVariant none{0.0, numbers, {}};
    makeRoom(m_plan->endKinds().size() * std::size_t(numbers.last));
    for (const auto& [kind, added, scale, sums] : m_plan->endKinds()) {
        const UnitRange range =
            isLeftSeries(kind.series) ? UnitRange::left(chain.size) : UnitRange::right(chain.size);
        writeRun(kind, chain, holders().numbers(kind.loss, *chain.chain, range, none, {}, numbers),
                 0.0, 0);
    }
    return {};
}

std::optional<Error> IonWriter::writeAll()
{
    m_ions.m_losses.resize(m_plan->losses().sets().size()); // without those of glycans before
    auto failure = plan();
    for (auto kind = m_plan->kinds().begin(); !failure && kind != m_plan->kinds().end(); ++kind)
        failure = writeKind(*kind);
    return failure;
}

/// Writes runs of equal length, a few numbers of all of them at a time.
void IonWriter::writeUniform(const Chain& chain)
{
    const auto count = std::size_t(chain.size - 1);
    const std::vector<EndKind>& kinds = m_plan->endKinds();
    makeRoom(count * kinds.size());
    m_ions.m_size = count * kinds.size();
    m_ions.m_isUniform = true;
    writeWholeSeries(kinds, *chain.chain, chain.sums, chain.rightTotal, m_ions.m_mz.data());
}

/// Lays out the cuts of the chains, and how the ions of an end that is asked for hold open groups.
std::optional<Error> IonWriter::plan()
{
    const auto isWanted = [this](bool (*isOfEnd)(Series)) {
        return std::any_of(m_options.series.begin(), m_options.series.end(), isOfEnd);
    };
    const bool hasLeft = isWanted(isLeftSeries);
    const bool hasRight = isWanted(isRightSeries);
    const double* sums = m_backbone.m_sums.data();
    for (qsizetype i = 0; i < std::ssize(m_backbone.chains()); ++i) {
        m_chains.push_back(chainAt(i, sums));
        const Chain& chain = m_chains.back();
        sums += chain.size + 1;
        const NumberSpan numbers{1, chain.size - 1};
        Plan plan{cutSegments(m_backbone, i), {}, {}};
        std::optional<Error> failure;
        if (hasLeft)
            failure = fill(&plan.left, chain, UnitRange::left(chain.size), numbers);
        if (hasRight && !failure)
            failure = fill(&plan.right, chain, UnitRange::right(chain.size), numbers);
        if (failure)
            return failure;
        m_plans.push_back(std::move(plan));
    }
    return {};
}

/// Lists the ways in which ions hold the open groups of their chain, or says that there are too
/// many.
std::optional<Error> IonWriter::fill(std::vector<OpenVariant>* variants, const Chain& chain,
                                     const UnitRange& range, NumberSpan numbers)
{
    auto listed = openVariants(*chain.chain, range, numbers);
    if (!listed)
        return Error{u"expected at most 16 ways in which one ion, and 256 in which all ions of "
                     u"an end hold open groups"_s,
                     -1, chain.index};
    *variants = *std::move(listed);
    return {};
}

std::optional<Error> IonWriter::writeKind(const IonKind& kind)
{
    if (isOfMolecule(kind.series))
        return m_chains.empty() ? std::optional<Error>() : writeWhole(kind);
    std::optional<Error> failure;
    for (auto chain = m_chains.begin(); !failure && chain != m_chains.end(); ++chain) {
        if (!arises(kind.series, chain->chain->polymer))
            continue;
        if (kind.series == Series::Immonium)
            failure = writeImmonium(kind, *chain);
        else if (kind.series == Series::Internal)
            failure = writeInternal(kind, *chain);
        else
            writeTerminal(kind, *chain);
    }
    return failure;
}

/// Ions of the molecule that no chain alone gives.
std::optional<Error> IonWriter::writeWhole(const IonKind& kind)
{
    switch (kind.series) {
    case Series::GlycanY:
        return kind.loss == 0 ? writeGlycans(kind) : std::nullopt;
    case Series::Oxonium:
        return writeLone(kind, oxoniumIons(m_backbone));
    case Series::Reporter:
        return writeLone(kind, reporterIons(m_backbone));
    default:
        writePrecursor(kind);
        return {};
    }
}

/// What the whole molecule comes to with the charges, shifts and losses of a kind.
double IonWriter::chargedWhole(const IonKind& kind) const
{
    return m_backbone.masses().monoisotopic + m_plan->chargedMass(kind, Polymer::Peptide);
}

/// The molecule with each part of its glycans. The losses of each kind stand behind those of the
/// plan.
std::optional<Error> IonWriter::writeGlycans(const IonKind& kind)
{
    const auto cuts = glycanCuts(m_backbone);
    if (!cuts)
        return tooManyOfGlycans();
    const std::size_t planned = m_plan->losses().sets().size();
    const double mass = chargedWhole(kind);
    for (std::size_t i = 0; i < cuts->size(); ++i) {
        const GlycanCut& cut = (*cuts)[i];
        *appendRun(kind, m_chains.front(), {cut.left, cut.left}, 0) =
            (mass - cut.mass) / std::abs(kind.charge);
        IonRun& run = m_ions.m_runs.back();
        run.start = quint32(i + 1);
        run.loss = quint16(planned + i);
        if (m_ions.m_losses.size() == planned + i)
            m_ions.m_losses.push_back(u"-["_s + cut.lost + u']');
    }
    return {};
}

/// Ions that groups give alone, with one proton.
std::optional<Error> IonWriter::writeLone(const IonKind& kind,
                                          const std::optional<std::vector<LoneIon>>& lone)
{
    if (!lone)
        return tooManyOfGlycans();
    if (lone->empty() || kind.loss != 0 || kind.charge != 1 || kind.hydrogens != 0)
        return {};
    double* mz = appendRun(kind, m_chains.front(), {1, std::ssize(*lone)}, 0);
    for (const LoneIon& ion : *lone)
        *mz++ = ion.mass + m_backbone.breaks().proton;
    return {};
}

void IonWriter::writeTerminal(const IonKind& kind, const Chain& chain)
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
            const NumberSpan numbers =
                holders().numbers(kind.loss, *chain.chain, range, variants[i], side.chains,
                                  cuts & variants[i].numbers);
            writeRun(kind, chain, numbers, side.mass + variants[i].mass, i);
        }
    }
}

/// The whole molecule with its labile groups, and without them where it has any.
void IonWriter::writePrecursor(const IonKind& kind)
{
    if (!holders().wholeShows(kind.loss))
        return;
    double labile = 0.0;
    bool hasLabile = false;
    for (const BackboneChain& chain : m_backbone.chains()) {
        hasLabile = hasLabile || !chain.labile.empty();
        for (const BackboneGroup& group : chain.labile)
            labile += group.masses.monoisotopic;
    }
    const double mass = chargedWhole(kind);
    *appendRun(kind, m_chains.front(), {0, 0}, 0) = mass / std::abs(kind.charge);
    if (hasLabile)
        *appendRun(kind, m_chains.front(), {0, 0}, 1) = (mass - labile) / std::abs(kind.charge);
}

std::optional<Error> IonWriter::writeImmonium(const IonKind& kind, const Chain& chain)
{
    std::optional<Error> failure;
    for (qsizetype unit = 0; !failure && unit < chain.size; ++unit) {
        if (!isLinked(m_backbone, chain.index, unit))
            failure = writeMiddle(kind, chain, unit, {1, 1});
    }
    return failure;
}

/// From each unit but the first to each unit but the last, as far as no link ends there.
std::optional<Error> IonWriter::writeInternal(const IonKind& kind, const Chain& chain)
{
    std::optional<Error> failure;
    for (qsizetype start = 1; !failure && start < chain.size - 1; ++start) {
        const qsizetype end = internalEnd(m_backbone, chain.index, start);
        failure = writeMiddle(kind, chain, start, {2, end - start});
    }
    return failure;
}

/// Ions of one, two and more units from `start` on.
std::optional<Error> IonWriter::writeMiddle(const IonKind& kind, const Chain& chain,
                                            qsizetype start, NumberSpan numbers)
{
    const UnitRange range = UnitRange::middle(start, chain.size);
    std::vector<OpenVariant> variants;
    const auto failure = fill(&variants, chain, range, numbers);
    if (failure || numbers.isEmpty())
        return failure;
    const double* const sums = chain.sums;
    for (std::size_t i = 0; i < variants.size(); ++i) {
        const OpenVariant& variant = variants[i];
        const NumberSpan held =
            holders().numbers(kind.loss, *chain.chain, range, variant, {}, variant.numbers);
        if (held.isEmpty())
            continue;
        double* mz = appendRun(kind, chain, held, i);
        IonRun& run = m_ions.m_runs.back();
        run.start = kind.series == Series::Internal ? quint32(start + 1) : 0;
        run.firstNumber = quint32(range.end(held.first));
        const double added = variant.mass + m_plan->chargedMass(kind, chain.chain->polymer);
        for (qsizetype number = held.first; number <= held.last; ++number)
            *mz++ = (sums[range.end(number)] - sums[start] + added) / std::abs(kind.charge);
    }
    return {};
}

/// Makes room for so many ions, and for no more.
void IonWriter::makeRoom(std::size_t ions)
{
    if (m_ions.m_mz.size() >= ions)
        return;
    m_ions.m_mz.reserve(ions);
    m_ions.m_mz.resize(ions);
}

/// Makes room for the m/z of a run, which are to be written from the address that is returned on.
double* IonWriter::appendRun(const IonKind& kind, const Chain& chain, NumberSpan numbers,
                             std::size_t variant)
{
    const auto count = std::size_t(numbers.last - numbers.first + 1);
    const std::size_t start = m_ions.m_size;
    if (m_ions.m_mz.size() < start + count)
        makeRoom(std::max(start + count, 2 * m_ions.m_mz.size()));
    IonRun run = kind.run();
    run.firstNumber = quint32(numbers.first);
    run.count = quint32(count);
    run.chain = quint8(chain.index);
    run.variant = quint8(variant);
    m_ions.m_runs.push_back(run);
    m_ions.m_size += count;
    return m_ions.m_mz.data() + start;
}

/// Writes the m/z of terminal ions. The sum of a right ion is what all units come to less what
/// stands left of it.
void IonWriter::writeRun(const IonKind& kind, const Chain& chain, NumberSpan numbers, double mass,
                         std::size_t variant)
{
    if (numbers.isEmpty())
        return;
    const BackboneChain& units = *chain.chain;
    const PartAtBreak part = partAtBreak(kind.series, units.polymer);
    const double added = mass + m_plan->chargedMass(kind, units.polymer);
    const double scale = 1.0 / std::abs(kind.charge);
    const qsizetype count = numbers.last - numbers.first + 1;
    double* const mz = appendRun(kind, chain, numbers, variant);
    if (isLeftSeries(kind.series)) {
        const qsizetype first = numbers.first;
        const double* const sums = chain.sums + first;
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
    const double* const sums = chain.sums + lastCut;
    const double total = chain.rightTotal + added;
    for (qsizetype i = 0; i < count; ++i)
        mz[i] = (total - sums[-i]) * scale;
    if (part == PartAtBreak::None && !units.linkages.empty()) {
        for (qsizetype i = 0; i < count; ++i)
            mz[i] -= units.linkages[std::size_t(lastCut - i - 1)].monoisotopic * scale;
    }
}

} // namespace ions
