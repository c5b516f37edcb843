#include "sequences/OligoNucleotides.h"

#include "OligoLetters.h"
#include "SameMolecules.h"

#include <gtest/gtest.h>

using namespace oligoLetters;

namespace {

using chem::Nucleotide;
using chem::OligoNucleotides;
using chem::OligoUnit;

QString describe(const Nucleotide& nucleotide)
{
    return QStringList({nucleotide.code, nucleotide.name, nucleotide.ribose.name,
                        nucleotide.phosphate.name, nucleotide.formula().toString()})
        .join(u'|');
}

TEST(OligoNucleotides, PreparedNucleotideIsTheOneThatIsMade)
{
    const OligoNucleotides nucleotides(blocks(u"ACé"_s), sites());
    for (const QStringView ribose : {QStringView(), QStringView(u"r")}) {
        for (const QStringView base : {u"A", u"C", u"é"}) {
            for (const QStringView phosphates : {QStringView(), QStringView(u"*")}) {
                for (const bool isLast : {false, true}) {
                    const OligoUnit unit = unitOf(ribose, base, phosphates);
                    const auto* const prepared = nucleotides.find(unit, isLast);
                    ASSERT_TRUE(prepared);
                    expectSame(prepared->nucleotide, nucleotides.make(unit, isLast));
                }
            }
        }
    }
}

TEST(OligoNucleotides, LinkageThatIsNotWrittenIsTheDefaultOneExceptAtTheEnd)
{
    const OligoNucleotides nucleotides(blocks(u"AC"_s), sites());
    EXPECT_EQ(describe(nucleotides.find(unitOf({}, u"A", {}), true)->nucleotide),
              u"A|name of A|sugar||C1O"_s);
    EXPECT_EQ(describe(nucleotides.find(unitOf({}, u"A", {}), false)->nucleotide),
              u"A|name of A|sugar|linkage|C1OP"_s);
}

TEST(OligoNucleotides, BreaksAreThoseOfBaseAndLinkage)
{
    const chem::OligoSites oligoSites = sites();
    const OligoNucleotides nucleotides(blocks(u"AC"_s), oligoSites);
    for (const QStringView phosphates : {QStringView(), QStringView(u"*")}) {
        for (const bool isLast : {false, true}) {
            const auto* const prepared = nucleotides.find(unitOf(u"r", u"C", phosphates), isLast);
            const chem::NucleotideBreaks expected = oligoSites.breaksOf(
                prepared->nucleotide.nucleobase, prepared->nucleotide.phosphate);
            expectSame(prepared->breaks->aB, expected.aB);
            expectSame(prepared->breaks->b, expected.b);
            expectSame(prepared->breaks->a, expected.a);
            expectSame(prepared->breaks->nextW, expected.nextW);
            expectSame(prepared->breaks->nextX, expected.nextX);
        }
    }
}

TEST(OligoNucleotides, RareNucleotidesAreNotPrepared)
{
    const OligoNucleotides nucleotides(blocks(u"AC"_s), sites());
    OligoUnit number;
    number.number = u"100";
    EXPECT_FALSE(nucleotides.find(number, false));
    EXPECT_FALSE(nucleotides.find(unitOf({}, u"A", u"**"), false));
    EXPECT_FALSE(nucleotides.find(unitOf({}, u"😀", {}), false));
    EXPECT_FALSE(nucleotides.find(unitOf(u"😀", u"A", {}), false));
    EXPECT_FALSE(nucleotides.find(unitOf({}, u"X", {}), false));
    EXPECT_FALSE(nucleotides.find(unitOf(u"X", u"A", {}), false));
    EXPECT_FALSE(nucleotides.find(unitOf({}, u"A", u"X"), false));
}

TEST(OligoNucleotides, OfAVastDictionaryAreMadeOneByOne)
{
    QString nucleobases;
    for (char16_t letter = 0x4e00; letter < 0x5200; ++letter)
        nucleobases += QChar(letter);
    const OligoNucleotides nucleotides(blocks(nucleobases), sites());
    for (const QChar& letter : std::as_const(nucleobases)) {
        const OligoUnit unit = unitOf({}, QStringView(&letter, 1), {});
        EXPECT_FALSE(nucleotides.find(unit, false));
        EXPECT_EQ(nucleotides.make(unit, false).name, u"name of "_s + letter);
    }
}

} // namespace
