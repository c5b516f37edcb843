#include "FragmentIons.h"
#include "Peptidoforms.h"
#include "ProFormaExamples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

Parsed<Backbone> backboneOf(const QString& text)
{
    return peptidoform(text).backbone(0, naturalResidues(), standardModifications());
}

QStringList labelsOf(const QString& text, const IonOptions& options = {})
{
    const Parsed<Backbone> backbone = backboneOf(text);
    EXPECT_TRUE(backbone.hasValue()) << text.toStdString();
    FragmentIons ions;
    EXPECT_FALSE(ions.assign(*backbone, options));
    QStringList labels;
    for (qsizetype i = 0; i < std::ssize(ions.mz()); ++i)
        labels.append(ions.label(*backbone, i));
    return labels;
}

/// The m/z of all ions with a label, in the order of the list.
std::vector<double> ionsOf(const QString& text, const QString& label,
                           const IonOptions& options = {})
{
    const Parsed<Backbone> backbone = backboneOf(text);
    EXPECT_TRUE(backbone.hasValue())
        << text.toStdString() << ": " << (backbone ? "" : backbone.error().message.toStdString());
    FragmentIons ions;
    EXPECT_FALSE(ions.assign(*backbone, options));
    std::vector<double> all;
    for (qsizetype i = 0; i < std::ssize(ions.mz()); ++i) {
        if (ions.label(*backbone, i) == label)
            all.push_back(ions.mz()[std::size_t(i)]);
    }
    return all;
}

double ion(const QString& text, const QString& label, const IonOptions& options = {})
{
    const std::vector<double> all = ionsOf(text, label, options);
    EXPECT_EQ(all.size(), 1u) << text.toStdString() << " " << label.toStdString();
    return all.empty() ? 0.0 : all.front();
}

constexpr double exact = 1e-6;
constexpr double phospho = 79.9663305;

TEST(PeptidoformBackbone, WeighsWhatThePeptidoformWeighs)
{
    int compared = 0;
    for (const ProFormaExample& example : proFormaExamples()) {
        const Parsed<Peptidoform> whole = Peptidoform::read(wholeText(example));
        if (!whole)
            continue;
        if (!whole->backbone(0, naturalResidues(), standardModifications()))
            continue;
        EXPECT_EQ(lawBrokenByBackbone(*whole, 0), nullptr) << example.text.toStdString();
        ++compared;
    }
    EXPECT_GT(compared, 60);
}

TEST(PeptidoformBackbone, IonsHoldTheModificationsOfTheirResiduesAndEnd)
{
    const double b2 = ion(u"PEPTIDE"_s, u"b2"_s);
    EXPECT_NEAR(b2, 227.102634, exact);
    EXPECT_NEAR(ion(u"PE[Phospho]PTIDE"_s, u"b2"_s), b2 + phospho, exact);
    EXPECT_NEAR(ion(u"PEP[Phospho]TIDE"_s, u"b2"_s), b2, exact);
    EXPECT_NEAR(ion(u"[+10][+1]-PEPTIDE"_s, u"b2"_s), b2 + 11, exact);
    EXPECT_NEAR(ion(u"PEPTIDE-[+10]"_s, u"b2"_s), b2, exact);
    EXPECT_NEAR(ion(u"PEPTIDE-[+10]"_s, u"y1"_s), ion(u"PEPTIDE"_s, u"y1"_s) + 10, exact);
    EXPECT_NEAR(ion(u"<[+5]@E>PEPTIDE"_s, u"b2"_s), b2 + 5, exact);
}

TEST(PeptidoformBackbone, IsotopesReachEveryIonAndNoProton)
{
    // y1 of glycine is G + H2O + proton, its carbons heavy.
    EXPECT_NEAR(ion(u"<13C>AG"_s, u"y1"_s), 76.039304 + 2 * 1.0033548, exact);
    IonOptions options;
    options.series = {Series::A};
    // a1 of alanine has lost CO, whose carbon is heavy as well.
    EXPECT_NEAR(ion(u"<13C>AG"_s, u"a1"_s, options), 44.049476 + 2 * 1.0033548, exact);
}

TEST(PeptidoformBackbone, LabileModificationsAreInThePrecursorOnly)
{
    EXPECT_NEAR(ion(u"{Glycan:Hex}PEPTIDE"_s, u"b2"_s), 227.102634, exact);
    IonOptions options;
    options.series = {Series::Precursor};
    const std::vector<double> both = ionsOf(u"{Glycan:Hex}PEPTIDE"_s, u"p"_s, options);
    ASSERT_EQ(both.size(), 2u);
    EXPECT_NEAR(std::abs(both[0] - both[1]), 162.052823, exact);
}

