#include "program/OptionChecks.h"
#include "program/Program.h"
#include "readers/Fasta.h"
#include "readers/InputFile.h"
#include <Digest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Options
{
    std::string file;
    std::string agent;
    std::string end = "phosphate";
    Notation notation = Notation::ProForma;
    int missed = 2;
    int min = 7;
    int max = 50;
    bool isSemi = false;
};

/// What cuts, and what it needs to weigh its products.
class Cutter
{
public:
    Cutter(const Options& options, const Chemistry& chemistry)
        : m_isRna(options.notation == Notation::Oligo)
        , m_end(options.end == "cyclic" ? ions::ThreePrimeEnd::CyclicPhosphate
                                        : ions::ThreePrimeEnd::Phosphate)
        , m_residues(chemistry.residues)
        , m_nucleotides(chemistry.residues)
        , m_limits{options.missed, options.min, options.max}
    {
        checkLengths(options.min, options.max);
        m_limits.isSemiSpecific = options.isSemi;
        const QString name = fromShell(options.agent);
        if (m_isRna)
            m_ribonuclease = agent<ions::Ribonuclease>(name.isEmpty() ? u"RNase T1"_s : name);
        else
            m_protease = agent<ions::Protease>(name.isEmpty() ? u"Trypsin"_s : name);
    }

    bool cut(const QString& text, ions::Digest* digest) const
    {
        return m_isRna ? digest->cleave(text, *m_ribonuclease, m_nucleotides, m_end, m_limits)
                       : digest->cleave(text, *m_protease, m_residues, m_limits);
    }

    /// A piece as text that the notation reads. RNA has the mark of its sugar in front of each
    /// letter, and of what a cut left behind the last: `}` for a 3'-phosphate, and for a cyclic
    /// one `>p`, which no reader of oligonucleotides knows and none takes for anything else.
    QString piece(const QString& letters, qsizetype start, qsizetype end) const
    {
        const QStringView letterRun = QStringView(letters).sliced(start, end - start);
        if (!m_isRna)
            return letterRun.toString();
        QString text;
        text.reserve(2 * letterRun.size() + 2);
        for (const QChar letter : letterRun) {
            text += u'r';
            text += letter;
        }
        if (end < letters.size())
            text += m_end == ions::ThreePrimeEnd::Phosphate ? u"}"_s : u">p"_s;
        return text;
    }

private:
    template <typename Agent>
    static Agent agent(const QString& name)
    {
        const auto found = Agent::named(name);
        if (!found)
            throw UsageError{u"--protease: "_s + found.error().message};
        return *found;
    }

    bool m_isRna;
    ions::ThreePrimeEnd m_end;
    const ions::ResidueTable& m_residues;
    ions::RnaTable m_nucleotides;
    ions::DigestOptions m_limits;
    std::optional<ions::Protease> m_protease;
    std::optional<ions::Ribonuclease> m_ribonuclease;
};

void addRows(const Sequence& sequence, const Cutter& cutter, const ions::Digest& digest,
             Table* table)
{
    for (std::size_t i = 0; i < digest.size(); ++i) {
        const qsizetype start = digest.starts()[i];
        const qsizetype end = digest.ends()[i];
        table->add({sequence.name, start + 1, end, digest.missedCleavages()[i],
                    cutter.piece(sequence.letters, start, end), digest.monoisotopic()[i],
                    digest.average()[i]});
    }
}

void run(const Options& options, Task* task)
{
    const Cutter cutter(options, task->chemistry);
    Table table({u"protein"_s, u"start"_s, u"end"_s, u"missed"_s, u"sequence"_s, u"monoisotopic"_s,
                 u"average"_s},
                task->form);
    ions::Digest digest;
    const auto take = [&](Sequence&& sequence) {
        if (cutter.cut(sequence.letters, &digest))
            addRows(sequence, cutter, digest, &table);
        else
            task->complaints.report(sequence.place, {u"expected a shorter sequence"_s, 0});
    };
    withLines(fromShell(options.file), &task->complaints,
              [&](const QString& source, LineReader* lines) {
                  readFasta(source, lines, &task->complaints, take);
              });
}

} // namespace

void addDigestCommand(Program* program)
{
    const auto options = std::make_shared<Options>();
    CLI::App* command = program->addCommand(
        "digest", "Cut proteins or RNA into pieces",
        "printf '>P02769 albumin\\nMKWVTFISLLLLFSSAYSRGVFRRDTHK\\n' | zel digest - --missed 1",
        [options](Task* task) { run(*options, task); });
    command->add_option("FILE", options->file, "A FASTA file; - reads standard input")->required();
    command->add_option("--protease", options->agent,
                        "What cuts, by its PSI-MS name: else Trypsin, or RNase T1 for RNA");
    command->add_option("--missed", options->missed, "Cuts that may be missed")
        ->capture_default_str()
        ->check(wholeNumber(0));
    command->add_option("--min", options->min, "The least length")
        ->capture_default_str()
        ->check(wholeNumber(0));
    command->add_option("--max", options->max, "The largest length")
        ->capture_default_str()
        ->check(wholeNumber(0));
    command->add_flag("--semi", options->isSemi, "Let one end be anywhere");
    addNotation(command, &options->notation, true);
    command->add_option("--three-prime", options->end, "What ends of RNA bear: phosphate or cyclic")
        ->capture_default_str()
        ->check(oneOf({"phosphate", "cyclic"}));
}

} // namespace tool
