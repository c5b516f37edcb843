#include "proforma/PeptidoformChainReader.h"

#include "proforma/AsciiLetters.h"
#include "proforma/ModificationText.h"
#include "proforma/TagText.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

constexpr std::size_t mostEndModifications = 2;

bool atResidue(const TextCursor& cursor)
{
    return capitalOf(cursor.peek()) != 0;
}

} // namespace

bool atChainName(const TextCursor& cursor, int marks)
{
    const QStringView rest = cursor.rest();
    const QStringView opening = QStringView(u"(>>>").first(marks + 1);
    return rest.startsWith(opening) && !rest.sliced(marks + 1).startsWith(u'>');
}

std::optional<Error> takeChainName(TextCursor* cursor, int marks, QString* name)
{
    cursor->skip(marks + 1);
    const TextCursor start = *cursor;
    qsizetype open = 0;
    while (open > 0 || cursor->peek() != u')') {
        if (cursor->atEnd())
            return cursor->expected(u"\")\" behind the name"_s);
        open += cursor->peek() == u'(' ? 1 : cursor->peek() == u')' ? -1 : 0;
        if (auto failure = takeGraphic(cursor))
            return failure;
    }
    *name = start.rest().first(cursor->position() - start.position()).toString();
    if (name->isEmpty())
        return cursor->expected(u"a name"_s);
    cursor->skip();
    return {};
}

std::optional<Error> PeptidoformChainReader::read()
{
    if (atChainName(m_cursor, 1)) {
        if (Failure failure = takeChainName(&m_cursor, 1, &m_chain.name))
            return failure;
    }
    Failure failure = readLeading();
    if (!failure)
        failure = readSequence();
    return failure ? failure : readRightEnd();
}

/// Unlocalised modifications, then labile ones, then those of the left end.
std::optional<Error> PeptidoformChainReader::readLeading()
{
    bool canBeUnlocalised = true;
    while (m_cursor.peek() == u'[' || m_cursor.peek() == u'{') {
        if (m_cursor.peek() == u'{') {
            canBeUnlocalised = false;
            if (Failure failure = readLabile())
                return failure;
            continue;
        }
        std::vector<Leading> leading;
        if (Failure failure = takeLeading(&leading))
            return failure;
        if (m_cursor.peek() == u'-')
            return placeLeftEnd(std::move(leading));
        if (m_cursor.peek() != u'?' || !canBeUnlocalised)
            return m_cursor.expected(canBeUnlocalised ? u"\"[\", \"^\", \"?\" or \"-\""_s
                                                      : u"\"[\" or \"-\""_s);
        if (Failure failure = placeUnlocalised(std::move(leading)))
            return failure;
    }
    return {};
}

/// A run of modifications in brackets. One that is only a label has no count: it can but name an
/// end.
std::optional<Error> PeptidoformChainReader::takeLeading(std::vector<Leading>* leading)
{
    while (m_cursor.peek() == u'[') {
        Leading& next = leading->emplace_back();
        Failure failure =
            takeModification(&m_cursor, ModificationBrackets::Labelled, &next.modification);
        if (failure)
            return failure;
        if (next.modification.tags.empty() || !m_cursor.take(u'^'))
            continue;
        const Parsed<int> count = m_cursor.takeNumber();
        if (!count)
            return count.error();
        next.count = *count;
    }
    return {};
}

std::optional<Error> PeptidoformChainReader::placeUnlocalised(std::vector<Leading> leading)
{
    for (Leading& next : leading) {
        if (next.modification.tags.empty())
            return m_cursor.expected(u"\"-\", since a label alone needs a place"_s);
        m_chain.unlocalised.push_back({std::move(next.modification), next.count.value_or(1)});
    }
    m_cursor.skip();
    return {};
}

std::optional<Error> PeptidoformChainReader::placeLeftEnd(std::vector<Leading> leading)
{
    const bool isCounted =
        std::any_of(leading.begin(), leading.end(), [](const Leading& l) { return l.count; });
    if (isCounted)
        return m_cursor.expected(u"\"[\" or \"?\", since an end has no counts"_s);
    if (leading.size() > mostEndModifications)
        return m_cursor.expected(u"\"[\" or \"?\", since an end has at most two modifications"_s);
    for (Leading& next : leading)
        m_chain.leftEnd.push_back(std::move(next.modification));
    m_cursor.skip();
    return {};
}

