#include "readers/Mgf.h"

#include "readers/InputFile.h"
#include "readers/NameText.h"
#include "readers/PeakLine.h"
#include "support/Number.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace tool {

using ions::Error;
using ions::Parsed;

namespace {

/// Beyond what any instrument resolves.
constexpr int mostCharge = 10000;

bool isRemark(const QByteArray& line)
{
    return line.isEmpty() || QByteArrayView("#;!/").contains(line.front());
}

/// `2+`, `1-`, `3` or `+3`; 0 for anything else.
int chargeOf(QByteArrayView word)
{
    const bool isNegative = word.endsWith('-');
    const bool hasSign = isNegative || word.endsWith('+');
    const auto number = readWhole(hasSign ? word.chopped(1) : word);
    if (!number || std::abs(qint64(*number)) > mostCharge || (hasSign && *number < 0))
        return 0;
    return isNegative ? -*number : *number;
}

/// Puts spectra together from lines.
class MgfReader
{
public:
    MgfReader(const QString& source, LineReader* lines, Complaints* complaints,
              const std::function<void(Spectrum&&)>& take)
        : m_source(source)
        , m_lines(lines)
        , m_complaints(complaints)
        , m_take(take)
    {
    }

    void read()
    {
        while (m_lines->next()) {
            if (m_lines->isTooLong())
                refuse({u"expected a shorter line"_s, LineReader::mostBytes});
            else
                readLine(m_lines->line());
        }
        if (m_isInside)
            refuseSpectrum(u"expected END IONS before the file ends"_s);
        else if (m_count == 0 && !m_isRefused)
            m_complaints->report({m_source}, {u"expected spectra"_s, 0});
    }

private:
    void readLine(const QByteArray& whole)
    {
        const QByteArray line = whole.trimmed();
        m_indent = line.isEmpty() ? 0 : whole.indexOf(line.front());
        if (line.compare("BEGIN IONS", Qt::CaseInsensitive) == 0)
            begin();
        else if (line.compare("END IONS", Qt::CaseInsensitive) == 0)
            end();
        else if (isRemark(line))
            return;
        else if (const qsizetype equals = line.indexOf('='); equals > 0)
            readProperty(line.first(equals).trimmed().toUpper(), line.sliced(equals + 1),
                         equals + 1);
        else if (m_isInside)
            readPeak(line);
        else
            refuse({u"expected BEGIN IONS"_s, 0});
    }

    /// Refuses the spectrum that the line belongs to, once; or what stands outside of all, which
    /// is told once for each stretch.
    void refuse(Error error)
    {
        error.position += m_indent;
        if (!m_isRefused)
            m_complaints->report({m_source, m_lines->number()}, error);
        m_isRefused = true;
    }

    /// Refuses the spectrum as a whole.
    void refuseSpectrum(const QString& expected)
    {
        if (!m_isRefused)
            m_complaints->report(m_spectrum.place, {expected, 0});
        m_isRefused = true;
    }

    void begin()
    {
        if (m_isInside)
            refuseSpectrum(u"expected END IONS before the next BEGIN IONS"_s);
        m_isInside = true;
        m_isRefused = false;
        m_spectrum = Spectrum{u"index="_s + QString::number(++m_count),
                              0.0,
                              m_charges,
                              {},
                              {m_source, m_lines->number()}};
    }

    void end()
    {
        if (!m_isInside) {
            refuse({u"expected BEGIN IONS before END IONS"_s, 0});
            return;
        }
        if (!(m_spectrum.precursor > 0.0))
            refuseSpectrum(u"expected PEPMASS with an m/z above 0"_s);
        if (!m_isRefused) {
            m_spectrum.peaks.sort();
            m_take(std::move(m_spectrum));
        }
        m_isInside = m_isRefused = false;
    }

    void readPeak(const QByteArray& line)
    {
        if (const auto error = appendPeak(line, &m_spectrum.peaks))
            refuse(*error);
    }

    void readProperty(const QByteArray& key, const QByteArray& value, qsizetype position)
    {
        const QByteArray title = value.trimmed();
        if (key == "CHARGE")
            readCharge(value, position);
        else if (m_isInside && key == "TITLE" && !title.isEmpty())
            m_spectrum.title = nameOf(title);
        else if (m_isInside && key == "PEPMASS")
            readPrecursor(value, position);
    }

    void readCharge(const QByteArray& value, qsizetype position)
    {
        auto charges = readCharges(value);
        if (!charges)
            refuse({charges.error().message, position + charges.error().position});
        else
            (m_isInside ? m_spectrum.charges : m_charges) = std::move(charges).value();
    }

    /// The m/z, behind which an intensity may stand.
    void readPrecursor(const QByteArray& value, qsizetype position)
    {
        if (m_spectrum.precursor > 0.0) {
            refuse({u"expected one PEPMASS only"_s, 0});
            return;
        }
        const std::vector<Word> columns = columnsBetweenBlanks(value);
        const Word first = columns.empty() ? Word() : columns.front();
        const auto mz = readColumn({first.text, position + first.position},
                                   u"expected PEPMASS with an m/z above 0"_s, isMz);
        if (!mz)
            refuse(mz.error());
        else
            m_spectrum.precursor = *mz;
    }

    QString m_source;
    LineReader* m_lines;
    Complaints* m_complaints;
    const std::function<void(Spectrum&&)>& m_take;
    std::vector<int> m_charges; ///< Of spectra that state none.
    Spectrum m_spectrum;
    qint64 m_count = 0;
    qsizetype m_indent = 0; ///< Blanks in front of the line.
    bool m_isInside = false;
    bool m_isRefused = false;
};

} // namespace

Parsed<std::vector<int>> readCharges(QByteArrayView text)
{
    std::vector<int> charges;
    for (const Word& word : wordsOf(text)) {
        if (word.text.compare("and", Qt::CaseInsensitive) == 0)
            continue;
        const int charge = chargeOf(word.text);
        if (charge == 0)
            return Error{u"expected charges such as 2+ and 3+"_s, word.position};
        if (std::find(charges.begin(), charges.end(), charge) == charges.end())
            charges.push_back(charge);
    }
    if (charges.empty())
        return Error{u"expected charges such as 2+ and 3+"_s, text.size()};
    return charges;
}

void readMgf(const QString& source, LineReader* lines, Complaints* complaints,
             const std::function<void(Spectrum&&)>& take)
{
    MgfReader(source, lines, complaints, take).read();
}

std::vector<Spectrum> readMgfFile(const QString& name, Complaints* complaints)
{
    return readItems<Spectrum>(name, complaints, readMgf);
}

} // namespace tool
