#pragma once

#include "chemistry/Chemistry.h"
#include "chemistry/Substance.h"
#include "support/Complaints.h"
#include "support/ShellText.h"
#include "support/Table.h"

#include <QString>
#include <QStringList>

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tool {

/// What a command has at hand while it runs.
struct Task
{
    Chemistry chemistry;
    TableForm form;
    Complaints complaints;
};

/// The command line: its commands, their options in common, help, and the status that it ends with.
class Program
{
public:
    Program();

    /// Adds a command. `example` is a line of a shell that works as it stands.
    CLI::App* addCommand(const std::string& name, const std::string& summary,
                         const std::string& example, std::function<void(Task*)> run);

    /// Does what the arguments ask for. Gives 0, 1 if an input was refused, 2 for wrong usage.
    int run(int count, char** arguments);

private:
    struct Command
    {
        CLI::App* app;
        std::function<void(Task*)> run;
    };

    int runChosen();
    int help() const;

    CLI::App m_app;
    std::vector<Command> m_commands;
    CLI::App* m_help;
    std::string m_helpTopic;
    bool m_wantsManualPage = false;
    bool m_wantsCompletion = false;
    std::string m_isotopes;
    int m_digits = -1;
    bool m_hasNoHeader = false;
};

/// The option `--as`, with the notations that a command can do something with.
void addNotation(CLI::App* command, Notation* notation, bool onlyChains = false);

/// A positional that takes one or more texts, each an argument, `@FILE` or `-`.
void addTexts(CLI::App* command, std::vector<std::string>* texts);

/// A positional that takes one text.
void addText(CLI::App* command, std::string* text);

// The commands, each in a file of its own.
void addReadCommand(Program* program);
void addMassCommand(Program* program);
void addIonsCommand(Program* program);
void addDigestCommand(Program* program);
void addEnvelopeCommand(Program* program);
void addMatchCommand(Program* program);
void addFormulasCommand(Program* program);
void addSearchCommand(Program* program);

} // namespace tool
