#include "structure/Dismantling.h"

#include <QVarLengthArray>

#include <new>
#include <utility>
#include <variant>

namespace chem {

namespace {

/// The two types through which molecules nest.
using Nest = std::variant<StructuredMolecule, Modification>;

/// Values that wait to be destroyed. A nest in which each value holds one other needs a single
/// place, so it takes no memory.
using Nests = QVarLengthArray<Nest, 8>;

/// The values that wait on this thread; null unless one is being dismantled. A plain
/// pointer, because molecules may still be destroyed after the thread's own objects are gone.
thread_local constinit Nests* waitingNests = nullptr;

void dismantleNest(Nest&& nest) noexcept
{
    if (waitingNests) {
        try {
            waitingNests->append(std::move(nest));
        } catch (const std::bad_alloc&) {
            // No memory to wait in: it is destroyed at once, on the stack.
        }
        return;
    }
    Nests nests;
    waitingNests = &nests;
    nests.append(std::move(nest));
    while (!nests.isEmpty()) {
        const Nest released = std::move(nests.last());
        nests.removeLast();
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
