#include "RandomComplexes.h"
#include "TestPrinters.h"

#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <tuple>
#include <type_traits>
#include <vector>

using namespace Qt::StringLiterals;
using namespace randomComplexes;

namespace {

using chem::FragmentationSite;
using chem::FragmentType;
using chem::MoleculeComplex;
using chem::SimpleFragment;
using randomMolecules::molecule;

static_assert(std::is_copy_constructible_v<SimpleFragment>);
static_assert(std::is_copy_assignable_v<SimpleFragment>);
static_assert(std::is_nothrow_move_constructible_v<SimpleFragment>);
static_assert(std::is_nothrow_move_assignable_v<SimpleFragment>);
static_assert(sizeof(SimpleFragment::position) == 4);

TEST(LinearFragments, FlatFragmentStartsUnknownAndEmpty)
{
    const SimpleFragment fragment;
    EXPECT_EQ(fragment.averageMass, 0.0);
    EXPECT_EQ(fragment.monoMass, 0.0);
    EXPECT_TRUE(fragment.sequence.isNull());
    EXPECT_EQ(fragment.type, FragmentType::Unknown);
    EXPECT_EQ(fragment.position, 0);
}

/// The m/z of the singly charged ions of one type, from a number of monomers on.
struct Series
{
    QString peptide;
    FragmentType type;
    qsizetype firstNumber;
    QList<double> peaks;
};

// PEPTIDE is the example of textbooks, and the y ions of the other peptide are what quadrupole
// time-of-flight instruments are calibrated with.
TEST(LinearFragments, NeutralIonsOfKnownPeptidesWeighAProtonLessThanTheirPeaks)
{
    const QList<Series> known = {
        {u"PEPTIDE"_s, FragmentType::B, 2, {227.1026, 324.1554, 425.2031, 538.2871, 653.3141}},
        {u"PEPTIDE"_s,
         FragmentType::Y,
         1,
         {148.0604, 263.0874, 376.1714, 477.2191, 574.2719, 703.3145}},
        {u"EGVNDNEEGFFSAR"_s,
         FragmentType::Y,
         1,
         {175.1190, 246.1561, 333.1881, 480.2565, 627.3249, 684.3464, 813.3890, 942.4316, 1056.4745,
          1171.5014, 1285.5444}}};
    for (const Series& series : known) {
        QMap<qsizetype, double> masses;
        for (const SimpleFragment& ion : flatFragments(*peptide(series.peptide))) {
            if (ion.type == series.type)
                masses[ion.sequence.size()] = ion.monoMass;
        }
        for (qsizetype i = 0; i < series.peaks.size(); ++i)
            EXPECT_NEAR(masses[series.firstNumber + i] + 1.00727646, series.peaks[i], 1e-4)
                << series.peptide.toStdString() << ' ' << series.firstNumber + i;
    }
}

/// Both generators give so many.
void expectIons(const MoleculeComplex& complex, qsizetype number)
{
    EXPECT_EQ(richFragments(complex).size(), number);
    EXPECT_EQ(flatFragments(complex).size(), number);
}

TEST(LinearFragments, PeptideHasTenIonsForEachResidue)
{
    for (int length = 0; length <= 20; ++length)
        expectIons(*peptide(QString(length, u'P')), 10 * length);
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
    QStringList left;
    QStringList right;
    for (const SimpleFragment& ion : flatFragments(*peptide(u"GAS"_s))) {
        if (ion.type == FragmentType::B)
            left.append(ion.sequence + QString::number(ion.position));
        if (ion.type == FragmentType::Y)
            right.append(ion.sequence + QString::number(ion.position));
    }
    EXPECT_EQ(left, QStringList({u"G0"_s, u"GA0"_s, u"GAS0"_s}));
    EXPECT_EQ(right, QStringList({u"S2"_s, u"AS1"_s, u"GAS0"_s}));
}

TEST(LinearFragments, ResidueWithoutACodeIsANul)
{
    const auto fragments = flatFragments(*peptide(u"Gx"_s));
    EXPECT_EQ(fragments[10].sequence, u"G"_s + QChar(u'\0'));
    EXPECT_EQ(fragments[1].sequence, QString(QChar(u'\0')));
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

TEST(LinearFragments, FlatListIsReplaced)
{
    QList<SimpleFragment> fragments = flatFragments(*peptide(u"GA"_s));
    chem::generateLinearFragments(*peptide(u"GA"_s), fragments);
    EXPECT_EQ(fragments.size(), 20);
    chem::generateLinearFragments(*peptide(QString()), fragments);
    EXPECT_TRUE(fragments.isEmpty());
}

TEST(LinearFragments, ComplexWithoutMonomersHasNone)
{
    for (const int residues : {0, 1, 2}) {
        MoleculeComplex edited = *peptide(QString());
        edited.residues = edited.residues.first(residues);
        edited.sites = edited.sites.first(residues);
        expectIons(edited, 0);
    }
    expectIons(*naturalFactory().constructLinearOligoComplex({}, {}, {}), 0);
}

TEST(LinearFragments, SitesOfATerminalCountForTheRichListAlone)
{
    MoleculeComplex edited = *peptide(u"G"_s);
    edited.sites[2] = edited.sites[1];
    EXPECT_EQ(richFragments(edited).size(), 10 + 10);
    EXPECT_EQ(flatFragments(edited).size(), 10);
}

/// The compositions of a complex's ions, as in "b C2H3NO".
QStringList compositions(const MoleculeComplex& complex)
{
    QStringList found;
    for (const auto& fragment : richFragments(complex))
        found.append(fragment->typeLabel + u' ' + fragment->formula().toString());
    return found;
}

void expectSameIons(const QList<SimpleFragment>& ions, const QList<SimpleFragment>& expected)
{
    ASSERT_EQ(ions.size(), expected.size());
    for (qsizetype i = 0; i < ions.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(ions[i].type, expected[i].type);
        EXPECT_EQ(ions[i].sequence, expected[i].sequence);
        EXPECT_EQ(ions[i].position, expected[i].position);
        EXPECT_EQ(ions[i].monoMass, expected[i].monoMass);
        EXPECT_EQ(ions[i].averageMass, expected[i].averageMass);
    }
}

TEST(LinearFragments, MissingResiduesAddNothing)
{
    MoleculeComplex edited = *peptide(u"GAS"_s);
    edited.residues[2].reset();
    const auto expected = peptide(u"G?S"_s);
    EXPECT_EQ(compositions(edited), compositions(*expected));
    expectSameIons(flatFragments(edited), flatFragments(*expected));
}

TEST(LinearFragments, MissingTerminalsAddNothing)
{
    MoleculeComplex edited = *peptide(u"G"_s);
    edited.residues.first().reset();
    edited.residues.last().reset();
    EXPECT_TRUE(compositions(edited).contains(u"c C2H5N2O"_s)); // the residue and NH2
    EXPECT_TRUE(compositions(edited).contains(u"y C2H4NO"_s));  // the residue and H
    const auto flat = flatFragments(edited);
    EXPECT_NEAR(flat[1].monoMass, 57.02146 + 1.00783, 1e-5);
}

TEST(LinearFragments, MissingSitesAreSkipped)
{
    MoleculeComplex edited = *peptide(u"GA"_s);
    edited.sites[1].insert(3, QSharedPointer<FragmentationSite>());
    edited.sites[2].append(QSharedPointer<FragmentationSite>());
    expectIons(edited, 20);
}

TEST(LinearFragments, FewerSiteListsThanResiduesGiveFewerIons)
{
    MoleculeComplex edited = *peptide(u"GA"_s);
    edited.sites = edited.sites.first(2); // the sites of alanine and of the C-terminus are gone
    expectIons(edited, 10);
}

TEST(LinearFragments, OligonucleotideHasEightIonsAPositionAndInnerBaseLosses)
{
    for (int length = 1; length <= 30; ++length)
        expectIons(*strand(u"ACGTQU"_s.repeated(5).first(length)),
                   8 * length + std::max(0, length - 2));
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

// Oligonucleotides. Right ions take the sites of the mirrored position, so the first w and x lack
// the phosphate that stands before the last nucleotide, and the last ones have it on top of the
// whole. Compositions are computed by hand.

/// Ions as in "d A 0 C10H14N5O6P": label, letters, position, and the composition of the mass.
void expectIonsOf(const QString& text, const QStringList& expected)
{
    const auto ions = flatFragments(*strand(text));
    ASSERT_EQ(ions.size(), expected.size());
    for (qsizetype i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(expected[i].toStdString());
        const QStringList parts = expected[i].split(u' ');
        const chem::Molecule ion = molecule(parts[3]);
        EXPECT_EQ(chem::ChemicalFactory::typeToString(ions[i].type), parts[0]);
        EXPECT_EQ(ions[i].sequence, parts[1]);
        EXPECT_EQ(QString::number(ions[i].position), parts[2]);
        EXPECT_NEAR(ions[i].monoMass, ion.monoMass(), 1e-9);
        EXPECT_NEAR(ions[i].averageMass, ion.averageMass(), 1e-9);
    }
}

TEST(LinearFragments, FlatIonsTakeTheSitesOfTheMirroredPosition)
{
    expectIonsOf(u"AT"_s,
                 {u"d A 0 C10H14N5O6P"_s, u"b A 0 C10H13N5O3"_s, u"c A 0 C10H12N5O5P"_s,
                  u"a A 0 C10H11N5O2"_s, u"w T 1 C10H14N2O5"_s, // rich: C10H15N2O8P
                  u"y T 1 C10H14N2O5"_s, u"z T 1 C10H12N2O4"_s,
                  u"x T 1 C10H12N2O4"_s, // rich: C10H13N2O7P
                  u"d AT 0 C20H26N7O10P"_s, u"b AT 0 C20H26N7O10P"_s, u"c AT 0 C20H24N7O9P"_s,
                  u"a AT 0 C20H24N7O9P"_s, u"w AT 0 C20H27N7O13P2"_s, // rich: C20H26N7O10P
                  u"y AT 0 C20H26N7O10P"_s, u"z AT 0 C20H24N7O9P"_s,
                  u"x AT 0 C20H25N7O12P2"_s}); // rich: C20H24N7O9P
}

TEST(LinearFragments, FlatIonsOfModifiedNucleotidesMeetOtherPhosphates)
{
    expectIonsOf(
        u"rA*mCG"_s,
        {u"d r 0 C10H14N5O6PS"_s,      u"b r 0 C10H13N5O4"_s,        u"c r 0 C10H12N5O5PS"_s,
         u"a r 0 C10H11N5O3"_s,        u"w G 2 C10H13N5O4"_s, // no phosphate
         u"y G 2 C10H13N5O4"_s,        u"z G 2 C10H11N5O3"_s,        u"x G 2 C10H11N5O3"_s,
         u"aB rm 0 C16H20N5O8PS"_s,    u"d rm 0 C20H28N8O13P2S"_s,   u"b rm 0 C20H27N8O10PS"_s,
         u"c rm 0 C20H26N8O12P2S"_s,   u"a rm 0 C20H25N8O9PS"_s,
         u"w mG 1 C20H28N8O13P2S"_s, // the same place
         u"y mG 1 C20H27N8O11P"_s,     u"z mG 1 C20H25N8O10P"_s,     u"x mG 1 C20H26N8O12P2S"_s,
         u"d rmG 0 C30H39N13O16P2S"_s, u"b rmG 0 C30H39N13O16P2S"_s, u"c rmG 0 C30H37N13O15P2S"_s,
         u"a rmG 0 C30H37N13O15P2S"_s,
         u"w rmG 0 C30H40N13O19P3S"_s, // HPO3 on top
         u"y rmG 0 C30H39N13O16P2S"_s, u"z rmG 0 C30H37N13O15P2S"_s, u"x rmG 0 C30H38N13O18P3S"_s});
}

// Laws. Each ion is computed from scratch.

SimpleFragment ionByHand(const MoleculeComplex& complex, const FragmentationSite& site,
                         qsizetype breakAt, bool isFromLeft)
{
    SimpleFragment ion;
    const qsizetype last = complex.residues.size() - 1;
    for (const qsizetype position : positionsTo(breakAt, isFromLeft ? 0 : last)) {
        const chem::ComplexResidue& residue = *complex.residues[position];
        ion.averageMass += residue.averageMass();
        ion.monoMass += residue.monoMass();
        const QChar letter = residue.code.isEmpty() ? QChar(u'\0') : residue.code[0];
        if (position > 0 && position < last)
            ion.sequence.insert(isFromLeft ? ion.sequence.size() : 0, letter);
    }
    ion.averageMass += site.delta.averageMass();
    ion.monoMass += site.delta.monoMass();
    ion.type = site.type;
    ion.position = static_cast<int>(isFromLeft ? 0 : breakAt - 1);
    return ion;
}

QList<SimpleFragment> ionsByHand(const MoleculeComplex& complex)
{
    QList<SimpleFragment> ions;
    const qsizetype last = complex.residues.size() - 1;
    for (qsizetype position = 1; position < last; ++position) {
        for (const auto& site : complex.sites[position]) {
            if (isLeft(site->type))
                ions.append(ionByHand(complex, *site, position, true));
            else if (isRight(site->type))
                ions.append(ionByHand(complex, *site, last - position, false));
        }
    }
    return ions;
}

RC_GTEST_PROP(LinearFragmentsLaws, FlatIonsHaveTheBitsOfTheirSums, ())
{
    const auto complex = anyComplex();
    const QList<SimpleFragment> ions = flatFragments(*complex);
    const QList<SimpleFragment> expected = ionsByHand(*complex);
    RC_ASSERT(ions.size() == expected.size());
    for (qsizetype i = 0; i < ions.size(); ++i) {
        RC_ASSERT(ions[i].type == expected[i].type);
        RC_ASSERT(ions[i].sequence == expected[i].sequence);
        RC_ASSERT(ions[i].position == expected[i].position);
        RC_ASSERT(ions[i].monoMass == expected[i].monoMass);
        RC_ASSERT(ions[i].averageMass == expected[i].averageMass);
    }
}

RC_GTEST_PROP(LinearFragmentsLaws, BothGeneratorsAgreeOnPeptides, ())
{
    using Ion = std::tuple<QString, qsizetype, double, double>;
    const auto complex = peptide(anyPeptide());
    std::vector<Ion> rich;
    const auto richList = richFragments(*complex);
    for (const auto& fragment : richList) {
        rich.emplace_back(fragment->typeLabel, fragment->residues.size() - 1,
                          fragment->averageMass(), fragment->monoMass());
    }
    std::vector<Ion> flat;
    const auto flatList = flatFragments(*complex);
    for (const SimpleFragment& fragment : flatList) {
        flat.emplace_back(chem::ChemicalFactory::typeToString(fragment.type),
                          fragment.sequence.size(), fragment.averageMass, fragment.monoMass);
    }
    std::sort(rich.begin(), rich.end());
    std::sort(flat.begin(), flat.end());
    RC_ASSERT((rich == flat));
}

RC_GTEST_PROP(LinearFragmentsLaws, ComplementaryPeptideIonsAddUpToThePeptide, ())
{
    const QString sequence = anyPeptide();
    const auto complex = peptide(sequence);
    std::map<qsizetype, double> b;
    std::map<qsizetype, double> y;
    for (const SimpleFragment& fragment : flatFragments(*complex)) {
        if (fragment.type == FragmentType::B)
            b[fragment.sequence.size()] = fragment.monoMass;
        if (fragment.type == FragmentType::Y)
            y[fragment.sequence.size()] = fragment.monoMass;
    }
    for (qsizetype i = 1; i < sequence.size(); ++i)
        RC_ASSERT(std::abs(b[i] + y[sequence.size() - i] - complex->monoMass()) < 1e-6);
}

} // namespace
