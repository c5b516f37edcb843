#include "FragmentIons.h"

#include "fragments/IonLabel.h"
#include "fragments/IonPlan.h"
#include "fragments/IonWriter.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ions {

Parsed<LossRule> LossRule::read(QStringView text, const AtomMasses& atoms,
                                std::span<const Atom> isotopes)
{
    const qsizetype at = text.indexOf(u'@');
    const QStringView formula = at < 0 ? text : text.first(at);
    const Parsed<Composition> read = Composition::read(formula);
    if (!read)
        return read.error();
    Composition composition = *read;
    for (const Atom isotope : isotopes) {
        if (!composition.label(isotope))
            return Error{u"expected counts that fit the isotopes"_s, 0};
    }
    const Parsed<Masses> masses = atoms.weigh(composition);
    if (!masses)
        return Error{masses.error().message, 0};
    const QStringView residues = at < 0 ? QStringView() : text.sliced(at + 1);
    const auto isLetter = [](QChar c) {
        return c >= u'A' && c <= u'Z';
    };
    const auto wrong = std::find_if_not(residues.begin(), residues.end(), isLetter);
    if ((at >= 0 && residues.isEmpty()) || wrong != residues.end())
        return Error{u"expected letters of residues"_s, at + 1 + (wrong - residues.begin())};
    return LossRule{{formula.toString(), *masses}, residues.toString()};
}

std::optional<Error> FragmentIons::assign(const Backbone& backbone, const IonOptions& options)
{
    return IonWriter(backbone, options, *this).write();
}

std::size_t IonRuns::size() const
{
    return m_ions->m_isUniform ? m_ions->m_plan->endKinds().size() : m_ions->m_runs.size();
}

IonRun IonRuns::operator[](std::size_t index) const
{
    if (!m_ions->m_isUniform)
        return m_ions->m_runs[index];
    IonRun run = m_ions->m_plan->endKinds()[index].kind.run();
    run.firstNumber = 1;
    run.count = quint32(m_ions->m_size / size());
    return run;
}

std::pair<qsizetype, qsizetype> FragmentIons::runOf(qsizetype ion) const
{
    qsizetype index = 0;
    for (const IonRun& run : runs()) {
        if (ion < qsizetype(run.count))
            break;
        ion -= qsizetype(run.count);
        ++index;
    }
    return {index, ion};
}

QString FragmentIons::label(const Backbone& backbone, qsizetype ion) const
{
    const auto [index, offset] = runOf(ion);
    if (ion < 0 || index == qsizetype(runs().size()))
        return {};
    const IonRun run = runs()[std::size_t(index)];
    return ionLabel(backbone, run, qsizetype(run.firstNumber) + offset, m_losses[run.loss]);
}

} // namespace ions
