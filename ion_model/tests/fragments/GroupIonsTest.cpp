#include "IonLists.h"
#include "Peptidoforms.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

Backbone backboneOf(const QString& text)
{
    return peptidoform(text).backbone(0, naturalResidues(), standardModifications()).value();
}

/// The m/z of each label, none of which comes twice.
std::map<QString, double> ionsOf(const QString& text, const std::vector<Series>& wanted,
                                 int charge = 1)
{
    IonOptions options = series(wanted);
    options.charges = {charge};
    const Backbone backbone = backboneOf(text);
    std::map<QString, double> ions;
    for (const auto& [label, all] : byLabel(ionsOf(backbone, options), backbone)) {
        EXPECT_EQ(all.size(), 1U) << label.toStdString();
        ions[label] = all.front();
    }
    return ions;
}

void expectIons(const QString& text, Series wanted, const std::map<QString, double>& published,
                double tolerance)
{
    const auto ions = ionsOf(text, {wanted});
    EXPECT_EQ(ions.size(), published.size()) << text.toStdString();
    for (const auto& [label, mz] : published) {
        ASSERT_TRUE(ions.contains(label)) << label.toStdString();
        EXPECT_NEAR(ions.at(label), mz, tolerance) << label.toStdString();
    }
}

/// As tables of oxonium ions print them.
TEST(GroupIons, OxoniumIonsAreThoseOfPublishedTables)
{
    expectIons(u"N[Glycan:HexNAc]K"_s, Series::Oxonium,
               {{u"r[HexNAc]"_s, 204.0867},
                {u"r[HexNAc-H2O]"_s, 186.0761},
                {u"r[HexNAc-2H2O]"_s, 168.0655},
                {u"r[HexNAc-C2H4O2]"_s, 144.0655},
                {u"r[HexNAc-CH6O3]"_s, 138.0550},
                {u"r[HexNAc-C2H6O3]"_s, 126.0550}},
               1e-4);
    expectIons(u"N[Glycan:Hex]K"_s, Series::Oxonium,
               {{u"r[Hex]"_s, 163.0601}, {u"r[Hex-H2O]"_s, 145.0495}, {u"r[Hex-2H2O]"_s, 127.0390}},
               1e-4);
    expectIons(u"N[Glycan:NeuAc]K"_s, Series::Oxonium,
               {{u"r[NeuAc]"_s, 292.1027}, {u"r[NeuAc-H2O]"_s, 274.0921}}, 1e-4);
    expectIons(u"N[Glycan:NeuGc]K"_s, Series::Oxonium,
               {{u"r[NeuGc]"_s, 308.0976}, {u"r[NeuGc-H2O]"_s, 290.0870}}, 1e-4);
    const auto larger = ionsOf(u"N[Glycan:HexNAc2Hex2FucNeuAc]K"_s, {Series::Oxonium});
    EXPECT_NEAR(larger.at(u"r[HexNAcHex]"_s), 366.1395, 1e-4);
    EXPECT_NEAR(larger.at(u"r[HexNAcHex2]"_s), 528.1923, 1e-4);
    EXPECT_NEAR(larger.at(u"r[FucHexNAcHex]"_s), 512.1974, 1e-4);
    EXPECT_NEAR(larger.at(u"r[NeuAcHexNAcHex]"_s), 657.2349, 1e-4);
    EXPECT_FALSE(larger.contains(u"r[HexNAcHex3]"_s));
}

/// As the makers of the labels list them.
TEST(GroupIons, ReporterIonsAreThoseOfTheProductSheets)
{
    expectIons(u"[TMT6plex]-AK[TMT6plex]"_s, Series::Reporter,
               {{u"r[TMT126]"_s, 126.127726},
                {u"r[TMT127N]"_s, 127.124761},
                {u"r[TMT127C]"_s, 127.131081},
                {u"r[TMT128N]"_s, 128.128116},
                {u"r[TMT128C]"_s, 128.134436},
                {u"r[TMT129N]"_s, 129.131471},
                {u"r[TMT129C]"_s, 129.137790},
                {u"r[TMT130N]"_s, 130.134825},
                {u"r[TMT130C]"_s, 130.141145},
                {u"r[TMT131N]"_s, 131.138180},
                {u"r[TMT131C]"_s, 131.144500}},
               2e-6);
    const auto pro = ionsOf(u"[TMTpro]-AK"_s, {Series::Reporter});
    EXPECT_EQ(pro.size(), 18U);
    EXPECT_NEAR(pro.at(u"r[TMTpro134N]"_s), 134.148245, 2e-6);
    EXPECT_NEAR(pro.at(u"r[TMTpro135N]"_s), 135.151600, 2e-6);
    expectIons(u"[iTRAQ4plex]-AK"_s, Series::Reporter,
               {{u"r[iTRAQ114]"_s, 114.1107},
                {u"r[iTRAQ115]"_s, 115.1077},
                {u"r[iTRAQ116]"_s, 116.1111},
                {u"r[iTRAQ117]"_s, 117.1144}},
               1e-4);
    EXPECT_NEAR(ionsOf(u"[iTRAQ8plex]-AK"_s, {Series::Reporter}).at(u"r[iTRAQ121]"_s), 121.1215,
                1e-4);
    EXPECT_TRUE(ionsOf(u"[Acetyl]-AK"_s, {Series::Reporter}).empty());
}

