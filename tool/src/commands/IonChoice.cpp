#include "commands/IonChoice.h"

#include "support/Complaints.h"
#include "support/Number.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

/// As many numbers as any list can be meant to have.
constexpr int mostNumbers = 10000;

/// The series by name.
constexpr const char* seriesNames =
    "a, a., b, c, c., d, a-B, w, x, x., y, z, z., precursor, immonium, internal";

[[noreturn]] void refuse(const QString& option, const QString& expected, const QString& text)
{
    throw UsageError{option + u": expected "_s + expected + u", not '"_s + text + u'\''};
}

/// Appends the numbers of one item, a number or a range.
void appendItem(const QString& item, const QString& option, std::vector<int>* numbers)
{
    static const QRegularExpression form(
        QRegularExpression::anchoredPattern(u"([+-]?[0-9]+)(?:-([+-]?[0-9]+))?"_s));
    const QRegularExpressionMatch match = form.match(item);
    const auto first = readWhole(match.captured(1).toLatin1());
    const auto last = match.hasCaptured(2) ? readWhole(match.captured(2).toLatin1()) : first;
    if (!first || !last || *first > *last || qint64(*last) - *first >= mostNumbers)
        refuse(option, u"whole numbers or ranges such as 1-3, separated by commas"_s, item);
    for (int number = *first; number <= *last; ++number)
        numbers->push_back(number);
}

ions::Series readSeries(const QString& name)
{
    const auto series = ions::seriesNamed(name);
    if (!series)
        refuse(u"--series"_s, u"one of "_s + QLatin1StringView(seriesNames), name);
    return *series;
}

} // namespace

std::vector<int> readList(const std::string& text, const QString& option)
{
    std::vector<int> numbers;
    for (const QString& item : QString::fromStdString(text).split(u','))
        appendItem(item, option, &numbers);
    return numbers;
}

void IonChoice::addTo(CLI::App* command)
{
    command
        ->add_option("--series", m_series,
                     std::string("Series of ions, separated by commas: ") + seriesNames)
        ->capture_default_str();
    command->add_option("--charges", m_charges, "Charges with their sign: 2, 1-3 or -1,-2")
        ->capture_default_str();
    command->add_option("--losses", m_losses,
                        "Neutral losses, separated by commas: H2O,NH3; of some residues: H2O@STED");
    command->add_option("--max-losses", m_maxLosses, "Losses that one ion has at most")
        ->capture_default_str()
        ->check(CLI::Range(0, 4));
    command->add_option("--labels", m_labels, "The form of labels: PSI's mzPAF")
        ->capture_default_str()
        ->check(CLI::IsMember({"mzpaf"}));
}

ions::IonOptions IonChoice::options(const Chemistry& chemistry,
                                    std::span<const ions::Atom> isotopes) const
{
    ions::IonOptions options;
    options.series.clear();
    for (const QString& name : QString::fromStdString(m_series).split(u','))
        options.series.push_back(readSeries(name));
    options.charges = readList(m_charges, u"--charges"_s);
    if (std::find(options.charges.begin(), options.charges.end(), 0) != options.charges.end())
        refuse(u"--charges"_s, u"charges"_s, u"0"_s);
    options.maxLosses = m_maxLosses;
    for (const QString& text : QString::fromStdString(m_losses).split(u',', Qt::SkipEmptyParts)) {
        const auto loss = ions::LossRule::read(text, chemistry.atoms(), isotopes);
        if (!loss)
            refuse(u"--losses"_s, u"a formula, perhaps with residues as in H2O@STED"_s, text);
        options.losses.push_back(*loss);
    }
    return options;
}

QString lossCell(const QString& loss)
{
    return loss.startsWith(u'-') ? loss.sliced(1) : loss;
}

} // namespace tool
