#include "ProForma.h"
#include "proforma/AsciiLetters.h"
#include "proforma/FormulaText.h"
#include "proforma/ModificationText.h"
#include "proforma/PeptidoformChainReader.h"
#include "proforma/PeptidoformOrder.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Failure = std::optional<Error>;

/// Reads all of a text into a peptidoform with one ion of one chain that hold nothing yet: names,
/// rules for all ions, and the ions.
class PeptidoformReader
{
public:
    PeptidoformReader(QStringView text, Peptidoform* peptidoform)
        : m_cursor(text)
        , m_peptidoform(*peptidoform)
    {
    }

    Failure read()
    {
        Failure failure = readName(3, &m_peptidoform.name);
        while (!failure && m_cursor.peek() == u'<')
            failure = readGlobal();
        if (failure)
            return failure;
        sortGlobals(&m_peptidoform);
        failure = readIon(true);
        while (!failure && m_cursor.take(u'+'))
            failure = readIon(false);
        if (failure || m_cursor.atEnd())
            return failure;
        return m_cursor.expected(continuation());
    }

private:
    /// What could follow where an ion ends.
    QString continuation() const
    {
        const PeptidoformIon& ion = m_peptidoform.ions.back();
        if (ion.protons)
            return u"a digit of the charge, \"+\" or the end"_s;
        if (!ion.carriers.empty())
            return u"\"+\" or the end"_s;
        const std::size_t ends = ion.chains.back().rightEnd.size();
        const QString own = ends == 0   ? u"a residue, \"(\", \"[\", \"-\", "_s
                            : ends == 1 ? u"\"[\", "_s
                                        : QString();
        return own + u"\"//\", \"/\", \"+\" or the end"_s;
    }

    Failure readName(int marks, QString* name)
    {
        return atChainName(m_cursor, marks) ? takeChainName(&m_cursor, marks, name) : Failure();
    }

    Failure readGlobal()
    {
        m_cursor.skip();
        return m_cursor.peek() == u'[' ? readFixed() : readIsotope();
    }

    Failure readIsotope()
    {
        if (capitalOf(m_cursor.peek()) == u'D') {
            m_cursor.skip();
            m_peptidoform.isotopes.push_back({1, 2});
            return close();
        }
        if (!m_cursor.atDigit())
            return m_cursor.expected(u"\"[\", \"D\" or an isotope such as 13C"_s);
        const Parsed<Atom> isotope = takeIsotope(&m_cursor);
        if (!isotope)
            return isotope.error();
        m_peptidoform.isotopes.push_back(*isotope);
        return close();
    }

    Failure readFixed()
    {
        FixedModification fixed;
        Failure failure =
            takeModification(&m_cursor, ModificationBrackets::Unlabelled, &fixed.modification);
        if (failure)
            return failure;
        if (!m_cursor.take(u'@'))
            return m_cursor.expected(u"\"@\" and the places of the modification"_s);
        do {
            const Parsed<PlaceRule> place = takePlace(&m_cursor);
            if (!place)
                return place.error();
            fixed.places.push_back(*place);
        } while (m_cursor.take(u','));
        m_peptidoform.fixed.push_back(std::move(fixed));
        return close(u"\",\" or "_s);
    }

    Failure close(const QString& others = {})
    {
        if (m_cursor.take(u'>'))
            return {};
        return m_cursor.expected(others + u"\">\""_s);
    }

    /// Reads an ion; the first one into memory that is there already.
    Failure readIon(bool isFirst)
    {
        PeptidoformIon& ion =
            isFirst ? m_peptidoform.ions.front() : m_peptidoform.ions.emplace_back();
        Failure failure = readName(2, &ion.name);
        bool isMore = true;
        for (bool isUsed = isFirst; !failure && isMore; isUsed = false) {
            PeptidoformChain& chain = isUsed ? ion.chains.front() : ion.chains.emplace_back();
            failure = PeptidoformChainReader(&m_cursor, &chain).read();
            isMore = !failure && m_cursor.rest().startsWith(u"//");
            if (isMore)
                m_cursor.skip(2);
        }
        return !failure && m_cursor.take(u'/') ? readCharge(&ion) : failure;
    }

