#include "support/NearestNames.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <utility>
#include <vector>

namespace ions {

namespace {

/// How many characters have to be inserted, deleted or replaced to make one text the other; some
/// number above `most` if these are more, which most names show after a few rows.
qsizetype editDistance(QStringView left, QStringView right, qsizetype most)
{
    std::vector<qsizetype> row(std::size_t(right.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 0; i < left.size(); ++i) {
        qsizetype diagonal = std::exchange(row[0], i + 1);
        qsizetype least = row[0];
        for (qsizetype j = 0; j < right.size(); ++j) {
            const auto at = std::size_t(j);
            const qsizetype replaced = diagonal + (left[i] == right[j] ? 0 : 1);
            diagonal = row[at + 1];
            row[at + 1] = std::min({replaced, row[at] + 1, diagonal + 1});
            least = std::min(least, row[at + 1]);
        }
        if (least > most)
            return least;
    }
    return row.back();
}

} // namespace

QStringList nearestNames(QStringView wanted, const QStringList& names, qsizetype count)
{
    const QString start = wanted.first(std::min<qsizetype>(wanted.size(), 100)).toString();
    const QString folded = start.toCaseFolded();
    const qsizetype most = (folded.size() + 1) / 2;
    std::vector<std::pair<qsizetype, qsizetype>> distances;
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (std::abs(names[i].size() - folded.size()) > most) // folding hardly changes it
            continue;
        const qsizetype distance = editDistance(folded, names[i].toCaseFolded(), most);
        if (distance <= most)
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
