#include "ExactConvolution.h"
#include "FormulaByIsoSpec.h"
#include "MessageRecorder.h"
#include "RandomMolecules.h"
#include "ReferenceData.h"
#include "TestFormulas.h"
#include "TestPrinters.h"

#include <QLoggingCategory>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;
using namespace randomMolecules;

namespace {

using chem::Molecule;
using Envelope = QList<QPointF>;

Envelope envelopeOf(const Molecule& molecule, int charge, bool protonate = false)
{
    Envelope envelope = {{1.0, 2.0}}; // what was there goes
    naturalFactory().generateIsotopeEnvelope(molecule, charge, &envelope, protonate);
    return envelope;
}

Envelope envelopeOf(const QString& formula, int charge, bool protonate)
{
    return envelopeOf(molecule(formula), charge, protonate);
}

double sumOf(const Envelope& envelope)
{
    double sum = 0.0;
    for (const QPointF& point : envelope)
        sum += point.y();
    return sum;
}

/// The steps of the calculation, written down once more around a generator of its own.
Envelope envelopeByHand(const chem::ChemicalFormula& formula, double divisor)
{
    const QList<IsoSpecElement> elements = isoSpecElementsOf(formula, naturalFactory());
    if (elements.isEmpty())
        return {};
    IsoSpec::IsoThresholdGenerator generator(isoOf(elements), 1e-7, true, 1000, 1000, true);
    Envelope envelope;
    const double lightest = generator.getLightestPeakMass();
    const double offset = lightest - static_cast<int>(lightest + 0.5);
    const int base = static_cast<int>(lightest - offset + 0.5);
    while (generator.advanceToNextConfiguration()) {
        const int bin = static_cast<int>(generator.mass() - offset + 0.5) - base;
        while (bin >= envelope.size())
            envelope.append(QPointF());
        if (bin >= 0) {
            envelope[bin].rx() += generator.prob() * generator.mass();
            envelope[bin].ry() += generator.prob();
        }
    }
    const double electron = naturalFactory().electron.monoMass();
    for (QPointF& point : envelope) {
        if (point.y() != 0.0)
            point.setX(point.x() / (divisor * point.y()) - electron);
    }
    if (!envelope.isEmpty())
        envelope[0].setX(lightest / divisor - electron);
    return envelope;
}

/// Without the tolerance of QPointF.
bool isSamePoint(const QPointF& a, const QPointF& b)
{
    return a.x() == b.x() && a.y() == b.y();
}

void expectSameBits(const Envelope& a, const Envelope& b)
{
    ASSERT_EQ(a.size(), b.size());
    for (qsizetype i = 0; i < a.size(); ++i) {
        EXPECT_EQ(a[i].x(), b[i].x()) << i;
        EXPECT_EQ(a[i].y(), b[i].y()) << i;
    }
}

TEST(IsotopeEnvelope, HasTheBitsOfItsSteps)
{
    for (const QString& text : {u"C6H12O6"_s, u"C50H71N13O12"_s, u"C378H629N105O118S"_s, u"Cl4"_s,
                                u"SnBr2"_s, u"E3H"_s, u"XxC2"_s, u"Fe2S2"_s, u"Pn2C"_s}) {
        SCOPED_TRACE(text.toStdString());
        const auto formula = chem::ChemicalFactory::parseChemicalFormula(text);
        expectSameBits(envelopeOf(text, 1, false), envelopeByHand(formula, 1));
        expectSameBits(envelopeOf(text, 7, false), envelopeByHand(formula, 7));
    }
}

TEST(IsotopeEnvelope, AgreesCloselyOnEveryPlatform)
{
    // Taken from IsoSpec++ 2.2.1 itself on x86-64. Fused multiply-add and another mathematics
    // library move the last digits only.
    const QJsonArray rows = referenceRows(u"envelopes.json"_s);
    ASSERT_EQ(rows.size(), 3);
    for (const auto row : rows) {
        const QString formula = row[u"formula"].toString();
        SCOPED_TRACE(formula.toStdString());
        const QJsonArray points = row[u"points"].toArray();
        const Envelope envelope = envelopeOf(formula, 1, false);
        ASSERT_EQ(envelope.size(), points.size());
        for (qsizetype i = 0; i < envelope.size(); ++i) {
            const double position = points[i][0].toDouble();
            EXPECT_NEAR(envelope[i].x(), position, 1e-12 * position) << i;
            EXPECT_NEAR(envelope[i].y(), points[i][1].toDouble(), 1e-12) << i;
        }
    }
}

TEST(IsotopeEnvelope, ProtonatedMoleculeHasOneHydrogenMoreForEachCharge)
{
    Envelope envelope;
    const Molecule glucose = molecule(u"C6H12O6"_s);
    const Molecule result = naturalFactory().generateIsotopeEnvelope(glucose, 3, &envelope, true);
    Molecule hydrogens = naturalFactory().hydrogen;
    hydrogens *= 3;
    EXPECT_EQ(result.formula().toString(), u"C6H15O6"_s);
    EXPECT_EQ(result.monoMass(), (glucose + hydrogens).monoMass());
    EXPECT_EQ(result.averageMass(), (glucose + hydrogens).averageMass());
    expectSameBits(envelope, envelopeByHand(result.formula(), 3));
    EXPECT_EQ(naturalFactory().generateIsotopeEnvelope(glucose, 3, &envelope, false).monoMass(),
              glucose.monoMass());
}

// Bovine ubiquitin, whose monoisotopic mass is published as 8559.6167 and average mass as 8564.8.
TEST(IsotopeEnvelope, UbiquitinAtTenCharges)
{
    const Envelope envelope = envelopeOf(u"C378H629N105O118S"_s, 10, true);
    ASSERT_GT(envelope.size(), 10);
    EXPECT_NEAR(envelope[0].x(), (8559.6167 + 10 * 1.0072765) / 10, 2e-5);
    const auto highest =
        std::max_element(envelope.cbegin(), envelope.cend(),
                         [](const QPointF& a, const QPointF& b) { return a.y() < b.y(); });
    EXPECT_EQ(highest - envelope.cbegin(), 5);
    EXPECT_NEAR(highest->x(), envelope[0].x() + 5 * 0.10028, 2e-3);

    double centroid = 0.0;
    for (const QPointF& point : envelope)
        centroid += point.x() * point.y();
    EXPECT_NEAR(centroid / sumOf(envelope), (8564.8 + 10 * 1.00739) / 10, 1e-2);
}

TEST(IsotopeEnvelope, ElectronIsTakenOffOnceWhateverTheCharge)
{
    for (const int charge : {0, 1, 2, 5, -3}) {
        const double divisor = charge == 0 ? 1.0 : std::abs(charge);
        EXPECT_EQ(envelopeOf(u"C1"_s, charge, false)[0].x(), 12.0 / divisor - 0.000548579909065)
            << charge;
    }
}

TEST(IsotopeEnvelope, MassesOfTheResultAreThoseOfTheInput)
{
    Envelope envelope;
    const Molecule odd(formulaWith({{u"C"_s, 1}}), 2.5, 1.5); // carbon weighs 12
    const Molecule plain = naturalFactory().generateIsotopeEnvelope(odd, 2, &envelope, false);
    EXPECT_EQ(plain.averageMass(), 2.5);
    EXPECT_EQ(plain.monoMass(), 1.5);
    EXPECT_EQ(plain.formula().elementCountMap(), odd.formula().elementCountMap());
    EXPECT_EQ(envelope[0].x(), 6.0 - naturalFactory().electron.monoMass());

    const Molecule charged = naturalFactory().generateIsotopeEnvelope(odd, 2, &envelope, true);
    EXPECT_EQ(charged.averageMass(), 2.5 + 2.0 * naturalFactory().hydrogen.averageMass());
    EXPECT_EQ(charged.monoMass(), 1.5 + 2.0 * naturalFactory().hydrogen.monoMass());
}

TEST(IsotopeEnvelope, FollowsTheIsotopesOfTheFactory)
{
    const OpenFactory labelled(u"C13:1"_s);
    Envelope envelope;
    labelled.generateIsotopeEnvelope(labelled.constructMolecule(u"C6"_s), 1, &envelope, false);
    ASSERT_EQ(envelope.size(), 1);
    EXPECT_NEAR(envelope[0].x(), 6 * 13.003354835 - 0.00054858, 1e-6);
}

TEST(IsotopeEnvelope, SignOfTheChargeDoesNotMatter)
{
    expectSameBits(envelopeOf(u"C6H12O6"_s, 2, true), envelopeOf(u"C6H12O6"_s, -2, true));
    Envelope envelope;
    const Molecule result =
        naturalFactory().generateIsotopeEnvelope(molecule(u"C6H12O6"_s), -2, &envelope, true);
    EXPECT_EQ(result.formula().toString(), u"C6H14O6"_s);
}

TEST(IsotopeEnvelope, ChargeZeroDividesLikeOneAndAddsNothing)
{
    expectSameBits(envelopeOf(u"C6H12O6"_s, 0, true), envelopeOf(u"C6H12O6"_s, 1, false));
    Envelope envelope;
    const Molecule carbon = molecule(u"C1"_s);
    const Molecule result = naturalFactory().generateIsotopeEnvelope(carbon, 0, &envelope, true);
    EXPECT_TRUE(result.formula().elementCountMap().contains(u"H"_s));
    EXPECT_EQ(result.formula().elementCount(u"H"_s), 0);
    EXPECT_EQ(envelope[0].x(), 12.0 - naturalFactory().electron.monoMass());
}

TEST(IsotopeEnvelope, LowestChargeCountsAsTheHighest)
{
    const int lowest = std::numeric_limits<int>::min();
    const Envelope envelope = envelopeOf(u"C1"_s, lowest, false);
    ASSERT_FALSE(envelope.isEmpty());
    EXPECT_EQ(envelope[0].x(), 12.0 / 2147483647.0 - naturalFactory().electron.monoMass());
}

TEST(IsotopeEnvelope, GapsStayInTheListAtZero)
{
    const Envelope chlorine = envelopeOf(u"Cl1"_s, 1, false);
    ASSERT_EQ(chlorine.size(), 3);
    EXPECT_EQ(chlorine[1].x(), 0.0);
    EXPECT_EQ(chlorine[1].y(), 0.0);
    EXPECT_NEAR(chlorine[0].y(), 0.7576, 1e-3);
    EXPECT_NEAR(chlorine[2].x(), 36.96590 - 0.00054858, 1e-4);
}

TEST(IsotopeEnvelope, SingleIsotopeGivesOnePoint)
{
    const Envelope fluorine = envelopeOf(u"F1"_s, 1, false);
    ASSERT_EQ(fluorine.size(), 1);
    EXPECT_NEAR(fluorine[0].y(), 1.0, 1e-12);
    EXPECT_NEAR(fluorine[0].x(), 18.99840316 - 0.00054858, 1e-6);
}

TEST(IsotopeEnvelope, SharesAreNotScaledToOne)
{
    const double sum = sumOf(envelopeOf(u"C378H629N105O118S"_s, 10, true));
    EXPECT_LT(sum, 1.0);
    EXPECT_GT(sum, 0.99);
}

// 10,000 carbons hold no carbon 13 once in 10^46 times.
TEST(IsotopeEnvelope, FirstPointIsTheLightestPeakEvenWhereNothingFellIntoIt)
{
    const Envelope envelope = envelopeOf(u"C10000"_s, 4, false);
    ASSERT_GT(envelope.size(), 100);
    EXPECT_EQ(envelope[0].x(), 30000.0 - naturalFactory().electron.monoMass());
    EXPECT_EQ(envelope[0].y(), 0.0);
    EXPECT_EQ(envelope[1].x(), 0.0);
    EXPECT_EQ(envelope[1].y(), 0.0);
    EXPECT_NEAR(sumOf(envelope), 1.0, 1e-4);
}

// Bismuth has one isotope; so many atoms of it weigh more than 32 bits can hold.
TEST(IsotopeEnvelope, MassBeyond32BitsStillFillsTheFirstPoint)
{
    const Envelope envelope = envelopeOf(u"Bi10485758"_s, 1, false);
    ASSERT_EQ(envelope.size(), 1);
    EXPECT_GT(envelope[0].x(), 2147483648.0);
    EXPECT_NEAR(envelope[0].y(), 1.0, 1e-6);
}

// The lightest molecule weighs less than 32 bits can hold and the likely ones more. Their bins come
// out below zero, so that no point is made.
TEST(IsotopeEnvelope, MassesThatPassBeyond32BitsFillNoPoint)
{
    const double limit = 2147483648.0;
    const double thalliums = 10485758.0;
    const double bismuths = 50000.0;
    ASSERT_LT(thalliums * 202.9723 + bismuths * 208.9804, limit);
    ASSERT_GT(thalliums * 204.3833 + bismuths * 208.9804, limit + 1e6);
    const MessageRecorder recorder;
    EXPECT_TRUE(envelopeOf(u"Tl10485758Bi50000"_s, 1, false).isEmpty());
    EXPECT_TRUE(MessageRecorder::messages().isEmpty());
}

// The electron has two rows of abundance 1 in the table, so its configurations count double.
TEST(IsotopeEnvelope, ElectronsCountDouble)
{
    EXPECT_NEAR(sumOf(envelopeOf(u"E1"_s, 1, false)), 2.0, 1e-12);
    EXPECT_NEAR(sumOf(envelopeOf(u"E2"_s, 1, false)), 4.0, 1e-12);
}

TEST(IsotopeEnvelope, EmptyAndUnknownFormulasGiveNoPointAndNoMessage)
{
    const MessageRecorder recorder;
    EXPECT_TRUE(envelopeOf(QString(), 1, false).isEmpty());
    EXPECT_TRUE(envelopeOf(u"Xx3Yy"_s, 1, false).isEmpty());
    EXPECT_TRUE(envelopeOf(u"C0"_s, 1, false).isEmpty());
    EXPECT_TRUE(MessageRecorder::messages().isEmpty());
    Envelope envelope;
    const Molecule nothing =
        naturalFactory().generateIsotopeEnvelope(Molecule({}, 5.0, 4.0), 1, &envelope, false);
    EXPECT_EQ(nothing.averageMass(), 5.0);
    EXPECT_EQ(nothing.monoMass(), 4.0);
    EXPECT_TRUE(nothing.formula().isEmpty());
}

TEST(IsotopeEnvelope, FormulaThatNoMoleculeHasIsRefusedWithAWarning)
{
    for (const double count : {-1.0, 1.5, 3e9, std::nan("")}) {
        const MessageRecorder recorder;
        Envelope envelope = {{1.0, 2.0}};
        const Molecule odd(formulaWith({{u"C"_s, 1}, {u"O"_s, count}}), 2.0, 1.0);
        const Molecule result = naturalFactory().generateIsotopeEnvelope(odd, 2, &envelope, true);
        EXPECT_TRUE(envelope.isEmpty());
        EXPECT_EQ(result.formula().elementCount(u"H"_s), 2);
        ASSERT_EQ(MessageRecorder::messages().size(), 1);
        const auto& message = MessageRecorder::messages().first();
        EXPECT_EQ(message.type, QtWarningMsg);
        EXPECT_EQ(message.category, u"zel.generic"_s);
        EXPECT_EQ(message.text,
                  u"Isotope envelope can be calculated only with integer non-negative "
                  u"element counts"_s);
    }
}

TEST(IsotopeEnvelope, HostCanTurnTheWarningOff)
{
    QLoggingCategory::setFilterRules(u"zel.generic.warning=false"_s);
    const MessageRecorder recorder;
    envelopeOf(u"C1.5"_s, 1, false);
    EXPECT_TRUE(MessageRecorder::messages().isEmpty());
    QLoggingCategory::setFilterRules(QString());
}

TEST(IsotopeEnvelope, AddedHydrogensAreTestedWithTheRest)
{
    const Envelope envelope = envelopeOf(u"C1H-1"_s, 1, true);
    ASSERT_FALSE(envelope.isEmpty());
    EXPECT_NEAR(envelope[0].x(), 12.0 - 0.00054858, 1e-8);
}

TEST(IsotopeEnvelope, AddedHydrogensMayNotSuffice)
{
    const MessageRecorder recorder;
    Envelope envelope;
    const Molecule result =
        naturalFactory().generateIsotopeEnvelope(molecule(u"C1H-2"_s), 1, &envelope, true);
    EXPECT_TRUE(envelope.isEmpty());
    EXPECT_EQ(result.formula().elementCount(u"H"_s), -1);
    EXPECT_EQ(MessageRecorder::messages().size(), 1);
}

TEST(IsotopeEnvelope, UnknownElementsAreTestedWithTheRest)
{
    const MessageRecorder recorder;
    EXPECT_TRUE(envelopeOf(u"C1Xx0.5"_s, 1, false).isEmpty());
    EXPECT_TRUE(envelopeOf(u"C1Xx-1"_s, 1, false).isEmpty());
    EXPECT_EQ(MessageRecorder::messages().size(), 2);
}

TEST(IsotopeEnvelope, ListIsEmptiedBeforeAnExceptionPasses)
{
    Envelope envelope = {{1.0, 2.0}};
    const Molecule carbon = molecule(u"C1"_s);
    EXPECT_ANY_THROW(naturalFactory().generateIsotopeEnvelope(
        carbon, std::numeric_limits<int>::min(), &envelope, true));
    EXPECT_TRUE(envelope.isEmpty());
}

TEST(IsotopeEnvelope, CountsBeyondTheLimitOfIsoSpecThrowItsException)
{
    EXPECT_ANY_THROW(envelopeOf(u"C1F10485759"_s, 1, false));
    EXPECT_ANY_THROW(envelopeOf(u"C10485759"_s, 1, false));
    EXPECT_ANY_THROW(envelopeOf(u"C2147483647"_s, 1, false));
    EXPECT_NO_THROW(envelopeOf(u"F10485758"_s, 1, false));
}

TEST(IsotopeEnvelope, HugeMoleculeWithoutLikelyConfigurationsIsEmpty)
{
    const MessageRecorder recorder;
    EXPECT_TRUE(envelopeOf(u"C300000Cl300000S300000Br300000"_s, 1, false).isEmpty());
    EXPECT_TRUE(MessageRecorder::messages().isEmpty());
}

TEST(IsotopeEnvelope, AgreesWithAnExactConvolution)
{
    QStringList formulas = {u"C6H12O6"_s, u"C50H71N13O12"_s, u"C257H383N65O77S6"_s,
                            u"C234H340N61O128P17S17"_s, u"C378H629N105O118S"_s};
    for (const QJsonValue& row : referenceRows(u"peptides.json"_s))
        formulas.append(row[u"formula"].toString());
    ASSERT_EQ(formulas.size(), 115);
    for (const QString& text : std::as_const(formulas)) {
        SCOPED_TRACE(text.toStdString());
        const Molecule exact = molecule(text);
        expectEnvelopeOf(exactDistribution(exact.formula(), naturalFactory()),
                         envelopeOf(text, 1, false), exact.averageMass() < 20000 ? 0.01 : 0.02);
    }
}

// Laws of the envelopes of all molecules of moderate size.

RC_GTEST_PROP(IsotopeEnvelopeLaws, HasTheBitsOfItsSteps, ())
{
    const QStringList symbols = u"C H N O P S Cl Br Na Fe Xx E"_s.split(u' ');
    QString text;
    for (const int index : *rc::gen::container<std::vector<int>>(5, rc::gen::inRange(0, 12)))
        text += symbols[index] + QString::number(*rc::gen::inRange(0, index < 4 ? 60 : 4));
    const int charge = *rc::gen::inRange(-6, 7);
    const bool protonate = *rc::gen::arbitrary<bool>();

    Envelope envelope;
    const Molecule result =
        naturalFactory().generateIsotopeEnvelope(molecule(text), charge, &envelope, protonate);
    const Envelope expected = envelopeByHand(result.formula(), std::max(std::abs(charge), 1));
    RC_ASSERT(std::equal(envelope.cbegin(), envelope.cend(), expected.cbegin(), expected.cend(),
                         isSamePoint));
}

Molecule anyMolecule()
{
    const QStringList symbols = u"C H N O S P Cl Br"_s.split(u' ');
    QString text = u"C1"_s;
    for (qsizetype i = 0; i < symbols.size(); ++i)
        text += symbols[i] + QString::number(*rc::gen::inRange(0, i < 4 ? 80 : 3));
    return molecule(text);
}

RC_GTEST_PROP(IsotopeEnvelopeLaws, EnvelopeHoldsNearlyAllMolecules, ())
{
    const double share = sumOf(envelopeOf(anyMolecule(), 1));
    RC_ASSERT(share > 0.999);
    RC_ASSERT(share < 1.0 + 1e-6); // the table's abundances add up to 1 within some 10^-9
}

RC_GTEST_PROP(IsotopeEnvelopeLaws, CentreOfTheEnvelopeIsTheAverageMass, ())
{
    const Molecule neutral = anyMolecule();
    const Envelope envelope = envelopeOf(neutral, 1);
    double centre = 0.0;
    for (const QPointF& point : envelope)
        centre += point.x() * point.y();
    centre = centre / sumOf(envelope) + naturalFactory().electron.monoMass();
    // What is left out is less than 0.1 per cent of the molecules and lies a few daltons away.
    RC_ASSERT(std::abs(centre - neutral.averageMass()) < 0.01);
}

RC_GTEST_PROP(IsotopeEnvelopeLaws, FirstPeakIsTheMoleculeOfTheLightestIsotopes, ())
{
    const Molecule neutral = anyMolecule();
    const QMap<QString, double> counts = neutral.formula().elementCountMap();
    double lightest = 0.0;
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        const QList<double> masses = naturalFactory().element(entry.key(), 1).masses;
        lightest += entry.value() * *std::min_element(masses.cbegin(), masses.cend());
    }
    const double first = envelopeOf(neutral, 1).first().x();
    RC_ASSERT(std::abs(first + naturalFactory().electron.monoMass() - lightest) < 1e-8);
}

