#include "chemistry/IsotopeConfig.h"

#include <AtomMasses.h>

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <vector>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

/// The shares of one element and where its first one stands.
struct ElementShares
{
    qsizetype position = 0;
    std::vector<double> shares;
};

bool isNatural(ions::Atom isotope, const ions::AtomMasses& natural)
{
    const auto isotopes = natural.isotopes({isotope.atomicNumber, 0});
    return std::any_of(isotopes.begin(), isotopes.end(), [&](const ions::IsotopeShare& share) {
        return std::lround(share.mass) == isotope.massNumber;
    });
}

bool areFractions(const std::vector<double>& shares)
{
    return std::abs(std::accumulate(shares.begin(), shares.end(), 0.0) - 1.0) <= 1e-6;
}

/// Sums of whole numbers are exact.
bool arePercentages(const std::vector<double>& shares)
{
    return std::accumulate(shares.begin(), shares.end(), 0.0) == 100.0 &&
           std::all_of(shares.begin(), shares.end(),
                       [](double share) { return share == std::floor(share); });
}

} // namespace

ions::Parsed<QString> checkedIsotopes(const QString& text)
{
    static const QRegularExpression word(u"\\S+"_s);
    static const QRegularExpression entry(QRegularExpression::anchoredPattern(
        u"([A-Z][a-z]?)([1-9][0-9]{0,2}):([0-9]+(?:\\.[0-9]+)?)"_s));
    const ions::AtomMasses natural;
    std::map<ions::Atom, ElementShares> elements;
    std::map<ions::Atom, double> isotopes;
    QStringList entries;
    for (const QRegularExpressionMatch& found : word.globalMatch(text)) {
        const qsizetype position = found.capturedStart();
        const QRegularExpressionMatch match = entry.match(found.captured());
        if (!match.hasMatch())
            return ions::Error{u"expected an isotope and its share, such as C13:0.99"_s, position};
        const ions::Atom element = ions::Atom::element(match.captured(1));
        const ions::Atom isotope{element.atomicNumber, match.captured(2).toUShort()};
        const double share = match.captured(3).toDouble();
        if (element.atomicNumber == 0 || !isNatural(isotope, natural))
            return ions::Error{u"expected a natural isotope of an element"_s, position};
        if (share <= 0.0)
            return ions::Error{u"expected a share above 0"_s, position};
        if (!isotopes.emplace(isotope, share).second)
            return ions::Error{u"expected each isotope once"_s, position};
        ElementShares& shares =
            elements.try_emplace(element, ElementShares{position, {}}).first->second;
        shares.shares.push_back(share);
        entries += found.captured();
    }
    for (const auto& [element, shares] : elements) {
        if (!areFractions(shares.shares) && !arePercentages(shares.shares)) {
            return ions::Error{u"expected fractions of "_s + element.symbol() +
                                   u" that add up to 1, or whole percentages that add up to 100"_s,
                               shares.position};
        }
    }
    if (entries.isEmpty())
        return ions::Error{u"expected an isotope and its share, such as C13:0.99"_s, 0};
    return entries.join(u' ');
}

} // namespace tool
