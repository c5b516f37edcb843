#include "support/NearestNames.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <numeric>
#include <utility>
#include <vector>

namespace ions {

namespace {

/// How many characters have to be inserted, deleted or replaced to make one text the other.
qsizetype editDistance(QStringView left, QStringView right)
{
    std::vector<qsizetype> row(std::size_t(right.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 0; i < left.size(); ++i) {
        qsizetype diagonal = std::exchange(row[0], i + 1);
        for (qsizetype j = 0; j < right.size(); ++j) {
            const auto at = std::size_t(j);
            const qsizetype replaced = diagonal + (left[i] == right[j] ? 0 : 1);
            diagonal = row[at + 1];
            row[at + 1] = std::min({replaced, row[at] + 1, diagonal + 1});
        }
    }
    return row.back();
}

/// How often a text has each character, some sharing a count.
class CharacterCounts
{
public:
    explicit CharacterCounts(QStringView text)
        : m_size(text.size())
    {
        for (const QChar c : text)
            ++m_counts[kindOf(c)];
    }

    /// What the edit distance of another text is at least: each character of the longer one that
    /// the other lacks has to be deleted or replaced.
    qsizetype leastDistance(QStringView other) const
    {
        std::array<int, kinds> left = m_counts;
        qsizetype shared = 0;
        for (const QChar c : other)
            shared += --left[kindOf(c)] >= 0 ? 1 : 0;
        return std::max(m_size, other.size()) - shared;
    }

private:
    static constexpr std::size_t kinds = 64;
    static std::size_t kindOf(QChar c) { return c.unicode() % kinds; }

    std::array<int, kinds> m_counts{};
    qsizetype m_size;
};

} // namespace

QStringList nearestNames(QStringView wanted, const QStringList& names, qsizetype count)
{
    const QString start = wanted.first(std::min<qsizetype>(wanted.size(), 100)).toString();
    const QString folded = start.toCaseFolded();
    const CharacterCounts counts(folded);
    const qsizetype most = (folded.size() + 1) / 2;
    std::vector<std::pair<qsizetype, qsizetype>> distances;
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (std::abs(names[i].size() - folded.size()) > most) // folding hardly changes it
            continue;
        const QString name = names[i].toCaseFolded();
        if (counts.leastDistance(name) > most) // as of most names, in a fraction of the time
            continue;
        const qsizetype distance = editDistance(folded, name);
        if (distance <= most)
            distances.emplace_back(distance, i);
    }
    std::sort(distances.begin(), distances.end());
    QStringList nearest;
    for (const auto& [distance, index] : distances) {
        if (nearest.size() >= count)
            break;
        if (!nearest.contains(names[index]))
            nearest.append(names[index]);
    }
    return nearest;
}

} // namespace ions
