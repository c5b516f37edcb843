#include "OpenFactory.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

/// \file
/// What holds for the isotope envelopes of all molecules of moderate size.

using namespace Qt::StringLiterals;

namespace {

using chem::Molecule;
using Envelope = QList<QPointF>;

const OpenFactory& factory()
{
    static const OpenFactory shared;
    return shared;
}

Molecule anyMolecule()
{
    const QStringList symbols = u"C H N O S P Cl Br"_s.split(u' ');
    QString text = u"C1"_s;
    for (qsizetype i = 0; i < symbols.size(); ++i)
        text += symbols[i] + QString::number(*rc::gen::inRange(0, i < 4 ? 80 : 3));
    return factory().constructMolecule(text);
}

Envelope envelopeOf(const Molecule& molecule, int charge, bool protonate = false)
{
    Envelope envelope;
    factory().generateIsotopeEnvelope(molecule, charge, &envelope, protonate);
    return envelope;
}

double shareOf(const Envelope& envelope)
{
    double share = 0.0;
    for (const QPointF& point : envelope)
        share += point.y();
    return share;
}

RC_GTEST_PROP(EnvelopeLaws, EnvelopeHoldsNearlyAllMolecules, ())
{
    const double share = shareOf(envelopeOf(anyMolecule(), 1));
    RC_ASSERT(share > 0.999);
    RC_ASSERT(share < 1.0 + 1e-6); // the table's abundances add up to 1 within some 10^-9
}

RC_GTEST_PROP(EnvelopeLaws, CentreOfTheEnvelopeIsTheAverageMass, ())
{
    const Molecule molecule = anyMolecule();
    const Envelope envelope = envelopeOf(molecule, 1);
    double centre = 0.0;
    for (const QPointF& point : envelope)
        centre += point.x() * point.y();
    centre = centre / shareOf(envelope) + factory().electron.monoMass();
    // What is left out is less than 0.1 per cent of the molecules and lies a few daltons away.
    RC_ASSERT(std::abs(centre - molecule.averageMass()) < 0.01);
}

RC_GTEST_PROP(EnvelopeLaws, FirstPeakIsTheMoleculeOfTheLightestIsotopes, ())
{
    const Molecule molecule = anyMolecule();
    const QMap<QString, double> counts = molecule.formula().elementCountMap();
    double lightest = 0.0;
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        const QList<double> masses = factory().element(entry.key(), 1).masses;
        lightest += entry.value() * *std::min_element(masses.cbegin(), masses.cend());
    }
    const double first = envelopeOf(molecule, 1).first().x();
    RC_ASSERT(std::abs(first + factory().electron.monoMass() - lightest) < 1e-8);
}

RC_GTEST_PROP(EnvelopeLaws, ChargeDividesThePositionsAndLeavesTheShares, ())
{
    const Molecule molecule = anyMolecule();
    const int charge = *rc::gen::inRange(2, 30);
    const Envelope one = envelopeOf(molecule, 1);
    const Envelope many = envelopeOf(molecule, charge);
    const double electron = factory().electron.monoMass();
    RC_ASSERT(one.size() == many.size());
    for (qsizetype i = 0; i < one.size(); ++i) {
        RC_ASSERT(one[i].y() == many[i].y());
        if (one[i].y() > 0.0)
            RC_ASSERT(std::abs((one[i].x() + electron) / charge - electron - many[i].x()) < 1e-9);
    }
}

RC_GTEST_PROP(EnvelopeLaws, PeaksLieOneNeutronApart, ())
{
    const Envelope envelope = envelopeOf(anyMolecule(), 1);
    for (qsizetype i = 1; i < envelope.size(); ++i) {
        if (envelope[i].y() > 0.0)
            RC_ASSERT(std::abs(envelope[i].x() - envelope[0].x() - double(i)) < 0.1);
    }
}

RC_GTEST_PROP(EnvelopeLaws, ProtonatedIonIsTheMoleculeWithItsHydrogensMeasuredWithoutAnyMore, ())
{
    const Molecule molecule = anyMolecule();
    const int charge = *rc::gen::inRange(1, 12);
    const Molecule ion =
        factory().constructMolecule(molecule.formula().toString() + u'H' + QString::number(charge));
    const Envelope protonated = envelopeOf(molecule, charge, true);
    const Envelope measured = envelopeOf(ion, charge, false);
    RC_ASSERT(protonated == measured);
}

} // namespace