TEST(PeptidoformBackbone, IonsOfTheExamplesHaveCompositions)
{
    int compared = 0;
    for (const ProFormaExample& example : proFormaExamples()) {
        const Parsed<Peptidoform> read = Peptidoform::read(wholeText(example));
        for (qsizetype ion = 0; read && ion < std::ssize(read->ions); ++ion) {
            EXPECT_EQ(lawBrokenByIonCompositions(*read, ion), nullptr)
                << example.text.toStdString();
            ++compared;
        }
    }
    EXPECT_GT(compared, 100);
}

TEST(PeptidoformBackbone, IonsOfModifiedAndLabelledPeptidesHaveTheirAtoms)
{
    const auto composition = [](const QString& text, const QString& label) {
        const Backbone backbone = backboneOf(text).value();
        IonOptions options;
        options.series = {Series::B, Series::Y, Series::Precursor};
        FragmentIons ions;
        EXPECT_FALSE(ions.assign(backbone, options));
        for (qsizetype i = 0; i < std::ssize(ions.mz()); ++i) {
            if (ions.label(backbone, i) != label)
                continue;
            const auto ion = ions.composition(backbone, naturalResidues(), i);
            return ion ? ion->neutral.toString() : ion.error().message;
        }
        return QString();
    };
    EXPECT_EQ(composition(u"EM[Oxidation]K"_s, u"b2"_s), u"C10H16N2O5S"_s);
    EXPECT_EQ(composition(u"[Acetyl]-GG-[Amidated]"_s, u"b1"_s), u"C4H5NO2"_s);
    EXPECT_EQ(composition(u"[Acetyl]-GG-[Amidated]"_s, u"y1"_s), u"C2H6N2O"_s);
    EXPECT_EQ(composition(u"<13C>GG"_s, u"p"_s), u"[13C4]H8N2O3"_s);
    EXPECT_EQ(composition(u"{Glycan:Hex}GG"_s, u"p"_s), u"C10H18N2O8"_s);
    EXPECT_EQ(composition(u"[Phospho]?GG"_s, u"p"_s), u"C4H9N2O6P"_s);
    // Zinc with two charges takes the place of two hydrogens.
    EXPECT_EQ(composition(u"G[Formula:Zn:z+2]G"_s, u"b1"_s), u"C2HNOZn"_s);
    EXPECT_EQ(composition(u"K[X:DSS#XL1]G//K[#XL1]"_s, u"p"_s), u"C22H41N5O7"_s);
    EXPECT_TRUE(composition(u"G[+1]G"_s, u"b1"_s).contains(u"known composition"_s));
    EXPECT_EQ(composition(u"G[+1]G"_s, u"y1"_s), u"C2H5NO2"_s);
}

TEST(PeptidoformBackbone, OpenModificationsComeBothWays)
{
    const double b2 = ion(u"ASAS"_s, u"b2"_s);
    for (const QString& text :
         {u"AS[Phospho#g1]AS[#g1]"_s, u"AS[#g1]AS[Phospho#g1]"_s, u"[Phospho|Position:S]?ASAS"_s,
          u"[Phospho#g1]?AS[#g1]AS[#g1]"_s, u"A(SAS)[Phospho]"_s, u"[Phospho]?ASAS"_s}) {
        const std::vector<double> ways = ionsOf(text, u"b2"_s);
        ASSERT_EQ(ways.size(), 2u) << text.toStdString();
        EXPECT_NEAR(ways[0], b2, exact);
        EXPECT_NEAR(ways[1], b2 + phospho, exact);
        const bool isAnywhere = text.startsWith(u"[Phospho]?");
        EXPECT_EQ(ionsOf(text, u"b1"_s).size(), isAnywhere ? 2u : 1u) << text.toStdString();
    }
}

TEST(PeptidoformBackbone, OpenModificationsSitBesideKnownOnesOnlyWhereTheTextSaysSo)
{
    EXPECT_EQ(ionsOf(u"[Phospho]?AS[+1]A"_s, u"b1"_s).size(), 2u);
    EXPECT_EQ(ionsOf(u"[Phospho|Position:S]?AS[+1]AS"_s, u"b2"_s).size(), 1u);
    EXPECT_EQ(ionsOf(u"[Phospho|Position:S|CoMKP]?AS[+1]AS"_s, u"b2"_s).size(), 2u);
    EXPECT_EQ(ionsOf(u"<[+1]@S>[Phospho|Position:S,N-term]?ASAS"_s, u"b1"_s).size(), 1u);
    const Parsed<Backbone> none = backboneOf(u"[Phospho|Position:S]?AS[+1]A"_s);
    ASSERT_FALSE(none.hasValue());
    EXPECT_EQ(none.error().position, 0);
    EXPECT_TRUE(none.error().message.contains(u"a place"_s));
}

