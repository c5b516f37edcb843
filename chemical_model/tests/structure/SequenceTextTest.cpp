#include "structure/SequenceText.h"

#include "SmallMolecules.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using chem::Chain;
using chem::Link;
using chem::Modification;
using chem::MoleculeEntity;
using chem::StructuredMolecule;

namespace {

MoleculeEntity residue(const QString& code)
{
    return chem::NamedMolecule({}, u"name of "_s + code, code);
}

QString textOf(const QList<Chain>& chains, const QList<Link>& links = {},
               const QList<Modification>& modifications = {})
{
    StructuredMolecule molecule;
    molecule.chains = chains;
    molecule.links = links;
    molecule.modifications = modifications;
    return chem::sequenceText(molecule);
}

MoleculeEntity modified(const QString& code, int modifications)
{
    StructuredMolecule molecule;
    molecule.code = code;
    molecule.modifications = QList<Modification>(modifications, Modification(residue(u"P"_s), {}));
    return molecule;
}

TEST(SequenceText, ShowsCodesLinksAndModifications)
{
    const Chain ac = smallMolecules::chainOf({residue(u"A"_s), residue(u"C"_s)});
    const Chain d = smallMolecules::chainOf({residue(u"D"_s)});
    EXPECT_EQ(textOf({ac, d}, {Link(1, {{0, 0}, {1, 0}})}, {Modification(5, {})}),
              u"A[*1]C/D[*1][]"_s);
    EXPECT_EQ(textOf({}), QString());
    EXPECT_EQ(textOf({}, {}, {Modification(), Modification()}), u"[][]"_s);
    EXPECT_EQ(textOf({ac, smallMolecules::chainOf({})}), u"AC/"_s);
    EXPECT_EQ(textOf({smallMolecules::chainOf({}), ac}), u"/AC"_s);
    EXPECT_EQ(textOf({smallMolecules::chainOf({residue(u""_s), residue(u"AB"_s)})}), u"AB"_s);
    EXPECT_EQ(textOf({smallMolecules::chainOf({modified(u"K"_s, 2), residue(u"R"_s)})},
                     {Link(1, {{0, 0}, {0, 1}})}),
              u"K[][][*1]R[*1]"_s);
}

TEST(SequenceText, NumbersLinksInTheirOrder)
{
    const Chain ac = smallMolecules::chainOf({residue(u"A"_s), residue(u"C"_s)});
    const QList<Link> links = {Link(1, {{0, 0}, {0, 1}}), Link(1, {{0, 1}, {0, 0}}),
                               Link(1, {{0, 0}, {5, 5}})};
    EXPECT_EQ(textOf({ac}, links), u"A[*1][*2][*3]C[*1][*2]"_s);
    EXPECT_EQ(textOf({ac}, {Link(1, {{0, 1}, {0, 1}})}), u"AC[*1][*1]"_s);
    EXPECT_EQ(textOf({ac}, {Link(1, {{-1, 0}, {7, 7}})}), u"AC"_s);
}

TEST(SequenceText, CodesOfModificationsDoNotShow)
{
    const Chain a = smallMolecules::chainOf({residue(u"A"_s)});
    EXPECT_EQ(textOf({a}, {}, {Modification(residue(u"P"_s), {{0, 0}})}), u"A[]"_s);
    EXPECT_EQ(textOf({a}, {Link(residue(u"L"_s), {{0, 0}, {0, 0}})}), u"A[*1][*1]"_s);
}

TEST(SequenceText, MillionResiduesArePrintedWithTheirLinks)
{
    const QList<MoleculeEntity> residues(1000000, residue(u"A"_s));
    const Chain one = smallMolecules::chainOf(residues);
    EXPECT_EQ(textOf({one}, {Link(1, {{0, 0}, {0, 999999}})}).size(), 1000000 + 8);
}

TEST(SequenceText, NumbersOfLinksHaveAllTheirDigits)
{
    const QList<Link> links(12, Link(1, {{0, 0}, {9, 9}}));
    EXPECT_EQ(textOf({smallMolecules::chainOf({residue(u"A"_s)})}, links),
              u"A[*1][*2][*3][*4][*5][*6][*7][*8][*9][*10][*11][*12]"_s);
}

TEST(SequenceText, IsWhatAMoleculeAnswers)
{
    EXPECT_EQ(smallMolecules::proteinWithParts().sequence(), u"A[*1]SK[*1]C[][]"_s);
}

} // namespace
