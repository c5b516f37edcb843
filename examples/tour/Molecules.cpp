#include "Tour.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using chem::FragmentType;

namespace {

const QString ubiquitin =
    u"MQIFVKTLTGKTITLEVEPSDTIENVKAKIQDKEGIPPDQQRLIFAGKQLEDGRTLSDYNIQKESTLHLVLRLRGG"_s;
constexpr int barLength = 50;

double protonMass(const chem::ChemicalFactory& factory)
{
    return factory.constructMolecule(u"H"_s).monoMass() -
           factory.constructMolecule(u"E"_s).monoMass();
}

void printGlucose(const chem::ChemicalFactory& factory)
{
    printTitle(u"Glucose, from its formula"_s);
    const chem::Molecule glucose = factory.constructMolecule(u"C6H12O6"_s);
    out() << "  " << glucose.formula().toString() << '\n';
    printBesidePublished(u"monoisotopic mass, Da"_s, glucose.monoMass(), 180.0634, 4);
    printBesidePublished(u"average mass, Da"_s, glucose.averageMass(), 180.156, 3);
}

/// The m/z of an ion that a complex gives, with one proton; 0 if it gives none.
double massToCharge(const QList<chem::SimpleFragment>& fragments, FragmentType type,
                    qsizetype length, double proton)
{
    for (const chem::SimpleFragment& fragment : fragments) {
        if (fragment.type == type && fragment.sequence.size() == length)
            return fragment.monoMass + proton;
    }
    return 0.0;
}

void printAngiotensin(const chem::ChemicalFactory& factory)
{
    printTitle(u"Angiotensin II, DRVYIHPF"_s);
    const QString sequence = u"DRVYIHPF"_s;
    const auto peptide = factory.constructLinearPeptideComplex(sequence);
    out() << "  " << peptide->formula().toString() << '\n';
    printBesidePublished(u"monoisotopic mass, Da"_s, peptide->monoMass(), 1045.534, 3);
    printBesidePublished(u"monoisotopic MH+, m/z"_s, peptide->monoMass() + protonMass(factory),
                         1046.5418, 4);

    // The library's ions are neutral compositions: a proton makes them singly charged. A
    // full-length y ion is the intact peptide.
    QList<chem::SimpleFragment> fragments;
    chem::generateLinearFragments(*peptide, fragments);
    const double proton = protonMass(factory);
    out() << "\n  fragment ions, m/z at 1+\n"
          << "   #          a          b          c              x          y          z   #\n";
    const qsizetype length = sequence.size();
    for (qsizetype i = 1; i <= length; ++i) {
        const qsizetype fromRight = length + 1 - i;
        out() << QString::number(i).rightJustified(4) << ' ';
        for (const FragmentType type : {FragmentType::A, FragmentType::B, FragmentType::C})
            out() << column(massToCharge(fragments, type, i, proton), 4) << ' ';
        out() << "  " << sequence[i - 1] << ' ';
        for (const FragmentType type : {FragmentType::X, FragmentType::Y, FragmentType::Z})
            out() << column(massToCharge(fragments, type, fromRight, proton), 4) << ' ';
        out() << QString::number(fromRight).rightJustified(3) << '\n';
    }
}

void printUbiquitin(const chem::ChemicalFactory& factory)
{
    printTitle(u"Human ubiquitin, 76 residues, at ten charges"_s);
    const auto protein = factory.constructLinearPeptideComplex(ubiquitin);
    out() << "  " << protein->formula().toString() << '\n';
    printBesidePublished(u"average mass, Da"_s, protein->averageMass(), 8564.8, 1);

    QList<QPointF> envelope;
    factory.generateIsotopeEnvelope(*protein, 10, &envelope, true);
    const double highest =
        std::max_element(envelope.cbegin(), envelope.cend(),
                         [](const QPointF& a, const QPointF& b) { return a.y() < b.y(); })
            ->y();
    out() << "\n  isotope envelope\n       m/z      share\n";
    for (const QPointF& peak : std::as_const(envelope)) {
        if (peak.y() < 0.01 * highest)
            continue;
        const int length = qRound(barLength * peak.y() / highest);
        out() << column(peak.x(), 4) << column(peak.y(), 4) << "  " << QString(length, u'#')
              << '\n';
    }
}

void printPriced(const QString& isotopes, const chem::ChemicalFactory& factory)
{
    constexpr qsizetype shown = 4;
    const auto peptide = factory.constructLinearPeptideComplex(u"DRVYIHPF"_s);
    QList<QPointF> envelope;
    factory.generateIsotopeEnvelope(*peptide, 2, &envelope, true);
    std::sort(envelope.begin(), envelope.end(),
              [](const QPointF& a, const QPointF& b) { return a.y() > b.y(); });
    out() << "  " << isotopes.leftJustified(16) << column(peptide->monoMass(), 4)
          << column(peptide->averageMass(), 3) << "   ";
    for (const QPointF& peak : envelope.first(std::min(envelope.size(), shown)))
        out() << QString::number(peak.x(), 'f', 3) << " (" << QString::number(peak.y(), 'f', 3)
              << ") ";
    out() << '\n';
}

} // namespace

void tourMolecules()
{
    const auto factory = chem::defaultChemicalFactory();
    printGlucose(*factory);
    printAngiotensin(*factory);
    printUbiquitin(*factory);
}

void tourIsotopes()
{
    printTitle(u"Angiotensin II with natural and with labelled isotopes"_s);
    out() << "  isotopes          mono, Da   average   highest peaks at 2+, m/z (share)\n";
    printPriced(u"natural"_s, *chem::defaultChemicalFactory());
    for (const QString& isotopes : {u"C13:99 C12:1"_s, u"N15:100"_s})
        printPriced(isotopes, *chem::ChemicalFactory::construct(isotopes));

    out() << "\n  A protein of 25000 Da average mass, composed like the average residue, has "
             "about\n  "
          << QString::number(
                 chem::defaultChemicalFactory()
                     ->moleculeBasedOnAverageMass(u"C4.9384H7.7583N1.3577O1.4773S0.0417"_s, 25000.0)
                     .monoMass(),
                 'f', 1)
          << " Da monoisotopic mass.\n";
}
