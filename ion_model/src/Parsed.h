#pragma once

#include <QString>

#include <type_traits>
#include <utility>
#include <variant>

/// \file
/// What a reader gives back: a value, or what is wrong with the text and where. Nothing here
/// throws.

namespace ions {

/// \addtogroup ion_compositions
/// @{

/// Why an input was refused, and where.
///
/// \code
/// const Parsed<Composition> water = Composition::read(u"H2Ox"_s);
/// water.error().position; // 3
/// water.error().message;  // "expected an element, ..."
/// \endcode
struct Error
{
    QString message;         ///< A sentence that says what was expected.
    qsizetype position = -1; ///< Index of the QChar that cannot stand there; the length at an end.
    qsizetype chain = -1;    ///< For values built in code: the chain, from 0.
    qsizetype residue = -1;  ///< For values built in code: the residue in its chain, from 0.

    /// Compares all four fields.
    friend bool operator==(const Error&, const Error&) = default;
};

/// A value of type `T`, or an Error.
///
/// A value may be read from several threads. Asking for what is not there is a mistake of the
/// caller: it throws `std::bad_variant_access`.
template <typename T>
class [[nodiscard]] Parsed
{
    static_assert(!std::is_same_v<T, Error>);

public:
    /// Holds a value.
    Parsed(T value)
        : m_content(std::in_place_index<0>, std::move(value))
    {
    }

    /// Holds a refusal.
    Parsed(Error error)
        : m_content(std::in_place_index<1>, std::move(error))
    {
    }

    /// Tells whether there is a value.
    bool hasValue() const noexcept { return m_content.index() == 0; }
    /// Tells whether there is a value.
    explicit operator bool() const noexcept { return hasValue(); }

    /// The value.
    const T& value() const& { return std::get<0>(m_content); }
    /// The value, to be taken from a result that goes away.
    T&& value() && { return std::get<0>(std::move(m_content)); }
    /// The value.
    const T& operator*() const& { return value(); }
    /// The value, to be taken from a result that goes away.
    T&& operator*() && { return std::move(*this).value(); }
    /// A member of the value.
    const T* operator->() const { return &value(); }

    /// The value, or `other` where there is none.
    T valueOr(T other) const& { return hasValue() ? value() : std::move(other); }

    /// Why there is no value.
    const Error& error() const { return std::get<1>(m_content); }

private:
    std::variant<T, Error> m_content;
};

/// @}

} // namespace ions
