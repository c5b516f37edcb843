#pragma once

#include "Peptidoforms.h"
#include <zel_chemical_model/StructuredMolecule.h>

/// \file
/// Peptidoforms as molecules of the first library, for texts that are known to be right.

namespace ions {

/// The molecule of a text that is known to have one.
inline chem::MoleculeEntity moleculeOf(const QString& text)
{
    const Parsed<chem::MoleculeEntity> molecule = moleculeOf(peptidoform(text));
    EXPECT_TRUE(molecule.hasValue())
        << text.toStdString() << ": " << (molecule ? "" : molecule.error().message.toStdString());
    return molecule.valueOr(nullptr);
}

/// What a molecule is as text, or why it is none.
inline QString textOf(const chem::MoleculeEntity& molecule)
{
    const Parsed<Peptidoform> back = peptidoformOf(molecule);
    return back ? back->toString() : QStringLiteral("refused: ") + back.error().message;
}

} // namespace ions
