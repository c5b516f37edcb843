#include "Line.h"

#include <bit>

using namespace chem;

namespace {

constexpr double endOfShortNumbers = 1e9;

/// The lowest digits of `value` in hexadecimal, always `digits` of them.
QByteArray hexadecimal(quint64 value, int digits)
{
    QByteArray text(digits, '0');
    for (int i = digits - 1; i >= 0; --i) {
        text[i] = "0123456789abcdef"[value & 15U];
        value >>= 4U;
    }
    return text;
}

bool isShortWholeNumber(double value)
{
    const bool isSmall = value > -endOfShortNumbers && value < endOfShortNumbers;
    if (!isSmall)
        return false;
    const auto whole = static_cast<double>(static_cast<qint64>(value));
    return std::bit_cast<quint64>(whole) == std::bit_cast<quint64>(value); // -0.0 is none
}

/// A residue or group inside something larger: what tells it from others, without its parts.
struct Brief
{
    const MoleculeEntity& entity;
};

Line& operator<<(Line& line, const Brief& brief)
{
    const MoleculeEntity& entity = brief.entity;
    return line << "(" << entity.code() << entity.averageMass() << entity.monoMass()
                << entity.formula() << entity.transformations().size() << ")";
}

} // namespace

Line& Line::operator<<(const char* word)
{
    m_text += ' ';
    m_text += word;
    return *this;
}

Line& Line::operator<<(bool value)
{
    return *this << (value ? "yes" : "no");
}

Line& Line::operator<<(qint64 value)
{
    m_text += ' ';
    m_text += QByteArray::number(value);
    return *this;
}

Line& Line::operator<<(double value)
{
    if (value != value)
        return *this << "nan";
    if (isShortWholeNumber(value))
        return *this << static_cast<qint64>(value);
    return *this << hexadecimal(std::bit_cast<quint64>(value), 16).constData();
}

Line& Line::operator<<(const QString& text)
{
    m_text += " \"";
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        if (unit >= u' ' && unit <= u'~' && unit != u'"' && unit != u'\\')
            m_text += static_cast<char>(unit);
        else
            m_text += "\\u" + hexadecimal(unit, 4);
    }
    m_text += '"';
    return *this;
}

Line& Line::operator<<(const ChemicalFormula& formula)
{
    *this << "{";
    const QMap<QString, double>& counts = formula.elementCountMap();
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry)
        *this << entry.key() << entry.value();
    return *this << "}";
}

Line& Line::operator<<(const Molecule& molecule)
{
    return *this << molecule.formula() << molecule.averageMass() << molecule.monoMass();
}

Line& Line::operator<<(const NamedMolecule& molecule)
{
    return *this << molecule.name << molecule.code << static_cast<const Molecule&>(molecule);
}

Line& Line::operator<<(const Nucleotide& nucleotide)
{
    return *this << "(" << static_cast<const NamedMolecule&>(nucleotide) << nucleotide.nucleobase
                 << nucleotide.ribose << nucleotide.phosphate << ")";
}

Line& Line::operator<<(const ComplexResidue& residue)
{
    return *this << residue.position << static_cast<const NamedMolecule&>(residue);
}

Line& Line::operator<<(const FragmentationSite& site)
{
    return *this << site.type << site.delta << site.lost;
}

Line& Line::operator<<(const Fragment& fragment)
{
    *this << fragment.typeLabel << static_cast<const Molecule&>(fragment) << "[";
    for (const auto& residue : fragment.residues)
        *this << residue.toStrongRef()->position;
    *this << "] [";
    for (const auto& site : fragment.sites)
        *this << site.toStrongRef()->type;
    return *this << "]";
}

Line& Line::operator<<(const SimpleFragment& fragment)
{
    return *this << fragment.type << fragment.position << fragment.sequence << fragment.averageMass
                 << fragment.monoMass;
}

Line& Line::operator<<(const MoleculeEntity& entity)
{
    return *this << "(" << entity.type() << entity.name() << entity.code() << entity.description()
                 << entity.sequence() << entity.averageMass() << entity.monoMass()
                 << entity.formula() << entity.chains() << entity.links() << entity.modifications()
                 << entity.transformations() << ")";
}

Line& Line::operator<<(const ParentChainLocus& locus)
{
    return *this << "(" << locus.label << locus.chain << locus.start << locus.end << ")";
}

Line& Line::operator<<(const Chain& chain)
{
    *this << "(" << chain.name() << chain.code() << chain.type() << chain.parentLocus() << "[";
    for (const MoleculeEntity& residue : chain.residues())
        *this << Brief{residue};
    return *this << "] )";
}

Line& Line::operator<<(const Link& link)
{
    return *this << "(" << Brief{link.entity()} << link.connection() << ")";
}

Line& Line::operator<<(const Modification& modification)
{
    return *this << "(" << Brief{modification.entity()} << modification.averageMass()
                 << modification.monoMass() << modification.formula()
                 << modification.possibleChainLocations() << ")";
}

Line& Line::operator<<(const TransformationEntity& step)
{
    TransformationEntity copy = step; // asking for the molecule before a step is not const
    const MoleculeEntity original = copy.original();
    return *this << "(" << step.type() << Brief{original} << ")";
}

Line& Line::operator<<(const ObservedMassEntity& observed)
{
    return *this << observed.mass();
}
