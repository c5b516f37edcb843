#include "ByteReader.h"
#include "DigestBySearch.h"
#include "StandardResidues.h"

#include <array>
#include <cmath>

/// \file
/// A byte string is an agent, options and a text. The digest is compared with a search through all
/// ranges. Expressions are made of conditions on letters, some of which compile: the engine is no
/// code of ours.

using namespace ions;

namespace {

constexpr std::array conditions = {
    u"(?<=[KR])", u"(?!P)", u"(?<=K)",      u"(?=[DE])", u"(?<!P)",
    u"(?=K[^P])", u"|",     u"((?<=[^G]))", u"(?<=GA)",  u"(?<![KR]P)",
    u"K",         u".",     u"\\b",         u"(?<=\\w)", u"(?:(?<=D)|(?=D))"};

constexpr std::array letters = {u'K', u'R', u'P', u'G', u'A',      u'D',     u'E',
                                u'C', u'U', u'X', u'*', u'k',      u' ',     u'B',
                                u'J', u'O', u'Z', u'Q', u'\u00e9', u'\xd83e'};
constexpr int longestText = 48;

const RnaTable& nucleotides()
{
    static const RnaTable table(residues());
    return table;
}

template <typename Agent>
Agent anyAgent(ByteReader* bytes)
{
    const QStringList names = Agent::names();
    const int choice = bytes->below(2 * int(names.size()));
    if (choice < names.size())
        return Agent::named(names[choice]).value();
    QString expression;
    for (int count = bytes->below(5); count > 0; --count)
        expression +=
            QString::fromUtf16(conditions[std::size_t(bytes->below(int(conditions.size())))]);
    return Agent::fromExpression(expression).value();
}

DigestOptions anyOptions(ByteReader* bytes)
{
    DigestOptions options;
    options.missedCleavages = bytes->aroundRange(4);
    options.minLength = bytes->aroundRange(12);
    if (bytes->below(2) == 1)
        options.maxLength = bytes->aroundRange(30);
    if (bytes->below(3) == 1)
        options.minMass = 40.25 * bytes->below(64);
    if (bytes->below(3) == 1)
        options.maxMass = 80.25 * bytes->below(64);
    options.isSemiSpecific = bytes->below(2) == 1;
    return options;
}

QString anyText(ByteReader* bytes)
{
    QString text;
    while (!bytes->atEnd() && text.size() < longestText)
        text += QChar(letters[std::size_t(bytes->below(int(letters.size())))]);
    return text;
}

bool areSame(double mass, double expected)
{
    return std::isnan(mass) ? std::isnan(expected) : std::abs(mass - expected) < 1e-9;
}

void checkProducts(const Digest& digest, const std::vector<Product>& expected)
{
    const std::vector<Product> products = productsOf(digest);
    require(products.size() == expected.size(), "a digest has the ranges of the search");
    for (std::size_t i = 0; i < products.size(); ++i) {
        require(products[i].start == expected[i].start && products[i].end == expected[i].end,
                "products are in order");
        require(products[i].missed == expected[i].missed, "missed cleavages are cuts inside");
        require(areSame(products[i].monoisotopic, expected[i].monoisotopic) &&
                    areSame(products[i].average, expected[i].average),
                "products weigh their letters and ends");
    }
}

/// Cuts lie between the letters, once each.
std::vector<qsizetype> cutsOf(const CleavageAgent& agent, const QString& text)
{
    std::vector<qsizetype> cuts;
    require(agent.findCuts(text, &cuts), "short texts have cuts");
    for (std::size_t i = 0; i < cuts.size(); ++i) {
        require(cuts[i] > 0 && cuts[i] < text.size(), "a cut is inside");
        require(i == 0 || cuts[i - 1] < cuts[i], "cuts ascend");
    }
    return cuts;
}

void digestProtein(ByteReader* bytes, Digest* digest)
{
    const auto agent = anyAgent<Protease>(bytes);
    const DigestOptions options = anyOptions(bytes);
    const QString text = anyText(bytes);
    require(digest->cleave(text, agent, residues(), options), "short texts are digested");
    checkProducts(*digest, productsBySearch(text, agent, cutsOf(agent, text),
                                            peptideMasses(residues()), options));
}

void digestRna(ByteReader* bytes, Digest* digest)
{
    const auto agent = anyAgent<Ribonuclease>(bytes);
    const DigestOptions options = anyOptions(bytes);
    const auto end =
        bytes->below(2) == 1 ? ThreePrimeEnd::Phosphate : ThreePrimeEnd::CyclicPhosphate;
    const QString text = anyText(bytes);
    const ProductMasses masses = {nucleotides().letterMasses(),
                                  end == ThreePrimeEnd::Phosphate ? nucleotides().water()
                                                                  : Masses(),
                                  nucleotides().water() - nucleotides().linkage()};
    require(digest->cleave(text, agent, nucleotides(), end, options), "short texts are digested");
    checkProducts(*digest, productsBySearch(text, agent, cutsOf(agent, text), masses, options));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Digest digest; // used again, as by a program with many texts
    ByteReader bytes(data, size);
    if (bytes.below(4) == 0)
        digestRna(&bytes, &digest);
    else
        digestProtein(&bytes, &digest);
    return 0;
}
