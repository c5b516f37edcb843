#include "FragmentLists.h"
#include "TestPrinters.h"

#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

using chem::ComplexResidue;
using chem::Fragment;
using chem::FragmentationSite;
using chem::FragmentType;
using chem::Molecule;
using chem::MoleculeComplex;
using chem::SimpleFragment;

static_assert(std::is_copy_constructible_v<SimpleFragment>);
static_assert(std::is_copy_assignable_v<SimpleFragment>);
static_assert(std::is_nothrow_move_constructible_v<SimpleFragment>);
static_assert(std::is_nothrow_move_assignable_v<SimpleFragment>);
static_assert(sizeof(SimpleFragment::position) == 4);

/// The compositions of a complex's ions by label and number of monomers, as in "b2".
std::map<QString, QString> compositions(const MoleculeComplex& complex)
{
    std::map<QString, QString> found;
    for (const auto& fragment : richFragments(complex)) {
        const QString label = fragment->typeLabel + QString::number(fragment->residues.size() - 1);
        found[label] = fragment->formula().toString();
    }
    return found;
}

TEST(LinearFragments, LabelsOfTheIonTypes)
{
    const QStringList labels = {u"a"_s, u"a."_s, u"b"_s,  u"c"_s, u"c."_s, u"d"_s, u"aB"_s,
                                u"w"_s, u"x"_s,  u"x."_s, u"y"_s, u"z"_s,  u"z."_s};
    for (int type = -3; type < 40; ++type) {
        const QString label = type >= 0 && type < 13 ? labels[type] : u"unknown"_s;
        EXPECT_EQ(chem::ChemicalFactory::typeToString(static_cast<FragmentType>(type)), label);
    }
}

TEST(LinearFragments, FlatFragmentStartsUnknownAndEmpty)
{
    const SimpleFragment fragment;
    EXPECT_EQ(fragment.averageMass, 0.0);
    EXPECT_EQ(fragment.monoMass, 0.0);
    EXPECT_TRUE(fragment.sequence.isNull());
    EXPECT_EQ(fragment.type, FragmentType::Unknown);
    EXPECT_EQ(fragment.position, 0);
}

TEST(LinearFragments, PeptideIonsHaveTheirCompositions)
{
    // Computed by hand: glycine residue C2H3NO, alanine residue C3H5NO.
    const auto found = compositions(*peptide(u"GA"_s));
    const std::map<QString, QString> expected = {
        {u"b1"_s, u"C2H3NO"_s},     {u"b2"_s, u"C5H8N2O2"_s},  {u"a1"_s, u"C1H3N"_s},
        {u"a2"_s, u"C4H8N2O"_s},    {u"a.1"_s, u"C1H4N"_s},    {u"a.2"_s, u"C4H9N2O"_s},
        {u"c1"_s, u"C2H6N2O"_s},    {u"c2"_s, u"C5H11N3O2"_s}, {u"c.1"_s, u"C2H7N2O"_s},
        {u"c.2"_s, u"C5H12N3O2"_s}, {u"x1"_s, u"C4H5NO3"_s},   {u"x2"_s, u"C6H8N2O4"_s},
        {u"x.1"_s, u"C4H6NO3"_s},   {u"x.2"_s, u"C6H9N2O4"_s}, {u"y1"_s, u"C3H7NO2"_s},
        {u"y2"_s, u"C5H10N2O3"_s},  {u"z1"_s, u"C3H4O2"_s},    {u"z2"_s, u"C5H7NO3"_s},
        {u"z.1"_s, u"C3H5O2"_s},    {u"z.2"_s, u"C5H8NO3"_s}};
    EXPECT_EQ(found, expected);
}

