#include <ChemicalModel.h>

#include <QTextStream>

using namespace Qt::StringLiterals;

int main()
{
    const auto factory = chem::defaultChemicalFactory();
    const auto peptide = factory->constructLinearPeptideComplex(u"DRVYIHPF"_s);
    QTextStream(stdout) << peptide->formula().toString() << ' '
                        << QString::number(peptide->monoMass(), 'f', 4) << " Da\n";
    return 0;
}
