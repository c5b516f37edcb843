#include "Backbone.h"
#include "BuiltMolecules.h"
#include "IonLists.h"
#include "TestPrinters.h"
#include <zel_chemical_model/ChainFragmenter.h>
#include <zel_chemical_model/Clips.h>
#include <zel_chemical_model/EstablishLink.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <map>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using chem::MoleculeEntity;

Parsed<Backbone> read(const MoleculeEntity& molecule)
{
    return Backbone::ofMolecule(molecule, residues());
}

std::map<QString, std::vector<double>> allByLabel(const Backbone& backbone)
{
    return byLabel(ionsOf(backbone, allSeries()), backbone);
}

bool haveSameIons(const Backbone& left, const Backbone& right)
{
    const FragmentIons a = ionsOf(left, allSeries());
    const FragmentIons b = ionsOf(right, allSeries());
    return std::equal(a.mz().begin(), a.mz().end(), b.mz().begin(), b.mz().end(),
                      [](double x, double y) { return std::abs(x - y) < 1e-9; });
}

/// The label of an ion without the groups that it names.
QString plainLabel(const QString& label)
{
    return label.section(u'[', 0, 0);
}

/// The shifts of ions that differ from those of another molecule, by label.
std::map<QString, double> shifts(const Backbone& before, const Backbone& after)
{
    const auto old = allByLabel(before);
    std::map<QString, double> shifts;
    for (const auto& [label, mz] : allByLabel(after)) {
        const double shift = mz[0] - old.at(plainLabel(label))[0];
        if (std::abs(shift) > 1e-9)
            shifts[plainLabel(label)] = shift;
    }
    return shifts;
}

RC_GTEST_PROP(MoleculeBackbone, APeptideHasTheIonsOfItsText, ())
{
    const auto letters = QString::fromStdString(*rc::gen::nonEmpty(
        rc::gen::container<std::string>(rc::gen::elementOf(std::string("ACDEFGHIKLMNPQRSTVWY")))));
    const Backbone text = Backbone::peptide(letters, residues()).value();
    const Backbone molecule = read(builtPeptide(letters)).value();
    RC_ASSERT(haveSameIons(text, molecule));
    RC_ASSERT(molecule.chains()[0].letters == letters);
    RC_ASSERT(molecule.chains()[0].compositions.units.empty());
    const Backbone chain = Backbone::ofChain(peptideChain(letters), residues()).value();
    RC_ASSERT(haveSameIons(text, chain));
}

RC_GTEST_PROP(MoleculeBackbone, AnOligonucleotideHasTheIonsOfItsText, ())
{
    const auto units = *rc::gen::nonEmpty(rc::gen::container<std::vector<QString>>(
        rc::gen::map(rc::gen::tuple(rc::gen::element<QString>(u""_s, u"r"_s, u"m"_s, u"e"_s),
                                    rc::gen::element<QString>(u"A"_s, u"C"_s, u"G"_s, u"U"_s),
                                    rc::gen::element<QString>(u""_s, u"*"_s, u"**"_s)),
                     [](const std::tuple<QString, QString, QString>& unit) -> QString {
                         return std::get<0>(unit) + std::get<1>(unit) + std::get<2>(unit);
                     })));
    QString text = *rc::gen::element<QString>(u""_s, u"["_s, u"{"_s);
    for (const QString& unit : units)
        text += unit;
    text += *rc::gen::element<QString>(u""_s, u"]"_s, u"}"_s);
    const auto factory = chem::defaultChemicalFactory();
    const Backbone read1 = Backbone::oligonucleotide(text, *factory).value();
    const Parsed<Backbone> molecule = read(builtOligo(text));
    RC_ASSERT(molecule.hasValue());
    RC_ASSERT(haveSameIons(read1, *molecule));
    RC_ASSERT(molecule->chains()[0].letters == read1.chains()[0].letters);
}

