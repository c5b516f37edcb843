#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <random>
#include <vector>

/// \file
/// Inputs from seeded generators, the same in every run.

/// Peptides of `shortest` to `longest` residues.
inline QStringList randomPeptides(int count, int shortest, int longest)
{
    const QString letters = QStringLiteral("ACDEFGHIKLMNPQRSTVWY");
    std::mt19937 random(20261121);
    std::uniform_int_distribution<int> length(shortest, longest);
    std::uniform_int_distribution<int> letter(0, 19);
    QStringList peptides;
    for (int i = 0; i < count; ++i) {
        QString peptide(length(random), QChar());
        for (QChar& residue : peptide)
            residue = letters[letter(random)];
        peptides.append(peptide);
    }
    return peptides;
}

/// Formulas of small molecules, metabolites and peptides, as texts.
inline QStringList randomFormulas(int count)
{
    std::mt19937 random(20261122);
    std::uniform_int_distribution<int> atoms(1, 60);
    std::uniform_int_distribution<int> few(0, 4);
    QStringList formulas;
    for (int i = 0; i < count; ++i) {
        QString formula = QStringLiteral("C%1H%2").arg(atoms(random)).arg(atoms(random));
        for (const QString& symbol :
             {QStringLiteral("N"), QStringLiteral("O"), QStringLiteral("S"), QStringLiteral("P"),
              QStringLiteral("Cl"), QStringLiteral("Na")}) {
            if (const int number = few(random))
                formula += symbol + QString::number(number);
        }
        formulas.append(formula);
    }
    return formulas;
}

/// Strands of 20 to 25 nucleotides in the chemistries of the field: DNA, RNA, thioate DNA and
/// gapmers. On the average a text has some 45 characters.
inline QStringList randomOligos(int count)
{
    using namespace Qt::StringLiterals;
    std::mt19937 random(20261121);
    const auto draw = [&random](unsigned end) {
        return static_cast<qsizetype>(random() % end);
    };
    const QStringList riboses = {QString(), u"r"_s, QString(), u"e"_s};
    const QStringList linkages = {QString(), QString(), u"*"_s, u"*"_s};
    QStringList texts;
    for (int i = 0; i < count; ++i) {
        const qsizetype chemistry = i % 4;
        const qsizetype length = 20 + draw(6);
        QString text;
        for (qsizetype k = 0; k < length; ++k) {
            const bool isWing = k < 5 || k >= length - 5;
            text += chemistry == 3 && !isWing ? u"d"_s : riboses[chemistry];
            text += u"ACGT"[draw(4)];
            if (k < length - 1)
                text += linkages[chemistry];
        }
        texts.append(text);
    }
    return texts;
}

/// Masses between 500 and 50,000 Da, a metabolite to an antibody's heavy chain.
inline std::vector<double> randomMasses(std::size_t count, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> mass(500.0, 50000.0);
    std::vector<double> masses(count);
    for (double& value : masses)
        value = mass(random);
    return masses;
}
