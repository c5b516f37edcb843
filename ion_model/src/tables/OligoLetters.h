#pragma once

#include "AtomMasses.h"
#include "masses/FactoryTables.h"

#include <QStringView>

#include <array>

namespace ions {

/// The characters of oligonucleotide text where each of them is one thing alone, and the masses
/// that each adds. Dictionaries with other keys make texts that mean more: they are not plain.
class OligoLetters
{
public:
    enum class Role : quint8 { None, FivePrimeMark, Sugar, Base, Linkage, ThreePrimeMark };

    /// What was read of a text.
    struct Reading
    {
        Masses masses;
        qsizetype end = 0;    ///< Where the first character is that cannot stand there.
        bool isWhole = false; ///< Whether the whole text is an oligonucleotide.
    };

    explicit OligoLetters(const FactoryTables& tables);

    bool isPlain() const { return m_isPlain; }

    /// Reads a text. Numbers are not known here, so the text may be one where it goes on with a
    /// character of these.
    Reading read(QStringView text) const;

    Role role(QChar character) const { return m_roles[index(character)]; }
    const Masses& masses(QChar character) const { return m_masses[index(character)]; }

    const Masses& unnamedSugar() const { return m_unnamedSugar; }
    const Masses& unnamedLinkage() const { return m_unnamedLinkage; }
    const Masses& unmarkedFivePrime() const { return m_unmarkedFivePrime; }
    const Masses& unmarkedThreePrime() const { return m_unmarkedThreePrime; }

private:
    static constexpr std::size_t letterCount = 128;

    /// What was read last.
    enum State : quint8 {
        Start,
        BehindMark,
        BehindSugar,
        BehindBase,
        BehindLinkage,
        Closed,
        stateCount,
        Stuck = stateCount
    };

    /// What a character adds to what was read, and what is read then.
    struct Step
    {
        Masses masses;
        State next = Stuck;
    };

    /// No character behind ASCII has a role, nor has the first of all.
    static std::size_t index(QChar character)
    {
        return character.unicode() < letterCount ? character.unicode() : 0;
    }

    void addRole(const FactoryTables& tables, FactoryTables::BuildingBlockType type, Role role);
    Step stepFrom(State state, std::size_t letter) const;

    /// Reads a text and hands what each character adds to the function.
    template <typename Add>
    Reading follow(QStringView text, const Add& add) const;

    bool m_isPlain = true;
    std::array<Role, letterCount> m_roles{};
    std::array<Masses, letterCount> m_masses{};
    Masses m_unnamedSugar;
    Masses m_unnamedLinkage;
    Masses m_unmarkedFivePrime;
    Masses m_unmarkedThreePrime;
    std::array<std::array<Step, letterCount>, stateCount> m_steps;
};

} // namespace ions
