#include "sequences/OligoReader.h"

#include "sequences/OligoComplex.h"

#include <algorithm>
#include <deque>
#include <span>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace chem {

/// A text that is in the grammar, read. It holds the text itself, which the marks point into: the
/// caller's may lie in one of the outputs, such as the name of a terminal. A copy would point into
/// the one that it was copied from, so it can only be moved.
struct OligoText
{
    OligoText() = default;
    OligoText(OligoText&&) = default;
    OligoText& operator=(OligoText&&) = default;
    Q_DISABLE_COPY(OligoText)

    QString text;
    QStringView fivePrimeMark;
    QStringView threePrimeMark;
    bool endsInNumber = false;
    std::vector<PlacedNucleotide> nucleotides;
    std::deque<Nucleotide> ownNucleotides; ///< Those that are not kept prepared.

    void place(const Nucleotide& ownNucleotide)
    {
        ownNucleotides.push_back(ownNucleotide);
        nucleotides.push_back({&ownNucleotides.back()});
    }
};

namespace {

bool isBareNumber(const OligoText& text)
{
    return text.nucleotides.size() == 1 && isNumber(*text.nucleotides.front().nucleotide);
}

/// Whether the linkage was not written but filled in.
bool hasImplicitPhosphate(const Nucleotide& nucleotide)
{
    return nucleotide.phosphate.code.isEmpty();
}

Nucleotide withoutPhosphate(const Nucleotide& nucleotide)
{
    return Nucleotide(nucleotide.nucleobase, nucleotide.ribose, NamedMolecule(), nucleotide.name,
                      nucleotide.code);
}

/// A number at the end is what the molecule ends in, so nothing links the nucleotide before it.
void unlinkLast(OligoText* text)
{
    if (text->nucleotides.empty())
        return;
    const Nucleotide& last = *text->nucleotides.back().nucleotide;
    if (!hasImplicitPhosphate(last))
        return;
    text->nucleotides.pop_back();
    text->place(withoutPhosphate(last));
}

} // namespace

OligoReader::OligoReader(const OligoBlocks& blocks, const ChainGroups& groups)
    : m_scanner(alphabetsOf(blocks))
    , m_sites(groups)
    , m_nucleotides(blocks, m_sites)
    , m_unmarkedFivePrime(groups.hydrogen, u"5Prime"_s, QString())
    , m_unmarkedThreePrime(groups.hydroxyl, u"3Prime"_s, QString())
{
}

bool OligoReader::isValid(QStringView text) const
{
    while (true) {
        const qsizetype comma = text.indexOf(u',');
        if (!m_scanner.matches(comma < 0 ? text : text.first(comma)))
            return false;
        if (comma < 0)
            return true;
        text = text.sliced(comma + 1);
    }
}

/// Reads a text; nothing if it is outside the grammar.
std::optional<OligoText> OligoReader::read(const QString& text) const
{
    const std::optional<OligoScanner::Parts> split = m_scanner.split(text);
    if (!split)
        return std::nullopt;
    OligoText result;
    result.text = text;
    result.fivePrimeMark = split->fivePrimeMark;
    result.threePrimeMark = split->threePrimeMark;

    const OligoUnits units = m_scanner.units(split->body);
    result.endsInNumber = !units.isEmpty() && !units.back().number.isEmpty();
    result.nucleotides.reserve(static_cast<std::size_t>(units.size()));
    for (const OligoUnit& unit : units) {
        const bool isLast = &unit == &units.back();
        if (isLast && result.endsInNumber)
            unlinkLast(&result);
        if (const auto* const prepared = m_nucleotides.find(unit, isLast))
            result.nucleotides.push_back({&prepared->nucleotide, prepared->breaks});
        else
            result.place(m_nucleotides.make(unit, isLast));
    }
    return result;
}

void OligoReader::writeUnmarkedTerminals(NamedMolecule* fivePrime, NamedMolecule* threePrime) const
{
    *fivePrime = m_unmarkedFivePrime;
    *threePrime = m_unmarkedThreePrime;
}

