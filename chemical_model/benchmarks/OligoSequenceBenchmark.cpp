#include "BenchmarkInputs.h"
#include <ChemicalFactory.h>
#include <LinearFragments.h>

#include <QRegularExpression>

#include <benchmark/benchmark.h>

#include <array>
#include <vector>

using namespace Qt::StringLiterals;

// All times are for one text, but where a name says otherwise. The yardsticks compile the generated
// expressions for each text; the floors do the least that any implementation must.

namespace {

using chem::ChemicalFactory;
using chem::FragmentationSite;
using chem::Molecule;
using chem::NamedMolecule;
using chem::Nucleotide;
using Nucleotides = QList<QSharedPointer<const Nucleotide>>;

constexpr int textCount = 2000;

const QStringList& texts()
{
    static const QStringList texts = randomOligos(textCount);
    return texts;
}

const ChemicalFactory& factory()
{
    static const QSharedPointer<const ChemicalFactory> factory = chem::defaultChemicalFactory();
    return *factory;
}

/// Runs `visit` on one text after the other.
template <typename Visit>
void forEachText(benchmark::State& state, Visit visit)
{
    qsizetype next = 0;
    visit(texts().first());
    for (auto _ : state) {
        visit(texts()[next]);
        next = (next + 1) % textCount;
    }
}

struct Parsed
{
    Nucleotides nucleotides;
    NamedMolecule fivePrime;
    NamedMolecule threePrime;
};

Parsed parse(const QString& text)
{
    Parsed parsed;
    factory().parseNucleotideSequence(text, &parsed.nucleotides, &parsed.fivePrime,
                                      &parsed.threePrime);
    return parsed;
}

/// The yardstick of parsing: compiles both expressions for each text and looks every letter up in
/// its dictionary.
class ByExpressions : public ChemicalFactory
{
public:
    ByExpressions() { init(QString()); }

    bool isValid(const QString& text) const
    {
        return generateFullOligoRegex().match(text).hasMatch();
    }

