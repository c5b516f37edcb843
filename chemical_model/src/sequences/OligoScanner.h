#pragma once

#include "sequences/OligoGrammar.h"
#include "support/CharacterTable.h"

#include <QRegularExpression>
#include <QString>
#include <QStringView>
#include <QVarLengthArray>

#include <optional>

namespace chem {

/// One nucleotide of a body in its parts.
struct OligoUnit
{
    QStringView text;       ///< All of it.
    QStringView ribose;     ///< The letter before the base, or empty.
    QStringView base;       ///< The base letter, or empty.
    QStringView number;     ///< The number in place of a base, or empty.
    QStringView phosphates; ///< The marks behind the base, any number.
};

/// What a character can be in a text, one bit for each role.
using OligoRoles = quint16;

/// The nucleotides of a body. Those of a usual strand need no allocation.
using OligoUnits = QVarLengthArray<OligoUnit, 32>;

/// Matches and splits oligonucleotide text exactly as the two expressions of its grammar do.
///
/// The expression engine gives up on texts of some thousand nucleotides, backtracks at length over
/// runs of digits that end badly, and has to compile its expressions for each state of the
/// dictionaries. For plain alphabets, in which each character stands for itself, the scanner keeps
/// what each character can be. What may follow what is the same for all dictionaries, so a text of
/// any length is matched by one look-up and one intersection for each character.
///
/// A dictionary may hold keys that mean more: ranges, negations, marks that are letters as well,
/// keys that close their class and go on with an expression of their own. These alphabets are left
/// to the engine, with its limits.
///
/// \code
/// const OligoScanner scanner({u"{"_s, u"rd"_s, u"ACGT"_s, u"*"_s, u"}"_s});
/// scanner.matches(u"{rA*C}");    // true
/// scanner.matches(u"rA*r");      // false: a ribose needs a base or number behind it
/// scanner.split(u"{rA*C}")->body; // "rA*C"
/// scanner.units(u"rA*C");        // "rA*" and "C"
/// \endcode
///
/// All functions may be called from any number of threads.
class OligoScanner
{
public:
    /// A whole text in its parts.
    struct Parts
    {
        QStringView fivePrimeMark;  ///< One character, or empty.
        QStringView body;           ///< The nucleotides.
        QStringView threePrimeMark; ///< One character, or empty.
    };

    explicit OligoScanner(const OligoAlphabets& alphabets);

    /// Tells whether the whole text is in the grammar. A final line feed is allowed behind it.
    bool matches(QStringView text) const;

    /// Splits a text that is in the grammar; nothing otherwise. The views point into `text`.
    std::optional<Parts> split(QStringView text) const;

    /// Splits a body into nucleotides, skipping what belongs to none. The views point into `body`.
    OligoUnits units(QStringView body) const;

private:
    bool fillRoles(const OligoAlphabets& alphabets);
    void addRole(QChar character, OligoRoles role);
    bool hasAmbiguousMarks(const OligoAlphabets& alphabets) const;
    std::optional<OligoUnit> unitAt(QStringView body, qsizetype start, qsizetype core) const;
    OligoUnits unitsByEngine(QStringView body) const;

    bool m_isPlain = false; ///< Whether the roles tell all, and else the expressions.
    CharacterTable<OligoRoles> m_roles;
    std::optional<QRegularExpression> m_fullExpression; ///< Nothing if it is not valid.
    std::optional<QRegularExpression> m_unitExpression; ///< Likewise.
};

} // namespace chem
