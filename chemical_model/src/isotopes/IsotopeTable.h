#pragma once

#include <QList>
#include <QMap>
#include <QString>

namespace chem {

/// The isotopes that a factory assumes, element by element.
class IsotopeTable
{
public:
    struct Isotope
    {
        qint32 atomicNumber = 0;  ///< Protons; -1 for the electron that this library adds.
        qint32 extraNeutrons = 0; ///< Neutrons above the element's lightest isotope.
        QString name;             ///< The element's name.
        QString symbol;           ///< The element's symbol.
        double mass = 0.0;        ///< Mass in daltons.
        double abundance = 0.0;   ///< Abundance as a fraction.
    };

    /// The isotopes of one element, in the order of the table.
    struct Element
    {
        QList<double> masses;
        QList<double> abundances;
    };

    /// Makes the natural isotopes: IsoSpec++'s own table, and behind it one more electron.
    IsotopeTable();

    /// Replaces the isotopes of each element that `text` names by those that it lists, with
    /// abundances scaled by normalize(). Returns false and changes nothing if an entry cannot be
    /// read or names no known element.
    bool replaceIsotopes(const QString& text);

    const QList<Isotope>& isotopes() const { return m_isotopes; }
    const QMap<QString, Element>& elements() const { return m_elements; } ///< By symbol.

private:
    void replaceElement(const QString& symbol, QList<Isotope> isotopes);
    void sortIntoElements();

    QList<Isotope> m_isotopes;
    QMap<QString, Element> m_elements;
};

} // namespace chem
