#pragma once

#include "MoleculeEntity.h"
#include <zel_chemical_model/ChemicalModelExport.h>

#include <QList>

#include <concepts>
#include <memory>

namespace chem {

/// Which types an ObservedMassEntity can hold.
namespace ObservedMassEntityInternal {

class Concept;

/// The types that an ObservedMassEntity can hold.
template <typename T>
concept ObservedMassValue = std::same_as<T, double>;

} // namespace ObservedMassEntityInternal

/// \addtogroup matching
/// @{

/// A measured mass as one immutable value, in daltons.
///
/// A copy costs one atomic increment. A moved-from value may only be assigned to or destroyed.
/// Values may be read and copied from any number of threads at once.
class ZEL_CHEMICAL_MODEL_EXPORT ObservedMassEntity
{
public:
    /// Holds a mass in daltons. Implicit on purpose, so that lists of masses can be written
    /// plainly.
    template <ObservedMassEntityInternal::ObservedMassValue T>
    ObservedMassEntity(T value);

    /// Shares the held mass.
    ObservedMassEntity(const ObservedMassEntity& other);
    /// Takes the held mass of `other`, which may then only be assigned to or destroyed.
    ObservedMassEntity(ObservedMassEntity&& other) noexcept;
    /// Shares the held mass.
    ObservedMassEntity& operator=(const ObservedMassEntity& other);
    /// Takes the held mass of `other`, which may then only be assigned to or destroyed.
    ObservedMassEntity& operator=(ObservedMassEntity&& other) noexcept;
    ~ObservedMassEntity();

    double mass() const;     ///< The measured mass in daltons.
    double monoMass() const; ///< The same mass.

    /// 0.0, with the warning "Unimplemented code.": a plain number has no intensity.
    double intensity() const;

private:
    std::shared_ptr<const ObservedMassEntityInternal::Concept> m_concept;
};

/// A model and a measurement that agree.
struct ZEL_CHEMICAL_MODEL_EXPORT Match
{
    MoleculeEntity entity;           ///< The model.
    ObservedMassEntity observedMass; ///< The measurement.
};

/// A tolerance with its unit.
struct ZEL_CHEMICAL_MODEL_EXPORT MassTolerance
{
    double value = 0.0; ///< How much, in the unit.
    qint32 unit =
        0; ///< 1 for parts per million, 2 for percent; daltons for 0 and any other number.
};

/// How to match.
struct ZEL_CHEMICAL_MODEL_EXPORT MatchingParameters
{
    MassTolerance massTolerance;   ///< The tolerance of the average mass.
    MassTolerance secondTolerance; ///< Carried for callers; nothing reads it.
    MassTolerance thirdTolerance;  ///< Carried for callers; nothing reads it.
    MassTolerance fourthTolerance; ///< Carried for callers; nothing reads it.
};

/// The first tolerance in daltons at `mass`, a mass in daltons: the value itself, or its parts per
/// million or percent of the mass. Below zero if the value is, or if a relative tolerance meets a
/// negative mass. May be called from any number of threads at once.
ZEL_CHEMICAL_MODEL_EXPORT double absoluteMassToleranceDelta(double mass,
                                                            const MatchingParameters& parameters);

/// Finds the measurements that lie within the tolerance of the model's average mass, both edges
/// included, in the order of the list.
///
/// The tolerance is computed once, at the model's mass. `observedMasses` must be ascending: the
/// list is not tested, and one out of order gives a partial result. A negative tolerance finds
/// nothing, and a relative tolerance at a negative mass is negative. Edges are subject to the
/// rounding of mass plus or minus tolerance. If the model's mass or the tolerance is not a number,
/// every measurement matches. May run on any number of threads at once. The cost is logarithmic in
/// the list plus the width of the window.
///
/// \code
/// MatchingParameters parameters;
/// parameters.massTolerance = {10.0, 1}; // 10 ppm
/// const QList<ObservedMassEntity> observed = {1046.18, 1046.19, 1300.5};
/// match(peptide, observed, parameters).size(); // 2 for 1046.185 Da
/// \endcode
ZEL_CHEMICAL_MODEL_EXPORT QList<Match> match(MoleculeEntity entity,
                                             const QList<ObservedMassEntity>& observedMasses,
                                             const MatchingParameters& parameters);

/// @}

} // namespace chem

Q_DECLARE_TYPEINFO(chem::ObservedMassEntity, Q_RELOCATABLE_TYPE);
Q_DECLARE_TYPEINFO(chem::Match, Q_RELOCATABLE_TYPE);
Q_DECLARE_TYPEINFO(chem::MassTolerance, Q_RELOCATABLE_TYPE);
