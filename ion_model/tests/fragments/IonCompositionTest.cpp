#include "BuiltMolecules.h"
#include "FragmentIons.h"
#include "IonLists.h"
#include "TestPrinters.h"
#include <zel_chemical_model/EstablishLink.h>
#include <zel_chemical_model/LinearComplex.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <map>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

constexpr double electron = 0.000548579909065;

Backbone molecule(const chem::MoleculeEntity& entity)
{
    return Backbone::ofMolecule(entity, residues()).value();
}

/// The m/z of an ion by the first library, which knows nothing of backbones.
double mzOf(const IonComposition& ion)
{
    const auto factory = chem::defaultChemicalFactory();
    double mass = 0.0;
    double average = 0.0;
    factory->calculateMassesForFormula(ion.neutral.toFormula(), &mass, &average);
    const double proton = factory->constructMolecule(u"H"_s).monoMass() - electron;
    return (mass + ion.charge * proton) / std::abs(ion.charge);
}

/// Whether every ion has a composition that weighs its m/z; and that there are ions.
bool weighTheirMz(const Backbone& backbone, const IonOptions& options)
{
    const FragmentIons ions = ionsOf(backbone, options);
    for (qsizetype i = 0; i < std::ssize(ions.mz()); ++i) {
        const auto ion = ions.composition(backbone, residues(), i);
        if (!ion || std::abs(mzOf(*ion) - ions.mz()[std::size_t(i)]) > 1e-9) {
            ADD_FAILURE() << ions.label(backbone, i).toStdString() << ": "
                          << (ion ? ion->neutral.toString() : ion.error().message).toStdString();
            return false;
        }
    }
    return !ions.mz().empty();
}

std::map<QString, QString> byLabel(const Backbone& backbone, const IonOptions& options)
{
    const FragmentIons ions = ionsOf(backbone, options);
    std::map<QString, QString> formulas;
    for (qsizetype i = 0; i < std::ssize(ions.mz()); ++i) {
        const auto ion = ions.composition(backbone, residues(), i);
        formulas[ions.label(backbone, i)] = ion ? ion->neutral.toString() : ion.error().message;
    }
    return formulas;
}

Error refusalOf(const Backbone& backbone, const IonOptions& options, qsizetype ion)
{
    const auto composition = ionsOf(backbone, options).composition(backbone, residues(), ion);
    EXPECT_FALSE(composition.hasValue());
    return composition ? Error() : composition.error();
}

/// Every ion of a complex of the first library has its formula.
void expectFormulasOfTheFirstLibrary(const Backbone& backbone, const chem::MoleculeComplex& complex)
{
    IonOptions options = allSeries();
    options.series.resize(std::size_t(Series::Precursor));
    const FragmentIons ions = ionsOf(backbone, options);
    const auto fragments = fragmentsOf(complex, ions);
    for (const auto& [index, fragment] : fragments) {
        const auto ion = ions.composition(backbone, residues(), index);
        ASSERT_TRUE(ion.hasValue()) << ion.error().message.toStdString();
        ASSERT_EQ(ion->neutral, Composition::fromFormula(fragment.formula()).value())
            << ions.label(backbone, index).toStdString();
    }
    ASSERT_GE(fragments.size(), 9 * (backbone.chains()[0].units.size() - 1) - 1);
}

TEST(IonComposition, IonsHaveTheFormulasOfTheFirstLibrary)
{
    const auto factory = chem::defaultChemicalFactory();
    for (const QString& sequence : {u"DRVYIHPF"_s, u"ACDEFGHIKLMNPQRSTVWY"_s}) {
        expectFormulasOfTheFirstLibrary(Backbone::peptide(sequence, residues()).value(),
                                        *factory->constructLinearPeptideComplex(sequence));
    }
    for (const QString& text : {u"ACGT"_s, u"rArC*rGrU"_s, u"{A*C**G}"_s, u"eT*eQ*dAdG"_s, u"AC*"_s,
                                u"mA+CfG"_s, u"[AC."_s}) {
        SCOPED_TRACE(text.toStdString());
        const auto complex = factory->constructLinearOligoComplex(text);
        expectFormulasOfTheFirstLibrary(Backbone::oligonucleotide(text, *factory).value(),
                                        *complex);
        expectFormulasOfTheFirstLibrary(molecule(builtOligo(text)), *complex);
    }
}

