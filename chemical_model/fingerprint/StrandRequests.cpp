#include "Complexes.h"
#include "Factories.h"
#include "Families.h"
#include "Texts.h"

#include <QRegularExpressionMatch>

using namespace Qt::StringLiterals;
using namespace chem;

namespace {

constexpr quint64 seed = 6;
constexpr int textCount = 900;
constexpr int longest = 16;
constexpr int labelledTextCount = 60;
constexpr int complexCount = 12;
constexpr int longestComplex = 6;
constexpr int ladderCount = 40;

/// Factories with letters of their own: another base, an odd sugar and linkage, marks that are
/// letters, a class that begins with a caret, no bases at all but one.
QList<QSharedPointer<const ChemicalFactory>> ownAlphabets()
{
    const auto with =
        [](const QList<std::pair<ChemicalFactory::BuildingBlockType, QString>>& keys) {
            const auto factory = ChemicalFactory::construct(QString());
            for (const auto& [type, key] : keys)
                factory->setBuildingBlock(type, key, u"own"_s, u"C2H4O"_s);
            return factory;
        };
    return {
        with({{ChemicalFactory::NucleobaseBlock, u"Z"_s}, {ChemicalFactory::RiboseBlock, u"l"_s}}),
        with(
            {{ChemicalFactory::PhosphateBlock, u"~"_s}, {ChemicalFactory::PhosphateBlock, u"d"_s}}),
        with({{ChemicalFactory::FivePrimeTerminalBlock, u"A"_s},
              {ChemicalFactory::ThreePrimeTerminalBlock, u"C"_s}}),
        with({{ChemicalFactory::NucleobaseBlock, u"\u00c5"_s},
              {ChemicalFactory::RiboseBlock, u"\u0436"_s}}),
        with(
            {{ChemicalFactory::RiboseBlock, u"a-c"_s}, {ChemicalFactory::NucleobaseBlock, u"7"_s}}),
    };
}

void askExpressions(Answers* answers, const ChemicalFactory& factory, const QString& text)
{
    const QRegularExpressionMatch full = factory.generateFullOligoRegex().match(text);
    answers->add("generateFullOligoRegex", text, full.hasMatch(), full.captured(1),
                 full.captured(2), full.captured(6));
    const QRegularExpressionMatch unit = factory.generateOligoSequenceRegex().match(text);
    answers->add("generateOligoSequenceRegex", text, unit.captured(1), unit.captured(3),
                 unit.captured(4), unit.captured(5));
}

void askReaders(Answers* answers, const ChemicalFactory& factory, const QString& text)
{
    answers->add("isValidOligoSequence", text, factory.isValidOligoSequence(text));
    QList<QSharedPointer<const Nucleotide>> nucleotides;
    NamedMolecule fivePrime(Molecule(), u"stale"_s, u"stale"_s);
    NamedMolecule threePrime = fivePrime;
    const bool isRead =
        factory.parseNucleotideSequence(text, &nucleotides, &fivePrime, &threePrime);
    answers->add("parseNucleotideSequence", text, isRead, fivePrime, threePrime, nucleotides);
    threePrime.name = text; // a text that an output holds
    factory.parseNucleotideSequence(threePrime.name, &nucleotides, &fivePrime, &threePrime);
    answers->add("parseNucleotideSequence", nucleotides.size(), fivePrime, threePrime);

    const auto complex = factory.constructLinearOligoComplex(text);
    if (complex)
        answers->add("constructLinearOligoComplex", text, *complex, complex->residues.size());
    else
        answers->add("constructLinearOligoComplex", text, "null");
    const auto built = factory.constructLinearOligoComplex(nucleotides, threePrime, fivePrime);
    answers->add("constructLinearOligoComplex", *built, built->residues.size());
}

void askComplexes(Answers* answers, const ChemicalFactory& factory, Choices* choices)
{
    for (int i = 0; i < complexCount; ++i) {
        const QString text = anyStrandText(choices, longestComplex);
        answers->add("constructLinearOligoComplex", text);
        if (const auto complex = factory.constructLinearOligoComplex(text))
            tellComplex(answers, *complex);
    }
}

void askLadders(Answers* answers, const ChemicalFactory& factory, Choices* choices)
{
    for (int i = 0; i < ladderCount; ++i) {
        const QString text =
            choices->oneIn(5) ? anyOligoText(choices, longest) : anyStrandText(choices, longest);
        const int fromFivePrime = choices->from(-1, 5);
        const int fromThreePrime = choices->from(-1, 5);
        QList<QSharedPointer<const MoleculeComplex>> ladder;
        factory.constructLinearOligoComplexes(text, fromFivePrime, fromThreePrime, &ladder);
        answers->add("constructLinearOligoComplexes", text, fromFivePrime, fromThreePrime,
                     ladder.size());
        for (const auto& complex : std::as_const(ladder))
            answers->detail(*complex, complex->residues.size());
    }
}

void askNucleotides(Answers* answers, Choices* choices)
{
    const auto factory = defaultChemicalFactory();
    for (int i = 0; i < ladderCount; ++i) {
        const NamedMolecule base(factory->constructMolecule(anyFormulaText(choices)), u"b"_s,
                                 u"B"_s);
        const NamedMolecule ribose(factory->constructMolecule(anyFormulaText(choices)), u"r"_s,
                                   QString());
        const NamedMolecule phosphate(factory->constructMolecule(anyFormulaText(choices)), u"p"_s,
                                      u"P"_s);
        answers->add("Nucleotide", Nucleotide(base, ribose, phosphate, u"name"_s, u"code"_s));
    }
}

} // namespace

void askStrands(Answers* answers)
{
    Choices choices(seed);
    const QList<QSharedPointer<const ChemicalFactory>> own = ownAlphabets();
    for (const auto& factory : own + factories()) {
        const bool isNatural = factory == defaultChemicalFactory() || own.contains(factory);
        for (int i = isNatural ? textCount : labelledTextCount; i > 0; --i) {
            const QString text = anyOligoText(&choices, longest);
            askReaders(answers, *factory, text);
        }
        for (int i = 0; i < labelledTextCount; ++i) {
            const QString text = anyOligoText(&choices, longest);
            askExpressions(answers, *factory, text);
        }
        askComplexes(answers, *factory, &choices);
        askLadders(answers, *factory, &choices);
    }
    askNucleotides(answers, &choices);
}
