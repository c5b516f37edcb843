#include "readers/Fasta.h"
#include "readers/LineReader.h"
#include "readers/Mgf.h"

#include <QBuffer>
#include <QByteArray>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tool;

namespace {

std::vector<QByteArray> linesOf(QByteArray bytes, qsizetype limit = LineReader::mostBytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    LineReader reader(&buffer, limit);
    std::vector<QByteArray> lines;
    while (reader.next())
        lines.push_back(reader.line());
    return lines;
}

/// What a reader made of a file.
template <typename Record>
struct Outcome
{
    std::vector<Record> records;
    QByteArray errors;
};

template <typename Record, typename Reader>
Outcome<Record> readAll(QByteArray bytes, Reader reader)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    LineReader lines(&buffer);
    Complaints complaints;
    Outcome<Record> outcome;
    testing::internal::CaptureStderr();
    reader(u"file"_s, &lines, &complaints,
           [&](Record&& record) { outcome.records.push_back(std::move(record)); });
    outcome.errors = QByteArray::fromStdString(testing::internal::GetCapturedStderr());
    EXPECT_EQ(complaints.areThere(), !outcome.errors.isEmpty());
    return outcome;
}

Outcome<Sequence> fasta(const QByteArray& bytes)
{
    return readAll<Sequence>(bytes, readFasta);
}

Outcome<Spectrum> mgf(const QByteArray& bytes)
{
    return readAll<Spectrum>(bytes, readMgf);
}

/// A spectrum with one line changed.
QByteArray spectrumWith(const QByteArray& line)
{
    return "BEGIN IONS\nPEPMASS=500.5\n" + line +
           "\n100 1\nEND IONS\n"
           "BEGIN IONS\nTITLE=good\nPEPMASS=400\nEND IONS\n";
}

} // namespace

TEST(LineReader, EndsLinesAsAnySystemDoes)
{
    EXPECT_EQ(linesOf("a\nb\r\nc\rd"), (std::vector<QByteArray>{"a", "b", "c", "d"}));
    EXPECT_EQ(linesOf("a\n\n\r\r\nb\n"), (std::vector<QByteArray>{"a", "", "", "", "b"}));
    EXPECT_TRUE(linesOf("").empty());
    EXPECT_EQ(linesOf("\xef\xbb\xbf>P"), (std::vector<QByteArray>{">P"}));
}

TEST(LineReader, LinesMayBeLongerThanAChunk)
{
    for (const qsizetype size : {65535, 65536, 65537, 200000}) {
        const QByteArray line(size, 'x');
        EXPECT_EQ(linesOf(line + "\r\n" + line + "\r"), (std::vector<QByteArray>{line, line}))
            << size;
    }
}

TEST(LineReader, CutsWhatIsTooLong)
{
    EXPECT_EQ(linesOf("abcdef\ngh\n", 4), (std::vector<QByteArray>{"abcd", "gh"}));
}

TEST(Fasta, TakesNamesAndLetters)
{
    const auto outcome = fasta("; remark\n>sp|P1|X name of it\r\nac DE*\rFG\n>P2\nK*\n");
    ASSERT_EQ(outcome.records.size(), 2U);
    EXPECT_EQ(outcome.records[0].name, u"sp|P1|X"_s);
    EXPECT_EQ(outcome.records[0].letters, u"ACDE*FG"_s);
    EXPECT_EQ(outcome.records[1].letters, u"K"_s);
    EXPECT_EQ(outcome.errors, QByteArray());
}

TEST(Fasta, RefusesEntriesOneByOne)
{
    const auto outcome = fasta("AK\n>A\n>B\nGK1K\nXX\n>C\nK\n>\nK\n> D\nR\n>E\n*\n");
    ASSERT_EQ(outcome.records.size(), 2U);
    EXPECT_EQ(outcome.records[0].name, u"C"_s);
    EXPECT_EQ(outcome.records[1].name, u"D"_s);
    EXPECT_EQ(outcome.errors, "file:1:0: expected a header with '>' in front of letters\n"
                              "file:2:0: expected letters behind this header\n"
                              "file:4:2: expected letters of residues\n"
                              "file:8:1: expected a name behind '>'\n"
                              "file:12:0: expected letters behind this header\n");
}

