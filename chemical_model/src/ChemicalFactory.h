#pragma once

#include "ChemicalFormula.h"
#include "FragmentType.h"
#include "LinearComplex.h"
#include "Molecule.h"
#include <zel_chemical_model/ChemicalModelExport.h>
#include <zel_chemical_model/Error.h>

#include <QChar>
#include <QList>
#include <QMap>
#include <QPointF>
#include <QRegularExpression>
#include <QSharedPointer>
#include <QString>

#include <memory>

namespace chem {

/// \addtogroup factory
/// @{

/// Reads text and makes molecules from it, with masses from one isotope table.
///
/// A factory owns everything that depends on which isotopes are assumed: the table itself, small
/// standard molecules, and the dictionaries of building blocks (amino acids, nucleobases, sugars,
/// ...). Masses are in daltons: on every platform those of IsoSpec++ on x86-64, to the bit.
///
/// \code
/// const auto factory = defaultChemicalFactory();
/// const Molecule glucose = factory->constructMolecule(u"C6H12O6"_s);   // 180.06339 Da
/// const auto peptide = factory->constructLinearPeptideComplex(u"DRVYIHPF"_s);
/// peptide->monoMass();                                                   // 1045.53451 Da
/// \endcode
///
/// Failure is quiet: see each function for what it makes of text that it cannot read. Output
/// pointers are never tested for null. Every const function may be called on one factory from any
/// number of threads at once. setBuildingBlock() and assignment need the caller's exclusion. A copy
/// is cheap: the data is shared until one of the two is changed.
class ZEL_CHEMICAL_MODEL_EXPORT ChemicalFactory
{
public:
    /// The kinds of building blocks. The numbers are stable.
    enum BuildingBlockType {
        AminoAcidBlock = 0,  ///< "Amino Acid": residues, by one-letter code.
        NucleobaseBlock = 1, ///< "Nucleobase": bases, by one letter.
        RiboseBlock = 2,     ///< "Ribose": sugars of nucleotides, by the letter before the base.
        PhosphateBlock = 3,  ///< "Phosphate": linkages, by the mark behind the base.
        GlycanBlock = 4,     ///< "Glycan": for callers; nothing here reads it.
        SugarBlock = 5,      ///< "Sugar": residues of glycan compositions, by name.
        ProteinNTerminalBlock = 6,    ///< "Protein N-Terminal": for callers; nothing here reads it.
        ProteinCTerminalBlock = 7,    ///< "Protein C-Terminal": for callers; nothing here reads it.
        NTerminalBlock = 8,           ///< "N-Terminal": for callers; nothing here reads it.
        CTerminalBlock = 9,           ///< "C-Terminal": for callers; nothing here reads it.
        FivePrimeTerminalBlock = 10,  ///< "5' Terminal": 5' marks of oligonucleotides.
        ThreePrimeTerminalBlock = 11, ///< "3' Terminal": 3' marks of oligonucleotides.
        NoBlock = 12                  ///< No kind at all.
    };

    /// The character that callers may put between the texts of several chains: "/". No reader of
    /// this library splits at it; the sequence text of a structured molecule holds it.
    static const QChar ChainDelimeter;

    /// The twelve kinds by their labels, such as "Amino Acid". Made when the library loads.
    static const QMap<QString, BuildingBlockType> buildingBlockTypes;

    /// \name Making a factory
    /// @{

    /// Makes a factory. An empty text gives natural isotopes. Any other text replaces the isotopes
    /// of the elements that it names: entries separated by white space, each a symbol, a mass
    /// number, a colon and an abundance, as in "C13:0.99 C12:0.01". A named element keeps only the
    /// isotopes that the text lists, with their abundances scaled by normalize(), which tells on
    /// "zel.generic" what it leaves unscaled.
    /// Write whole percentages, or fractions that add up to 1, for each element: sums are cut to
    /// whole numbers. "N15:98.7 N14:1.3" gives shares of 1.01 in all and wrong averages without a
    /// word; "N15:99.5 N14:0.5" gives a share of 1.005 and throws. Neutrons are counted from the
    /// lightest isotope of the element that the text names first, and an isotope that is not found
    /// within 0.2 Da of its expected mass gets that mass.
    /// A text with an entry that cannot be read (a blank at either end makes an empty one) gives a
    /// factory with natural isotopes and with empty dictionaries and constants: nothing else tells
    /// of it. An abundance outside (0, 1] after scaling throws `std::invalid_argument` as soon as
    /// the element is touched, for carbon and its like within this call.
    static QSharedPointer<ChemicalFactory> construct(const QString& isotopeOverrides);

