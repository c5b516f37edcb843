#include "Families.h"
#include "Molecules.h"
#include "Texts.h"

#include <limits>

using namespace Qt::StringLiterals;
using namespace chem;

namespace {

constexpr quint64 seed = 9;
constexpr int builderCount = 250;
constexpr int longest = 10;
constexpr int comparedCount = 40;

StructuredMolecule anyValue(Choices* choices)
{
    StructuredMolecule value;
    value.type = choices->oneIn(2) ? MoleculeType::Peptide : MoleculeType::OligoNucleotide;
    value.chains = {anyChain(choices)};
    if (choices->oneIn(2)) // else the totals are computed when asked for
        value.formula = ChemicalFactory::parseChemicalFormula(anyMoleculeText(choices));
    if (choices->oneIn(2))
        value.monoMass = choices->number(1000);
    if (choices->oneIn(2))
        value.averageMass = choices->number(1000);
    value.name = u"value"_s;
    value.description = u"nothing reads it"_s;
    return value;
}

/// One entity of each kind, with odd masses among them.
QList<MoleculeEntity> kinds(Choices* choices)
{
    using Limits = std::numeric_limits<double>;
    const Molecule water = defaultChemicalFactory()->constructMolecule(u"H2O"_s);
    const NamedMolecule named(water, u"water"_s, u"W"_s);
    const double mass = choices->number(3000);
    return {nullptr,
            0,
            -1,
            std::numeric_limits<int>::max(),
            mass,
            -0.0,
            Limits::quiet_NaN(),
            Limits::infinity(),
            1e-13,
            Molecule(),
            water,
            Molecule(water.formula(), water.averageMass() * (1.0 + 1e-13), water.monoMass()),
            Molecule(water.formula(), 0.0, 0.0),
            named,
            AminoAcid(named),
            AminoAcid(),
            Modification(water, {{0, 0}}),
            Modification(),
            StructuredMolecule()};
}

QList<MoleculeEntity> anyEntities(Choices* choices)
{
    QList<MoleculeEntity> entities = kinds(choices);
    while (entities.size() < comparedCount) {
        entities.append(anyMolecule(choices));
        entities.append(anyValue(choices));
    }
    return entities;
}

void askBuilders(Answers* answers, Choices* choices)
{
    const auto factory = defaultChemicalFactory();
    for (int i = 0; i < builderCount; ++i) {
        const QString peptide = anyPeptideText(choices, longest);
        const Chain chain = constructPeptideChain(u"name"_s, u"code"_s, peptide, factory.data());
        answers->add("constructPeptideChain", peptide, chain);
        const QString strand = anyOligoText(choices, longest);
        answers->add("constructOligoNucleotideChain", strand,
                     constructOligoNucleotideChain(u"name"_s, u"code"_s, strand, factory.data()));
        answers->add("constructOligoNucleotide", strand,
                     constructOligoNucleotide(u"name"_s, u"code"_s, strand, factory.data()));
        const Modification modification = anyModification(choices);
        const Link link = anyLink(choices);
        answers->add("Modification", modification);
        answers->add("Link", link, Link());
        answers->add("constructProteinFromChains",
                     constructProteinFromChains(u"protein"_s, {chain, chain}, {modification},
                                                {link}, nullptr));
        answers->add("constructStructuredMolecule", anyMolecule(choices));
    }
}

void askCopies(Answers* answers, const QList<MoleculeEntity>& entities)
{
    for (const MoleculeEntity& entity : entities) {
        MoleculeEntity copy = entity;
        answers->add("MoleculeEntity", copy);
        const MoleculeEntity taken = std::move(copy);
        copy = taken;
        answers->add("MoleculeEntity assign", copy.monoMass());
        copy = MoleculeEntity(taken);
        answers->add("MoleculeEntity move", copy.averageMass());
    }
}

template <typename T>
void askEquality(Answers* answers, const char* request, const QList<T>& values)
{
    for (qsizetype i = 0; i < values.size(); ++i) {
        for (qsizetype k = 0; k < values.size(); ++k)
            answers->add(request, i, k, values[i] == values[k]);
    }
}

void askOrder(Answers* answers, const QList<Modification>& modifications)
{
    for (qsizetype i = 0; i < modifications.size(); ++i) {
        for (qsizetype k = 0; k < modifications.size(); ++k)
            answers->add("Modification <", i, k, modifications[i] < modifications[k]);
    }
}

void askComparisons(Answers* answers, Choices* choices, const QList<MoleculeEntity>& entities)
{
    QList<Modification> modifications;
    QList<Link> links = {Link()};
    QList<Chain> chains;
    for (int i = 0; i < comparedCount; ++i) {
        modifications.append(i % 2 == 0 ? anyModification(choices)
                                        : Modification(entities.at(i), {{0, i % 3}}));
        links.append(i % 2 == 0 ? anyLink(choices) : Link(entities.at(i), {{0, i % 2}, {1, 0}}));
        chains.append(anyChain(choices));
    }
    askEquality(answers, "MoleculeEntity ==", entities);
    askEquality(answers, "Modification ==", modifications);
    askOrder(answers, modifications);
    askEquality(answers, "Link ==", links);
    askEquality(answers, "Chain ==", chains);
}

} // namespace

void askEntities(Answers* answers)
{
    Choices choices(seed);
    askBuilders(answers, &choices);
    const QList<MoleculeEntity> entities = anyEntities(&choices);
    askCopies(answers, entities);
    askComparisons(answers, &choices, entities);
}
