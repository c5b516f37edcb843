#include "commands/IonChoice.h"
#include "commands/TextIons.h"

#include <algorithm>
#include <tuple>
#include <vector>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Options
{
    std::string text;
    Notation notation = Notation::ProForma;
    IonChoice choice;
};

/// One ion of a list.
struct ListedIon
{
    ions::IonRun run;
    quint32 number = 0;
    qsizetype index = 0;
    qsizetype kind = 0; ///< Counts series, shift of hydrogens, charge and loss.
};

bool isOneKind(const ions::IonRun& left, const ions::IonRun& right)
{
    return left.series == right.series && left.hydrogens == right.hydrogens &&
           left.charge == right.charge && left.loss == right.loss;
}

/// The ions kind by kind in the order of the list, then by chain and number. The list has them by
/// the ways in which they hold open groups and by the cuts of linked chains.
std::vector<ListedIon> orderedIons(const ions::FragmentIons& fragments)
{
    std::vector<ListedIon> all;
    qsizetype kind = 0;
    for (const ions::IonRun& run : fragments.runs()) {
        kind += !all.empty() && !isOneKind(all.back().run, run) ? 1 : 0;
        for (quint32 i = 0; i < run.count; ++i)
            all.push_back({run, run.firstNumber + i, std::ssize(all), kind});
    }
    std::stable_sort(all.begin(), all.end(), [](const ListedIon& left, const ListedIon& right) {
        return std::tuple(left.kind, left.run.chain, left.run.start, left.number) <
               std::tuple(right.kind, right.run.chain, right.run.start, right.number);
    });
    return all;
}

/// Where an ion starts or ends, as its label counts, or how many monosaccharides it has; empty for
/// the whole molecule and for ions of a group alone.
QString numberCell(const ListedIon& ion)
{
    const QString number = QString::number(ion.number);
    switch (ion.run.series) {
    case ions::Series::Precursor:
    case ions::Series::Oxonium:
    case ions::Series::Reporter:
        return QString();
    case ions::Series::Internal:
        return QString::number(ion.run.start) + u':' + number;
    default:
        return number;
    }
}

void addRows(const TextIons& listed, Table* table)
{
    const auto& [backbone, fragments] = listed;
    for (const ListedIon& ion : orderedIons(fragments)) {
        const double mz = fragments.mz()[std::size_t(ion.index)];
        if (mz <= 0.0) // the charge or the loss is more than there is
            continue;
        table->add({fragments.label(backbone, ion.index), ions::seriesName(ion.run.series),
                    numberCell(ion), int(ion.run.charge),
                    lossCell(fragments.losses()[ion.run.loss]), mz});
    }
}

void run(const Options& options, Task* task)
{
    options.choice.options(task->chemistry); // wrong usage is told before anything is written
    Table table({u"label"_s, u"series"_s, u"number"_s, u"charge"_s, u"loss"_s, u"mz"_s},
                task->form);
    if (const auto listed = readTextIons(options.text, options.notation, options.choice, task))
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
