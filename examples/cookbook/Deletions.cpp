#include "Recipes.h"

#include <cmath>

namespace {

//! [WithoutOne]
using Strand = QList<QSharedPointer<const Nucleotide>>;

/// A strand without one of its nucleotides. The last one takes the linkage before it along.
Strand withoutOne(Strand strand, qsizetype index)
{
    const bool isLast = index == strand.size() - 1;
    strand.removeAt(index);
    if (isLast && !strand.isEmpty()) {
        const Nucleotide end = *strand.last();
        strand.last() = QSharedPointer<const Nucleotide>(
            new Nucleotide(end.nucleobase, end.ribose, NamedMolecule(), end.name, end.code));
    }
    return strand;
}
//! [WithoutOne]

} // namespace

void deletions(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    Strand strand;
    NamedMolecule fivePrime;
    NamedMolecule threePrime;
    factory->parseNucleotideSequence(u"eT*eC*A*C*T*eT*eC"_s, &strand, &fivePrime, &threePrime);
    for (qsizetype i = 0; i < strand.size(); ++i) {
        const auto shorter =
            factory->constructLinearOligoComplex(withoutOne(strand, i), fivePrime, threePrime);
        out << strand.at(i)->code << ' ' << daltons(shorter->averageMass(), 3) << '\n';
    }
}

/// A strand of ACGT without one nucleotide weighs what the shorter text weighs.
void deletionsProved(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    Strand strand;
    NamedMolecule fivePrime;
    NamedMolecule threePrime;
    factory->parseNucleotideSequence(u"ACGT"_s, &strand, &fivePrime, &threePrime);
    const QList<QString> shorterTexts = {u"CGT"_s, u"AGT"_s, u"ACT"_s, u"ACG"_s};
    for (qsizetype i = 0; i < shorterTexts.size(); ++i) {
        const auto found =
            factory->constructLinearOligoComplex(withoutOne(strand, i), fivePrime, threePrime);
        const auto expected = factory->constructLinearOligoComplex(shorterTexts.at(i));
        const bool isEqual = std::abs(found->monoMass() - expected->monoMass()) < 1e-9;
        out << (isEqual ? "ok " : "FAILED ") << shorterTexts.at(i) << '\n';
    }
}
