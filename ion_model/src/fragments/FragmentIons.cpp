#include "FragmentIons.h"

#include "fragments/IonWriter.h"

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

std::pair<qsizetype, qsizetype> FragmentIons::runOf(qsizetype ion) const
{
    qsizetype run = 0;
    for (; run < std::ssize(m_runs) && ion >= qsizetype(m_runs[std::size_t(run)].count); ++run)
        ion -= qsizetype(m_runs[std::size_t(run)].count);
    return {run, ion};
}

QString FragmentIons::label(const Backbone& backbone, qsizetype ion) const
{
    const auto [index, offset] = runOf(ion);
    if (ion < 0 || index == std::ssize(m_runs))
        return {};
    const IonRun& run = m_runs[std::size_t(index)];
    const qsizetype number = qsizetype(run.firstNumber) + offset;
    if (!hasUnit(backbone, run.chain, number))
        return {};
    const bool isOneOfSeveral = backbone.chains().size() > 1 && run.series != Series::Precursor;
    QString text = isOneOfSeveral ? QString::number(run.chain + 1) + u':' : QString();
    int dotted = 0;
    if (run.series == Series::Precursor) {
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
