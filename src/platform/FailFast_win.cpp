#include "platform/HResultError.h"

#include <cstdio>
#include <cstdlib>

#include <windows.h>

namespace Zorvane {

std::uint32_t hresult_from_system_code(int code) noexcept
{
    return static_cast<std::uint32_t>(HRESULT_FROM_WIN32(static_cast<DWORD>(code)));
}

void fail_fast(std::uint32_t code, const char* what) noexcept
{
    std::fprintf(stderr, "Zorvane: fail-fast 0x%08X: %s\n", code, what != nullptr ? what : "");
    std::fflush(stderr);
    EXCEPTION_RECORD record = {};
    record.ExceptionCode = static_cast<DWORD>(code);
    record.ExceptionFlags = EXCEPTION_NONCONTINUABLE;
    ::RaiseFailFastException(&record, nullptr, 0);
    std::abort();
}

} // namespace Zorvane
