#include "Ionization.h"

#include "masses/NaturalAtoms.h"
#include "support/TextCursor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

constexpr int largestNumber = 10000;

/// A carrier whose charge is no matter of choice.
struct KnownCarrier
{
    const char* formula;
    int charge;
};

constexpr std::array knownCarriers = {
    KnownCarrier{"H", 1},       KnownCarrier{"Li", 1},      KnownCarrier{"Na", 1},
    KnownCarrier{"K", 1},       KnownCarrier{"Rb", 1},      KnownCarrier{"Cs", 1},
    KnownCarrier{"Ag", 1},      KnownCarrier{"NH4", 1},     KnownCarrier{"Mg", 2},
    KnownCarrier{"Ca", 2},      KnownCarrier{"Sr", 2},      KnownCarrier{"Ba", 2},
    KnownCarrier{"Zn", 2},      KnownCarrier{"F", -1},      KnownCarrier{"Cl", -1},
    KnownCarrier{"Br", -1},     KnownCarrier{"I", -1},      KnownCarrier{"HCOO", -1},
    KnownCarrier{"CH3COO", -1}, KnownCarrier{"CF3COO", -1}, KnownCarrier{"NO3", -1},
    KnownCarrier{"HSO4", -1},   KnownCarrier{"H2O", 0},     KnownCarrier{"NH3", 0},
    KnownCarrier{"CH3OH", 0},   KnownCarrier{"CH3CN", 0},   KnownCarrier{"CO2", 0},
};

/// The charge of a carrier without isotopes, whichever way its formula is written.
std::optional<int> knownCharge(const Composition& carrier)
{
    static const auto compositions = [] {
        std::array<Composition, knownCarriers.size()> all;
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i] = Composition::read(QString::fromLatin1(knownCarriers[i].formula)).value();
        return all;
    }();
    const auto known = std::find(compositions.begin(), compositions.end(), carrier);
    if (known == compositions.end())
        return {};
    return knownCarriers[std::size_t(known - compositions.begin())].charge;
}

/// The same atoms of no stated isotope; none if they are too many together.
Composition withoutIsotopes(const Composition& carrier)
{
    Composition elements;
    for (const Composition::Term& term : carrier.terms()) {
        if (!elements.add({term.atom.atomicNumber, 0}, term.count))
            return {};
    }
    return elements;
}

/// A formula that repeats another one: `H2`, or `(NH4)2`.
struct RepeatedCarrier
{
    Composition one;
    int times = 1;
};

/// What a formula repeats as it is written, once if it says nothing else. Atoms alone do not tell:
/// C4H6O4 is succinic acid and no two acetates.
RepeatedCarrier repeatedCarrier(QStringView formula, const Composition& elements)
{
    if (elements.terms().size() == 1) {
        const Composition::Term term = elements.terms().front();
        return {Composition(term.atom), term.count};
    }
    const qsizetype end = formula.lastIndexOf(u')') + 1;
    const Parsed<Composition> group = Composition::read(formula.first(end));
    if (!formula.startsWith(u'(') || !group)
        return {elements};
    RepeatedCarrier repeated{withoutIsotopes(*group), formula.sliced(end).toInt()};
    Composition all;
    const bool isWhole = all.add(repeated.one, repeated.times) && all == elements;
    return isWhole ? repeated : RepeatedCarrier{elements};
}

/// The charge of all atoms of a carrier as it is written.
std::optional<qint64> knownCharge(QStringView formula, const Composition& carrier)
{
    const RepeatedCarrier repeated = repeatedCarrier(formula, withoutIsotopes(carrier));
    const std::optional<int> charge = knownCharge(repeated.one);
    if (!charge)
        return {};
    return qint64(*charge) * repeated.times;
}

QString signedNumber(int number)
{
    const int size = std::abs(number);
    return (number < 0 ? u"-"_s : u"+"_s) + (size == 1 ? QString() : QString::number(size));
}

} // namespace

/// Reads the notation in brackets.
class IonizationText
{
public:
    explicit IonizationText(QStringView text)
        : m_cursor(text)
    {
    }

    Parsed<Ionization> read() { return m_cursor.peek() == u'[' ? readBrackets() : readProtons(); }

private:
    using Failure = std::optional<Error>;

    Parsed<Ionization> readProtons()
    {
        const bool isNegative = m_cursor.take(u'-');
        if (!isNegative && !m_cursor.take(u'+'))
            return m_cursor.expected(u"\"[\", \"+\" or \"-\""_s);
        const Parsed<int> number = takeNumber();
        if (!number)
            return number.error();
        if (!m_cursor.atEnd())
            return m_cursor.expected(u"the end"_s);
        return Ionization::protons(isNegative ? -*number : *number);
    }

    Parsed<Ionization> readBrackets()
    {
        m_cursor.skip();
        if (const Failure failure = readMolecules())
            return *failure;
        while (m_cursor.peek() == u'+' || m_cursor.peek() == u'-') {
            if (const Failure failure = readCarrier())
                return *failure;
        }
        if (!m_cursor.take(u']'))
            return m_cursor.expected(u"\"+\", \"-\" or \"]\""_s);
        if (const Failure failure = readCharge())
            return *failure;
        m_ion.weigh();
        return m_ion;
    }

