#include "ByteReader.h"
#include <ChemicalModel.h>

#include <cstring>
#include <memory>

/// \file
/// A byte string is a small molecule and a program of steps on it. After each step the totals are
/// the sum of the parts, the history has one more entry, which reaches back, and the input is as it
/// was. All masses are multiples of 2^-11, so that sums are exact in any order.

using namespace chem;

namespace {

constexpr int mostSteps = 24;
constexpr qsizetype mostLinks = 64; // pieces that overlap multiply the links

Molecule group(const char* formula, double averageMass)
{
    return {ChemicalFactory::parseChemicalFormula(QString::fromLatin1(formula)), averageMass,
            averageMass / 2};
}

MoleculeEntity anyGroup(ByteReader* bytes)
{
    switch (bytes->choice(6)) {
    case 0:
        return nullptr;
    case 1:
        return 7;
    case 2:
        return 2.5;
    case 3:
        return NamedMolecule(group("CH2", 14.0), QStringLiteral("methyl"), QStringLiteral("m"));
    case 4:
        return group("HPO3", 80.0);
    default:
        return group("H-2", -2.0 - 1.0 / 1024); // sums of this and the others never reach 0
    }
}

MoleculeEntity anyResidue(ByteReader* bytes)
{
    const int kind = bytes->choice(8);
    if (kind == 0)
        return 100;
    const QString code = QString(QChar(u'A' + kind));
    const AminoAcid residue(NamedMolecule(group("C2H3NO", 57.0 + kind), code, code));
    return kind == 1 ? Modify(anyGroup(bytes)).transform(residue) : residue;
}

std::pair<int, int> anyPosition(ByteReader* bytes)
{
    const int chain = bytes->aroundRange(3);
    return {chain, bytes->aroundRange(6)};
}

Modification anyModification(ByteReader* bytes)
{
    const MoleculeEntity added = anyGroup(bytes);
    QList<std::pair<int, int>> places;
    for (int count = bytes->choice(4); count > 0; --count)
        places.append(anyPosition(bytes));
    return {added, places};
}

ChainFragmentDef anyPiece(ByteReader* bytes)
{
    const MoleculeEntity start = anyGroup(bytes);
    const auto [chain, first] = anyPosition(bytes);
    const int end = bytes->aroundRange(7);
    return {start, {QStringLiteral("piece"), chain, first, end}, anyGroup(bytes)};
}

MoleculeEntity anyMolecule(ByteReader* bytes)
{
    QList<Chain> chains;
    for (int count = bytes->choice(4); count > 0; --count) {
        QList<MoleculeEntity> residues;
        for (int size = bytes->choice(7); size > 0; --size)
            residues.append(anyResidue(bytes));
        chains.append(Chain(QStringLiteral("chain"), QString(), residues, MoleculeType::Peptide,
                            ParentChainLocus()));
    }
    return constructProteinFromChains(QStringLiteral("molecule"), chains, {}, {}, nullptr);
}

std::unique_ptr<Transformation> anyStep(ByteReader* bytes, bool mayCut)
{
    switch (bytes->choice(mayCut ? 4 : 3)) {
    case 0:
        return std::make_unique<Modify>(anyModification(bytes));
    case 1:
        return std::make_unique<Unmodify>(anyModification(bytes));
    case 2: {
        const MoleculeEntity bridge = anyGroup(bytes);
        const auto first = anyPosition(bytes);
        return std::make_unique<EstablishLink>(bridge, Link::Connection(first, anyPosition(bytes)));
    }
    default:
        QList<ChainFragmentDef> pieces;
        for (int count = bytes->choice(4); count > 0; --count)
            pieces.append(anyPiece(bytes));
        return std::make_unique<ChainFragmenter>(pieces);
    }
}

struct Sum
{
    double averageMass = 0.0;
    double monoMass = 0.0;
    ChemicalFormula formula;

    void add(const MoleculeEntity& entity)
    {
        averageMass += entity.averageMass();
        monoMass += entity.monoMass();
        formula += entity.formula();
    }
};

Sum sumOfParts(const MoleculeEntity& molecule)
{
    Sum sum;
    const QList<Chain> chains = molecule.chains();
    for (const Chain& chain : chains) {
        for (const MoleculeEntity& residue : chain.residues())
            sum.add(residue);
    }
    const QList<Link> links = molecule.links();
    for (const Link& link : links)
        sum.add(link.entity());
    const QList<Modification> modifications = molecule.modifications();
    for (const Modification& modification : modifications)
        sum.add(modification.entity());
    return sum;
}

/// What must not change when a step is applied to a molecule.
struct State
{
    explicit State(const MoleculeEntity& molecule)
        : chains(molecule.chains())
        , links(molecule.links())
        , modifications(molecule.modifications())
        , sequence(molecule.sequence())
        , averageMass(molecule.averageMass())
        , steps(molecule.transformations().size())
    {
    }

    bool operator==(const State&) const = default;

    QList<Chain> chains;
    QList<Link> links;
    QList<Modification> modifications;
    QString sequence;
    double averageMass;
    qsizetype steps;
};

bool isKnown(const char* message)
{
    static constexpr const char* messages[] = {
        "Attemt to put modification on non-existing chain",
        "Attemt to put modification on non-existing residue",
        "Attemt to remove modification from non-existing chain",
        "Attemt to remove modification from non-existing residue",
        "Could not remove specified modification"};
    for (const char* known : messages) {
        if (std::strcmp(known, message) == 0)
            return true;
    }
    return false;
}

void checkStep(const Transformation& step, const MoleculeEntity& input,
               const MoleculeEntity& result)
{
    const Sum sum = sumOfParts(result);
    require(result.averageMass() == sum.averageMass, "the average mass is that of the parts");
    require(result.monoMass() == sum.monoMass, "the monoisotopic mass is that of the parts");
    require(result.formula().toString() == sum.formula.toString(),
            "the formula is that of the parts");

    QList<TransformationEntity> history = result.transformations();
    require(history.size() == input.transformations().size() + 1, "one entry for one step");
    require(history.last().type() == step.type(), "the entry tells the step");
    require(State(history.last().original()) == State(input), "the entry reaches back");
    require(State(history.last().transform(input)) == State(result), "the entry repeats the step");
}

void runProgram(ByteReader* bytes)
{
    MoleculeEntity molecule = anyMolecule(bytes);
    for (int i = 0; i < mostSteps && !bytes->atEnd(); ++i) {
        const auto step = anyStep(bytes, molecule.links().size() <= mostLinks);
        const State before(molecule);
        const MoleculeEntity input = molecule;
        try {
            molecule = step->transform(input);
            checkStep(*step, input, molecule);
        } catch (const char* message) {
            require(isKnown(message), "the message is one of the five");
        }
        require(State(input) == before, "the input stays as it was");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ByteReader bytes(data, size);
    runProgram(&bytes);
    return 0;
}
