#include "FragmentIons.h"
#include "Peptidoforms.h"
#include "ProFormaExamples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <set>
#include <vector>

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

IonOptions bSeries()
{
    IonOptions options;
    options.series = {Series::B};
    options.hasGroupLosses = false;
    return options;
}

bool hasIon(const QString& text, const QString& label)
{
    return !ionsOf(text, label).empty();
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
    const QString text = u"{Glycan:Hex}PEPTIDE"_s;
    EXPECT_NEAR(ion(text, u"p"_s, options) - ion(text, u"p-[Hex]"_s, options), 162.052823, exact);
    EXPECT_EQ(labelsOf(u"{Glycan:Hex}{Phospho}{+1.5}A[Oxidation]G"_s, options),
              (QStringList{u"p"_s, u"p-[Hex]-[Phospho]-[+1.5]"_s}));
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
        EXPECT_NEAR(ion(text, u"b2"_s), b2, exact);
        EXPECT_NEAR(ion(text, u"b2+[Phospho]"_s), b2 + phospho, exact);
        const bool isAnywhere = text.startsWith(u"[Phospho]?");
        EXPECT_EQ(hasIon(text, u"b1+[Phospho]"_s), isAnywhere) << text.toStdString();
    }
}

TEST(PeptidoformBackbone, LabelsTellIonsOfDifferentMassApart)
{
    IonOptions options;
    options.series = {Series::A,         Series::B,        Series::Y,       Series::ZDot,
                      Series::Precursor, Series::Immonium, Series::Internal};
    options.hydrogens = {0, 1};
    options.losses = {LossRule::read(u"H2O", naturalResidues().atoms()).value()};
    for (const QString& text :
         {u"M[Oxidation]AM"_s, u"[Acetyl]-K[Acetyl]AK"_s, u"[Phospho]^2?[Oxidation]?MSMSTK"_s,
          u"{Glycan:Hex}{Phospho}MAS[Phospho]S"_s, u"C[+57.02]AC[+57.03]"_s,
          u"A[Formula:CH2]AK[#XLMOD]A"_s, u"AK[X:DSS#XL1]AAK"_s, u"(STYM)[Phospho]AS[Phospho]"_s,
          u"C[Carbamidomethyl][+1]AC[Carbamidomethyl]"_s, u"[Phospho#g1]?S[#g1]AS[#g1]M[+3]"_s}) {
        const Parsed<Backbone> backbone = backboneOf(text);
        FragmentIons ions;
        if (!backbone || ions.assign(*backbone, options))
            continue;
        std::map<QString, double> labelled;
        for (qsizetype i = 0; i < std::ssize(ions.mz()); ++i) {
            const QString label = ions.label(*backbone, i);
            const double mz = ions.mz()[std::size_t(i)];
            const double known = labelled.emplace(label, mz).first->second;
            EXPECT_NEAR(known, mz, exact) << text.toStdString() << " " << label.toStdString();
        }
    }
    EXPECT_EQ(labelsOf(u"[Phospho]^2?STS"_s, bSeries()),
              (QStringList{u"b1"_s, u"b1+[Phospho]"_s, u"b2"_s, u"b2+[Phospho]"_s}));
}

TEST(PeptidoformBackbone, OpenModificationsShareAResidueOnlyWhereTheTextSaysSo)
{
    // Two on three residues: one of them is on any two.
    EXPECT_FALSE(hasIon(u"[Phospho]^2?STS"_s, u"b1+2[Phospho]"_s));
    EXPECT_NEAR(ion(u"[Phospho]^2?STS"_s, u"b2"_s), ion(u"STS"_s, u"b2"_s) + phospho, exact);
    EXPECT_TRUE(hasIon(u"[Phospho|Limit:2]^2?STS"_s, u"b1+2[Phospho]"_s));
    EXPECT_FALSE(hasIon(u"[Phospho|Limit:2]^3?STS"_s, u"b1+3[Phospho]"_s));
    EXPECT_TRUE(hasIon(u"[Phospho|Limit:2147483647]^3?STS"_s, u"b1+3[Phospho]"_s));
    EXPECT_TRUE(hasIon(u"[Phospho|CoMUP]^2?STS"_s, u"b1+2[Phospho]"_s));
    const QString both = u"b1+[Phospho]+[Oxidation]"_s;
    EXPECT_FALSE(hasIon(u"[Phospho]?[Oxidation]?STS"_s, both));
    EXPECT_TRUE(hasIon(u"[Phospho]?[Oxidation]?STS"_s, u"b2+[Phospho]+[Oxidation]"_s));
    EXPECT_TRUE(hasIon(u"[Phospho|CoMUP]?[Oxidation|CoMUP]?STS"_s, both));
    // More than there are places for: nothing can keep them apart.
    EXPECT_TRUE(hasIon(u"[Phospho|Position:S]^3?STS"_s, u"b1+3[Phospho]"_s));
    EXPECT_TRUE(hasIon(u"[Phospho]^2?[Oxidation]^2?STS"_s, both));
}

