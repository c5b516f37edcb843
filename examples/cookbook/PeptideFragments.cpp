#include "Recipes.h"

void peptideFragments(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    //! [PeptideFragments]
    const auto peptide = factory->constructLinearPeptideComplex(u"YGGFM"_s);
    QList<SimpleFragment> fragments;
    generateLinearFragments(*peptide, fragments);

    // Fragments are neutral compositions: a proton makes them singly charged ions.
    const double proton = factory->constructMolecule(u"H"_s).monoMass() -
                          factory->constructMolecule(u"E"_s).monoMass();
    for (const SimpleFragment& fragment : std::as_const(fragments)) {
        if (fragment.type == FragmentType::B || fragment.type == FragmentType::Y)
            out << ChemicalFactory::typeToString(fragment.type) << fragment.sequence.size() << ' '
                << QString::number(fragment.monoMass + proton, 'f', 4) << '\n';
    }
    //! [PeptideFragments]
}
