#include "Complexes.h"

void tellComplex(Answers* answers, const chem::MoleculeComplex& complex)
{
    answers->detail("total", static_cast<const chem::NamedMolecule&>(complex));
    for (const auto& residue : complex.residues)
        answers->detail("residue", residue);
    for (const auto& sites : complex.sites) {
        for (const auto& site : sites)
            answers->detail("site", site);
        answers->detail("sites", sites.size());
    }
}
