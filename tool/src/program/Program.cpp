#include "program/Program.h"

#include "program/Completion.h"
#include "program/ManualPage.h"
#include "program/OptionChecks.h"
#include "program/Version.h"
#include "support/Output.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <sstream>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr int doneStatus = 0;
constexpr int refusedStatus = 1;
constexpr int usageStatus = 2;
constexpr int mostDigits = 100;
constexpr const char* groupOfCommands = "Commands";

int complain(const QString& message)
{
    const QByteArray line = "zel: " + message.toUtf8() + '\n';
    std::fwrite(line.constData(), 1, std::size_t(line.size()), stderr);
    return usageStatus;
}

} // namespace

Program::Program()
    : m_app("Molecules as a mass spectrometer sees them.", "zel")
{
    m_app.set_version_flag("--version", versionText());
    m_app.require_subcommand(0, 1);
    m_app.footer("zel help COMMAND tells the options of a command and gives an example.\n"
                 "A TEXT is ProForma, or what --as names; @FILE or - reads one a line.\n"
                 "What is printed is a table of cells separated by tabs, with a header.\n"
                 "Errors name SOURCE:LINE:POSITION. The exit status is 0; 1 if an input was\n"
                 "refused, the others being answered; 2 for wrong usage.");
    m_app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    m_help = m_app.add_subcommand("help", "Tell about a command")->group(groupOfCommands);
    m_help->add_option("COMMAND", m_helpTopic, "The command");
    m_help->add_flag("--manual-page", m_wantsManualPage, "Print the manual page");
    m_help->add_flag("--bash-completion", m_wantsCompletion,
                     "Print what completes commands and options in bash");
}

CLI::App* Program::addCommand(const std::string& name, const std::string& summary,
                              const std::string& example, std::function<void(Task*)> run)
{
    CLI::App* command = m_app.add_subcommand(name, summary)->group(groupOfCommands);
    command->footer("Example:\n    " + example);
    command->add_option("--isotopes", m_isotopes,
                        "Isotopes instead of natural ones, such as 'C13:0.99 C12:0.01'");
    command
        ->add_option("--digits", m_digits, "Digits behind the point instead of the shortest text")
        ->check(wholeNumber(0, mostDigits));
    command->add_flag("--no-header", m_hasNoHeader, "Leave out the names of the columns");
    m_commands.push_back({command, std::move(run)});
    return command;
}

int Program::run(int count, char** arguments)
{
    try {
        m_app.parse(forParser(count, arguments));
        return m_help->parsed() ? help() : runChosen();
    } catch (const CLI::Success& success) {
        std::ostringstream text;
        m_app.exit(success, text); // help or the version
        writeOut(text.str());
        return doneStatus;
    } catch (const CLI::ParseError& error) {
        return complain(QString::fromStdString(error.what()));
    } catch (const UsageError& error) {
        return complain(error.message);
    }
}

int Program::runChosen()
{
    const auto chosen = std::find_if(m_commands.begin(), m_commands.end(),
                                     [](const Command& command) { return command.app->parsed(); });
    if (chosen == m_commands.end())
        return complain(u"expected a command; zel help lists them"_s);
    const TableForm form{m_digits < 0 ? std::nullopt : std::optional(m_digits), !m_hasNoHeader};
    Task task{Chemistry(QString::fromStdString(m_isotopes)), form, {}};
    chosen->run(&task);
    return task.complaints.areThere() ? refusedStatus : doneStatus;
}

int Program::help() const
{
    if (m_wantsManualPage || m_wantsCompletion) {
        writeOut(m_wantsManualPage ? manualPage(m_app, versionText()) : bashCompletion(m_app));
        return doneStatus;
    }
    if (m_helpTopic.empty()) {
        // Not m_app.help(), which tells about the command at work, this one.
        writeOut(
            m_app.get_formatter()->make_help(&m_app, m_app.get_name(), CLI::AppFormatMode::Normal));
        return doneStatus;
    }
    const auto topic =
        std::find_if(m_commands.begin(), m_commands.end(), [this](const Command& command) {
            return command.app->check_name(m_helpTopic);
        });
    if (topic == m_commands.end())
        return complain(u"there is no command "_s + QString::fromStdString(m_helpTopic));
    writeOut(topic->app->help(m_app.get_name()));
    return doneStatus;
}

void addNotation(CLI::App* command, Notation* notation, bool onlyChains)
{
    std::map<std::string, Notation> notations = {{"proforma", Notation::ProForma},
                                                 {"oligo", Notation::Oligo}};
    if (!onlyChains) {
        notations["formula"] = Notation::Formula;
        notations["glycan"] = Notation::Glycan;
    }
    std::vector<std::string> names;
    std::string listed;
    for (const auto& [name, value] : notations) {
        names.push_back(name);
        listed += (listed.empty() ? "" : ", ") + name;
    }
    const auto take = [notation, notations](const std::string& name) {
        *notation = notations.at(name);
    };
    command->add_option_function<std::string>("--as", take, "The notation of the text: " + listed)
        ->check(oneOf(names))
        ->option_text("NOTATION");
}

void addTexts(CLI::App* command, std::vector<std::string>* texts)
{
    command->add_option("TEXT", *texts, "Texts; @FILE or - reads one text a line")->required();
}

void addText(CLI::App* command, std::string* text)
{
    command->add_option("TEXT", *text, "A text; @FILE or - reads it from the only line there")
        ->required();
}

} // namespace tool
