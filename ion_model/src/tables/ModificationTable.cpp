#include "ModificationTable.h"

#include "masses/EntityMasses.h"
#include "support/NearestNames.h"
#include "tables/DataFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

ChainPosition positionOf(const QString& text)
{
    if (text == u"Any N-term")
        return ChainPosition::AnyNTerm;
    if (text == u"Any C-term")
        return ChainPosition::AnyCTerm;
    if (text == u"Protein N-term")
        return ChainPosition::ProteinNTerm;
    if (text == u"Protein C-term")
        return ChainPosition::ProteinCTerm;
    return ChainPosition::Anywhere;
}

/// A residue's letter; 0 for "N-term" and "C-term".
char16_t residueOf(const QString& site)
{
    return site.size() == 1 ? site[0].unicode() : char16_t(0);
}

/// SITE@POSITION=CLASSIFICATION, separated by semicolons.
std::vector<ModificationSite> sitesOf(const QString& text)
{
    std::vector<ModificationSite> sites;
    for (const QString& site : text.split(u';', Qt::SkipEmptyParts)) {
        const QString place = site.section(u'=', 0, 0);
        sites.push_back({residueOf(place.section(u'@', 0, 0)),
                         positionOf(place.section(u'@', 1, 1)), site.section(u'=', 1)});
    }
    return sites;
}

/// SITE:COMPOSITION, separated by semicolons.
std::vector<ModificationLoss> lossesOf(const QString& text)
{
    std::vector<ModificationLoss> losses;
    for (const QString& loss : text.split(u';', Qt::SkipEmptyParts)) {
        losses.push_back({residueOf(loss.section(u':', 0, 0)),
                          Composition::readUnimod(loss.section(u':', 1)).value()});
    }
    return losses;
}

int accessionOf(const QString& text)
{
    return text.section(u':', 1).toInt();
}

ModificationEntry unimodEntry(const QList<QString>& row, const AtomMasses& atoms)
{
    const Composition composition =
        row.at(4).isEmpty() ? Composition() : Composition::readUnimod(row.at(4)).value();
    return {Vocabulary::Unimod,    accessionOf(row.at(0)),           row.at(1),
            composition,           atoms.weigh(composition).value(), sitesOf(row.value(5)),
            lossesOf(row.value(6))};
}

ModificationEntry crosslinkerEntry(const QList<QString>& row, const AtomMasses& atoms)
{
    const Composition composition = Composition::read(row.at(2)).value();
    return {Vocabulary::Xlmod,
            accessionOf(row.at(0)),
            row.at(1),
            composition,
            atoms.weigh(composition).value(),
            {},
            {}};
}

std::pair<int, QString> nameKey(Vocabulary vocabulary, QStringView name)
{
    return {int(vocabulary), name.toString().toCaseFolded()};
}

/// The reporter ions of labels by Unimod's names.
QHash<QString, std::vector<LabelIon>> reporterIons()
{
    QHash<QString, std::vector<LabelIon>> ions;
    for (const QList<QString>& row : DataFile(u"reporters.tsv"_s).rows())
        ions[row.at(0)].push_back({row.at(1), Composition::read(row.at(2)).value()});
    return ions;
}

/// Whether no element gains or loses atoms: only their isotopes may differ.
bool keepsElements(const Composition& composition)
{
    std::array<qint64, 256> counts{};
    for (const Composition::Term& term : composition.terms())
        counts[term.atom.atomicNumber] += term.count;
    return std::all_of(counts.begin(), counts.end(), [](qint64 count) { return count == 0; });
}

/// Whether the masses can be those of the entry: a caller may have forgotten to fill them.
bool isWeighed(const ModificationEntry& entry)
{
    const bool isFilled = entry.masses.monoisotopic != 0.0 && entry.masses.average != 0.0;
    return isFinite(entry.masses) && (isFilled || keepsElements(entry.composition));
}

} // namespace

ModificationTable ModificationTable::standard(const AtomMasses& atoms)
{
    const auto reporters = reporterIons();
    ModificationTable table;
    for (const QList<QString>& row : DataFile(u"unimod.tsv"_s).rows()) {
        ModificationEntry entry = unimodEntry(row, atoms);
        entry.reporters = reporters.value(entry.name);
        table.add(std::move(entry));
    }
    for (const QList<QString>& row : DataFile(u"crosslinkers.tsv"_s).rows())
        table.add(crosslinkerEntry(row, atoms));
    return table;
}

bool ModificationTable::add(ModificationEntry entry)
{
    const auto name = nameKey(entry.vocabulary, entry.name);
    const std::pair<int, int> number{int(entry.vocabulary), entry.accession};
    if (entry.name.isEmpty() || m_byName.contains(name) || !isWeighed(entry) ||
        (entry.accession != 0 && m_byAccession.contains(number))) {
        return false;
    }
    const auto index = qsizetype(m_entries.size());
    m_byName.insert(name, index);
    if (entry.accession != 0)
        m_byAccession.insert(number, index);
    const std::pair<double, qsizetype> mass{entry.masses.monoisotopic, index};
    m_byMass.insert(std::upper_bound(m_byMass.begin(), m_byMass.end(), mass), mass);
    m_entries.push_back(std::move(entry));
    return true;
}

const ModificationEntry* ModificationTable::byName(QStringView name) const
{
    for (const auto vocabulary : {Vocabulary::Unimod, Vocabulary::Xlmod, Vocabulary::Custom}) {
        if (const ModificationEntry* entry = byName(vocabulary, name))
            return entry;
    }
    return nullptr;
}

const ModificationEntry* ModificationTable::byName(Vocabulary vocabulary, QStringView name) const
{
    const auto index = m_byName.constFind(nameKey(vocabulary, name));
    return index == m_byName.cend() ? nullptr : &m_entries[std::size_t(*index)];
}

const ModificationEntry* ModificationTable::byAccession(Vocabulary vocabulary, int accession) const
{
    const auto index = m_byAccession.constFind({int(vocabulary), accession});
    return index == m_byAccession.cend() ? nullptr : &m_entries[std::size_t(*index)];
}

std::vector<const ModificationEntry*> ModificationTable::byMass(double mass,
                                                                const Tolerance& tolerance) const
{
    if (!std::isfinite(mass))
        return {};
    using Weighed = std::pair<double, qsizetype>;
    const auto first = std::lower_bound(m_byMass.begin(), m_byMass.end(), tolerance.lowest(mass),
                                        [](const Weighed& w, double m) { return w.first < m; });
    const auto last = std::upper_bound(first, m_byMass.end(), tolerance.highest(mass),
                                       [](double m, const Weighed& w) { return m < w.first; });
    std::vector<Weighed> found(first, last);
    std::sort(found.begin(), found.end(), [mass](const Weighed& left, const Weighed& right) {
        return std::pair(std::abs(left.first - mass), left.second) <
               std::pair(std::abs(right.first - mass), right.second);
    });
    std::vector<const ModificationEntry*> entries;
    entries.reserve(found.size());
    for (const Weighed& weighed : found)
        entries.push_back(&m_entries[std::size_t(weighed.second)]);
    return entries;
}

QStringList ModificationTable::nearestNames(QStringView name, qsizetype count) const
{
    QStringList names;
    names.reserve(qsizetype(m_entries.size()));
    for (const ModificationEntry& entry : m_entries)
        names.append(entry.name);
    return ions::nearestNames(name, names, count);
}

} // namespace ions
