#include "Families.h"
#include "Molecules.h"

#include <memory>

using namespace Qt::StringLiterals;
using namespace chem;

namespace {

constexpr quint64 seed = 10;
constexpr int programCount = 150;
constexpr int stepCount = 8;
constexpr qsizetype mostLinks = 32; // pieces that overlap multiply the links
constexpr int modifyCount = 600;

QList<ChainFragmentDef> anyPieces(Choices* choices)
{
    AnyParts parts(choices);
    return anyStructure::listOf(choices->from(0, 3),
                                [&parts] { return anyStructure::piece(&parts); });
}

/// A modification that the molecule has, if there is one, so that it can be taken off.
Modification presentModification(Choices* choices, const MoleculeEntity& molecule)
{
    const QList<Modification> present = molecule.modifications();
    return present.isEmpty() || choices->oneIn(3) ? anyModification(choices) : choices->of(present);
}

std::unique_ptr<Transformation> anyStep(Choices* choices, const MoleculeEntity& molecule)
{
    switch (choices->below(molecule.links().size() < mostLinks ? 8 : 7)) {
    case 0:
        return std::make_unique<Modify>(anyGroup(choices));
    case 1:
    case 2:
        return std::make_unique<Unmodify>(presentModification(choices, molecule));
    case 3:
    case 4: {
        const Link link = anyLink(choices);
        return std::make_unique<EstablishLink>(link.entity(), link.connection());
    }
    case 7:
        return std::make_unique<ChainFragmenter>(anyPieces(choices));
    default:
        return std::make_unique<Modify>(anyModification(choices));
    }
}

/// Applies the step; in words if it cannot be done, and then the molecule stays.
MoleculeEntity askStep(Answers* answers, const Transformation& step, const MoleculeEntity& molecule)
{
    try {
        const MoleculeEntity result = step.transform(molecule);
        answers->add("transform", step.type(), result);
        return result;
    } catch (const char* message) {
        answers->add("transform", step.type(), "throws", message);
        return molecule;
    }
}

/// The history forwards from its first molecule, and each entry on the last one.
void askReplay(Answers* answers, const MoleculeEntity& molecule)
{
    QList<TransformationEntity> history = molecule.transformations();
    if (history.isEmpty())
        return;
    MoleculeEntity replayed = history.first().original();
    for (TransformationEntity& entry : history) {
        TransformationEntity copy = entry;
        TransformationEntity taken = std::move(copy);
        copy = taken;
        taken = TransformationEntity(copy);
        answers->add("original", copy.type(), copy.original().averageMass(),
                     copy.original().sequence());
        replayed = taken.transform(replayed);
        answers->add("replay", replayed.averageMass(), replayed.monoMass(), replayed.formula(),
                     replayed.sequence());
        askStep(answers, entry, molecule);
    }
    answers->add("replayed", replayed == molecule);
}

void askPrograms(Answers* answers, Choices* choices)
{
    for (int i = 0; i < programCount; ++i) {
        MoleculeEntity molecule = anyMolecule(choices);
        for (int step = 0; step < stepCount; ++step)
            molecule = askStep(answers, *anyStep(choices, molecule), molecule);
        askReplay(answers, molecule);
    }
}

void askLocated(Answers* answers, Choices* choices)
{
    for (int i = 0; i < modifyCount; ++i) {
        const MoleculeEntity molecule = anyMolecule(choices);
        const MoleculeEntity group = anyGroup(choices);
        const auto place = anyPosition(choices);
        answers->add("modifyMolecule", place, modifyMolecule(molecule, group, place));
        const Modification modification(group, {place});
        const MoleculeEntity modified = askStep(answers, Modify(modification), molecule);
        askStep(answers, Unmodify(modification), modified);
    }
}

/// Steps recorded by a caller, and a fragmenter that has been copied and moved from.
void askEntries(Answers* answers, Choices* choices)
{
    for (int i = 0; i < programCount; ++i) {
        const MoleculeEntity molecule = anyMolecule(choices);
        ChainFragmenter fragmenter(anyPieces(choices));
        const ChainFragmenter copy = fragmenter;
        const ChainFragmenter taken = std::move(fragmenter);
        askStep(answers, copy, molecule);
        askStep(answers, taken, molecule);
        const Modification modification = anyModification(choices);
        const Link link = anyLink(choices);
        const QList<TransformationEntity> entries = {
            TransformationEntity(taken, molecule),
            TransformationEntity(Modify(modification), molecule),
            TransformationEntity(Unmodify(modification), molecule),
            TransformationEntity(EstablishLink(link.entity(), link.connection()), molecule)};
        for (const TransformationEntity& entry : entries) {
            answers->add("TransformationEntity", entry);
            askStep(answers, entry, molecule);
        }
    }
}

} // namespace

void askSteps(Answers* answers)
{
    Choices choices(seed);
    askPrograms(answers, &choices);
    askLocated(answers, &choices);
    askEntries(answers, &choices);
}
