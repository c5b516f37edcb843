#pragma once

#include "Svg.h"

#include <algorithm>
#include <cmath>

/// The frame of a spectrum: axes for m/z and for shares of the highest peak.
class SpectrumFrame
{
public:
    static constexpr double width = 900;
    static constexpr double height = 420;
    static constexpr double top = 60; ///< Where the highest peak ends.

    SpectrumFrame(double firstMz, double lastMz)
        : m_firstMz(firstMz)
        , m_lastMz(lastMz)
    {
    }

    double x(double mz) const
    {
        return left + (right - left) * (mz - m_firstMz) / (m_lastMz - m_firstMz);
    }

    /// `share` is 1 for the highest peak.
    double y(double share) const { return bottom - (bottom - top) * share; }

    void drawPeak(double mz, double share, const QString& stroke, double thickness, Svg* svg) const
    {
        svg->line(x(mz), bottom, x(mz), y(share), stroke, thickness);
    }

    void drawAxes(Svg* svg) const
    {
        svg->line(left, bottom, right, bottom, colour);
        svg->line(left, top, left, bottom, colour);
        for (const int percent : {0, 25, 50, 75, 100}) {
            const double level = y(percent / 100.0);
            svg->line(left - 5, level, left, level, colour);
            svg->text(left - 9, level + 4, QString::number(percent), 12, QStringLiteral("end"));
        }
        drawTicks(svg);
        svg->text((left + right) / 2, height - 14, QStringLiteral("m/z"), 14,
                  QStringLiteral("middle"));
        svg->text(left, top - 12, QStringLiteral("relative intensity, %"), 12,
                  QStringLiteral("start"));
    }

private:
    static constexpr double left = 70;
    static constexpr double right = 870;
    static constexpr double bottom = 350;
    const QString colour = QStringLiteral("#555555");

    /// The distance between ticks that gives about eight of them: 1, 2 or 5 times a power of ten.
    static double tickDistance(double span)
    {
        const double rough = span / 8;
        const double power = std::pow(10.0, std::floor(std::log10(rough)));
        for (const double factor : {1.0, 2.0, 5.0}) {
            if (factor * power >= rough)
                return factor * power;
        }
        return 10 * power;
    }

    void drawTicks(Svg* svg) const
    {
        const double distance = tickDistance(m_lastMz - m_firstMz);
        const int decimals = std::max(0, static_cast<int>(std::ceil(-std::log10(distance))));
        for (double mz = std::ceil(m_firstMz / distance) * distance; mz < m_lastMz;
             mz += distance) {
            svg->line(x(mz), bottom, x(mz), bottom + 5, colour);
            svg->text(x(mz), bottom + 20, QString::number(mz, 'f', decimals), 12,
                      QStringLiteral("middle"));
        }
    }

    double m_firstMz;
    double m_lastMz;
};
