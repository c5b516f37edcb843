#include "Backbone.h"
#include "BuiltMolecules.h"
#include "TestPrinters.h"
#include <zel_chemical_model/EstablishLink.h>

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using chem::MoleculeEntity;
using Places = QList<std::pair<int, int>>;

Parsed<Backbone> backboneOf(const MoleculeEntity& molecule)
{
    return Backbone::ofMolecule(molecule, residues());
}

void expectRefusal(const MoleculeEntity& molecule, qsizetype chain, qsizetype residue,
                   const QString& part)
{
    const Parsed<Backbone> backbone = backboneOf(molecule);
    ASSERT_FALSE(backbone.hasValue());
    EXPECT_EQ(backbone.error().chain, chain);
    EXPECT_EQ(backbone.error().residue, residue);
    EXPECT_TRUE(backbone.error().message.contains(part)) << backbone.error().message.toStdString();
}

TEST(RefusedMolecules, LinksThatNobodyCanPlaceAreRefused)
{
    const MoleculeEntity loop =
        chem::EstablishLink(group(u"H-2"_s), {{0, 3}, {0, 5}}).transform(builtPeptide(u"GACSCG"_s));
    const MoleculeEntity piece = pieceOf(loop, nullptr, 2, 7);
    expectRefusal(pieceOf(piece, nullptr, 0, 5), 0, 3, u"cut"_s);
    const MoleculeEntity rebuilt =
        chem::constructProteinFromChains(QString(), piece.chains(), {}, piece.links(), nullptr);
    expectRefusal(rebuilt, 0, 2, u"cut"_s);
}

TEST(RefusedMolecules, OpenGroupsFromBeforeACutAreRefused)
{
    const MoleculeEntity open = modified(builtPeptide(u"GSAS"_s), u"HPO3"_s, {{0, 2}, {0, 4}});
    expectRefusal(pieceOf(open, nullptr, 2, 5), 0, 2, u"cut"_s);
    const MoleculeEntity later =
        modified(pieceOf(builtPeptide(u"GSAS"_s), nullptr, 2, 5), u"HPO3"_s, {{0, 0}, {0, 2}});
    EXPECT_EQ(backboneOf(later)->chains()[0].open[0].units, (std::vector<qsizetype>{0, 2}));
}

TEST(RefusedMolecules, EntitiesWithoutChainsAreRefused)
{
    const auto factory = chem::defaultChemicalFactory();
    for (const MoleculeEntity& entity :
         {MoleculeEntity(nullptr), MoleculeEntity(5), MoleculeEntity(5.5), group(u"H2O"_s),
          MoleculeEntity(chem::AminoAcid()), MoleculeEntity(chem::Modification()),
          MoleculeEntity(chem::StructuredMolecule()),
          MoleculeEntity(factory->constructGlycanModification(u"Hex(5)HexNAc(2)"_s)),
          builtPeptide(u"GG"_s).chains()[0].residues()[1]}) {
        expectRefusal(entity, -1, -1, u"chain"_s);
    }
}

TEST(RefusedMolecules, ChainsOfAnythingElseAreRefused)
{
    const auto residues = peptideChain(u"GG"_s).residues();
    expectRefusal(ofResidues(residues, chem::MoleculeType::Sugar), 0, -1, u"amino acids"_s);
    expectRefusal(ofResidues(residues, chem::MoleculeType::Unknown), 0, -1, u"amino acids"_s);
    EXPECT_TRUE(backboneOf(ofResidues(residues, chem::MoleculeType::Protein)).hasValue());
    expectRefusal(builtPeptide(QString()), 0, -1, u"between its ends"_s);
    expectRefusal(ofResidues({}), 0, -1, u"between its ends"_s);
    expectRefusal(builtOligo(u"not in the grammar"_s), 0, -1, u"between its ends"_s);
    expectRefusal(pieceOf(builtPeptide(u"GG"_s), nullptr, 5, 9), 0, -1, u"between its ends"_s);
    const auto second = chem::constructProteinFromChains(
        QString(), {peptideChain(u"GG"_s), peptideChain(QString())}, {}, {}, nullptr);
    expectRefusal(second, 1, -1, u"between its ends"_s);
}

