#include "ResidueTable.h"

#include "composition/AtomSums.h"
#include "masses/EntityMasses.h"
#include "masses/FactoryTables.h"
#include "tables/DataFile.h"
#include <zel_chemical_model/LinearComplex.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using chem::ChemicalFactory;

constexpr double none = std::numeric_limits<double>::quiet_NaN();

MoleculePart partOf(const QString& code, const chem::NamedMolecule& molecule)
{
    return {code, molecule.name, massesOf(molecule),
            Composition::fromFormula(molecule.formula()).valueOr({})};
}

std::vector<MoleculePart> partsOf(const FactoryTables& tables,
                                  FactoryTables::BuildingBlockType type)
{
    std::vector<MoleculePart> parts;
    const auto entries = tables.entries(type);
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
        parts.push_back(partOf(entry.key(), *entry));
    }
    return parts;
}

/// Whether the factory could weigh what stands under this key of a formula: it leaves out what it
/// does not know.
bool isElement(const QString& key, const AtomMasses& atoms)
{
    return !std::isnan(atoms.of(Atom::element(key)).average);
}

/// The masses of a residue; none where its formula does not account for them.
Masses residueMasses(const chem::NamedMolecule& residue, const AtomMasses& atoms)
{
    const Masses masses = massesOf(residue);
    const QMap<QString, double>& counts = residue.formula().elementCountMap();
    bool isKnown = isFinite(masses);
    bool isSomething = masses != Masses();
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        if (*entry == 0.0)
            continue;
        isKnown = isKnown && isElement(entry.key(), atoms);
        isSomething = true;
    }
    return isKnown && isSomething ? masses : Masses{none, none};
}

/// The ends of chains on one side.
enum class ChainSide { Left, Right };

/// The ends that the readers of text write where no mark names one.
std::vector<MoleculePart> unmarkedEnds(const FactoryTables& tables, ChainSide side)
{
    QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
    chem::NamedMolecule peptideEnds[2];
    chem::NamedMolecule oligoEnds[2];
    tables.standardPeptideTermini(&peptideEnds[0], &peptideEnds[1]);
    tables.parseNucleotideSequence(QString(), &nucleotides, &oligoEnds[0], &oligoEnds[1]);
    const std::size_t index = side == ChainSide::Left ? 0 : 1;
    return {partOf(peptideEnds[index].code, peptideEnds[index]),
            partOf(oligoEnds[index].code, oligoEnds[index])};
}

std::vector<MoleculePart> endsOf(const FactoryTables& tables, ChainSide side)
{
    using Type = FactoryTables::BuildingBlockType;
    const std::array<Type, 3> types =
        side == ChainSide::Left
            ? std::array{FactoryTables::ProteinNTerminalBlock, FactoryTables::NTerminalBlock,
                         FactoryTables::FivePrimeTerminalBlock}
            : std::array{FactoryTables::ProteinCTerminalBlock, FactoryTables::CTerminalBlock,
                         FactoryTables::ThreePrimeTerminalBlock};
    std::vector<MoleculePart> ends = unmarkedEnds(tables, side);
    for (const Type type : types) {
        const std::vector<MoleculePart> entries = partsOf(tables, type);
        ends.insert(ends.end(), entries.begin(), entries.end());
    }
    return ends;
}

/// Rows of name, formula and mass; the mass is computed from the formula with the table's isotopes.
std::vector<MoleculePart> monosaccharideParts(const AtomMasses& atoms)
{
    std::vector<MoleculePart> parts;
    for (const QList<QString>& row : DataFile(u"monosaccharides.tsv"_s).rows()) {
        const Composition composition = Composition::read(row.at(1)).value();
        parts.push_back({row.at(0), row.at(0), atoms.weigh(composition).value(), composition});
    }
    return parts;
}

} // namespace

BreakMasses BreakMasses::of(const AtomMasses& atoms)
{
    const auto weigh = [&atoms](QStringView formula) {
        return atoms.weigh(Composition::read(formula).value()).value();
    };
    const double proton = AtomMasses().of({1, 0}).monoisotopic - electronMass;
    return {weigh(u"H"), weigh(u"CO"), weigh(u"NH3"), weigh(u"H2O"), proton};
}

struct ResidueTable::Content
{
    AtomMasses atoms;
    std::array<Masses, letterCount + 1> letters; ///< Water behind them.
    std::array<std::optional<Composition>, letterCount> compositions;
    QString ambiguous = u"BZJX"_s; ///< Letters for several residues that no caller has defined.
    BreakMasses breaks;
    std::vector<MoleculePart> bases;
    std::vector<MoleculePart> sugars;
    std::vector<MoleculePart> linkages;
    std::vector<MoleculePart> leftEnds;
    std::vector<MoleculePart> rightEnds;
    std::vector<MoleculePart> monosaccharides;

    explicit Content(const ChemicalFactory& factory)
        : atoms(factory)
        , breaks(BreakMasses::of(atoms))
        , monosaccharides(monosaccharideParts(atoms))
    {
        const FactoryTables tables(factory);
        bases = partsOf(tables, FactoryTables::NucleobaseBlock);
        sugars = partsOf(tables, FactoryTables::RiboseBlock);
        linkages = partsOf(tables, FactoryTables::PhosphateBlock);
        leftEnds = endsOf(tables, ChainSide::Left);
        rightEnds = endsOf(tables, ChainSide::Right);
        readAminoAcids(tables);
    }

