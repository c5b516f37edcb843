#include "proforma/FormulaText.h"

#include "composition/Elements.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Failure = std::optional<Error>;

void skipBlanks(TextCursor* cursor)
{
    while (cursor->peek() == u' ' || cursor->peek() == u'\t')
        cursor->skip();
}

bool atSignedNumber(const TextCursor& cursor)
{
    return cursor.atDigit() || cursor.peek() == u'+' || cursor.peek() == u'-';
}

/// A count, 1 if there is none, and blanks in front of it.
Parsed<int> takeCount(TextCursor* cursor)
{
    skipBlanks(cursor);
    return atSignedNumber(*cursor) ? takeSignedInteger(cursor) : Parsed<int>(1);
}

Parsed<quint8> takeElement(TextCursor* cursor)
{
    const qsizetype length = symbolLength(cursor->rest());
    if (length == 0)
        return cursor->expected(u"the symbol of an element"_s);
    const quint8 number = atomicNumberOf(cursor->rest().first(length));
    cursor->skip(length);
    return number;
}

/// A mass number that nuclei of the element can have: heavier ones than thrice the protons are
/// unknown.
Parsed<Atom> isotopeOf(quint8 element, int massNumber, qsizetype position)
{
    if (massNumber < element || massNumber > 3 * element)
        return Error{u"expected a mass number that "_s + symbolOf(element) + u" can have"_s,
                     position};
    return Atom{element, quint16(massNumber)};
}

Failure addAtoms(Composition* composition, Atom atom, int count, qsizetype position)
{
    if (composition->add(atom, count))
        return {};
    return Error{u"this makes more than 2147483647 atoms of a kind"_s, position};
}

/// What stands in brackets: mass number, element and count.
Failure takeIsotopeTerm(TextCursor* cursor, Composition* composition)
{
    const qsizetype start = cursor->position();
    cursor->skip();
    skipBlanks(cursor);
    const Parsed<Atom> isotope = takeIsotope(cursor);
    if (!isotope)
        return isotope.error();
    const Parsed<int> count = takeCount(cursor);
    if (!count)
        return count.error();
    skipBlanks(cursor);
    if (!cursor->take(u']'))
        return cursor->expected(u"a count or \"]\""_s);
    return addAtoms(composition, *isotope, *count, start);
}

Failure takeTerm(TextCursor* cursor, Composition* composition)
{
    if (cursor->peek() == u'[')
        return takeIsotopeTerm(cursor, composition);
    const qsizetype start = cursor->position();
    const Parsed<quint8> element = takeElement(cursor);
    if (!element)
        return element.error();
    const Parsed<int> count = takeCount(cursor);
    if (!count)
        return count.error();
    return addAtoms(composition, {*element, 0}, *count, start);
}

bool atTerm(const TextCursor& cursor)
{
    return cursor.peek() == u'[' || symbolLength(cursor.rest()) > 0;
}

} // namespace

Parsed<int> takeSignedInteger(TextCursor* cursor)
{
    const bool isNegative = cursor->take(u'-');
    if (!isNegative)
        cursor->take(u'+');
    const Parsed<int> number = cursor->takeNumber();
    return number && isNegative ? Parsed<int>(-*number) : number;
}

Parsed<Atom> takeIsotope(TextCursor* cursor)
{
    const qsizetype start = cursor->position();
    if (!cursor->atDigit())
        return cursor->expected(u"the mass number of an isotope, as in 13C"_s);
    const Parsed<int> massNumber = cursor->takeNumber();
    if (!massNumber)
        return massNumber.error();
    skipBlanks(cursor);
    const Parsed<quint8> element = takeElement(cursor);
    if (!element)
        return element.error();
    return isotopeOf(*element, *massNumber, start);
}

Parsed<Composition> takeFormula(TextCursor* cursor)
{
    Composition composition;
    skipBlanks(cursor);
    if (!atTerm(*cursor))
        return cursor->expected(u"an element or an isotope such as [13C6]"_s);
    while (atTerm(*cursor)) {
        if (Failure failure = takeTerm(cursor, &composition))
            return *std::move(failure);
        skipBlanks(cursor);
    }
    return composition;
}

Parsed<int> takeCharge(TextCursor* cursor)
{
    if (!cursor->take(u':'))
        return cursor->expected(u"a charge such as \":z+1\""_s);
    if (!cursor->take(u'z') && !cursor->take(u'Z'))
        return cursor->expected(u"\"z\" and a charge"_s);
    return takeSignedInteger(cursor);
}

Parsed<ChargedFormula> takeChargedFormula(TextCursor* cursor)
{
    Parsed<Composition> composition = takeFormula(cursor);
    if (!composition)
        return composition.error();
    if (cursor->peek() != u':')
        return ChargedFormula{*std::move(composition), 0};
    const Parsed<int> charge = takeCharge(cursor);
    if (!charge)
        return charge.error();
    return ChargedFormula{*std::move(composition), *charge};
}

QString formulaText(const Composition& composition)
{
    return composition.isEmpty() ? u"H0"_s : composition.toString();
}

QString formulaText(const ChargedFormula& formula)
{
    return formulaText(formula.composition) +
           (formula.charge == 0 ? QString() : chargeText(formula.charge));
}

QString chargeText(int charge)
{
    return u":z"_s + signedText(charge);
}

QString signedText(int number)
{
    return (number < 0 ? QString() : u"+"_s) + QString::number(number);
}

} // namespace ions
