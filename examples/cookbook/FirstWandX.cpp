#include "Recipes.h"

void firstWandX(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const auto oligo = factory->constructLinearOligoComplex(u"rArCrGrU"_s);
    QList<SimpleFragment> flat;
    generateLinearFragments(*oligo, flat);
    QList<QSharedPointer<Fragment>> rich;
    factory->generateLinearFragments(*oligo, &rich);

    QMap<qsizetype, double> flatMasses;
    for (const SimpleFragment& fragment : std::as_const(flat)) {
        if (fragment.type == FragmentType::W)
            flatMasses.insert(fragment.sequence.size(), fragment.monoMass);
    }
    out << "       flat      rich\n";
    for (const auto& fragment : std::as_const(rich)) {
        if (fragment->typeLabel != u"w")
            continue;
        const qsizetype length = fragment->residues.size() - 1; // a terminal is one of them
        out << 'w' << length << QString::number(flatMasses.value(length), 'f', 4).rightJustified(10)
            << QString::number(fragment->monoMass(), 'f', 4).rightJustified(10) << '\n';
    }
}