    /// Shares table, dictionaries and constants until one of the two is changed.
    ChemicalFactory(const ChemicalFactory& other);
    /// Takes everything from `other`, which is left without dictionaries and isotopes.
    ChemicalFactory(ChemicalFactory&& other) noexcept;
    /// Shares table, dictionaries and constants. No other thread may use this factory meanwhile.
    ChemicalFactory& operator=(const ChemicalFactory& other);
    /// Takes everything from `other` likewise. No other thread may use either factory meanwhile.
    ChemicalFactory& operator=(ChemicalFactory&& other) noexcept;
    /// Releases the data. Molecules and complexes that the factory made live on.
    ~ChemicalFactory();

    /// @}
    /// \name Formulas and masses
    /// @{

    /// Reads a formula: runs of an upper-case letter, further letters and an optional number. Never
    /// fails. Characters that are no letter, digit, sign or full stop are deleted first, so
    /// "H(-1)" and "H - 1" are H-1. A token starts at each upper-case letter and what stands before
    /// the first is dropped; its symbol is the letter and all letters behind it; a missing number
    /// counts as 1 and one that cannot be read as 0. Repeats add up. Linear in the text. Brackets,
    /// factors, charges and isotopes are not understood: "(CH2)3" is CH23, "2H2O" is H2O.
    static ChemicalFormula parseChemicalFormula(const QString& text);

    /// Makes the molecule of a formula text. Elements that the table lacks stay in the formula and
    /// weigh nothing. Counts are cut toward zero for the masses, and those beyond 32 bits weigh
    /// nothing. Throws `std::invalid_argument` for refused abundances, see construct().
    Molecule constructMolecule(const QString& formula) const;

    /// Applies a formula text `count` times: what the text gains is added and what it loses is
    /// subtracted, as in "O1H-2". A negative `count` inverts the modification. Counts of the text
    /// are good to six significant digits. Throws as constructMolecule() does.
    Molecule modifyMolecule(const Molecule& molecule, const QString& modification, int count) const;

    /// Computes both masses of a formula, gains minus losses, and always writes them. Mind the
    /// order: monoisotopic mass first. Counts are cut as in constructMolecule(), which throws the
    /// same. An unknown element counts as 0.0; the error is 2 if none is known, and 0 otherwise.
    zel::Error calculateMassesForFormula(const ChemicalFormula& formula, double* monoMass,
                                         double* averageMass) const;

    /// Computes both masses of the elements with the counts at the same index likewise. A negative
    /// or missing count adds 0.0; an element that is listed twice counts twice. The error is 2 if
    /// no element is known or the list is empty, and 0 otherwise.
    zel::Error calculateMassesForElementCountArrays(const QList<QString>& elements,
                                                    const QList<int>& counts, double* monoMass,
                                                    double* averageMass) const;

    /// Estimates the monoisotopic mass that belongs to `averageMass` for a molecule composed like
    /// `formula`, both in daltons. The result holds that formula, the given mass and the estimate:
    /// 0.0 if the monoisotopic masses of the formula sum to zero or less, or its ratio of masses is
    /// not above zero. Fractions and losses take part. Throws as constructMolecule() does.
    Molecule moleculeBasedOnAverageMass(const QString& formula, double averageMass) const;

    /// Estimates the average mass that belongs to `monoMass`, likewise.
    Molecule moleculeBasedOnMonoMass(const QString& formula, double monoMass) const;

    /// Computes the isotope envelope of a molecule at a charge.
    /// \param molecule the neutral molecule.
    /// \param charge the number of charges; its sign is ignored, and 0 divides like 1.
    /// \param envelope emptied, then filled: one point for each nominal mass from the lightest peak
    ///   on. `x` is the m/z of the probability-weighted centroid, less one electron mass; for the
    ///   first point it is that of the lightest peak itself. `y` is the summed probability of what
    ///   lies above a threshold of 1e-7, so the sum stays a little below 1 (electrons, which the
    ///   table lists twice, count double). Any other point that nothing fell into is (0, 0).
    /// \param protonate whether one hydrogen for each charge is added first.
    /// \return the molecule, with the added hydrogens and their masses; also for an empty envelope.
    ///
    /// The envelope is empty where no configuration reaches the threshold, and, with a warning on
    /// the category "zel.generic", where a count is negative, above 2147483647 or no whole number,
    /// hydrogens included. Unknown elements take no part. Counts of 10485759 and more make
    /// IsoSpec++ throw, as do abundances that are refused, see construct(). Deprotonated ions lie
    /// two electron masses, 0.0011, above `x` at any charge. What the threshold leaves out is
    /// heavier than the rest: the centroid of all points is 3 ppm light at 150 kDa.
    Molecule generateIsotopeEnvelope(const Molecule& molecule, int charge, QList<QPointF>* envelope,
                                     bool protonate) const;

    /// @}
    /// \name Peptides
    /// @{

