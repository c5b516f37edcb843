#include "MoleculeEntity.h"

#include "ChemicalFactory.h"
#include "StructuredMolecule.h"
#include "structure/Dismantling.h"
#include "structure/SequenceText.h"
#include "support/NearlyEqual.h"

#include <type_traits>
#include <utility>

namespace chem {

namespace MolecularEntityInternal {

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

/// Answers from the data that a type has, and else with the default. A Modification has none of its
/// own here on purpose: as an entity it is a placeholder.
template <typename T>
class Model final : public Concept
{
    static constexpr bool isNumber = std::is_arithmetic_v<T>;
    static constexpr bool isMolecule = std::derived_from<T, Molecule>;
    static constexpr bool isLabelled = std::derived_from<T, NamedMolecule>;
    static constexpr bool isStructured = std::same_as<T, StructuredMolecule>;

public:
    explicit Model(T&& value)
        : m_value(std::move(value))
    {
    }

    /// Only the types that can nest need care when they are destroyed.
    ~Model() override
    {
        if constexpr (isStructured || std::same_as<T, Modification>)
            dismantle(std::move(m_value));
    }

    double averageMass() const override
    {
        if constexpr (isNumber)
            return m_value;
        else if constexpr (isMolecule)
            return m_value.averageMass();
        else if constexpr (isStructured)
            return m_value.averageMass;
        else
            return 0.0;
    }

    double monoMass() const override
    {
        if constexpr (isNumber)
            return m_value;
        else if constexpr (isMolecule)
            return m_value.monoMass();
        else if constexpr (isStructured)
            return m_value.monoMass;
        else
            return 0.0;
    }

    MoleculeType type() const override
    {
        if constexpr (isStructured)
            return m_value.type;
        else
            return std::same_as<T, AminoAcid> ? MoleculeType::AminoAcid : MoleculeType::Unknown;
    }

    ChemicalFormula formula() const override
    {
        if constexpr (isMolecule)
            return m_value.formula();
        else
            return structured(&StructuredMolecule::formula);
    }

    QString sequence() const override
    {
        if constexpr (isStructured)
            return sequenceText(m_value);
        else
            return QString();
    }

    QString name() const override
    {
        if constexpr (isLabelled)
            return m_value.name;
        else
            return structured(&StructuredMolecule::name);
    }

    QString code() const override
    {
        if constexpr (isLabelled)
            return m_value.code;
        else
            return structured(&StructuredMolecule::code);
    }

    /// Nothing describes a molecule, a structured one included.
    QString description() const override { return QString(); }

    QList<Chain> chains() const override { return structured(&StructuredMolecule::chains); }

    QList<Modification> modifications() const override
    {
        return structured(&StructuredMolecule::modifications);
    }

    QList<Link> links() const override { return structured(&StructuredMolecule::links); }

    QList<TransformationEntity> transformations() const override
    {
        return structured(&StructuredMolecule::transformations);
    }

private:
    /// A field of a structured molecule; the default for any other value.
    template <typename Field>
    Field structured(Field StructuredMolecule::*field) const
    {
        if constexpr (isStructured)
            return m_value.*field;
        else
            return static_cast<void>(field), Field();
    }

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

/// Both masses of a formula by the default factory, in daltons.
struct DefaultMasses
{
    explicit DefaultMasses(const ChemicalFormula& formula)
    {
        if (!formula.isEmpty())
            defaultChemicalFactory()->calculateMassesForFormula(formula, &mono, &average);
    }

    double mono = 0.0;
    double average = 0.0;
};

/// Equal maps print equally, so the texts are only made for maps that differ.
bool printEqually(const ChemicalFormula& a, const ChemicalFormula& b)
{
    return a.elementCountMap() == b.elementCountMap() || a.toString() == b.toString();
}

} // namespace

double MoleculeEntity::averageMass() const
{
    const double stored = m_concept->averageMass();
    return stored != 0.0 ? stored : DefaultMasses(formula()).average;
}

double MoleculeEntity::monoMass() const
{
    const double stored = m_concept->monoMass();
    return stored != 0.0 ? stored : DefaultMasses(formula()).mono;
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