// Computed by hand: lysine residue C6H12N2O; methionine C5H9NOS and cysteine C3H5NOS.
TEST(LinearFragments, IonsOfFullLengthHaveTheirCompositions)
{
    const std::map<QString, QString> lysine = {
        {u"a1"_s, u"C5H12N2"_s},    {u"a.1"_s, u"C5H13N2"_s},  {u"b1"_s, u"C6H12N2O"_s},
        {u"c1"_s, u"C6H15N3O"_s},   {u"c.1"_s, u"C6H16N3O"_s}, {u"x1"_s, u"C7H12N2O3"_s},
        {u"x.1"_s, u"C7H13N2O3"_s}, {u"y1"_s, u"C6H14N2O2"_s}, {u"z1"_s, u"C6H11NO2"_s},
        {u"z.1"_s, u"C6H12NO2"_s}};
    EXPECT_EQ(compositions(*peptide(u"K"_s)), lysine);

    const auto found = compositions(*peptide(u"MC"_s));
    const std::map<QString, QString> longest = {
        {u"a2"_s, u"C7H14N2OS2"_s},   {u"a.2"_s, u"C7H15N2OS2"_s},  {u"b2"_s, u"C8H14N2O2S2"_s},
        {u"c2"_s, u"C8H17N3O2S2"_s},  {u"c.2"_s, u"C8H18N3O2S2"_s}, {u"x2"_s, u"C9H14N2O4S2"_s},
        {u"x.2"_s, u"C9H15N2O4S2"_s}, {u"y2"_s, u"C8H16N2O3S2"_s},  {u"z2"_s, u"C8H13NO3S2"_s},
        {u"z.2"_s, u"C8H14NO3S2"_s}};
    for (const auto& [label, formula] : longest)
        EXPECT_EQ(found.at(label), formula) << label.toStdString();
}

TEST(LinearFragments, ElementsThatCancelStayAsEntries)
{
    const auto fragments = richFragments(*peptide(u"G"_s));
    ASSERT_EQ(fragments[1]->typeLabel, u"a"_s);
    EXPECT_EQ(fragments[1]->formula().elementCountMap(),
              (QMap<QString, double>{{u"C"_s, 1}, {u"H"_s, 3}, {u"N"_s, 1}, {u"O"_s, 0}}));
}

// The m/z of the singly charged ions of PEPTIDE are textbook values; a neutral ion weighs a proton
// less.
TEST(LinearFragments, NeutralIonsOfAKnownPeptideWeighAProtonLessThanTheirPeaks)
{
    const std::map<std::pair<FragmentType, qsizetype>, double> peaks = {
        {{FragmentType::B, 2}, 227.1026}, {{FragmentType::B, 3}, 324.1554},
        {{FragmentType::B, 4}, 425.2031}, {{FragmentType::B, 5}, 538.2871},
        {{FragmentType::B, 6}, 653.3141}, {{FragmentType::Y, 1}, 148.0604},
        {{FragmentType::Y, 2}, 263.0874}, {{FragmentType::Y, 3}, 376.1714},
        {{FragmentType::Y, 4}, 477.2191}, {{FragmentType::Y, 5}, 574.2719},
        {{FragmentType::Y, 6}, 703.3145}};
    std::size_t compared = 0;
    const auto fragments = flatFragments(*peptide(u"PEPTIDE"_s));
    for (const SimpleFragment& fragment : fragments) {
        const auto peak = peaks.find({fragment.type, fragment.sequence.size()});
        if (peak == peaks.end())
            continue;
        EXPECT_NEAR(fragment.monoMass + 1.00727646, peak->second, 1e-4)
            << fragment.sequence.toStdString();
        ++compared;
    }
    EXPECT_EQ(compared, peaks.size());
}

TEST(LinearFragments, PeptideHasTenIonsForEachResidue)
{
    for (int length = 1; length <= 20; ++length) {
        const auto complex = peptide(QString(length, u'P'));
        EXPECT_EQ(richFragments(*complex).size(), 10 * length);
        EXPECT_EQ(flatFragments(*complex).size(), 10 * length);
    }
}

TEST(LinearFragments, FullLengthBLosesWaterAndFullLengthYIsThePeptide)
{
    const auto complex = peptide(u"DRVYIHPF"_s);
    const auto found = compositions(*complex);
    EXPECT_EQ(found.at(u"y8"_s), u"C50H71N13O12"_s);
    EXPECT_EQ(found.at(u"b8"_s), u"C50H69N13O11"_s);
}

