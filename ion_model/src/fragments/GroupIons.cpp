#include "fragments/GroupIons.h"

#include "fragments/BackboneGroups.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

constexpr std::size_t mostIons = 1000;
constexpr int mostInOxoniumIon = 3;

/// The sum of two counts, or the largest count: so many make too many ions in any case.
int sumThatFits(int left, int right)
{
    return int(std::min<qint64>(qint64(left) + right, std::numeric_limits<int>::max()));
}

/// The monosaccharides of all glycans, each kind once.
std::vector<BackboneSugar> sugarsOf(const Backbone& backbone)
{
    std::vector<BackboneSugar> sugars;
    visitAllGroups(backbone, [&sugars](const BackboneGroup& group) {
        for (const BackboneSugar& sugar : group.glycan) {
            const auto known =
                std::find_if(sugars.begin(), sugars.end(),
                             [&](const BackboneSugar& one) { return one.name == sugar.name; });
            if (known == sugars.end())
                sugars.push_back(sugar);
            else
                known->count = sumThatFits(known->count, sugar.count);
        }
    });
    return sugars;
}

/// How many of each kind of monosaccharide.
using SugarCounts = std::vector<int>;

int sumOf(const SugarCounts& counts)
{
    int sum = 0;
    for (const int count : counts)
        sum += count;
    return sum;
}

/// Goes on to the next counts, none above what there are; false behind the last.
bool advance(SugarCounts* counts, const std::vector<BackboneSugar>& sugars)
{
    for (std::size_t i = sugars.size(); i-- > 0;) {
        if ((*counts)[i] < sugars[i].count) {
            ++(*counts)[i];
            return true;
        }
        (*counts)[i] = 0;
    }
    return false;
}

/// Monosaccharides as one piece.
LoneIon pieceOf(const SugarCounts& counts, const std::vector<BackboneSugar>& sugars)
{
    LoneIon piece;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        if (counts[i] == 0)
            continue;
        piece.name += sugars[i].name;
        if (counts[i] != 1)
            piece.name += QString::number(counts[i]);
        piece.mass += counts[i] * sugars[i].masses.monoisotopic;
        // What does not fit a count makes a composition that does not weigh the mass.
        static_cast<void>(piece.composition.add(sugars[i].composition, counts[i]));
    }
    return piece;
}

/// An ion that a monosaccharide breaks into.
struct RingFragment
{
    const char16_t* sugar;
    const char16_t* name; ///< What it has lost, as it stands behind the sugar.
    BreakGroups lost;
};

/// The ions of Domon and Costello's B type that spectra of glycopeptides show: m/z 145 and 127 of
/// hexoses, 186, 168, 144, 138 and 126 of N-acetylhexosamines, 274 and 290 of sialic acids.
constexpr std::array<RingFragment, 9> ringFragments = {{
    {u"Hex", u"-H2O", {.water = 1}},
    {u"Hex", u"-2H2O", {.water = 2}},
    {u"HexNAc", u"-H2O", {.water = 1}},
    {u"HexNAc", u"-2H2O", {.water = 2}},
    {u"HexNAc", u"-C2H4O2", {.carbonMonoxide = 2, .hydrogen = 4}},
    {u"HexNAc", u"-CH6O3", {.water = 2, .carbonMonoxide = 1, .hydrogen = 2}},
    {u"HexNAc", u"-C2H6O3", {.water = 1, .carbonMonoxide = 2, .hydrogen = 4}},
    {u"NeuAc", u"-H2O", {.water = 1}},
    {u"NeuGc", u"-H2O", {.water = 1}},
}};

void addRingFragments(const BackboneSugar& sugar, const BreakMasses& breaks,
                      std::vector<LoneIon>* ions)
{
    for (const RingFragment& fragment : ringFragments) {
        if (sugar.name == QStringView(fragment.sugar))
            ions->push_back({sugar.name + QStringView(fragment.name),
                             sugar.masses.monoisotopic - massOf(fragment.lost, breaks),
                             sugar.composition, fragment.lost});
    }
}

/// Some monosaccharides, the last of which was this kind.
struct SmallPiece
{
    SugarCounts counts;
    std::size_t last = 0;
};

/// Each piece with one monosaccharide more, none of an earlier kind than its last: so each comes
/// once.
std::vector<SmallPiece> longerPieces(const std::vector<SmallPiece>& pieces,
                                     const std::vector<BackboneSugar>& sugars)
{
    std::vector<SmallPiece> longer;
    for (const SmallPiece& piece : pieces) {
        for (std::size_t kind = piece.last; kind < sugars.size(); ++kind) {
            if (piece.counts[kind] == sugars[kind].count)
                continue;
            longer.push_back({piece.counts, kind});
            ++longer.back().counts[kind];
            if (longer.size() > mostIons)
                return longer;
        }
    }
    return longer;
}

} // namespace

std::optional<std::vector<GlycanCut>> glycanCuts(const Backbone& backbone)
{
    const std::vector<BackboneSugar> sugars = sugarsOf(backbone);
    qint64 ways = 1;
    SugarCounts all;
    for (const BackboneSugar& sugar : sugars) {
        all.push_back(sugar.count);
        ways *= qint64(sugar.count) + 1;
        if (ways > qint64(mostIons))
            return {};
    }
    std::vector<GlycanCut> cuts;
    SugarCounts lost(sugars.size(), 0);
    while (advance(&lost, sugars)) {
        const LoneIon piece = pieceOf(lost, sugars);
        cuts.push_back({piece.name, piece.mass, piece.composition, sumOf(all) - sumOf(lost)});
    }
    std::stable_sort(cuts.begin(), cuts.end(), [](const GlycanCut& left, const GlycanCut& right) {
        return left.left < right.left;
    });
    return cuts;
}

std::optional<std::vector<LoneIon>> oxoniumIons(const Backbone& backbone)
{
    const std::vector<BackboneSugar> sugars = sugarsOf(backbone);
    std::vector<LoneIon> ions;
    for (const BackboneSugar& sugar : sugars) {
        ions.push_back({sugar.name, sugar.masses.monoisotopic, sugar.composition, {}});
        addRingFragments(sugar, backbone.breaks(), &ions);
    }
    std::vector<SmallPiece> pieces = {{SugarCounts(sugars.size(), 0), 0}};
    for (int size = 1; size <= mostInOxoniumIon; ++size) {
        pieces = longerPieces(pieces, sugars);
        if (pieces.size() + ions.size() > mostIons)
            return {};
        for (const SmallPiece& piece : pieces) {
            if (size > 1)
                ions.push_back(pieceOf(piece.counts, sugars));
        }
    }
    return ions;
}

std::vector<LoneIon> reporterIons(const Backbone& backbone)
{
    std::vector<LoneIon> ions;
    visitAllGroups(backbone, [&ions](const BackboneGroup& group) {
        for (const ReporterIon& reporter : group.reporters) {
            const bool isKnown = std::any_of(ions.begin(), ions.end(), [&](const LoneIon& ion) {
                return ion.name == reporter.name;
            });
            if (!isKnown)
                ions.push_back(
                    {reporter.name, reporter.masses.monoisotopic, reporter.composition, {}});
        }
    });
    return ions;
}

std::vector<LoneIon> loneIons(const Backbone& backbone, Series series)
{
    return series == Series::Reporter ? reporterIons(backbone)
                                      : oxoniumIons(backbone).value_or(std::vector<LoneIon>());
}

} // namespace ions
