#include "TestPrinters.h"
#include <ChemicalFactory.h>
#include <LinearFragments.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

using chem::FragmentType;
using chem::Molecule;
using chem::SimpleFragment;

QSharedPointer<chem::MoleculeComplex> peptide(const QString& sequence)
{
    return chem::defaultChemicalFactory()->constructLinearPeptideComplex(sequence);
}

QSharedPointer<chem::MoleculeComplex> strand(const QString& text)
{
    return chem::defaultChemicalFactory()->constructLinearOligoComplex(text);
}

QList<QSharedPointer<chem::Fragment>> richFragments(const chem::MoleculeComplex& complex)
{
    QList<QSharedPointer<chem::Fragment>> fragments;
    chem::defaultChemicalFactory()->generateLinearFragments(complex, &fragments);
    return fragments;
}

QList<SimpleFragment> flatFragments(const chem::MoleculeComplex& complex)
{
    QList<SimpleFragment> fragments;
    chem::generateLinearFragments(complex, fragments);
    return fragments;
}

/// The compositions of a complex's ions by label and number of monomers, as in "b2".
std::map<QString, QString> compositions(const chem::MoleculeComplex& complex)
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
    // Worked out by hand: glycine residue C2H3NO, alanine residue C3H5NO.
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
    const chem::Fragment& b1 = *fragments[0];
    EXPECT_EQ(b1.parentComplex, complex.data());
    ASSERT_EQ(b1.residues.size(), 2);
    EXPECT_EQ(b1.residues[0].toStrongRef(), complex->residues[0]);
    EXPECT_EQ(b1.residues[1].toStrongRef(), complex->residues[1]);
    ASSERT_EQ(b1.sites.size(), 1);
    EXPECT_EQ(b1.sites[0].toStrongRef(), complex->sites[1][0]);
    const chem::Fragment& y1 = *fragments[5];
    EXPECT_EQ(y1.residues[0].toStrongRef(), complex->residues[2]);
    EXPECT_EQ(y1.residues[1].toStrongRef(), complex->residues[3]);

    complex.reset();
    EXPECT_TRUE(b1.residues[0].isNull());
    EXPECT_TRUE(b1.sites[0].isNull());
    EXPECT_EQ(b1.typeLabel, u"b"_s);
    EXPECT_EQ(b1.formula().toString(), u"C2H3NO"_s);
}

TEST(LinearFragments, RichListIsAppendedToAndFlatListReplaced)
{
    const auto complex = peptide(u"GA"_s);
    auto rich = richFragments(*complex);
    chem::defaultChemicalFactory()->generateLinearFragments(*complex, &rich);
    EXPECT_EQ(rich.size(), 40);
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
        chem::MoleculeComplex edited = *peptide(QString());
        edited.residues = edited.residues.first(residues);
        edited.sites = edited.sites.first(residues);
        EXPECT_TRUE(richFragments(edited).isEmpty());
        EXPECT_TRUE(flatFragments(edited).isEmpty());
    }
}

TEST(LinearFragments, SitesOfOtherTypesAreSkipped)
{
    chem::MoleculeComplex edited = *peptide(u"GA"_s);
    for (const int type : {13, 17, 99, -1}) {
        edited.sites[1].append(QSharedPointer<chem::FragmentationSite>::create(
            static_cast<FragmentType>(type), Molecule(), Molecule()));
    }
    EXPECT_EQ(richFragments(edited).size(), 20);
    EXPECT_EQ(flatFragments(edited).size(), 20);
}

TEST(LinearFragments, FewerSiteListsThanResiduesGiveFewerIons)
{
    chem::MoleculeComplex edited = *peptide(u"GA"_s);
    edited.sites = edited.sites.first(2); // the sites of alanine and of the C-terminus are gone
    EXPECT_EQ(richFragments(edited).size(), 10);
    EXPECT_EQ(flatFragments(edited).size(), 10);
}