TEST(LinearFragments, RichOrderIsLeftIonsThenMirroredRightIons)
{
    QStringList labels;
    for (const auto& fragment : richFragments(*peptide(u"GAS"_s)))
        labels.append(fragment->typeLabel + QString::number(fragment->residues.size() - 1));
    QStringList expected;
    for (const QString& number : {u"1"_s, u"2"_s, u"3"_s}) {
        for (const QString& type :
             {u"b"_s, u"a"_s, u"a."_s, u"c"_s, u"c."_s, u"y"_s, u"x"_s, u"x."_s, u"z"_s, u"z."_s})
            expected.append(type + number);
    }
    EXPECT_EQ(labels, expected);
}

TEST(LinearFragments, FlatOrderFollowsTheSiteList)
{
    const auto fragments = flatFragments(*peptide(u"GA"_s));
    ASSERT_EQ(fragments.size(), 20);
    const QList<FragmentType> expected = {
        FragmentType::B, FragmentType::Y,    FragmentType::A, FragmentType::Adot,
        FragmentType::C, FragmentType::Cdot, FragmentType::X, FragmentType::Xdot,
        FragmentType::Z, FragmentType::Zdot};
    for (qsizetype i = 0; i < 20; ++i)
        EXPECT_EQ(fragments[i].type, expected[i % 10]) << i;
}

TEST(LinearFragments, FlatFragmentsKnowTheirLettersAndPlace)
{
    for (const SimpleFragment& fragment : flatFragments(*peptide(u"GAS"_s))) {
        const bool isLeft = fragment.type <= FragmentType::AB;
        EXPECT_TRUE(isLeft ? u"GAS"_s.startsWith(fragment.sequence)
                           : u"GAS"_s.endsWith(fragment.sequence));
        EXPECT_EQ(fragment.position, isLeft ? 0 : 3 - fragment.sequence.size());
    }
    const auto fragments = flatFragments(*peptide(u"GA"_s));
    EXPECT_EQ(fragments[1].sequence, u"A"_s);
    EXPECT_EQ(fragments[1].position, 1);
    EXPECT_EQ(fragments[11].sequence, u"GA"_s);
    EXPECT_EQ(fragments[11].position, 0);
    EXPECT_EQ(fragments[0].sequence, u"G"_s);
    EXPECT_EQ(fragments[10].sequence, u"GA"_s);
}

TEST(LinearFragments, ResidueWithoutACodeIsANul)
{
    const auto fragments = flatFragments(*peptide(u"Gx"_s));
    EXPECT_EQ(fragments[10].sequence, u"G"_s + QChar(u'\0'));
    EXPECT_EQ(fragments[1].sequence, QString(QChar(u'\0')));
}

TEST(LinearFragments, RichFragmentsLinkIntoTheirComplex)
{
    auto complex = peptide(u"GA"_s);
    const auto fragments = richFragments(*complex);
    const Fragment& b1 = *fragments[0];
    EXPECT_EQ(b1.parentComplex, complex.data());
    ASSERT_EQ(b1.residues.size(), 2);
    EXPECT_EQ(b1.residues[0].toStrongRef(), complex->residues[0]);
    EXPECT_EQ(b1.residues[1].toStrongRef(), complex->residues[1]);
    ASSERT_EQ(b1.sites.size(), 1);
    EXPECT_EQ(b1.sites[0].toStrongRef(), complex->sites[1][0]);
    const Fragment& y1 = *fragments[5];
    EXPECT_EQ(y1.residues[0].toStrongRef(), complex->residues[2]);
    EXPECT_EQ(y1.residues[1].toStrongRef(), complex->residues[3]);

    complex.reset();
    EXPECT_TRUE(b1.residues[0].isNull());
    EXPECT_TRUE(b1.sites[0].isNull());
    EXPECT_EQ(b1.typeLabel, u"b"_s);
    EXPECT_EQ(b1.formula().toString(), u"C2H3NO"_s);
}

