#include "search/Search.h"

#include "RunZel.h"
#include "TemporaryText.h"
#include "TestFiles.h"
#include "TestSeed.h"
#include "search/CandidateText.h"
#include "search/Rule.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <set>

using namespace Qt::StringLiterals;
using namespace tool;

namespace {

const Chemistry& chemistry()
{
    static const Chemistry natural{QString()};
    return natural;
}

Rule rule(const QString& text)
{
    return Rule::read(text, chemistry()).value();
}

/// All forms of a peptide as texts, with the masses that they were announced with.
std::map<QString, double> formsOf(const QString& letters, const Rules& rules, bool isStart = false)
{
    PeptideForms forms(&rules);
    std::map<QString, double> found;
    double announced = 0.0;
    const double mass = chemistry().residues.peptide(letters)->monoisotopic;
    forms.visit(
        PeptideContext{letters, mass, isStart, false},
        [&](double sum) {
            announced = sum;
            return true;
        },
        [&](const std::vector<RuleIndex>& places) {
            const Candidate candidate{letters, places};
            EXPECT_TRUE(found.emplace(peptidoformText(candidate, rules), announced).second);
        });
    return found;
}

std::set<QString> keys(const std::map<QString, double>& map)
{
    std::set<QString> result;
    for (const auto& [key, value] : map)
        result.insert(key);
    return result;
}

/// A spectrum of all b and y ions of a peptidoform, as MGF.
QByteArray spectrumOf(const QString& peptidoform, const QByteArray& title)
{
    QByteArray mgf = "BEGIN IONS\nTITLE=" + title + "\nCHARGE=2+\nPEPMASS=" +
                     runZel({u"mass"_s, peptidoform + u"/2"_s}).rows()[0][5] + '\n';
    for (const QByteArrayList& row :
         runZel({u"ions"_s, peptidoform, u"--max-losses"_s, u"0"_s}).rows())
        mgf += row[5] + " 10\n";
    return mgf + "END IONS\n";
}

/// The peptidoforms that the spectra of a file state.
QByteArrayList namedPeptidoforms(const QByteArray& mgf)
{
    QByteArrayList named;
    for (const QByteArray& line : mgf.split('\n')) {
        if (line.startsWith("SEQ="))
            named.append(line.sliced(4));
    }
    return named;
}

/// The residues of a peptidoform: leucine and isoleucine weigh the same.
QByteArray withLeucine(QByteArray peptidoform)
{
    return peptidoform.replace('I', 'L');
}

QByteArray randomProteins(int count)
{
    std::mt19937 random(testSeed(3));
    const QByteArray letters = "ACDEFGHIKLMNPQRSTVWY";
    QByteArray fasta;
    for (int i = 0; i < count; ++i) {
        fasta += ">protein" + QByteArray::number(i) + "\nM";
        for (int j = 0; j < 200; ++j)
            fasta += letters[qsizetype(random() % std::size_t(letters.size()))];
        fasta += '\n';
    }
    return fasta;
}

} // namespace

TEST(SearchRule, ReadsSitesAndPositions)
{
    EXPECT_NEAR(rule(u"Oxidation@M"_s).mass, 15.994915, 1e-6);
    EXPECT_EQ(rule(u"UNIMOD:21@STY"_s).sites, u"STY"_s);
    EXPECT_EQ(rule(u"Gln->pyro-Glu@Q^N-term"_s).position, RulePosition::NTerm);
    EXPECT_EQ(rule(u"Acetyl@Protein N-term"_s).position, RulePosition::ProteinNTerm);
    EXPECT_NEAR(rule(u"Formula:C2H2O@K"_s).mass, 42.010565, 1e-6);
    EXPECT_NEAR(rule(u"-17.5@c-TERM"_s).mass, -17.5, 1e-9);
}

TEST(SearchRule, RefusesWhatItCannotRead)
{
    for (const QString& text : {u"Oxidation"_s, u"Oxidation@"_s, u"Oxidation@m"_s, u"NoSuch@M"_s,
                                u"@M"_s, u"A|B@M"_s, u"Oxidation@M^middle"_s, u"a]b[c@M"_s})
        EXPECT_FALSE(Rule::read(text, chemistry())) << text.toStdString();
}

TEST(PeptideForms, AreAllWaysToPlaceTheModifications)
{
    const Rules rules{{}, {rule(u"Oxidation@M"_s), rule(u"Acetyl@N-term"_s)}, 2};
    const std::set<QString> expected = {u"MAMK"_s,
                                        u"M[Oxidation]AMK"_s,
                                        u"MAM[Oxidation]K"_s,
                                        u"M[Oxidation]AM[Oxidation]K"_s,
                                        u"[Acetyl]-MAMK"_s,
                                        u"[Acetyl]-M[Oxidation]AMK"_s,
                                        u"[Acetyl]-MAM[Oxidation]K"_s};
    EXPECT_EQ(keys(formsOf(u"MAMK"_s, rules)), expected);
}