TEST(GroupIons, YIonsKeepEveryPartOfTheGlycans)
{
    const double peptide = ionsOf(u"ENK"_s, {Series::Precursor}).at(u"p"_s);
    expectIons(u"EN[Glycan:HexNAc2Hex]K"_s, Series::GlycanY,
               {{u"p-[HexNAc2Hex]"_s, peptide},
                {u"p-[HexNAcHex]"_s, peptide + 203.0793725},
                {u"p-[HexNAc2]"_s, peptide + 162.0528234},
                {u"p-[Hex]"_s, peptide + 2 * 203.0793725},
                {u"p-[HexNAc]"_s, peptide + 203.0793725 + 162.0528234}},
               1e-6);
    const Backbone backbone = backboneOf(u"EN[Glycan:HexNAc2Hex]K"_s);
    const FragmentIons ions = ionsOf(backbone, series({Series::GlycanY}));
    std::vector<quint32> left;
    for (const IonRun& run : ions.runs())
        left.push_back(run.firstNumber);
    EXPECT_EQ(left, (std::vector<quint32>{0, 1, 1, 2, 2}));
    const double charged = ionsOf(u"EN[Glycan:Hex]K"_s, {Series::GlycanY}, 2).at(u"p-[Hex]^2"_s);
    EXPECT_NEAR(charged, (peptide + 1.00727646) / 2, 1e-6);
}

TEST(GroupIons, GlycansOfAllPlacesAreOne)
{
    for (const QString& text :
         {u"N[Glycan:Hex]N[Glycan:Hex]"_s, u"N[Glycan:Hex2]N"_s, u"N[Hex(2)]N"_s,
          u"{Glycan:Hex}N[Hex]N"_s, u"[Glycan:Hex]^2?NN"_s, u"N[Glycan:Hex#g1]N[#g1][U:Hex]"_s,
          u"[Glycan:Hex]-NN-[Glycan:Hex]"_s, u"N[Glycan:Hex]//N[Glycan:Hex]"_s}) {
        const auto ions = ionsOf(text, {Series::GlycanY});
        ASSERT_EQ(ions.size(), 2U) << text.toStdString();
        EXPECT_NEAR(ions.at(u"p-[Hex]"_s) - ions.at(u"p-[Hex2]"_s), 162.0528234, 1e-6);
    }
    EXPECT_TRUE(ionsOf(u"N[Phospho]N"_s, {Series::GlycanY, Series::Oxonium}).empty());
}

TEST(GroupIons, ComeWithOneChargeAndWithoutLosses)
{
    IonOptions options = series({Series::Oxonium, Series::Reporter, Series::GlycanY});
    options.charges = {2, -1, 1};
    options.hydrogens = {0, 1};
    options.losses = {LossRule::read(u"H2O", residues().atoms()).value()};
    const Backbone backbone = backboneOf(u"[TMT]-N[Glycan:Pen]"_s);
    std::map<Series, int> counts;
    const FragmentIons ions = ionsOf(backbone, options);
    for (const IonRun& run : ions.runs())
        counts[run.series] += int(run.count);
    EXPECT_EQ(counts, (std::map<Series, int>{
                          {Series::Oxonium, 1}, {Series::Reporter, 1}, {Series::GlycanY, 6}}));
}

TEST(GroupIons, TooManyAreRefused)
{
    FragmentIons ions;
    const Backbone large = backboneOf(u"N[Glycan:Hex1000]"_s);
    EXPECT_TRUE(ions.assign(large, series({Series::GlycanY})).has_value());
    EXPECT_FALSE(ions.assign(large, series({Series::Oxonium})).has_value());
    QString kinds;
    for (int i = 1; i <= 100; ++i)
        kinds += u"{C%1}"_s.arg(i);
    const Backbone wide = backboneOf(u"N[Glycan:"_s + kinds + u']');
    EXPECT_TRUE(ions.assign(wide, series({Series::Oxonium})).has_value());
    EXPECT_TRUE(ions.mz().empty());
}

TEST(GroupIons, GlycansThatAreTooManyTogetherAreRefused)
{
    const QString residue = u"N[Glycan:Hex200000000]"_s;
    const Backbone backbone = backboneOf(residue.repeated(12));
    FragmentIons ions;
    EXPECT_TRUE(ions.assign(backbone, series({Series::GlycanY})).has_value());
    EXPECT_FALSE(ions.assign(backbone, series({Series::Oxonium})).has_value());
    EXPECT_EQ(ions.mz().size(), 5U); // Hex, its two ring fragments, Hex2 and Hex3
}

TEST(GroupIons, AListThatIsUsedAgainForgetsTheGlycansBefore)
{
    FragmentIons ions;
    const IonOptions options = series({Series::GlycanY});
    for (const QString& text : {u"N[Glycan:HexNAc2]"_s, u"N[Glycan:Hex]"_s, u"NN"_s}) {
        const Backbone backbone = backboneOf(text);
        EXPECT_FALSE(ions.assign(backbone, options).has_value());
        FragmentIons fresh;
        EXPECT_FALSE(fresh.assign(backbone, options).has_value());
        ASSERT_EQ(ions.mz().size(), fresh.mz().size());
        EXPECT_EQ(ions.losses().size(), fresh.losses().size());
        for (qsizetype i = 0; i < std::ssize(ions.mz()); ++i)
            EXPECT_EQ(ions.label(backbone, i), fresh.label(backbone, i));
    }
}

} // namespace

} // namespace ions
