#include "OpenFactory.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

/// \file
/// What holds for the masses of all molecules: laws of chemistry that know nothing of how the
/// library computes them.

using namespace Qt::StringLiterals;

namespace {

using chem::ChemicalFormula;
using chem::Molecule;
using Counts = QMap<QString, double>;

const OpenFactory& factory()
{
    static const OpenFactory shared;
    return shared;
}

bool isNear(double a, double b, double relative = 1e-11)
{
    return std::abs(a - b) <= relative * std::max({1.0, std::abs(a), std::abs(b)});
}

/// Equal counts, where an element that has cancelled out counts as absent.
bool isSameComposition(const ChemicalFormula& a, const ChemicalFormula& b)
{
    const Counts difference = (a - b).elementCountMap();
    return std::all_of(difference.cbegin(), difference.cend(),
                       [](double count) { return count == 0.0; });
}

QString anyFormula()
{
    const QStringList symbols = u"C H N O P S Na Cl Fe Se Br Sn"_s.split(u' ');
    QString text;
    for (const int index : *rc::gen::container<std::vector<int>>(
             static_cast<std::size_t>(*rc::gen::inRange(1, 7)), rc::gen::inRange(0, 12)))
        text += symbols[index] + QString::number(*rc::gen::inRange(0, 400));
    return text;
}

QString anyText(const QString& letters, int shortest = 0)
{
    QString text;
    const int length = *rc::gen::inRange(shortest, shortest + 40);
    for (const int index : *rc::gen::container<std::vector<int>>(
             static_cast<std::size_t>(length),
             rc::gen::inRange(0, static_cast<int>(letters.size()))))
        text += letters[index];
    return text;
}

QString anyPeptide()
{
    return anyText(u"ACDEFGHIKLMNPQRSTVWY"_s);
}

/// Nucleotides with their sugars written; every linkage is written as `linkage`, but for the last
/// nucleotide, which has none.
QString strandText(const QString& bases, QChar sugar, QChar linkage)
{
    QString text;
    for (const QChar base : bases)
        text += QString(sugar) + base + linkage;
    return text.chopped(1);
}

Molecule peptide(const QString& sequence)
{
    return *factory().constructLinearPeptideComplex(sequence);
}

Molecule strand(const QString& text)
{
    const auto complex = factory().constructLinearOligoComplex(text);
    RC_ASSERT(!complex.isNull());
    return *complex;
}

/// The mass of the isotope of which there is most, the first one of equals.
double mostAbundantMass(const IsoSpecElement& element)
{
    const auto most = std::max_element(element.abundances.cbegin(), element.abundances.cend());
    return element.masses[most - element.abundances.cbegin()];
}

RC_GTEST_PROP(MassLaws, MonoisotopicMassIsThatOfTheMostAbundantIsotopes, ())
{
    const Molecule molecule = factory().constructMolecule(anyFormula());
    const Counts& counts = molecule.formula().elementCountMap();
    double expected = 0.0;
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry)
        expected += entry.value() * mostAbundantMass(factory().element(entry.key(), 1));
    RC_ASSERT(isNear(molecule.monoMass(), expected));
}

RC_GTEST_PROP(MassLaws, AverageMassIsTheMeanOverTheIsotopes, ())
{
    const Molecule molecule = factory().constructMolecule(anyFormula());
    const Counts& counts = molecule.formula().elementCountMap();
    double expected = 0.0;
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        const IsoSpecElement element = factory().element(entry.key(), 1);
        for (qsizetype i = 0; i < element.masses.size(); ++i)
            expected += entry.value() * element.masses[i] * element.abundances[i];
    }
    RC_ASSERT(isNear(molecule.averageMass(), expected));
}

RC_GTEST_PROP(MassLaws, AverageMassLiesBetweenTheLightestAndTheHeaviestIsotopologue, ())
{
    const Molecule molecule = factory().constructMolecule(anyFormula());
    const Counts& counts = molecule.formula().elementCountMap();
    double lightest = 0.0;
    double heaviest = 0.0;
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        const QList<double> masses = factory().element(entry.key(), 1).masses;
        lightest += entry.value() * *std::min_element(masses.cbegin(), masses.cend());
        heaviest += entry.value() * *std::max_element(masses.cbegin(), masses.cend());
    }
    // The table's abundances add up to 1 within some 10^-9.
    RC_ASSERT(molecule.averageMass() >= lightest * (1 - 1e-8));
    RC_ASSERT(molecule.averageMass() <= heaviest * (1 + 1e-8));
}

