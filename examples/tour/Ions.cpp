#include "Tour.h"
#include <IonModel.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Peaks as a spectrum would list them: made from theory, with errors of a few ppm, and three of
/// noise.
const std::vector<double> measuredPeaks = {149.1072, 179.1067,  201.1234, 251.1519, 299.0429,
                                           327.1718, 355.0712,  385.1917, 512.7001, 961.2590,
                                           1013.43,  1143.4740, 1239.4310};

/// Two peptides of nitrogen-15 throughout, linked by a disulfide, one of them phosphorylated: built
/// and changed step by step.
chem::MoleculeEntity linkedPeptides(const chem::ChemicalFactory& factory)
{
    const chem::Chain first = chem::constructPeptideChain(u"1"_s, u"1"_s, u"SECGFR"_s, &factory);
    const chem::Chain second = chem::constructPeptideChain(u"2"_s, u"2"_s, u"ACVTK"_s, &factory);
    const chem::MoleculeEntity disulfide = factory.modifyMolecule({}, u"H-2"_s, 1);
    // Positions count the terminals, so residue n of a chain stands at position n.
    const chem::MoleculeEntity linked = chem::constructProteinFromChains(
        u"linked peptides"_s, {first, second}, {}, {{disulfide, {{0, 3}, {1, 2}}}}, &factory);
    const chem::Modification phosphate(factory.constructMolecule(u"HPO3"_s), {{0, 1}});
    return chem::Modify(phosphate).transform(linked);
}

void printFoundIons(const ions::Backbone& backbone, const ions::FragmentIons& fragments)
{
    ions::PeakMatches matches;
    ions::matchPeaks(measuredPeaks, {}, fragments.mz(), ions::ppm(5), ions::PeakChoice::Nearest,
                     &matches);
    for (std::size_t i = 0; i < matches.size(); ++i) {
        const double mz = fragments.mz()[matches.ions[i]];
        const double peak = measuredPeaks[matches.peaks[i]];
        out() << "  " << fragments.label(backbone, qsizetype(matches.ions[i])).leftJustified(8)
              << column(mz, 4) << ", measured " << column(peak, 4) << ", "
              << QString::number(ions::ppmError(peak, mz), 'f', 1) << " ppm\n";
    }
    out() << "  " << matches.size() << " of " << fragments.mz().size() << " b and y ions among "
          << measuredPeaks.size() << " peaks\n";
}

} // namespace

void tourIons()
{
    printTitle(u"Ions of two linked peptides, found among peaks"_s);
    const auto labelled = chem::ChemicalFactory::construct(u"N15:1"_s);
    const chem::MoleculeEntity molecule = linkedPeptides(*labelled);
    out() << "  " << molecule.sequence() << ", " << QString::number(molecule.monoMass(), 'f', 4)
          << " Da\n";
    const auto backbone = ions::Backbone::ofMolecule(molecule, ions::ResidueTable(*labelled));
    ions::FragmentIons fragments;
    if (backbone && !fragments.assign(*backbone, ions::IonOptions()))
        printFoundIons(*backbone, fragments);
}
