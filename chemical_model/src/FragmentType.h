#pragma once

#include <zel_chemical_model/ChemicalModelExport.h>

#include <QObject>

namespace chem {

/// The registered enumeration of fragment ion types. Qt's meta-object system knows the values by
/// name: they print with QDebug and go through QDataStream as 32-bit integers, unchecked.
namespace ZEL_QEnumsFragmentType {

Q_NAMESPACE_EXPORT(ZEL_CHEMICAL_MODEL_EXPORT)

/// \ingroup chains
/// The type of a fragment ion. Types 0 to 6 contain the left end of the chain (N-terminal or 5'),
/// types 7 to 12 the right end. The numbers are stable: saved streams hold them.
enum class FragmentType {
    A = 0,          ///< a ion.
    Adot = 1,       ///< a ion with one more hydrogen (a radical).
    B = 2,          ///< b ion.
    C = 3,          ///< c ion.
    Cdot = 4,       ///< c ion with one more hydrogen.
    D = 5,          ///< d ion (oligonucleotides).
    AB = 6,         ///< a ion that has lost its base (oligonucleotides).
    W = 7,          ///< w ion (oligonucleotides).
    X = 8,          ///< x ion.
    Xdot = 9,       ///< x ion with one more hydrogen.
    Y = 10,         ///< y ion.
    Z = 11,         ///< z ion.
    Zdot = 12,      ///< z ion with one more hydrogen (a radical).
    Immonium = 13,  ///< Immonium ion. For callers; the library does not produce it.
    Oxonium = 14,   ///< Oxonium ion. For callers; the library does not produce it.
    Precursor = 15, ///< The intact molecule. For callers; the library does not produce it.
    PrecursorFrag =
        16, ///< A neutral loss of the precursor. For callers; the library does not produce it.
    Unknown = 17, ///< Not stated.
};
Q_ENUM_NS(FragmentType)

} // namespace ZEL_QEnumsFragmentType

using ZEL_QEnumsFragmentType::FragmentType;

} // namespace chem
