#pragma once

#include "FaultFields.h"

#include <functional>
#include <memory>
#include <utility>

namespace faults {

/// What must hold behind a call that failed.
enum class Afterwards {
    Usable,   ///< Whatever it left can be read and destroyed.
    OldOrNew, ///< All is as it was before the call or as after a success, never in between.
};

/// One attempt at a call. The attempt owns what the call works on.
class Attempt
{
public:
    Attempt() = default;
    virtual ~Attempt() = default;
    Attempt(const Attempt&) = delete;
    Attempt& operator=(const Attempt&) = delete;

    virtual void call() = 0;
    /// All that can be observed of inputs and outputs.
    virtual fields::Fields observed() const = 0;
};

/// How to make an attempt anew.
using MakeAttempt = std::function<std::unique_ptr<Attempt>()>;

/// Makes attempt after attempt and lets memory run out at the first allocation of the call, at the
/// second and so on, until the call needs no more. This once with one refused allocation and once
/// with a lasting shortage.
///
/// Each time `std::bad_alloc` must reach the caller, or the call must do without the memory and
/// give the same result as ever; what it leaves must be as `afterwards` says; nothing may leak; and
/// the next attempt must succeed. Ways out that belong to Qt or IsoSpec++ are counted where they
/// are known, and fail the test where they are not.
void failAtEveryAllocation(Afterwards afterwards, const MakeAttempt& make);

/// An attempt at `call` with a value that `make` gives and that addField() can read.
template <typename Make, typename Call>
class ValueAttempt final : public Attempt
{
public:
    ValueAttempt(const Make& make, const Call& call)
        : m_value(make())
        , m_call(call)
    {
    }

    void call() override { m_call(m_value); }
    fields::Fields observed() const override { return fields::fieldsOf(m_value); }

private:
    std::invoke_result_t<Make> m_value;
    Call m_call;
};

/// The same for a call that works on the value that `make` gives.
template <typename Make, typename Call>
void failAtEveryAllocation(Afterwards afterwards, const Make& make, const Call& call)
{
    failAtEveryAllocation(afterwards, [&make, &call]() -> std::unique_ptr<Attempt> {
        return std::make_unique<ValueAttempt<Make, Call>>(make, call);
    });
}

} // namespace faults
