#include "chemistry/Substance.h"
#include "program/Program.h"
#include "readers/InputFile.h"

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Options
{
    std::vector<std::string> texts;
    Notation notation = Notation::ProForma;
};

void run(const Options& options, Task* task)
{
    Table table({u"text"_s, u"canonical"_s}, task->form);
    forEachText(fromShell(options.texts), &task->complaints,
                [&](const Place& place, const QString& text) {
                    const auto canonical = canonicalText(text, options.notation, task->chemistry);
                    if (canonical)
                        table.add({text, *canonical});
                    else
                        task->complaints.report(place, canonical.error());
                });
}

} // namespace

void addReadCommand(Program* program)
{
    const auto options = std::make_shared<Options>();
    CLI::App* command =
        program->addCommand("read", "Read texts and write them in their canonical form",
                            "zel read 'em[oxidation]evees[unimod:0021]pek/+2'",
                            [options](Task* task) { run(*options, task); });
    addTexts(command, &options->texts);
    addNotation(command, &options->notation);
}

} // namespace tool