TEST(LinearFragments, RichFragmentsHoldAllResiduesOfTheirSide)
{
    const auto complex = peptide(u"GAS"_s);
    for (const auto& fragment : richFragments(*complex)) {
        const bool isLeft = u"abc"_s.contains(fragment->typeLabel.front());
        const qsizetype size = fragment->residues.size();
        const qsizetype start = isLeft ? 0 : complex->residues.size() - size;
        for (qsizetype i = 0; i < size; ++i)
            EXPECT_EQ(fragment->residues[i].toStrongRef(), complex->residues[start + i]);
        const qsizetype breakAt = isLeft ? size - 1 : start;
        ASSERT_EQ(fragment->sites.size(), 1);
        EXPECT_TRUE(complex->sites[breakAt].contains(fragment->sites.first().toStrongRef()));
        EXPECT_EQ(fragment->parentComplex, complex.data());
    }
}

TEST(LinearFragments, RichListGetsRoomForTenIonsAResidue)
{
    EXPECT_GE(richFragments(*peptide(QString(98, u'G'))).capacity(), 1000);
}

// Room for each complex alone would move the whole list at every call.
TEST(LinearFragments, ManyComplexesInOneRichListSeldomMoveIt)
{
    const auto complex = peptide(u"G"_s);
    QList<QSharedPointer<Fragment>> fragments;
    int moves = 0;
    for (int i = 0; i < 1000; ++i) {
        const qsizetype before = fragments.capacity();
        chem::defaultChemicalFactory()->generateLinearFragments(*complex, &fragments);
        moves += fragments.capacity() == before ? 0 : 1;
    }
    EXPECT_EQ(fragments.size(), 10000);
    EXPECT_LT(moves, 40);
}

TEST(LinearFragments, IonsOfOneStepShareTheirResidueLists)
{
    const auto fragments = richFragments(*peptide(u"GA"_s));
    for (const qsizetype first : {0, 5, 10, 15}) {
        for (qsizetype i = first; i < first + 5; ++i)
            EXPECT_EQ(fragments[i]->residues.constData(), fragments[first]->residues.constData());
    }
}

// The light form must not allocate a text for each ion.
TEST(LinearFragments, IonsOfOneSideAndStepShareTheirLetters)
{
    const auto fragments = flatFragments(*peptide(u"GASP"_s));
    QSet<const QChar*> texts;
    for (const SimpleFragment& fragment : fragments)
        texts.insert(fragment.sequence.constData());
    EXPECT_EQ(fragments.size(), 40);
    EXPECT_EQ(texts.size(), 8);
}

TEST(LinearFragments, RichListIsAppendedToAndFlatListReplaced)
{
    const auto complex = peptide(u"GA"_s);
    auto rich = richFragments(*complex);
    chem::defaultChemicalFactory()->generateLinearFragments(*complex, &rich);
    ASSERT_EQ(rich.size(), 40);
    EXPECT_EQ(rich[20]->typeLabel, rich[0]->typeLabel);
    EXPECT_EQ(rich[20]->monoMass(), rich[0]->monoMass());
    auto flat = flatFragments(*complex);
    chem::generateLinearFragments(*complex, flat);
    EXPECT_EQ(flat.size(), 20);
    chem::generateLinearFragments(*peptide(QString()), flat);
    EXPECT_TRUE(flat.isEmpty());
}

TEST(LinearFragments, ComplexWithoutMonomersHasNone)
{
    EXPECT_TRUE(richFragments(*peptide(QString())).isEmpty());
    EXPECT_TRUE(flatFragments(*peptide(QString())).isEmpty());
    for (const int residues : {0, 1}) {
        MoleculeComplex edited = *peptide(QString());
        edited.residues = edited.residues.first(residues);
        edited.sites = edited.sites.first(residues);
        EXPECT_TRUE(richFragments(edited).isEmpty());
        EXPECT_TRUE(flatFragments(edited).isEmpty());
    }
}

TEST(LinearFragments, SitesOfOtherTypesAreSkipped)
{
    MoleculeComplex edited = *peptide(u"GA"_s);
    for (const int type : {13, 17, 99, -1}) {
        edited.sites[1].append(QSharedPointer<FragmentationSite>::create(
            static_cast<FragmentType>(type), Molecule(), Molecule()));
    }
    EXPECT_EQ(richFragments(edited).size(), 20);
    EXPECT_EQ(flatFragments(edited).size(), 20);
}