TEST(MoleculeBackbone, EveryKindOfEndIsRecognised)
{
    for (const QString& text : {u"AC"_s, u"[AC]"_s, u"{AC}"_s, u"{AC"_s, u"AC}"_s}) {
        const Backbone backbone = read(builtOligo(text)).value();
        EXPECT_TRUE(backbone.chains()[0].hasLeftEnd) << text.toStdString();
        EXPECT_TRUE(backbone.chains()[0].hasRightEnd) << text.toStdString();
        EXPECT_EQ(backbone.chains()[0].units.size(), 2U);
    }
    chem::StructuredMolecule acetyl;
    acetyl.type = chem::MoleculeType::NTerminal;
    acetyl.monoMass = 43.018390;
    acetyl.averageMass = 43.04;
    const auto residues = peptideChain(u"GG"_s).residues();
    const Backbone typed = read(ofResidues({acetyl, residues[1], residues[2]})).value();
    EXPECT_TRUE(typed.chains()[0].hasLeftEnd);
    EXPECT_FALSE(typed.chains()[0].hasRightEnd);
    EXPECT_NEAR(typed.chains()[0].leftGroup.monoisotopic, 42.010565, 1e-6);
    const Backbone nameless =
        read(ofResidues({group(u"H"_s), residues[1], residues[2], group(u"OH"_s)})).value();
    EXPECT_TRUE(haveSameIons(nameless, read(builtPeptide(u"GG"_s)).value()));
}

TEST(MoleculeBackbone, EndsOfTheFactorysDictionariesAreRecognised)
{
    chem::ChemicalFactory factory(*chem::defaultChemicalFactory());
    factory.setBuildingBlock(chem::ChemicalFactory::NTerminalBlock, u"A"_s, u"acetyl"_s,
                             u"C2H3O"_s);
    factory.setBuildingBlock(chem::ChemicalFactory::FivePrimeTerminalBlock, u"<"_s, u"5'-PP"_s,
                             u"H3P2O6"_s);
    const ResidueTable table(factory);
    auto residues = peptideChain(u"AG"_s).residues();
    residues[0] = chem::NamedMolecule(factory.constructMolecule(u"C2H3O"_s), u"acetyl"_s, u"A"_s);
    const Parsed<Backbone> acetylated = Backbone::ofMolecule(ofResidues(residues), table);
    EXPECT_EQ(acetylated->chains()[0].letters, u"AG"_s);
    EXPECT_NEAR(acetylated->chains()[0].leftGroup.monoisotopic, 42.010565, 1e-6);
    const MoleculeEntity oligo =
        chem::constructOligoNucleotide(QString(), QString(), u"<AC"_s, &factory);
    EXPECT_EQ(Backbone::ofMolecule(oligo, table)->chains()[0].letters, u"AC"_s);
    EXPECT_FALSE(read(oligo).hasValue()); // by a table that does not have it
}

/// Masses as Unimod prints them.
TEST(MoleculeBackbone, AModifiedResidueShiftsTheIonsThatHoldIt)
{
    const MoleculeEntity peptide = builtPeptide(u"GASTK"_s);
    const Backbone bare = read(peptide).value();
    const MoleculeEntity phospho = modified(peptide, u"HPO3"_s, {{0, 3}});
    const Backbone backbone = read(phospho).value();
    EXPECT_EQ(backbone.chains()[0].letters, u"GASTK"_s);
    const auto changed = shifts(bare, backbone);
    for (const QString& label : {u"b3"_s, u"b4"_s, u"y3"_s, u"y4"_s, u"IS"_s, u"p"_s, u"m2:3"_s})
        EXPECT_NEAR(changed.at(label), 79.966331, 1e-6) << label.toStdString();
    for (const QString& label : {u"b2"_s, u"y2"_s, u"IT"_s})
        EXPECT_FALSE(changed.contains(label)) << label.toStdString();
    EXPECT_TRUE(haveSameIons(
        backbone, read(chem::modifyMolecule(peptide, group(u"HPO3"_s), {0, 3})).value()));
}

TEST(MoleculeBackbone, LabelsNameTheModificationsOfAResidue)
{
    const auto atoms = chem::defaultChemicalFactory()->modifyMolecule({}, u"HPO3"_s, 1);
    const chem::NamedMolecule phospho(atoms, u"phospho"_s, QString());
    const MoleculeEntity peptide = builtPeptide(u"GSTK"_s);
    const auto named =
        allByLabel(read(chem::modifyMolecule(peptide, MoleculeEntity(phospho), {0, 2})).value());
    EXPECT_TRUE(named.contains(u"IS[phospho]"_s));
    EXPECT_FALSE(named.contains(u"IS"_s));
}

