#include "Error.h"

namespace zel {

Error::Error(int code) noexcept
    : m_code(code)
{
}

Error::Error(Error&& other) noexcept = default;

Error::~Error() = default;

bool Error::hasError() const noexcept
{
    return m_code != NoError;
}

} // namespace zel
