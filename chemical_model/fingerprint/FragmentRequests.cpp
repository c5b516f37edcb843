#include "Factories.h"
#include "Families.h"
#include "Texts.h"

using namespace Qt::StringLiterals;
using namespace chem;

namespace {

constexpr quint64 seed = 8;
constexpr int chainCount = 24;
constexpr int longestRich = 7;
constexpr int longestFlat = 14;
constexpr int partCount = 300;

void askRich(Answers* answers, const QString& text, const MoleculeComplex& complex)
{
    QList<QSharedPointer<Fragment>> fragments = {QSharedPointer<Fragment>()};
    defaultChemicalFactory()->generateLinearFragments(complex, &fragments);
    answers->add("generateLinearFragments", text, fragments.size());
    for (const auto& fragment : std::as_const(fragments)) {
        if (fragment)
            answers->detail(fragment, fragment->parentComplex == &complex);
    }
}

void askFlat(Answers* answers, const QString& text, const MoleculeComplex& complex)
{
    QList<SimpleFragment> fragments = {SimpleFragment()};
    generateLinearFragments(complex, fragments);
    answers->add("generateLinearFragments flat", text, fragments.size());
    for (const SimpleFragment& fragment : std::as_const(fragments))
        answers->detail(fragment);
}

void askChains(Answers* answers, const ChemicalFactory& factory, Choices* choices)
{
    for (int i = 0; i < chainCount; ++i) {
        const int longest = i % 2 == 0 ? longestRich : longestFlat;
        const auto ask = i % 2 == 0 ? askRich : askFlat;
        const QString peptide = anyPeptideText(choices, longest);
        ask(answers, peptide, *factory.constructLinearPeptideComplex(peptide));
        const QString strand = anyStrandText(choices, longest);
        if (const auto complex = factory.constructLinearOligoComplex(strand))
            ask(answers, strand, *complex);
    }
}

void askLabels(Answers* answers)
{
    for (int type = -1; type <= 18; ++type)
        answers->add("typeToString", type,
                     ChemicalFactory::typeToString(static_cast<FragmentType>(type)));
}

/// The structures of a chain made by hand, as a caller may edit them.
void askParts(Answers* answers, Choices* choices)
{
    const auto factory = defaultChemicalFactory();
    for (int i = 0; i < partCount; ++i) {
        const Molecule gained = factory->constructMolecule(anyFormulaText(choices));
        const Molecule lost = factory->constructMolecule(anyFormulaText(choices));
        const int type = choices->below(18);
        const auto site = QSharedPointer<FragmentationSite>::create(static_cast<FragmentType>(type),
                                                                    gained, lost);
        const auto left = QSharedPointer<ComplexResidue>::create(gained, u"left"_s, u"l"_s, i);
        const auto right =
            QSharedPointer<ComplexResidue>::create(NamedMolecule(lost, u"right"_s, u"r"_s), -i);
        answers->add("FragmentationSite", site);
        answers->add("ComplexResidue", left, right);
        const MoleculeComplex complex(gained + lost, {left, left, right}, {{}, {site, site}, {}});
        answers->add("MoleculeComplex", complex, complex.residues, complex.sites);
        answers->add("Fragment", Fragment(lost, u"own"_s, {left, right}, {site}, &complex));
        askFlat(answers, u"by hand"_s, complex);
    }
}

} // namespace

void askFragments(Answers* answers)
{
    Choices choices(seed);
    for (const auto& factory : factories())
        askChains(answers, *factory, &choices);
    askLabels(answers);
    askParts(answers, &choices);
}
