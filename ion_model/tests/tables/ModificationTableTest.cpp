#include "ModificationTable.h"

#include "DataRows.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

const ModificationTable& standard()
{
    static const ModificationTable table = ModificationTable::standard(AtomMasses());
    return table;
}

/// Unimod's averages are made of older atomic masses: those of three metals differ by up to 0.03.
double averageTolerance(const ModificationEntry& entry, double average)
{
    const bool hasMetal = std::any_of(
        entry.composition.terms().begin(), entry.composition.terms().end(), [](const auto& term) {
            return term.atom.atomicNumber == 30 || term.atom.atomicNumber == 42 ||
                   term.atom.atomicNumber == 80;
        });
    return (hasMetal ? 0.032 : 0.002) + 2e-5 * std::abs(average);
}

TEST(ModificationTable, EveryModificationOfUnimodWeighsWhatUnimodSays)
{
    const auto rows = dataRows(u"unimod.tsv"_s);
    ASSERT_EQ(rows.size(), 1543);
    for (const QStringList& row : rows) {
        SCOPED_TRACE(row.at(1).toStdString());
        const auto* entry = standard().byName(Vocabulary::Unimod, row.at(1));
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(u"UNIMOD:"_s + QString::number(entry->accession), row.at(0));
        EXPECT_NEAR(entry->masses.monoisotopic, row.at(2).toDouble(), 5e-5);
        EXPECT_NEAR(entry->masses.average, row.at(3).toDouble(),
                    averageTolerance(*entry, row.at(3).toDouble()));
        EXPECT_EQ(standard().byAccession(Vocabulary::Unimod, entry->accession), entry);
        EXPECT_EQ(qsizetype(entry->sites.size()), row.at(5).count(u'@'));
    }
}

/// Masses of the ontology are given to five digits, some from older atomic masses; one linker's
/// deuterated form is off by 0.0016 Da there.
TEST(ModificationTable, EveryCrosslinkerWeighsWhatXlmodSays)
{
    const auto rows = dataRows(u"crosslinkers.tsv"_s);
    ASSERT_EQ(rows.size(), 60);
    for (const QStringList& row : rows) {
        const auto* entry =
            standard().byAccession(Vocabulary::Xlmod, row.at(0).section(u':', 1).toInt());
        ASSERT_NE(entry, nullptr);
        EXPECT_NEAR(entry->masses.monoisotopic, row.at(3).toDouble(),
                    entry->name == u"PCAS-d4"_s ? 2e-3 : 7e-4)
            << row.at(1).toStdString();
    }
}

TEST(ModificationTable, NamesAreFoundInAnyCase)
{
    EXPECT_EQ(standard().byName(u"PHOSPHO")->accession, 21);
    EXPECT_EQ(standard().byName(u"oxidation")->name, u"Oxidation"_s);
    EXPECT_EQ(standard().byName(u"dss")->vocabulary, Vocabulary::Xlmod);
    EXPECT_EQ(standard().byName(Vocabulary::Unimod, u"DSS"), nullptr);
    EXPECT_EQ(standard().byName(u"no such name"), nullptr);
    EXPECT_EQ(standard().byName(u""), nullptr);
    EXPECT_EQ(standard().byAccession(Vocabulary::Unimod, 0), nullptr);
    EXPECT_EQ(standard().byAccession(Vocabulary::Xlmod, 21), nullptr);
}

TEST(ModificationTable, SitesAndLossesAreThoseOfTheVocabulary)
{
    const auto& phospho = *standard().byName(u"Phospho");
    const auto onSerine = std::find_if(phospho.losses.begin(), phospho.losses.end(),
                                       [](const auto& loss) { return loss.residue == u'S'; });
    ASSERT_NE(onSerine, phospho.losses.end());
    EXPECT_EQ(onSerine->composition.toString(), u"H3O4P"_s);
    const auto& acetyl = *standard().byName(u"Acetyl");
    EXPECT_EQ(acetyl.sites[0].residue, u'K');
    EXPECT_EQ(acetyl.sites[0].classification, u"Multiple"_s);
    EXPECT_EQ(acetyl.sites[1].residue, char16_t(0));
    EXPECT_EQ(acetyl.sites[1].position, ChainPosition::AnyNTerm);
    EXPECT_EQ(acetyl.sites[4].position, ChainPosition::ProteinNTerm);
}

TEST(ModificationTable, MassesFindTheNearestFirst)
{
    const auto found = standard().byMass(79.9663, daltons(0.02));
    ASSERT_GE(found.size(), 2U);
    EXPECT_EQ(found[0]->name, u"Phospho"_s);
    EXPECT_TRUE(std::any_of(found.begin(), found.end(),
                            [](const auto* entry) { return entry->name == u"Sulfo"_s; }));
    EXPECT_TRUE(standard().byMass(123456.0, ppm(10)).empty());
    for (const auto* entry : found)
        EXPECT_TRUE(daltons(0.02).accepts(entry->masses.monoisotopic, 79.9663));
}

