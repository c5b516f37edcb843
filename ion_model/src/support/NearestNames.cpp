#include "support/NearestNames.h"

#include <algorithm>
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

} // namespace

QStringList nearestNames(QStringView wanted, const QStringList& names, qsizetype count)
{
    const QString folded = wanted.first(std::min<qsizetype>(wanted.size(), 100)).toString();
    std::vector<std::pair<qsizetype, qsizetype>> distances;
    for (qsizetype i = 0; i < names.size(); ++i) {
        const qsizetype distance = editDistance(folded.toCaseFolded(), names[i].toCaseFolded());
        if (2 * distance <= folded.size() + 1)
            distances.emplace_back(distance, i);
    }
    std::sort(distances.begin(), distances.end());
    QStringList nearest;
    for (const auto& [distance, index] : distances) {
        if (nearest.size() == count)
            break;
        if (!nearest.contains(names[index]))
            nearest.append(names[index]);
    }
    return nearest;
}

} // namespace ions
