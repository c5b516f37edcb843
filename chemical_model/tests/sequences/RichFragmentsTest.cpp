#include "RandomComplexes.h"
#include "SameMolecules.h"

#include <gtest/gtest.h>

#include <map>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;
using namespace randomComplexes;

namespace {

using chem::ComplexResidue;
using chem::Fragment;
using chem::FragmentationSite;
using chem::FragmentType;
using chem::Molecule;
using chem::MoleculeComplex;
using randomMolecules::isAlike;
using randomMolecules::molecule;

using Fragments = QList<QSharedPointer<Fragment>>;

/// An ion's label and number of monomers, as in "b2".
QString nameOf(const Fragment& ion)
{
    return ion.typeLabel + QString::number(ion.residues.size() - 1); // less the terminal
}

/// Names and compositions, as in "b1 C2H3NO".
QStringList ionsOf(const MoleculeComplex& complex)
{
    QStringList ions;
    for (const auto& ion : richFragments(complex))
        ions.append(nameOf(*ion) + u' ' + ion->formula().toString());
    return ions;
}

QStringList listed(const QString& ions)
{
    return ions.split(u", "_s);
}

TEST(RichFragments, LabelsOfTheIonTypes)
{
    const QStringList labels = u"a a. b c c. d aB w x x. y z z."_s.split(u' ');
    for (int type = -3; type < 40; ++type) {
        const QString label = type >= 0 && type < 13 ? labels[type] : u"unknown"_s;
        EXPECT_EQ(chem::ChemicalFactory::typeToString(static_cast<FragmentType>(type)), label);
    }
}

// Compositions are computed by hand from the residues: glycine C2H3NO, alanine C3H5NO, lysine
// C6H12N2O, methionine C5H9NOS, cysteine C3H5NOS.

TEST(RichFragments, IonsOfAPeptideAreItsLeftIonsThenItsMirroredRightIons)
{
    EXPECT_EQ(ionsOf(*peptide(u"GA"_s)),
              listed(u"b1 C2H3NO, a1 C1H3N, a.1 C1H4N, c1 C2H6N2O, c.1 C2H7N2O, "
                     "y1 C3H7NO2, x1 C4H5NO3, x.1 C4H6NO3, z1 C3H4O2, z.1 C3H5O2, "
                     "b2 C5H8N2O2, a2 C4H8N2O, a.2 C4H9N2O, c2 C5H11N3O2, c.2 C5H12N3O2, "
                     "y2 C5H10N2O3, x2 C6H8N2O4, x.2 C6H9N2O4, z2 C5H7NO3, z.2 C5H8NO3"_s));
}

TEST(RichFragments, IonsOfFullLengthHaveTheirCompositions)
{
    EXPECT_EQ(ionsOf(*peptide(u"K"_s)),
              listed(u"b1 C6H12N2O, a1 C5H12N2, a.1 C5H13N2, c1 C6H15N3O, c.1 C6H16N3O, "
                     "y1 C6H14N2O2, x1 C7H12N2O3, x.1 C7H13N2O3, z1 C6H11NO2, z.1 C6H12NO2"_s));
    EXPECT_EQ(ionsOf(*peptide(u"MC"_s)).sliced(10),
              listed(u"b2 C8H14N2O2S2, a2 C7H14N2OS2, a.2 C7H15N2OS2, c2 C8H17N3O2S2, "
                     "c.2 C8H18N3O2S2, y2 C8H16N2O3S2, x2 C9H14N2O4S2, x.2 C9H15N2O4S2, "
                     "z2 C8H13NO3S2, z.2 C8H14NO3S2"_s));
}

TEST(RichFragments, ElementsThatCancelStayAsEntries)
{
    const auto fragments = richFragments(*peptide(u"G"_s));
    ASSERT_EQ(fragments[1]->typeLabel, u"a"_s);
    EXPECT_EQ(fragments[1]->formula().elementCountMap(),
              (QMap<QString, double>{{u"C"_s, 1}, {u"H"_s, 3}, {u"N"_s, 1}, {u"O"_s, 0}}));
}

// Several are known molecules: d1 and b1 of a first dA are deoxyadenosine monophosphate and
// deoxyadenosine, w1 and y1 of a last dT thymidine monophosphate and thymidine.
TEST(RichFragments, IonsOfTwoDeoxynucleotides)
{
    // pA = C10H12N5O5P with its phosphate, T = C10H12N2O4, ends H and OH. The last b has no
    // phosphate to lose, the last w none before it: both are the whole.
    EXPECT_EQ(ionsOf(*strand(u"AT"_s)),
              listed(u"d1 C10H14N5O6P, b1 C10H13N5O3, c1 C10H12N5O5P, a1 C10H11N5O2, "
                     "w1 C10H15N2O8P, y1 C10H14N2O5, z1 C10H12N2O4, x1 C10H13N2O7P, "
                     "d2 C20H26N7O10P, b2 C20H26N7O10P, c2 C20H24N7O9P, a2 C20H24N7O9P, "
                     "w2 C20H26N7O10P, y2 C20H26N7O10P, z2 C20H24N7O9P, x2 C20H24N7O9P"_s));
}

TEST(RichFragments, IonsOfModifiedNucleotides)
{
    // rA* = C10H12N5O5PS, mC = C10H14N3O7P with its phosphate, G = C10H11N5O3; aB2 is a2 less
    // cytosine, w2 has the thioate before it.
    EXPECT_EQ(
        ionsOf(*strand(u"rA*mCG"_s)),
        listed(u"d1 C10H14N5O6PS, b1 C10H13N5O4, c1 C10H12N5O5PS, a1 C10H11N5O3, "
               "w1 C10H14N5O7P, y1 C10H13N5O4, z1 C10H11N5O3, x1 C10H12N5O6P, "
               "aB2 C16H20N5O8PS, d2 C20H28N8O13P2S, b2 C20H27N8O10PS, c2 C20H26N8O12P2S, "
               "a2 C20H25N8O9PS, w2 C20H28N8O13P2S, y2 C20H27N8O11P, z2 C20H25N8O10P, "
               "x2 C20H26N8O12P2S, d3 C30H39N13O16P2S, b3 C30H39N13O16P2S, c3 C30H37N13O15P2S, "
               "a3 C30H37N13O15P2S, w3 C30H39N13O16P2S, y3 C30H39N13O16P2S, z3 C30H37N13O15P2S, "
               "x3 C30H37N13O15P2S"_s));
}

TEST(RichFragments, IonsWeighWhatTheirCompositionsWeigh)
{
    for (const auto& complex : {peptide(u"MCK"_s), strand(u"rA*mCG"_s)}) {
        for (const auto& ion : richFragments(*complex)) {
            const Molecule whole = molecule(ion->formula().toString());
            EXPECT_NEAR(ion->monoMass(), whole.monoMass(), 1e-9) << nameOf(*ion).toStdString();
            EXPECT_NEAR(ion->averageMass(), whole.averageMass(), 1e-9);
        }
    }
}

TEST(RichFragments, MassInPlaceOfABaseIsLostWithTheBase)
{
    // 100 stands for the base of the inner nucleotide, which has ribose r and a thioate.
    const auto ions = richFragments(*strand(u"Ar100*A"_s));
    ASSERT_EQ(ions.size(), 25);
    EXPECT_EQ(nameOf(*ions[8]), u"aB2"_s);
    // H + pA + ribose, less two hydrogens; the thioate and the mass cancel.
    EXPECT_EQ(ions[8]->formula().toString(), u"C15H18N5O8P"_s);
    EXPECT_NEAR(ions[8]->monoMass(), molecule(u"C15H18N5O8P"_s).monoMass(), 1e-9);
    EXPECT_EQ(nameOf(*ions[9]), u"d2"_s);
    EXPECT_NEAR(ions[9]->monoMass(), molecule(u"C15H22N5O11P2S"_s).monoMass() + 100.0, 1e-9);
}

TEST(RichFragments, LinkToTheResiduesOfTheirSideAndToTheirSite)
{
    const auto complex = peptide(u"GAS"_s);
    for (const auto& fragment : richFragments(*complex)) {
        const bool isLeftIon = u"abc"_s.contains(fragment->typeLabel.front());
        const qsizetype size = fragment->residues.size();
        const qsizetype start = isLeftIon ? 0 : complex->residues.size() - size;
        for (qsizetype i = 0; i < size; ++i)
            EXPECT_EQ(fragment->residues[i].toStrongRef(), complex->residues[start + i]);
        const qsizetype breakAt = isLeftIon ? size - 1 : start;
        ASSERT_EQ(fragment->sites.size(), 1);
        EXPECT_TRUE(complex->sites[breakAt].contains(fragment->sites.first().toStrongRef()));
        EXPECT_EQ(fragment->parentComplex, complex.data());
    }
}

TEST(RichFragments, IonsOfOneStepShareTheirResidueLists)
{
    const auto fragments = richFragments(*peptide(u"GA"_s));
    for (const qsizetype first : {0, 5, 10, 15}) {
        for (qsizetype i = first; i < first + 5; ++i)
            EXPECT_EQ(fragments[i]->residues.constData(), fragments[first]->residues.constData());
    }
}

// Laws. Each ion is computed from scratch.

struct RichIon
{
    const FragmentationSite* site;
    Molecule molecule;
    std::vector<const ComplexResidue*> residues;
};

RichIon richIonByHand(const MoleculeComplex& complex, const FragmentationSite& site,
                      qsizetype breakAt, bool isFromLeft)
{
    RichIon ion = {&site, {}, {}};
    const qsizetype last = complex.residues.size() - 1;
    for (const qsizetype position : positionsTo(breakAt, isFromLeft ? 0 : last)) {
        const ComplexResidue* const residue = complex.residues[position].data();
        ion.molecule += *residue;
        ion.residues.insert(isFromLeft ? ion.residues.end() : ion.residues.begin(), residue);
    }
    ion.molecule += site.delta;
    return ion;
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

RC_GTEST_PROP(RichFragmentsLaws, RichIonsHaveTheBitsOfTheirSums, ())
{
    const auto complex = anyComplex();
    const Fragments fragments = richFragments(*complex);
    const std::vector<RichIon> expected = richIonsByHand(*complex);
    RC_ASSERT(fragments.size() == qsizetype(expected.size()));
    for (qsizetype i = 0; i < fragments.size(); ++i) {
        const Fragment& fragment = *fragments[i];
        const RichIon& ion = expected[std::size_t(i)];
        RC_ASSERT(isSame(fragment, ion.molecule));
        RC_ASSERT(fragment.typeLabel == chem::ChemicalFactory::typeToString(ion.site->type));
        RC_ASSERT(fragment.parentComplex == complex.data());
        RC_ASSERT(fragment.sites.size() == 1);
        RC_ASSERT(fragment.sites.first().toStrongRef().data() == ion.site);
        RC_ASSERT(std::equal(
            fragment.residues.cbegin(), fragment.residues.cend(), ion.residues.cbegin(),
            ion.residues.cend(),
            [](const auto& weak, const auto* residue) { return weak.toStrongRef() == residue; }));
    }
}

/// Ions by label and number of monomers.
using Ions = std::map<std::pair<QString, qsizetype>, Molecule>;

Ions ionsByName(const MoleculeComplex& complex)
{
    Ions ions;
    const Fragments fragments = richFragments(complex);
    for (const auto& fragment : fragments)
        ions.emplace(std::pair(fragment->typeLabel, fragment->residues.size() - 1), *fragment);
    return ions;
}

/// In a random peptide each ion `heavier` is its ion `lighter` and the group.
void requirePeptideIonsDifferBy(const QString& heavier, const QString& lighter,
                                const QString& group)
{
    const QString sequence = anyPeptide();
    const Ions ions = ionsByName(*peptide(sequence));
    for (qsizetype length = 1; length <= sequence.size(); ++length)
        RC_ASSERT(
            isAlike(ions.at({heavier, length}), ions.at({lighter, length}) + molecule(group)));
}

RC_GTEST_PROP(RichFragmentsLaws, BIonIsTheAIonWithCarbonMonoxide, ())
{
    requirePeptideIonsDifferBy(u"b"_s, u"a"_s, u"CO"_s);
}

RC_GTEST_PROP(RichFragmentsLaws, CIonIsTheBIonWithAmmonia, ())
{
    requirePeptideIonsDifferBy(u"c"_s, u"b"_s, u"NH3"_s);
}

RC_GTEST_PROP(RichFragmentsLaws, YIonIsTheZIonWithAmmonia, ())
{
    requirePeptideIonsDifferBy(u"y"_s, u"z"_s, u"NH3"_s);
}

RC_GTEST_PROP(RichFragmentsLaws, XIonIsTheYIonWithCarbonMonoxideInPlaceOfTwoHydrogens, ())
{
    requirePeptideIonsDifferBy(u"x"_s, u"y"_s, u"COH-2"_s);
}

RC_GTEST_PROP(RichFragmentsLaws, RadicalIonsHaveOneHydrogenMore, ())
{
    for (const QString& label : {u"a"_s, u"c"_s, u"x"_s, u"z"_s})
        requirePeptideIonsDifferBy(label + u'.', label, u"H"_s);
}

RC_GTEST_PROP(RichFragmentsLaws, EachSeriesGrowsByOneResidueAtATime, ())
{
    const QString sequence = anyPeptide();
    const auto complex = peptide(sequence);
    const Ions ions = ionsByName(*complex);
    for (qsizetype length = 2; length <= sequence.size(); ++length) {
        const Molecule& left = *complex->residues[length];
        const Molecule& right = *complex->residues[sequence.size() + 1 - length];
        RC_ASSERT(isAlike(ions.at({u"b"_s, length}), ions.at({u"b"_s, length - 1}) + left));
        RC_ASSERT(isAlike(ions.at({u"y"_s, length}), ions.at({u"y"_s, length - 1}) + right));
    }
}

/// A strand of at least three nucleotides, all parts of which are known by their letters, and its
/// ions.
struct Strand
{
    QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
    Molecule whole;
    Ions ions;
};

Strand anyStrand()
{
    const QString text = u"dC"_s + anyTextOf(u"A rC* dG +T. mU fA*"_s.split(u' '), 2, 11);
    Strand strand;
    chem::NamedMolecule fivePrime;
    chem::NamedMolecule threePrime;
    RC_ASSERT(naturalFactory().parseNucleotideSequence(text, &strand.nucleotides, &fivePrime,
                                                       &threePrime));
    const auto complex =
        naturalFactory().constructLinearOligoComplex(strand.nucleotides, fivePrime, threePrime);
    strand.whole = *complex;
    strand.ions = ionsByName(*complex);
    return strand;
}

RC_GTEST_PROP(RichFragmentsLaws, WIonIsTheYIonWithThePhosphateBeforeIt, ())
{
    const auto [nucleotides, whole, ions] = anyStrand();
    const qsizetype size = nucleotides.size();
    for (qsizetype length = 1; length < size; ++length)
        RC_ASSERT(isAlike(ions.at({u"w"_s, length}),
                          ions.at({u"y"_s, length}) + nucleotides[size - length - 1]->phosphate));
}

RC_GTEST_PROP(RichFragmentsLaws, AIonIsTheBaseLossIonWithItsBaseAndAHydrogen, ())
{
    const auto [nucleotides, whole, ions] = anyStrand();
    for (qsizetype length = 2; length < nucleotides.size(); ++length)
        RC_ASSERT(isAlike(ions.at({u"a"_s, length}), ions.at({u"aB"_s, length}) +
                                                         nucleotides[length - 1]->nucleobase +
                                                         molecule(u"H"_s)));
}

// Breaking one bond gives two pieces and loses nothing.
RC_GTEST_PROP(RichFragmentsLaws, ComplementaryStrandIonsAddUpToTheStrand, ())
{
    const auto [nucleotides, whole, ions] = anyStrand();
    const qsizetype size = nucleotides.size();
    const QList<std::pair<QString, QString>> pairs = {
        {u"a"_s, u"w"_s}, {u"b"_s, u"x"_s}, {u"c"_s, u"y"_s}, {u"d"_s, u"z"_s}};
    for (qsizetype length = 1; length < size; ++length) {
        for (const auto& [left, right] : pairs)
            RC_ASSERT(isAlike(whole, ions.at({left, length}) + ions.at({right, size - length})));
    }
}

} // namespace
