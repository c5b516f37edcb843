#include "Complexes.h"
#include "Factories.h"
#include "Families.h"
#include "Texts.h"

using namespace Qt::StringLiterals;
using namespace chem;

namespace {

constexpr quint64 seed = 5;
constexpr int peptideCount = 180;
constexpr int longest = 30;
constexpr int complexCount = 12;
constexpr int longestComplex = 8;

void askParser(Answers* answers, const ChemicalFactory& factory, const QString& text)
{
    QList<QSharedPointer<const AminoAcid>> aminoAcids = {QSharedPointer<const AminoAcid>::create()};
    NamedMolecule nTerminal(Molecule(), u"stale"_s, u"stale"_s);
    NamedMolecule cTerminal = nTerminal;
    factory.parseAminoAcidSequence(text, &aminoAcids, &nTerminal, &cTerminal);
    answers->add("parseAminoAcidSequence", text, nTerminal, cTerminal, aminoAcids);
}

void askTotal(Answers* answers, const ChemicalFactory& factory, const QString& text)
{
    const auto complex = factory.constructLinearPeptideComplex(text);
    answers->add("constructLinearPeptideComplex", text, *complex, complex->residues.size(),
                 complex->sites.size());
}

void askComplex(Answers* answers, const ChemicalFactory& factory, const QString& text)
{
    answers->add("constructLinearPeptideComplex", text);
    tellComplex(answers, *factory.constructLinearPeptideComplex(text));
}

void askFactory(Answers* answers, const ChemicalFactory& factory, Choices* choices)
{
    for (int i = 0; i < peptideCount; ++i) {
        const QString text = anyPeptideText(choices, longest);
        askParser(answers, factory, text);
        askTotal(answers, factory, text);
        const Molecule made = factory.constructMolecule(u"C2H3NO"_s);
        answers->add("AminoAcid", AminoAcid(NamedMolecule(made, text, u"x"_s)));
    }
    for (int i = 0; i < complexCount; ++i) {
        const QString text = anyPeptideText(choices, longestComplex);
        askComplex(answers, factory, text);
    }
}

} // namespace

void askPeptides(Answers* answers)
{
    Choices choices(seed);
    for (const auto& factory : factories())
        askFactory(answers, *factory, &choices);
}
