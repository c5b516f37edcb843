#pragma once

#include "BuiltMolecules.h"
#include <IonModel.h>

#include <vector>

namespace ions {

/// What the threads share: one object of each class, made anew for each round.
struct SharedObjects
{
    AtomMasses atoms;
    ResidueTable residues;
    RnaTable nucleotides{residues};
    NucleotideTable oligonucleotides;
    ModificationTable modifications = ModificationTable::standard(atoms);
    Peptidoform peptidoform = Peptidoform::read(u"[Acetyl]-EM[Oxidation]K/2").value();
    Composition glucose = Composition::read(u"C6[13C2]H12O6").value();
    Ionization ion = Ionization::read(u"[M+H+Na]2+").value();
    Parsed<Composition> parsed = Composition::read(u"H2O");
    Parsed<Composition> refused = Composition::read(u"H2x");
    Tolerance tolerance = ppm(10);
    Backbone peptide = Backbone::peptide(u"DRVYIHPF", residues).value();
    Backbone linked;
    chem::MoleculeEntity molecule = builtPeptide(QStringLiteral("DRVYIHPF"));
    Protease compiled = Protease::named(u"Trypsin").value();
    Protease engine = Protease::fromExpression(QStringLiteral("[KR]+(?!P)")).value();
    Ribonuclease ribonuclease = Ribonuclease::named(u"T1").value();
    LossRule water = LossRule::read(u"H2O@ST", atoms).value();
    std::vector<IsotopeGroup> groups = {{glucose, atoms}};
    std::vector<double> peaks = {175.119, 272.172, 419.240};
    PeakMatches matches{{0, 1}, {1, 2}};
    PeakRange range{1, 2};
    Digest digest;
    FragmentIons ions;
    IsotopePattern pattern = IsotopePattern::of(groups).value();
    FormulaLimits limits{{{Atom{6, 0}}, {Atom{1, 0}}, {Atom{8, 0}, 0, 4}}, 0.0};
    IonOptions options;

    SharedObjects();
};

} // namespace ions
