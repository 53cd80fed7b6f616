#include "platform/Coroutines.h"
#include "platform/HResultError.h"

#include <atomic>
#include <cstdio>

#include <windows.h>

namespace Zorvane {

namespace {

// Hops still running on the system's pool.
std::atomic<int> pendingHops{0};

void CALLBACK resumeOnPool(PTP_CALLBACK_INSTANCE, void* context)
{
    // OpenSSL's library frees its per-thread state itself as a pool thread
    // ends (its DLL hears every thread detach).
    std::coroutine_handle<>::from_address(context).resume();
    pendingHops.fetch_sub(1);
}

} // namespace

void ResumeBackground::await_suspend(std::coroutine_handle<> handle) const
{
    pendingHops.fetch_add(1);
    if (!::TrySubmitThreadpoolCallback(resumeOnPool, handle.address(), nullptr)) {
        pendingHops.fetch_sub(1);
        throw HResultError(static_cast<std::uint32_t>(HRESULT_FROM_WIN32(::GetLastError())),
                           "TrySubmitThreadpoolCallback");
    }
}

bool BackgroundWorkPending()
{
    return pendingHops.load() > 0;
}

void EndProcessIfBackgroundWorkPending(int exitCode)
{
    if (!BackgroundWorkPending()) {
        return;
    }
    std::fflush(nullptr);
    // At once: no library is told that the process detaches, so nothing is
    // pulled from under the pool thread.
    ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(exitCode));
}

} // namespace Zorvane
