#include "ProForma.h"
#include "proforma/FormulaText.h"
#include "proforma/ModificationText.h"
#include "proforma/PeptidoformOrder.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

QString nameText(const QString& name, const QString& marks)
{
    return name.isEmpty() ? QString() : u"("_s + marks + name + u")"_s;
}

QString bracketText(const Modification& modification)
{
    return u"["_s + modificationText(modification) + u"]"_s;
}

QString countText(int count)
{
    return count == 1 ? QString() : u"^"_s + QString::number(count);
}

QString fixedText(const FixedModification& fixed)
{
    return u"<"_s + bracketText(fixed.modification) + u"@"_s + placesText(fixed.places) + u">"_s;
}

QString isotopeText(Atom isotope)
{
    return u"<"_s + QString::number(isotope.massNumber) + isotope.symbol() + u">"_s;
}

/// Writes the residues of a chain with what sits on them, in one pass over all lists.
class SequenceText
{
public:
    explicit SequenceText(const PeptidoformChain& chain)
        : m_chain(chain)
        , m_modification(chain.modifications.begin())
        , m_range(chain.ranges.begin())
    {
    }

    QString write()
    {
        for (qsizetype residue = 0; residue < m_chain.residues.size(); ++residue) {
            const bool isInRange = m_range != m_chain.ranges.end() && m_range->first <= residue;
            if (isInRange && m_range->first == residue)
                m_text += m_range->kind == ResidueRange::AmbiguousOrder ? u"(?"_s : u"("_s;
            writeResidue(residue);
            if (isInRange && m_range->last == residue)
                closeRange();
        }
        return std::move(m_text);
    }

private:
    void writeResidue(qsizetype residue)
    {
        m_text += m_chain.residues[residue];
        for (; m_modification != m_chain.modifications.end() && m_modification->residue == residue;
             ++m_modification) {
            m_text += bracketText(m_modification->modification);
        }
    }

    void closeRange()
    {
        m_text += u')';
        for (const Modification& modification : m_range->modifications)
            m_text += bracketText(modification);
        ++m_range;
    }

    const PeptidoformChain& m_chain;
    std::vector<ResidueModification>::const_iterator m_modification;
    std::vector<ResidueRange>::const_iterator m_range;
    QString m_text;
};

QString chainText(const PeptidoformChain& chain)
{
    QString text = nameText(chain.name, u">"_s);
    for (const UnlocalisedModification& one : chain.unlocalised)
        text += bracketText(one.modification) + countText(one.count);
    if (!chain.unlocalised.empty())
        text += u'?';
    for (const Modification& labile : chain.labile)
        text += u"{"_s + modificationText(labile) + u"}"_s;
    for (const Modification& modification : chain.leftEnd)
        text += bracketText(modification);
    if (!chain.leftEnd.empty())
        text += u'-';
    text += SequenceText(chain).write();
    if (!chain.rightEnd.empty())
        text += u'-';
    for (const Modification& modification : chain.rightEnd)
        text += bracketText(modification);
    return text;
}

QString carrierText(const ChargeCarrier& carrier)
{
    return formulaText(carrier.formula.composition) + chargeText(carrier.formula.charge) +
           countText(carrier.count);
}

QString ionText(const PeptidoformIon& ion)
{
    QStringList chains;
    for (const PeptidoformChain& chain : ion.chains)
        chains.append(chainText(chain));
    const QString text = nameText(ion.name, u">>"_s) + chains.join(u"//"_s);
    if (ion.protons)
        return text + u"/"_s + QString::number(*ion.protons);
    if (ion.carriers.empty())
        return text;
    QStringList carriers;
    for (const ChargeCarrier& carrier : ion.carriers)
        carriers.append(carrierText(carrier));
    return text + u"/["_s + carriers.join(u',') + u"]"_s;
}

} // namespace

qsizetype TextPositions::of(qsizetype residue) const
{
    const auto next =
        std::upper_bound(m_runs.begin(), m_runs.end(), residue,
                         [](qsizetype wanted, const auto& run) { return wanted < run.first; });
    return next == m_runs.begin() ? -1 : std::prev(next)->second + residue - std::prev(next)->first;
}

void sortGlobals(Peptidoform* peptidoform)
{
    std::sort(peptidoform->isotopes.begin(), peptidoform->isotopes.end());
    std::vector<std::pair<QString, std::size_t>> order;
    for (std::size_t i = 0; i < peptidoform->fixed.size(); ++i)
        order.emplace_back(fixedText(peptidoform->fixed[i]), i);
    std::sort(order.begin(), order.end());
    std::vector<FixedModification> sorted;
    sorted.reserve(order.size());
    for (const auto& [text, index] : order)
        sorted.push_back(std::move(peptidoform->fixed[index]));
    peptidoform->fixed = std::move(sorted);
}

QString Peptidoform::toString() const
{
    QString text = nameText(name, u">>>"_s);
    for (const Atom isotope : isotopes)
        text += isotopeText(isotope);
    for (const FixedModification& rule : fixed)
        text += fixedText(rule);
    QStringList texts;
    for (const PeptidoformIon& ion : ions)
        texts.append(ionText(ion));
    return text + texts.join(u'+');
}

} // namespace ions
