#include "platform/HResultError.h"

#include <cstdio>
#include <cstdlib>

namespace Zorvane {

// The system's error numbers are errno's here.
std::uint32_t hresult_from_system_code(int code) noexcept
{
    return hresult_from_errno(code);
}

void fail_fast(std::uint32_t code, const char* what) noexcept
{
    std::fprintf(stderr, "Zorvane: fail-fast 0x%08X: %s\n", code, what != nullptr ? what : "");
    std::fflush(stderr);
    std::abort();
}

} // namespace Zorvane
