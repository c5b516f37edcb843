#include "OligoParts.h"

#include "OligoScanner.h"
#include "TestPrinters.h"
#include <ChemicalFactory.h>

#include <gtest/gtest.h>

#include <array>
#include <barrier>
#include <memory>
#include <set>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using chem::Molecule;
using chem::NamedMolecule;
using chem::Nucleotide;
using chem::OligoParts;
using chem::OligoUnit;
using chem::PreparedNucleotide;

Molecule molecule(const QString& formula)
{
    return chem::defaultChemicalFactory()->constructMolecule(formula);
}

/// A dictionary of the letters of `keys`.
chem::LetterTable letters(const QString& keys)
{
    QMap<QString, NamedMolecule> dictionary;
    for (const QChar key : keys)
        dictionary.insert(key, NamedMolecule(molecule(u"C"_s), u"name of "_s + key, key));
    return chem::LetterTable(dictionary);
}

std::unique_ptr<OligoParts> makeParts(const QString& nucleobases)
{
    return std::make_unique<OligoParts>(
        OligoParts::Blocks{letters(u"r"_s), letters(nucleobases), letters(u"*"_s), letters(u"["_s),
                           letters(u"]"_s), NamedMolecule(molecule(u"O"_s), u"sugar"_s, QString()),
                           NamedMolecule(molecule(u"P"_s), u"linkage"_s, QString())},
        chem::OligoSites::Pieces{molecule(u"H"_s), molecule(u"OH"_s), molecule(u"O"_s),
                                 molecule(u"H2"_s)});
}

OligoUnit unitOf(QStringView ribose, QStringView base, QStringView phosphates)
{
    return {{}, ribose, base, {}, phosphates};
}

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

TEST(OligoParts, ThreadsThatAskForANewNucleotideAtOnceGetTheSame)
{
    const OligoUnit unit = unitOf(u"r", u"A", u"*");
    for (int round = 0; round < 300; ++round) {
        const auto parts = makeParts(u"A"_s);
        std::barrier start(3);
        std::array<const PreparedNucleotide*, 3> seen{};
        std::vector<std::thread> threads;
        for (auto& mine : seen) {
            threads.emplace_back([&] {
                start.arrive_and_wait();
                mine = parts->prepared(unit, false);
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        ASSERT_TRUE(seen[0]);
        EXPECT_EQ(seen[0], seen[1]);
        EXPECT_EQ(seen[0], seen[2]);
    }
}

TEST(OligoParts, ThreadsThatPrepareTheSameNucleotideShareIt)
{
    const QString nucleobases = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ"_s;
    const auto parts = makeParts(nucleobases);
    std::vector<std::vector<const PreparedNucleotide*>> seen(4);
    std::vector<std::thread> threads;
    for (auto& mine : seen) {
        threads.emplace_back([&parts, &nucleobases, &mine] {
            for (int round = 0; round < 20; ++round) {
                for (const QChar& letter : nucleobases)
                    mine.push_back(
                        parts->prepared(unitOf({}, QStringView(&letter, 1), {}), round % 2));
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    std::set<const PreparedNucleotide*> different;
    for (const auto& mine : seen) {
        for (std::size_t i = 0; i < mine.size(); ++i) {
            const QChar letter = nucleobases[static_cast<qsizetype>(i % 26)];
            if (!mine[i])
                continue; // lost a slot to another nucleotide and is read each time
            EXPECT_EQ(mine[i]->nucleotide.name, u"name of "_s + letter);
            different.insert(mine[i]);
        }
    }
    EXPECT_LE(different.size(), 52U);
    EXPECT_GE(different.size(), 40U);
}

} // namespace
