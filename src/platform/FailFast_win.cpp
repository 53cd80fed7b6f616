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
    // Looked up rather than imported: a system without it (before Windows 8.1,
    // or a compatibility layer) must still start the program.
    using RoFailFast = void(WINAPI*)(HRESULT, void*);
    if (HMODULE combase = ::GetModuleHandleW(L"combase.dll"); combase != nullptr) {
        const FARPROC entry = ::GetProcAddress(combase, "RoFailFastWithErrorContext");
        if (entry != nullptr) {
            reinterpret_cast<RoFailFast>(reinterpret_cast<void*>(entry))(static_cast<HRESULT>(code),
                                                                         nullptr);
        }
    }
    EXCEPTION_RECORD record = {};
    record.ExceptionCode = static_cast<DWORD>(code);
    record.ExceptionFlags = EXCEPTION_NONCONTINUABLE;
    ::RaiseFailFastException(&record, nullptr, 0);
    std::abort();
}

} // namespace Zorvane