TEST(LinearFragments, LastPassOfAnEditedComplexGivesNoRightIons)
{
    chem::MoleculeComplex edited = *peptide(u"G"_s);
    edited.sites[0] = edited.sites[1]; // at the left terminal: left ions at once, right ions never
    EXPECT_EQ(richFragments(edited).size(), 10 + 5);
}

// Oligonucleotides. The compositions are worked out by hand from adenine C5H4N5, cytosine C4H4N3O,
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

TEST(LinearFragments, FlatLettersAreTheFirstOfEachCode)
{
    const auto fragments = flatFragments(*strand(u"rA*C+G"_s));
    const auto longest = std::max_element(fragments.cbegin(), fragments.cend(),
                                          [](const SimpleFragment& a, const SimpleFragment& b) {
                                              return a.sequence.size() < b.sequence.size();
                                          });
    EXPECT_EQ(longest->sequence, u"rC+"_s);
}

// Laws over random chains: each generator against its steps, written down once more.

struct Ion
{
    FragmentType type;
    double averageMass;
    double monoMass;
    qsizetype monomers;

    bool operator==(const Ion& other) const = default;
};

bool isLeft(FragmentType type)
{
    return static_cast<int>(type) >= 0 && static_cast<int>(type) <= 6;
}

std::vector<Ion> ionsByHand(const chem::MoleculeComplex& complex, bool isFlat)
{
    std::vector<Ion> ions;
    const qsizetype monomers = complex.residues.size() - 2;
    Molecule left = Molecule() + *complex.residues.first();
    Molecule right = Molecule() + *complex.residues.last();
    for (qsizetype k = 1; k <= monomers; ++k) {
        const qsizetype mirrored = monomers + 1 - k;
        left += *complex.residues[k];
        right += *complex.residues[mirrored];
        const auto add = [&](const chem::FragmentationSite& site) {
            const Molecule ion = (isLeft(site.type) ? left : right) + site.delta;
            ions.push_back({site.type, ion.averageMass(), ion.monoMass(), k});
        };
        for (const auto& site : complex.sites[k]) {
            if (isFlat || isLeft(site->type))
                add(*site);
        }
        for (const auto& site : complex.sites[mirrored]) {
            if (!isFlat && !isLeft(site->type))
                add(*site);
        }
    }
    return ions;
}

QSharedPointer<chem::MoleculeComplex> randomComplex()
{
    const bool isPeptide = *rc::gen::arbitrary<bool>();
    const QStringList units =
        isPeptide ? u"A C D E G x"_s.split(u' ') : u"A rC* dG 12.5 +T. mU"_s.split(u' ');
    QString text;
    for (const int index :
         *rc::gen::nonEmpty(rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 6))))
        text += units[index];
    return isPeptide ? peptide(text) : strand(text);
}

RC_GTEST_PROP(FragmentLaws, RichIonsHaveTheBitsOfTheirSteps, ())
{
    const auto complex = randomComplex();
    std::vector<Ion> ions;
    for (const auto& fragment : richFragments(*complex)) {
        ions.push_back({fragment->sites.first().toStrongRef()->type, fragment->averageMass(),
                        fragment->monoMass(), fragment->residues.size() - 1});
    }
    RC_ASSERT(ions == ionsByHand(*complex, false));
}

RC_GTEST_PROP(FragmentLaws, FlatIonsHaveTheBitsOfTheirSteps, ())
{
    const auto complex = randomComplex();
    std::vector<Ion> ions;
    for (const SimpleFragment& fragment : flatFragments(*complex)) {
        ions.push_back(
            {fragment.type, fragment.averageMass, fragment.monoMass, fragment.sequence.size()});
    }
    RC_ASSERT(ions == ionsByHand(*complex, true));
}

RC_GTEST_PROP(FragmentLaws, ComplementaryPeptideIonsAddUpToThePeptide, ())
{
    const QString letters = u"ACDEFGHIKLMNPQRSTVWY"_s;
    QString sequence;
    for (const int index :
         *rc::gen::nonEmpty(rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 20))))
        sequence += letters[index];
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
