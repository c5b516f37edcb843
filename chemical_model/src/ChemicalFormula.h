#pragma once

#include <zel_chemical_model/ChemicalModelExport.h>

#include <QList>
#include <QMap>
#include <QString>

namespace chem {

/// \addtogroup formulas
/// @{

/// An element composition: an ordered map from element symbol to a count.
///
/// Counts are `double` on purpose. Negative counts describe a loss, fractional counts an average,
/// and a count that has come down to zero stays as an entry. isValid() tells a real composition
/// from these. A symbol is any text; whether an element of that name exists is the
/// ChemicalFactory's business. Text is read by ChemicalFactory::parseChemicalFormula().
///
/// \code
/// ChemicalFormula formula = ChemicalFactory::parseChemicalFormula(u"C6H12O6"_s);
/// formula += ChemicalFactory::parseChemicalFormula(u"H-2O-1"_s); // loses water
/// formula.toString(); // "C6H10O5"
/// \endcode
///
/// A formula is a value with implicitly shared data: a copy costs one reference count. Separate
/// instances may be used from separate threads, even if they share data; one instance has no lock.
class ZEL_CHEMICAL_MODEL_EXPORT ChemicalFormula
{
public:
    /// Makes a formula without entries.
    ChemicalFormula() = default;

    /// Makes a formula that shares `elementCountMap`, which stays unchanged.
    ChemicalFormula(QMap<QString, double>& elementCountMap);

    /// Shares the entries of `other`; the first change on either side parts them.
    ChemicalFormula(const ChemicalFormula& other) = default;
    /// Takes the entries of `other`, which is left empty and usable.
    ChemicalFormula(ChemicalFormula&& other) noexcept = default;
    /// Shares the entries of `other`.
    ChemicalFormula& operator=(const ChemicalFormula& other) = default;
    /// Takes the entries of `other`, which is left empty and usable.
    ChemicalFormula& operator=(ChemicalFormula&& other) noexcept = default;
    ~ChemicalFormula() = default;

    /// The entries, ascending by symbol and case-sensitive: C, Ca, H, Na.
    const QMap<QString, double>& elementCountMap() const { return m_elementCountMap; }

    /// Tells whether there is no entry. Entries with a count of zero count as entries.
    bool isEmpty() const;

    /// Tells whether every count is a whole number from 0 to 2147483647, as a real molecule has it.
    /// An empty formula is valid. NaN is not a valid count.
    bool isValid() const;

    /// The count of `element`, cut toward zero to 32 bits; 0 if there is no such entry. NaN and
    /// counts that do not fit give -2147483648.
    int elementCount(const QString& element) const;

    /// Writes the symbols and counts of all entries above zero to `elements` and `counts`, in the
    /// order of the map. Both lists are emptied first and end with equal lengths. Counts are cut
    /// toward zero, so an entry of 0.5 appears with a count of 0. Neither pointer may be null.
    void positiveElementCounts(QList<QString>* elements, QList<int>* counts) const;

    /// The same for all entries below zero, with magnitudes for counts. A magnitude that does not
    /// fit 32 bits gives -2147483648.
    void negativeElementCounts(QList<QString>* elements, QList<int>* counts) const;

    /// The form for people: carbon, then hydrogen, then the rest by symbol, as in C1H4N or C2H6O.
    ///
    /// Carbon and hydrogen print a count of 1, the other elements leave it out. Hydrogen comes
    /// second only behind a positive count of carbon, else it stands in its alphabetical place:
    /// H2O. Negative counts stand in parentheses: N(-1). Numbers have at most six significant
    /// digits, so a million and more appear in exponent form. Entries of zero do not appear.
    /// Behind carbon and hydrogen, a count within 1e-12 of zero is left out, and one within 1e-12
    /// of 1 appears without its number.
    QString toString() const;

    /// The entries above zero in map order, each with its number, as in H2O1: the form that isotope
    /// calculators require. At most six significant digits. Empty if the formula is not isValid().
    QString toIsoFormulaString() const;

    /// The entries above zero sorted by symbol, each with its whole number in full, as in
    /// C1000000H2. Empty if the formula is not isValid().
    QString toThermoFormulaString() const;

    /// The gains of a difference formula: the entries above zero in map order, each with its number
    /// in at most six significant digits.
    QString positiveFormulaString() const;

    /// The losses of a difference formula: the entries below zero in map order, each with the
    /// magnitude of its number in at most six significant digits.
    QString negativeFormulaString() const;

    /// Adds the counts of `other`. An element that only `other` has gets a new entry. The cost of
    /// this and of operator-=() is the length of `other` times the logarithm of this length.
    void operator+=(const ChemicalFormula& other);

    /// Subtracts the counts of `other`. An element that only `other` has gets a negative entry, and
    /// an entry that reaches zero stays.
    void operator-=(const ChemicalFormula& other);

    /// Multiplies all counts. With a factor of 0 the entries stay, at zero.
    void operator*=(int factor);

    /// A copy with the counts of `other` added, as by operator+=().
    ChemicalFormula operator+(const ChemicalFormula& other) const;
    /// A copy with the counts of `other` subtracted, as by operator-=().
    ChemicalFormula operator-(const ChemicalFormula& other) const;

private:
    QMap<QString, double> m_elementCountMap;
};

/// @}

} // namespace chem

Q_DECLARE_TYPEINFO(chem::ChemicalFormula, Q_RELOCATABLE_TYPE);
