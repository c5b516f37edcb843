#include "ConstCalls.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Shared = const SharedObjects&;

template <typename... Results>
void use(const Results&...)
{
}

std::vector<ConstCall> massCalls()
{
    return {
        {"AtomMasses::value",
         [](Shared) {
             use(MassSum{{1.0, 1.0}, {}}.value());
         }},
        {"AtomMasses::AtomMasses",
         [](Shared) {
             use(AtomMasses());
         }},
        {"AtomMasses::labelled",
         [](Shared s) {
             use(s.atoms.labelled({7, 15}, 0.987));
         }},
        {"AtomMasses::of",
         [](Shared s) {
             use(s.atoms.of({6, 13}), s.atoms.of({1, 3}));
         }},
        {"AtomMasses::weigh",
         [](Shared s) {
             use(s.atoms.weigh(s.glucose));
         }},
        {"AtomMasses::isotopes",
         [](Shared s) {
             use(s.atoms.isotopes({6, 0}));
         }},
        {"AtomMasses::molecule",
         [](Shared s) {
             use(s.atoms.molecule(s.glucose));
         }},
        {"ResidueTable::ResidueTable",
         [](Shared) {
             use(ResidueTable());
         }},
        {"ResidueTable::atoms",
         [](Shared s) {
             use(s.residues.atoms().of({1, 0}));
         }},
        {"ResidueTable::residue",
         [](Shared s) {
             use(s.residues.residue(u'K'));
         }},
        {"ResidueTable::letterMasses",
         [](Shared s) {
             use(s.residues.letterMasses()[75]);
         }},
        {"ResidueTable::composition",
         [](Shared s) {
             use(*s.residues.composition(u'K'), s.residues.composition(u"DRVYXHPF"));
         }},
        {"ResidueTable::candidates",
         [](Shared s) {
             use(s.residues.candidates(u'X'));
         }},
        {"ResidueTable::peptide",
         [](Shared s) {
             use(s.residues.peptide(u"DRVYXHPF"));
         }},
        {"ResidueTable::protein",
         [](Shared s) {
             use(s.residues.peptide(QString(mostPlainMasses + 1, u'K')));
         }},
        {"ResidueTable::water",
         [](Shared s) {
             use(Masses(s.residues.water()));
         }},
        {"ResidueTable::breaks",
         [](Shared s) {
             use(BreakMasses(s.residues.breaks()));
         }},
        {"ResidueTable::bases",
         [](Shared s) {
             use(MoleculePart(s.residues.bases()[0]));
         }},
        {"ResidueTable::sugars",
         [](Shared s) {
             use(MoleculePart(s.residues.sugars()[0]));
         }},
        {"ResidueTable::linkages",
         [](Shared s) {
             use(MoleculePart(s.residues.linkages()[0]));
         }},
        {"ResidueTable::leftEnds",
         [](Shared s) {
             use(MoleculePart(s.residues.leftEnds()[0]));
         }},
        {"ResidueTable::rightEnds",
         [](Shared s) {
             use(MoleculePart(s.residues.rightEnds()[0]));
         }},
        {"ResidueTable::monosaccharides",
         [](Shared s) {
             use(MoleculePart(s.residues.monosaccharides()[0]));
         }},
        {"ResidueTable::monosaccharide",
         [](Shared s) {
             use(*s.residues.monosaccharide(u"Hex"));
         }},
        {"NucleotideTable::NucleotideTable",
         [](Shared) {
             use(NucleotideTable());
         }},
        {"NucleotideTable::oligonucleotide",
         [](Shared s) {
             use(s.oligonucleotides.oligonucleotide(u"{rA*rC"));
             use(s.oligonucleotides.oligonucleotide(u"rA-100.5")); // by the factory's reader
         }},
        {"NucleotideTable::breaks",
         [](Shared s) {
             use(BreakMasses(s.oligonucleotides.breaks()));
         }},
    };
}