TEST(Fasta, NamesKeepBytesThatAreNoUtf8AsTheirNumbers)
{
    const auto outcome = fasta(">caf\xe9|\xce\xb1 x\nAK\n>\xf0\x9f\nGK\n");
    EXPECT_EQ(outcome.errors, QByteArray());
    ASSERT_EQ(outcome.records.size(), 2U);
    EXPECT_EQ(outcome.records[0].name, u"caf%E9|\u03b1"_s);
    EXPECT_EQ(outcome.records[1].name, u"%F0%9F"_s);
}

TEST(Fasta, NamesKeepMarksOfTheOrderOfBytes)
{
    const auto outcome = fasta(">\xef\xbb\xbfx\nAK\n>\xef\xbb\xbf\xe9\nAK\n");
    ASSERT_EQ(outcome.records.size(), 2U);
    EXPECT_EQ(outcome.records[0].name, u"\ufeffx"_s);
    EXPECT_EQ(outcome.records[1].name, u"\ufeff%E9"_s);
}

TEST(Fasta, RefusesAFileThatHoldsNothing)
{
    for (const char* bytes : {"", "\n", "; remark\n \t\r\n"})
        EXPECT_EQ(fasta(bytes).errors, "file:1:0: expected sequences\n");
}

TEST(Fasta, SurvivesBinaryFiles)
{
    QByteArray bytes;
    for (quint32 i = 0; i < 100000; ++i)
        bytes += char(i * i % 251);
    const auto outcome = fasta(bytes + "\n>good\nAK\n");
    ASSERT_FALSE(outcome.records.empty());
    EXPECT_EQ(outcome.records.back().letters, u"AK"_s);
    EXPECT_FALSE(outcome.errors.isEmpty());
}

TEST(Mgf, TakesSpectra)
{
    const auto outcome = mgf("# remark\nCOM=run 1\r\nCHARGE=2+ and 3+\n\nBEGIN IONS\nTITLE=a b \n"
                             "PEPMASS=500.25 1e6\nCHARGE=3+\n200.5\t7 1+\n100.5 3\nEND IONS\n"
                             "begin ions\npepmass=400\nend ions");
    EXPECT_EQ(outcome.errors, QByteArray());
    ASSERT_EQ(outcome.records.size(), 2U);
    const Spectrum& first = outcome.records[0];
    EXPECT_EQ(first.title, u"a b"_s);
    EXPECT_EQ(first.precursor, 500.25);
    EXPECT_EQ(first.charges, std::vector{3});
    EXPECT_EQ(first.peaks.mz, (std::vector{100.5, 200.5}));
    EXPECT_EQ(first.peaks.intensities, (std::vector{3.0, 7.0}));
    EXPECT_EQ(outcome.records[1].title, u"index=2"_s);
    EXPECT_EQ(outcome.records[1].charges, (std::vector{2, 3}));
}

TEST(Mgf, TitlesKeepBytesThatAreNoUtf8AsTheirNumbers)
{
    const auto outcome = mgf("BEGIN IONS\nTITLE=caf\xe9 1\nPEPMASS=400\nEND IONS\n");
    ASSERT_EQ(outcome.records.size(), 1U);
    EXPECT_EQ(outcome.records[0].title, u"caf%E9 1"_s);
}

TEST(Mgf, ReadsCharges)
{
    EXPECT_EQ(readCharges("2+").value(), std::vector{2});
    EXPECT_EQ(readCharges("3").value(), std::vector{3});
    EXPECT_EQ(readCharges("1-").value(), std::vector{-1});
    EXPECT_EQ(readCharges("2+ and 3+").value(), (std::vector{2, 3}));
    EXPECT_EQ(readCharges("2+,3+,2+").value(), (std::vector{2, 3}));
    for (const char* text : {"", "0", "2++", "x", "and", "2+ or 3+", "99999999999+", "-2+"})
        EXPECT_FALSE(readCharges(text)) << text;
}

