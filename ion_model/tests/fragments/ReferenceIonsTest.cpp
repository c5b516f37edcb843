#include "FragmentIons.h"
#include "Ionization.h"
#include "TestPrinters.h"
#include <zel_chemical_model/ChemicalFactory.h>

#include <QFile>

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <tuple>

/// \file
/// m/z of ions from outside: printed in tables, or calculated by compositions with nothing of this
/// library. The files in data tell where each figure comes from.
///
/// Programs differ by conventions. Ours, and why:
/// - A charge is a proton, not a hydrogen atom: what is bound is H+, so that m/z lacks the
///   electron. A toolkit that adds the atom is 0.00055 higher at each charge.
/// - a, c, x and z of nucleic acids are what is left where a water leaves with the cut: d - H2O is
///   c, b - H2O is a, w - H2O is x, y - H2O is z. A toolkit that breaks the bond alone and takes
///   only an oxygen has them two hydrogens higher.
/// - A base leaves as a neutral molecule, with a hydrogen of the sugar: a-B is a less adenine,
///   C5H5N5, not less its radical. A toolkit that takes two hydrogens more with it is 2.016 lower.
/// - z of peptides is y - NH3, and z. has one hydrogen more: the radical that electrons make.

using namespace Qt::StringLiterals;

namespace ions {

namespace {

QStringList linesOf(const QString& name)
{
    QFile file(QStringLiteral(ION_MODEL_TEST_DATA_DIR "/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    lines.removeIf([](const QString& line) { return line.startsWith(u'#'); });
    return lines;
}

Backbone backboneOf(const QString& kind, const QString& text)
{
    static const ResidueTable residues;
    return kind == u"peptide"
               ? Backbone::peptide(text, residues).value()
               : Backbone::oligonucleotide(text, *chem::defaultChemicalFactory()).value();
}

/// The ions of one molecule by series, number and charge.
class IonsByName
{
public:
    explicit IonsByName(const Backbone& backbone)
    {
        IonOptions options;
        options.series.clear();
        for (int series = 0; series <= int(Series::Immonium); ++series)
            options.series.push_back(Series(series));
        options.charges = {1, -1, 2, -2, 3, -3};
        FragmentIons ions;
        EXPECT_FALSE(ions.assign(backbone, options).has_value());
        std::size_t at = 0;
        for (const IonRun& run : ions.runs()) {
            for (quint32 i = 0; i < run.count; ++i)
                m_mz[{run.series, run.firstNumber + i, run.charge}] = ions.mz()[at++];
        }
    }

    double mz(Series series, quint32 number, int charge) const
    {
        return m_mz.at({series, number, charge});
    }

private:
    std::map<std::tuple<Series, quint32, int>, double> m_mz;
};

TEST(ReferenceIons, EverySeriesAndSignAgreesWithCompositionsWrittenOut)
{
    std::map<std::pair<QString, bool>, int> compared; // by series and sign
    std::optional<IonsByName> ions;
    QString text;
    for (const QString& line : linesOf(u"ions.tsv"_s)) {
        const QStringList cells = line.split(u'\t');
        if (cells[0] == u">") {
            text = cells[2];
            ions.emplace(backboneOf(cells[1], text));
            continue;
        }
        const double mz =
            ions->mz(seriesNamed(cells[0]).value(), cells[1].toUInt(), cells[2].toInt());
        ASSERT_NEAR(mz, cells[3].toDouble(), 1e-6 + 1e-10 * mz)
            << line.toStdString() << " of " << text.toStdString();
        ++compared[{cells[0], cells[2].toInt() > 0}];
    }
    EXPECT_EQ(compared.size(), 2U * 14U + 1U); // immonium ions are positive
    for (const auto& [kind, count] : compared)
        EXPECT_GE(count, 48) << kind.first.toStdString();
}

double mzOfLabel(const Backbone& backbone, const QString& label)
{
    IonOptions options;
    options.series = {Series::A, Series::B, Series::Y, Series::Immonium};
    FragmentIons ions;
    EXPECT_FALSE(ions.assign(backbone, options).has_value());
    for (qsizetype i = 0; i < std::ssize(ions.mz()); ++i) {
        if (ions.label(backbone, i) == label)
            return ions.mz()[std::size_t(i)];
    }
    ADD_FAILURE() << "no ion " << label.toStdString();
    return 0.0;
}

double publishedIon(const QString& kind, const QString& text, const QString& ion)
{
    const bool isPeptide = kind == u"peptide";
    if (isPeptide && !ion.startsWith(u'['))
        return mzOfLabel(backboneOf(kind, text), ion);
    const double mass = isPeptide ? backboneOf(kind, text).masses().monoisotopic
                                  : AtomMasses().weigh(formula(text))->monoisotopic;
    return Ionization::read(ion)->mz(mass);
}

TEST(ReferenceIons, CalibrantsAndTextbookIonsHaveTheirPrintedMassToCharge)
{
    int compared = 0;
    for (const QString& line : linesOf(u"published-ions.tsv"_s)) {
        const QStringList cells = line.split(u'\t');
        EXPECT_NEAR(publishedIon(cells[0], cells[1], cells[2]), cells[3].toDouble(),
                    cells[4].toDouble())
            << line.toStdString();
        ++compared;
    }
    EXPECT_GE(compared, 100);
}

/// What the other conventions would give lies outside any tolerance of these tests.
TEST(ReferenceIons, ProtonsAreNoHydrogenAtoms)
{
    const double mass = 555.269301; // Leu-enkephalin
    EXPECT_NEAR(Ionization::protons(1).mz(mass), 556.276577, 2e-6);
    EXPECT_NEAR(Ionization::protons(-1).mz(mass), 554.262025, 2e-6);
    EXPECT_NEAR(Ionization::protons(1).mz(0.0) + electronMass, 1.00782503, 1e-8);
}

TEST(ReferenceIons, CutsOfNucleicAcidsLeaveWaterAndBasesTakeOneHydrogen)
{
    const IonsByName ions(backboneOf(u"oligonucleotide"_s, u"rArCrGrU"_s));
    const double water = 18.010565;
    for (quint32 k = 1; k < 4; ++k) {
        EXPECT_NEAR(ions.mz(Series::B, k, -1) - ions.mz(Series::A, k, -1), water, 2e-6);
        EXPECT_NEAR(ions.mz(Series::D, k, -1) - ions.mz(Series::C, k, -1), water, 2e-6);
        EXPECT_NEAR(ions.mz(Series::W, k, -1) - ions.mz(Series::X, k, -1), water, 2e-6);
        EXPECT_NEAR(ions.mz(Series::Y, k, -1) - ions.mz(Series::Z, k, -1), water, 2e-6);
    }
    EXPECT_NEAR(ions.mz(Series::A, 1, -1) - ions.mz(Series::AMinusB, 1, -1), 135.054495, 2e-6);
    EXPECT_NEAR(ions.mz(Series::A, 2, -1) - ions.mz(Series::AMinusB, 2, -1), 111.043262, 2e-6);
}

} // namespace

} // namespace ions
