// The examples that stand in the comments of the ion library's headers. What their comments promise
// is tested here.

#include "Promises.h"
#include "Recipes.h"
#include <IonModel.h>

#include <algorithm>
#include <array>
#include <span>
#include <vector>

// The examples name results without using them.
#pragma GCC diagnostic ignored "-Wunused-value"

using namespace ions;

namespace {

void refusals(QTextStream& out)
{
    const Parsed<Composition> water = Composition::read(u"H2Ox"_s);
    water.error().position; // 3
    water.error().message;  // "expected an element, ..."
    require(water.error().position == 3 &&
                water.error().message.startsWith(u"expected an element, "),
            "Parsed", out);
}

void compositions(QTextStream& out)
{
    const Composition glucose = Composition::read(u"[13C6]H12O6"_s).value();
    glucose.count(Atom{6, 13});                     // 6
    Composition::read(u"CuSO4.5H2O"_s)->toString(); // "CuH10O9S"
    require(glucose.count(Atom{6, 13}) == 6 &&
                Composition::read(u"CuSO4.5H2O"_s)->toString() == u"CuH10O9S",
            "Composition", out);
}

void atomMasses(QTextStream& out)
{
    const AtomMasses masses;                                         // natural isotopes
    masses.weigh(Composition::read(u"H2O"_s).value())->monoisotopic; // 18.010565
    require(
        isNear(masses.weigh(Composition::read(u"H2O"_s).value())->monoisotopic, 18.010565, 5e-7),
        "AtomMasses", out);
}

void ionizations(QTextStream& out)
{
    const Ionization sodiated = Ionization::read(u"[M+H+Na]2+").value();
    sodiated.mz(1045.5345);             // (M + H + Na - 2 electrons) / 2
    Ionization::protons(-3).toString(); // "[M-3H]3-"
    const double hydrogen = 1.00782503, sodium = 22.98976928;
    require(isNear(sodiated.mz(1045.5345),
                   (1045.5345 + hydrogen + sodium - 2 * ions::electronMass) / 2, 1e-7) &&
                Ionization::protons(-3).toString() == u"[M-3H]3-",
            "Ionization", out);
}

void tolerances(QTextStream& out)
{
    const Tolerance tolerance = ppm(10);
    tolerance.accepts(1046.5500, 1046.5418); // true: 7.8 ppm
    ppmError(1046.5500, 1046.5418);          // (measured - calculated) / calculated * 10^6
    require(tolerance.accepts(1046.5500, 1046.5418) &&
                isNear(ppmError(1046.5500, 1046.5418), 7.8, 0.05),
            "Tolerance", out);
}

void residueTables(QTextStream& out)
{
    const ResidueTable residues;                    // natural isotopes
    residues.peptide(u"DRVYIHPF")->monoisotopic;    // 1045.53451 Da
    residues.peptide(u"DRVXIHPF").error().position; // 3
    require(isNear(residues.peptide(u"DRVYIHPF")->monoisotopic, 1045.53451, 5e-6) &&
                residues.peptide(u"DRVXIHPF").error().position == 3,
            "ResidueTable", out);
}

void nucleotideTables(QTextStream& out)
{
    const NucleotideTable nucleotides;                                   // natural isotopes
    nucleotides.oligonucleotide(u"rA*rC*rG")->monoisotopic;              // 949.13979 Da
    nucleotides.oligonucleotide(u"rA*rX").error().position;              // 4
    nucleotides.oligonucleotide(u"AUCACCUUUG")->monoisotopic;            // 2920.473 Da: DNA
    nucleotides.oligonucleotide(u"rArUrCrArCrCrUrUrUrG}")->monoisotopic; // 3160.388 Da: RNA
    require(isNear(nucleotides.oligonucleotide(u"rA*rC*rG")->monoisotopic, 949.13979, 5e-6) &&
                nucleotides.oligonucleotide(u"rA*rX").error().position == 4 &&
                isNear(nucleotides.oligonucleotide(u"AUCACCUUUG")->monoisotopic, 2920.473, 5e-4),
            "NucleotideTable", out);
    Digest products;
    products.cleave(u"AUCACCUUUGA", Ribonuclease::named(u"T1").value(), RnaTable(ResidueTable()),
                    ThreePrimeEnd::Phosphate);
    const double product = products.monoisotopic()[0];
    require(isNear(product, 3160.388, 5e-4) &&
                isNear(nucleotides.oligonucleotide(u"rArUrCrArCrCrUrUrUrG}")->monoisotopic, product,
                       1e-9),
            "a product of RNA as text", out);
}

void modificationTables(QTextStream& out)
{
    const ModificationTable table = ModificationTable::standard(AtomMasses());
    table.byName(u"phospho")->masses.monoisotopic;   // 79.966331 Da
    table.byAccession(Vocabulary::Unimod, 35)->name; // "Oxidation"
    require(isNear(table.byName(u"phospho")->masses.monoisotopic, 79.966331, 5e-6) &&
                table.byAccession(Vocabulary::Unimod, 35)->name == u"Oxidation",
            "ModificationTable", out);
}

void digests(QTextStream& out)
{
    const ResidueTable residues;
    const Protease trypsin = Protease::named(u"Trypsin"_s).value();
    Digest digest;
    digest.cleave(u"MAKPRGKLR", trypsin, residues, {.missedCleavages = 1});
    digest.size();            // 5: MAKPR, MAKPRGK, GK, GKLR, LR
    digest.ends()[1];         // 7
    digest.monoisotopic()[4]; // 287.195740
    require(digest.size() == 5 && digest.ends()[1] == 7 &&
                isNear(digest.monoisotopic()[4], 287.195740, 5e-6),
            "Digest", out);
}

void backbones(QTextStream& out)
{
    const ResidueTable residues;
    const Backbone peptide = Backbone::peptide(u"DRVYIHPF", residues).value();
    peptide.masses().monoisotopic; // 1045.53451 Da
    require(isNear(peptide.masses().monoisotopic, 1045.53451, 5e-6), "Backbone", out);

    FragmentIons ions;
    if (!ions.assign(peptide, IonOptions())) // b and y ions at 1+
        ions.mz()[1];                        // 272.13533, the b2 ion
    require(isNear(ions.mz()[1], 272.13533, 5e-6), "FragmentIons", out);
}

void notations(QTextStream& out)
{
    const Peptidoform peptidoform = Peptidoform::read(u"em[unimod:0035]K/+2").value();
    peptidoform.toString(); // "EM[UNIMOD:35]K/2"
    require(peptidoform.toString() == u"EM[UNIMOD:35]K/2", "Peptidoform, text", out);
}

void peptidoforms(QTextStream& out)
{
    const ResidueTable residues;
    const ModificationTable table = ModificationTable::standard(residues.atoms());
    const Peptidoform peptidoform = Peptidoform::read(u"EM[Oxidation]K/2").value();
    peptidoform.weigh(0, residues, table)->mz.monoisotopic; // 212.0990
    require(isNear(peptidoform.weigh(0, residues, table)->mz.monoisotopic, 212.0990, 5e-5),
            "Peptidoform, masses", out);
}

void patterns(QTextStream& out)
{
    const AtomMasses natural;
    const AtomMasses heavy = natural.labelled({7, 15}, 0.987).value();
    const IsotopeGroup residues{Composition::read(u"C43H67N13O11"_s).value(), heavy};
    const IsotopeGroup reagent{Composition::read(u"C2H2O"_s).value(), natural};
    const auto pattern = IsotopePattern::of(std::array{residues, reagent}).value();
    const double first = pattern.centroids()[0]; // in Da, of the bin pattern.firstBin()
    require(isNear(first, 983.5189 + 0.997 * double(pattern.firstBin()), 0.01), "IsotopePattern",
            out);
}

/// Many isotopologues share the fullest bin of nusinersen, none of which is the likeliest of all.
void fullestBin(QTextStream& out)
{
    const Composition nusinersen = Composition::read(u"C234H340N61O128P17S17"_s).value();
    const IsotopeGroup group{nusinersen, AtomMasses()};
    const auto pattern = IsotopePattern::of(nusinersen, AtomMasses()).value();
    const auto& shares = pattern.shares();
    const auto fullest = std::max_element(shares.cbegin(), shares.cend()) - shares.cbegin();
    require(isNear(mostAbundantMass(std::span(&group, 1)).value(), 7124.283, 5e-4) &&
                isNear(pattern.centroids()[std::size_t(fullest)], 7126.282, 5e-4),
            "mostAbundantMass", out);
}

void peaks(QTextStream& out)
{
    const std::vector<double> peaks = {175.1190, 262.1510, 262.1530, 375.2350};
    peaksAround(peaks, 262.1521, ppm(10)); // first 1, last 3
    require(peaksAround(peaks, 262.1521, ppm(10)) == PeakRange{1, 3}, "PeakMatch", out);
}

void formulasOfCaffeine(QTextStream& out)
{
    const AtomMasses masses;
    const Atom carbon{6, 0}, hydrogen{1, 0}, nitrogen{7, 0}, oxygen{8, 0};
    FormulaLimits limits{{{carbon}, {hydrogen}, {nitrogen}, {oxygen, 1, 4}}, 0.0};
    const auto found = findFormulas(194.0804, ppm(5), limits, masses).value();
    found.matches[0].composition.toString(); // "C8H10N4O2"
    require(found.matches[0].composition.toString() == u"C8H10N4O2", "FormulaSearch", out);
}

} // namespace

void ionHeaderExamples(QTextStream& out)
{
    refusals(out);
    compositions(out);
    atomMasses(out);
    ionizations(out);
    tolerances(out);
    residueTables(out);
    nucleotideTables(out);
    modificationTables(out);
    digests(out);
    backbones(out);
    notations(out);
    peptidoforms(out);
    patterns(out);
    fullestBin(out);
    peaks(out);
    formulasOfCaffeine(out);
}
