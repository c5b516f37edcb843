#include "Composition.h"
#include "masses/EntityMasses.h"
#include <zel_chemical_model/StructuredMolecule.h>

#include <QList>

#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

constexpr double sameMass = 1e-6;
/// Of a mass: what tens of thousands of additions round off, 0.00005 Da in 5 MDa.
constexpr double rounding = 1e-11;

bool isSame(double left, double right)
{
    return std::abs(left - right) <= sameMass + rounding * std::abs(right);
}

/// Formula and masses of several parts.
struct Totals
{
    chem::ChemicalFormula formula;
    Masses masses;
};

Totals sumOf(const chem::Chain& chain)
{
    Totals sum;
    for (const chem::MoleculeEntity& residue : chain.residues()) {
        sum.formula += residue.formula();
        sum.masses += massesOf(residue);
    }
    return sum;
}

template <typename Part>
std::optional<Error> refusalOf(const Part& part, const AtomMasses& atoms)
{
    const auto composition = weighedComposition(part.formula(), massesOf(part), atoms);
    return composition ? std::nullopt : std::optional(composition.error());
}

/// The first residue that nothing is known of, as a reader makes of an unknown letter: its formula
/// and its masses agree on nothing.
std::optional<Error> unknownResidue(const chem::Chain& chain, qsizetype index)
{
    qsizetype position = 0;
    for (const chem::MoleculeEntity& residue : chain.residues()) {
        if (residue.type() == chem::MoleculeType::AminoAcid && residue.code().isEmpty() &&
            residue.monoMass() == 0.0)
            return Error{u"expected a residue with a mass"_s, -1, index, position};
        ++position;
    }
    return {};
}

/// The first residue whose formula does not weigh its masses.
std::optional<Error> residueToBlame(const chem::Chain& chain, qsizetype index,
                                    const AtomMasses& atoms)
{
    qsizetype position = 0;
    for (const chem::MoleculeEntity& residue : chain.residues()) {
        if (const auto refusal = refusalOf(residue, atoms))
            return Error{refusal->message, -1, index, position};
        ++position;
    }
    return {};
}

/// The first link or modification to blame, which the message names by its number from 1.
template <typename Part>
std::optional<Error> partToBlame(const QList<Part>& parts, const QString& kind,
                                 const AtomMasses& atoms)
{
    qsizetype number = 0;
    for (const Part& part : parts) {
        ++number;
        if (const auto refusal = refusalOf(part.entity(), atoms))
            return Error{kind + QString::number(number) + u": "_s + refusal->message};
    }
    return {};
}

std::optional<Error> partToBlame(const chem::MoleculeEntity& molecule, const AtomMasses& atoms)
{
    qsizetype index = 0;
    const QList<chem::Chain> chains = molecule.chains();
    for (const chem::Chain& chain : chains) {
        if (auto refusal = residueToBlame(chain, index, atoms))
            return refusal;
        ++index;
    }
    if (auto refusal = partToBlame(molecule.links(), u"link "_s, atoms))
        return refusal;
    return partToBlame(molecule.modifications(), u"modification "_s, atoms);
}

} // namespace

bool isSameMass(const Masses& left, const Masses& right)
{
    return isSame(left.monoisotopic, right.monoisotopic) && isSame(left.average, right.average);
}

Parsed<Composition> weighedComposition(const chem::ChemicalFormula& formula, const Masses& masses,
                                       const AtomMasses& atoms)
{
    Parsed<Composition> composition = Composition::fromFormula(formula);
    if (!composition)
        return Error{composition.error().message};
    const Parsed<Masses> weighed = atoms.weigh(*composition);
    if (!weighed)
        return Error{weighed.error().message};
    if (!isSameMass(*weighed, masses)) {
        return Error{u"expected a formula that weighs the stored masses, %1 and %2 Da"_s.arg(
            QString::number(masses.monoisotopic, 'f', 6), QString::number(masses.average, 'f', 6))};
    }
    return composition;
}

Parsed<Composition> Composition::ofMolecule(const chem::MoleculeEntity& molecule,
                                            const AtomMasses& atoms)
{
    Parsed<Composition> composition =
        weighedComposition(molecule.formula(), massesOf(molecule), atoms);
    if (!composition) {
        if (auto refusal = partToBlame(molecule, atoms))
            return *std::move(refusal);
    }
    qsizetype index = 0;
    const QList<chem::Chain> chains = molecule.chains();
    for (const chem::Chain& chain : chains) {
        if (auto refusal = unknownResidue(chain, index++))
            return *std::move(refusal);
    }
    return composition;
}

Parsed<Composition> Composition::ofChain(const chem::Chain& chain, const AtomMasses& atoms)
{
    const Totals sum = sumOf(chain);
    Parsed<Composition> composition = weighedComposition(sum.formula, sum.masses, atoms);
    if (!composition) {
        if (auto refusal = residueToBlame(chain, 0, atoms))
            return *std::move(refusal);
    }
    if (auto refusal = unknownResidue(chain, 0))
        return *std::move(refusal);
    return composition;
}

} // namespace ions
