#include "sequences/GlycanReader.h"

#include "support/Ascii.h"

#include <algorithm>

namespace chem {

namespace {

/// Longer names stand before the names that they begin with.
constexpr std::array<QStringView, 9> names = {u"HexNAc", u"dHex",  u"Fuc",    u"Hex", u"Pent",
                                              u"NeuAc",  u"NeuGc", u"Sodium", u"Na"};

/// A term of a composition.
struct Term
{
    std::size_t name;         ///< Its place among the names.
    std::optional<int> count; ///< Nothing if 32 bits do not hold it.
    qsizetype size;           ///< Of its text.
};

template <typename Predicate>
qsizetype behindAll(QStringView text, qsizetype start, Predicate isPart)
{
    const auto end = std::find_if_not(text.cbegin() + start, text.cend(), isPart);
    return end - text.cbegin();
}

/// The term that `text` starts with under one name.
std::optional<Term> termOf(QStringView text, std::size_t name)
{
    if (!text.startsWith(names[name]))
        return std::nullopt;
    const qsizetype bracket = behindAll(text, names[name].size(), isAsciiBlank);
    if (bracket == text.size() || text[bracket] != u'(')
        return std::nullopt;
    const qsizetype digits = bracket + 1;
    const qsizetype end = behindAll(text, digits, isAsciiDigit);
    if (end == digits || end == text.size() || text[end] != u')')
        return std::nullopt;
    bool isCount = false;
    const int count = text.sliced(digits, end - digits).toInt(&isCount);
    return Term{name, isCount ? std::optional(count) : std::nullopt, end + 1};
}

/// The term that `text` starts with, if it starts with one.
std::optional<Term> termAt(QStringView text)
{
    for (std::size_t name = 0; name < names.size(); ++name) {
        if (const std::optional<Term> term = termOf(text, name))
            return term;
    }
    return std::nullopt;
}

/// Calls `visit` with each term, until it answers false. Text with a lone surrogate has no terms.
template <typename Visit>
void forEachTerm(QStringView text, Visit visit)
{
    if (!text.isValidUtf16())
        return;
    while (!text.isEmpty()) {
        const std::optional<Term> term = termAt(text);
        if (term && !visit(*term))
            return;
        text = text.sliced(term ? term->size : 1);
    }
}

} // namespace

GlycanReader::GlycanReader(const QMap<QString, NamedMolecule>& sugars)
{
    static_assert(names.size() == nameCount);
    for (std::size_t name = 0; name < names.size(); ++name) {
        const auto sugar = sugars.constFind(names[name].toString());
        if (sugar != sugars.cend())
            m_residues[name] = sugar.value();
    }
}

bool GlycanReader::isValid(QStringView composition) const
{
    bool hasTerms = false;
    bool isUsable = true;
    forEachTerm(composition, [&](const Term& term) {
        hasTerms = true;
        isUsable = m_residues[term.name] && term.count;
        return isUsable;
    });
    return hasTerms && isUsable;
}

Molecule GlycanReader::sum(QStringView composition) const
{
    Molecule sum;
    forEachTerm(composition, [&](const Term& term) {
        const std::optional<Molecule>& residue = m_residues[term.name];
        if (residue && term.count.value_or(0) != 0) {
            Molecule residues = *residue;
            residues *= *term.count;
            sum += residues;
        }
        return true;
    });
    return sum;
}

} // namespace chem
