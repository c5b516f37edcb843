#include "SharedObjects.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

Backbone linkedBackbone(const ResidueTable& residues)
{
    BackboneChain chain = Backbone::peptide(u"DRVYKHPF", residues)->chains()[0];
    BackboneGroup phospho{{79.966331, 79.979902}, {{u"H3PO4"_s, {97.976896, 97.995182}}}};
    BackboneChain modified = chain;
    modified.groups.push_back({3, phospho});
    modified.open.push_back({phospho, {1, 4}});
    modified.labile.push_back(phospho);
    return Backbone::ofChains({chain, modified}, {{0, 4, 1, 4, {138.06808, 138.166}}},
                              residues.breaks())
        .value();
}

} // namespace

SharedObjects::SharedObjects()
{
    linked = linkedBackbone(residues);
    digest.cleave(u"MAKPRXGKLR", compiled, residues, {.missedCleavages = 1});
    options.losses = {water};
    options.series = {Series::B, Series::Y, Series::Precursor, Series::Immonium, Series::Internal};
    EXPECT_FALSE(ions.assign(linked, options).has_value());
}

} // namespace ions