TEST(LinearFragments, SitesOfATerminalCountForTheRichListAlone)
{
    MoleculeComplex edited = *peptide(u"G"_s);
    edited.sites[2] = edited.sites[1];
    EXPECT_EQ(richFragments(edited).size(), 10 + 10);
    EXPECT_EQ(flatFragments(edited).size(), 10);
}

TEST(LinearFragments, MissingResiduesAddNothing)
{
    MoleculeComplex edited = *peptide(u"GAS"_s);
    edited.residues[2].reset();
    const auto rich = compositions(edited);
    const auto expected = compositions(*peptide(u"G?S"_s));
    EXPECT_EQ(rich, expected);

    const auto flat = flatFragments(edited);
    const auto flatExpected = flatFragments(*peptide(u"G?S"_s));
    ASSERT_EQ(flat.size(), flatExpected.size());
    for (qsizetype i = 0; i < flat.size(); ++i) {
        EXPECT_EQ(flat[i].sequence, flatExpected[i].sequence);
        EXPECT_EQ(flat[i].monoMass, flatExpected[i].monoMass);
        EXPECT_EQ(flat[i].averageMass, flatExpected[i].averageMass);
    }
}

TEST(LinearFragments, MissingTerminalsAddNothing)
{
    MoleculeComplex edited = *peptide(u"G"_s);
    edited.residues.first().reset();
    edited.residues.last().reset();
    const auto rich = compositions(edited);
    EXPECT_EQ(rich.at(u"c1"_s), u"C2H5N2O"_s); // the residue and NH2
    EXPECT_EQ(rich.at(u"y1"_s), u"C2H4NO"_s);  // the residue and H
    const auto flat = flatFragments(edited);
    EXPECT_NEAR(flat[1].monoMass, 57.02146 + 1.00783, 1e-5);
}

TEST(LinearFragments, MissingSitesAreSkipped)
{
    MoleculeComplex edited = *peptide(u"GA"_s);
    edited.sites[1].insert(3, QSharedPointer<FragmentationSite>());
    edited.sites[2].append(QSharedPointer<FragmentationSite>());
    EXPECT_EQ(richFragments(edited).size(), 20);
    EXPECT_EQ(flatFragments(edited).size(), 20);
}

TEST(LinearFragments, ComplexStaysAsItIs)
{
    const auto complex = peptide(u"GA"_s);
    const auto residues = complex->residues;
    const auto sites = complex->sites;
    richFragments(*complex);
    flatFragments(*complex);
    EXPECT_EQ(complex->residues.constData(), residues.constData());
    EXPECT_EQ(complex->sites.constData(), sites.constData());
}

TEST(LinearFragments, FewerSiteListsThanResiduesGiveFewerIons)
{
    MoleculeComplex edited = *peptide(u"GA"_s);
    edited.sites = edited.sites.first(2); // the sites of alanine and of the C-terminus are gone
    EXPECT_EQ(richFragments(edited).size(), 10);
    EXPECT_EQ(flatFragments(edited).size(), 10);
}

TEST(LinearFragments, LastPassOfAnEditedComplexGivesNoRightIons)
{
    MoleculeComplex edited = *peptide(u"G"_s);
    edited.sites[0] = edited.sites[1]; // at the left terminal: left ions at once, right ions never
    EXPECT_EQ(richFragments(edited).size(), 10 + 5);
}

// Oligonucleotides. The compositions are computed by hand from adenine C5H4N5, cytosine C4H4N3O,
// guanine C5H4N5O, deoxyribose C5H7O2, phosphate HPO3 and thioate HPO2S.

