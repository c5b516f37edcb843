#include "Dismantling.h"

#include <utility>
#include <variant>
#include <vector>

namespace chem {

namespace {

/// The two types through which molecules nest.
using Nest = std::variant<StructuredMolecule, Modification>;

/// The values that wait to die on this thread; null unless one is being dismantled. A plain
/// pointer, because molecules may still die after the thread's own objects are gone.
thread_local constinit std::vector<Nest>* waitingNests = nullptr;

void dismantleNest(Nest&& nest) noexcept
{
    if (waitingNests) {
        waitingNests->push_back(std::move(nest));
        return;
    }
    std::vector<Nest> nests;
    waitingNests = &nests;
    nests.push_back(std::move(nest));
    while (!nests.empty()) {
        const Nest dying = std::move(nests.back());
        nests.pop_back();
    }
    waitingNests = nullptr;
}

} // namespace

void dismantle(StructuredMolecule&& molecule) noexcept
{
    const bool isFlat = molecule.chains.isEmpty() && molecule.links.isEmpty() &&
                        molecule.modifications.isEmpty() && molecule.transformations.isEmpty();
    if (!isFlat)
        dismantleNest(std::move(molecule));
}

void dismantle(Modification&& modification) noexcept
{
    dismantleNest(std::move(modification));
}

} // namespace chem