    Failure readCharge(PeptidoformIon* ion)
    {
        if (m_cursor.take(u'['))
            return readCarriers(ion);
        if (!m_cursor.atDigit() && m_cursor.peek() != u'+' && m_cursor.peek() != u'-')
            return m_cursor.expected(u"a charge, \"[\" and charge carriers, or a second \"/\""_s);
        const Parsed<int> protons = takeSignedInteger(&m_cursor);
        if (!protons)
            return protons.error();
        ion->protons = *protons;
        return {};
    }

    Failure readCarriers(PeptidoformIon* ion)
    {
        do {
            if (Failure failure = readCarrier(&ion->carriers.emplace_back()))
                return failure;
        } while (m_cursor.take(u','));
        if (m_cursor.take(u']'))
            return {};
        const bool isCounted = ion->carriers.back().count != 1;
        return m_cursor.expected(isCounted ? u"\",\" or \"]\""_s : u"\"^\", \",\" or \"]\""_s);
    }

    Failure readCarrier(ChargeCarrier* carrier)
    {
        carrier->position = {m_cursor.position()};
        Parsed<Composition> formula = takeFormula(&m_cursor);
        if (!formula)
            return formula.error();
        const Parsed<int> charge = takeCharge(&m_cursor);
        if (!charge)
            return charge.error();
        carrier->formula = {*std::move(formula), *charge};
        if (!m_cursor.take(u'^'))
            return {};
        const Parsed<int> count = m_cursor.takeNumber();
        if (!count)
            return count.error();
        carrier->count = *count;
        return {};
    }

    TextCursor m_cursor;
    Peptidoform& m_peptidoform;
};

/// Reads a text that is nothing but residues, which most are; false for any other. Capitals and
/// small letters differ in one bit, and what is no letter is counted in the width of the
/// characters: both for the compiler, which then looks at eight at once.
bool assignResidues(QStringView text, PeptidoformChain* chain)
{
    constexpr char16_t withoutCase = 0xffdf;
    chain->residues.resize(text.size());
    QChar* const residues = chain->residues.data();
    char16_t others = text.isEmpty() ? 1 : 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto capital = char16_t(text[i].unicode() & withoutCase);
        others |= char16_t(capital - u'A') > u'Z' - u'A' ? 1 : 0;
        residues[i] = QChar(capital);
    }
    return others == 0;
}

void clear(PeptidoformChain* chain)
{
    chain->name.clear();
    chain->unlocalised.clear();
    chain->labile.clear();
    chain->leftEnd.clear();
    chain->modifications.clear();
    chain->ranges.clear();
    chain->rightEnd.clear();
    chain->positions.clear();
}

/// Makes room for one ion with one chain, in memory that is there already.
PeptidoformChain* onlyChain(Peptidoform* peptidoform)
{
    peptidoform->name.clear();
    peptidoform->isotopes.clear();
    peptidoform->fixed.clear();
    peptidoform->ions.resize(1);
    PeptidoformIon& ion = peptidoform->ions.front();
    ion.name.clear();
    ion.protons.reset();
    ion.carriers.clear();
    ion.chains.resize(1);
    clear(&ion.chains.front());
    return &ion.chains.front();
}

} // namespace

Parsed<Peptidoform> Peptidoform::read(QStringView text)
{
    Peptidoform peptidoform;
    if (std::optional<Error> failure = peptidoform.assign(text))
        return *std::move(failure);
    return peptidoform;
}

std::optional<Error> Peptidoform::assign(QStringView text)
{
    PeptidoformChain* const chain = onlyChain(this);
    if (assignResidues(text, chain)) {
        chain->positions.addRun(0, 0);
        return {};
    }
    chain->residues.resize(0);
    std::optional<Error> failure = PeptidoformReader(text, this).read();
    if (failure)
        *this = {};
    return failure;
}

} // namespace ions
