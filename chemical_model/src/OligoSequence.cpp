#include "ChainTotal.h"
#include "ChemicalFactory.h"
#include "OligoParts.h"
#include "OligoScanner.h"

#include <algorithm>
#include <array>
#include <forward_list>
#include <optional>
#include <span>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace chem {

namespace {

using Nucleotides = QList<QSharedPointer<const Nucleotide>>;

/// A nucleotide in its place in a chain.
struct PlacedNucleotide
{
    const Nucleotide* nucleotide = nullptr;
    const NucleotideBreaks* breaks = nullptr; ///< Null where they are not known yet.
};

/// A text that is in the grammar, read. It holds the text itself, which the marks point into: the
/// caller's may lie in one of the outputs, such as the name of a terminal.
struct OligoText
{
    QString text;
    QStringView fivePrimeMark;
    QStringView threePrimeMark;
    bool endsInNumber = false;
    std::vector<PlacedNucleotide> nucleotides;
    std::forward_list<Nucleotide> rareNucleotides; ///< Those that are not kept prepared.

    void place(const Nucleotide& rareNucleotide)
    {
        nucleotides.push_back({&rareNucleotides.emplace_front(rareNucleotide)});
    }
};

/// The name of a base that is a bare mass.
bool isNumber(const Nucleotide& nucleotide)
{
    return nucleotide.nucleobase.name == "~~~"_L1;
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

/// Reads a text; nothing if it is outside the grammar.
std::optional<OligoText> readOligoText(const QString& text, const OligoScanner& scanner,
                                       const OligoParts& parts)
{
    const std::optional<OligoScanner::Parts> split = scanner.split(text);
    if (!split)
        return std::nullopt;
    OligoText result;
    result.text = text;
    result.fivePrimeMark = split->fivePrimeMark;
    result.threePrimeMark = split->threePrimeMark;

    const OligoUnits units = scanner.units(split->body);
    result.nucleotides.reserve(static_cast<std::size_t>(units.size()));
    for (const OligoUnit& unit : units) {
        const bool isLast = &unit == &units.back();
        result.endsInNumber = !unit.number.isEmpty();
        // A number at the end is what the molecule ends in, so nothing links the nucleotide before
        // it.
        if (isLast && result.endsInNumber && !result.nucleotides.empty()) {
            const Nucleotide& previous = *result.nucleotides.back().nucleotide;
            if (hasImplicitPhosphate(previous)) {
                result.nucleotides.pop_back();
                result.place(withoutPhosphate(previous));
            }
        }
        if (const PreparedNucleotide* prepared = parts.prepared(unit, isLast))
            result.nucleotides.push_back({&prepared->nucleotide, &prepared->breaks});
        else
            result.place(parts.read(unit, isLast));
    }
    return result;
}

/// The mark's entry; one of no mass if the dictionary lacks it.
void readTerminal(QStringView mark, const LetterTable& terminals, NamedMolecule* terminal)
{
    if (mark.size() == 1)
        *terminal = terminals.entry(mark.front());
}

/// Writes the terminals that the marks of `text` choose, and those of a text without marks: a bare
/// number is a mass without terminals.
void readTerminals(const OligoText& text, bool isBareNumber, const OligoParts& parts,
                   NamedMolecule* fivePrime, NamedMolecule* threePrime)
{
    if (isBareNumber && text.fivePrimeMark.isEmpty())
        *fivePrime = NamedMolecule();
    if (isBareNumber && text.threePrimeMark.isEmpty())
        *threePrime = NamedMolecule();
    readTerminal(text.fivePrimeMark, parts.blocks().fivePrimeTerminals, fivePrime);
    readTerminal(text.threePrimeMark, parts.blocks().threePrimeTerminals, threePrime);
}

bool isBareNumber(const OligoText& text)
{
    return text.nucleotides.size() == 1 && isNumber(*text.nucleotides.front().nucleotide);
}

/// Works breaks out once for each base and phosphate that a chain repeats.
class BreaksOfChain
{
public:
    explicit BreaksOfChain(const OligoParts& parts)
        : m_parts(parts)
    {
    }

    /// The breaks of a nucleotide. They stay valid until the call after the next one.
    const NucleotideBreaks& of(const PlacedNucleotide& placed)
    {
        if (placed.breaks)
            return *placed.breaks;
        const Nucleotide& nucleotide = *placed.nucleotide;
        if (const PreparedNucleotide* prepared = m_parts.preparedFor(nucleotide))
            return prepared->breaks;
        const auto isAlike = [&nucleotide](const Known& known) {
            return isSharedMolecule(known.nucleotide->nucleobase, nucleotide.nucleobase) &&
                   isSharedMolecule(known.nucleotide->phosphate, nucleotide.phosphate);
        };
        const auto known = std::find_if(m_known.cbegin(), m_known.cend(), isAlike);
        if (known != m_known.cend())
            return known->breaks;
        return add(nucleotide);
    }

private:
    struct Known
    {
        const Nucleotide* nucleotide;
        NucleotideBreaks breaks;
    };

    /// Chains of numbers have no end of different bases, so not all are kept.
    const NucleotideBreaks& add(const Nucleotide& nucleotide)
    {
        constexpr std::size_t mostKnown = 16;
        m_known.reserve(mostKnown);
        NucleotideBreaks breaks =
            m_parts.sites().breaksOf(nucleotide.nucleobase, nucleotide.phosphate);
        if (m_known.size() < mostKnown)
            return m_known.emplace_back(Known{&nucleotide, std::move(breaks)}).breaks;
        m_next = 1 - m_next;
        return m_latest[m_next].emplace(std::move(breaks));
    }

    const OligoParts& m_parts;
    std::vector<Known> m_known;
    std::array<std::optional<NucleotideBreaks>, 2> m_latest; ///< Of those that are not kept.
    std::size_t m_next = 0;
};

/// Lays nucleotides out between their terminals.
QSharedPointer<MoleculeComplex> layOut(std::span<const PlacedNucleotide> nucleotides,
                                       const NamedMolecule& fivePrime,
                                       const NamedMolecule& threePrime, const OligoParts& parts)
{
    const auto size = static_cast<qsizetype>(nucleotides.size());
    QList<QSharedPointer<ComplexResidue>> residues;
    QList<QList<QSharedPointer<FragmentationSite>>> siteLists;
    residues.reserve(size + 2);
    siteLists.reserve(size + 2);
    const auto appendResidue = [&residues](const NamedMolecule& residue) {
        const int position = static_cast<int>(residues.size());
        residues.append(QSharedPointer<ComplexResidue>::create(residue, position));
    };

    ChainTotal total(fivePrime);
    total.add(threePrime);
    appendResidue(fivePrime);
    siteLists.emplaceBack();
    BreaksOfChain breaksOfChain(parts);
    const NucleotideBreaks* previous = &parts.sites().beforeFirst();
    for (const PlacedNucleotide& placed : nucleotides) {
        const NucleotideBreaks& breaks = breaksOfChain.of(placed);
        const bool isInner = &placed != &nucleotides.front() && &placed != &nucleotides.back();
        total.add(*placed.nucleotide);
        appendResidue(*placed.nucleotide);
        siteLists.append(parts.sites().sitesAt(*previous, breaks, isInner));
        previous = &breaks;
    }
    appendResidue(threePrime);
    siteLists.emplaceBack();
    return QSharedPointer<MoleculeComplex>::create(total.result(), residues, siteLists);
}

} // namespace

void ChemicalFactory::unmarkedOligoTermini(NamedMolecule* fivePrime,
                                           NamedMolecule* threePrime) const
{
    *fivePrime = NamedMolecule(hydrogen, u"5Prime"_s, QString());
    *threePrime = NamedMolecule(hydroxyl, u"3Prime"_s, QString());
}

bool ChemicalFactory::parseNucleotideSequence(const QString& sequence,
                                              QList<QSharedPointer<const Nucleotide>>* nucleotides,
                                              NamedMolecule* fivePrime,
                                              NamedMolecule* threePrime) const
{
    const auto parts = oligoParts();
    const auto text = readOligoText(sequence, oligoScanner(), *parts);
    unmarkedOligoTermini(fivePrime, threePrime);
    if (!text)
        return false;

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
    readTerminals(*text, isBareNumber, *parts, fivePrime, threePrime);
    return true;
}

QSharedPointer<MoleculeComplex>
ChemicalFactory::constructLinearOligoComplex(const QString& sequence) const
{
    const auto parts = oligoParts();
    const QString letters = sequence.simplified().remove(u' ');
    const auto text = readOligoText(letters, oligoScanner(), *parts);
    if (!text)
        return {};
    NamedMolecule fivePrime;
    NamedMolecule threePrime;
    unmarkedOligoTermini(&fivePrime, &threePrime);
    readTerminals(*text, isBareNumber(*text), *parts, &fivePrime, &threePrime);
    return layOut(text->nucleotides, fivePrime, threePrime, *parts);
}

QSharedPointer<MoleculeComplex> ChemicalFactory::constructLinearOligoComplex(
    const QList<QSharedPointer<const Nucleotide>>& nucleotides, const NamedMolecule& fivePrime,
    const NamedMolecule& threePrime) const
{
    std::vector<PlacedNucleotide> placed;
    placed.reserve(static_cast<std::size_t>(nucleotides.size()));
    for (const auto& nucleotide : nucleotides)
        placed.push_back({nucleotide.data()});
    return layOut(placed, fivePrime, threePrime, *oligoParts());
}

void ChemicalFactory::constructLinearOligoComplexes(
    const QString& sequence, int fivePrimeTruncations, int threePrimeTruncations,
    QList<QSharedPointer<const MoleculeComplex>>* complexes) const
{
    const auto parts = oligoParts();
    const auto text = readOligoText(sequence, oligoScanner(), *parts);
    NamedMolecule fivePrime;
    NamedMolecule threePrime;
    unmarkedOligoTermini(&fivePrime, &threePrime);
    std::span<const PlacedNucleotide> whole;
    if (text) {
        readTerminals(*text, isBareNumber(*text), *parts, &fivePrime, &threePrime);
        whole = text->nucleotides;
    }

    const auto append = [&](std::span<const PlacedNucleotide> remaining) {
        complexes->append(layOut(remaining, fivePrime, threePrime, *parts));
    };
    append(whole);
    for (std::size_t i = 1; std::cmp_less_equal(i, fivePrimeTruncations); ++i)
        append(whole.subspan(std::min(i, whole.size())));
    // Beyond its length the list is whole again, as QList::mid() has it for a negative length.
    for (std::size_t j = 1; std::cmp_less_equal(j, threePrimeTruncations); ++j)
        append(j > whole.size() ? whole : whole.first(whole.size() - j));
}

} // namespace chem
