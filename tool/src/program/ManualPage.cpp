#include "program/ManualPage.h"

namespace tool {

namespace {

/// Text in which nothing is a request or an escape.
std::string plain(const std::string& text)
{
    std::string escaped;
    for (const char character : text) {
        const bool startsLine = escaped.empty() || escaped.back() == '\n';
        if (startsLine && (character == '.' || character == '\''))
            escaped += "\\&";
        if (character == '\\')
            escaped += "\\e";
        else if (character == '-')
            escaped += "\\-";
        else
            escaped += character;
    }
    return escaped;
}

std::string section(const std::string& name, const std::string& text)
{
    return ".SH " + name + '\n' + text + '\n';
}

std::string asItStands(const std::string& text)
{
    return text.empty() ? "" : ".PP\n.nf\n" + plain(text) + "\n.fi\n";
}

std::string entry(const CLI::Option& option, const CLI::Formatter& help)
{
    const bool isPositional = option.get_positional();
    return ".TP\n.B " + plain(help.make_option_name(&option, isPositional)) +
           plain(help.make_option_opts(&option)) + '\n' + plain(help.make_option_desc(&option)) +
           '\n';
}

std::string entries(const CLI::App& command, const CLI::Formatter& help)
{
    std::string text;
    for (const CLI::Option* option : command.get_options())
        text += entry(*option, help);
    return text;
}

std::string commandEntry(const CLI::App& command, const CLI::Formatter& help)
{
    return ".SS " + plain(command.get_name()) + '\n' + plain(command.get_description()) + ".\n" +
           entries(command, help) + asItStands(command.get_footer());
}

} // namespace

std::string manualPage(const CLI::App& app, const std::string& version)
{
    const CLI::Formatter help;
    const std::string& name = app.get_name();
    std::string commands;
    for (const CLI::App* command : app.get_subcommands({}))
        commands += commandEntry(*command, help);
    return ".TH " + name + " 1 \"\" \"" + plain(version) + "\" \"User Commands\"\n" +
           section("NAME", name + " \\- " + plain(app.get_description())) +
           section("SYNOPSIS", ".B " + name + "\n[OPTIONS] COMMAND [OPTIONS] [TEXT...]") +
           section("DESCRIPTION", plain(app.get_footer())) +
           section("OPTIONS", entries(app, help)) + section("COMMANDS", commands);
}

} // namespace tool
