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
/// Tells whether a formula text is a real composition of elements that the factory knows.
bool isKnownComposition(const QString& text, const ChemicalFactory& factory)
{
    const ChemicalFormula formula = ChemicalFactory::parseChemicalFormula(text);
    const QList<QString> symbols = formula.elementCountMap().keys();
    return !formula.isEmpty() && formula.isValid() &&
           std::all_of(symbols.cbegin(), symbols.cend(), [&factory](const QString& symbol) {
               return factory.constructMolecule(symbol).monoMass() != 0.0;
           });
}
//! [FormulaTextTest]

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

//! [RuleTest]
/// Tells whether every residue rule is an expression that can match.
bool areValidRules(const ClipOptions& options)
{
    const auto rules = options.residueBeforeAfterVector();
    return std::all_of(rules.cbegin(), rules.cend(), [](const auto& rule) {
        const QString expression = rule.before.isEmpty() ? rule.after : rule.before;
        return !expression.isEmpty() && QRegularExpression(expression).isValid();
    });
}
//! [RuleTest]

//! [OrderTest]
/// Tells whether match() may be given these measurements.
bool areAscending(const QList<ObservedMassEntity>& observed)
{
    return std::is_sorted(
        observed.cbegin(), observed.cend(),
        [](const auto& left, const auto& right) { return left.mass() < right.mass(); });
}
//! [OrderTest]

void quietFailures(QTextStream& out)
{
    //! [QuietFailures]
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
    //! [QuietFailures]
}
