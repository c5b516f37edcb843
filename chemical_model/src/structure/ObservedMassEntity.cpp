#include "ObservedMassEntity.h"

#include <QMessageLogger>

#include <algorithm>
#include <utility>

namespace chem {

namespace ObservedMassEntityInternal {

class Concept
{
public:
    virtual ~Concept() = default;
    virtual double mass() const = 0;
    virtual double monoMass() const = 0;
    virtual double intensity() const = 0;

protected:
    Concept() = default;
    Concept(const Concept&) = delete;
    Concept& operator=(const Concept&) = delete;
};

template <typename T>
double mass(const T& value)
{
    return value;
}

template <typename T>
double monoMass(const T& value)
{
    return value;
}

/// Says so where a type has no intensity to give. Hosts filter the message by this context.
template <typename T>
double intensity(const T&)
{
    constexpr int noLine = 0;
    QMessageLogger("chemical_model/src/ObservedMassEntity", noLine,
                   "chem::ObservedMassEntityInternal::intensity<double>")
        .warning("Unimplemented code.");
    return 0.0;
}

template <typename T>
class Model final : public Concept
{
public:
    explicit Model(T&& value)
        : m_value(std::move(value))
    {
    }

    double mass() const override { return ObservedMassEntityInternal::mass(m_value); }
    double monoMass() const override { return ObservedMassEntityInternal::monoMass(m_value); }
    double intensity() const override { return ObservedMassEntityInternal::intensity(m_value); }

private:
    T m_value;
};

} // namespace ObservedMassEntityInternal

template <ObservedMassEntityInternal::ObservedMassValue T>
ObservedMassEntity::ObservedMassEntity(T value)
    : m_concept(std::make_shared<ObservedMassEntityInternal::Model<T>>(std::move(value)))
{
}

template ZEL_CHEMICAL_MODEL_EXPORT ObservedMassEntity::ObservedMassEntity(double);

ObservedMassEntity::ObservedMassEntity(const ObservedMassEntity& other) = default;
ObservedMassEntity::ObservedMassEntity(ObservedMassEntity&& other) noexcept = default;
ObservedMassEntity& ObservedMassEntity::operator=(const ObservedMassEntity& other) = default;
ObservedMassEntity& ObservedMassEntity::operator=(ObservedMassEntity&& other) noexcept = default;
ObservedMassEntity::~ObservedMassEntity() = default;

double ObservedMassEntity::mass() const
{
    return m_concept->mass();
}

double ObservedMassEntity::monoMass() const
{
    return m_concept->monoMass();
}

double ObservedMassEntity::intensity() const
{
    return m_concept->intensity();
}

namespace {

constexpr qint32 partsPerMillion = 1;
constexpr qint32 percent = 2;
constexpr qsizetype expectedMatches = 10;

/// The index of the first element that is not below `mass`. Written out because the list may be out
/// of order, which the standard algorithms do not allow.
qsizetype firstNotBelow(const QList<ObservedMassEntity>& observedMasses, double mass)
{
    qsizetype first = 0;
    qsizetype count = observedMasses.size();
    while (count > 0) {
        const qsizetype half = count / 2;
        if (observedMasses[first + half].mass() < mass) {
            first += half + 1;
            count -= half + 1;
        } else {
            count = half;
        }
    }
    return first;
}

/// A window of tolerance around the mass of a model. Both edges belong to it, and what is not a
/// number lies neither below nor above.
struct Window
{
    double mass;
    double delta;

    bool isAfter(double observed) const { return mass - (observed + delta) > 0.0; }
    bool isBefore(double observed) const { return mass - (observed - delta) < 0.0; }
};

} // namespace

double absoluteMassToleranceDelta(double mass, const MatchingParameters& parameters)
{
    const MassTolerance& tolerance = parameters.massTolerance;
    switch (tolerance.unit) {
    case partsPerMillion:
        return tolerance.value * mass / 1000000.0;
    case percent:
        return tolerance.value * mass / 100.0;
    default:
        return tolerance.value;
    }
}

QList<Match> match(MoleculeEntity entity, const QList<ObservedMassEntity>& observedMasses,
                   const MatchingParameters& parameters)
{
    const double mass = entity.averageMass();
    const double delta = absoluteMassToleranceDelta(mass, parameters);
    const Window window = {mass, delta};
    const qsizetype first = firstNotBelow(observedMasses, mass - delta);
    qsizetype end = first;
    const auto isPassed = [&window](double observed) {
        return !window.isAfter(observed) && window.isBefore(observed);
    };
    while (end < observedMasses.size() && !isPassed(observedMasses[end].mass()))
        ++end;

    // Room for all at once: walking twice costs less than moving the matches while the list grows.
    QList<Match> matches;
    matches.reserve(std::max(expectedMatches, end - first));
    for (qsizetype i = first; i < end; ++i) {
        if (!window.isAfter(observedMasses[i].mass()))
            matches.append({entity, observedMasses[i]});
    }
    return matches;
}

} // namespace chem
