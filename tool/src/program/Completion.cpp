#include "program/Completion.h"

#include "program/OptionChecks.h"

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

/// The lines of a `case` over the command and the word in front: what an option of it takes.
std::string casesOfValues(const CLI::App& command)
{
    std::string cases;
    for (const CLI::Option* option : command.get_options()) {
        std::string words;
        for (const std::string& word : wordsTaken(*option))
            words += ' ' + word;
        for (const std::string& name : option->get_lnames()) {
            if (words.empty())
                continue;
            cases.append("        '").append(command.get_name()).append(" --").append(name);
            cases.append("') words='").append(words).append("' ;;\n");
        }
    }
    return cases;
}

} // namespace

std::string bashCompletion(const CLI::App& app)
{
    const std::string& name = app.get_name();
    const std::string function = '_' + name;
    std::string options;
    std::string values;
    for (const CLI::App* command : app.get_subcommands({})) {
        options += "        " + command->get_name() + ") words='" + optionsOf(*command) + "' ;;\n";
        values += casesOfValues(*command);
    }
    return "# Completion of " + name + " in bash.\n" + function +
           "()\n{\n"
           "    local words='' commands='" +
           commandsOf(app) +
           "'\n"
           "    case ${COMP_WORDS[1]} in\n" +
           options +
           "    esac\n"
           "    case \"${COMP_WORDS[1]} ${COMP_WORDS[COMP_CWORD - 1]}\" in\n" +
           values +
           "        'help help') words=\"$commands $words\" ;;\n"
           "    esac\n"
           "    if ((COMP_CWORD == 1)); then\n        words=\"$commands" +
           optionsOf(app) +
           "\"\n    fi\n"
           "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"${COMP_WORDS[COMP_CWORD]}\")\n"
           "}\ncomplete -o default -F " +
           function + ' ' + name + '\n';
}

} // namespace tool
