#pragma once

#include <QtGlobal>

namespace ions {

/// The units that ions of one kind hold as their numbers grow: from the left end, from the right
/// end, or from a unit in the middle. The units of a number include those of the numbers below it.
class UnitRange
{
public:
    static UnitRange left(qsizetype size) { return {0, size, false}; }
    static UnitRange right(qsizetype size) { return {0, size, true}; }
    static UnitRange middle(qsizetype start, qsizetype size) { return {start, size, false}; }

    qsizetype begin(qsizetype number) const { return m_isRight ? m_size - number : m_start; }
    qsizetype end(qsizetype number) const { return m_isRight ? m_size : m_start + number; }

    /// The unit that the ion of a number holds and the one below it does not.
    qsizetype newUnit(qsizetype number) const
    {
        return m_isRight ? begin(number) : end(number) - 1;
    }

    bool isRight() const { return m_isRight; }

private:
    UnitRange(qsizetype start, qsizetype size, bool isRight)
        : m_start(start)
        , m_size(size)
        , m_isRight(isRight)
    {
    }

    qsizetype m_start;
    qsizetype m_size;
    bool m_isRight;
};

/// Numbers of ions from `first` to `last`, both included; none if the last is below the first.
struct NumberSpan
{
    qsizetype first = 1;
    qsizetype last = 0;

    bool isEmpty() const { return last < first; }

    friend NumberSpan operator&(NumberSpan left, NumberSpan right)
    {
        return {left.first > right.first ? left.first : right.first,
                left.last < right.last ? left.last : right.last};
    }
};

} // namespace ions
