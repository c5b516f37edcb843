#include "fragments/IonLabel.h"

#include "fragments/GroupIons.h"
#include "fragments/HeldOpenGroups.h"
#include "fragments/SeriesMasses.h"

#include <cstdlib>
#include <iterator>
#include <vector>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

/// "+H", "-2H2O"; nothing for none.
QString signedCount(int count, const QString& symbol)
{
    if (count == 0)
        return {};
    const QString number = std::abs(count) == 1 ? QString() : QString::number(std::abs(count));
    return (count < 0 ? u"-"_s : u"+"_s) + number + symbol;
}

/// "[Oxidation]"; the mass of a group without a name.
QString bracketed(const BackboneGroup& group)
{
    const double mass = group.masses.monoisotopic;
    const QString text = (mass < 0 ? u""_s : u"+"_s) + QString::number(mass, 'f', 4);
    return u'[' + (group.name.isEmpty() ? text : group.name) + u']';
}

/// Names one ion of a backbone.
class IonNamer
{
public:
    IonNamer(const Backbone& backbone, const IonRun& run, qsizetype number)
        : m_backbone(backbone)
        , m_run(run)
        , m_number(number)
    {
    }

    /// Whether the backbone has the ion's chain and units.
    bool isThere() const
    {
        const qsizetype units = isOfMolecule(m_run.series) ? 0 : m_number;
        return m_run.chain < std::ssize(m_backbone.chains()) && units <= std::ssize(chain().units);
    }

    QString name(const QString& losses) const
    {
        const bool isWhole = isOfMolecule(m_run.series);
        QString text = !isWhole && m_backbone.chains().size() > 1
                           ? QString::number(m_run.chain + 1) + u':'
                           : QString();
        QString series = isWhole ? u"p"_s : seriesName(m_run.series);
        const bool isDotted = series.endsWith(u'.');
        if (isDotted)
            series.chop(1);
        text += isWhole ? series : piece(series);
        text += signedCount(m_run.hydrogens + (isDotted ? 1 : 0), u"H"_s);
        text += (isWhole ? lostLabile() : openGroups()) + losses;
        if (m_run.charge != 1)
            text += u'^' + QString::number(m_run.charge);
        return text;
    }

    /// The name of an ion that groups give alone.
    QString loneName() const
    {
        const std::vector<LoneIon> ions = loneIons(m_backbone, m_run.series);
        return m_number <= std::ssize(ions) ? u"r["_s + ions[std::size_t(m_number - 1)].name + u']'
                                            : QString();
    }

private:
    const BackboneChain& chain() const { return m_backbone.chains()[m_run.chain]; }

    QString piece(const QString& series) const
    {
        switch (m_run.series) {
        case Series::Immonium:
            return u'I' + residue();
        case Series::Internal:
            return u'm' + QString::number(m_run.start) + u':' + QString::number(m_number);
        default:
            return series + QString::number(m_number);
        }
    }

    /// The residue of an immonium ion with what it bears.
    QString residue() const
    {
        const qsizetype unit = m_number - 1;
        const QChar letter = chain().letters[unit];
        QString text = letter.isNull() ? u'X' : letter;
        for (const PlacedGroup& placed : chain().groups) {
            if (placed.unit == unit && !placed.isOnEnd)
                text += bracketed(placed.group);
        }
        return text;
    }

    /// The labile groups that the molecule has lost.
    QString lostLabile() const
    {
        if (m_run.series != Series::Precursor || m_run.variant == 0)
            return {};
        QString text;
        for (const BackboneChain& chain : m_backbone.chains()) {
            for (const BackboneGroup& group : chain.labile)
                text += u'-' + bracketed(group);
        }
        return text;
    }

    /// The open groups that the ion holds and could be without.
    QString openGroups() const
    {
        QString text;
        for (const auto& [alike, held, certain] :
             heldOpenGroups(m_backbone, m_run, m_number).value_or(std::vector<HeldClass>()))
            text += signedCount(held - certain, bracketed(alike.groups.front()->group));
        return text;
    }

    const Backbone& m_backbone;
    const IonRun& m_run;
    qsizetype m_number;
};

} // namespace

QString ionLabel(const Backbone& backbone, const IonRun& run, qsizetype number,
                 const QString& losses)
{
    const IonNamer namer(backbone, run, number);
    if (run.series == Series::Oxonium || run.series == Series::Reporter)
        return namer.loneName();
    return namer.isThere() ? namer.name(losses) : QString();
}

} // namespace ions
