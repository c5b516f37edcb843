#include "Composition.h"

#include "composition/AtomSums.h"
#include "composition/Elements.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

/// Where `atom` stands in `terms`, or would.
template <typename Terms>
auto placeOf(Terms& terms, Atom atom)
{
    return std::lower_bound(terms.begin(), terms.end(), atom,
                            [](const Composition::Term& term, Atom a) { return term.atom < a; });
}

/// The key of an atom in a formula of the first library.
QString keyOf(Atom atom)
{
    const QString symbol = atom.symbol();
    return atom.massNumber == 0 ? symbol
                                : u"["_s + QString::number(atom.massNumber) + symbol + u"]"_s;
}

/// Whole counts that fit, of keys that are atoms.
Parsed<Composition::Term> termOf(const QString& key, double count)
{
    const Parsed<Composition> atom = Composition::read(key);
    if (!atom || atom->terms().size() != 1 || keyOf(atom->terms()[0].atom) != key)
        return Error{u"expected an element or an isotope such as [13C], not \""_s + key + u'"'};
    if (!(std::abs(count) <= std::numeric_limits<int>::max()) || count != std::trunc(count))
        return Error{u"expected a whole number of "_s + key + u" from -2147483647 to 2147483647"_s};
    return Composition::Term{atom->terms()[0].atom, int(count)};
}

/// Hill's order: carbon and hydrogen first where there is carbon, then by symbol; an element ahead
/// of its isotopes.
bool hillLess(const Composition::Term& left, const Composition::Term& right, bool isOrganic)
{
    if (left.atom.atomicNumber == right.atom.atomicNumber)
        return left.atom.massNumber < right.atom.massNumber;
    const auto rank = [isOrganic](Atom atom) {
        return isOrganic && atom.atomicNumber == 6   ? 0
               : isOrganic && atom.atomicNumber == 1 ? 1
                                                     : 2;
    };
    if (rank(left.atom) != rank(right.atom))
        return rank(left.atom) < rank(right.atom);
    return symbolOf(left.atom.atomicNumber) < symbolOf(right.atom.atomicNumber);
}

QString textOf(const Composition::Term& term)
{
    const QString count = term.count == 1 ? QString() : QString::number(term.count);
    const QString symbol = term.atom.symbol();
    if (term.atom.massNumber == 0)
        return symbol + count;
    return u"["_s + QString::number(term.atom.massNumber) + symbol + count + u"]"_s;
}

} // namespace

Atom Atom::element(QStringView symbol)
{
    return {atomicNumberOf(symbol), 0};
}

QString Atom::symbol() const
{
    return symbolOf(atomicNumber);
}

Composition::Composition(Atom atom, int count)
{
    if (count != 0 && isCount(count))
        m_terms = {{atom, count}};
}

Parsed<Composition> Composition::fromFormula(const chem::ChemicalFormula& formula)
{
    Composition composition;
    qsizetype index = 0;
    const QMap<QString, double>& counts = formula.elementCountMap();
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry, ++index) {
        const Parsed<Term> term = termOf(entry.key(), entry.value());
        if (!term)
            return Error{term.error().message, index};
        // The keys differ, so each count is the only one of its atom and fits.
        static_cast<void>(composition.add(term->atom, term->count));
    }
    return composition;
}

chem::ChemicalFormula Composition::toFormula() const
{
    QMap<QString, double> counts;
    for (const Term& term : m_terms)
        counts.insert(keyOf(term.atom), term.count);
    return chem::ChemicalFormula(counts);
}

QString Composition::toString() const
{
    const bool isOrganic = std::any_of(m_terms.begin(), m_terms.end(), [](const Term& term) {
        return term.atom.atomicNumber == 6;
    });
    std::vector<Term> terms = m_terms;
    std::sort(terms.begin(), terms.end(), [isOrganic](const Term& left, const Term& right) {
        return hillLess(left, right, isOrganic);
    });
    QString text;
    for (const Term& term : terms)
        text += textOf(term);
    return text;
}

int Composition::count(Atom atom) const
{
    const auto place = placeOf(m_terms, atom);
    return place != m_terms.end() && place->atom == atom ? place->count : 0;
}

bool Composition::add(Atom atom, qint64 count)
{
    const auto place = placeOf(m_terms, atom);
    const bool isThere = place != m_terms.end() && place->atom == atom;
    // Two summands that fit cannot overflow 64 bits.
    const qint64 sum = isCount(count) ? count + (isThere ? place->count : 0) : count;
    if (!isCount(sum))
        return false;
    if (isThere && sum == 0)
        m_terms.erase(place);
    else if (isThere)
        place->count = int(sum);
    else if (sum != 0)
        m_terms.insert(place, {atom, int(sum)});
    return true;
}

bool Composition::add(const Composition& other, qint64 times)
{
    if (times == 0 || other.isEmpty())
        return true;
    if (!isCount(times))
        return false;
    Composition sum = *this;
    for (const Term& term : other.m_terms) {
        if (!sum.add(term.atom, term.count * times))
            return false;
    }
    m_terms = std::move(sum.m_terms);
    return true;
}

bool Composition::label(Atom isotope)
{
    const Atom element{isotope.atomicNumber, 0};
    const int unlabelled = count(element);
    Composition labelled = *this;
    if (!labelled.add(element, -qint64(unlabelled)) || !labelled.add(isotope, unlabelled))
        return false;
    m_terms = std::move(labelled.m_terms);
    return true;
}

} // namespace ions
