#pragma once

#include "Answers.h"

/// Writes a complex with all its residues and with all sites at each of them.
void tellComplex(Answers* answers, const chem::MoleculeComplex& complex);