std::optional<Error> PeptidoformChainReader::readLabile()
{
    return takeModification(&m_cursor, ModificationBrackets::Labile,
                            &m_chain.labile.emplace_back());
}

std::optional<Error> PeptidoformChainReader::readSequence()
{
    bool isNewRun = true;
    const bool isAtEnd = m_chain.leftEnd.empty();
    if (!atResidue(m_cursor) && m_cursor.peek() != u'(')
        return m_cursor.expected(isAtEnd ? u"a residue, \"(\", \"[\" or \"{\""_s
                                         : u"a residue or \"(\""_s);
    while (atResidue(m_cursor) || m_cursor.peek() == u'(') {
        const qsizetype before = m_cursor.position();
        const bool isRange = m_cursor.peek() == u'(';
        if (Failure failure = isRange ? readRange() : readResidue(isNewRun))
            return failure;
        isNewRun = isRange || m_cursor.position() > before + 1;
    }
    return {};
}

/// A residue and its modifications.
std::optional<Error> PeptidoformChainReader::readResidue(bool isNewRun)
{
    if (isNewRun)
        m_chain.positions.addRun(m_chain.residues.size(), m_cursor.position());
    m_chain.residues += QChar(capitalOf(m_cursor.peek()));
    m_cursor.skip();
    while (m_cursor.peek() == u'[') {
        ResidueModification& next = m_chain.modifications.emplace_back();
        next.residue = m_chain.residues.size() - 1;
        Failure failure =
            takeModification(&m_cursor, ModificationBrackets::Labelled, &next.modification);
        if (failure)
            return failure;
    }
    return {};
}

std::optional<Error> PeptidoformChainReader::readRange()
{
    m_cursor.skip();
    ResidueRange range;
    range.kind = m_cursor.take(u'?') ? ResidueRange::AmbiguousOrder : ResidueRange::Modified;
    range.first = m_chain.residues.size();
    if (Failure failure = readRangeResidues())
        return failure;
    range.last = m_chain.residues.size() - 1;
    if (range.kind == ResidueRange::Modified) {
        if (Failure failure = readRangeModifications(&range))
            return failure;
    }
    m_chain.ranges.push_back(std::move(range));
    return {};
}

std::optional<Error> PeptidoformChainReader::readRangeResidues()
{
    if (!atResidue(m_cursor))
        return m_cursor.expected(u"a residue"_s);
    while (atResidue(m_cursor)) {
        if (Failure failure = readResidue(true))
            return failure;
    }
    if (m_cursor.take(u')'))
        return {};
    return m_cursor.expected(u"a residue, \"[\" or \")\""_s);
}

/// The modifications behind a range; each is described there.
std::optional<Error> PeptidoformChainReader::readRangeModifications(ResidueRange* range)
{
    if (m_cursor.peek() != u'[')
        return m_cursor.expected(u"\"[\" and a modification of the range"_s);
    while (m_cursor.peek() == u'[') {
        TextCursor inside = m_cursor;
        inside.skip();
        if (inside.peek() == u'#')
            return inside.expected(u"a modification, not only its label"_s);
        Failure failure = takeModification(&m_cursor, ModificationBrackets::Labelled,
                                           &range->modifications.emplace_back());
        if (failure)
            return failure;
    }
    return {};
}

std::optional<Error> PeptidoformChainReader::readRightEnd()
{
    if (!m_cursor.take(u'-'))
        return {};
    if (m_cursor.peek() != u'[')
        return m_cursor.expected(u"\"[\" and a modification of the right end"_s);
    while (m_cursor.peek() == u'[' && m_chain.rightEnd.size() < mostEndModifications) {
        Failure failure = takeModification(&m_cursor, ModificationBrackets::Labelled,
                                           &m_chain.rightEnd.emplace_back());
        if (failure)
            return failure;
    }
    return {};
}

} // namespace ions
