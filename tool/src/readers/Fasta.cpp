#include "readers/Fasta.h"

#include "readers/InputFile.h"
#include "readers/NameText.h"

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\v' || byte == '\f';
}

bool isResidue(char byte)
{
    return (byte >= 'A' && byte <= 'Z') || byte == '*' || byte == '-';
}

char toUpper(char byte)
{
    return byte >= 'a' && byte <= 'z' ? char(byte - 'a' + 'A') : byte;
}

/// Tells whether a line holds blanks or a remark only.
bool isNothing(const QByteArray& line)
{
    return line.startsWith(';') || std::all_of(line.begin(), line.end(), isBlank);
}

/// Puts sequences together from lines.
class FastaReader
{
public:
    FastaReader(const QString& source, LineReader* lines, Complaints* complaints,
                const std::function<void(Sequence&&)>& take)
        : m_source(source)
        , m_lines(lines)
        , m_complaints(complaints)
        , m_take(take)
    {
    }

    void read()
    {
        while (m_lines->next()) {
            const QByteArray& line = m_lines->line();
            m_isEmpty = m_isEmpty && isNothing(line);
            if (m_lines->isTooLong())
                refuse(u"expected a shorter line"_s, LineReader::mostBytes);
            else if (line.startsWith('>'))
                startSequence(line);
            else if (!line.startsWith(';'))
                appendLetters(line);
        }
        endSequence();
        if (m_isEmpty)
            m_complaints->report({m_source}, {u"expected sequences"_s, 0});
    }

private:
    /// Refuses the sequence that the line belongs to, once.
    void refuse(const QString& expected, qsizetype position)
    {
        if (!m_isRefused)
            m_complaints->report({m_source, m_lines->number()}, {expected, position});
        m_isRefused = true;
    }

    void startSequence(const QByteArray& header)
    {
        endSequence();
        m_isRefused = false;
        const QString text = nameOf(header.sliced(1)).simplified();
        m_sequence = Sequence{text.section(u' ', 0, 0), {}, {m_source, m_lines->number()}};
        if (text.isEmpty())
            refuse(u"expected a name behind '>'"_s, 1);
    }

    void appendLetters(const QByteArray& line)
    {
        for (qsizetype i = 0; i < line.size() && !m_isRefused; ++i) {
            if (isBlank(line[i]))
                continue;
            const char letter = toUpper(line[i]);
            if (!isResidue(letter))
                refuse(u"expected letters of residues"_s, i);
            else if (!m_sequence)
                refuse(u"expected a header with '>' in front of letters"_s, i);
            else
                m_sequence->letters += QLatin1Char(letter);
        }
    }

    void endSequence()
    {
        if (!m_sequence || m_isRefused)
            return;
        if (m_sequence->letters.endsWith(u'*'))
            m_sequence->letters.chop(1);
        if (m_sequence->letters.isEmpty())
            m_complaints->report(m_sequence->place, {u"expected letters behind this header"_s, 0});
        else
            m_take(*std::move(m_sequence));
        m_sequence.reset();
    }

    QString m_source;
    LineReader* m_lines;
    Complaints* m_complaints;
    const std::function<void(Sequence&&)>& m_take;
    std::optional<Sequence> m_sequence;
    bool m_isEmpty = true; ///< No line so far held anything but blanks and remarks.
    bool m_isRefused = false;
};

} // namespace

void readFasta(const QString& source, LineReader* lines, Complaints* complaints,
               const std::function<void(Sequence&&)>& take)
{
    FastaReader(source, lines, complaints, take).read();
}

std::vector<Sequence> readFastaFile(const QString& name, Complaints* complaints)
{
    return readItems<Sequence>(name, complaints, readFasta);
}

} // namespace tool
