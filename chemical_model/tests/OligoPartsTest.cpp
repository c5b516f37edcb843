#include "OligoParts.h"

#include "OligoPartsOfLetters.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace oligoPartsOfLetters;

namespace {

using chem::Molecule;
using chem::Nucleotide;
using chem::OligoParts;
using chem::OligoUnit;
using chem::PreparedNucleotide;

QString describe(const Nucleotide& nucleotide)
{
    return QStringList({nucleotide.code, nucleotide.name, nucleotide.ribose.name,
                        nucleotide.phosphate.name, nucleotide.formula().toString()})
        .join(u'|');
}

TEST(OligoParts, PreparedNucleotideIsTheOneThatIsRead)
{
    const auto parts = makeParts(u"AC"_s);
    for (const QStringView ribose : {QStringView(), QStringView(u"r")}) {
        for (const QStringView phosphates : {QStringView(), QStringView(u"*")}) {
            for (const bool isLast : {false, true}) {
                const OligoUnit unit = unitOf(ribose, u"A", phosphates);
                const PreparedNucleotide* prepared = parts->prepared(unit, isLast);
                ASSERT_TRUE(prepared);
                EXPECT_EQ(describe(prepared->nucleotide), describe(parts->read(unit, isLast)));
                EXPECT_EQ(parts->prepared(unit, isLast), prepared);
            }
        }
    }
    const Nucleotide& last = parts->prepared(unitOf({}, u"A", {}), true)->nucleotide;
    EXPECT_EQ(describe(last), u"A|name of A|sugar||C1O"_s);
    const Nucleotide& other = parts->prepared(unitOf({}, u"A", {}), false)->nucleotide;
    EXPECT_EQ(describe(other), u"A|name of A|sugar|linkage|C1OP"_s);
}

TEST(OligoParts, RareNucleotidesAreNotKept)
{
    const auto parts = makeParts(u"AC"_s);
    OligoUnit number;
    number.number = u"100";
    EXPECT_FALSE(parts->prepared(number, false));
    EXPECT_FALSE(parts->prepared(unitOf({}, u"A", u"**"), false));
    EXPECT_FALSE(parts->prepared(unitOf({}, u"😀", {}), false));
    EXPECT_FALSE(parts->prepared(unitOf(u"😀", u"A", {}), false));
}

TEST(OligoParts, FullTableChangesNoNucleotide)
{
    QString nucleobases;
    for (char16_t letter = 0x4e00; letter < 0x5200; ++letter)
        nucleobases += QChar(letter);
    const auto parts = makeParts(nucleobases);
    int kept = 0;
    for (const QChar& letter : std::as_const(nucleobases)) {
        const OligoUnit unit = unitOf({}, QStringView(&letter, 1), {});
        const PreparedNucleotide* prepared = parts->prepared(unit, false);
        kept += prepared != nullptr;
        if (prepared) {
            EXPECT_EQ(prepared->nucleotide.name, u"name of "_s + letter);
        }
        EXPECT_EQ(parts->read(unit, false).name, u"name of "_s + letter);
    }
    EXPECT_GT(kept, 100);
    EXPECT_LT(kept, nucleobases.size());
}

TEST(OligoParts, CopiesOfAPreparedNucleotideAreRecognised)
{
    const auto parts = makeParts(u"AC"_s);
    const PreparedNucleotide* prepared = parts->prepared(unitOf(u"r", u"A", u"*"), false);
    const Nucleotide copy = prepared->nucleotide;
    EXPECT_EQ(parts->preparedFor(copy), prepared);

    Nucleotide changed = copy;
    changed.phosphate += molecule(u"H"_s);
    EXPECT_FALSE(parts->preparedFor(changed));
    const Nucleotide elsewhere = makeParts(u"AC"_s)->read(unitOf(u"r", u"A", u"*"), false);
    EXPECT_FALSE(parts->preparedFor(elsewhere));
}

TEST(OligoParts, MoleculesShareWhenFormulaAndBothMassesDo)
{
    const Molecule carbon = molecule(u"C"_s);
    const chem::ChemicalFormula& formula = carbon.formula();
    EXPECT_TRUE(chem::isSharedMolecule(Molecule(formula, 2.0, 1.0), Molecule(formula, 2.0, 1.0)));
    EXPECT_FALSE(chem::isSharedMolecule(Molecule(formula, 2.0, 1.0), Molecule(formula, 2.0, 1.5)));
    EXPECT_FALSE(chem::isSharedMolecule(Molecule(formula, 2.0, 1.0), Molecule(formula, 2.5, 1.0)));
    EXPECT_FALSE(chem::isSharedMolecule(carbon, molecule(u"C"_s))); // equal, but not shared
    EXPECT_FALSE(chem::isSharedMolecule(Molecule({}, 2.0, 1.0), Molecule(formula, 2.0, 1.0)));
    EXPECT_FALSE(chem::isSharedMolecule(Molecule(formula, 2.0, 1.0), Molecule({}, 2.0, 1.0)));
    EXPECT_TRUE(chem::isSharedMolecule(Molecule({}, 2.0, 1.0), Molecule({}, 2.0, 1.0)));
    EXPECT_FALSE(chem::isSharedMolecule(Molecule({}, 0.0, 1.0), Molecule({}, -0.0, 1.0)));
}

} // namespace
