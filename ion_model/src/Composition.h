#pragma once

#include "Parsed.h"
#include <zel_chemical_model/ChemicalFormula.h>
#include <zel_chemical_model/MoleculeEntity.h>
#include <zel_ion_model/IonModelExport.h>

#include <QString>
#include <QStringView>

#include <span>
#include <vector>

namespace ions {

/// \addtogroup ion_compositions
/// @{

class AtomMasses;

/// An element as it is found in nature, or one of its isotopes.
struct ZEL_ION_MODEL_EXPORT Atom
{
    quint8 atomicNumber = 0; ///< Protons, 1 to 118.
    quint16 massNumber = 0;  ///< Protons and neutrons of a stated isotope; 0 for the element.

    /// The element with this symbol, whose case counts: "C", "Co". Nothing (atomic number 0) for
    /// any other text, "D" and "T" among them.
    static Atom element(QStringView symbol);

    /// The symbol of the element, without mass number.
    QString symbol() const;

    /// Compares both numbers.
    friend constexpr bool operator==(const Atom&, const Atom&) = default;
    /// Orders by atomic number, then mass number, the element before its isotopes.
    friend constexpr bool operator<(const Atom& left, const Atom& right)
    {
        return left.atomicNumber != right.atomicNumber ? left.atomicNumber < right.atomicNumber
                                                       : left.massNumber < right.massNumber;
    }
};

/// Counts of elements and of stated isotopes: whole numbers, negative for a loss, none of them 0.
///
/// Other than the formulas of the first library, a composition knows every element and refuses text
/// that it does not understand to its last character.
///
/// \code
/// const Composition glucose = Composition::read(u"[13C6]H12O6"_s).value();
/// glucose.count(Atom{6, 13});  // 6
/// Composition::read(u"CuSO4.5H2O"_s)->toString(); // "CuH10O9S"
/// \endcode
///
/// A value: separate instances may be used from separate threads.
class ZEL_ION_MODEL_EXPORT Composition
{
public:
    /// One kind of atom and how many there are; the count is never 0.
    struct Term
    {
        Atom atom;     ///< The element or isotope.
        int count = 0; ///< From -2147483647 to 2147483647.

        /// Compares atom and count.
        friend bool operator==(const Term&, const Term&) = default;
    };

    /// No atoms.
    Composition() = default;

    /// `count` atoms of one kind; no atoms if the count is 0 or -2147483648.
    explicit Composition(Atom atom, int count = 1);

    /// Reads a formula: elements with their counts (`C6H12O6`, `C2H6OSi-1`), groups in parentheses
    /// with theirs (`C(CH3)4`), isotopes as `[13C6]` or `[13C]6`, `D` and `T`, and further parts
    /// behind a full stop or a middle dot, each with a factor of its own (`CuSO4.5H2O`).
    ///
    /// Elements are case-sensitive; blanks, charges and counts of 0 are refused, as are a count,
    /// one that the factors of its groups multiply, and a sum of an atom's counts that does not
    /// fit. Atoms that cancel each other leave no trace. Linear in the text, however deep the
    /// groups nest.
    static Parsed<Composition> read(QStringView text);

    /// Reads Unimod's notation: terms separated by single blanks, each an element, an isotope or a
    /// group with its count in parentheses, as in `H(3) C(2) 13C(2) N O(-1)`. Groups are the sugars
    /// Hex, HexNAc, dHex, HexA, HexN, Hep, Pent, NeuAc, NeuGc, Kdn and Me, Ac, Sulf, Water: here
    /// Ac is acetyl (C2H2O), in a formula it is actinium. Counts are refused as by read().
    static Parsed<Composition> readUnimod(QStringView text);

    /// Takes the counts of a formula of the first library. Refused are counts that are no whole
    /// numbers or do not fit, and keys that are neither an element nor an isotope such as `[13C]`.
    /// The position is then that of the key among the formula's keys.
    static Parsed<Composition> fromFormula(const chem::ChemicalFormula& formula);

    /// The composition of any molecule of the first library: that of its formula, whose isotopes
    /// stand under keys such as `[13C]`. `atoms` are those of the factory that made the molecule.
    ///
    /// Given only if the formula weighs both stored masses within 10^-6 Da (and 10^-11 of them for
    /// the rounding of long sums). Refused otherwise,
    /// as for a group that is a bare mass: with chain and residue, or the number of the link or
    /// modification in the message, if one part is to blame. A residue without formula and mass, as
    /// readers make of an unknown letter, is refused as well. Linear in the parts.
    static Parsed<Composition> ofMolecule(const chem::MoleculeEntity& molecule,
                                          const AtomMasses& atoms);

    /// The same for the residues of a chain together, the ends among them.
    static Parsed<Composition> ofChain(const chem::Chain& chain, const AtomMasses& atoms);

    /// The counts as a formula of the first library, isotopes under keys such as `[13C]`, which
    /// only this library can weigh.
    chem::ChemicalFormula toFormula() const;

    /// Hill's order: carbon, then hydrogen, then the others by symbol; without carbon all by
    /// symbol. An element's isotopes follow it by mass number, as in `C2[13C6]H12NO-1`. The text
    /// reads back to an equal composition; it is empty if there are no atoms.
    QString toString() const;

    /// The terms, by atomic number and mass number.
    std::span<const Term> terms() const { return m_terms; }
    /// Tells whether there are no atoms.
    bool isEmpty() const { return m_terms.empty(); }
    /// How many of these atoms there are; stated isotopes do not count for their element.
    int count(Atom atom) const;

    /// Adds `other` `times` times. Gives false and changes nothing if a count would not fit.
    [[nodiscard]] bool add(const Composition& other, qint64 times = 1);
    /// Adds `count` atoms likewise.
    [[nodiscard]] bool add(Atom atom, qint64 count);

    /// Turns every atom of the isotope's element that states no isotope into this isotope: the
    /// substitution of a molecule labelled throughout. Gives false and changes nothing if a count
    /// would not fit.
    [[nodiscard]] bool label(Atom isotope);

    /// Compares the counts.
    friend bool operator==(const Composition&, const Composition&) = default;

private:
    std::vector<Term> m_terms;
};

/// @}

} // namespace ions