TEST(PeptideForms, FixedModificationsAreWrittenAndKeepVariableOnesAway)
{
    const Rules rules{{rule(u"Carbamidomethyl@C"_s)}, {rule(u"Oxidation@MC"_s)}, 3};
    EXPECT_EQ(keys(formsOf(u"CMK"_s, rules)),
              (std::set<QString>{u"C[Carbamidomethyl]MK"_s, u"C[Carbamidomethyl]M[Oxidation]K"_s}));
}

TEST(PeptideForms, OnePlaceBearsOneModification)
{
    const Rules rules{{}, {rule(u"Acetyl@N-term"_s), rule(u"Carbamyl@N-term"_s)}, 3};
    EXPECT_EQ(keys(formsOf(u"AK"_s, rules)),
              (std::set<QString>{u"AK"_s, u"[Acetyl]-AK"_s, u"[Carbamyl]-AK"_s}));
}

TEST(PeptideForms, EndsOfProteinsAndResiduesAtEndsCount)
{
    const Rules rules{{}, {rule(u"Acetyl@Protein N-term"_s), rule(u"Gln->pyro-Glu@Q^N-term"_s)}, 3};
    EXPECT_EQ(keys(formsOf(u"AQK"_s, rules)), (std::set<QString>{u"AQK"_s}));
    EXPECT_EQ(keys(formsOf(u"AQK"_s, rules, true)),
              (std::set<QString>{u"AQK"_s, u"[Acetyl]-AQK"_s}));
    EXPECT_EQ(keys(formsOf(u"QAK"_s, rules)),
              (std::set<QString>{u"QAK"_s, u"[Gln->pyro-Glu]-QAK"_s}));
}

// The sum that a form is announced with is what the text weighs, read anew.
TEST(PeptideForms, WeighWhatTheirTextsWeigh)
{
    const Rules rules{{rule(u"Carbamidomethyl@C"_s), rule(u"Amidated@C-term"_s)},
                      {rule(u"Phospho@STY"_s), rule(u"Acetyl@N-term"_s), rule(u"Deamidated@NQ"_s)},
                      3};
    const auto forms = formsOf(u"SCNTQYNK"_s, rules);
    EXPECT_EQ(forms.size(), 1U + 7 + 21 + 35); // 7 places with one modification each
    for (const auto& [text, mass] : forms) {
        const auto read = ions::Peptidoform::read(text);
        ASSERT_TRUE(read);
        const auto weight = read->weigh(0, chemistry().residues, chemistry().modifications);
        EXPECT_NEAR(weight->masses.monoisotopic, mass, 1e-8) << text.toStdString();
    }
}

TEST(Decoys, AreReversedButForTheEndThatTellsTheCut)
{
    EXPECT_EQ(reversedPeptide(u"ABCDK", false), u"DCBAK"_s);
    EXPECT_EQ(reversedPeptide(u"DABCE", true), u"DECBA"_s);
    EXPECT_FALSE(cutsBefore(ions::Protease::named(u"Trypsin").value()));
    EXPECT_TRUE(cutsBefore(ions::Protease::named(u"Asp-N").value()));
}

// By hand: scores 9 t, 8 t, 7 d, 6 t: (0+1)/1, (0+1)/2, (1+1)/2, (1+1)/3; the smallest below
// counts.
TEST(QValues, AreMonotone)
{
    const std::vector<double> q = qValues({7, 9, 6, 8}, {true, false, false, false});
    EXPECT_DOUBLE_EQ(q[1], 0.5);
    EXPECT_DOUBLE_EQ(q[3], 0.5);
    EXPECT_DOUBLE_EQ(q[0], 2.0 / 3.0);
    EXPECT_DOUBLE_EQ(q[2], 2.0 / 3.0);
}

TEST(QValues, OfEqualScoresAreEqual)
{
    const std::vector<double> q = qValues({5, 5, 5, 9}, {false, true, false, false});
    EXPECT_EQ(q[0], q[1]);
    EXPECT_DOUBLE_EQ(q[0], 2.0 / 3.0);
    EXPECT_DOUBLE_EQ(q[3], 2.0 / 3.0);
    EXPECT_EQ(qValues({1}, {true})[0], 1.0);
}