/// Formulas of tables: immonium ions and the small ions of glycine.
TEST(IonComposition, SmallIonsHaveTheirPublishedFormulas)
{
    const Backbone backbone = Backbone::peptide(u"GHG", residues()).value();
    const auto formulas = byLabel(backbone, allSeries());
    EXPECT_EQ(formulas.at(u"IH"_s), u"C5H7N3"_s);  // m/z 110.0713 is C5H8N3+
    EXPECT_EQ(formulas.at(u"y1"_s), u"C2H5NO2"_s); // glycine
    EXPECT_EQ(formulas.at(u"b1"_s), u"C2H3NO"_s);
    EXPECT_EQ(formulas.at(u"c1"_s), u"C2H6N2O"_s); // glycinamide
    EXPECT_EQ(formulas.at(u"p"_s), u"C10H15N5O4"_s);
}

RC_GTEST_PROP(IonComposition, WeighsTheMzOfPeptides, ())
{
    const auto letters = QString::fromStdString(
        *rc::gen::container<std::string>(*rc::gen::inRange<std::size_t>(2, 10),
                                         rc::gen::elementOf(std::string("ACDEFGHIKLMNPQRSTUVWY"))));
    IonOptions options = allSeries();
    options.charges = {*rc::gen::element(1, 3, -2)};
    options.hydrogens = {*rc::gen::element(0, -1, 2)};
    options.losses = {LossRule::read(u"H2O@STED", residues().atoms()).value(),
                      LossRule::read(u"NH3", residues().atoms()).value()};
    options.maxLosses = 2;
    RC_ASSERT(weighTheirMz(Backbone::peptide(letters, residues()).value(), options));
}

RC_GTEST_PROP(IonComposition, WeighsTheMzOfModifiedMolecules, ())
{
    const int size = *rc::gen::inRange(2, 12);
    chem::MoleculeEntity entity = builtPeptide(QString(size, u'S'));
    const int steps = *rc::gen::inRange(0, 6);
    for (int i = 0; i < steps; ++i) {
        const auto places = *rc::gen::container<std::vector<int>>(
            *rc::gen::inRange<std::size_t>(0, 3), rc::gen::inRange(0, size + 2));
        QList<std::pair<int, int>> positions;
        for (const int place : places)
            positions.append({0, place});
        entity =
            modified(entity, *rc::gen::element<QString>(u"HPO3"_s, u"CH2"_s, u"H-2O-1"_s, u"SO3"_s),
                     positions);
    }
    const Backbone backbone = molecule(entity);
    FragmentIons ions;
    RC_PRE(!ions.assign(backbone, allSeries()).has_value()); // at most 16 variants of an ion
    RC_ASSERT(weighTheirMz(backbone, allSeries()));
}

RC_GTEST_PROP(IonComposition, WeighsTheMzOfModifiedOligonucleotides, ())
{
    const auto bases = *rc::gen::container<std::vector<QString>>(
        *rc::gen::inRange<std::size_t>(2, 8),
        rc::gen::element<QString>(u"A"_s, u"rC*"_s, u"mG"_s, u"+T**"_s));
    QString text;
    for (const QString& base : bases)
        text += base;
    const int last = 3 * int(bases.size()) + 1;
    chem::MoleculeEntity entity = builtOligo(text);
    for (int i = *rc::gen::inRange(0, 4); i > 0; --i)
        entity = modified(entity, *rc::gen::element<QString>(u"CH2"_s, u"C2H2O"_s),
                          {{0, *rc::gen::inRange(0, last + 1)}});
    IonOptions options = allSeries();
    options.charges = {-1, -3, 2};
    RC_ASSERT(weighTheirMz(molecule(entity), options));
}