std::vector<ConstCall> textCalls()
{
    return {
        {"Composition::read",
         [](Shared) {
             use(Composition::read(u"CuSO4.5H2O"));
         }},
        {"Composition::readUnimod",
         [](Shared) {
             use(Composition::readUnimod(u"Hex(2) 13C"));
         }},
        {"Composition::fromFormula",
         [](Shared s) {
             use(Composition::fromFormula(s.glucose.toFormula()));
         }},
        {"Composition::ofMolecule",
         [](Shared s) {
             use(Composition::ofMolecule(s.molecule, s.atoms));
         }},
        {"Composition::symbol",
         [](Shared) {
             use(Atom{8, 18}.symbol(), Atom::element(u"Co"));
         }},
        {"Composition::toFormula",
         [](Shared s) {
             use(s.glucose.toFormula());
         }},
        {"Composition::toString",
         [](Shared s) {
             use(s.glucose.toString());
         }},
        {"Composition::terms",
         [](Shared s) {
             use(s.glucose.terms()[0]);
         }},
        {"Composition::isEmpty",
         [](Shared s) {
             use(s.glucose.isEmpty());
         }},
        {"Composition::count",
         [](Shared s) {
             use(s.glucose.count({6, 13}));
         }},
        {"Composition::add",
         [](Shared s) {
             Composition own = s.glucose;
             EXPECT_TRUE(own.add(s.glucose, 2) && own.label({6, 13}));
         }},
        {"Ionization::read",
         [](Shared) {
             use(Ionization::read(u"[M+NH4]+"));
         }},
        {"Ionization::charge",
         [](Shared s) {
             use(s.ion.charge());
         }},
        {"Ionization::molecules",
         [](Shared s) {
             use(s.ion.molecules());
         }},
        {"Ionization::carriers",
         [](Shared s) {
             use(Composition(s.ion.carriers()));
         }},
        {"Ionization::mz",
         [](Shared s) {
             use(s.ion.mz(1000.0));
         }},
        {"Ionization::averageMz",
         [](Shared s) {
             use(s.ion.averageMz(1000.0));
         }},
        {"Ionization::neutralMass",
         [](Shared s) {
             use(s.ion.neutralMass(1000.0));
         }},
        {"Ionization::toString",
         [](Shared s) {
             use(s.ion.toString(), Ionization(s.ion));
         }},
        {"Parsed::hasValue",
         [](Shared s) {
             use(s.parsed.hasValue(), bool(s.parsed));
         }},
        {"Parsed::value",
         [](Shared s) {
             use(Composition(s.parsed.value()), *s.parsed);
         }},
        {"Parsed::valueOr",
         [](Shared s) {
             use(s.refused.valueOr(s.glucose), s.parsed->terms());
         }},
        {"Parsed::error",
         [](Shared s) {
             use(Error(s.refused.error()));
         }},
        {"Tolerance::read",
         [](Shared) {
             use(Tolerance::read(u"10 ppm"));
         }},
        {"Tolerance::around",
         [](Shared s) {
             use(s.tolerance.around(1e3));
         }},
        {"Tolerance::lowest",
         [](Shared s) {
             use(s.tolerance.lowest(1e3));
         }},
        {"Tolerance::highest",
         [](Shared s) {
             use(s.tolerance.highest(1e3));
         }},
        {"Tolerance::accepts",
         [](Shared s) {
             use(s.tolerance.accepts(1e3, 1e3));
         }},
    };
}

std::vector<ConstCall> modificationCalls()
{
    return {
        {"ModificationTable::standard",
         [](Shared s) {
             use(ModificationTable::standard(s.atoms).entries().size());
         }},
        {"ModificationTable::ModificationTable",
         [](Shared s) {
             use(ModificationTable(s.modifications));
         }},
        {"ModificationTable::entries",
         [](Shared s) {
             use(ModificationEntry(s.modifications.entries()[7]));
         }},
        {"ModificationTable::byName",
         [](Shared s) {
             use(*s.modifications.byName(u"phospho"),
                 *s.modifications.byName(Vocabulary::Xlmod, u"DSS"));
         }},
        {"ModificationTable::byAccession",
         [](Shared s) {
             use(*s.modifications.byAccession(Vocabulary::Unimod, 35));
         }},
        {"ModificationTable::byMass",
         [](Shared s) {
             use(s.modifications.byMass(79.9663, s.tolerance));
         }},
        {"ModificationTable::nearestNames",
         [](Shared s) {
             use(s.modifications.nearestNames(u"Phosfo"));
         }},
    };
}

