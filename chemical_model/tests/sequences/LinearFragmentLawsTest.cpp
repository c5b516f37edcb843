#include "FragmentLists.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using chem::ComplexResidue;
using chem::FragmentationSite;
using chem::FragmentType;
using chem::Molecule;
using chem::MoleculeComplex;
using chem::SimpleFragment;

// Laws over random chains: each generator against its ions, each computed from scratch.

bool isLeft(FragmentType type)
{
    return static_cast<int>(type) >= 0 && static_cast<int>(type) <= 6;
}

bool isRight(FragmentType type)
{
    return static_cast<int>(type) >= 7 && static_cast<int>(type) <= 12;
}

/// Positions from one end of the chain to the break, in the order in which they are added.
std::vector<qsizetype> positionsTo(qsizetype breakAt, qsizetype end)
{
    std::vector<qsizetype> positions;
    for (qsizetype i = end; i != breakAt; i += breakAt > end ? 1 : -1)
        positions.push_back(i);
    positions.push_back(breakAt);
    return positions;
}

using FlatIon = std::tuple<int, double, double, QString, int>;

FlatIon flatIonByHand(const MoleculeComplex& complex, const FragmentationSite& site,
                      qsizetype breakAt, bool isFromLeft)
{
    double average = 0.0;
    double mono = 0.0;
    QString letters;
    const qsizetype last = complex.residues.size() - 1;
    for (const qsizetype position : positionsTo(breakAt, isFromLeft ? 0 : last)) {
        const ComplexResidue& residue = *complex.residues[position];
        average += residue.averageMass();
        mono += residue.monoMass();
        const QChar letter = residue.code.isEmpty() ? QChar(u'\0') : residue.code[0];
        if (position > 0 && position < last)
            letters.insert(isFromLeft ? letters.size() : 0, letter);
    }
    return {static_cast<int>(site.type), average + site.delta.averageMass(),
            mono + site.delta.monoMass(), letters, static_cast<int>(isFromLeft ? 0 : breakAt - 1)};
}

std::vector<FlatIon> flatIonsByHand(const MoleculeComplex& complex)
{
    std::vector<FlatIon> ions;
    const qsizetype last = complex.residues.size() - 1;
    for (qsizetype position = 1; position < last; ++position) {
        for (const auto& site : complex.sites[position]) {
            if (isLeft(site->type))
                ions.push_back(flatIonByHand(complex, *site, position, true));
            else if (isRight(site->type))
                ions.push_back(flatIonByHand(complex, *site, last - position, false));
        }
    }
    return ions;
}

struct RichIon
{
    const FragmentationSite* site;
    double averageMass;
    double monoMass;
    QMap<QString, double> counts;
    std::vector<const ComplexResidue*> residues;

    bool operator==(const RichIon& other) const = default;
};

RichIon richIonByHand(const MoleculeComplex& complex, const FragmentationSite& site,
                      qsizetype breakAt, bool isFromLeft)
{
    Molecule molecule;
    std::vector<const ComplexResidue*> residues;
    const qsizetype last = complex.residues.size() - 1;
    for (const qsizetype position : positionsTo(breakAt, isFromLeft ? 0 : last)) {
        molecule += *complex.residues[position];
        residues.insert(isFromLeft ? residues.end() : residues.begin(),
                        complex.residues[position].data());
    }
    molecule += site.delta;
    return {&site, molecule.averageMass(), molecule.monoMass(),
            molecule.formula().elementCountMap(), residues};
}

std::vector<RichIon> richIonsByHand(const MoleculeComplex& complex)
{
    std::vector<RichIon> ions;
    const qsizetype last = complex.residues.size() - 1;
    for (qsizetype position = 0; position <= last; ++position) {
        for (const auto& site : complex.sites[position]) {
            if (isLeft(site->type))
                ions.push_back(richIonByHand(complex, *site, position, true));
        }
        if (position == last)
            break;
        for (const auto& site : complex.sites[last - position]) {
            if (isRight(site->type))
                ions.push_back(richIonByHand(complex, *site, last - position, false));
        }
    }
    return ions;
}

