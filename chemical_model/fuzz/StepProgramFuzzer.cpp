#include "AnySteps.h"
#include "ByteReader.h"

#include <cstring>

/// \file
/// A byte string is a small molecule and a program of steps on it. After each step the totals are
/// the sum of the parts, the history has one more entry, which reaches back, and the input is as it
/// was.

using namespace anySteps;
using namespace chem;

namespace {

constexpr int mostSteps = 24;
constexpr qsizetype mostLinks = 64; // pieces that overlap multiply the links

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
    require(withoutZeros(result.formula().elementCountMap()) == withoutZeros(sum.counts),
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