TEST(RefusedMolecules, OddResiduesOfPeptidesAreRefused)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const auto residues = peptideChain(u"GG"_s).residues();
    expectRefusal(builtPeptide(u"GXG"_s), 0, 2, u"with a mass"_s);
    expectRefusal(
        chem::Modify(chem::Modification(nullptr, {{0, 2}})).transform(builtPeptide(u"GXG"_s)), 0, 2,
        u"with a mass"_s);
    expectRefusal(ofResidues({residues[0], nan, residues[1]}), 0, 1, u"with a mass"_s);
    expectRefusal(ofResidues({residues[0], residues[1], nullptr, residues[1], residues[3]}), 0, 2,
                  u"with a mass"_s);
    expectRefusal(ofResidues({113.5, residues[1]}), 0, 0, u"an end that the factory knows"_s);
    expectRefusal(ofResidues({residues[1], 113.5}), 0, 1, u"an end that the factory knows"_s);
    expectRefusal(ofResidues({residues[0], residues[1], residues[3], residues[2], residues[3]}), 0,
                  2, u"not an end"_s);
    expectRefusal(ofResidues({residues[3], residues[1], residues[0]}), 0, 0, u"an end"_s);
    expectRefusal(chem::Modify(chem::Modification(nan, {{0, 0}})).transform(builtPeptide(u"G"_s)),
                  0, 0, u"end with a mass"_s);
    expectRefusal(chem::Modify(chem::Modification(nan, {{0, 2}})).transform(builtPeptide(u"G"_s)),
                  0, 2, u"end with a mass"_s);
}

TEST(RefusedMolecules, OddPartsOfOligonucleotidesAreRefused)
{
    using chem::MoleculeType;
    expectRefusal(builtOligo(u"A300C"_s), 0, 5, u"not the mass of one"_s);
    expectRefusal(builtOligo(u"300"_s), 0, 0, u"a sugar or a 5' end"_s);
    const auto parts = builtOligo(u"AC"_s).chains()[0].residues();
    const auto sliced = [&parts](qsizetype from, qsizetype to) {
        return ofResidues(parts.sliced(from, to - from), MoleculeType::OligoNucleotide);
    };
    EXPECT_EQ(backboneOf(sliced(1, 7))->chains()[0].letters, u"AC"_s);
    expectRefusal(sliced(2, 8), 0, 0, u"a sugar or a 5' end"_s);
    expectRefusal(sliced(0, 6), 0, 4, u"for each nucleotide"_s);
    expectRefusal(sliced(0, 5), 0, 4, u"for each nucleotide"_s);
    auto odd = parts;
    odd[2] = parts[1];
    expectRefusal(ofResidues(odd, MoleculeType::OligoNucleotide), 0, 2, u"a base"_s);
    odd = parts;
    odd[3] = parts[2];
    expectRefusal(ofResidues(odd, MoleculeType::OligoNucleotide), 0, 3, u"a linkage"_s);
    odd = parts;
    odd[4] = parts[5];
    expectRefusal(ofResidues(odd, MoleculeType::OligoNucleotide), 0, 4, u"a sugar"_s);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    expectRefusal(chem::Modify(chem::Modification(nan, {{0, 5}})).transform(builtOligo(u"AC"_s)), 0,
                  5, u"with a mass"_s);
}

MoleculeEntity withModification(const chem::Modification& modification)
{
    return chem::constructProteinFromChains(
        QString(), {peptideChain(u"GG"_s), peptideChain(u"AA"_s)}, {modification}, {}, nullptr);
}

TEST(RefusedMolecules, PlacesThatAreNotThereAreRefused)
{
    const MoleculeEntity methyl = group(u"CH2"_s);
    for (const auto& place : Places{{0, 4}, {2, 1}, {-1, 0}, {0, -1}}) {
        expectRefusal(withModification({methyl, {place}}), place.first, place.second,
                      u"modification"_s);
        expectRefusal(withModification({methyl, {{0, 1}, place}}), place.first, place.second,
                      u"modification"_s);
        for (const chem::Link& link :
             {chem::Link(methyl, {{0, 1}, place}), chem::Link(methyl, {place, {0, 1}})}) {
            const auto linked = chem::constructProteinFromChains(QString(), {peptideChain(u"GG"_s)},
                                                                 {}, {link}, nullptr);
            expectRefusal(linked, place.first, place.second, u"link"_s);
        }
    }
}

TEST(RefusedMolecules, OpenGroupsThatNoChainHoldsAloneAreRefused)
{
    const MoleculeEntity methyl = group(u"CH2"_s);
    expectRefusal(withModification({methyl, {{0, 1}, {1, 2}}}), 1, 2, u"one chain"_s);
    expectRefusal(withModification({methyl, {}}), -1, -1, u"several chains"_s);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    expectRefusal(withModification({nan, {}}), -1, -1, u"with a mass"_s);
}

TEST(RefusedMolecules, NothingOpenOrLinkedSitsOnALinkage)
{
    const MoleculeEntity oligo = builtOligo(u"ACG"_s);
    expectRefusal(modified(oligo, u"CH2"_s, {{0, 3}, {0, 4}}), 0, 3, u"on a linkage"_s);
    expectRefusal(chem::EstablishLink(group(u"CH2"_s), {{0, 1}, {0, 6}}).transform(oligo), 0, 6,
                  u"on a linkage"_s);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    expectRefusal(chem::EstablishLink(nan, {{0, 1}, {0, 4}}).transform(oligo), 0, 1,
                  u"with a mass"_s);
}

} // namespace

} // namespace ions
