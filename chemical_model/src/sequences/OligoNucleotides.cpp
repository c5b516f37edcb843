#include "sequences/OligoNucleotides.h"

#include "sequences/OligoScanner.h"

#include <QStringBuilder>

using namespace Qt::StringLiterals;

namespace chem {

namespace {

/// Some 2 MB of them.
constexpr std::size_t mostPrepared = 2000;

/// The name of a number in place of a base.
QString numberName()
{
    return u"~~~"_s;
}

NamedMolecule massAsBase(QStringView number)
{
    const double mass = number.toDouble();
    return NamedMolecule(Molecule(ChemicalFormula(), mass, mass), numberName(), number.toString());
}

/// The text of a letter by its number; none for number 0, which stands for what is not written.
QStringView letterView(const LetterTable& table, std::size_t number)
{
    const qsizetype position = static_cast<qsizetype>(number);
    return number == 0 ? QStringView() : QStringView(table.letters()).sliced(position - 1, 1);
}

std::size_t lettersIn(const LetterTable& table)
{
    return static_cast<std::size_t>(table.letters().size());
}

} // namespace

bool isNumber(const Nucleotide& nucleotide)
{
    return nucleotide.nucleobase.name == numberName();
}

OligoNucleotides::OligoNucleotides(const OligoBlocks& blocks, const OligoSites& sites)
    : m_riboses(blocks.riboses)
    , m_nucleobases(blocks.nucleobases)
    , m_phosphates(blocks.phosphates)
    , m_fivePrimeTerminals(blocks.fivePrimeTerminals)
    , m_threePrimeTerminals(blocks.threePrimeTerminals)
    , m_defaultRibose(blocks.defaultRibose)
    , m_defaultPhosphate(blocks.defaultPhosphate)
    , m_linkages(lettersIn(m_phosphates) + 2)
{
    prepare(sites);
}

/// The linkage that marks spell. It has no name; several marks add up.
NamedMolecule OligoNucleotides::linkageOf(QStringView marks) const
{
    NamedMolecule linkage;
    for (const QChar mark : marks) {
        const NamedMolecule& phosphate = m_phosphates.entry(mark);
        linkage += phosphate;
        linkage.code += phosphate.code;
    }
    return linkage;
}

Nucleotide OligoNucleotides::make(const OligoUnit& unit, bool isLast) const
{
    const bool isNumber = !unit.number.isEmpty();
    NamedMolecule phosphate = linkageOf(unit.phosphates);
    if (phosphate.code.isEmpty()) { // not written
        if (isLast)
            phosphate = NamedMolecule();
        else if (!isNumber)
            phosphate = m_defaultPhosphate;
    }
    NamedMolecule ribose;
    if (unit.ribose.size() == 1)
        ribose = m_riboses.entry(unit.ribose.front());
    else if (unit.ribose.isEmpty() && !isNumber)
        ribose = m_defaultRibose;
    NamedMolecule nucleobase;
    if (isNumber)
        nucleobase = massAsBase(unit.number);
    else if (!unit.base.isEmpty())
        nucleobase = m_nucleobases.entry(unit.base.back());
    const QString code = unit.ribose % (isNumber ? unit.number : unit.base) % unit.phosphates;
    return Nucleotide(nucleobase, ribose, phosphate, nucleobase.name, code);
}

/// Riboses count from 0, which is the default, bases from 1, linkages from 0, which is the default,
/// to the last, which is none.
std::size_t OligoNucleotides::placeOf(std::size_t ribose, std::size_t base,
                                      std::size_t linkage) const
{
    return (ribose * lettersIn(m_nucleobases) + base - 1) * m_linkages + linkage;
}

void OligoNucleotides::prepare(const OligoSites& sites)
{
    const std::size_t riboses = lettersIn(m_riboses) + 1;
    const std::size_t bases = lettersIn(m_nucleobases);
    if (riboses > mostPrepared || bases > mostPrepared || m_linkages > mostPrepared ||
        riboses * bases * m_linkages > mostPrepared)
        return;
    m_breaks.reserve(bases * m_linkages); // addresses are kept
    m_prepared.reserve(riboses * bases * m_linkages);
    for (std::size_t ribose = 0; ribose < riboses; ++ribose) {
        for (std::size_t base = 1; base <= bases; ++base)
            prepareLinkages(ribose, base, sites);
    }
}

/// Prepares one sugar and base with each linkage.
void OligoNucleotides::prepareLinkages(std::size_t ribose, std::size_t base,
                                       const OligoSites& sites)
{
    for (std::size_t linkage = 0; linkage < m_linkages; ++linkage) {
        const bool isNone = linkage == m_linkages - 1;
        OligoUnit unit;
        unit.ribose = letterView(m_riboses, ribose);
        unit.base = letterView(m_nucleobases, base);
        unit.phosphates = letterView(m_phosphates, isNone ? 0 : linkage);
        const Nucleotide nucleotide = make(unit, isNone);
        if (ribose == 0)
            m_breaks.push_back(sites.breaksOf(nucleotide.nucleobase, nucleotide.phosphate));
        m_prepared.push_back({nucleotide, &m_breaks[placeOf(0, base, linkage)]});
    }
}

const OligoNucleotides::Prepared* OligoNucleotides::find(const OligoUnit& unit, bool isLast) const
{
    if (m_prepared.empty() || unit.base.size() != 1 || unit.ribose.size() > 1 ||
        unit.phosphates.size() > 1)
        return nullptr;
    const auto numberOf = [](const LetterTable& table, QStringView letter) {
        return letter.isEmpty() ? 0 : table.number(letter.front());
    };
    const std::size_t ribose = numberOf(m_riboses, unit.ribose);
    const std::size_t base = numberOf(m_nucleobases, unit.base);
    const std::size_t phosphate = numberOf(m_phosphates, unit.phosphates);
    const bool isKnown = base != 0 && (ribose != 0 || unit.ribose.isEmpty()) &&
                         (phosphate != 0 || unit.phosphates.isEmpty());
    if (!isKnown)
        return nullptr;
    const bool hasNoLinkage = isLast && phosphate == 0;
    return &m_prepared[placeOf(ribose, base, hasNoLinkage ? m_linkages - 1 : phosphate)];
}

} // namespace chem