TEST(SearchCommand, FindsThePeptidesOfTheirOwnIons)
{
    const TemporaryText database(">P1 x\nMSAMPLEKQNGTECRWYVLIK\n>P2\nMSAMPLEK\n" +
                                 randomProteins(20));
    const TemporaryText spectra(spectrumOf(u"SAM[Oxidation]PLEK"_s, "a") +
                                spectrumOf(u"[Gln->pyro-Glu]-QNGTEC[Carbamidomethyl]R"_s, "b") +
                                "BEGIN IONS\nPEPMASS=9000\nCHARGE=2+\nEND IONS\n" +
                                spectrumOf(u"[Acetyl]-SAMPLEK"_s, "c"));
    const ProgramRun run = runZel({u"search"_s, u"--database"_s, database.name(), u"--spectra"_s,
                                   spectra.name(), u"--fixed"_s, u"Carbamidomethyl@C"_s,
                                   u"--variable"_s, u"Oxidation@M,Acetyl@Protein N-term"_s,
                                   u"--variable"_s, u"Gln->pyro-Glu@Q^N-term"_s});
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(run.header(),
              "spectrum\tpeptidoform\tcharge\tscore\tmatched\tdecoy\tq\tprotein\tppm");
    ASSERT_EQ(run.rows().size(), 4);
    EXPECT_EQ(run.rows()[0][1], "SAM[Oxidation]PLEK");
    EXPECT_EQ(run.rows()[0][7], "P1;P2");
    EXPECT_EQ(run.rows()[0][5], "0");
    EXPECT_EQ(run.rows()[1][1], "[Gln->pyro-Glu]-QNGTEC[Carbamidomethyl]R");
    EXPECT_EQ(run.rows()[2], (QByteArrayList{"index=3", "", "", "", "", "", "", "", ""}));
    EXPECT_EQ(run.rows()[3][1], "[Acetyl]-SAMPLEK");
}

// 6 b and 6 y ions at 1+, each a peak of 100; at 2+ none is near a peak.
TEST(SearchCommand, ScoresAsStated)
{
    const TemporaryText database(">P1\nGASPVTR\n");
    const TemporaryText spectra(spectrumOf(u"GASPVTR"_s, "a"));
    const ProgramRun run = runZel({u"search"_s, u"--database"_s, database.name(), u"--spectra"_s,
                                   spectra.name(), u"--no-decoys"_s});
    ASSERT_EQ(run.rows().size(), 1);
    EXPECT_EQ(run.rows()[0][4], "12");
    EXPECT_NEAR(run.rows()[0][3].toDouble(), 2 * std::log(720.0) + 2 * std::log(601.0), 1e-9);
    EXPECT_EQ(run.rows()[0][6], "");
}

// Spectra of a public library, which names their peptides, among the peptides of random proteins.
TEST(SearchCommand, FindsThePeptidesOfRealSpectra)
{
    const QByteArray peptides = contentOf(u"data/peptides.fasta"_s);
    const TemporaryText database(randomProteins(2000) + peptides);
    const ProgramRun run =
        runZel({u"search"_s, u"--database"_s, database.name(), u"--spectra"_s,
                testFile(u"data/spectra.mgf"_s), u"--fixed"_s, u"Carbamidomethyl@C"_s,
                u"--variable"_s, u"Oxidation@M,Acetyl@N-term,Deamidated@N"_s, u"--variable"_s,
                u"Gln->pyro-Glu@Q^N-term"_s});
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    const QByteArrayList named = namedPeptidoforms(contentOf(u"data/spectra.mgf"_s));
    ASSERT_EQ(run.rows().size(), named.size());
    ASSERT_EQ(named.size(), 8);
    for (qsizetype i = 0; i < named.size(); ++i) {
        const QByteArrayList row = run.rows()[i];
        EXPECT_EQ(withLeucine(row[1]), withLeucine(named[i]));
        EXPECT_EQ(row[5], "0");
        EXPECT_EQ(row[7], row[0]); // each peptide stands under the title of its spectrum
    }
}

TEST(SearchCommand, GivesTheSameAtAnyNumberOfThreads)
{
    const QByteArray proteins = randomProteins(200);
    const TemporaryText database(proteins);
    QByteArray mgf;
    std::mt19937 random(testSeed(11));
    for (int i = 0; i < 60; ++i) {
        mgf += "BEGIN IONS\nPEPMASS=" + QByteArray::number(400.2 + 5.0 * i) + '\n';
        for (int j = 0; j < 80; ++j)
            mgf += QByteArray::number(100.0 + double(random() % 90000) / 100.0) + " 5\n";
        mgf += "END IONS\n";
    }
    const TemporaryText spectra(mgf);
    const auto output = [&](const QString& threads) {
        return runZel({u"search"_s, u"--database"_s, database.name(), u"--spectra"_s,
                       spectra.name(), u"--variable"_s, u"Oxidation@M,Deamidated@NQ"_s,
                       u"--tolerance"_s, u"0.5Da"_s, u"--fragment-tolerance"_s, u"0.5Da"_s,
                       u"--threads"_s, threads})
            .output;
    };
    const QByteArray one = output(u"1"_s);
    EXPECT_EQ(one.count('\n'), 61);
    EXPECT_EQ(output(u"2"_s), one);
    EXPECT_EQ(output(u"7"_s), one);
}

