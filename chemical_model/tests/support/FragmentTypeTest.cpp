#include "RegisteredEnumeration.h"
#include <FragmentType.h>

namespace {

using chem::ZEL_QEnumsFragmentType::FragmentType;

static_assert(std::is_same_v<chem::FragmentType, FragmentType>);

struct FragmentTypeDescription
{
    using Type = FragmentType;
    static const QMetaObject& metaObject()
    {
        return chem::ZEL_QEnumsFragmentType::staticMetaObject;
    }
    static constexpr const char* name = "FragmentType";
    static constexpr const char* space = "chem::ZEL_QEnumsFragmentType";
    // Saved streams hold these numbers.
    static constexpr NamedValue<FragmentType> values[] = {
        {FragmentType::A, 0, "A"},
        {FragmentType::Adot, 1, "Adot"},
        {FragmentType::B, 2, "B"},
        {FragmentType::C, 3, "C"},
        {FragmentType::Cdot, 4, "Cdot"},
        {FragmentType::D, 5, "D"},
        {FragmentType::AB, 6, "AB"},
        {FragmentType::W, 7, "W"},
        {FragmentType::X, 8, "X"},
        {FragmentType::Xdot, 9, "Xdot"},
        {FragmentType::Y, 10, "Y"},
        {FragmentType::Z, 11, "Z"},
        {FragmentType::Zdot, 12, "Zdot"},
        {FragmentType::Immonium, 13, "Immonium"},
        {FragmentType::Oxonium, 14, "Oxonium"},
        {FragmentType::Precursor, 15, "Precursor"},
        {FragmentType::PrecursorFrag, 16, "PrecursorFrag"},
        {FragmentType::Unknown, 17, "Unknown"},
    };
};

INSTANTIATE_TYPED_TEST_SUITE_P(FragmentType, RegisteredEnumeration, FragmentTypeDescription);

} // namespace
