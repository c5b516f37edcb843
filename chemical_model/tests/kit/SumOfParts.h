#pragma once

#include <ChemicalModel.h>

#include <QMap>
#include <QString>

/// \file
/// Totals added up from parts, without regard to what is stored.

struct Sum
{
    double averageMass = 0.0;
    double monoMass = 0.0;
    QMap<QString, double> counts;

    void add(const Sum& sum)
    {
        averageMass += sum.averageMass;
        monoMass += sum.monoMass;
        for (auto addend = sum.counts.cbegin(); addend != sum.counts.cend(); ++addend)
            counts[addend.key()] += addend.value();
    }

    void add(const chem::MoleculeEntity& entity)
    {
        add(Sum{entity.averageMass(), entity.monoMass(), entity.formula().elementCountMap()});
    }
};

inline Sum sumOf(const QList<chem::MoleculeEntity>& entities)
{
    Sum sum;
    for (const chem::MoleculeEntity& entity : entities)
        sum.add(entity);
    return sum;
}

/// In the order of the builders: each chain by itself, then the links, then the modifications.
inline Sum sumOfParts(const QList<chem::Chain>& chains, const QList<chem::Link>& links,
                      const QList<chem::Modification>& modifications)
{
    Sum sum;
    for (const chem::Chain& chain : chains)
        sum.add(sumOf(chain.residues()));
    for (const chem::Link& link : links)
        sum.add(link.entity());
    for (const chem::Modification& modification : modifications)
        sum.add(modification.entity());
    return sum;
}

inline Sum sumOfParts(const chem::MoleculeEntity& molecule)
{
    return sumOfParts(molecule.chains(), molecule.links(), molecule.modifications());
}

/// Counts without the zeros that a loss leaves behind.
inline QMap<QString, double> withoutZeros(QMap<QString, double> counts)
{
    counts.removeIf([](const auto& entry) { return entry.value() == 0.0; });
    return counts;
}

/// Whether a molecule's totals are the sum of its parts. Exact where the masses are.
inline bool hasTotalsOfItsParts(const chem::MoleculeEntity& molecule)
{
    const Sum sum = sumOfParts(molecule);
    return molecule.averageMass() == sum.averageMass && molecule.monoMass() == sum.monoMass &&
           withoutZeros(molecule.formula().elementCountMap()) == withoutZeros(sum.counts);
}