RC_GTEST_PROP(MassLaws, TwoMoleculesWeighTheSumOfBoth, ())
{
    const QString one = anyFormula();
    const QString other = anyFormula();
    const Molecule both = factory().constructMolecule(one + other);
    const Molecule sum = factory().constructMolecule(one) + factory().constructMolecule(other);
    RC_ASSERT(isSameComposition(both.formula(), sum.formula()));
    RC_ASSERT(isNear(both.monoMass(), sum.monoMass()));
    RC_ASSERT(isNear(both.averageMass(), sum.averageMass()));
}

RC_GTEST_PROP(MassLaws, DifferenceOfTwoFormulasWeighsTheDifferenceOfTheirMasses, ())
{
    const Molecule one = factory().constructMolecule(anyFormula());
    const Molecule other = factory().constructMolecule(anyFormula());
    double mono = 0.0;
    double average = 0.0;
    factory().calculateMassesForFormula(one.formula() - other.formula(), &mono, &average);
    const double scale = 1e-11 * (1.0 + one.averageMass() + other.averageMass());
    RC_ASSERT(std::abs(mono - (one.monoMass() - other.monoMass())) <= scale);
    RC_ASSERT(std::abs(average - (one.averageMass() - other.averageMass())) <= scale);
}

RC_GTEST_PROP(MassLaws, OrderOfTheElementsInAFormulaChangesNoMass, ())
{
    QStringList terms;
    for (int i = *rc::gen::inRange(1, 5); i > 0; --i)
        terms.append(anyFormula());
    const Molecule forwards = factory().constructMolecule(terms.join(u""_s));
    std::reverse(terms.begin(), terms.end());
    const Molecule backwards = factory().constructMolecule(terms.join(u""_s));
    RC_ASSERT(forwards.monoMass() == backwards.monoMass());
    RC_ASSERT(forwards.averageMass() == backwards.averageMass());
}

RC_GTEST_PROP(MassLaws, AddedGroupCanBeTakenOffAgain, ())
{
    const Molecule molecule = factory().constructMolecule(anyFormula());
    const QString group = anyFormula();
    const int count = *rc::gen::inRange(1, 9);
    const Molecule there = factory().modifyMolecule(molecule, group, count);
    const Molecule back = factory().modifyMolecule(there, group, -count);
    RC_ASSERT(isSameComposition(back.formula(), molecule.formula()));
    const double scale = 1e-11 * (1.0 + there.averageMass());
    RC_ASSERT(std::abs(back.monoMass() - molecule.monoMass()) <= scale);
    RC_ASSERT(std::abs(back.averageMass() - molecule.averageMass()) <= scale);
}

RC_GTEST_PROP(LabelLaws, CarbonThirteenAddsOneNeutronForEachCarbon, ())
{
    static const OpenFactory labelled(u"C13:1"_s);
    const QString formula = anyFormula();
    const Molecule natural = factory().constructMolecule(formula);
    const Molecule heavy = labelled.constructMolecule(formula);
    const int carbons = natural.formula().elementCount(u"C"_s);
    RC_ASSERT(
        isNear(heavy.monoMass() - natural.monoMass(), carbons * (13.0033548352 - 12.0), 1e-9));
    RC_ASSERT(heavy.formula().elementCountMap() == natural.formula().elementCountMap());
}

RC_GTEST_PROP(PeptideLaws, ReversedPeptideWeighsTheSame, ())
{
    const QString sequence = anyPeptide();
    QString reversed = sequence;
    std::reverse(reversed.begin(), reversed.end());
    const Molecule one = peptide(sequence);
    const Molecule other = peptide(reversed);
    RC_ASSERT(one.formula().elementCountMap() == other.formula().elementCountMap());
    RC_ASSERT(isNear(one.monoMass(), other.monoMass()));
    RC_ASSERT(isNear(one.averageMass(), other.averageMass()));
}

