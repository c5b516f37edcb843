#include "ByteReader.h"
#include "IonsBySearch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <set>

/// \file
/// A byte string is a molecule of up to three chains, with links, groups and labile parts, and the
/// options of its ions. Ions from an end are compared with a search through the molecule; of all
/// others, and of every list, the laws are asked. Masses are sums of eighths: no sum is rounded.

using namespace ions;

namespace {

constexpr double hydrogen = 1.0;
constexpr double proton = 0.875;

BreakMasses breaks()
{
    return {{hydrogen, hydrogen}, {28.0, 28.0}, {17.0, 17.0}, {18.0, 18.0}, proton};
}

Masses anyMass(ByteReader* bytes, double least)
{
    const double mass = least + bytes->below(200) / 8.0;
    return {mass, mass};
}

const NeutralLoss& lossNamed(int which)
{
    static const std::array losses = {NeutralLoss{QStringLiteral("H3PO4"), {98.0, 98.0}},
                                      NeutralLoss{QStringLiteral("CH4SO"), {64.0, 64.0}}};
    return losses[std::size_t(which)];
}

/// Groups of one mass lose the same, as modifications do, and no few of them weigh what others do.
BackboneGroup anyGroup(ByteReader* bytes)
{
    constexpr std::array masses = {14.0, 29.0, 61.0, 127.0};
    const int kind = bytes->below(int(masses.size()));
    BackboneGroup group{{masses[std::size_t(kind)], 0.0}, {}};
    if (kind > 1)
        group.losses.push_back(lossNamed(kind - 2));
    return group;
}

OpenGroup anyOpenGroup(ByteReader* bytes, qsizetype size)
{
    OpenGroup open{anyGroup(bytes), {}};
    for (qsizetype unit = 0; unit < size; ++unit) {
        if (bytes->below(2) == 1)
            open.units.push_back(unit);
    }
    if (open.units.empty())
        open.units = {size - 1};
    return open;
}

void addUnits(ByteReader* bytes, BackboneChain* chain)
{
    for (int count = 1 + bytes->below(7); count > 0; --count) {
        chain->units.push_back(anyMass(bytes, 100.0));
        chain->letters += QStringView(u"STKG")[bytes->below(4)];
        if (chain->polymer == Polymer::Peptide)
            continue;
        chain->bases.push_back(anyMass(bytes, 50.0));
        chain->linkages.push_back(anyMass(bytes, 0.0));
    }
}

BackboneChain anyChain(ByteReader* bytes)
{
    BackboneChain chain;
    chain.polymer = bytes->below(3) == 0 ? Polymer::Oligonucleotide : Polymer::Peptide;
    addUnits(bytes, &chain);
    const auto size = std::ssize(chain.units);
    const int ends = bytes->below(16);
    chain.hasLeftEnd = (ends & 1) == 0;
    chain.hasRightEnd = (ends & 2) == 0;
    chain.leftGroup = (ends & 4) == 0 ? Masses() : anyMass(bytes, 0.0);
    chain.rightGroup = (ends & 8) == 0 ? Masses() : anyMass(bytes, 0.0);
    for (int count = bytes->below(3); count > 0; --count)
        chain.groups.push_back({bytes->below(int(size)), anyGroup(bytes)});
    for (int count = bytes->below(4); count > 0; --count)
        chain.open.push_back(anyOpenGroup(bytes, size));
    for (int count = bytes->below(3); count > 1; --count)
        chain.labile.push_back(anyGroup(bytes));
    return chain;
}

Backbone anyBackbone(ByteReader* bytes)
{
    std::vector<BackboneChain> chains;
    for (int count = 1 + bytes->below(3); count > 0; --count)
        chains.push_back(anyChain(bytes));
    std::vector<BackboneLink> links;
    for (int count = bytes->below(4); count > 0; --count) {
        const int first = bytes->below(int(chains.size()));
        const int second = bytes->below(int(chains.size()));
        links.push_back({first, bytes->below(int(chains[std::size_t(first)].units.size())), second,
                         bytes->below(int(chains[std::size_t(second)].units.size())),
                         anyMass(bytes, -20.0)});
    }
    return Backbone::ofChains(chains, links, breaks()).value();
}

IonOptions anyOptions(ByteReader* bytes)
{
    IonOptions options;
    options.series.clear();
    for (int count = bytes->below(5); count > 0; --count)
        options.series.push_back(Series(bytes->below(16)));
    options.charges.clear();
    for (int count = bytes->below(4); count > 0; --count)
        options.charges.push_back(bytes->below(40) == 39 ? 10001 : bytes->below(7) - 3);
    if (bytes->below(2) == 1)
        options.losses.push_back({{QStringLiteral("NH3"), {17.0, 17.0}}, QString()});
    if (bytes->below(2) == 1)
        options.losses.push_back({{QStringLiteral("H2O"), {18.0, 18.0}}, QStringLiteral("ST")});
    options.maxLosses = bytes->below(6);
    options.hasGroupLosses = bytes->below(2) == 1;
    if (bytes->below(3) == 1)
        options.hydrogens = {0, -1, 2};
    return options;
}

/// What a series adds to its units and end, and whether it takes the linkage at the cut or leaves
/// the base; nothing where the chain has no such series.
struct SeriesSum
{
    double mass = 0.0;
    bool takesLinkage = false;
    bool leavesBase = false;
};

std::optional<SeriesSum> seriesSum(Series series, Polymer polymer)
{
    const std::map<Series, SeriesSum> ofPeptides = {{Series::A, {-28.0}},   {Series::ADot, {-27.0}},
                                                    {Series::B, {0.0}},     {Series::C, {17.0}},
                                                    {Series::CDot, {18.0}}, {Series::X, {44.0}},
                                                    {Series::XDot, {45.0}}, {Series::Y, {18.0}},
                                                    {Series::Z, {1.0}},     {Series::ZDot, {2.0}}};
    const std::map<Series, SeriesSum> ofOligos = {
        {Series::A, {0.0}},        {Series::AMinusB, {-hydrogen, false, true}},
        {Series::B, {18.0}},       {Series::C, {0.0, true}},
        {Series::D, {18.0, true}}, {Series::W, {18.0, true}},
        {Series::X, {0.0, true}},  {Series::Y, {18.0}},
        {Series::Z, {0.0}}};
    const auto& sums = polymer == Polymer::Peptide ? ofPeptides : ofOligos;
    const auto found = sums.find(series);
    return found == sums.end() ? std::nullopt : std::optional(found->second);
}

/// How often each neutral molecule is in a label such as "-H2O-H2O".
std::map<QString, int> lossesOf(const QString& label)
{
    std::map<QString, int> times;
    for (const QString& name : label.split(u'-', Qt::SkipEmptyParts))
        ++times[name];
    return times;
}

double massOf(const std::map<QString, int>& losses)
{
    const std::map<QString, double> masses = {
        {QStringLiteral("NH3"), 17.0},
        {QStringLiteral("H2O"), 18.0},
        {lossNamed(0).name, lossNamed(0).masses.monoisotopic},
        {lossNamed(1).name, lossNamed(1).masses.monoisotopic}};
    double sum = 0.0;
    for (const auto& [name, times] : losses)
        sum += times * masses.at(name);
    return sum;
}

bool canLose(const std::map<QString, int>& losses, const IonBySearch& ion, const HeldGroups& held)
{
    return std::all_of(losses.begin(), losses.end(), [&](const auto& loss) {
        const auto& [name, times] = loss;
        if (name == u"NH3")
            return true;
        if (name == u"H2O")
            return ion.count(QStringLiteral("ST")) >= times;
        const auto groups = held.losses.find(name);
        return groups != held.losses.end() && groups->second >= times;
    });
}

/// The neutral masses of one ion, with all that it loses.
std::set<double> massesBySearch(const Backbone& backbone, const IonRun& run, qsizetype number,
                                const QString& lossLabel)
{
    const IonBySearch ion(backbone, run.chain, number, isLeftSeries(run.series));
    const auto series = seriesSum(run.series, backbone.chains()[run.chain].polymer);
    if (!series || !ion.arises())
        return {};
    const double shift = series->mass + (series->takesLinkage ? ion.linkageAtCut() : 0.0) -
                         (series->leavesBase ? ion.baseAtCut() : 0.0) + run.hydrogens * hydrogen;
    const auto losses = lossesOf(lossLabel);
    std::set<double> masses;
    for (const HeldGroups& held : ion.waysToHold()) {
        if (canLose(losses, ion, held))
            masses.insert(ion.mass() + held.mass + shift - massOf(losses));
    }
    return masses;
}

/// What ions are told apart by, but for their variant.
struct Place
{
    Series series;
    int hydrogens;
    int charge;
    int loss;
    int chain;
    quint32 start;
    qsizetype number;

