#include "program/Completion.h"

namespace tool {

namespace {

std::string optionsOf(const CLI::App& command)
{
    std::string words;
    for (const CLI::Option* option : command.get_options()) {
        for (const std::string& name : option->get_lnames())
            words += " --" + name;
    }
    return words;
}

std::string commandsOf(const CLI::App& app)
{
    std::string words;
    for (const CLI::App* command : app.get_subcommands({}))
        words += ' ' + command->get_name();
    return words;
}

} // namespace

std::string bashCompletion(const CLI::App& app)
{
    const std::string& name = app.get_name();
    const std::string function = '_' + name;
    std::string cases;
    for (const CLI::App* command : app.get_subcommands({}))
        cases += "        " + command->get_name() + ") words='" + optionsOf(*command) + "' ;;\n";
    return "# Completion of " + name + " in bash.\n" + function +
           "()\n{\n"
           "    local words=''\n"
           "    case ${COMP_WORDS[1]} in\n" +
           cases +
           "    esac\n"
           "    if ((COMP_CWORD == 1)); then\n        words='" +
           commandsOf(app) + optionsOf(app) +
           "'\n    fi\n"
           "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"${COMP_WORDS[COMP_CWORD]}\")\n"
           "}\ncomplete -o default -F " +
           function + ' ' + name + '\n';
}

} // namespace tool
