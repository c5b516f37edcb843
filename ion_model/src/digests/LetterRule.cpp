#include "digests/LetterRule.h"

#include "support/TextCursor.h"

#include <algorithm>
#include <bitset>

namespace ions {

namespace {

constexpr std::size_t otherLetter = 128;
constexpr std::size_t noLetter = 129;
constexpr std::size_t mostAlternatives = 8;
constexpr int deepestGroup = 8;

using Letters = std::bitset<noLetter + 1>;

/// The letters that may stand at the four places around a cut: two in front, two behind.
using Surroundings = std::array<Letters, 4>;

/// A cut is where one of these fits.
using Alternatives = std::vector<Surroundings>;

constexpr std::size_t cutPlace = 2; ///< The place just behind the cut.

Surroundings anySurroundings()
{
    Surroundings surroundings;
    surroundings.fill(Letters().set());
    return surroundings;
}

bool isLetter(char16_t c)
{
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

/// Tells whether an alternative has met all four letters without a misfit.
bool isFit(quint32 misfits)
{
    return misfits < 0xff000000U;
}

std::size_t slotOf(char16_t letter)
{
    return letter < otherLetter ? letter : otherLetter;
}

/// Reads the expressions that letter classes can say; whatever else it meets ends it.
class LookaroundReader
{
public:
    explicit LookaroundReader(QStringView expression)
        : m_cursor(expression)
    {
    }

    std::optional<Alternatives> read()
    {
        const std::optional<Alternatives> alternatives = readAlternatives(0);
        return m_cursor.atEnd() ? alternatives : std::nullopt;
    }

private:
    std::optional<Alternatives> readAlternatives(int depth)
    {
        Alternatives all;
        do {
            const std::optional<Alternatives> branch = readBranch(depth);
            if (!branch || all.size() + branch->size() > mostAlternatives)
                return std::nullopt;
            all.insert(all.end(), branch->begin(), branch->end());
        } while (m_cursor.take(u'|'));
        return all;
    }

    /// Conditions one after the other, all of which have to hold.
    std::optional<Alternatives> readBranch(int depth)
    {
        Alternatives all = {anySurroundings()};
        while (m_cursor.take(u'(')) {
            const std::optional<Alternatives> next = readGroup(depth);
            if (!next || !m_cursor.take(u')') || all.size() * next->size() > mostAlternatives)
                return std::nullopt;
            all = bothOf(all, *next);
        }
        return all;
    }

    std::optional<Alternatives> readGroup(int depth)
    {
        if (take(u"?<="))
            return readLetters(true, false);
        if (take(u"?<!"))
            return readLetters(true, true);
        if (take(u"?="))
            return readLetters(false, false);
        if (take(u"?!"))
            return readLetters(false, true);
        take(u"?:");
        return depth < deepestGroup ? readAlternatives(depth + 1) : std::nullopt;
    }

    /// One or two letters or classes, in front of the cut or behind it.
    std::optional<Alternatives> readLetters(bool isInFront, bool isNegated)
    {
        std::vector<Letters> sequence;
        while (!m_cursor.atEnd() && m_cursor.peek() != u')') {
            const std::optional<Letters> letters = readClass();
            if (!letters || sequence.size() == 2)
                return std::nullopt;
            sequence.push_back(*letters);
        }
        if (sequence.empty())
            return std::nullopt;
        const std::size_t first = isInFront ? cutPlace - sequence.size() : cutPlace;
        return isNegated ? noneOf(sequence, first) : Alternatives{placed(sequence, first)};
    }

    std::optional<Letters> readClass()
    {
        if (!m_cursor.take(u'['))
            return readLetter();
        const bool isComplement = m_cursor.take(u'^');
        Letters letters;
        do {
            const std::optional<Letters> letter = readLetter();
            if (!letter)
                return std::nullopt;
            letters |= *letter;
        } while (!m_cursor.take(u']'));
        // Any letter but these, yet a letter.
        return isComplement ? (~letters).reset(noLetter) : letters;
    }

    std::optional<Letters> readLetter()
    {
        const char16_t letter = m_cursor.peek();
        if (!isLetter(letter))
            return std::nullopt;
        m_cursor.skip();
        return Letters().set(letter);
    }

    bool take(QStringView text)
    {
        if (!m_cursor.rest().startsWith(text))
            return false;
        m_cursor.skip(text.size());
        return true;
    }

    static Surroundings placed(const std::vector<Letters>& sequence, std::size_t first)
    {
        Surroundings surroundings = anySurroundings();
        std::copy(sequence.begin(), sequence.end(), surroundings.begin() + std::ptrdiff_t(first));
        return surroundings;
    }

    /// A sequence is absent where one of its letters does not fit, which the ends of a text never
    /// do.
    static Alternatives noneOf(const std::vector<Letters>& sequence, std::size_t first)
    {
        Alternatives absent;
        for (std::size_t i = 0; i < sequence.size(); ++i) {
            Surroundings surroundings = anySurroundings();
            surroundings[first + i] = ~sequence[i];
            absent.push_back(surroundings);
        }
        return absent;
    }

    static Alternatives bothOf(const Alternatives& left, const Alternatives& right)
    {
        Alternatives both;
        for (const Surroundings& a : left) {
            for (const Surroundings& b : right) {
                Surroundings surroundings;
                std::transform(a.begin(), a.end(), b.begin(), surroundings.begin(),
                               [](const Letters& l, const Letters& r) { return l & r; });
                both.push_back(surroundings);
            }
        }
        return both;
    }

    TextCursor m_cursor;
};

} // namespace

std::optional<LetterRule> LetterRule::compile(QStringView expression)
{
    const std::optional<Alternatives> alternatives = LookaroundReader(expression).read();
    if (!alternatives)
        return std::nullopt;
    LetterRule rule;
    for (std::size_t letter = 0; letter < letterCount; ++letter) {
        quint32 misfits = ~quint32(0);
        for (std::size_t i = 0; i < alternatives->size(); ++i) {
            for (std::size_t place = 0; place < 4; ++place) {
                if ((*alternatives)[i][place].test(letter))
                    misfits &= ~(quint32(1) << (8 * place + i));
            }
        }
        rule.m_misfits[letter] = misfits;
    }
    return rule;
}

/// Each letter moves what was found so far one place on and adds its own misfits. A byte that has
/// come to the top has met all four letters: a bit that is still clear there is an alternative that
/// fits, around the place two letters back.
void LetterRule::appendCuts(QStringView text, std::vector<qsizetype>& cuts) const
{
    const qsizetype length = text.size();
    if (length < 2)
        return;
    const char16_t* letters = text.utf16();
    quint32 misfits = (m_misfits[noLetter] << 8) | m_misfits[slotOf(letters[0])];
    misfits = (misfits << 8) | m_misfits[slotOf(letters[1])];
    std::array<qsizetype, 512> found;
    for (qsizetype start = 1; start < length - 1; start += qsizetype(found.size())) {
        const qsizetype end = std::min(length - 1, start + qsizetype(found.size()));
        std::size_t count = 0;
        for (qsizetype cut = start; cut < end; ++cut) {
            misfits = (misfits << 8) | m_misfits[slotOf(letters[cut + 1])];
            // Written in any case and kept if it counts: a branch would be mispredicted at most
            // cuts.
            found[count] = cut;
            count += std::size_t(isFit(misfits));
        }
        cuts.insert(cuts.end(), found.begin(), found.begin() + std::ptrdiff_t(count));
    }
    if (isFit((misfits << 8) | m_misfits[noLetter]))
        cuts.push_back(length - 1);
}

} // namespace ions
