#pragma once

#include "Require.h"
#include "readers/Spectrum.h"
#include "support/Number.h"

#include <QByteArray>

#include <algorithm>
#include <cmath>
#include <cstddef>

/// What holds for the peaks of any file that is read.
inline void requireSound(const tool::Peaks& peaks)
{
    require(peaks.mz.size() == peaks.intensities.size(), "a peak has both numbers");
    require(std::is_sorted(peaks.mz.begin(), peaks.mz.end()), "peaks are in order");
    for (std::size_t i = 0; i < peaks.mz.size(); ++i) {
        require(std::isfinite(peaks.mz[i]) && peaks.mz[i] > 0.0, "m/z are above 0");
        require(std::isfinite(peaks.intensities[i]) && peaks.intensities[i] >= 0.0,
                "intensities are not below 0");
    }
}

inline void requireEqual(const tool::Peaks& left, const tool::Peaks& right)
{
    require(left.mz == right.mz && left.intensities == right.intensities, "peaks read back");
}

/// Peaks as two columns.
inline QByteArray columnsOf(const tool::Peaks& peaks)
{
    QByteArray text;
    for (std::size_t i = 0; i < peaks.mz.size(); ++i) {
        text +=
            tool::numberText(peaks.mz[i]) + '\t' + tool::numberText(peaks.intensities[i]) + '\n';
    }
    return text;
}