/// Writes the terminals that the marks of `text` choose, and those of a text without marks: a bare
/// number is a mass without terminals.
void OligoReader::writeTerminals(const OligoText& text, bool isBareNumber, NamedMolecule* fivePrime,
                                 NamedMolecule* threePrime) const
{
    writeUnmarkedTerminals(fivePrime, threePrime);
    if (isBareNumber && text.fivePrimeMark.isEmpty())
        *fivePrime = NamedMolecule();
    if (isBareNumber && text.threePrimeMark.isEmpty())
        *threePrime = NamedMolecule();
    if (text.fivePrimeMark.size() == 1)
        *fivePrime = m_nucleotides.fivePrimeTerminals().entry(text.fivePrimeMark.front());
    if (text.threePrimeMark.size() == 1)
        *threePrime = m_nucleotides.threePrimeTerminals().entry(text.threePrimeMark.front());
}

bool OligoReader::parse(const QString& sequence,
                        QList<QSharedPointer<const Nucleotide>>* nucleotides,
                        NamedMolecule* fivePrime, NamedMolecule* threePrime) const
{
    const std::optional<OligoText> text = read(sequence);
    if (!text) {
        writeUnmarkedTerminals(fivePrime, threePrime);
        return false;
    }

    // The list is the caller's: a lone number takes the phosphate of an earlier entry as well.
    const bool isLoneNumber = text->endsInNumber && text->nucleotides.size() == 1;
    if (isLoneNumber && !nucleotides->isEmpty() && hasImplicitPhosphate(*nucleotides->constLast()))
        nucleotides->last() =
            QSharedPointer<Nucleotide>::create(withoutPhosphate(*nucleotides->constLast()));
    if (nucleotides->isEmpty()) // a list that grows text by text keeps its own rhythm
        nucleotides->reserve(static_cast<qsizetype>(text->nucleotides.size()));
    for (const PlacedNucleotide& placed : text->nucleotides)
        nucleotides->append(QSharedPointer<const Nucleotide>::create(*placed.nucleotide));

    const bool isBareNumber = nucleotides->size() == 1 && isNumber(*nucleotides->constFirst());
    writeTerminals(*text, isBareNumber, fivePrime, threePrime);
    return true;
}

QSharedPointer<MoleculeComplex> OligoReader::complex(const QString& sequence) const
{
    const std::optional<OligoText> text = read(sequence.simplified().remove(u' '));
    if (!text)
        return {};
    NamedMolecule fivePrime;
    NamedMolecule threePrime;
    writeTerminals(*text, isBareNumber(*text), &fivePrime, &threePrime);
    return oligoComplex(text->nucleotides, fivePrime, threePrime, m_sites);
}

QSharedPointer<MoleculeComplex>
OligoReader::complex(const QList<QSharedPointer<const Nucleotide>>& nucleotides,
                     const NamedMolecule& fivePrime, const NamedMolecule& threePrime) const
{
    std::vector<PlacedNucleotide> placed;
    placed.reserve(static_cast<std::size_t>(nucleotides.size()));
    for (const auto& nucleotide : nucleotides)
        placed.push_back({nucleotide.data()});
    return oligoComplex(placed, fivePrime, threePrime, m_sites);
}

void OligoReader::appendTruncations(const QString& sequence, int fivePrimeTruncations,
                                    int threePrimeTruncations,
                                    QList<QSharedPointer<const MoleculeComplex>>* complexes) const
{
    const std::optional<OligoText> text = read(sequence);
    NamedMolecule fivePrime;
    NamedMolecule threePrime;
    std::span<const PlacedNucleotide> whole;
    if (text) {
        writeTerminals(*text, isBareNumber(*text), &fivePrime, &threePrime);
        whole = text->nucleotides;
    } else {
        writeUnmarkedTerminals(&fivePrime, &threePrime);
    }

    const auto append = [&](std::span<const PlacedNucleotide> remaining) {
        complexes->append(oligoComplex(remaining, fivePrime, threePrime, m_sites));
    };
    append(whole);
    for (std::size_t i = 1; std::cmp_less_equal(i, fivePrimeTruncations); ++i)
        append(whole.subspan(std::min(i, whole.size())));
    // Beyond its length the list is whole again, as QList::mid() has it for a negative length.
    for (std::size_t j = 1; std::cmp_less_equal(j, threePrimeTruncations); ++j)
        append(j > whole.size() ? whole : whole.first(whole.size() - j));
}

} // namespace chem