    Failure readMolecules()
    {
        if (m_cursor.atDigit()) {
            const Parsed<int> number = takeNumber();
            if (!number)
                return number.error();
            m_ion.m_molecules = *number;
        }
        if (!m_cursor.take(u'M'))
            return m_cursor.expected(u"\"M\""_s);
        return {};
    }

    Failure readCarrier()
    {
        const bool isTaken = m_cursor.take(u'-');
        if (!isTaken)
            m_cursor.skip();
        int count = 1;
        if (m_cursor.atDigit()) {
            const Parsed<int> number = takeNumber();
            if (!number)
                return number.error();
            count = *number;
        }
        return addCarrier(isTaken ? -count : count);
    }

    Failure addCarrier(int count)
    {
        const qsizetype start = m_cursor.position();
        const QStringView rest = m_cursor.rest();
        const QStringView formula = rest.first(formulaLength(rest));
        const Parsed<Composition> carrier = Composition::read(formula);
        if (!carrier)
            return Error{carrier.error().message, start + carrier.error().position};
        m_cursor.skip(formula.size());
        if (!m_ion.m_carriers.add(*carrier, count))
            return Error{u"this makes more than 2147483647 atoms of a kind"_s, start};
        if (!naturalAtoms().weigh(*carrier))
            return Error{u"expected a carrier whose atoms have masses"_s, start};
        if (const auto charge = knownCharge(formula, *carrier))
            m_knownCharge += *charge * count;
        else
            m_isAllKnown = false;
        m_ion.m_written.push_back({count, formula.toString()});
        return {};
    }

    /// A carrier reaches to the next sign or bracket; isotopes have brackets of their own.
    static qsizetype formulaLength(QStringView text)
    {
        qsizetype length = 0;
        bool isInIsotope = false;
        for (; length < text.size(); ++length) {
            const QChar c = text[length];
            if (c == u'[')
                isInIsotope = true;
            else if (c == u']' && isInIsotope)
                isInIsotope = false;
            else if (c == u'+' || c == u'-' || c == u']')
                break;
        }
        return length;
    }

    Failure readCharge()
    {
        const qsizetype start = m_cursor.position();
        int charge = 1;
        if (m_cursor.atDigit()) {
            const Parsed<int> number = takeNumber();
            if (!number)
                return number.error();
            charge = *number;
        }
        const bool isNegative = m_cursor.take(u'-');
        if (!isNegative && !m_cursor.take(u'+'))
            return m_cursor.expected(u"\"+\" or \"-\" behind the number of charges"_s);
        m_ion.m_charge = isNegative ? -charge : charge;
        m_ion.m_isRadical = m_cursor.take(u'.');
        if (!m_cursor.atEnd())
            return m_cursor.expected(u"the end"_s);
        return checkCharge(start);
    }

    Failure checkCharge(qsizetype position) const
    {
        if (!m_isAllKnown || (m_ion.m_written.empty() && !m_ion.m_isRadical))
            return {};
        const qint64 electrons = std::abs(m_ion.m_charge - m_knownCharge);
        if (electrons == (m_ion.m_isRadical ? 1 : 0))
            return {};
        const QString wanted = m_ion.m_isRadical
                                   ? u"expected one charge more or less than the carriers have, "_s
                                   : u"expected the charge of the carriers, "_s;
        return Error{wanted + u"which is "_s + QString::number(m_knownCharge), position};
    }

    /// A number from 1 to the largest that an ion may name.
    Parsed<int> takeNumber()
    {
        const qsizetype start = m_cursor.position();
        const Parsed<int> number = m_cursor.takeNumber();
        if (number && (*number < 1 || *number > largestNumber))
            return Error{u"expected a number from 1 to 10000"_s, start};
        return number;
    }

    TextCursor m_cursor;
    Ionization m_ion;
    qint64 m_knownCharge = 0;
    bool m_isAllKnown = true;
};

Ionization Ionization::protons(int charge)
{
    Ionization ion;
    ion.m_charge = charge == 0 ? 1 : std::max(charge, -std::numeric_limits<int>::max());
    ion.m_written = {{ion.m_charge, u"H"_s}};
    ion.m_carriers = Composition({1, 0}, ion.m_charge);
    ion.weigh();
    return ion;
}

Parsed<Ionization> Ionization::read(QStringView text)
{
    return IonizationText(text).read();
}

QString Ionization::toString() const
{
    QString text = u"["_s;
    if (m_molecules != 1)
        text += QString::number(m_molecules);
    text += u'M';
    for (const Carrier& carrier : m_written)
        text += signedNumber(carrier.count) + carrier.formula;
    text += u']';
    if (std::abs(m_charge) != 1)
        text += QString::number(std::abs(m_charge));
    text += m_charge < 0 ? u'-' : u'+';
    if (m_isRadical)
        text += u'.';
    return text;
}

void Ionization::weigh()
{
    const double electrons = m_charge * electronMass;
    m_added = naturalAtoms().weigh(m_carriers).value() - Masses{electrons, electrons};
}

} // namespace ions