std::vector<ConstCall> digestCalls()
{
    return {
        {"Digest::named",
         [](Shared) {
             use(Protease::named(u"Lys-C"), Ribonuclease::named(u"A"));
         }},
        {"Digest::names",
         [](Shared) {
             use(Protease::names(), Ribonuclease::names());
         }},
        {"Digest::name",
         [](Shared s) {
             use(QString(s.compiled.name()));
         }},
        {"Digest::accession",
         [](Shared s) {
             use(QString(s.compiled.accession()));
         }},
        {"Digest::expression",
         [](Shared s) {
             use(QString(s.compiled.expression()));
         }},
        {"Digest::isUnspecific",
         [](Shared s) {
             use(s.compiled.isUnspecific());
         }},
        {"Digest::isCompiled",
         [](Shared s) {
             use(s.engine.isCompiled(), Protease(s.engine));
         }},
        {"Digest::findCuts",
         [](Shared s) {
             std::vector<qsizetype> cuts;
             EXPECT_TRUE(s.compiled.findCuts(u"MAKPRGKLR", &cuts));
             EXPECT_TRUE(s.engine.findCuts(u"MAKPRGKLR", &cuts));
         }},
        {"Digest::cleave",
         [](Shared s) {
             Digest own = s.digest;
             EXPECT_TRUE(own.cleave(u"MAKPRGKLR", s.engine, s.residues));
             EXPECT_TRUE(own.cleave(u"AGCUGA", s.ribonuclease, s.nucleotides,
                                    ThreePrimeEnd::CyclicPhosphate));
         }},
        {"Digest::letterMasses",
         [](Shared s) {
             use(s.nucleotides.letterMasses()[65]);
         }},
        {"Digest::linkage",
         [](Shared s) {
             use(Masses(s.nucleotides.linkage()));
         }},
        {"Digest::water",
         [](Shared s) {
             use(Masses(s.nucleotides.water()));
         }},
        {"Digest::size",
         [](Shared s) {
             use(s.digest.size());
         }},
        {"Digest::starts",
         [](Shared s) {
             use(s.digest.starts()[0]);
         }},
        {"Digest::ends",
         [](Shared s) {
             use(s.digest.ends()[0]);
         }},
        {"Digest::missedCleavages",
         [](Shared s) {
             use(s.digest.missedCleavages()[0]);
         }},
        {"Digest::monoisotopic",
         [](Shared s) {
             use(s.digest.monoisotopic()[0]);
         }},
        {"Digest::average",
         [](Shared s) {
             use(s.digest.average()[0]);
         }},
        {"Digest::unknownLetters",
         [](Shared s) {
             use(s.digest.unknownLetters()[0]);
         }},
    };
}

std::vector<ConstCall> ionCalls()
{
    return {
        {"Backbone::peptide",
         [](Shared s) {
             use(Backbone::peptide(u"GAVLK", s.residues));
         }},
        {"Backbone::oligonucleotide",
         [](Shared) {
             use(Backbone::oligonucleotide(u"rA*CGT", *chem::defaultChemicalFactory()));
         }},
        {"Backbone::ofMolecule",
         [](Shared s) {
             use(Backbone::ofMolecule(s.molecule, s.residues));
             use(Backbone::oligonucleotide(u"rA*CGT", s.oligonucleotides));
         }},
        {"ProForma::of",
         [](Shared s) {
             use(s.peptidoform.ions[0].chains[0].positions.of(1));
         }},
        {"ProForma::toString",
         [](Shared s) {
             use(s.peptidoform.toString(), Peptidoform::read(u"EM[U:35]K"));
         }},
        {"ProForma::weigh",
         [](Shared s) {
             use(s.peptidoform.weigh(0, s.residues, s.modifications));
         }},
        {"ProForma::backbone",
         [](Shared s) {
             use(s.peptidoform.backbone(0, s.residues, s.modifications));
         }},
        {"ProForma::molecule",
         [](Shared s) {
             use(s.peptidoform.molecule(0, s.residues, s.modifications, Placeless::Dropped));
         }},
        {"ProForma::ofMolecule",
         [](Shared s) {
             use(Peptidoform::ofMolecule(s.molecule, s.residues, s.modifications));
         }},
        {"Backbone::chains",
         [](Shared s) {
             use(BackboneChain(s.linked.chains()[1]));
         }},
        {"Backbone::links",
         [](Shared s) {
             use(BackboneLink(s.linked.links()[0]));
         }},
        {"Backbone::breaks",
         [](Shared s) {
             use(BreakMasses(s.linked.breaks()));
         }},
        {"Backbone::chainMasses",
         [](Shared s) {
             use(s.linked.chainMasses(1));
         }},
        {"Backbone::masses",
         [](Shared s) {
             use(s.linked.masses(), Backbone(s.linked));
         }},
        {"FragmentIons::read",
         [](Shared s) {
             use(LossRule::read(u"NH3@KR", s.atoms));
         }},
        {"FragmentIons::seriesName",
         [](Shared) {
             use(seriesName(Series::AMinusB), seriesNamed(u"z."));
         }},
        {"FragmentIons::assign",
         [](Shared s) {
             FragmentIons own;
             EXPECT_FALSE(own.assign(s.linked, s.options).has_value());
             EXPECT_FALSE(own.assign(s.peptide, IonOptions()).has_value());
         }},
        {"FragmentIons::mz",
         [](Shared s) {
             use(s.ions.mz()[0]);
         }},
        {"FragmentIons::runs",
         [](Shared s) {
             use(s.ions.runs()[0]);
         }},
        {"FragmentIons::size",
         [](Shared s) {
             use(s.ions.runs().size());
         }},
        {"FragmentIons::empty",
         [](Shared s) {
             use(s.ions.runs().empty());
         }},
        {"FragmentIons::begin",
         [](Shared s) {
             use(*s.ions.runs().begin());
         }},
        {"FragmentIons::end",
         [](Shared s) {
             use(s.ions.runs().begin() == s.ions.runs().end());
         }},
        {"FragmentIons::losses",
         [](Shared s) {
             use(QString(s.ions.losses()[1]));
         }},
        {"FragmentIons::runOf",
         [](Shared s) {
             use(s.ions.runOf(20));
         }},
        {"FragmentIons::label",
         [](Shared s) {
             for (qsizetype ion = 0; ion < std::ssize(s.ions.mz()); ion += 5)
                 use(s.ions.label(s.linked, ion));
         }},
        {"FragmentIons::composition",
         [](Shared s) {
             use(s.ions.composition(s.linked, s.residues, 0));
         }},
    };
}

