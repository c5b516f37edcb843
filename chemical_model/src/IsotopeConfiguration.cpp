#include "IsotopeConfiguration.h"

#include "ChemicalFactory.h"
#include "Logging.h"
#include "TruncateToInt.h"

#include <QDebug>

#include <algorithm>
#include <cmath>
#include <limits>

namespace chem {

namespace {

const QLoggingCategory* const genericCategory = createLoggingCategory("zel.generic", QtDebugMsg);

/// Daltons that one more neutron adds, about.
constexpr double neutronStep = 1.0026;
/// How close a known isotope must be to the expected mass to be taken for it, in daltons.
constexpr double massWindow = 0.2;

/// One entry of a configuration text, such as "C13:0.99".
struct Entry
{
    QString symbol;
    int massNumber = 0;
    double abundance = 0.0;
};

// Read without regular expressions: when an engine gets no memory, it reports no match, and the
// text would be read as another one.

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

/// ASCII white space.
bool isBlank(QChar character)
{
    return character == u' ' || (character >= u'\t' && character <= u'\r');
}

/// What stands between the runs of white space, before the first and behind the last included. Text
/// with a lone surrogate is one piece.
QStringList splitAtBlanks(const QString& text)
{
    QStringList pieces;
    auto start = text.cbegin();
    auto end = text.isValidUtf16() ? std::find_if(start, text.cend(), isBlank) : text.cend();
    while (end != text.cend()) {
        pieces.append(QString(start, end - start));
        start = std::find_if_not(end, text.cend(), isBlank);
        end = std::find_if(start, text.cend(), isBlank);
    }
    pieces.append(QString(start, end - start));
    return pieces;
}

/// Reads one entry; false if it cannot be told which element it names, or if it has no abundance.
bool readEntry(const QString& text, Entry* entry)
{
    const QStringList pieces = text.split(u':');
    const QString& isotope = pieces.first();
    const qsizetype firstDigit =
        std::find_if(isotope.cbegin(), isotope.cend(), isDigit) - isotope.cbegin();
    if (!isotope.isValidUtf16() || firstDigit < 1 || firstDigit == isotope.size() ||
        pieces.size() < 2)
        return false;
    entry->symbol = isotope.first(firstDigit);
    entry->massNumber = isotope.sliced(firstDigit).toInt();
    entry->abundance = pieces[1].toDouble();
    return true;
}

/// The mass of a known isotope near `expected`, or else that mass itself.
double knownMassNear(double expected, const QList<double>& masses)
{
    const auto known = std::find_if(masses.cbegin(), masses.cend(), [expected](double mass) {
        return std::abs(mass - expected) < massWindow;
    });
    return known != masses.cend() ? *known : expected;
}

} // namespace

void normalize(QList<double>& values)
{
    // The sum is cut to a whole number at each step on purpose: percentages are scaled, while
    // fractions are taken as they were written.
    int sum = 0;
    for (const double value : std::as_const(values))
        sum = truncateToInt(sum + value);
    if (sum < std::numeric_limits<double>::epsilon()) {
        qCDebug((*genericCategory), "skipping normalization. sum less than threshold");
        return;
    }
    const double factor = 1.0 / sum;
    for (double& value : values)
        value *= factor;
}

QList<double> ChemicalFactory::massesOf(const QString& symbol) const
{
    QList<double> masses;
    for (const IsotopeRecord& record : isotopes) {
        if (record.symbol == symbol)
            masses.append(record.mass);
    }
    return masses;
}

bool ChemicalFactory::applyIsotopeOverrides(const QString& isotopeOverrides)
{
    const QStringList texts = splitAtBlanks(isotopeOverrides);

    // The known masses gather across the entries, and the first of them is the base of them all:
    // the lightest isotope of the element that the text names first.
    QList<double> knownMasses;
    QMap<QString, QList<IsotopeRecord>> replacements;
    for (const QString& text : texts) {
        Entry entry;
        if (!readEntry(text, &entry))
            return false;
        if (!replacements.contains(entry.symbol)) {
            const QList<double> masses = massesOf(entry.symbol);
            if (masses.isEmpty()) // no such element
                return false;
            knownMasses += masses;
        }
        const double base = knownMasses.first();
        const int extraNeutrons = truncateToInt(entry.massNumber - std::round(base));
        const double mass = knownMassNear(extraNeutrons * neutronStep + base, knownMasses);
        replacements[entry.symbol].append(
            {-1, extraNeutrons, entry.symbol, entry.symbol, mass, entry.abundance});
    }

    for (auto entry = replacements.cbegin(); entry != replacements.cend(); ++entry)
        replaceIsotopes(entry.key(), entry.value());
    return true;
}

/// Puts the new rows of an element behind all others, under the atomic number and name of its first
/// old row, and drops the old ones.
void ChemicalFactory::replaceIsotopes(const QString& symbol, QList<IsotopeRecord> replacements)
{
    QList<double> abundances;
    for (const IsotopeRecord& record : std::as_const(replacements))
        abundances.append(record.abundance);
    normalize(abundances);

    const auto isReplaced = [&symbol](const IsotopeRecord& record) {
        return record.symbol == symbol;
    };
    const IsotopeRecord first = *std::find_if(isotopes.cbegin(), isotopes.cend(), isReplaced);
    isotopes.removeIf(isReplaced);
    for (qsizetype i = 0; i < replacements.size(); ++i) {
        IsotopeRecord& record = replacements[i];
        record.atomicNumber = first.atomicNumber;
        record.name = first.name;
        record.abundance = abundances[i];
    }
    isotopes.append(replacements);
}

} // namespace chem