TEST(MoleculeBackbone, StepsAddUpAndCanBeTakenBack)
{
    const MoleculeEntity peptide = builtPeptide(u"GASTK"_s);
    MoleculeEntity twice = modified(modified(peptide, u"CH2"_s, {{0, 5}}), u"CH2"_s, {{0, 5}});
    EXPECT_NEAR(shifts(read(peptide).value(), read(twice).value()).at(u"y1"_s), 28.031300, 1e-6);
    for (int i = 0; i < 2; ++i)
        twice = chem::Unmodify(chem::Modification(group(u"CH2"_s), {{0, 5}})).transform(twice);
    EXPECT_TRUE(haveSameIons(read(twice).value(), read(peptide).value()));
}

TEST(MoleculeBackbone, ModifiedEndsGoWithTheirEnd)
{
    const MoleculeEntity peptide = builtPeptide(u"GASTK"_s);
    const MoleculeEntity acetyl = modified(peptide, u"C2H2O"_s, {{0, 0}});
    auto changed = shifts(read(peptide).value(), read(acetyl).value());
    EXPECT_NEAR(changed.at(u"b1"_s), 42.010565, 1e-6);
    EXPECT_FALSE(changed.contains(u"y4"_s));
    const MoleculeEntity amide = modified(peptide, u"HNO-1"_s, {{0, 6}});
    changed = shifts(read(peptide).value(), read(amide).value());
    EXPECT_NEAR(changed.at(u"y1"_s), -0.984016, 1e-6);
    EXPECT_FALSE(changed.contains(u"b4"_s));
}

TEST(MoleculeBackbone, PartsOfANucleotideAreModifiedApart)
{
    const MoleculeEntity oligo = builtOligo(u"ACG"_s);
    const Backbone bare = read(oligo).value();
    const double methyl = 14.015650;
    const auto sugar = shifts(bare, read(modified(oligo, u"CH2"_s, {{0, 4}})).value());
    EXPECT_NEAR(sugar.at(u"a-B2"_s), methyl, 1e-6);
    EXPECT_NEAR(sugar.at(u"a2"_s), methyl, 1e-6);
    const auto base = shifts(bare, read(modified(oligo, u"CH2"_s, {{0, 5}})).value());
    EXPECT_FALSE(base.contains(u"a-B2"_s));
    EXPECT_NEAR(base.at(u"a2"_s), methyl, 1e-6);
    const auto linkage = shifts(bare, read(modified(oligo, u"CH2"_s, {{0, 6}})).value());
    EXPECT_FALSE(linkage.contains(u"b2"_s));
    EXPECT_NEAR(linkage.at(u"d2"_s), methyl, 1e-6);
    EXPECT_NEAR(linkage.at(u"w1"_s), methyl, 1e-6);
    EXPECT_FALSE(linkage.contains(u"y1"_s));
}

TEST(MoleculeBackbone, AResidueOfNoLetterHasItsModificationAsMass)
{
    const MoleculeEntity unknown =
        chem::Modify(chem::Modification(113.5, {{0, 2}})).transform(builtPeptide(u"GXG"_s));
    const Backbone backbone = read(unknown).value();
    EXPECT_EQ(backbone.chains()[0].units[1], (Masses{113.5, 113.5}));
    EXPECT_EQ(backbone.chains()[0].letters[1], QChar());
    const auto residues = peptideChain(u"GG"_s).residues();
    const Backbone number =
        read(ofResidues({residues[0], residues[1], 113.5, residues[2], residues[3]})).value();
    EXPECT_EQ(number.chains()[0].units[1], (Masses{113.5, 113.5}));
}

