#pragma once

#include "CommonStableExport.h"

/// Types that the libraries of the zel family share.
namespace zel {

/// \ingroup factory
/// Numbers that an Error carries. They are part of the binary interface.
enum ErrorCode : int {
    NoError = 0,        ///< Success.
    NoKnownElement = 2, ///< None of the elements in a list is known.
};

/// \ingroup factory
/// The outcome of a calculation: success or a numbered failure.
///
/// An Error can be moved but not copied, so that an outcome has one owner. Separate instances may
/// be used from separate threads.
class ZEL_COMMON_STABLE_EXPORT Error
{
public:
    /// Makes the outcome with the number `code`: an ErrorCode, or a number that another library of
    /// the family defines. 0 is success, every other number a failure.
    explicit Error(int code) noexcept;

    /// Takes the number of `other`, which keeps it as well.
    Error(Error&& other) noexcept;
    ~Error();

    Error(const Error&) = delete;
    Error& operator=(const Error&) = delete;
    Error& operator=(Error&&) = delete;

    /// Tells whether the calculation failed.
    bool hasError() const noexcept;

private:
    int m_code;
};

} // namespace zel
