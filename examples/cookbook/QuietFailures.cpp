#include "Recipes.h"

#include <algorithm>

//! [PeptideTextTest]
/// Tells whether the factory knows every letter of a peptide text.
bool isKnownPeptide(const QString& sequence, const ChemicalFactory& factory)
{
    QList<QSharedPointer<const AminoAcid>> aminoAcids;
    NamedMolecule nTerminal;
    NamedMolecule cTerminal;
    factory.parseAminoAcidSequence(sequence, &aminoAcids, &nTerminal, &cTerminal);
    return std::none_of(aminoAcids.cbegin(), aminoAcids.cend(),
                        [](const auto& residue) { return residue->code.isEmpty(); });
}
//! [PeptideTextTest]

//! [FormulaTextTest]
/// Tells whether a text is nothing but a composition of elements that the factory knows. Brackets,
/// charges, factors and losses are refused: the reader takes none of them as a chemist means it.
bool isKnownComposition(const QString& text, const ChemicalFactory& factory)
{
    static const QRegularExpression composition(
        QRegularExpression::anchoredPattern(u"(?:[A-Z][a-z]?(?:[1-9][0-9]{0,6})? ?)++"_s));
    if (!composition.match(text).hasMatch())
        return false;
    const auto counts = ChemicalFactory::parseChemicalFormula(text).elementCountMap();
    const QList<QString> symbols = counts.keys();
    return std::all_of(symbols.cbegin(), symbols.cend(), [&factory](const QString& symbol) {
        return factory.constructMolecule(symbol).monoMass() > 1.0; // the electron E is no element
    });
}
//! [FormulaTextTest]

//! [GlycanTextTest]
/// Tells whether a text is nothing but terms of a glycan that the factory can use.
bool isKnownGlycan(const QString& text, const ChemicalFactory& factory)
{
    static const QRegularExpression terms(QRegularExpression::anchoredPattern(QStringLiteral(
        "(?:(?:HexNAc|dHex|Fuc|Hex|Pent|NeuAc|NeuGc|Sodium|Na) ?\\([0-9]+\\) ?)++")));
    return terms.match(text).hasMatch() && factory.isValidGlycanComposition(text);
}
//! [GlycanTextTest]

/// Tells whether a reader can match a code that setBuildingBlock() is given.
bool canBeRead(const QString& code, ChemicalFactory::BuildingBlockType type)
{
    static const QRegularExpression sugar(
        QRegularExpression::anchoredPattern(u"HexNAc|dHex|Fuc|Hex|Pent|NeuAc|NeuGc|Sodium|Na"_s));
    switch (type) {
    case ChemicalFactory::AminoAcidBlock:
        return code.size() == 1;
    case ChemicalFactory::NucleobaseBlock:
    case ChemicalFactory::RiboseBlock:
    case ChemicalFactory::PhosphateBlock:
    case ChemicalFactory::FivePrimeTerminalBlock:
    case ChemicalFactory::ThreePrimeTerminalBlock: // what numbers and expressions need is no code
        return code.size() == 1 && !code.front().isSpace() && !code.front().isDigit() &&
               !u"-^\\,"_s.contains(code);
    case ChemicalFactory::SugarBlock:
        return sugar.match(code).hasMatch();
    default:
        return false; // for callers: nothing reads these
    }
}

//! [RefusedIsotopes]
/// Tells whether the isotope text that a factory was made from was refused.
bool isRefused(const ChemicalFactory& factory)
{
    NamedMolecule nTerminal;
    NamedMolecule cTerminal;
    factory.standardPeptideTermini(&nTerminal, &cTerminal);
    return nTerminal.formula().isEmpty();
}
//! [RefusedIsotopes]

/// Tells whether every residue rule is an expression that can match.
bool areValidRules(const ClipOptions& options)
{
    const auto rules = options.residueBeforeAfterVector();
    return std::all_of(rules.cbegin(), rules.cend(), [](const auto& rule) {
        const QString expression = rule.before.isEmpty() ? rule.after : rule.before;
        return !expression.isEmpty() && QRegularExpression(expression).isValid();
    });
}

/// Tells whether match() may be given these measurements.
bool areAscending(const QList<ObservedMassEntity>& observed)
{
    return std::is_sorted(
        observed.cbegin(), observed.cend(),
        [](const auto& left, const auto& right) { return left.mass() < right.mass(); });
}

void quietFailures(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const auto answer = [](bool isGood) {
        return isGood ? "yes" : "no";
    };
    out << "DRVYIHPF known: " << answer(isKnownPeptide(u"DRVYIHPF"_s, *factory)) << '\n'
        << "DRVXIHPF known: " << answer(isKnownPeptide(u"DRVXIHPF"_s, *factory)) << '\n'
        << "C6H12O6 known: " << answer(isKnownComposition(u"C6H12O6"_s, *factory)) << '\n'
        << "CH3Xx known: " << answer(isKnownComposition(u"CH3Xx"_s, *factory)) << '\n'
        << "A+ valid: " << answer(factory->isValidOligoSequence(u"A+"_s)) << '\n'
        << "Hexx(5) valid: " << answer(factory->isValidGlycanComposition(u"Hexx(5)"_s)) << '\n';
    const ClipOptions broken = ClipOptions::createClipByResidue({u"[KR"_s}, {QString()});
    out << "[KR valid: " << answer(areValidRules(broken)) << '\n';
    const auto labelled = ChemicalFactory::construct(u"13C:99 12C:1"_s);
    out << "13C:99 12C:1 refused: " << answer(isRefused(*labelled)) << '\n';
    out << "ascending: " << answer(areAscending({1025.16, 1046.18})) << '\n';
}
