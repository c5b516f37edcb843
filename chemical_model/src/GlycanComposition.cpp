#include "ChemicalFactory.h"

#include <QRegularExpression>

#include <optional>

using namespace Qt::StringLiterals;

namespace chem {

namespace {

/// An expression that is compiled at once. One whose first use gets no memory would stay invalid
/// for good, and every later text would be refused.
QRegularExpression compiled(const QString& pattern)
{
    QRegularExpression expression(pattern);
    expression.optimize();
    return expression;
}

/// A residue name and its count. Longer names stand before the names that they begin with.
const QRegularExpression GlycanCompositionPattern =
    compiled(u"(HexNAc|dHex|Fuc|Hex|Pent|NeuAc|NeuGc|Sodium|Na)\\s*\\(([0-9]+)\\)"_s);

/// What a term of a composition adds, if it can be used.
struct Term
{
    NamedMolecule residue;
    int count = 0;
};

/// Reads the term of a match; nothing if the dictionary has no such residue or if 32 bits do not
/// hold the count.
std::optional<Term> readTerm(const QRegularExpressionMatch& match,
                             const QMap<QString, NamedMolecule>& sugars)
{
    const auto entry = sugars.constFind(match.captured(1));
    bool isCount = false;
    const int count = match.capturedView(2).toInt(&isCount);
    if (entry == sugars.constEnd() || !isCount)
        return std::nullopt;
    return Term{entry.value(), count};
}

} // namespace

bool ChemicalFactory::isValidGlycanComposition(const QString& composition) const
{
    const QMap<QString, NamedMolecule> sugars = sugarBases();
    QRegularExpressionMatchIterator matches = GlycanCompositionPattern.globalMatch(composition);
    if (!matches.hasNext())
        return false;
    while (matches.hasNext()) {
        if (!readTerm(matches.next(), sugars))
            return false;
    }
    return true;
}

Molecule ChemicalFactory::constructGlycanModification(const QString& composition) const
{
    const QMap<QString, NamedMolecule> sugars = sugarBases();
    Molecule sum;
    QRegularExpressionMatchIterator matches = GlycanCompositionPattern.globalMatch(composition);
    while (matches.hasNext()) {
        const std::optional<Term> term = readTerm(matches.next(), sugars);
        if (!term || term->count == 0)
            continue;
        Molecule residues = term->residue;
        residues *= term->count;
        sum += residues;
    }
    return sum;
}

Molecule ChemicalFactory::modifyMoleculeWithGlycan(const Molecule& molecule,
                                                   const QString& composition) const
{
    return molecule + constructGlycanModification(composition);
}

} // namespace chem
