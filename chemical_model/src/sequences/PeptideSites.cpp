#include "sequences/PeptideSites.h"

namespace chem {

std::vector<FragmentationSite> peptideSites(const ChainGroups& groups)
{
    const Molecule nothing;
    return {
        {FragmentType::B, nothing, groups.hydrogen},
        {FragmentType::Y, groups.hydrogen, nothing},
        {FragmentType::A, nothing, groups.formyl},
        {FragmentType::Adot, groups.hydrogen, groups.formyl},
        {FragmentType::C, groups.amine, nothing},
        {FragmentType::Cdot, groups.ammonia, nothing},
        {FragmentType::X, groups.formyl, groups.hydrogenPair},
        {FragmentType::Xdot, groups.formyl, groups.hydrogen},
        {FragmentType::Z, nothing, groups.amine},
        {FragmentType::Zdot, groups.hydrogen, groups.amine},
    };
}

} // namespace chem
