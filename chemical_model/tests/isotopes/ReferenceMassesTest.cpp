#include "ExactConvolution.h"
#include "FragmentLists.h"
#include "ReferenceData.h"
#include "TestPrinters.h"
#include <ChemicalFactory.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// The figures were computed by other programs from their own isotope tables, or measured and
// published; they share neither data nor algorithm with this library, but for the column of
// IsoSpec++ itself.

chem::Molecule molecule(const QString& formula)
{
    return chem::defaultChemicalFactory()->constructMolecule(formula);
}

/// Compares with each program's figure. `tolerance` may be narrower for the column of IsoSpec++,
/// whose table this is, and wider for one whose atomic masses have fewer digits.
void expectNear(const QJsonObject& figures, double mass, double tolerance)
{
    for (auto figure = figures.begin(); figure != figures.end(); ++figure) {
        const double printedDigits = 1e-6 + 1e-12 * mass;
        const double fewerDigits = 1e-8 * mass;
        const bool isOwnTable = figure.key() == u"isospec";
        const bool isCoarser = figure.key() == u"openms";
        EXPECT_NEAR(mass, figure.value().toDouble(),
                    isOwnTable ? printedDigits : tolerance + (isCoarser ? fewerDigits : 0.0))
            << figure.key().toStdString();
    }
}

TEST(ReferenceMasses, FormulasAgreeWithOtherPrograms)
{
    const QJsonArray rows = referenceRows(u"formulas.json"_s);
    ASSERT_EQ(rows.size(), 107);
    for (const QJsonValue& row : rows) {
        SCOPED_TRACE(row[u"formula"].toString().toStdString());
        const chem::Molecule computed = molecule(row[u"formula"].toString());
        expectNear(row[u"mono"].toObject(), computed.monoMass(), row[u"monoTolerance"].toDouble());
        expectNear(row[u"average"].toObject(), computed.averageMass(),
                   row[u"averageTolerance"].toDouble());
    }
}

TEST(ReferenceMasses, PeptidesAgreeWithOtherPrograms)
{
    const QJsonArray rows = referenceRows(u"peptides.json"_s);
    ASSERT_EQ(rows.size(), 110);
    for (const QJsonValue& row : rows) {
        SCOPED_TRACE(row[u"name"].toString().toStdString());
        const auto peptide = chem::defaultChemicalFactory()->constructLinearPeptideComplex(
            row[u"sequence"].toString());
        EXPECT_EQ(peptide->formula().elementCountMap(),
                  molecule(row[u"formula"].toString()).formula().elementCountMap());
        const double mass = peptide->monoMass();
        expectNear(row[u"mono"].toObject(), mass, 2e-6 + 1e-9 * mass);
        expectNear(row[u"average"].toObject(), peptide->averageMass(), 1e-5 + 1e-5 * mass);
    }
}

TEST(ReferenceMasses, OligonucleotidesAgreeWithOtherPrograms)
{
    const QJsonArray rows = referenceRows(u"oligonucleotides.json"_s);
    ASSERT_EQ(rows.size(), 50);
    for (const QJsonValue& row : rows) {
        SCOPED_TRACE(row[u"text"].toString().toStdString());
        const auto strand =
            chem::defaultChemicalFactory()->constructLinearOligoComplex(row[u"text"].toString());
        ASSERT_TRUE(strand);
        EXPECT_EQ(strand->formula().elementCountMap(),
                  molecule(row[u"formula"].toString()).formula().elementCountMap());
        const double mass = strand->monoMass();
        expectNear(row[u"mono"].toObject(), mass, 2e-6 + 1e-9 * mass);
        expectNear(row[u"average"].toObject(), strand->averageMass(), 1e-5 + 1e-5 * mass);
    }
}

