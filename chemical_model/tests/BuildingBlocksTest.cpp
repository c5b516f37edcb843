#include <ChemicalModel.h>

#include <QDebug>

#include <gtest/gtest.h>
using namespace Qt::StringLiterals;
namespace {

TEST(BuildingBlocks, KindIsFoundByItsExactLabel)
{
    auto f = chem::defaultChemicalFactory();
    auto p = f->constructLinearPeptideComplex(u"DRVYIHPF"_s);
    qDebug() << p->formula().toString() << qSetRealNumberPrecision(17) << p->monoMass()
             << p->averageMass();
    auto q = f->constructMolecule(u"H"_s) - f->constructMolecule(u"E"_s);
    EXPECT_EQ(q.monoMass(), 1.007276452360935);
    EXPECT_EQ(q.averageMass(), 1.006844308477866);
    QList<QPointF> env;
    f->generateIsotopeEnvelope(*p, 2, &env, true);
    qDebug() << env;
    qDebug() << chem::FragmentType::Unknown << chem::FragmentType(99);
    QList<chem::SimpleFragment> fr;
    chem::generateLinearFragments(*p, fr);
    qDebug() << fr.size() << fr[0].sequence << fr[1].sequence;
}

} // namespace