TEST(PeptidoformBackbone, AnIonOfOneSideOfALinkCarriesTheOtherSide)
{
    const QString linked = u"SEK[X:DSS#XL1]UENCE//EMEVTK[#XL1]SESPEK"_s;
    const double other = monoisotopic(u"EMEVTKSESPEK"_s) + 138.0680796;
    EXPECT_NEAR(ion(linked, u"1:b3"_s), ion(u"SEKUENCE"_s, u"b3"_s) + other, 1e-5);
    EXPECT_NEAR(ion(linked, u"1:b2"_s), ion(u"SEKUENCE"_s, u"b2"_s), 1e-5);
    // Inside a loop no cut parts the molecule.
    QStringList labels = labelsOf(u"AC[X:Disulfide#XL1]AC[#XL1]A"_s);
    labels.sort();
    EXPECT_EQ(labels, (QStringList{u"b1"_s, u"b4"_s, u"y1"_s, u"y4"_s}));
}

TEST(PeptidoformBackbone, BranchesAreLinks)
{
    const QString branched = u"ETFGD[U:Dehydrated#BRANCH]A//R[#BRANCH]ATER"_s;
    const double other = monoisotopic(u"RATER"_s) - 18.0105647;
    EXPECT_NEAR(ion(branched, u"1:b5"_s), ion(u"ETFGDA"_s, u"b5"_s) + other, 1e-5);
}

TEST(PeptidoformBackbone, IonsLoseWhatTheirModificationsLose)
{
    const double b2 = ion(u"AS[Phospho]AG"_s, u"b2"_s);
    EXPECT_NEAR(ion(u"AS[Phospho]AG"_s, u"b2-H3O4P"_s), b2 - 97.9768957, exact);
    EXPECT_TRUE(ionsOf(u"AS[Phospho]AG"_s, u"b1-H3O4P"_s).empty());
    EXPECT_TRUE(ionsOf(u"AY[Phospho]AG"_s, u"b2-H3O4P"_s).empty());
}

/// m/z that searches for labelled and modified peptides look for.
TEST(PeptidoformBackbone, IonsOfLabelsAndModificationsAreThePublishedOnes)
{
    constexpr double published = 1e-4;
    EXPECT_NEAR(ion(u"AGK[Label:13C(6)15N(2)]"_s, u"y1"_s), 155.1270, published);
    EXPECT_NEAR(ion(u"AGR[Label:13C(6)15N(4)]"_s, u"y1"_s), 185.1272, published);
    EXPECT_NEAR(ion(u"<[TMT6plex]@K,N-term>AGK"_s, u"y1"_s), 376.2757, published);
    EXPECT_NEAR(ion(u"AGF-[Amidated]"_s, u"y1"_s), 165.1022, published);
    IonOptions options;
    options.series = {Series::Immonium};
    EXPECT_NEAR(ion(u"AY[Phospho]G"_s, u"IY"_s, options), 216.0420, published);
}

TEST(PeptidoformBackbone, ChargesOnTheMoleculeCountAmongThoseOfIons)
{
    IonOptions options;
    options.series = {Series::Precursor};
    options.charges = {4};
    EXPECT_NEAR(ion(u"PEPT[Formula:Zn:z+2]IDE"_s, u"p^4"_s, options),
                mz(u"PEPT[Formula:Zn:z+2]IDE/2"_s), exact);
}

TEST(PeptidoformBackbone, UnknownOrderOfUnequalResiduesIsRefused)
{
    EXPECT_TRUE(backboneOf(u"A(?N)GA(?AA)A(?IL)"_s).hasValue());
    const Parsed<Backbone> unknown = backboneOf(u"AA(?DQ)NGT"_s);
    ASSERT_FALSE(unknown.hasValue());
    EXPECT_EQ(unknown.error().position, 4);
    EXPECT_EQ(unknown.error().residue, 2);
    EXPECT_FALSE(backboneOf(u"A(?AA[+1])"_s).hasValue());
}

TEST(PeptidoformBackbone, MorePlacesThanAnyoneCanListAreRefused)
{
    EXPECT_FALSE(backboneOf(u"[Phospho]^2000000000?AA"_s).hasValue());
    EXPECT_FALSE(backboneOf(u"A[no such]"_s).hasValue());
    EXPECT_FALSE(
        peptidoform(u"A"_s).backbone(1, naturalResidues(), standardModifications()).hasValue());
}

} // namespace

} // namespace ions