TEST(ReferenceMasses, PublishedMassesAreMet)
{
    const auto factory = chem::defaultChemicalFactory();
    const double proton = molecule(u"H"_s).monoMass() - molecule(u"E"_s).monoMass();
    const QJsonArray rows = referenceRows(u"published.json"_s);
    ASSERT_EQ(rows.size(), 8);
    for (const QJsonValue& row : rows) {
        SCOPED_TRACE(row[u"name"].toString().toStdString());
        const chem::Molecule computed = molecule(row[u"formula"].toString());
        const bool isIon = row[u"kind"].toString() == u"MH+";
        const double mass = isIon ? computed.monoMass() + proton : computed.averageMass();
        EXPECT_NEAR(mass, row[u"published"].toDouble(), row[u"tolerance"].toDouble());
        const QString sequence = row[u"sequence"].toString();
        if (!sequence.isEmpty()) {
            EXPECT_EQ(factory->constructLinearPeptideComplex(sequence)->formula().toString(),
                      computed.formula().toString());
        }
    }
}

TEST(ReferenceMasses, EnvelopesOfThePeptidesAreTheirExactDistributions)
{
    const OpenFactory factory;
    for (const QJsonValue& row : referenceRows(u"peptides.json"_s)) {
        SCOPED_TRACE(row[u"name"].toString().toStdString());
        const chem::Molecule peptide = molecule(row[u"formula"].toString());
        QList<QPointF> envelope;
        factory.generateIsotopeEnvelope(peptide, 1, &envelope, false);
        expectEnvelopeOf(exactDistribution(peptide.formula(), factory), envelope,
                         peptide.averageMass() < 20000 ? 0.01 : 0.02);
    }
}

// The y ions of this peptide are what quadrupole time-of-flight instruments are calibrated with.
TEST(ReferenceMasses, FragmentsOfTheCalibrationPeptideAreMet)
{
    const QList<double> peaks = {175.1190, 246.1561, 333.1881,  480.2565,  627.3249, 684.3464,
                                 813.3890, 942.4316, 1056.4745, 1171.5014, 1285.5444};
    const double proton = molecule(u"H"_s).monoMass() - molecule(u"E"_s).monoMass();
    qsizetype compared = 0;
    for (const chem::SimpleFragment& ion : flatFragments(*peptide(u"EGVNDNEEGFFSAR"_s))) {
        const qsizetype number = ion.sequence.size();
        if (ion.type != chem::FragmentType::Y || number > peaks.size())
            continue;
        EXPECT_NEAR(ion.monoMass + proton, peaks[number - 1], 2e-4) << number;
        ++compared;
    }
    EXPECT_EQ(compared, peaks.size());
}

TEST(ReferenceMasses, ApprovedOligonucleotideDrugsHaveTheirPublishedFormulas)
{
    // Free acids; the sodium salts' formulas and masses stand in the prescribing information.
    const auto factory = chem::defaultChemicalFactory();
    const auto nusinersen = factory->constructLinearOligoComplex(
        u"eT*eQ*eA*eQ*eT*eT*eT*eQ*eA*eT*eA*eA*eT*eG*eQ*eT*eG*eG"_s);
    EXPECT_EQ(nusinersen->formula().toString(), u"C234H340N61O128P17S17"_s);
    const chem::Molecule salt = factory->modifyMolecule(*nusinersen, u"Na1H-1"_s, 17);
    EXPECT_EQ(salt.formula().toString(), u"C234H323N61Na17O128P17S17"_s);
    EXPECT_NEAR(salt.averageMass(), 7501.0, 0.6);

    const auto mipomersen = factory->constructLinearOligoComplex(
        u"eG*eQ*eQ*eT*eQ*dA*dG*dT*dQ*dT*dG*dQ*dT*dT*dQ*eG*eQ*eA*eQ*eQ"_s);
    EXPECT_EQ(mipomersen->formula().toString(), u"C230H324N67O122P19S19"_s);
    const chem::Molecule mipomersenSalt = factory->modifyMolecule(*mipomersen, u"Na1H-1"_s, 19);
    EXPECT_NEAR(mipomersenSalt.averageMass(), 7594.9, 0.6);
}

} // namespace