/// A molecule of any masses, so that sums in another order have other bits.
Molecule anyMolecule()
{
    QMap<QString, double> counts;
    for (const QString& symbol : {u"C"_s, u"H"_s, u"P"_s}) {
        if (*rc::gen::arbitrary<bool>())
            counts[symbol] = *rc::gen::inRange(-9, 10);
    }
    const auto mass = [] {
        return *rc::gen::inRange(-1000000, 1000000) / 7919.0;
    };
    return Molecule(chem::ChemicalFormula(counts), mass(), mass());
}

/// A complex as a caller may assemble it: other sites at every position, terminals included, and
/// types beyond those of ions.
QSharedPointer<MoleculeComplex> assembledComplex()
{
    const int size = *rc::gen::inRange(2, 9);
    auto complex = peptide(QString());
    complex->residues.clear();
    complex->sites.clear();
    for (int i = 0; i < size; ++i) {
        const QString code = u"rA*"_s.first(*rc::gen::inRange(0, 4));
        complex->residues.append(
            QSharedPointer<ComplexResidue>::create(anyMolecule(), QString(), code, i));
        QList<QSharedPointer<FragmentationSite>> sites;
        for (const int type : *rc::gen::container<std::vector<int>>(rc::gen::inRange(-2, 21))) {
            sites.append(QSharedPointer<FragmentationSite>::create(static_cast<FragmentType>(type),
                                                                   anyMolecule(), anyMolecule()));
        }
        complex->sites.append(sites);
    }
    return complex;
}

QSharedPointer<MoleculeComplex> randomComplex()
{
    const int kind = *rc::gen::inRange(0, 3);
    if (kind == 0)
        return assembledComplex();
    const QStringList units =
        kind == 1 ? u"A C D E G x"_s.split(u' ') : u"A rC* dG 12.5 +T. mU"_s.split(u' ');
    QString text;
    for (const int index :
         *rc::gen::nonEmpty(rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 6))))
        text += units[index];
    return kind == 1 ? peptide(text) : strand(text);
}

RC_GTEST_PROP(FragmentLaws, RichIonsHaveTheBitsOfTheirSums, ())
{
    const auto complex = randomComplex();
    std::vector<RichIon> ions;
    const auto fragments = richFragments(*complex);
    for (const auto& fragment : fragments) {
        std::vector<const ComplexResidue*> residues;
        for (const auto& residue : std::as_const(fragment->residues))
            residues.push_back(residue.toStrongRef().data());
        RC_ASSERT(fragment->sites.size() == 1);
        const FragmentationSite* site = fragment->sites.first().toStrongRef().data();
        RC_ASSERT(fragment->typeLabel == chem::ChemicalFactory::typeToString(site->type));
        RC_ASSERT(fragment->parentComplex == complex.data());
        ions.push_back({site, fragment->averageMass(), fragment->monoMass(),
                        fragment->formula().elementCountMap(), residues});
    }
    RC_ASSERT((ions == richIonsByHand(*complex)));
}

RC_GTEST_PROP(FragmentLaws, FlatIonsHaveTheBitsOfTheirSums, ())
{
    const auto complex = randomComplex();
    std::vector<FlatIon> ions;
    const auto fragments = flatFragments(*complex);
    for (const SimpleFragment& fragment : fragments) {
        ions.emplace_back(static_cast<int>(fragment.type), fragment.averageMass, fragment.monoMass,
                          fragment.sequence, fragment.position);
    }
    RC_ASSERT((ions == flatIonsByHand(*complex)));
}

QString randomPeptideText()
{
    const QString letters = u"ACDEFGHIKLMNPQRSTVWYx"_s;
    QString text;
    for (const int index :
         *rc::gen::nonEmpty(rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 21))))
        text += letters[index];
    return text;
}

