#pragma once

#include <QFile>
#include <QString>

/// A picture in the making: shapes are added as text and written as one file.
class Svg
{
public:
    Svg(double width, double height)
        : m_width(width)
        , m_height(height)
    {
    }

    void line(double x1, double y1, double x2, double y2, const QString& colour, double width = 1.0)
    {
        add(QStringLiteral("<line x1='%1' y1='%2' x2='%3' y2='%4' stroke='%5' stroke-width='%6'"
                           " stroke-linecap='square'/>")
                .arg(at(x1), at(y1), at(x2), at(y2), colour, at(width)));
    }

    /// `anchor` is start, middle or end.
    void text(double x, double y, const QString& words, double size, const QString& anchor,
              const QString& colour = QStringLiteral("#222222"))
    {
        add(QStringLiteral(
                "<text x='%1' y='%2' font-size='%3' text-anchor='%4' fill='%5'>%6</text>")
                .arg(at(x), at(y), at(size), anchor, colour, words.toHtmlEscaped()));
    }

    /// Writes the file; false if it cannot be written.
    bool save(const QString& path) const
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return false;
        const QString document =
            QStringLiteral("<svg xmlns='http://www.w3.org/2000/svg' width='%1' height='%2'"
                           " viewBox='0 0 %1 %2' font-family='Helvetica, Arial, sans-serif'>\n"
                           "<rect width='100%' height='100%' fill='white'/>\n")
                .arg(at(m_width), at(m_height)) +
            m_shapes + QStringLiteral("</svg>\n");
        return file.write(document.toUtf8()) >= 0;
    }

private:
    static QString at(double value) { return QString::number(value, 'f', 2); }
    void add(const QString& shape) { m_shapes += shape + u'\n'; }

    double m_width;
    double m_height;
    QString m_shapes;
};
