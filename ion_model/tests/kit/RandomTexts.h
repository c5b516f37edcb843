#pragma once

#include <QString>
#include <QStringList>

#include <random>

/// A text of up to `longest` characters, each one of `letters`.
inline QString randomText(std::mt19937& random, const QString& letters, int longest)
{
    QString text(std::uniform_int_distribution<int>(0, longest)(random), QChar());
    std::uniform_int_distribution<qsizetype> letter(0, letters.size() - 1);
    for (QChar& c : text)
        c = letters[letter(random)];
    return text;
}

/// All texts of up to `longest` characters, each one of `letters`, the empty one first.
inline QStringList allTexts(const QString& letters, int longest)
{
    QStringList texts = {QString()};
    for (qsizetype shorter = 0; shorter < texts.size(); ++shorter) {
        if (texts[shorter].size() == longest)
            break;
        for (const QChar letter : letters)
            texts.append(QString(texts[shorter]).append(letter));
    }
    return texts;
}
