#include "commands/IonChoice.h"
#include "commands/TextIons.h"

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Options
{
    std::string text;
    Notation notation = Notation::ProForma;
    IonChoice choice;
};

/// Where an ion starts or ends, as its label counts; empty for the whole molecule.
QString numberCell(const ions::IonRun& run, quint32 index)
{
    const QString number = QString::number(run.firstNumber + index);
    if (run.series == ions::Series::Precursor)
        return QString();
    return run.series == ions::Series::Internal ? QString::number(run.start) + u':' + number
                                                : number;
}

void addRows(const TextIons& listed, Table* table)
{
    const auto& [backbone, fragments] = listed;
    qsizetype ion = 0;
    for (const ions::IonRun& run : fragments.runs()) {
        for (quint32 i = 0; i < run.count; ++i, ++ion) {
            table->add({fragments.label(backbone, ion), ions::seriesName(run.series),
                        numberCell(run, i), int(run.charge), lossCell(fragments.losses()[run.loss]),
                        fragments.mz()[std::size_t(ion)]});
        }
    }
}

void run(const Options& options, Task* task)
{
    const ions::IonOptions wanted = options.choice.options(task->chemistry);
    Table table({u"label"_s, u"series"_s, u"number"_s, u"charge"_s, u"loss"_s, u"mz"_s},
                task->digits);
    if (const auto listed = readTextIons(options.text, options.notation, wanted, task))
        addRows(*listed, &table);
}

} // namespace

void addIonsCommand(Program* program)
{
    const auto options = std::make_shared<Options>();
    CLI::App* command = program->addCommand(
        "ions", "List the fragment ions of a text",
        "zel ions 'EM[Oxidation]EVEES[Phospho]PEK' --series b,y --charges 1-2 --losses H2O",
        [options](Task* task) { run(*options, task); });
    addText(command, &options->text);
    addNotation(command, &options->notation, true);
    options->choice.addTo(command);
}

} // namespace tool
