#include "MoleculeEntity.h"

#include "ChemicalFactory.h"
#include "Dismantling.h"
#include "NearlyEqual.h"
#include "SequenceText.h"
#include "StructuredMolecule.h"

#include <type_traits>
#include <utility>

namespace chem {

namespace MolecularEntityInternal {

// What each type answers. The generic form gives the default, the others the data that a type has.
// A Modification has none of its own here on purpose: as an entity it is a placeholder.

template <typename T>
concept Number = std::is_arithmetic_v<T>;

template <typename T>
concept PlainMolecule = std::derived_from<T, Molecule>;

template <typename T>
concept LabelledMolecule = std::derived_from<T, NamedMolecule>;

template <typename T>
double averageMass(const T&)
{
    return 0.0;
}

template <Number T>
double averageMass(const T& value)
{
    return value;
}

template <PlainMolecule T>
double averageMass(const T& molecule)
{
    return molecule.averageMass();
}

double averageMass(const StructuredMolecule& molecule)
{
    return molecule.averageMass;
}

template <typename T>
double monoMass(const T&)
{
    return 0.0;
}

template <Number T>
double monoMass(const T& value)
{
    return value;
}

template <PlainMolecule T>
double monoMass(const T& molecule)
{
    return molecule.monoMass();
}

double monoMass(const StructuredMolecule& molecule)
{
    return molecule.monoMass;
}

template <typename T>
MoleculeType type(const T&)
{
    return MoleculeType::Unknown;
}

MoleculeType type(const AminoAcid&)
{
    return MoleculeType::AminoAcid;
}

MoleculeType type(const StructuredMolecule& molecule)
{
    return molecule.type;
}

template <typename T>
ChemicalFormula formula(const T&)
{
    return ChemicalFormula();
}

template <PlainMolecule T>
ChemicalFormula formula(const T& molecule)
{
    return molecule.formula();
}

ChemicalFormula formula(const StructuredMolecule& molecule)
{
    return molecule.formula;
}

template <typename T>
QString sequence(const T&)
{
    return QString();
}

QString sequence(const StructuredMolecule& molecule)
{
    return sequenceText(molecule);
}

template <typename T>
QString name(const T&)
{
    return QString();
}

template <LabelledMolecule T>
QString name(const T& molecule)
{
    return molecule.name;
}

QString name(const StructuredMolecule& molecule)
{
    return molecule.name;
}

template <typename T>
QString code(const T&)
{
    return QString();
}

template <LabelledMolecule T>
QString code(const T& molecule)
{
    return molecule.code;
}

QString code(const StructuredMolecule& molecule)
{
    return molecule.code;
}

/// Nothing describes a molecule, a structured one included.
template <typename T>
QString description(const T&)
{
    return QString();
}

template <typename T>
QList<Chain> chains(const T&)
{
    return {};
}

QList<Chain> chains(const StructuredMolecule& molecule)
{
    return molecule.chains;
}

template <typename T>
QList<Modification> modifications(const T&)
{
    return {};
}

QList<Modification> modifications(const StructuredMolecule& molecule)
{
    return molecule.modifications;
}

template <typename T>
QList<Link> links(const T&)
{
    return {};
}

QList<Link> links(const StructuredMolecule& molecule)
{
    return molecule.links;
}

template <typename T>
QList<TransformationEntity> transformations(const T&)
{
    return {};
}

QList<TransformationEntity> transformations(const StructuredMolecule& molecule)
{
    return molecule.transformations;
}

/// Only the types that can nest need care when they die.
template <typename T>
void dismantleValue(T&)
{
}

void dismantleValue(StructuredMolecule& molecule)
{
    dismantle(std::move(molecule));
}

void dismantleValue(Modification& modification)
{
    dismantle(std::move(modification));
}

class Concept
{
public:
    virtual ~Concept() = default;
    virtual double averageMass() const = 0;
    virtual double monoMass() const = 0;
    virtual MoleculeType type() const = 0;
    virtual ChemicalFormula formula() const = 0;
    virtual QString sequence() const = 0;
    virtual QString name() const = 0;
    virtual QString code() const = 0;
    virtual QString description() const = 0;
    virtual QList<Chain> chains() const = 0;
    virtual QList<Modification> modifications() const = 0;
    virtual QList<Link> links() const = 0;
    virtual QList<TransformationEntity> transformations() const = 0;

protected:
    Concept() = default;
    Concept(const Concept&) = delete;
    Concept& operator=(const Concept&) = delete;
};

template <typename T>
class Model final : public Concept
{
public:
    explicit Model(T&& value)
        : m_value(std::move(value))
    {
    }
    ~Model() override { dismantleValue(m_value); }