RC_GTEST_PROP(FragmentLaws, BothGeneratorsAgreeOnPeptides, ())
{
    using Ion = std::tuple<QString, qsizetype, double, double>;
    const auto complex = peptide(randomPeptideText());
    std::vector<Ion> rich;
    const auto richList = richFragments(*complex);
    for (const auto& fragment : richList) {
        rich.emplace_back(fragment->typeLabel, fragment->residues.size() - 1,
                          fragment->averageMass(), fragment->monoMass());
    }
    std::vector<Ion> flat;
    const auto flatList = flatFragments(*complex);
    for (const SimpleFragment& fragment : flatList) {
        flat.emplace_back(chem::ChemicalFactory::typeToString(fragment.type),
                          fragment.sequence.size(), fragment.averageMass, fragment.monoMass);
    }
    std::sort(rich.begin(), rich.end());
    std::sort(flat.begin(), flat.end());
    RC_ASSERT((rich == flat));
}

RC_GTEST_PROP(FragmentLaws, ComplementaryPeptideIonsAddUpToThePeptide, ())
{
    const QString sequence = randomPeptideText();
    const auto complex = peptide(sequence);
    std::map<qsizetype, double> b;
    std::map<qsizetype, double> y;
    for (const SimpleFragment& fragment : flatFragments(*complex)) {
        if (fragment.type == FragmentType::B)
            b[fragment.sequence.size()] = fragment.monoMass;
        if (fragment.type == FragmentType::Y)
            y[fragment.sequence.size()] = fragment.monoMass;
    }
    for (qsizetype i = 1; i < sequence.size(); ++i)
        RC_ASSERT(std::abs(b[i] + y[sequence.size() - i] - complex->monoMass()) < 1e-6);
}

/// Ions by label and number of monomers.
using Ions = std::map<std::pair<QString, qsizetype>, Molecule>;

Ions ionsOf(const MoleculeComplex& complex)
{
    Ions ions;
    const auto fragments = richFragments(complex);
    for (const auto& fragment : fragments)
        ions.emplace(std::pair(fragment->typeLabel, fragment->residues.size() - 1), *fragment);
    return ions;
}

/// Whether the heavier molecule is the lighter one and the group, to the atom.
bool isWith(const Molecule& heavier, const Molecule& lighter, const Molecule& group)
{
    const Molecule rest = heavier - lighter - group;
    const QMap<QString, double> counts = rest.formula().elementCountMap();
    return std::all_of(counts.cbegin(), counts.cend(), [](double count) { return count == 0.0; }) &&
           std::abs(rest.monoMass()) < 1e-8 && std::abs(rest.averageMass()) < 1e-8;
}

Molecule molecule(const QString& formula)
{
    return chem::defaultChemicalFactory()->constructMolecule(formula);
}

/// Whether in a random peptide each ion `heavier` is its ion `lighter` and the group.
void requirePeptideIonsDifferBy(const QString& heavier, const QString& lighter,
                                const QString& groupFormula)
{
    const QString sequence = randomPeptideText();
    Ions ions = ionsOf(*peptide(sequence));
    for (qsizetype length = 1; length <= sequence.size(); ++length)
        RC_ASSERT(
            isWith(ions.at({heavier, length}), ions.at({lighter, length}), molecule(groupFormula)));
}

RC_GTEST_PROP(FragmentLaws, BIonIsTheAIonWithCarbonMonoxide, ())
{
    requirePeptideIonsDifferBy(u"b"_s, u"a"_s, u"CO"_s);
}

RC_GTEST_PROP(FragmentLaws, CIonIsTheBIonWithAmmonia, ())
{
    requirePeptideIonsDifferBy(u"c"_s, u"b"_s, u"NH3"_s);
}

RC_GTEST_PROP(FragmentLaws, YIonIsTheZIonWithAmmonia, ())
{
    requirePeptideIonsDifferBy(u"y"_s, u"z"_s, u"NH3"_s);
}

RC_GTEST_PROP(FragmentLaws, XIonIsTheYIonWithCarbonMonoxideInPlaceOfTwoHydrogens, ())
{
    requirePeptideIonsDifferBy(u"x"_s, u"y"_s, u"COH-2"_s);
}