namespace {

/// The search of one spectrum among the peptides of a protein.
ProgramRun searchOne(const QByteArray& letters, const QByteArray& spectrum,
                     const QStringList& options)
{
    const TemporaryText database(">P1\n" + letters + '\n');
    const TemporaryText spectra(spectrum);
    return runZel(QStringList{u"search"_s, u"--database"_s, database.name(), u"--spectra"_s,
                              spectra.name(), u"--no-decoys"_s} +
                  options);
}

/// The peptidoform that was found; empty for none.
QByteArray found(const ProgramRun& run)
{
    return run.rows().size() == 1 ? run.rows()[0][1] : run.errors;
}

/// The ions of a peptidoform below a precursor of this m/z, without a charge.
QByteArray uncharged(const QString& peptidoform, double mz)
{
    QByteArray spectrum = spectrumOf(peptidoform, "a").replace("CHARGE=2+\n", "");
    const qsizetype start = spectrum.indexOf("PEPMASS=");
    const QByteArray precursor = "PEPMASS=" + QByteArray::number(mz, 'f', 6);
    return spectrum.replace(start, spectrum.indexOf('\n', start) - start, precursor);
}

double neutralMass(const QString& peptidoform)
{
    return runZel({u"mass"_s, peptidoform}).rows()[0][2].toDouble();
}

} // namespace

// A carbon-13 weighs 1.00335 Da more than a carbon-12.
TEST(SearchCommand, PrecursorsMayBeTooHeavyByNeutrons)
{
    const double mz = (neutralMass(u"GASPVTR"_s) + 1.00335 + 2 * 1.00727647) / 2;
    const QByteArray spectrum = uncharged(u"GASPVTR"_s, mz);
    EXPECT_EQ(found(searchOne("GASPVTR", spectrum, {})), "");
    EXPECT_EQ(found(searchOne("GASPVTR", spectrum, {u"--isotope-errors"_s, u"2"_s})), "");
    EXPECT_EQ(found(searchOne("GASPVTR", spectrum, {u"--isotope-errors"_s, u"0-1"_s})), "GASPVTR");
    EXPECT_EQ(found(searchOne("GASPVTR", spectrum, {u"--isotope-errors"_s, u"1"_s})), "GASPVTR");
}

TEST(SearchCommand, PeptidesBearAsManyVariableModificationsAsAsked)
{
    const QByteArray spectrum = spectrumOf(u"M[Oxidation]AM[Oxidation]SVTR"_s, "a");
    const QStringList options = {u"--variable"_s, u"Oxidation@M"_s, u"--max-variable"_s};
    EXPECT_EQ(found(searchOne("MAMSVTR", spectrum, options + QStringList{u"1"_s})), "");
    EXPECT_EQ(found(searchOne("MAMSVTR", spectrum, options + QStringList{u"2"_s})),
              "M[Oxidation]AM[Oxidation]SVTR");
}

TEST(SearchCommand, SpectraWithoutAChargeAreTriedAtThoseAsked)
{
    const double mz = (neutralMass(u"GASPVTR"_s) + 3 * 1.00727647) / 3;
    const QByteArray spectrum = uncharged(u"GASPVTR"_s, mz);
    const ProgramRun usual = searchOne("GASPVTR", spectrum, {});
    EXPECT_EQ(found(usual), "GASPVTR");
    EXPECT_EQ(usual.rows()[0][2], "3");
    EXPECT_EQ(found(searchOne("GASPVTR", spectrum, {u"--charges"_s, u"2,4"_s})), "");
    // A charge that the spectrum states is not tried otherwise.
    EXPECT_EQ(
        found(searchOne("GASPVTR", QByteArray(spectrum).replace("PEPMASS", "CHARGE=2+\nPEPMASS"),
                        {u"--charges"_s, u"3"_s})),
        "");
}

TEST(SearchCommand, ShowsProgressOnATerminalOnly)
{
    const TemporaryText database(">P1\nGASPVTR\n");
    const TemporaryText spectra(spectrumOf(u"GASPVTR"_s, "a"));
    const QString search =
        u" search --database '%1' --spectra '%2'"_s.arg(database.name(), spectra.name());
    EXPECT_EQ(runShell(u"zel"_s + search + u" 2> errors > rows; cat errors"_s).output,
              QByteArray());
    if (runShell(u"script -qec true /dev/null < /dev/null"_s).status != 0)
        GTEST_SKIP() << "no terminal can be made here";
    const ProgramRun terminal = runShell(u"script -qec \"" ZEL_PROGRAM ""_s + search +
                                         u" > rows\" /dev/null < /dev/null"_s);
    EXPECT_TRUE(terminal.output.contains("\r\033[K")) << terminal.output.constData();
}