    double averageMass() const override { return MolecularEntityInternal::averageMass(m_value); }
    double monoMass() const override { return MolecularEntityInternal::monoMass(m_value); }
    MoleculeType type() const override { return MolecularEntityInternal::type(m_value); }
    ChemicalFormula formula() const override { return MolecularEntityInternal::formula(m_value); }
    QString sequence() const override { return MolecularEntityInternal::sequence(m_value); }
    QString name() const override { return MolecularEntityInternal::name(m_value); }
    QString code() const override { return MolecularEntityInternal::code(m_value); }
    QString description() const override { return MolecularEntityInternal::description(m_value); }
    QList<Chain> chains() const override { return MolecularEntityInternal::chains(m_value); }
    QList<Modification> modifications() const override
    {
        return MolecularEntityInternal::modifications(m_value);
    }
    QList<Link> links() const override { return MolecularEntityInternal::links(m_value); }
    QList<TransformationEntity> transformations() const override
    {
        return MolecularEntityInternal::transformations(m_value);
    }

private:
    T m_value;
};

} // namespace MolecularEntityInternal

template <MolecularEntityInternal::MoleculeValue T>
MoleculeEntity::MoleculeEntity(T value)
    : m_concept(std::make_shared<MolecularEntityInternal::Model<T>>(std::move(value)))
{
}

template ZEL_CHEMICAL_MODEL_EXPORT MoleculeEntity::MoleculeEntity(std::nullptr_t);
template ZEL_CHEMICAL_MODEL_EXPORT MoleculeEntity::MoleculeEntity(int);
template ZEL_CHEMICAL_MODEL_EXPORT MoleculeEntity::MoleculeEntity(double);
template ZEL_CHEMICAL_MODEL_EXPORT MoleculeEntity::MoleculeEntity(Modification);
template ZEL_CHEMICAL_MODEL_EXPORT MoleculeEntity::MoleculeEntity(StructuredMolecule);
template ZEL_CHEMICAL_MODEL_EXPORT MoleculeEntity::MoleculeEntity(AminoAcid);
template ZEL_CHEMICAL_MODEL_EXPORT MoleculeEntity::MoleculeEntity(Molecule);
template ZEL_CHEMICAL_MODEL_EXPORT MoleculeEntity::MoleculeEntity(NamedMolecule);

MoleculeEntity::MoleculeEntity(const MoleculeEntity& other) = default;
MoleculeEntity::MoleculeEntity(MoleculeEntity&& other) noexcept = default;
MoleculeEntity& MoleculeEntity::operator=(const MoleculeEntity& other) = default;
MoleculeEntity& MoleculeEntity::operator=(MoleculeEntity&& other) noexcept = default;
MoleculeEntity::~MoleculeEntity() = default;

namespace {

struct Masses
{
    double mono = 0.0;
    double average = 0.0;
};

Masses massesOf(const ChemicalFormula& formula)
{
    Masses masses;
    if (!formula.isEmpty()) {
        defaultChemicalFactory()->calculateMassesForFormula(formula, &masses.mono, &masses.average);
    }
    return masses;
}

/// Equal maps print equally, so the texts are only made for maps that differ.
bool printEqually(const ChemicalFormula& a, const ChemicalFormula& b)
{
    return a.elementCountMap() == b.elementCountMap() || a.toString() == b.toString();
}

} // namespace

double MoleculeEntity::averageMass() const
{
    const double stored = m_concept->averageMass();
    return stored != 0.0 ? stored : massesOf(formula()).average;
}

double MoleculeEntity::monoMass() const
{
    const double stored = m_concept->monoMass();
    return stored != 0.0 ? stored : massesOf(formula()).mono;
}

const ChemicalFormula MoleculeEntity::formula() const
{
    const ChemicalFormula stored = m_concept->formula();
    if (!stored.isEmpty())
        return stored;
    const QString text = m_concept->sequence();
    if (text.isEmpty())
        return stored;

    switch (m_concept->type()) {
    case MoleculeType::Peptide:
        return defaultChemicalFactory()->constructLinearPeptideComplex(text)->formula();
    case MoleculeType::OligoNucleotide: {
        const auto complex = defaultChemicalFactory()->constructLinearOligoComplex(text);
        return complex ? complex->formula() : stored;
    }
    default:
        return stored;
    }
}

MoleculeType MoleculeEntity::type() const
{
    return m_concept->type();
}

QString MoleculeEntity::sequence() const
{
    return m_concept->sequence();
}

QString MoleculeEntity::name() const
{
    return m_concept->name();
}

QString MoleculeEntity::code() const
{
    return m_concept->code();
}

QString MoleculeEntity::description() const
{
    return m_concept->description();
}

const QList<Chain> MoleculeEntity::chains() const
{
    return m_concept->chains();
}

const QList<Modification> MoleculeEntity::modifications() const
{
    return m_concept->modifications();
}

const QList<Link> MoleculeEntity::links() const
{
    return m_concept->links();
}

const QList<TransformationEntity> MoleculeEntity::transformations() const
{
    return m_concept->transformations();
}

bool MoleculeEntity::operator==(const MoleculeEntity& other) const
{
    return nearlyEqual(averageMass(), other.averageMass()) &&
           nearlyEqual(monoMass(), other.monoMass()) && printEqually(formula(), other.formula());
}

} // namespace chem