    void setResidue(char16_t letter, const Masses& masses,
                    const std::optional<Composition>& composition)
    {
        letters[letter] = masses;
        compositions[letter] = composition;
        if (!std::isnan(masses.average))
            ambiguous.remove(QChar(letter));
    }

private:
    void readAminoAcids(const FactoryTables& tables)
    {
        letters.fill({none, none});
        letters.back() = breaks.water;
        addFormula(u'U', u"C3H5NOSe"_s);
        addFormula(u'O', u"C12H19N3O2"_s);
        const auto entries = tables.entries(FactoryTables::AminoAcidBlock);
        for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
            if (entry.key().size() == 1 && entry.key()[0].unicode() < letterCount)
                addEntry(entry.key()[0].unicode(), *entry);
        }
        if (!entries.contains(u"J"_s)) {
            letters[u'J'] = letters[u'L'];
            compositions[u'J'] = compositions[u'L'];
        }
    }

    void addEntry(char16_t letter, const chem::NamedMolecule& residue)
    {
        const Masses masses = residueMasses(residue, atoms);
        const Parsed<Composition> composition = Composition::fromFormula(residue.formula());
        const bool isWhole = composition && !composition->isEmpty();
        if (isWhole && !std::isnan(masses.average))
            setResidue(letter, masses, *composition);
        else
            setResidue(letter, masses, {});
    }

    void addFormula(char16_t letter, const QString& formula)
    {
        const Composition composition = Composition::read(formula).value();
        letters[letter] = atoms.weigh(composition).valueOr({none, none});
        compositions[letter] = composition;
    }
};

ResidueTable::ResidueTable()
    : ResidueTable(*chem::defaultChemicalFactory())
{
}

ResidueTable::ResidueTable(const ChemicalFactory& factory)
    : m_content(std::make_shared<const Content>(factory))
    , m_letters(m_content->letters.data())
{
}

const AtomMasses& ResidueTable::atoms() const
{
    return m_content->atoms;
}

const Composition* ResidueTable::composition(char16_t letter) const
{
    if (letter >= letterCount || !m_content->compositions[letter])
        return nullptr;
    return &*m_content->compositions[letter];
}

Parsed<Composition> ResidueTable::composition(QStringView sequence) const
{
    std::array<qint64, letterCount> counts{};
    for (qsizetype i = 0; i < sequence.size(); ++i) {
        const char16_t letter = sequence[i].unicode();
        if (std::isnan(residue(letter).average))
            return unknownLetter(sequence);
        if (!composition(letter))
            return Error{u"expected the letter of a residue with whole counts of atoms"_s, i};
        ++counts[letter];
    }
    AtomSums sums;
    sums.add(Composition::read(u"H2O"_s).value(), 1, -1);
    for (std::size_t letter = 0; letter < letterCount; ++letter) {
        if (counts[letter] > 0)
            sums.add(*composition(char16_t(letter)), counts[letter], -1);
    }
    return sums.total();
}

QString ResidueTable::candidates(char16_t letter) const
{
    if (!m_content->ambiguous.contains(QChar(letter)))
        return std::isnan(residue(letter).average) ? QString() : QString(QChar(letter));
    switch (letter) {
    case u'B':
        return u"DN"_s;
    case u'Z':
        return u"EQ"_s;
    case u'J':
        return u"IL"_s;
    default:
        return u"ACDEFGHIKLMNPQRSTVWY"_s;
    }
}

/// The masses of a long peptide, whose plain sum would round too often, or the letter without mass.
Parsed<Masses> ResidueTable::protein(QStringView sequence) const
{
    MassSum sum{water(), {}};
    for (const QChar letter : sequence)
        sum.add(residue(letter.unicode()));
    if (std::isnan(sum.value().average))
        return unknownLetter(sequence);
    return sum.value();
}

Error ResidueTable::unknownLetter(QStringView sequence) const
{
    const auto unknown = std::find_if(sequence.begin(), sequence.end(), [this](QChar letter) {
        return std::isnan(residue(letter.unicode()).average);
    });
    return Error{u"expected the letter of a residue with a mass"_s, unknown - sequence.begin()};
}

const Masses& ResidueTable::water() const
{
    return m_content->breaks.water;
}

const BreakMasses& ResidueTable::breaks() const
{
    return m_content->breaks;
}

std::span<const MoleculePart> ResidueTable::bases() const
{
    return m_content->bases;
}

std::span<const MoleculePart> ResidueTable::sugars() const
{
    return m_content->sugars;
}

std::span<const MoleculePart> ResidueTable::linkages() const
{
    return m_content->linkages;
}

std::span<const MoleculePart> ResidueTable::leftEnds() const
{
    return m_content->leftEnds;
}

std::span<const MoleculePart> ResidueTable::rightEnds() const
{
    return m_content->rightEnds;
}

std::span<const MoleculePart> ResidueTable::monosaccharides() const
{
    return m_content->monosaccharides;
}

const MoleculePart* ResidueTable::monosaccharide(QStringView name) const
{
    const auto& parts = m_content->monosaccharides;
    const auto part = std::find_if(parts.begin(), parts.end(),
                                   [name](const MoleculePart& p) { return p.code == name; });
    return part == parts.end() ? nullptr : &*part;
}

bool ResidueTable::setResidue(char16_t letter, const Composition& composition)
{
    const bool isLetter = (letter >= u'A' && letter <= u'Z') || (letter >= u'a' && letter <= u'z');
    const Parsed<Masses> masses = atoms().weigh(composition);
    if (!isLetter || composition.isEmpty() || !masses)
        return false;
    auto content = std::make_shared<Content>(*m_content);
    content->setResidue(letter, *masses, composition);
    m_letters = content->letters.data();
    m_content = std::move(content);
    return true;
}

} // namespace ions
