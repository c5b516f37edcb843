#pragma once

#include "LetterTable.h"
#include "LinearComplex.h"

namespace chem {

/// What an oligonucleotide is laid out from: the building blocks by letter.
struct OligoParts
{
    LetterTable riboses;
    LetterTable nucleobases;
    LetterTable phosphates;
    LetterTable fivePrimeTerminals;
    LetterTable threePrimeTerminals;
};

} // namespace chem
