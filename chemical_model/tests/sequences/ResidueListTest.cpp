#include "sequences/ResidueList.h"

#include "SameMolecules.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(ResidueList, EachResidueIsACopyInTheNextPlace)
{
    const chem::NamedMolecule glycine(chem::Molecule({}, 57.5, 57.0), u"Glycine"_s, u"G"_s);
    QList<QSharedPointer<chem::ComplexResidue>> residues;
    for (int position = 0; position < 3; ++position) {
        chem::appendResidue(glycine, &residues);
        ASSERT_EQ(residues.size(), position + 1);
        EXPECT_EQ(residues[position]->position, position);
        expectSame(*residues[position], glycine);
    }
    EXPECT_NE(residues[0], residues[1]);
}

} // namespace
