#include "OligoParts.h"

#include "OligoScanner.h"

#include <QStringBuilder>

#include <bit>
#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace chem {

namespace {

NamedMolecule massAsBase(QStringView number)
{
    const double mass = number.toDouble();
    return NamedMolecule(Molecule(ChemicalFormula(), mass, mass), u"~~~"_s, number.toString());
}

/// The text and place of a nucleotide as a number other than 0; nothing if it does not fit.
std::optional<quint64> keyOf(const OligoUnit& unit, bool isLast)
{
    if (unit.base.size() != 1 || unit.ribose.size() > 1 || unit.phosphates.size() > 1)
        return std::nullopt;
    const auto letterOf = [](QStringView text) -> quint64 {
        return text.isEmpty() ? 0 : text.front().unicode();
    };
    const quint64 flags = 1 | (unit.ribose.isEmpty() ? 0 : 2) |
                          (unit.phosphates.isEmpty() ? 0 : 4) | (isLast ? 8 : 0);
    return letterOf(unit.base) | letterOf(unit.ribose) << 16 | letterOf(unit.phosphates) << 32 |
           flags << 48;
}

/// Spreads keys over `1 << bits` slots: their product with the golden ratio differs most in its
/// leading bits.
std::size_t firstSlotOf(quint64 key, std::size_t bits)
{
    constexpr quint64 goldenRatio = 0x9e3779b97f4a7c15;
    return static_cast<std::size_t>(key * goldenRatio >> (64 - bits));
}

} // namespace

/// Whether two molecules share one formula and have masses of the same bits. Unshared formulas
/// count as different, even with equal entries.
bool isSharedMolecule(const Molecule& one, const Molecule& other)
{
    const auto bits = [](double mass) {
        return std::bit_cast<quint64>(mass);
    };
    if (bits(one.averageMass()) != bits(other.averageMass()) ||
        bits(one.monoMass()) != bits(other.monoMass()))
        return false;
    const QMap<QString, double>& counts = one.formula().elementCountMap();
    const QMap<QString, double>& otherCounts = other.formula().elementCountMap();
    if (counts.isEmpty() || otherCounts.isEmpty())
        return counts.isEmpty() && otherCounts.isEmpty();
    return &counts.cbegin().value() == &otherCounts.cbegin().value();
}

OligoParts::OligoParts(Blocks blocks, const OligoSites::Pieces& pieces)
    : m_blocks(std::move(blocks))
    , m_sites(pieces)
{
}

OligoParts::~OligoParts()
{
    for (const auto& slot : m_slots)
        delete slot.load(std::memory_order_relaxed);
}

/// The linkage that marks spell. It has no name; several marks add up.
NamedMolecule OligoParts::readPhosphates(QStringView marks) const
{
    NamedMolecule linkage;
    for (const QChar mark : marks) {
        const NamedMolecule& phosphate = m_blocks.phosphates.entry(mark);
        linkage += phosphate;
        linkage.code += phosphate.code;
    }
    return linkage;
}

Nucleotide OligoParts::read(const OligoUnit& unit, bool isLast) const
{
    const bool isNumber = !unit.number.isEmpty();
    NamedMolecule phosphate = readPhosphates(unit.phosphates);
    if (phosphate.code.isEmpty()) { // not written
        if (isLast)
            phosphate = NamedMolecule();
        else if (!isNumber)
            phosphate = m_blocks.defaultPhosphate;
    }
    NamedMolecule ribose;
    if (unit.ribose.size() == 1)
        ribose = m_blocks.riboses.entry(unit.ribose.front());
    else if (unit.ribose.isEmpty() && !isNumber)
        ribose = m_blocks.defaultRibose;
    NamedMolecule nucleobase;
    if (isNumber)
        nucleobase = massAsBase(unit.number);
    else if (!unit.base.isEmpty())
        nucleobase = m_blocks.nucleobases.entry(unit.base.back());
    const QString code = unit.ribose % (isNumber ? unit.number : unit.base) % unit.phosphates;
    return Nucleotide(nucleobase, ribose, phosphate, nucleobase.name, code);
}

/// The slot that holds the nucleotide of this key or is free for it; null if the table is full
/// there.
OligoParts::Slot* OligoParts::slotFor(quint64 key) const
{
    constexpr std::size_t longestSearch = 8;
    const std::size_t first = firstSlotOf(key, slotBits);
    for (std::size_t i = 0; i < longestSearch; ++i) {
        Slot& slot = m_slots[(first + i) % slotCount];
        const PreparedNucleotide* found = slot.load(std::memory_order_acquire);
        if (!found || found->key == key)
            return &slot;
    }
    return nullptr;
}

const PreparedNucleotide* OligoParts::prepared(const OligoUnit& unit, bool isLast) const
{
    const std::optional<quint64> key = keyOf(unit, isLast);
    if (!key)
        return nullptr;
    Slot* const slot = slotFor(*key);
    if (!slot)
        return nullptr;
    const PreparedNucleotide* found = slot->load(std::memory_order_acquire);
    if (found)
        return found;

    const Nucleotide nucleotide = read(unit, isLast);
    std::unique_ptr<const PreparedNucleotide> made(new PreparedNucleotide{
        *key, nucleotide, m_sites.breaksOf(nucleotide.nucleobase, nucleotide.phosphate)});
    if (slot->compare_exchange_strong(found, made.get(), std::memory_order_acq_rel,
                                      std::memory_order_acquire))
        return made.release();
    return found->key == *key ? found : nullptr; // another thread was first
}

const PreparedNucleotide* OligoParts::preparedFor(const Nucleotide& nucleotide) const
{
    OligoUnit unit;
    unit.ribose = nucleotide.ribose.code;
    unit.base = nucleotide.nucleobase.code;
    unit.phosphates = nucleotide.phosphate.code;
    const bool isLast = unit.phosphates.isEmpty() && nucleotide.phosphate.formula().isEmpty();
    const std::optional<quint64> key = keyOf(unit, isLast);
    const Slot* const slot = key ? slotFor(*key) : nullptr;
    const PreparedNucleotide* found = slot ? slot->load(std::memory_order_acquire) : nullptr;
    const bool isOrigin = found &&
                          isSharedMolecule(found->nucleotide.nucleobase, nucleotide.nucleobase) &&
                          isSharedMolecule(found->nucleotide.phosphate, nucleotide.phosphate);
    return isOrigin ? found : nullptr;
}

} // namespace chem