    friend auto operator<=>(const Place&, const Place&) = default;
};

/// The neutral masses of the list, by place.
std::map<Place, std::vector<double>> byPlace(const FragmentIons& ions)
{
    std::map<Place, std::vector<double>> places;
    std::size_t at = 0;
    for (const IonRun& run : ions.runs()) {
        require(run.count > 0 && run.charge != 0, "a run has ions, and ions a charge");
        require(run.loss < ions.losses().size(), "a loss of a run has a name");
        for (quint32 i = 0; i < run.count; ++i, ++at) {
            require(at < ions.mz().size(), "runs have no more ions than there are");
            const double mass = ions.mz()[at] * std::abs(run.charge) - run.charge * proton;
            places[{run.series, run.hydrogens, run.charge, run.loss, run.chain, run.start,
                    qsizetype(run.firstNumber) + i}]
                .push_back(mass);
        }
    }
    require(at == ions.mz().size(), "every ion is in a run");
    return places;
}

void requireSameMasses(std::vector<double> masses, const std::set<double>& expected)
{
    std::sort(masses.begin(), masses.end());
    require(std::equal(masses.begin(), masses.end(), expected.begin(), expected.end(),
                       [](double left, double right) { return std::abs(left - right) < 1e-6; }),
            "an ion has the masses of the search, each once");
}

bool isTerminal(Series series)
{
    return isLeftSeries(series) || isRightSeries(series);
}

/// Every ion from an end, those that the list lacks as well.
void checkTerminalIons(const Backbone& backbone, const IonOptions& options,
                       const FragmentIons& ions)
{
    const auto places = byPlace(ions);
    const std::set<Series> wanted(options.series.begin(), options.series.end());
    if (wanted.size() != options.series.size())
        return; // a series that is asked for twice comes twice
    const std::set<int> charges(options.charges.begin(), options.charges.end());
    if (charges.size() != options.charges.size())
        return;
    for (const Series series : wanted) {
        if (!isTerminal(series))
            continue;
        for (std::size_t chain = 0; chain < backbone.chains().size(); ++chain) {
            const auto size = std::ssize(backbone.chains()[chain].units);
            for (qsizetype number = 1; number < size; ++number) {
                for (std::size_t loss = 0; loss < ions.losses().size(); ++loss) {
                    for (const int charge : charges) {
                        if (charge == 0)
                            continue;
                        const Place place = {series, 0, charge, int(loss), int(chain), 0, number};
                        IonRun run;
                        run.series = series;
                        run.chain = quint8(chain);
                        const auto found = places.find(place);
                        requireSameMasses(
                            found == places.end() ? std::vector<double>() : found->second,
                            massesBySearch(backbone, run, number, ions.losses()[loss]));
                    }
                }
            }
        }
    }
}

void checkLabels(const Backbone& backbone, const FragmentIons& ions)
{
    const auto size = std::ssize(ions.mz());
    for (qsizetype ion = 0; ion < size; ion += 1 + size / 50)
        require(!ions.label(backbone, ion).isEmpty(), "an ion has a label");
    require(ions.label(backbone, size).isEmpty() && ions.label(backbone, -1).isEmpty(),
            "what is no ion has none");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static FragmentIons ions; // used again, as by a search
    ByteReader bytes(data, size);
    const Backbone backbone = anyBackbone(&bytes);
    const IonOptions options = anyOptions(&bytes);
    if (const auto refusal = ions.assign(backbone, options)) {
        require(refusal->message.startsWith(u"expected"), "a refusal says what was expected");
        require(ions.mz().empty() && ions.runs().empty(), "a refusal leaves no ions");
        return 0;
    }
    checkTerminalIons(backbone, options, ions);
    checkLabels(backbone, ions);
    return 0;
}
