#include "commands/TextIons.h"

#include "readers/InputFile.h"

namespace tool {

std::optional<TextIons> readTextIons(const std::string& argument, Notation notation,
                                     const ions::IonOptions& wanted, Task* task)
{
    const auto text = onlyText(fromShell(argument), &task->complaints);
    if (!text)
        return std::nullopt;
    const auto backbone = readBackbone(text->second, notation, task->chemistry);
    if (!backbone) {
        task->complaints.report(text->first, backbone.error());
        return std::nullopt;
    }
    TextIons listed{*backbone, {}};
    if (const auto refusal = listed.fragments.assign(listed.backbone, wanted)) {
        task->complaints.report(text->first, *refusal);
        return std::nullopt;
    }
    return listed;
}

} // namespace tool
