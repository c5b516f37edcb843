#include "commands/TextIons.h"

#include "readers/InputFile.h"

namespace tool {

std::optional<TextIons> readTextIons(const std::string& argument, Notation notation,
                                     const IonChoice& choice, Task* task)
{
    const auto text = onlyText(fromShell(argument), &task->complaints);
    if (!text)
        return std::nullopt;
    const auto laidOut = layOut(text->second, notation, task->chemistry);
    if (!laidOut) {
        task->complaints.report(text->first, laidOut.error());
        return std::nullopt;
    }
    TextIons listed{laidOut->backbone, {}};
    const ions::IonOptions wanted = choice.options(task->chemistry, laidOut->isotopes);
    if (const auto refusal = listed.fragments.assign(listed.backbone, wanted)) {
        task->complaints.report(text->first, *refusal);
        return std::nullopt;
    }
    return listed;
}

} // namespace tool
