// Any text is a peptide: its parts add up to its total and each position breaks in ten ways.

#include "FuzzInput.h"
#include <ChemicalModel.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList units = {u"A"_s, u"C"_s, u"D"_s, u"H"_s, u"K"_s,
                           u"P"_s, u"W"_s, u"x"_s, u"/"_s, u" "_s};
constexpr std::size_t longest = 200;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = textOf(data, std::min(size, longest), units);
    const auto factory = chem::defaultChemicalFactory();
    const auto complex = factory->constructLinearPeptideComplex(text);
    require(complex->residues.size() == text.size() + 2);

    chem::Molecule total = chem::Molecule(*complex->residues.first()) + *complex->residues.last();
    for (qsizetype i = 1; i <= text.size(); ++i)
        total += *complex->residues[i];
    require(total.monoMass() == complex->monoMass());
    require(total.averageMass() == complex->averageMass());
    require(total.formula().elementCountMap() == complex->formula().elementCountMap());

    QList<chem::SimpleFragment> flat;
    chem::generateLinearFragments(*complex, flat);
    QList<QSharedPointer<chem::Fragment>> rich;
    factory->generateLinearFragments(*complex, &rich);
    require(flat.size() == 10 * text.size() && rich.size() == flat.size());

    const chem::Chain chain = chem::constructPeptideChain(u"n"_s, u"c"_s, text, factory.data());
    require(chain.residues().size() == text.size() + 2);
    return 0;
}