RC_GTEST_PROP(PeptideLaws, LeucineAndIsoleucineCannotBeToldApart, ())
{
    const QString sequence = anyPeptide();
    QString other = sequence;
    other.replace(u'L', u'I');
    RC_ASSERT(peptide(sequence).monoMass() == peptide(other).monoMass());
    RC_ASSERT(peptide(sequence).averageMass() == peptide(other).averageMass());
    RC_ASSERT(peptide(sequence).formula().toString() == peptide(other).formula().toString());
}

RC_GTEST_PROP(PeptideLaws, UnknownLettersAddNeitherMassNorAtoms, ())
{
    const QString known = anyPeptide();
    QString withUnknown = known;
    withUnknown.insert(*rc::gen::inRange<qsizetype>(0, known.size() + 1), u"xB?"_s);
    RC_ASSERT(peptide(known).monoMass() == peptide(withUnknown).monoMass());
    RC_ASSERT(peptide(known).averageMass() == peptide(withUnknown).averageMass());
    RC_ASSERT(peptide(known).formula().toString() == peptide(withUnknown).formula().toString());
}

RC_GTEST_PROP(StrandLaws, ReversedStrandHasTheSameComposition, ())
{
    const QString bases = anyText(u"ACGTUQ"_s, 1);
    QString reversed = bases;
    std::reverse(reversed.begin(), reversed.end());
    RC_ASSERT(strand(bases).formula().elementCountMap() ==
              strand(reversed).formula().elementCountMap());
    RC_ASSERT(isNear(strand(bases).monoMass(), strand(reversed).monoMass()));
}

RC_GTEST_PROP(StrandLaws, LigationGainsALinkageAndLosesWater, ())
{
    const QString one = anyText(u"ACGTU"_s, 1);
    const QString other = anyText(u"ACGTU"_s, 1);
    const Molecule linkage = factory().constructMolecule(u"HPO3"_s);
    const Molecule water = factory().constructMolecule(u"H2O"_s);
    const Molecule expected = strand(one) + strand(other) + linkage - water;
    RC_ASSERT(isSameComposition(strand(one + other).formula(), expected.formula()));
    RC_ASSERT(isNear(strand(one + other).monoMass(), expected.monoMass()));
    RC_ASSERT(isNear(strand(one + other).averageMass(), expected.averageMass()));
}

RC_GTEST_PROP(StrandLaws, PhosphorothioateHasASulphurInPlaceOfAnOxygen, ())
{
    const QString bases = anyText(u"ACGTU"_s, 1);
    const int linkages = static_cast<int>(bases.size()) - 1;
    const Molecule thioate = strand(strandText(bases, u'd', u'*'));
    const Molecule ester = strand(strandText(bases, u'd', u'.'));
    const Molecule expected = factory().modifyMolecule(ester, u"S1O-1"_s, linkages);
    RC_ASSERT(isSameComposition(thioate.formula(), expected.formula()));
    RC_ASSERT(isNear(thioate.monoMass(), expected.monoMass()));
}

RC_GTEST_PROP(StrandLaws, MethylOnEachSugarAddsAMethyleneEach, ())
{
    const QString bases = anyText(u"ACGU"_s, 1);
    const Molecule methylated = strand(strandText(bases, u'm', u'.'));
    const Molecule plain = strand(strandText(bases, u'r', u'.'));
    const Molecule expected =
        factory().modifyMolecule(plain, u"C1H2"_s, static_cast<int>(bases.size()));
    RC_ASSERT(isSameComposition(methylated.formula(), expected.formula()));
    RC_ASSERT(isNear(methylated.monoMass(), expected.monoMass()));
}

RC_GTEST_PROP(StrandLaws, RnaHasAnOxygenMoreInEachSugarThanDna, ())
{
    const QString bases = anyText(u"ACGU"_s, 1);
    const Molecule rna = strand(strandText(bases, u'r', u'.'));
    const Molecule dna = strand(strandText(bases, u'd', u'.'));
    const Molecule expected =
        factory().modifyMolecule(dna, u"O1"_s, static_cast<int>(bases.size()));
    RC_ASSERT(isSameComposition(rna.formula(), expected.formula()));
    RC_ASSERT(isNear(rna.monoMass(), expected.monoMass()));
}