RC_GTEST_PROP(IonComposition, AnIonAndItsComplementMakeTheMolecule, ())
{
    const auto letters = QString::fromStdString(
        *rc::gen::container<std::string>(*rc::gen::inRange<std::size_t>(2, 20),
                                         rc::gen::elementOf(std::string("ACDEFGHIKLMNPQRSTVWY"))));
    const chem::MoleculeEntity entity = modified(
        builtPeptide(letters), u"HPO3"_s, {{0, *rc::gen::inRange(0, int(letters.size()) + 2)}});
    const Composition whole = Composition::ofMolecule(entity, residues().atoms()).value();
    const Backbone backbone = molecule(entity);
    const FragmentIons ions = ionsOf(backbone, series({Series::B, Series::Y, Series::Precursor}));
    const qsizetype cuts = letters.size() - 1;
    for (qsizetype k = 0; k < cuts; ++k) {
        Composition sum = ions.composition(backbone, residues(), k)->neutral;
        const auto complement = ions.composition(backbone, residues(), 2 * cuts - 1 - k);
        RC_ASSERT(sum.add(complement->neutral));
        RC_ASSERT(sum == whole);
    }
    RC_ASSERT(ions.composition(backbone, residues(), 2 * cuts)->neutral == whole);
}

TEST(IonComposition, LinkedChainsCarryTheWholeOtherOne)
{
    const auto entity = chem::constructStructuredMolecule(
        QString(), QString(), {peptideChain(u"GKGC"_s), peptideChain(u"AKACA"_s)}, {},
        {chem::Link(group(u"C8H10O2"_s), {{0, 2}, {1, 2}})}, chem::MoleculeType::Protein);
    EXPECT_TRUE(weighTheirMz(molecule(entity), allSeries()));
    const auto loop = chem::EstablishLink(group(u"H-2"_s), {{1, 2}, {1, 4}}).transform(entity);
    EXPECT_TRUE(weighTheirMz(molecule(loop), allSeries()));
    EXPECT_TRUE(weighTheirMz(molecule(modified(loop, u"CH2"_s, {{1, 1}, {1, 2}})), allSeries()));
}

TEST(IonComposition, HeavyAtomsStandUnderTheirIsotopes)
{
    const chem::Molecule heavy =
        residues().atoms().molecule(formula(u"[13C6][15N2]C-6N-2"_s)).value();
    const Backbone backbone = molecule(
        chem::Modify(chem::Modification(heavy, {{0, 2}})).transform(builtPeptide(u"GK"_s)));
    EXPECT_EQ(byLabel(backbone, IonOptions()).at(u"y1"_s), u"[13C6]H14[15N2]O2"_s);
}

TEST(IonComposition, IsotopesThatBreaksAddAreKnownByTheirMass)
{
    const AtomMasses& atoms = residues().atoms();
    const auto weigh = [&atoms](const QString& text) {
        return atoms.weigh(formula(text)).value();
    };
    BackboneChain chain = Backbone::peptide(u"GG", residues())->chains()[0];
    for (qsizetype unit = 0; unit < 2; ++unit) {
        chain.units[std::size_t(unit)] = weigh(u"[13C2]H3[15N]O"_s);
        chain.compositions.units.emplace_back(unit, formula(u"[13C2]H3[15N]O"_s));
    }
    BreakMasses breaks = residues().breaks();
    breaks.carbonMonoxide = weigh(u"[13C]O"_s);
    breaks.ammonia = weigh(u"[15N]H3"_s);
    const Backbone backbone = Backbone::ofChains({chain}, {}, breaks).value();
    IonOptions options = series({Series::A, Series::C, Series::Y});
    options.losses = {{{u"CO"_s, weigh(u"[13C]O"_s)}, {}}, {{u"NH3"_s, weigh(u"NH3"_s)}, {}}};
    const auto formulas = byLabel(backbone, options);
    EXPECT_EQ(formulas.at(u"a1"_s), u"[13C]H3[15N]"_s);
    EXPECT_EQ(formulas.at(u"c1"_s), u"[13C2]H6[15N2]O"_s);
    EXPECT_EQ(formulas.at(u"y1-CO"_s), u"[13C]H5[15N]O"_s);
    EXPECT_EQ(formulas.at(u"y1-NH3"_s), u"[13C2]H2N-1[15N]O2"_s);
}