RC_GTEST_PROP(FragmentLaws, RadicalIonsHaveOneHydrogenMore, ())
{
    for (const QString& label : {u"a"_s, u"c"_s, u"x"_s, u"z"_s})
        requirePeptideIonsDifferBy(label + u'.', label, u"H"_s);
}

RC_GTEST_PROP(FragmentLaws, EachSeriesGrowsByOneResidueAtATime, ())
{
    const QString sequence = randomPeptideText();
    const auto complex = peptide(sequence);
    const Ions ions = ionsOf(*complex);
    for (qsizetype length = 2; length <= sequence.size(); ++length) {
        const Molecule& leftResidue = *complex->residues[length];
        const Molecule& rightResidue = *complex->residues[sequence.size() + 1 - length];
        RC_ASSERT(isWith(ions.at({u"b"_s, length}), ions.at({u"b"_s, length - 1}), leftResidue));
        RC_ASSERT(isWith(ions.at({u"y"_s, length}), ions.at({u"y"_s, length - 1}), rightResidue));
    }
}

/// A strand of at least three nucleotides, all parts of which are known by their letters.
QList<QSharedPointer<const chem::Nucleotide>> randomNucleotides()
{
    const QStringList units = u"A rC* dG +T. mU fA*"_s.split(u' ');
    QString text = u"dC"_s;
    for (const int index : *rc::gen::container<std::vector<int>>(
             static_cast<std::size_t>(*rc::gen::inRange(2, 12)), rc::gen::inRange(0, 6)))
        text += units[index];
    QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
    chem::NamedMolecule fivePrime;
    chem::NamedMolecule threePrime;
    RC_ASSERT(chem::defaultChemicalFactory()->parseNucleotideSequence(text, &nucleotides,
                                                                      &fivePrime, &threePrime));
    return nucleotides;
}

Ions ionsOfStrand(const QList<QSharedPointer<const chem::Nucleotide>>& nucleotides)
{
    const auto factory = chem::defaultChemicalFactory();
    chem::NamedMolecule fivePrime;
    chem::NamedMolecule threePrime;
    factory->standardOligoTermini(&fivePrime, &threePrime);
    return ionsOf(*factory->constructLinearOligoComplex(nucleotides, fivePrime, threePrime));
}

RC_GTEST_PROP(FragmentLaws, WIonIsTheYIonWithThePhosphateBeforeIt, ())
{
    const auto nucleotides = randomNucleotides();
    const Ions ions = ionsOfStrand(nucleotides);
    const qsizetype size = nucleotides.size();
    for (qsizetype length = 1; length < size; ++length)
        RC_ASSERT(isWith(ions.at({u"w"_s, length}), ions.at({u"y"_s, length}),
                         nucleotides[size - length - 1]->phosphate));
}

RC_GTEST_PROP(FragmentLaws, AIonIsTheBaseLossIonWithItsBaseAndAHydrogen, ())
{
    const auto nucleotides = randomNucleotides();
    const Ions ions = ionsOfStrand(nucleotides);
    for (qsizetype length = 2; length < nucleotides.size(); ++length)
        RC_ASSERT(isWith(ions.at({u"a"_s, length}), ions.at({u"aB"_s, length}),
                         nucleotides[length - 1]->nucleobase + molecule(u"H"_s)));
}

RC_GTEST_PROP(FragmentLaws, ComplementaryStrandIonsAddUpToTheStrand, ())
{
    const auto nucleotides = randomNucleotides();
    const Ions ions = ionsOfStrand(nucleotides);
    const qsizetype size = nucleotides.size();
    Molecule whole = molecule(u"H2O"_s);
    for (const auto& nucleotide : nucleotides)
        whole += *nucleotide;
    const QList<std::pair<QString, QString>> pairs = {
        {u"a"_s, u"w"_s}, {u"b"_s, u"x"_s}, {u"c"_s, u"y"_s}, {u"d"_s, u"z"_s}};
    for (qsizetype length = 1; length < size; ++length) {
        for (const auto& [left, right] : pairs)
            RC_ASSERT(isWith(whole, ions.at({left, length}), ions.at({right, size - length})));
    }
}

} // namespace