TEST(MoleculeBackbone, SeveralPlacesMakeAnOpenGroup)
{
    const MoleculeEntity molecule = modified(builtPeptide(u"GSAS"_s), u"HPO3"_s, {{0, 4}, {0, 2}});
    const Backbone backbone = read(molecule).value();
    ASSERT_EQ(backbone.chains()[0].open.size(), 1U);
    EXPECT_EQ(backbone.chains()[0].open[0].units, (std::vector<qsizetype>{1, 3}));
    EXPECT_NEAR(backbone.chains()[0].open[0].group.masses.monoisotopic, 79.966331, 1e-6);
    const auto ions = allByLabel(backbone);
    EXPECT_NEAR(ions.at(u"b3+[+79.9663]"_s)[0] - ions.at(u"b3"_s)[0], 79.966331, 1e-6);
    EXPECT_NEAR(backbone.masses().monoisotopic, molecule.monoMass(), 1e-9);
}

TEST(MoleculeBackbone, AGroupWithoutAPlaceMaySitOnAnyUnit)
{
    const Backbone backbone = read(modified(builtPeptide(u"GSA"_s), u"HPO3"_s, {})).value();
    EXPECT_EQ(backbone.chains()[0].open[0].units, (std::vector<qsizetype>{0, 1, 2}));
    const Backbone oligo = read(modified(builtOligo(u"AC"_s), u"CH2"_s, {})).value();
    EXPECT_EQ(oligo.chains()[0].open[0].units, (std::vector<qsizetype>{0, 1}));
}

TEST(MoleculeBackbone, PlacesAtAnEndAreThoseOfTheUnitNextToIt)
{
    const Backbone backbone =
        read(modified(builtPeptide(u"GSA"_s), u"CH2"_s, {{0, 0}, {0, 1}, {0, 4}})).value();
    EXPECT_EQ(backbone.chains()[0].open[0].units, (std::vector<qsizetype>{0, 2}));
}

TEST(MoleculeBackbone, AOnePlaceModificationOfTheMoleculeIsOnItsResidue)
{
    const chem::Modification phospho(group(u"HPO3"_s), {{0, 2}});
    const MoleculeEntity molecule = chem::constructProteinFromChains(
        QString(), {peptideChain(u"GSA"_s)}, {phospho}, {}, nullptr);
    EXPECT_TRUE(haveSameIons(read(molecule).value(),
                             read(modified(builtPeptide(u"GSA"_s), u"HPO3"_s, {{0, 2}})).value()));
}

TEST(MoleculeBackbone, ModificationsOfNoMassChangeNothing)
{
    const MoleculeEntity molecule =
        chem::Modify(chem::Modification(nullptr, {})).transform(builtPeptide(u"GSA"_s));
    EXPECT_TRUE(read(molecule)->chains()[0].open.empty());
}

TEST(MoleculeBackbone, LinksJoinUnits)
{
    const MoleculeEntity molecule = chem::constructStructuredMolecule(
        QString(), QString(), {peptideChain(u"GKG"_s), peptideChain(u"AKAC"_s)}, {},
        {chem::Link(group(u"C8H10O2"_s), {{0, 2}, {1, 2}})}, chem::MoleculeType::Protein);
    const Backbone backbone = read(molecule).value();
    ASSERT_EQ(backbone.links().size(), 1U);
    EXPECT_EQ(backbone.links()[0].firstUnit, 1);
    EXPECT_EQ(backbone.links()[0].secondChain, 1);
    EXPECT_EQ(backbone.links()[0].secondUnit, 1);
    EXPECT_NEAR(backbone.links()[0].masses.monoisotopic, 138.068080, 1e-6);
    EXPECT_NEAR(backbone.masses().monoisotopic, molecule.monoMass(), 1e-9);
    const auto ions = allByLabel(backbone);
    const double proton = 1.00727646688;
    EXPECT_NEAR(ions.at(u"1:b2"_s)[0] + ions.at(u"1:y1"_s)[0], molecule.monoMass() + 2 * proton,
                1e-6);
}

TEST(MoleculeBackbone, ALinkBetweenBothEndsMakesALoop)
{
    const MoleculeEntity cyclic = chem::EstablishLink(group(u"H-2O-1"_s), {{0, 0}, {0, 5}})
                                      .transform(builtPeptide(u"GAST"_s));
    const Backbone backbone = read(cyclic).value();
    EXPECT_EQ(backbone.links()[0].firstUnit, 0);
    EXPECT_EQ(backbone.links()[0].secondUnit, 3);
    EXPECT_FALSE(allByLabel(backbone).contains(u"b2"_s));
}

