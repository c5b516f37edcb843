#pragma once

#include <QFile>
#include <QList>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

/// A text of the standard's own tests.
struct ProFormaExample
{
    QString rule; ///< The rule of the grammar that it tries.
    bool isPositive = false;
    QString text;
};

/// All of them, in their order.
inline QList<ProFormaExample> proFormaExamples()
{
    QFile file(QStringLiteral(ION_MODEL_TEST_DATA_DIR "/proforma-examples.tsv"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QList<ProFormaExample> examples;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const QStringList fields = line.split(QLatin1Char('\t'));
        if (fields.size() == 3)
            examples.append({fields[0], fields[1] == QLatin1String("positive"), fields[2]});
    }
    return examples;
}

/// A whole peptidoform around the text of a rule.
inline QString wholeText(const ProFormaExample& example)
{
    const auto between = [&example](const char* left, const char* right) -> QString {
        return QLatin1String(left) + example.text + QLatin1String(right);
    };
    const QString& rule = example.rule;
    if (rule == QLatin1String("modGlobal"))
        return between("", "A");
    if (rule == QLatin1String("INT"))
        return between("A[UNIMOD:", "]");
    if (rule == QLatin1String("mod") || rule == QLatin1String("peptidoformCharge"))
        return between("A", "");
    if (rule == QLatin1String("modMass") || rule == QLatin1String("modFormula") ||
        rule == QLatin1String("modGlycan"))
        return between("A[", "]");
    if (rule == QLatin1String("formula"))
        return between("A[Formula:", "]");
    if (rule == QLatin1String("adductIon"))
        return between("A/[", "]");
    if (rule == QLatin1String("NAMETEXT"))
        return between("(>>>", ")A");
    return example.text;
}
