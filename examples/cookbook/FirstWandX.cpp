#include "Recipes.h"

void firstWandX(QTextStream& out)
{
    //! [FirstWandX]
    const auto factory = defaultChemicalFactory();
    const auto oligo = factory->constructLinearOligoComplex(u"rArCrGrU"_s);
    QList<SimpleFragment> flat;
    generateLinearFragments(*oligo, flat);
    QList<QSharedPointer<Fragment>> rich;
    factory->generateLinearFragments(*oligo, &rich);

    for (const SimpleFragment& fragment : std::as_const(flat)) {
        if (fragment.type == FragmentType::W)
            out << "flat w" << fragment.sequence.size() << ' '
                << QString::number(fragment.monoMass, 'f', 4) << '\n';
    }
    for (const auto& fragment : std::as_const(rich)) {
        if (fragment->typeLabel == u"w")
            out << "rich w" << fragment->residues.size() - 1 << ' '
                << QString::number(fragment->monoMass(), 'f', 4) << '\n';
    }
    //! [FirstWandX]
}
