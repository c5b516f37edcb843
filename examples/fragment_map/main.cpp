// Draws a sequence with the fragment ions that were found among measured masses, as the field draws
// them: a hook above each bond for ions that hold the left end, one below for those of the right
// end.
//
//   fragment_map peptide|oligo SEQUENCE MASSES.txt PPM FILE.svg
//
// MASSES.txt holds neutral monoisotopic masses in daltons, one on each line.

#include "../common/MassList.h"
#include "../common/Svg.h"
#include <ChemicalModel.h>

#include <QHash>
#include <QTextStream>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using chem::FragmentType;

namespace {

constexpr double cell = 46;
constexpr double margin = 40;
constexpr double middle = 120;
constexpr double height = 240;
const QString leftColour = u"#1f5fa8"_s;
const QString rightColour = u"#b03a2e"_s;

bool isFound(const QList<double>& masses, double mass, double ppm)
{
    const double delta = mass * ppm / 1e6;
    const auto first = std::lower_bound(masses.cbegin(), masses.cend(), mass - delta);
    return first != masses.cend() && *first <= mass + delta;
}

/// The ions found at each bond. Bond i lies behind residue i, counted from 1.
struct Bonds
{
    QHash<qsizetype, QStringList> left;
    QHash<qsizetype, QStringList> right;
    int found = 0;
};

Bonds findIons(const chem::MoleculeComplex& complex, const QList<double>& masses, double ppm)
{
    QList<QSharedPointer<chem::Fragment>> fragments;
    chem::defaultChemicalFactory()->generateLinearFragments(complex, &fragments);
    const qsizetype length = complex.residues.size() - 2;
    Bonds bonds;
    for (const auto& fragment : std::as_const(fragments)) {
        const qsizetype monomers = fragment->residues.size() - 1;
        if (monomers == length || !isFound(masses, fragment->monoMass(), ppm))
            continue;
        const FragmentType type = fragment->sites.first().toStrongRef()->type;
        const QString label = fragment->typeLabel + QString::number(monomers);
        if (type <= FragmentType::AB)
            bonds.left[monomers].append(label);
        else
            bonds.right[length - monomers].append(label);
        ++bonds.found;
    }
    return bonds;
}

void drawHooks(const Bonds& bonds, qsizetype bond, Svg* svg)
{
    const double x = margin + cell * static_cast<double>(bond);
    const auto drawSide = [&](const QStringList& labels, double direction, const QString& colour) {
        if (labels.isEmpty())
            return;
        const double end = middle - 7 + direction * 30;
        svg->line(x, middle - 7, x, end, colour, 2);
        svg->line(x, end, x - direction * -12, end, colour, 2);
        double y = direction < 0 ? end - 8 : end + 16;
        for (const QString& label : labels) {
            svg->text(x, y, label, 12, u"middle"_s, colour);
            y += direction * 14;
        }
    };
    drawSide(bonds.left.value(bond), -1, leftColour);
    drawSide(bonds.right.value(bond), 1, rightColour);
}

} // namespace

int main(int argc, char* argv[])
{
    QTextStream errors(stderr);
    if (argc != 6) {
        errors << "usage: fragment_map peptide|oligo SEQUENCE MASSES.txt PPM FILE.svg\n";
        return 2;
    }
    const QString sequence = QString::fromLocal8Bit(argv[2]);
    const QList<double> masses = readMassList(QString::fromLocal8Bit(argv[3]));
    const double ppm = QString::fromLocal8Bit(argv[4]).toDouble();
    const auto factory = chem::defaultChemicalFactory();
    const auto complex = qstrcmp(argv[1], "oligo") == 0
                             ? factory->constructLinearOligoComplex(sequence)
                             : factory->constructLinearPeptideComplex(sequence);
    if (!complex || masses.isEmpty()) {
        errors << "nothing to draw: check the sequence and the file of masses\n";
        return 1;
    }

    const Bonds bonds = findIons(*complex, masses, ppm);
    const qsizetype length = complex->residues.size() - 2;
    Svg svg(2 * margin + cell * static_cast<double>(length), height);
    for (qsizetype i = 1; i <= length; ++i) {
        const double x = margin + cell * (static_cast<double>(i) - 0.5);
        svg.text(x, middle, complex->residues[i]->code, 22, u"middle"_s);
        if (i < length)
            drawHooks(bonds, i, &svg);
    }
    svg.text(margin, height - 14, u"%1 ions at %2 ppm"_s.arg(bonds.found).arg(ppm), 12, u"start"_s);
    if (!svg.save(QString::fromLocal8Bit(argv[5]))) {
        errors << "cannot write the picture\n";
        return 1;
    }
    return 0;
}