TEST(IonComposition, OpenAndLabileGroupsAreCounted)
{
    BackboneChain chain = Backbone::peptide(u"GSSG", residues())->chains()[0];
    const Composition phospho = formula(u"HPO3"_s);
    const Masses masses = residues().atoms().weigh(phospho).value();
    chain.open = {{{masses, {}, phospho}, {1, 2}}, {{masses, {}, phospho}, {2, 3}}};
    chain.labile = {{masses, {}, phospho}};
    const Backbone backbone = Backbone::ofChains({chain}, {}, residues().breaks()).value();
    EXPECT_TRUE(weighTheirMz(backbone, allSeries()));
    const FragmentIons ions = ionsOf(backbone, series({Series::Precursor}));
    const auto phosphorus = [&](qsizetype ion) {
        return ions.composition(backbone, residues(), ion)->neutral.count({15, 0});
    };
    EXPECT_EQ(phosphorus(0), 3);
    EXPECT_EQ(phosphorus(1), 2);
}

TEST(IonComposition, OpenGroupsOfOneMassMustBeOfOneComposition)
{
    BackboneChain chain = Backbone::peptide(u"GSSG", residues())->chains()[0];
    const AtomMasses& atoms = residues().atoms();
    const Composition methylene = formula(u"CH2"_s);
    const Composition odd = formula(u"[12C]H2"_s); // of one monoisotopic mass
    chain.open = {{{atoms.weigh(methylene).value(), {}, methylene}, {0, 3}},
                  {{atoms.weigh(odd).value(), {}, odd}, {0, 3}}};
    const Backbone backbone = Backbone::ofChains({chain}, {}, residues().breaks()).value();
    const IonOptions options = series({Series::B, Series::Precursor});
    const FragmentIons ions = ionsOf(backbone, options);
    std::size_t refused = 0;
    for (qsizetype i = 0; i < std::ssize(ions.mz()); ++i) {
        const auto ion = ions.composition(backbone, residues(), i);
        if (ion)
            continue;
        ++refused;
        EXPECT_TRUE(ion.error().message.contains(u"one composition"_s));
    }
    EXPECT_EQ(refused, 3U); // the ions that hold one of the two
    EXPECT_TRUE(ions.composition(backbone, residues(), 9).hasValue());
}

TEST(IonComposition, PartsOfUnknownCompositionAreRefusedWithTheirPlace)
{
    const auto bare = [](double mass, const QList<std::pair<int, int>>& places) {
        return molecule(
            chem::Modify(chem::Modification(mass, places)).transform(builtPeptide(u"GASTK"_s)));
    };
    const Backbone residue = bare(79.966331, {{0, 3}});
    const FragmentIons ions = ionsOf(residue, IonOptions());
    EXPECT_TRUE(ions.composition(residue, residues(), 1).hasValue()); // b2
    const Error error = refusalOf(residue, IonOptions(), 2);
    EXPECT_EQ(error.chain, 0);
    EXPECT_EQ(error.residue, 2);
    EXPECT_TRUE(error.message.contains(u"a unit of known composition"_s));
    EXPECT_TRUE(refusalOf(bare(42.0, {{0, 0}}), IonOptions(), 0).message.contains(u"left end"_s));
    EXPECT_TRUE(refusalOf(bare(42.0, {{0, 6}}), IonOptions(), 4).message.contains(u"right end"_s));
    const Error open = refusalOf(bare(42.0, {{0, 2}, {0, 1}}), IonOptions(), 1);
    EXPECT_EQ(open.residue, 0);
    EXPECT_TRUE(open.message.contains(u"open group"_s));
}

