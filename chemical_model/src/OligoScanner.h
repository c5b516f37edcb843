#pragma once

#include <QHash>
#include <QList>
#include <QRegularExpression>
#include <QString>
#include <QStringView>

#include <array>
#include <optional>
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

/// Judges and cuts oligonucleotide text exactly as the two expressions do, in time linear in its
/// length.
///
/// The expression engine gives up on texts of some thousand nucleotides, takes exponential time on
/// runs of digits that end badly, and has to compile its expressions for each state of the
/// dictionaries. The scanner walks the same grammar as an automaton: one pass from the end marks
/// from where the end can still be reached, and a walk from the start takes, at each step, the
/// first alternative in the expression's own order of preference that can. That is the match a
/// backtracking engine finds.
///
/// A dictionary may hold keys that break the structure of the expressions, such as a lone
/// backslash. Such alphabets are left to the engine, with its limits on length.
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

    /// Tells whether the whole text is in the grammar.
    bool matches(QStringView text) const;

    /// Splits a text that is in the grammar; nothing otherwise. The views point into `text`.
    std::optional<Parts> split(QStringView text) const;

    /// Cuts a body into nucleotides, skipping what belongs to none. The views point into `body`.
    std::vector<OligoUnit> units(QStringView body) const;

private:
    using Mask = quint8;
    struct Walk;

    /// An alphabet of ranges or negations, whose members the expression engine tells.
    struct OddAlphabet
    {
        QRegularExpression expression;
        Mask mask;
    };

    void addAlphabet(const QString& alphabet, Mask mask);
    void addOddAlphabet(const QString& alphabet, Mask mask);
    void fallBackToEngine(const OligoAlphabets& alphabets);
    Mask maskOf(char32_t character) const;
    Mask maskAt(QStringView text, qsizetype position) const;
    template <typename Visit>
    bool walkBackwards(QStringView text, Visit visit) const;
    std::optional<Parts> splitByEngine(QStringView text) const;
    std::vector<OligoUnit> unitsByEngine(QStringView body) const;
    std::optional<OligoUnit> unitAt(QStringView body, qsizetype start) const;
    std::optional<OligoUnit> coreAt(QStringView body, qsizetype start) const;

    static constexpr std::size_t asciiSize = 128;
    std::array<Mask, asciiSize> m_asciiMasks{};
    QHash<char32_t, Mask> m_otherMasks;
    std::vector<OddAlphabet> m_oddAlphabets;
    bool m_refusesAll = false;
    bool m_usesEngine = false;
    QRegularExpression m_fullExpression; ///< For the engine only.
    QRegularExpression m_unitExpression; ///< For the engine only.
};

} // namespace chem