RC_GTEST_PROP(IsotopeEnvelopeLaws, ChargeDividesThePositionsAndLeavesTheShares, ())
{
    const Molecule neutral = anyMolecule();
    const int charge = *rc::gen::inRange(2, 30);
    const Envelope one = envelopeOf(neutral, 1);
    const Envelope many = envelopeOf(neutral, charge);
    const double electron = naturalFactory().electron.monoMass();
    RC_ASSERT(one.size() == many.size());
    for (qsizetype i = 0; i < one.size(); ++i) {
        RC_ASSERT(one[i].y() == many[i].y());
        if (one[i].y() > 0.0)
            RC_ASSERT(std::abs((one[i].x() + electron) / charge - electron - many[i].x()) < 1e-9);
    }
}

RC_GTEST_PROP(IsotopeEnvelopeLaws, PeaksLieOneNeutronApart, ())
{
    const Envelope envelope = envelopeOf(anyMolecule(), 1);
    for (qsizetype i = 1; i < envelope.size(); ++i) {
        if (envelope[i].y() > 0.0)
            RC_ASSERT(std::abs(envelope[i].x() - envelope[0].x() - double(i)) < 0.1);
    }
}

RC_GTEST_PROP(IsotopeEnvelopeLaws, ProtonatedIonIsTheMoleculeWithItsHydrogensMeasuredWithoutAnyMore,
              ())
{
    const Molecule neutral = anyMolecule();
    const int charge = *rc::gen::inRange(1, 12);
    const Molecule ion = molecule(neutral.formula().toString() + u'H' + QString::number(charge));
    const Envelope protonated = envelopeOf(neutral, charge, true);
    const Envelope measured = envelopeOf(ion, charge, false);
    RC_ASSERT(std::equal(protonated.cbegin(), protonated.cend(), measured.cbegin(), measured.cend(),
                         isSamePoint));
}

} // namespace