TEST(LinearFragments, OligonucleotideIonsHaveTheirCompositions)
{
    const std::map<QString, QString> expected = {
        {u"d1"_s, u"C10H14N5O6P"_s},    {u"b1"_s, u"C10H13N5O3"_s},
        {u"c1"_s, u"C10H12N5O5P"_s},    {u"a1"_s, u"C10H11N5O2"_s},
        {u"aB2"_s, u"C15H18N5O7P"_s},   {u"d2"_s, u"C19H26N8O12P2"_s},
        {u"b2"_s, u"C19H25N8O9P"_s},    {u"c2"_s, u"C19H24N8O11P2"_s},
        {u"a2"_s, u"C19H23N8O8P"_s},    {u"d3"_s, u"C29H37N13O15P2"_s},
        {u"b3"_s, u"C29H37N13O15P2"_s}, {u"c3"_s, u"C29H35N13O14P2"_s},
        {u"a3"_s, u"C29H35N13O14P2"_s}, {u"w1"_s, u"C10H14N5O7P"_s},
        {u"y1"_s, u"C10H13N5O4"_s},     {u"z1"_s, u"C10H11N5O3"_s},
        {u"x1"_s, u"C10H12N5O6P"_s},    {u"w2"_s, u"C19H26N8O13P2"_s},
        {u"y2"_s, u"C19H25N8O10P"_s},   {u"z2"_s, u"C19H23N8O9P"_s},
        {u"x2"_s, u"C19H24N8O12P2"_s},  {u"w3"_s, u"C29H37N13O15P2"_s},
        {u"y3"_s, u"C29H37N13O15P2"_s}, {u"z3"_s, u"C29H35N13O14P2"_s},
        {u"x3"_s, u"C29H35N13O14P2"_s}};
    auto found = compositions(*strand(u"ACG"_s));
    for (const auto& [label, formula] : expected)
        EXPECT_EQ(found[label], formula) << label.toStdString();
    EXPECT_EQ(found.size(), expected.size());
}

TEST(LinearFragments, OligonucleotideHasEightIonsAPositionAndInnerBaseLosses)
{
    for (int length = 1; length <= 6; ++length) {
        const auto complex = strand(u"ACGTQU"_s.first(length));
        const int expected = 8 * length + std::max(0, length - 2);
        EXPECT_EQ(richFragments(*complex).size(), expected);
        EXPECT_EQ(flatFragments(*complex).size(), expected);
    }
}

TEST(LinearFragments, FlatRightIonsTakeTheSitesOfTheMirroredStep)
{
    // The first w of the flat list is that of the last nucleotide with the first nucleotide's
    // sites, which has no phosphate before it; the rich list takes the last nucleotide's own sites.
    const auto complex = strand(u"A*CG"_s);
    const auto flat = flatFragments(*complex);
    const auto firstW =
        std::find_if(flat.cbegin(), flat.cend(), [](const SimpleFragment& fragment) {
            return fragment.type == FragmentType::W;
        });
    const Molecule guanosine = *complex->residues[3] + *complex->residues[4];
    const Molecule hydrogen = chem::defaultChemicalFactory()->constructMolecule(u"H"_s);
    ASSERT_NE(firstW, flat.cend());
    EXPECT_EQ(firstW->sequence, u"G"_s);
    EXPECT_NEAR(firstW->monoMass, guanosine.monoMass() + hydrogen.monoMass(), 1e-9);
    for (const auto& fragment : richFragments(*complex)) {
        if (fragment->typeLabel == u"w" && fragment->residues.size() == 2) {
            EXPECT_NEAR(fragment->monoMass() - firstW->monoMass,
                        chem::defaultChemicalFactory()->constructMolecule(u"HPO3"_s).monoMass(),
                        1e-9);
        }
    }
}

TEST(LinearFragments, GeneratorsReadTextsOfAComplexWithoutCopyingThem)
{
    const auto complex = chem::defaultChemicalFactory()->constructLinearPeptideComplex(u"GA"_s);
    const QString shared = complex->residues[1]->code; // only a shared text would be copied
    const QChar* const characters = shared.constData();
    flatFragments(*complex);
    richFragments(*complex);
    EXPECT_EQ(std::as_const(complex->residues[1]->code).constData(), characters);
}

TEST(LinearFragments, FlatLettersAreTheFirstOfEachCode)
{
    const auto fragments = flatFragments(*strand(u"rA*C+G"_s));
    const auto longest = std::max_element(fragments.cbegin(), fragments.cend(),
                                          [](const SimpleFragment& a, const SimpleFragment& b) {
                                              return a.sequence.size() < b.sequence.size();
                                          });
    EXPECT_EQ(longest->sequence, u"rC+"_s);
}

} // namespace