TEST(IonComposition, PartsThatNobodyDescribedAreRefusedWithTheirPlace)
{
    const BreakMasses& breaks = residues().breaks();
    const BackboneChain chain = Backbone::peptide(u"GG", residues())->chains()[0];
    const Backbone linked =
        Backbone::ofChains({chain, chain}, {{1, 1, 0, 1, {138.0, 138.0}}}, breaks).value();
    const Error link = refusalOf(linked, series({Series::Y}), 0);
    EXPECT_EQ(link.chain, 1);
    EXPECT_EQ(link.residue, 1);
    EXPECT_TRUE(link.message.contains(u"a link"_s));
    BackboneChain labile = chain;
    labile.labile = {{{162.0, 162.0}, {}}};
    EXPECT_TRUE(
        refusalOf(Backbone::ofChains({labile}, {}, breaks).value(), series({Series::Precursor}), 0)
            .message.contains(u"labile"_s));
    const auto factory = chem::defaultChemicalFactory();
    BackboneChain oligo = Backbone::oligonucleotide(u"ACG", *factory)->chains()[0];
    oligo.linkages[1] += {1.0, 1.0};
    oligo.bases[1] += {1.0, 1.0};
    oligo.compositions.units = {{1, formula(u"C9H11N3O3"_s)}};
    const Backbone odd = Backbone::ofChains({oligo}, {}, breaks).value();
    EXPECT_TRUE(refusalOf(odd, series({Series::D}), 1).message.contains(u"a linkage"_s));
    EXPECT_TRUE(refusalOf(odd, series({Series::AMinusB}), 1).message.contains(u"a base"_s));
}

TEST(IonComposition, LossesWithoutAFormulaAreRefused)
{
    IonOptions options;
    options.losses = {{{u"phosphoric acid"_s, {97.976896, 97.995}}, {}},
                      {{u"H2O"_s, {97.976896, 97.995}}, {}}};
    const Backbone backbone = Backbone::peptide(u"GG", residues()).value();
    EXPECT_TRUE(refusalOf(backbone, options, 1).message.contains(u"phosphoric acid"_s));
    EXPECT_FALSE(ionsOf(backbone, options).composition(backbone, residues(), 2));
}

TEST(IonComposition, LossesMayHaveNegativeCounts)
{
    IonOptions options = series({Series::Y});
    options.losses = {LossRule::read(u"C2H-1O", residues().atoms()).value(),
                      LossRule::read(u"NH3", residues().atoms()).value()};
    options.maxLosses = 2;
    EXPECT_TRUE(weighTheirMz(Backbone::peptide(u"GGG", residues()).value(), options));
}

TEST(IonComposition, AnotherBackboneOrIndexIsRefused)
{
    const Backbone backbone = Backbone::peptide(u"GGG", residues()).value();
    const auto factory = chem::defaultChemicalFactory();
    const FragmentIons ions = ionsOf(backbone, allSeries());
    const qsizetype count = std::ssize(ions.mz());
    EXPECT_FALSE(ions.composition(backbone, residues(), -1));
    EXPECT_FALSE(ions.composition(backbone, residues(), count));
    for (const Backbone& other : {Backbone(), Backbone::peptide(u"A", residues()).value(),
                                  Backbone::peptide(u"AAAA", residues()).value(),
                                  Backbone::oligonucleotide(u"ACG", *factory).value()}) {
        for (qsizetype i = 0; i < count; ++i)
            EXPECT_FALSE(ions.composition(other, residues(), i).hasValue());
    }
    const ResidueTable labelled(*chem::ChemicalFactory::construct(u"N15:1"_s));
    EXPECT_FALSE(ions.composition(backbone, labelled, 0).hasValue());
}

TEST(IonComposition, CompositionsStandAtAscendingUnits)
{
    BackboneChain chain = Backbone::peptide(u"GG", residues())->chains()[0];
    chain.compositions.units = {{1, {}}, {0, {}}};
    EXPECT_FALSE(Backbone::ofChains({chain}, {}, residues().breaks()).hasValue());
    chain.compositions.units = {{2, {}}};
    EXPECT_FALSE(Backbone::ofChains({chain}, {}, residues().breaks()).hasValue());
    chain.compositions.units = {{0, {}}, {1, {}}};
    Backbone backbone = Backbone::ofChains({chain}, {}, residues().breaks()).value();
    EXPECT_FALSE(backbone.assignPeptide(u"GGG", residues()).has_value());
    EXPECT_TRUE(backbone.chains()[0].compositions.units.empty());
}

} // namespace

} // namespace ions
