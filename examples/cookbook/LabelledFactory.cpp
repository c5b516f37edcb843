#include "Recipes.h"

void labelledFactory(QTextStream& out)
{
    //! [LabelledFactory]
    const auto natural = defaultChemicalFactory();
    const auto heavy = ChemicalFactory::construct(u"N15:98 N14:2"_s);

    // A text that cannot be read gives empty dictionaries and no message: ask for a terminus.
    NamedMolecule nTerminal;
    NamedMolecule cTerminal;
    heavy->standardPeptideTermini(&nTerminal, &cTerminal);
    out << (nTerminal.formula().isEmpty() ? "refused" : "accepted") << '\n';

    const QList<const ChemicalFactory*> factories = {natural.data(), heavy.data()};
    for (const ChemicalFactory* factory : factories) {
        const auto peptide = factory->constructLinearPeptideComplex(u"DRVYIHPF"_s);
        out << QString::number(peptide->monoMass(), 'f', 4) << " Da monoisotopic, "
            << QString::number(peptide->averageMass(), 'f', 3) << " Da average\n";
    }
    //! [LabelledFactory]
}
