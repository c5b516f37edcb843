#include "AnySteps.h"
#include "ByteReader.h"
#include "RequireSame.h"
#include "StepMessages.h"
#include "SumOfParts.h"

#include <algorithm>

/// \file
/// A byte string is a small molecule and a program of steps on it. After each step the totals are
/// the sum of the parts, the history has one more entry, which reaches back, and the input is as it
/// was.

using namespace anySteps;
using namespace chem;

namespace {

constexpr int mostSteps = 24;

/// What must not change when a step is applied to a molecule: enough to notice a difference, which
/// is then looked for in all fields.
struct State
{
    explicit State(const MoleculeEntity& entity)
        : molecule(entity)
        , chains(entity.chains())
        , links(entity.links())
        , modifications(entity.modifications())
        , sequence(entity.sequence())
        , averageMass(entity.averageMass())
        , steps(entity.transformations().size())
    {
    }

    bool operator==(const State&) const = default;

    MoleculeEntity molecule;
    QList<Chain> chains;
    QList<Link> links;
    QList<Modification> modifications;
    QString sequence;
    double averageMass;
    qsizetype steps;
};

void addField(fields::Fields* fields, const std::string& path, const State& state)
{
    addField(fields, path, state.molecule);
}

void checkStep(const Transformation& step, const MoleculeEntity& input,
               const MoleculeEntity& result)
{
    require(hasTotalsOfItsParts(result), "formula and masses are those of the parts");

    QList<TransformationEntity> history = result.transformations();
    require(history.size() == input.transformations().size() + 1, "one entry for one step");
    require(history.last().type() == step.type(), "the entry tells the step");
    requireSame(State(history.last().original()), State(input), "the entry reaches back");
    requireSame(State(history.last().transform(input)), State(result),
                "the entry repeats the step");
}

void runProgram(ByteReader* bytes)
{
    MoleculeEntity molecule = anyMolecule(bytes);
    for (int i = 0; i < mostSteps && !bytes->atEnd(); ++i) {
        const auto step = anyStepOn(molecule, bytes);
        const State before(molecule);
        const MoleculeEntity input = molecule;
        try {
            molecule = step->transform(input);
            checkStep(*step, input, molecule);
        } catch (const char* message) {
            require(std::ranges::count(stepMessages::all, std::string(message)) == 1,
                    "the message is one of the five");
        }
        requireSame(State(input), before, "the input stays as it was");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ByteReader bytes(data, size);
    runProgram(&bytes);
    return 0;
}
