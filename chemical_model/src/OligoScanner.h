#pragma once

#include "CharacterClass.h"

#include <QHash>
#include <QRegularExpression>
#include <QString>
#include <QStringView>
#include <QVarLengthArray>

#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace chem {

/// The five alphabets of oligonucleotide text, each as the inside of a character class.
struct OligoAlphabets
{
    QString fivePrimeMarks;
    QString riboses;
    QString nucleobases;
    QString phosphates;
    QString threePrimeMarks;
};

/// The expression of one nucleotide: ribose, base or number, phosphates.
QString oligoUnitExpression(const OligoAlphabets& alphabets);

/// The expression of a whole text: 5' mark, nucleotides, 3' mark.
QString oligoFullExpression(const OligoAlphabets& alphabets);

/// One nucleotide of a body in its parts.
struct OligoUnit
{
    QStringView text;       ///< All of it.
    QStringView ribose;     ///< The letter before the base, or empty.
    QStringView base;       ///< The base letter, or empty.
    QStringView number;     ///< The number in place of a base, or empty.
    QStringView phosphates; ///< The marks behind the base, any number.
};

/// The nucleotides of a body. Those of a usual strand need no allocation.
using OligoUnits = QVarLengthArray<OligoUnit, 32>;

/// Judges and cuts oligonucleotide text exactly as the two expressions do, in time linear in its
/// length.
///
/// The expression engine gives up on texts of some thousand nucleotides, backtracks at length over
/// runs of digits that end badly, and has to compile its expressions for each state of the
/// dictionaries. The scanner keeps, for each character, the set of roles that its alphabets allow
/// it. Which roles may follow each other is the same for all dictionaries, so judging a text is one
/// look-up and one intersection for each character.
///
/// A dictionary may hold keys that break the structure of the expressions, such as a lone
/// backslash. Such alphabets are left to the engine, with its limits. Most of them do not even
/// compile: where a class does not end at its bracket, it takes parentheses of the expression along
/// and leaves the others unbalanced. What compiles all the same was written to do so (a key can
/// close its class and go on with an expression of its own), and the engine alone can tell what it
/// means.
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

    /// Cuts a body into nucleotides, skipping what belongs to none. The views point into `body`.
    OligoUnits units(QStringView body) const;

private:
    using Roles = quint16;

    /// Who judges: nobody, as the expressions are invalid; the tables below; or the engine.
    enum class Judge { Nobody, Tables, Engine };

    struct Character
    {
        Roles roles;
        qsizetype size; ///< 2 for a surrogate pair.
    };

    void fillTables(const OligoAlphabets& alphabets);
    void addClass(const CharacterClass& members, Roles role);
    void addRole(char32_t character, Roles role);
    Roles rolesOf(char32_t character) const;
    Character characterAt(QStringView text, qsizetype position) const;
    Roles follow(QStringView text, Roles next) const;
    bool matchesByTables(QStringView text) const;
    std::vector<Roles> rolesWithinReach(QStringView text) const;
    Parts splitByPreference(QStringView text) const;
    std::optional<Parts> splitByTables(QStringView text) const;
    std::optional<Parts> splitByEngine(QStringView text) const;
    OligoUnits unitsByEngine(QStringView body) const;
    std::optional<OligoUnit> unitAt(QStringView body, qsizetype start) const;
    std::optional<OligoUnit> unitAt(QStringView body, qsizetype start, qsizetype core) const;

    static constexpr std::size_t asciiSize = 128;

    Judge m_judge = Judge::Nobody;
    std::array<Roles, asciiSize> m_asciiRoles{};
    QHash<char32_t, Roles> m_otherRoles; ///< Of plain alphabets.
    std::vector<std::pair<CharacterClass, Roles>> m_specialClasses;
    QRegularExpression m_fullExpression; ///< For the engine only.
    QRegularExpression m_unitExpression; ///< For the engine only.
};

} // namespace chem
