#include "sequences/IonTypes.h"

using namespace Qt::StringLiterals;

namespace chem {

QString fragmentLabel(FragmentType type)
{
    switch (type) {
    case FragmentType::A:
        return u"a"_s;
    case FragmentType::Adot:
        return u"a."_s;
    case FragmentType::B:
        return u"b"_s;
    case FragmentType::C:
        return u"c"_s;
    case FragmentType::Cdot:
        return u"c."_s;
    case FragmentType::D:
        return u"d"_s;
    case FragmentType::AB:
        return u"aB"_s;
    case FragmentType::W:
        return u"w"_s;
    case FragmentType::X:
        return u"x"_s;
    case FragmentType::Xdot:
        return u"x."_s;
    case FragmentType::Y:
        return u"y"_s;
    case FragmentType::Z:
        return u"z"_s;
    case FragmentType::Zdot:
        return u"z."_s;
    default:
        return u"unknown"_s;
    }
}

} // namespace chem
