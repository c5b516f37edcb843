#pragma once

#include "FragmentIons.h"
#include "ProForma.h"

#include <algorithm>
#include <cmath>

/// \file
/// What holds for every peptidoform, of the natural residues and the standard modifications. Each
/// function gives the law that is broken, or null. Tests and the fuzzer ask the same.

namespace ions {

/// The natural residues, read once.
inline const ResidueTable& naturalResidues()
{
    static const ResidueTable residues;
    return residues;
}

/// Unimod and XLMOD, read once.
inline const ModificationTable& standardModifications()
{
    static const ModificationTable table = ModificationTable::standard(naturalResidues().atoms());
    return table;
}

inline Parsed<chem::MoleculeEntity> moleculeOf(const Peptidoform& peptidoform,
                                               Placeless placeless = Placeless::Refused)
{
    return peptidoform.molecule(0, naturalResidues(), standardModifications(), placeless);
}

inline Parsed<Peptidoform> peptidoformOf(const chem::MoleculeEntity& molecule)
{
    return Peptidoform::ofMolecule(molecule, naturalResidues(), standardModifications());
}

/// Whether two masses are the same but for rounding.
inline bool isNear(double left, double right)
{
    return std::abs(left - right) <= 1e-8 + 1e-12 * std::abs(right);
}

inline bool isSameWeight(const Masses& masses, const chem::MoleculeEntity& molecule)
{
    return isNear(masses.monoisotopic, molecule.monoMass()) &&
           isNear(masses.average, molecule.averageMass());
}

/// Written and read back it is the same.
inline const char* lawBrokenByText(const Peptidoform& peptidoform)
{
    const QString text = peptidoform.toString();
    const Parsed<Peptidoform> again = Peptidoform::read(text);
    if (!again || *again != peptidoform)
        return "the canonical text reads back to an equal value";
    return again->toString() == text ? nullptr : "the canonical text stays as it is";
}

/// Its backbone weighs what it weighs, charges on the molecule balanced by protons.
inline const char* lawBrokenByBackbone(const Peptidoform& peptidoform, qsizetype ion)
{
    const auto backbone = peptidoform.backbone(ion, naturalResidues(), standardModifications());
    if (!backbone)
        return nullptr;
    const auto weight = peptidoform.weigh(ion, naturalResidues(), standardModifications());
    if (!weight)
        return "what has no mass has no backbone";
    const PeptidoformIon& one = peptidoform.ions[std::size_t(ion)];
    qint64 protons = weight->charge;
    protons -= one.protons.value_or(0);
    for (const ChargeCarrier& carrier : one.carriers)
        protons -= qint64(carrier.formula.charge) * carrier.count;
    const double balance = double(protons) * backbone->breaks().proton;
    return isNear(backbone->masses().monoisotopic, weight->masses.monoisotopic - balance)
               ? nullptr
               : "a backbone weighs what its peptidoform weighs";
}

/// If its composition is known, so is that of each of its ions. Groups of one mass and different
/// atoms are counted, and then nobody knows which an ion holds.
inline const char* lawBrokenByIonCompositions(const Peptidoform& peptidoform, qsizetype ion)
{
    const auto backbone = peptidoform.backbone(ion, naturalResidues(), standardModifications());
    const auto weight = peptidoform.weigh(ion, naturalResidues(), standardModifications());
    IonOptions options;
    options.series = {Series::B, Series::Y, Series::Precursor};
    FragmentIons ions;
    if (!backbone || !weight || !weight->composition || ions.assign(*backbone, options))
        return nullptr;
    for (qsizetype i = 0; i < std::ssize(ions.mz()); ++i) {
        const auto composition = ions.composition(*backbone, naturalResidues(), i);
        if (!composition && !composition.error().message.contains(u"one composition"))
            return "ions of a known molecule have compositions";
    }
    return nullptr;
}

/// Its molecule weighs what it weighs, if a molecule has a place for all of it.
inline const char* lawBrokenByMolecule(const Peptidoform& peptidoform)
{
    const auto molecule = moleculeOf(peptidoform);
    if (!molecule)
        return nullptr;
    const auto weight = peptidoform.weigh(0, naturalResidues(), standardModifications());
    return weight && isSameWeight(weight->masses, *molecule)
               ? nullptr
               : "a molecule weighs what its peptidoform weighs";
}

/// It is a molecule, without what a molecule has no place for, and comes back.
inline const char* lawBrokenThroughMolecules(const Peptidoform& peptidoform)
{
    const auto molecule = moleculeOf(peptidoform, Placeless::Dropped);
    if (!molecule)
        return nullptr;
    const Parsed<Peptidoform> back = peptidoformOf(*molecule);
    if (!back)
        return back.error().message.contains(u"expected") ? nullptr : "a refusal says why";
    const auto weight = back->weigh(0, naturalResidues(), standardModifications());
    if (!weight || !isSameWeight(weight->masses, *molecule))
        return "a molecule and its peptidoform weigh the same";
    if (const char* broken = lawBrokenByText(*back))
        return broken;
    const auto again = moleculeOf(*back);
    if (!again || !isSameWeight(weight->masses, *again))
        return "the peptidoform of a molecule has a molecule of the same masses";
    return peptidoformOf(*again).valueOr({}) == *back
               ? nullptr
               : "what came back from a molecule comes back as it is";
}

/// Whether no number is so large that its rounding hides what is added to it.
inline bool hasOrdinaryNumbers(const Peptidoform& peptidoform)
{
    constexpr int mostDigits = 4;
    int digits = 0;
    bool isFraction = false;
    for (const QChar c : peptidoform.toString()) {
        isFraction = c == u'.' || (isFraction && c.isDigit());
        digits = c.isDigit() && !isFraction ? digits + 1 : 0;
        if (digits > mostDigits)
            return false;
    }
    return true;
}

} // namespace ions
