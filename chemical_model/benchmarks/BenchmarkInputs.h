#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <random>

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
