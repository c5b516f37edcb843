#include "structure/Dismantling.h"

#include "DeepNests.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace deepNests;
using chem::Modification;
using chem::MoleculeEntity;
using chem::StructuredMolecule;

namespace {

TEST(Dismantling, DeepNestsOfEachKindAreReleasedOnANormalStack)
{
    for (const Nesting& nesting : nestings) {
        SCOPED_TRACE(nesting.name);
        const MoleculeEntity nest = nestedIn(nesting);
        EXPECT_TRUE(nest.name().isEmpty());
    }
}

TEST(Dismantling, DeepHistoryCanBeFollowedBack)
{
    MoleculeEntity molecule = deepHistory(greatDepth);
    int steps = 0;
    for (auto history = molecule.transformations(); !history.isEmpty(); ++steps) {
        molecule = history.last().original();
        history = molecule.transformations();
    }
    EXPECT_EQ(steps, greatDepth);
    EXPECT_EQ(molecule.averageMass(), 1.0);
}

/// Tells whether a text is still held by somebody else.
class Witness
{
public:
    Witness() { m_text.detach(); }
    MoleculeEntity held() const { return chem::NamedMolecule({}, m_text, QString()); }
    bool isReleased() const { return m_text.isDetached(); }

private:
    QString m_text = u"witness"_s;
};

TEST(Dismantling, ReleasesWhatTheValueHolds)
{
    const Witness witness;
    chem::dismantle(Modification(witness.held(), {}));
    EXPECT_TRUE(witness.isReleased());

    StructuredMolecule molecule;
    molecule.links = {chem::Link(nestings.back().outer(witness.held()), {})};
    EXPECT_FALSE(witness.isReleased());
    chem::dismantle(std::move(molecule));
    EXPECT_TRUE(witness.isReleased());
}

} // namespace
