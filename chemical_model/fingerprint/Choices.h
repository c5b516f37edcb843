#pragma once

#include <QList>
#include <QString>

#include <random>

/// Seeded choices that are the same with every standard library: the engine's numbers are laid down
/// in the language standard, while those of its distributions are not.
///
/// Draw into a named local before it becomes an argument: compilers evaluate arguments in different
/// orders.
class Choices
{
public:
    explicit Choices(quint64 seed)
        : m_engine(seed)
    {
    }

    /// A number from 0 to `end` - 1. That low numbers come up more often by some 10^-18 is no harm.
    int below(int end) { return static_cast<int>(m_engine() % static_cast<quint64>(end)); }

    /// A number from `first` to `last`.
    int from(int first, int last) { return first + below(last - first + 1); }

    bool oneIn(int count) { return below(count) == 0; }

    /// A number of eighths of a 1,024th from 0 to `end`, which sums hold without rounding.
    double number(int end)
    {
        const int whole = below(end);
        return whole + below(8192) / 8192.0;
    }

    template <typename T>
    T of(const QList<T>& list)
    {
        return list.at(below(static_cast<int>(list.size())));
    }

    /// A text of `length` characters out of `alphabet`.
    QString text(const QString& alphabet, int length)
    {
        QString text;
        text.reserve(length);
        for (int i = 0; i < length; ++i)
            text += alphabet.at(below(static_cast<int>(alphabet.size())));
        return text;
    }

private:
    std::mt19937_64 m_engine;
};
