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
    // The system's fail-fast with the error as its context, from combase,
    // which the apartment loaded. Looked up rather than imported, so that the
    // program starts wherever it is missing; under Wine it is a stub that
    // stops in Wine's debugger instead of ending the process, so there the
    // exception below is raised directly.
    const HMODULE ntdll = ::GetModuleHandleW(L"ntdll.dll");
    const bool wine = ntdll != nullptr && ::GetProcAddress(ntdll, "wine_get_version") != nullptr;
    if (HMODULE combase = ::GetModuleHandleW(L"combase.dll"); combase != nullptr && !wine) {
        using RoFailFast = void(WINAPI*)(HRESULT);
        if (const FARPROC entry = ::GetProcAddress(combase, "RoFailFastWithErrorContext")) {
            reinterpret_cast<RoFailFast>(reinterpret_cast<void*>(entry))(
                static_cast<HRESULT>(code));
        }
    }
    EXCEPTION_RECORD record = {};
    record.ExceptionCode = static_cast<DWORD>(code);
    record.ExceptionFlags = EXCEPTION_NONCONTINUABLE;
    ::RaiseFailFastException(&record, nullptr, 0);
    std::abort();
}

} // namespace Zorvane
