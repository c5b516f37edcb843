#include "Recipes.h"
#include <IonModel.h>

#include <array>
#include <vector>

using namespace ions;

void strictText(QTextStream& out)
{
    //! [StrictText]
    for (const QString& text : {u"[13C6]H12O6"_s, u"CuSO4.5H2O"_s, u"C6H12O6-H2O"_s, u"NACL"_s}) {
        const Parsed<Composition> read = Composition::read(text);
        if (read)
            out << text << " is " << read->toString() << '\n';
        else
            out << text << ": " << read.error().message << " at " << read.error().position << '\n';
    }
    //! [StrictText]
}

void modifiedMass(QTextStream& out)
{
    //! [ModifiedMass]
    const ResidueTable residues; // natural isotopes; or of any factory
    const ModificationTable modifications = ModificationTable::standard(residues.atoms());
    const Masses phosphopeptide =
        residues.peptide(u"ELYDEAK").value() + modifications.byName(u"Phospho")->masses;

    for (const QString& text : {u"+2"_s, u"[M-H]-"_s, u"[M+H+Na]2+"_s}) {
        const Ionization ion = Ionization::read(text).value();
        out << ion.toString() << ' ' << QString::number(ion.mz(phosphopeptide.monoisotopic), 'f', 4)
            << '\n';
    }
    //! [ModifiedMass]
}

void proteinDigest(QTextStream& out)
{
    //! [ProteinDigest]
    const ResidueTable residues;
    const Protease trypsin = Protease::named(u"Trypsin").value();
    QString protein = u"magwnayIDNLMADGTCQDAAIVGYKDSPSVWAAVPGKTXVNITPAEVGVLVGK*\r\n"_s;
    protein = protein.trimmed().toUpper(); // line ends, soft masking
    if (protein.endsWith(u'*'))
        protein.chop(1); // the stop

    Digest digest; // its memory serves the next protein
    digest.cleave(protein, trypsin, residues, {.missedCleavages = 1, .minLength = 7});
    for (std::size_t i = 0; i < digest.size(); ++i) {
        out << digest.starts()[i] + 1 << '-' << digest.ends()[i] << ' '
            << QString::number(digest.monoisotopic()[i], 'f', 4) << '\n';
    }
    for (const qsizetype place : digest.unknownLetters())
        out << protein[place] << " at " << place + 1 << " has no mass\n";
    //! [ProteinDigest]
}

void fragmentIons(QTextStream& out)
{
    //! [FragmentIons]
    const ResidueTable residues;
    const Backbone peptide = Backbone::peptide(u"EGVNDNEEGFFSAR", residues).value();
    IonOptions options;
    options.series = {Series::B, Series::Y};
    options.charges = {1, 2};
    options.losses = {LossRule::read(u"H2O@STED", residues.atoms()).value()};

    FragmentIons fragments; // one array of m/z, and runs that say what they are
    if (fragments.assign(peptide, options))
        return; // a refusal with its reason
    for (const IonRun& run : fragments.runs()) {
        out << seriesName(run.series) << ' ' << run.charge << "+ " << fragments.losses()[run.loss]
            << ": " << run.count << " ions\n";
    }
    out << fragments.label(peptide, 3) << ' ' << QString::number(fragments.mz()[3], 'f', 4) << '\n';
    //! [FragmentIons]
}

void ionsOfMolecules(QTextStream& out)
{
    //! [IonsOfMolecules]
    const auto factory = chem::defaultChemicalFactory();
    const ResidueTable residues(*factory);
    const chem::Chain chain =
        chem::constructPeptideChain(u"somatostatin"_s, u"S"_s, u"AGCKNFFWKTFTSC"_s, factory.data());
    chem::MoleculeEntity molecule =
        chem::constructProteinFromChains(u"somatostatin"_s, {chain}, {}, {}, factory.data());
    const chem::Modification acetyl(factory->constructMolecule(u"C2H2O"_s), {{0, 4}});
    molecule = chem::Modify(acetyl).transform(molecule); // at lysine 4

    const Backbone backbone = Backbone::ofMolecule(molecule, residues).value();
    FragmentIons fragments;
    if (fragments.assign(backbone, IonOptions()))
        return;
    const IonComposition b4 = fragments.composition(backbone, residues, 3).value();
    out << fragments.label(backbone, 3) << ' ' << QString::number(fragments.mz()[3], 'f', 4) << ' '
        << b4.neutral.toString() << '\n';

    const Composition whole = Composition::ofMolecule(molecule, residues.atoms()).value();
    const IsotopePattern pattern = IsotopePattern::of(whole, residues.atoms()).value();
    out << whole.toString() << ", " << pattern.shares().size() << " bins\n";
    //! [IonsOfMolecules]
}

void annotatedPeaks(QTextStream& out)
{
    //! [AnnotatedPeaks]
    const std::vector<double> peaks = {175.1192, 246.1560, 300.2000, 333.1875, 480.2551};
    const Backbone peptide = Backbone::peptide(u"EGVNDNEEGFFSAR", ResidueTable()).value();
    FragmentIons fragments;
    if (fragments.assign(peptide, IonOptions()))
        return;
    PeakMatches matches;
    matchPeaks(peaks, {}, fragments.mz(), ppm(10), PeakChoice::Nearest, &matches);
    for (std::size_t i = 0; i < matches.size(); ++i) {
        const double mz = fragments.mz()[matches.ions[i]];
        out << fragments.label(peptide, qsizetype(matches.ions[i])) << ' '
            << QString::number(ppmError(peaks[matches.peaks[i]], mz), 'f', 1) << " ppm\n";
    }
    //! [AnnotatedPeaks]
}

void labelledPattern(QTextStream& out)
{
    //! [LabelledPattern]
    // A peptide from a culture with 98.7 % nitrogen-15, acetylated by a natural reagent.
    const AtomMasses natural;
    const AtomMasses heavy = natural.labelled({7, 15}, 0.987).value();
    const IsotopeGroup residues{Composition::read(u"C50H71N13O12").value(), heavy};
    const IsotopeGroup acetyl{Composition::read(u"C2H2O").value(), natural};
    const IsotopePattern pattern = IsotopePattern::of(std::array{residues, acetyl}, 0.99).value();
    for (std::size_t i = 0; i < pattern.shares().size(); ++i) {
        out << QString::number(pattern.centroids()[i], 'f', 4) << ' '
            << QString::number(100 * pattern.shares()[i], 'f', 2) << " %\n";
    }
    //! [LabelledPattern]
}

void formulasOfMass(QTextStream& out)
{
    //! [FormulasOfMass]
    const Atom carbon{6}, hydrogen{1}, nitrogen{7}, oxygen{8};
    const double mass = Ionization::read(u"[M+H]+").value().neutralMass(195.0877);
    const FormulaLimits limits{.atoms = {{carbon}, {hydrogen}, {nitrogen}, {oxygen}},
                               .lowestUnsaturation = 0.0};
    const FormulaMatches found = findFormulas(mass, ppm(5), limits, AtomMasses()).value();
    for (const FormulaMatch& match : found.matches) {
        out << match.composition.toString() << ' ' << QString::number(match.ppm, 'f', 2)
            << " ppm, unsaturation " << match.unsaturation << '\n';
    }
    //! [FormulasOfMass]
}
