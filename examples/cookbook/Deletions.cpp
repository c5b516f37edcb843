#include "Recipes.h"
#include <IonModel.h>

#include <algorithm>
#include <cmath>

using namespace ions;

namespace {

//! [WithoutOne]
/// What a strand weighs without one of its nucleotides. The last takes the linkage before it along.
Masses withoutOne(const Backbone& strand, std::size_t index)
{
    const BackboneChain& chain = strand.chains()[0];
    const std::size_t linkage = std::min(index, chain.units.size() - 2);
    return strand.masses() - chain.units[index] - chain.linkages[linkage];
}
//! [WithoutOne]

Backbone strandOf(const QString& text)
{
    return Backbone::oligonucleotide(text, NucleotideTable()).value();
}

} // namespace

void deletions(QTextStream& out)
{
    const Backbone strand = strandOf(u"eT*eC*A*C*T*eT*eC"_s);
    const QString letters = strand.chains()[0].letters;
    for (qsizetype i = 0; i < letters.size(); ++i) {
        const double mass = withoutOne(strand, std::size_t(i)).average;
        out << letters[i] << i + 1 << ' ' << QString::number(mass, 'f', 3) << '\n';
    }
}

/// A strand of ACGT without one nucleotide weighs what the shorter text weighs.
void deletionsProved(QTextStream& out)
{
    const Backbone strand = strandOf(u"ACGT"_s);
    const QList<QString> shorterTexts = {u"CGT"_s, u"AGT"_s, u"ACT"_s, u"ACG"_s};
    for (qsizetype i = 0; i < shorterTexts.size(); ++i) {
        const double found = withoutOne(strand, std::size_t(i)).monoisotopic;
        const double expected = strandOf(shorterTexts.at(i)).masses().monoisotopic;
        const bool isEqual = std::abs(found - expected) < 1e-9;
        out << (isEqual ? "ok " : "FAILED ") << shorterTexts.at(i) << '\n';
    }
}
