#include "FragmentIons.h"

#include "fragments/GroupIons.h"
#include "fragments/IonPlan.h"
#include "fragments/IonWriter.h"
#include "fragments/SeriesMasses.h"

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

QString signedCount(int count, const QString& symbol)
{
    if (count == 0)
        return {};
    const QString number = std::abs(count) == 1 ? QString() : QString::number(std::abs(count));
    return (count < 0 ? u"-"_s : u"+"_s) + number + symbol;
}

bool isDotted(const QString& name)
{
    return name.endsWith(u'.');
}

/// The label of an ion that groups give alone; empty where the backbone has none of this number.
QString loneLabel(const Backbone& backbone, Series series, qsizetype number)
{
    const auto ions = loneIons(backbone, series);
    return number <= std::ssize(ions) ? u"r["_s + ions[std::size_t(number - 1)].name + u']'
                                      : QString();
}

/// Whether a chain has so many units.
bool hasUnit(const Backbone& backbone, qsizetype chain, qsizetype count)
{
    return chain < std::ssize(backbone.chains()) &&
           count <= std::ssize(backbone.chains()[std::size_t(chain)].units);
}

} // namespace

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
    const qsizetype number = qsizetype(run.firstNumber) + offset;
    if (run.series == Series::Oxonium || run.series == Series::Reporter)
        return loneLabel(backbone, run.series, number);
    const bool isWhole = isOfMolecule(run.series);
    if (!hasUnit(backbone, run.chain, isWhole ? 0 : number))
        return {};
    const bool isOneOfSeveral = backbone.chains().size() > 1 && !isWhole;
    QString text = isOneOfSeveral ? QString::number(run.chain + 1) + u':' : QString();
    int dotted = 0;
    if (isWhole) {
        text += u'p';
    } else if (run.series == Series::Immonium) {
        const QChar letter = backbone.chains()[run.chain].letters[number - 1];
        text += u'I' + QString(letter.isNull() ? QChar(u'X') : letter);
    } else if (run.series == Series::Internal) {
        text += u'm' + QString::number(run.start) + u':' + QString::number(number);
    } else {
        const QString name = seriesName(run.series);
        dotted = isDotted(name) ? 1 : 0;
        text += (isDotted(name) ? name.chopped(1) : name) + QString::number(number);
    }
    text += signedCount(run.hydrogens + dotted, u"H"_s) + m_losses[run.loss];
    if (run.charge != 1)
        text += u'^' + QString::number(run.charge);
    return text;
}

} // namespace ions