    /// Appends one amino acid for each character of `sequence` and overwrites both termini with the
    /// standard ones. A character that is no key gives a residue of no mass with empty texts.
    void parseAminoAcidSequence(const QString& sequence,
                                QList<QSharedPointer<const AminoAcid>>* aminoAcids,
                                NamedMolecule* nTerminal, NamedMolecule* cTerminal) const;

    /// Lays a text, read likewise, out as a complex with its a, b, c, x, y and z sites. Never null.
    QSharedPointer<MoleculeComplex> constructLinearPeptideComplex(const QString& sequence) const;

    /// @}
    /// \name Oligonucleotides
    /// @{

    /// The expression that a whole oligonucleotide text must match, from the dictionaries of the
    /// moment; not valid for keys such as "z-a". Captures 1, 2 and 6 are 5' mark, body and 3' mark.
    QRegularExpression generateFullOligoRegex() const;

    /// The expression of one nucleotide in the body, likewise. Captures 1, 3, 4 and 5 are ribose,
    /// base, number in place of a base, and phosphates.
    QRegularExpression generateOligoSequenceRegex() const;

    /// Tells whether `sequence` is one oligonucleotide text, or several separated by commas. Linear
    /// in the length, which may be any, unless a key means more than its characters, as "a-c" does:
    /// such alphabets are left to the expression engine, which refuses long texts.
    bool isValidOligoSequence(const QString& sequence) const;

    /// Reads an oligonucleotide text without blanks or commas and appends its nucleotides. Gives
    /// false if the text is outside the grammar. Then nothing is appended, and the terminals hold
    /// the defaults: hydrogen named "5Prime" and hydroxyl named "3Prime", without codes. The last
    /// nucleotide has no phosphate unless the text gives one; a number at the end takes away the
    /// implicit phosphate of the nucleotide before it. A single number without marks is a mass
    /// without terminals. For the length see isValidOligoSequence().
    bool parseNucleotideSequence(const QString& sequence,
                                 QList<QSharedPointer<const Nucleotide>>* nucleotides,
                                 NamedMolecule* fivePrime, NamedMolecule* threePrime) const;

    /// Lays a text out as a complex; blanks are ignored. Null if it is outside the grammar.
    QSharedPointer<MoleculeComplex> constructLinearOligoComplex(const QString& sequence) const;

    /// Lays nucleotides out, none null, with their a, aB, b, c, d, w, x, y and z sites. Never null.
    QSharedPointer<MoleculeComplex>
    constructLinearOligoComplex(const QList<QSharedPointer<const Nucleotide>>& nucleotides,
                                const NamedMolecule& fivePrime,
                                const NamedMolecule& threePrime) const;

    /// Appends the complexes of a truncation ladder: the whole text, then 1 to
    /// `fivePrimeTruncations` nucleotides off the 5' end, then 1 to `threePrimeTruncations` off the
    /// 3' end. Terminals and phosphates stay, also the phosphate of a new last nucleotide. A text
    /// outside the grammar gives complexes of the default terminals alone. Beyond the length of the
    /// text, 5' truncations give the terminals alone and 3' truncations the whole list again.
    void
    constructLinearOligoComplexes(const QString& sequence, int fivePrimeTruncations,
                                  int threePrimeTruncations,
                                  QList<QSharedPointer<const MoleculeComplex>>* complexes) const;

    /// @}
    /// \name Glycans
    /// @{

    /// Tells whether `composition`, such as "HexNAc(2)Hex(5)", has at least one term and all its
    /// terms can be used. A term is HexNAc, dHex, Fuc, Hex, Pent, NeuAc, NeuGc, Sodium or Na, in
    /// this case, then optional white space and a decimal count in parentheses without blanks; any
    /// other text is skipped, so that "HexNAc4Hex3Fuc(1)" is valid and means Fuc(1). It cannot be
    /// used if the "Sugar" dictionary has no such entry or the count exceeds 2147483647.
    /// setBuildingBlock() changes what these names weigh but adds none.
    bool isValidGlycanComposition(const QString& composition) const;

    /// Adds up the usable terms in their order, stored masses times counts. No water is added.
    Molecule constructGlycanModification(const QString& composition) const;

    /// Adds constructGlycanModification() of `composition` to a copy of `molecule`.
    Molecule modifyMoleculeWithGlycan(const Molecule& molecule, const QString& composition) const;

    /// @}
    /// \name Fragments
    /// @{

    /// Appends every fragment ion of `complex` with its full molecule and weak links into the
    /// complex, which must outlive their use: at each step the left ions of one position, then the
    /// right ions of the mirrored one. In an edited complex a null residue weighs nothing and gives
    /// a null link, and a null site gives no ion.
    void generateLinearFragments(const MoleculeComplex& complex,
                                 QList<QSharedPointer<Fragment>>* fragments) const;

