#include "EveryAllocation.h"
#include "WaysOut.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace faults;

using chem::ChemicalFactory;
using Complex = QSharedPointer<chem::MoleculeComplex>;

/// A factory that has read nothing yet.
QSharedPointer<ChemicalFactory> freshFactory()
{
    return ChemicalFactory::construct(QString());
}

/// One that has read an oligonucleotide: to make the reader takes thousands of allocations.
QSharedPointer<ChemicalFactory> factoryInUse()
{
    const auto factory = freshFactory();
    factory->isValidOligoSequence(u"A"_s);
    return factory;
}

/// One of few building blocks, whose reader is soon made.
QSharedPointer<ChemicalFactory> smallFactory()
{
    const auto factory = ChemicalFactory::construct(u" "_s); // is not read: no blocks
    const auto set = [&factory](ChemicalFactory::BuildingBlockType type, const QString& code) {
        factory->setBuildingBlock(type, code, u"name"_s, u"CH2"_s);
    };
    set(ChemicalFactory::FivePrimeTerminalBlock, u"{"_s);
    set(ChemicalFactory::RiboseBlock, u"r"_s);
    set(ChemicalFactory::NucleobaseBlock, u"A"_s);
    set(ChemicalFactory::PhosphateBlock, u"*"_s);
    set(ChemicalFactory::ThreePrimeTerminalBlock, u"]"_s);
    return factory;
}

/// With a key that only the expression engine can match: it closes its class, so that a base is one
/// of the letters, perhaps "PEG", and "[x]".
QSharedPointer<ChemicalFactory> factoryForTheEngine()
{
    const auto factory = smallFactory();
    factory->setBuildingBlock(ChemicalFactory::NucleobaseBlock, u"\\](?:PEG)?[x"_s, u"odd"_s,
                              u"O"_s);
    return factory;
}

template <typename Monomer>
using Parsed = std::tuple<QSharedPointer<ChemicalFactory>, QList<QSharedPointer<const Monomer>>,
                          chem::NamedMolecule, chem::NamedMolecule, bool>;

TEST(SequenceFaults, ReadingPeptides)
{
    stopAtSharedPointersTo<chem::AminoAcid>();
    const auto make = [] {
        return Parsed<chem::AminoAcid>(freshFactory(), {}, {}, {}, true);
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [factory, residues, left, right, isRead] = state;
        factory->parseAminoAcidSequence(u"ACJ\u0416"_s, &residues, &left, &right);
        factory->parseAminoAcidSequence(u"DR"_s, &residues, &left, &right);
    });
}

void expectSafeOligo(const QString& text,
                     const std::function<QSharedPointer<ChemicalFactory>()>& factoryOf)
{
    stopAtSharedPointersTo<chem::Nucleotide>();
    const auto make = [&] {
        return Parsed<chem::Nucleotide>(factoryOf(), {}, {}, {}, false);
    };
    failAtEveryAllocation(Afterwards::Usable, make, [&text](auto& state) {
        auto& [factory, nucleotides, left, right, isRead] = state;
        isRead = factory->isValidOligoSequence(text) &&
                 factory->parseNucleotideSequence(text, &nucleotides, &left, &right);
    });
}

TEST(SequenceFaults, ReadingOligonucleotides)
{
    expectSafeOligo(u"{rA*+G.**dC12.5fU]"_s, factoryInUse);
    expectSafeOligo(u"-318.2"_s, factoryInUse);
    expectSafeOligo(u"rA*rZ"_s, factoryInUse);
}

TEST(SequenceFaults, ReadingOligonucleotidesForTheFirstTime)
{
    ASSERT_TRUE(smallFactory()->isValidOligoSequence(u"{rA*A]"_s));
    expectSafeOligo(u"{rA*A]"_s, smallFactory);
}

TEST(SequenceFaults, ReadingOligonucleotidesOfManyUnits)
{
    expectSafeOligo(u"rA*dC"_s.repeated(20), factoryInUse);
}

TEST(SequenceFaults, ReadingOligonucleotidesWithTheEngine)
{
    ASSERT_TRUE(factoryForTheEngine()->isValidOligoSequence(u"rAPEG[x]*A[x]"_s));
    expectSafeOligo(u"A[x]"_s, factoryForTheEngine);
    expectSafeOligo(u"rAPEG[x]*A[x]"_s, factoryForTheEngine);
}

TEST(SequenceFaults, MakingExpressions)
{
    const auto make = [] {
        return std::tuple(factoryInUse(), QRegularExpression(), QRegularExpression());
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [factory, full, unit] = state;
        full = factory->generateFullOligoRegex();
        unit = factory->generateOligoSequenceRegex();
    });
}

TEST(SequenceFaults, ReadingGlycans)
{
    const auto make = [] {
        return std::tuple(freshFactory(), false, chem::Molecule(), chem::Molecule());
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [factory, isValid, modification, modified] = state;
        isValid = factory->isValidGlycanComposition(u"HexNAc(2)Hex(5)"_s);
        modification = factory->constructGlycanModification(u"HexNAc(2) x Na(1)"_s);
        modified = factory->modifyMoleculeWithGlycan(modification, u"Fuc(1)"_s);
    });
}

void stopAtPartsOfComplexes()
{
    stopAtSharedPointersTo<chem::Nucleotide, chem::ComplexResidue, chem::FragmentationSite,
                           chem::MoleculeComplex>();
}

TEST(SequenceFaults, LayingOutPeptides)
{
    stopAtPartsOfComplexes();
    const auto make = [] {
        return std::tuple(freshFactory(), Complex());
    };
    failAtEveryAllocation(Afterwards::OldOrNew, make, [](auto& state) {
        auto& [factory, complex] = state;
        complex = factory->constructLinearPeptideComplex(u"ACJ"_s);
    });
}

TEST(SequenceFaults, LayingOutOligonucleotides)
{
    stopAtPartsOfComplexes();
    const auto make = [] {
        return std::tuple(factoryInUse(), Complex());
    };
    failAtEveryAllocation(Afterwards::OldOrNew, make, [](auto& state) {
        auto& [factory, complex] = state;
        complex = factory->constructLinearOligoComplex(u"{rA* dC 5.25]"_s);
    });
}

TEST(SequenceFaults, LayingOutLaddersOfOligonucleotides)
{
    stopAtPartsOfComplexes();
    const auto make = [] {
        return std::tuple(factoryInUse(), QList<QSharedPointer<const chem::MoleculeComplex>>());
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [factory, complexes] = state;
        factory->constructLinearOligoComplexes(u"rA*dCG"_s, 2, 1, &complexes);
    });
}

/// What a complex breaks into, with both generators.
void expectSafeFragments(const std::function<Complex()>& complexOf)
{
    stopAtSharedPointersTo<chem::Fragment>();
    const auto make = [&] {
        return std::tuple(complexOf(), QList<QSharedPointer<chem::Fragment>>(),
                          QList<chem::SimpleFragment>());
    };
    failAtEveryAllocation(Afterwards::Usable, make, [](auto& state) {
        auto& [complex, rich, flat] = state;
        chem::defaultChemicalFactory()->generateLinearFragments(*complex, &rich);
        chem::generateLinearFragments(*complex, flat);
    });
}

TEST(SequenceFaults, FragmentsOfPeptides)
{
    expectSafeFragments([] { return freshFactory()->constructLinearPeptideComplex(u"ACD"_s); });
}

TEST(SequenceFaults, FragmentsOfOligonucleotides)
{
    expectSafeFragments([] { return freshFactory()->constructLinearOligoComplex(u"rA*dC"_s); });
}

} // namespace