/// The masses of b ions by trying all ways to put groups on residues, one on each at most.
std::map<qsizetype, std::set<qint64>> triedOut(const std::vector<double>& groups, qsizetype size,
                                               double residue)
{
    std::map<qsizetype, std::set<qint64>> masses;
    std::vector<std::size_t> places(static_cast<std::size_t>(size)); // which group, from 1
    std::iota(places.begin(), places.begin() + std::ssize(groups), 1);
    std::sort(places.begin(), places.end());
    do {
        double sum = 0.0;
        for (qsizetype i = 0; i + 1 < size; ++i) {
            const std::size_t group = places[std::size_t(i)];
            sum += residue + (group == 0 ? 0.0 : groups[group - 1]);
            masses[i + 1].insert(qRound64(sum * 1e4));
        }
    } while (std::next_permutation(places.begin(), places.end()));
    return masses;
}

TEST(PeptidoformBackbone, OpenModificationsThatSitAnywhereAreTriedOutOnAllResidues)
{
    const QStringList counts = {u""_s, u"^2"_s, u"^3"_s};
    for (qsizetype size = 4; size <= 6; ++size) {
        for (int light = 0; light < 3; ++light) {
            for (int heavy = 0; heavy < 3 && light + heavy + 2 <= size; ++heavy) {
                const QString text =
                    u"[+10]%1?[+100]%2?%3"_s.arg(counts[light], counts[heavy], QString(size, u'G'));
                std::vector<double> groups(std::size_t(light + 1), 10.0);
                groups.insert(groups.end(), std::size_t(heavy + 1), 100.0);
                const Backbone backbone = backboneOf(text).value();
                FragmentIons ions;
                ASSERT_FALSE(ions.assign(backbone, bSeries()));
                std::map<qsizetype, std::set<qint64>> listed;
                std::size_t index = 0;
                for (const IonRun& run : ions.runs()) {
                    for (quint32 i = 0; i < run.count; ++i) {
                        const double mass = ions.mz()[index++] - 1.00727647;
                        listed[run.firstNumber + i].insert(qRound64(mass * 1e4));
                    }
                }
                EXPECT_EQ(listed, triedOut(groups, size, 57.0214637)) << text.toStdString();
            }
        }
    }
}

TEST(PeptidoformBackbone, OpenModificationsSitBesideKnownOnesOnlyWhereTheTextSaysSo)
{
    EXPECT_TRUE(hasIon(u"[Phospho]?AS[+1]A"_s, u"b1+[Phospho]"_s));
    EXPECT_FALSE(hasIon(u"[Phospho|Position:S]?AS[+1]AS"_s, u"b2+[Phospho]"_s));
    EXPECT_TRUE(hasIon(u"[Phospho|Position:S|CoMKP]?AS[+1]AS"_s, u"b2+[Phospho]"_s));
    EXPECT_NEAR(ion(u"<[+1]@S>[Phospho|Position:S,N-term]?ASAS"_s, u"b1"_s),
                ion(u"ASAS"_s, u"b1"_s) + phospho, exact);
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
    EXPECT_NEAR(ion(u"AY[Phospho]G"_s, u"IY[Phospho]"_s, options), 216.0420, published);
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