    /// @}
    /// \name Building blocks
    /// @{

    /// Stores a building block under `code`, replacing one that is there. The readers know it at
    /// once; copies of the factory that were taken earlier do not. A dictionary that is missing is
    /// created. Any text is accepted as a formula: unknown elements weigh nothing, and refused
    /// abundances throw, see construct(). Whatever is thrown leaves the factory as it was. The
    /// default sugar and linkage stay as they are. No other thread may use this factory meanwhile.
    /// Codes that no reader matches are stored as well: readers take one character for a residue,
    /// base, sugar, linkage or end, and for glycans the names of isValidGlycanComposition().
    void setBuildingBlock(BuildingBlockType type, const QString& code, const QString& name,
                          const QString& formula);

    /// Writes the ends of a peptide: hydrogen "NTerm", code "H-", and hydroxyl "CTerm", code "-OH".
    void standardPeptideTermini(NamedMolecule* nTerminal, NamedMolecule* cTerminal) const;

    /// Writes the same two ends for an oligonucleotide, under the same labels on purpose.
    void standardOligoTermini(NamedMolecule* fivePrime, NamedMolecule* threePrime) const;

    /// @}

    /// The kind with this label, matched exactly; NoBlock (12) for any other text.
    static BuildingBlockType buildingBlockType(const QString& label);

    /// The label of an ion type: "b", "z.", "aB" for a less its base; "unknown" where it has none.
    static QString typeToString(ZEL_QEnumsFragmentType::FragmentType type);

    /// Rewrites a formula of the older convention, in which oligonucleotide building blocks were
    /// whole species, as the piece that remains once they are joined: a nucleobase loses H, a
    /// ribose O2H3, a phosphate O while it gains H, a 5' terminal O. Never fails, and writes the
    /// form of ChemicalFormula::toString() also for kinds that need no correction.
    static QString convertOldOligoBuildingBlockFormula(const QString& formula,
                                                       BuildingBlockType type);

protected:
    /// One isotope of one element.
    struct IsotopeRecord
    {
        qint32 atomicNumber = 0;  ///< Protons; -1 for the electron that this library adds.
        qint32 extraNeutrons = 0; ///< Neutrons above the element's lightest isotope.
        QString name;             ///< The element's name.
        QString symbol;           ///< The element's symbol.
        double mass = 0.0;        ///< Mass in daltons.
        double abundance = 0.0;   ///< Abundance as a fraction.
    };

    /// Room for what a derived class may want to share among copies; nothing here uses it.
    struct Extension;

    /// Makes an empty factory, on which init() is to be called.
    ChemicalFactory();

    /// Loads the isotope table, applies `isotopeOverrides` if it is not empty, and fills
    /// dictionaries and constants. See construct(). To be called once. The members that it fills
    /// are for derived classes to read: setBuildingBlock() alone writes them later.
    void init(const QString& isotopeOverrides);

    QMap<QString, QList<qsizetype>> isotopesBySymbol;   ///< Symbol to positions in isotopes.
    QMap<int, QList<qsizetype>> isotopesByAtomicNumber; ///< Atomic number to positions in isotopes.
    QMap<QString, QList<qsizetype>> isotopesByName;     ///< Element name to positions in isotopes.
    QList<IsotopeRecord> isotopes;                      ///< The isotope table.
    QMap<BuildingBlockType, QMap<QString, NamedMolecule>> buildingBlocks; ///< The dictionaries.
    NamedMolecule defaultRibose;    ///< The sugar of a nucleotide that names none.
    NamedMolecule defaultPhosphate; ///< The linkage of a nucleotide that names none.
    Molecule water;                 ///< H2O.
    Molecule waterPair;             ///< H4O2.
    Molecule hydroxyl;              ///< OH.
    Molecule hydrogen;              ///< H.
    Molecule oxygen;                ///< O.
    Molecule amine;                 ///< NH2.
    Molecule hydrogenPair;          ///< H2.
    Molecule ammonia;               ///< NH3.
    Molecule formyl;                ///< CHO.
    Molecule electron;              ///< E; its average mass is twice its monoisotopic mass.
    Molecule proton;                ///< Hydrogen minus electron.
    QSharedPointer<Extension> sharedExtension; ///< Null; copied and released with the factory.

private:
    /// What follows from isotopes and dictionaries.
    struct ZEL_CHEMICAL_MODEL_NO_EXPORT Prepared;
    std::shared_ptr<const Prepared> m_prepared; ///< Null before init() and after a move.
};

/// The shared factory with natural isotopes, made at the first call, from whichever thread.
ZEL_CHEMICAL_MODEL_EXPORT QSharedPointer<const ChemicalFactory> defaultChemicalFactory();

/// @}

} // namespace chem