TEST(Mgf, RefusesSpectraOneByOne)
{
    for (const char* line : {"CHARGE=two", "PEPMASS=0", "PEPMASS=", "PEPMASS=nan", "101 nan",
                             "101 inf", "101", "x y", "-1 5", "101 -5", "nan 1"}) {
        const auto outcome = mgf(spectrumWith(line));
        ASSERT_EQ(outcome.records.size(), 1U) << line;
        EXPECT_EQ(outcome.records[0].title, u"good"_s);
        EXPECT_TRUE(outcome.errors.startsWith("file:3:")) << outcome.errors.toStdString();
        EXPECT_EQ(outcome.errors.count('\n'), 1);
    }
}

// A decimal comma would make 785.8421 a precursor of 785, and 175.119 a peak of 175.
TEST(Mgf, RefusesDecimalCommas)
{
    const std::vector<std::pair<QByteArray, QByteArray>> places = {
        {"175,119 21", "file:3:3: "}, {"175.119\t21,5", "file:3:10: "}, {"175 ,5", "file:3:4: "},
        {"175,119,21", "file:3:3: "}, {"175,,21.5", "file:3:4: "},      {" 175,1 2", "file:3:4: "}};
    for (const auto& [line, place] : places) {
        const auto outcome = mgf(spectrumWith(line));
        EXPECT_EQ(outcome.records.size(), 1U) << line.constData();
        EXPECT_TRUE(outcome.errors.startsWith(place)) << outcome.errors.constData();
    }
    const auto outcome = mgf("BEGIN IONS\nPEPMASS= 785,8421 1000\nEND IONS\n");
    EXPECT_TRUE(outcome.records.empty());
    EXPECT_EQ(outcome.errors, "file:2:12: expected a full stop in a number, not a comma\n");
}

TEST(Mgf, TakesCommasThatCanOnlyPartColumns)
{
    for (const char* line :
         {"175.5,21", "175.5, 21", "175.5 , 21", "175.5,21,2", "175.5 21 2,3", "175.5,\t21,"}) {
        const auto outcome = mgf(spectrumWith(line));
        ASSERT_EQ(outcome.records.size(), 2U) << line << outcome.errors.constData();
        EXPECT_EQ(outcome.records[0].peaks.mz, (std::vector{100.0, 175.5})) << line;
        EXPECT_EQ(outcome.records[0].peaks.intensities, (std::vector{1.0, 21.0})) << line;
    }
}

TEST(Mgf, RefusesASecondPrecursor)
{
    const auto outcome = mgf(spectrumWith("PEPMASS=500.5"));
    ASSERT_EQ(outcome.records.size(), 1U);
    EXPECT_EQ(outcome.errors, "file:3:0: expected one PEPMASS only\n");
}

TEST(Mgf, RefusesSpectraWithoutPrecursorAndThoseThatDoNotEnd)
{
    const auto outcome = mgf("BEGIN IONS\n100 1\nEND IONS\nBEGIN IONS\nPEPMASS=4\n"
                             "BEGIN IONS\nTITLE=good\nPEPMASS=5\nEND IONS\nEND IONS\n100 1\n101 1\n"
                             "BEGIN IONS\nPEPMASS=6\n");
    ASSERT_EQ(outcome.records.size(), 1U);
    EXPECT_EQ(outcome.records[0].title, u"good"_s);
    EXPECT_EQ(outcome.errors, "file:1:0: expected PEPMASS with an m/z above 0\n"
                              "file:4:0: expected END IONS before the next BEGIN IONS\n"
                              "file:10:0: expected BEGIN IONS before END IONS\n"
                              "file:13:0: expected END IONS before the file ends\n");
}

TEST(Mgf, TellsWhenThereAreNoSpectra)
{
    for (const char* bytes : {"", "\n", "# remark\n", "MASS=Monoisotopic\nCHARGE=2+\n"})
        EXPECT_EQ(mgf(bytes).errors, "file:1:0: expected spectra\n") << bytes;
    EXPECT_EQ(mgf("100 1\n").errors, "file:1:0: expected BEGIN IONS\n");
}

TEST(Mgf, SurvivesAMillionEmptyRecords)
{
    const auto outcome = mgf(QByteArray("BEGIN IONS\nEND IONS\n").repeated(1000000));
    EXPECT_TRUE(outcome.records.empty());
    EXPECT_EQ(outcome.errors.count('\n'), 1000000);
}