RC_GTEST_PROP(StrandLaws, PhosphateAtTheFivePrimeEndAddsALinkage, ())
{
    const QString bases = anyText(u"ACGTU"_s, 1);
    const Molecule expected = factory().modifyMolecule(strand(u'[' + bases), u"HPO3"_s, 1);
    RC_ASSERT(isSameComposition(strand(u'{' + bases).formula(), expected.formula()));
    RC_ASSERT(isNear(strand(u'{' + bases).monoMass(), expected.monoMass()));
}

RC_GTEST_PROP(StrandLaws, EachFivePrimeTruncationLosesItsNucleotide, ())
{
    const QString text = strandText(anyText(u"ACGTU"_s, 2), u'd', u'*');
    QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
    chem::NamedMolecule fivePrime;
    chem::NamedMolecule threePrime;
    RC_ASSERT(factory().parseNucleotideSequence(text, &nucleotides, &fivePrime, &threePrime));
    QList<QSharedPointer<const chem::MoleculeComplex>> ladder;
    factory().constructLinearOligoComplexes(text, static_cast<int>(nucleotides.size()), 0, &ladder);
    RC_ASSERT(ladder.size() == nucleotides.size() + 1);
    for (qsizetype i = 0; i < nucleotides.size(); ++i) {
        const Molecule lost = *ladder[i] - *ladder[i + 1];
        RC_ASSERT(isSameComposition(lost.formula(), nucleotides[i]->formula()));
        RC_ASSERT(isNear(lost.monoMass(), nucleotides[i]->monoMass(), 1e-8));
    }
}

RC_GTEST_PROP(StrandLaws, TextIsValidExactlyWhenItCanBeRead, ())
{
    const QString text = anyText(u"[{ACGTrdm+f*.-1 x]}"_s);
    QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
    chem::NamedMolecule fivePrime;
    chem::NamedMolecule threePrime;
    const bool isRead =
        factory().parseNucleotideSequence(text, &nucleotides, &fivePrime, &threePrime);
    RC_ASSERT(factory().isValidOligoSequence(text) == isRead);
    RC_ASSERT(isRead || nucleotides.isEmpty());
}

RC_GTEST_PROP(GlycanLaws, TermsOfOneSugarAreCountedTogether, ())
{
    const QString sugar = *rc::gen::element(u"Hex"_s, u"HexNAc"_s, u"Fuc"_s, u"dHex"_s, u"Pent"_s,
                                            u"NeuAc"_s, u"NeuGc"_s, u"Na"_s, u"Sodium"_s);
    const int one = *rc::gen::inRange(0, 1000);
    const int other = *rc::gen::inRange(0, 1000);
    const auto term = [&sugar](int count) -> QString {
        return sugar + u'(' + QString::number(count) + u')';
    };
    const Molecule apart = factory().constructGlycanModification(term(one) + term(other));
    const Molecule together = factory().constructGlycanModification(term(one + other));
    RC_ASSERT(isSameComposition(apart.formula(), together.formula()));
    RC_ASSERT(isNear(apart.monoMass(), together.monoMass()));
    RC_ASSERT(isNear(apart.averageMass(), together.averageMass()));
}

RC_GTEST_PROP(GlycanLaws, GlycanAddsItsSugarsToAnyMolecule, ())
{
    const Molecule molecule = factory().constructMolecule(anyFormula());
    const int hexoses = *rc::gen::inRange(0, 30);
    const int hexosamines = *rc::gen::inRange(0, 30);
    const Molecule glycosylated = factory().modifyMoleculeWithGlycan(
        molecule, u"HexNAc(%1)Hex(%2)"_s.arg(hexosamines).arg(hexoses));
    Molecule expected = factory().modifyMolecule(molecule, u"C8H13NO5"_s, hexosamines);
    expected = factory().modifyMolecule(expected, u"C6H10O5"_s, hexoses);
    RC_ASSERT(isSameComposition(glycosylated.formula(), expected.formula()));
    RC_ASSERT(isNear(glycosylated.monoMass(), expected.monoMass()));
}

} // namespace
