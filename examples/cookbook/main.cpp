// Runs the recipes that the pages quote.
//
//   cookbook [RECIPE]
//
// Without a recipe it runs all of them. The names are those of the files.

#include "Recipes.h"

#include <algorithm>

namespace {

struct NamedRecipe
{
    QString name;
    Recipe run;
};

const QList<NamedRecipe> recipes = {
    {u"MassOfFormula"_s, massOfFormula},
    {u"PeptideFragments"_s, peptideFragments},
    {u"ModifiedSugars"_s, modifiedSugars},
    {u"NegativeIons"_s, negativeIons},
    {u"Deletions"_s, deletions},
    {u"ModifiedPeptides"_s, modifiedPeptides},
    {u"Disulfide"_s, disulfide},
    {u"ClipsAndMatching"_s, clipsAndMatching},
    {u"Antibody"_s, antibody},
    {u"ModificationAtResidue"_s, modificationAtResidue},
    {u"MissedCleavages"_s, missedCleavages},
    {u"IsotopeTexts"_s, isotopeTexts},
    {u"IsotopeTextsUnchecked"_s, isotopeTextsUnchecked},
    {u"IonLabels"_s, ionLabels},
    {u"AminoAcids"_s, aminoAcids},
    {u"GlycanResidues"_s, glycanResidues},
    {u"PartsOfNucleotides"_s, partsOfNucleotides},
    {u"QuietFailures"_s, quietFailures},
    {u"Histories"_s, histories},
    {u"HeaderExamples"_s, headerExamples},
    {u"IonHeaderExamples"_s, ionHeaderExamples},
    {u"AverageMasses"_s, averageMasses},
    {u"ShareLeftOut"_s, shareLeftOut},
    {u"FirstWandX"_s, firstWandX},
    {u"ElectronMass"_s, electronMass},
    {u"Estimates"_s, estimates},
    {u"StrictText"_s, strictText},
    {u"ModifiedMass"_s, modifiedMass},
    {u"ProteinDigest"_s, proteinDigest},
    {u"FragmentIons"_s, fragmentIons},
    {u"IonsOfMolecules"_s, ionsOfMolecules},
    {u"AnnotatedPeaks"_s, annotatedPeaks},
    {u"LabelledPattern"_s, labelledPattern},
    {u"FormulasOfMass"_s, formulasOfMass},
    {u"ProFormaFirst"_s, proFormaFirst},
    {u"ProFormaTags"_s, proFormaTags},
    {u"ProFormaPlaces"_s, proFormaPlaces},
    {u"ProFormaRules"_s, proFormaRules},
    {u"ProFormaBridges"_s, proFormaBridges},
    {u"ProFormaCharges"_s, proFormaCharges},
    {u"ProFormaRefused"_s, proFormaRefused},
    {u"ProFormaMolecule"_s, proFormaMolecule},
    {u"ProFormaIons"_s, proFormaIons},
    {u"DigestProved"_s, digestProved},
    {u"OddTexts"_s, oddTexts},
    {u"OddCodes"_s, oddCodes},
    {u"IsotopeTextsProved"_s, isotopeTextsProved},
    {u"NegativeIonsProved"_s, negativeIonsProved},
    {u"DeletionsProved"_s, deletionsProved},
};

} // namespace

int main(int argc, char* argv[])
{
    QTextStream out(stdout);
    if (argc > 1) {
        const QString name = QString::fromLocal8Bit(argv[1]);
        const auto recipe =
            std::find_if(recipes.cbegin(), recipes.cend(),
                         [&name](const NamedRecipe& candidate) { return candidate.name == name; });
        if (recipe == recipes.cend()) {
            QTextStream(stderr) << "there is no recipe " << name << '\n';
            return 2;
        }
        recipe->run(out);
        return 0;
    }
    for (const NamedRecipe& recipe : recipes) {
        out << "== " << recipe.name << '\n';
        recipe.run(out);
    }
    return 0;
}