std::vector<ConstCall> patternCalls()
{
    return {
        {"IsotopePattern::of",
         [](Shared s) {
             use(IsotopePattern::of(s.groups));
         }},
        {"IsotopePattern::fill",
         [](Shared s) {
             IsotopePattern own = s.pattern;
             EXPECT_FALSE(own.fill(s.groups, 0.999).has_value());
         }},
        {"IsotopePattern::centroids",
         [](Shared s) {
             use(s.pattern.centroids()[0]);
         }},
        {"IsotopePattern::shares",
         [](Shared s) {
             use(s.pattern.shares()[0]);
         }},
        {"IsotopePattern::firstBin",
         [](Shared s) {
             use(s.pattern.firstBin());
         }},
        {"IsotopePattern::monoisotopicBin",
         [](Shared s) {
             use(s.pattern.monoisotopicBin());
         }},
        {"IsotopePattern::highestBin",
         [](Shared s) {
             use(s.pattern.highestBin());
         }},
        {"IsotopePattern::fineStructure",
         [](Shared s) {
             use(fineStructure(s.groups));
         }},
        {"IsotopePattern::mostAbundantMass",
         [](Shared s) {
             use(mostAbundantMass(s.groups));
         }},
        {"FormulaSearch::findFormulas",
         [](Shared s) {
             use(findFormulas(180.0634, s.tolerance, s.limits, s.atoms));
         }},
        {"FormulaSearch::averagine",
         [](Shared s) {
             use(averagine(5000.0, MassKind::Average, s.atoms));
         }},
        {"FormulaSearch::unsaturation",
         [](Shared s) {
             use(unsaturation(s.glucose));
         }},
        {"PeakMatch::peaksAround",
         [](Shared s) {
             std::vector<PeakRange> ranges;
             peaksAround(s.peaks, s.ions.mz(), s.tolerance, &ranges);
             use(peaksAround(s.peaks, 272.172, s.tolerance));
         }},
        {"PeakMatch::matchPeaks",
         [](Shared s) {
             PeakMatches own;
             matchPeaks(s.peaks, s.peaks, s.ions.mz(), s.tolerance, PeakChoice::MostIntense, &own);
         }},
        {"PeakMatch::matchScore",
         [](Shared) {
             use(matchScore({3, 150.0}, {5, 220.0}));
         }},
        {"PeakMatch::size",
         [](Shared s) {
             use(s.matches.size(), s.range.size());
         }},
        {"PeakMatch::isEmpty",
         [](Shared s) {
             use(s.range.isEmpty());
         }},
    };
}

} // namespace

const std::vector<ConstCall>& constCalls()
{
    static const auto all = [] {
        std::vector<ConstCall> calls;
        for (const auto& family : {massCalls(), textCalls(), modificationCalls(), digestCalls(),
                                   ionCalls(), patternCalls()})
            calls.insert(calls.end(), family.begin(), family.end());
        return calls;
    }();
    return all;
}

} // namespace ions
