#include "Factories.h"
#include "Families.h"
#include "Texts.h"

using namespace Qt::StringLiterals;
using namespace chem;

namespace {

constexpr quint64 seed = 7;
constexpr int compositionCount = 300;

void askFactory(Answers* answers, const ChemicalFactory& factory, Choices* choices)
{
    const Molecule water = factory.constructMolecule(u"H2O"_s);
    for (int i = 0; i < compositionCount; ++i) {
        const QString text = anyGlycanText(choices);
        answers->add("isValidGlycanComposition", text, factory.isValidGlycanComposition(text));
        answers->add("constructGlycanModification", text,
                     factory.constructGlycanModification(text));
        answers->add("modifyMoleculeWithGlycan", text,
                     factory.modifyMoleculeWithGlycan(water, text));
    }
}

} // namespace

void askGlycans(Answers* answers)
{
    Choices choices(seed);
    for (const auto& factory : factories())
        askFactory(answers, *factory, &choices);
}