TEST(MoleculeBackbone, ClipsHaveNoEnds)
{
    const auto clips = chem::generateClips(builtPeptide(u"GASTK"_s), nullptr,
                                           chem::ClipOptions::createClipByDepth(2, 1, 0, 0));
    ASSERT_EQ(clips.size(), 4);
    for (const MoleculeEntity& clip : clips) {
        const Backbone backbone = read(clip).value();
        EXPECT_FALSE(backbone.chains()[0].hasLeftEnd);
        EXPECT_FALSE(backbone.chains()[0].hasRightEnd);
        EXPECT_EQ(backbone.chains()[0].letters, clip.sequence());
        EXPECT_NEAR(backbone.masses().monoisotopic, clip.monoMass(), 1e-9);
    }
    EXPECT_EQ(read(clips[2])->chains()[0].letters, u"STK"_s);
}

TEST(MoleculeBackbone, APieceMayHaveOneEnd)
{
    const auto clips =
        chem::generateClips(builtPeptide(u"GAKST"_s), nullptr,
                            chem::ClipOptions::createClipByResidue({u"K"_s}, {QString()}));
    const Backbone whole = read(clips[0]).value(); // with the first end, which digests list so
    EXPECT_TRUE(whole.chains()[0].hasLeftEnd);
    EXPECT_FALSE(whole.chains()[0].hasRightEnd);
    EXPECT_EQ(whole.chains()[0].letters, u"GAKST"_s);
}

/// Links of pieces count a place for a left end, whether or not there is one.
TEST(MoleculeBackbone, LinksOfAPieceStandAtTheirResidues)
{
    const MoleculeEntity loop =
        chem::EstablishLink(group(u"H-2"_s), {{0, 3}, {0, 5}}).transform(builtPeptide(u"GACSCG"_s));
    const auto linkOf = [](const MoleculeEntity& molecule) {
        const Backbone backbone = read(molecule).value();
        return std::pair(backbone.links()[0].firstUnit, backbone.links()[0].secondUnit);
    };
    using Units = std::pair<qsizetype, qsizetype>;
    const MoleculeEntity bare = pieceOf(loop, nullptr, 2, 7); // ACSCG
    EXPECT_EQ(linkOf(bare), Units(1, 3));
    EXPECT_EQ(linkOf(modified(bare, u"CH2"_s, {{0, 0}})), Units(1, 3));
    EXPECT_EQ(linkOf(pieceOf(loop, group(u"H"_s), 2, 7)), Units(1, 3));
    const MoleculeEntity later = chem::EstablishLink(group(u"H-2"_s), {{0, 1}, {0, 3}})
                                     .transform(pieceOf(builtPeptide(u"GACSCG"_s), nullptr, 2, 7));
    EXPECT_EQ(linkOf(later), Units(1, 3));
}

TEST(MoleculeBackbone, ALabelledFactoryLabelsWhatBreaksAdd)
{
    const auto factory = chem::ChemicalFactory::construct(u"N15:1"_s);
    const ResidueTable table(*factory);
    const MoleculeEntity peptide = chem::constructProteinFromChains(
        QString(), {chem::constructPeptideChain(QString(), QString(), u"GASTK"_s, factory.data())},
        {}, {}, nullptr);
    EXPECT_TRUE(haveSameIons(Backbone::ofMolecule(peptide, table).value(),
                             Backbone::peptide(u"GASTK", table).value()));
}

TEST(MoleculeBackbone, DeepNestsAreReadByTheirMasses)
{
    MoleculeEntity nest = group(u"CH2"_s);
    for (int i = 0; i < 2000; ++i)
        nest = chem::Modify(chem::Modification(nest, {})).transform(MoleculeEntity(nullptr));
    const MoleculeEntity molecule =
        chem::Modify(chem::Modification(nest, {{0, 2}})).transform(builtPeptide(u"GAS"_s));
    EXPECT_NEAR(read(molecule)->chains()[0].units[1].monoisotopic, 71.037114 + 14.015650, 1e-5);
}

} // namespace

} // namespace ions