    Nucleotides parse(const QString& text) const
    {
        Nucleotides nucleotides;
        const QRegularExpressionMatch whole = generateFullOligoRegex().match(text);
        if (!whole.hasMatch())
            return nucleotides;
        QRegularExpressionMatchIterator units =
            generateOligoSequenceRegex().globalMatch(whole.captured(2));
        while (units.hasNext()) {
            const QRegularExpressionMatch unit = units.next();
            nucleotides.append(nucleotide(unit, !units.hasNext()));
        }
        return nucleotides;
    }

private:
    /// The texts have bases only and at most one phosphate mark.
    QSharedPointer<const Nucleotide> nucleotide(const QRegularExpressionMatch& unit,
                                                bool isLast) const
    {
        const QString riboseText = unit.captured(1);
        const QString phosphateText = unit.captured(5);
        NamedMolecule phosphate;
        if (!phosphateText.isEmpty())
            phosphate = buildingBlocks[PhosphateBlock].value(phosphateText);
        else if (!isLast)
            phosphate = defaultPhosphate;
        const NamedMolecule ribose =
            riboseText.isEmpty() ? defaultRibose : buildingBlocks[RiboseBlock].value(riboseText);
        const NamedMolecule base = buildingBlocks[NucleobaseBlock].value(unit.captured(3));
        return QSharedPointer<Nucleotide>::create(base, ribose, phosphate, base.name,
                                                  unit.captured(0));
    }
};

const ByExpressions& byExpressions()
{
    static const ByExpressions factory;
    return factory;
}

// Matching a text.

void matchText(benchmark::State& state)
{
    forEachText(state, [](const QString& text) {
        benchmark::DoNotOptimize(factory().isValidOligoSequence(text));
    });
}
BENCHMARK(matchText);

void matchTextYardstickThatCompiles(benchmark::State& state)
{
    forEachText(state, [](const QString& text) {
        benchmark::DoNotOptimize(byExpressions().isValid(text));
    });
}
BENCHMARK(matchTextYardstickThatCompiles);

void matchTextFloorOfACompiledMatch(benchmark::State& state)
{
    const QRegularExpression expression = factory().generateFullOligoRegex();
    forEachText(state, [&expression](const QString& text) {
        benchmark::DoNotOptimize(expression.match(text).hasMatch());
    });
}
BENCHMARK(matchTextFloorOfACompiledMatch);

void matchTextFloorOfReadingEachCharacter(benchmark::State& state)
{
    forEachText(state, [](const QString& text) {
        quint32 sum = 0;
        for (const QChar character : text)
            sum = sum * 31 + character.unicode();
        benchmark::DoNotOptimize(sum);
    });
}
BENCHMARK(matchTextFloorOfReadingEachCharacter);

// Parsing.

void parseText(benchmark::State& state)
{
    forEachText(state, [](const QString& text) { benchmark::DoNotOptimize(parse(text)); });
}
BENCHMARK(parseText);

void parseTextYardstickThatCompiles(benchmark::State& state)
{
    forEachText(state,
                [](const QString& text) { benchmark::DoNotOptimize(byExpressions().parse(text)); });
}
BENCHMARK(parseTextYardstickThatCompiles);

void parseTextFloorOfCopyingNucleotides(benchmark::State& state)
{
    const Nucleotides prepared = parse(texts().first()).nucleotides;
    for (auto _ : state) {
        Nucleotides copies;
        copies.reserve(prepared.size());
        for (const auto& nucleotide : prepared)
            copies.append(QSharedPointer<const Nucleotide>::create(*nucleotide));
        benchmark::DoNotOptimize(copies);
    }
}
BENCHMARK(parseTextFloorOfCopyingNucleotides);

// Complexes and their fragments.

void complexFromText(benchmark::State& state)
{
    forEachText(state, [](const QString& text) {
        benchmark::DoNotOptimize(factory().constructLinearOligoComplex(text));
    });
}
BENCHMARK(complexFromText);

void complexFromNucleotides(benchmark::State& state)
{
    QList<Parsed> parsed;
    for (const QString& text : texts())
        parsed.append(parse(text));
    qsizetype next = 0;
    for (auto _ : state) {
        const Parsed& chain = parsed[next];
        benchmark::DoNotOptimize(factory().constructLinearOligoComplex(
            chain.nucleotides, chain.fivePrime, chain.threePrime));
        next = (next + 1) % textCount;
    }
}
BENCHMARK(complexFromNucleotides);

void complexFloorOfCopyingResiduesAndSites(benchmark::State& state)
{
    const auto prepared = factory().constructLinearOligoComplex(texts().first());
    for (auto _ : state) {
        QList<QSharedPointer<chem::ComplexResidue>> residues;
        QList<QList<QSharedPointer<FragmentationSite>>> sites;
        residues.reserve(prepared->residues.size());
        sites.reserve(prepared->sites.size());
        for (const auto& residue : prepared->residues)
            residues.append(QSharedPointer<chem::ComplexResidue>::create(*residue));
        for (const auto& list : prepared->sites) {
            QList<QSharedPointer<FragmentationSite>> copies;
            copies.reserve(list.size());
            for (const auto& site : list)
                copies.append(QSharedPointer<FragmentationSite>::create(*site));
            sites.append(copies);
        }
        benchmark::DoNotOptimize(residues);
        benchmark::DoNotOptimize(sites);
    }
}
BENCHMARK(complexFloorOfCopyingResiduesAndSites);

QList<QSharedPointer<chem::MoleculeComplex>> preparedComplexes()
{
    QList<QSharedPointer<chem::MoleculeComplex>> prepared;
    for (const QString& text : texts())
        prepared.append(factory().constructLinearOligoComplex(text));
    return prepared;
}

void flatFragments(benchmark::State& state)
{
    const auto prepared = preparedComplexes();
    qsizetype next = 0;
    for (auto _ : state) {
        QList<chem::SimpleFragment> fragments;
        chem::generateLinearFragments(*prepared[next], fragments);
        benchmark::DoNotOptimize(fragments);
        next = (next + 1) % textCount;
    }
}
BENCHMARK(flatFragments);

/// The masses of the residues of each text, for the floors.
std::vector<std::vector<double>> residueMasses()
{
    std::vector<std::vector<double>> masses;
    for (const auto& complex : preparedComplexes()) {
        auto& strand = masses.emplace_back();
        for (const auto& residue : std::as_const(complex->residues)) {
            strand.push_back(residue->averageMass());
            strand.push_back(residue->monoMass());
        }
    }
    return masses;
}

void floorSumOfResidues(benchmark::State& state)
{
    const auto masses = residueMasses();
    std::size_t next = 0;
    for (auto _ : state) {
        double average = 0.0;
        double mono = 0.0;
        for (std::size_t i = 0; i < masses[next].size(); i += 2) {
            average += masses[next][i];
            mono += masses[next][i + 1];
        }
        benchmark::DoNotOptimize(average);
        benchmark::DoNotOptimize(mono);
        next = (next + 1) % masses.size();
    }
}
BENCHMARK(floorSumOfResidues);

void floorFragmentMasses(benchmark::State& state)
{
    const auto masses = residueMasses();
    constexpr std::array<double, 9> deltas = {-18, -115, 1, 62, 80, 80, 62, 1, -17};
    std::vector<double> ions;
    std::size_t next = 0;
    for (auto _ : state) {
        const std::vector<double>& strand = masses[next];
        std::array<double, 4> ends{};
        ions.clear();
        for (std::size_t i = 2; i + 2 < strand.size(); i += 2) {
            ends[0] += strand[i];
            ends[1] += strand[i + 1];
            ends[2] += strand[strand.size() - 2 - i];
            ends[3] += strand[strand.size() - 1 - i];
            for (std::size_t ion = 0; ion < deltas.size(); ++ion) {
                const std::size_t end = ion < 5 ? 0 : 2;
                ions.push_back(ends[end] + deltas[ion]);
                ions.push_back(ends[end + 1] + deltas[ion]);
            }
        }
        benchmark::DoNotOptimize(ions.data());
        next = (next + 1) % masses.size();
    }
}
BENCHMARK(floorFragmentMasses);

/// Growth: strands of the average length, and of 10 and 100 times that.
void flatFragmentsOfLength(benchmark::State& state)
{
    const auto complex = factory().constructLinearOligoComplex(
        u"ACGT"_s.repeated(state.range(0) / 4) + u"A"_s.repeated(state.range(0) % 4));
    for (auto _ : state) {
        QList<chem::SimpleFragment> fragments;
        chem::generateLinearFragments(*complex, fragments);
        benchmark::DoNotOptimize(fragments);
    }
}
BENCHMARK(flatFragmentsOfLength)->Arg(22)->Arg(220)->Arg(2200);

void richFragments(benchmark::State& state)
{
    const auto complex = factory().constructLinearOligoComplex(texts().first());
    for (auto _ : state) {
        QList<QSharedPointer<chem::Fragment>> fragments;
        factory().generateLinearFragments(*complex, &fragments);
        benchmark::DoNotOptimize(fragments);
    }
}
BENCHMARK(richFragments);

/// Ten nucleotides off each end: 21 complexes.
void truncationLadder(benchmark::State& state)
{
    for (auto _ : state) {
        QList<QSharedPointer<const chem::MoleculeComplex>> complexes;
        factory().constructLinearOligoComplexes(texts().first(), 10, 10, &complexes);
        benchmark::DoNotOptimize(complexes);
    }
}
BENCHMARK(truncationLadder);

// A messenger RNA.

QString longText(int nucleotides)
{
    QString text;
    for (int i = 0; i < nucleotides; ++i)
        text += u"r"_s + u"ACGU"[i * 7 % 11 % 4];
    return text;
}

void matchRna(benchmark::State& state)
{
    const QString text = longText(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(factory().isValidOligoSequence(text));
}
BENCHMARK(matchRna)->Arg(5000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

void parseRna(benchmark::State& state)
{
    const QString text = longText(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(parse(text));
}
BENCHMARK(parseRna)->Arg(5000)->Unit(benchmark::kMicrosecond);

void parseRnaYardstickThatCompiles(benchmark::State& state)
{
    const QString text = longText(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(byExpressions().parse(text));
}
BENCHMARK(parseRnaYardstickThatCompiles)->Arg(5000)->Unit(benchmark::kMicrosecond);

void complexFromRna(benchmark::State& state)
{
    const QString text = longText(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(factory().constructLinearOligoComplex(text));
}
BENCHMARK(complexFromRna)->Arg(5000)->Unit(benchmark::kMicrosecond);

// Building blocks of a caller, each under a key of its own, and then a text that is read with them.

template <ChemicalFactory::BuildingBlockType type>
void setBuildingBlocks(benchmark::State& state)
{
    for (auto _ : state) {
        const auto own = ChemicalFactory::construct(QString());
        for (int key = 0; key < state.range(0); ++key)
            own->setBuildingBlock(type, QChar(char16_t(0x4e00 + key)), u"Xanthine"_s,
                                  u"C5H3N4O2"_s);
        benchmark::DoNotOptimize(own->isValidOligoSequence(u"rA*C"_s));
        benchmark::DoNotOptimize(own->constructLinearPeptideComplex(u"AC"_s));
    }
}
BENCHMARK(setBuildingBlocks<ChemicalFactory::AminoAcidBlock>)
    ->Arg(256)
    ->Arg(2000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(setBuildingBlocks<ChemicalFactory::NucleobaseBlock>)
    ->Arg(256)
    ->Arg(2000)
    ->Unit(benchmark::kMillisecond);

} // namespace