TEST(ModificationTable, CallersAddTheirOwnBesideTheOthers)
{
    ModificationTable table = standard();
    ModificationEntry own;
    own.name = u"Phospho"_s;
    own.masses = {500.5, 500.6};
    EXPECT_TRUE(table.add(own));
    EXPECT_FALSE(table.add(own));
    EXPECT_EQ(table.byName(u"phospho")->accession, 21);
    EXPECT_EQ(table.byName(Vocabulary::Custom, u"phospho")->masses.monoisotopic, 500.5);
    EXPECT_EQ(table.byMass(500.5, daltons(0.0))[0]->vocabulary, Vocabulary::Custom);
    EXPECT_EQ(standard().byName(Vocabulary::Custom, u"phospho"), nullptr);
    EXPECT_FALSE(table.add(ModificationEntry()));
    own.name = u"other"_s;
    own.vocabulary = Vocabulary::Unimod;
    own.accession = 21;
    EXPECT_FALSE(table.add(own));
}

TEST(ModificationTable, EntriesWhoseMassesNobodyFilledAreRefused)
{
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    ModificationTable table;
    ModificationEntry own;
    own.name = u"own"_s;
    own.composition = Composition::read(u"HPO3"_s).value();
    for (const Masses& masses : {Masses{}, Masses{79.966, 0.0}, Masses{0.0, 79.98},
                                 Masses{notANumber, 79.98}, Masses{79.966, infinity}}) {
        own.masses = masses;
        EXPECT_FALSE(table.add(own));
    }
    EXPECT_TRUE(table.entries().empty());
    EXPECT_TRUE(table.byMass(0.0, daltons(1000.0)).empty());
    own.masses = AtomMasses().weigh(own.composition).value();
    EXPECT_TRUE(table.add(own));
}

TEST(ModificationTable, EntriesThatAddNoAtomsMayWeighNothing)
{
    ModificationTable table;
    ModificationEntry none;
    none.name = u"none"_s;
    EXPECT_TRUE(table.add(none));
    ModificationEntry label;
    label.name = u"label"_s;
    label.composition = Composition::read(u"C-6[13C6]"_s).value(); // where all carbon is 13C
    EXPECT_TRUE(table.add(label));
}

TEST(ModificationTable, MassesThatAreNoNumbersFindNothing)
{
    for (const double mass :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity()}) {
        EXPECT_TRUE(standard().byMass(mass, ppm(10)).empty());
        EXPECT_TRUE(standard().byMass(mass, daltons(1.0)).empty());
    }
}

TEST(ModificationTable, MisspeltNamesAreNearTheRightOnes)
{
    EXPECT_EQ(standard().nearestNames(u"phosfo").value(0), u"Phospho"_s);
    EXPECT_TRUE(standard().nearestNames(u"Oxydation").contains(u"Oxidation"_s));
    EXPECT_EQ(standard().nearestNames(u"oxidatoin"),
              QStringList({u"Oxidation"_s, u"Dioxidation"_s, u"Amidated"_s}));
    EXPECT_EQ(standard().nearestNames(u"phosfo", 1), QStringList(u"Phospho"_s));
    EXPECT_TRUE(standard().nearestNames(u"phosfo", 0).isEmpty());
    EXPECT_TRUE(standard().nearestNames(u"phosfo", -1).isEmpty());
    EXPECT_TRUE(standard().nearestNames(QString()).isEmpty());
    EXPECT_TRUE(standard().nearestNames(u"zzzzzzzzzzzzzzzzzzzz").isEmpty());
    EXPECT_LE(standard().nearestNames(QString(1000000, u'a')).size(), 3);
}

TEST(ModificationTable, ALabelledTableWeighsStatedIsotopesAsTheyAre)
{
    const AtomMasses labelled(*chem::ChemicalFactory::construct(u"C13:1.0"_s));
    const auto table = ModificationTable::standard(labelled);
    EXPECT_NEAR(table.byName(u"Carbamidomethyl")->masses.monoisotopic, 57.021464 + 2 * 1.003355,
                1e-5);
    EXPECT_EQ(table.entries().size(), standard().entries().size());
    EXPECT_EQ(table.byName(u"Label:13C(6)")->masses.monoisotopic, 0.0);
    EXPECT_NEAR(table.byName(u"Label:13C(6)15N(4)")->masses.monoisotopic, 10.008269 - 6 * 1.003355,
                1e-5);
}

} // namespace

} // namespace ions
