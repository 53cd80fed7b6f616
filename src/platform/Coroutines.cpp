#include "platform/Coroutines.h"

#include "platform/HResultError.h"

#include <QCoreApplication>
#include <QThread>

#include <cstdint>
#include <exception>
#include <stdexcept>

namespace Zorvane {

void FireAndForget::promise_type::unhandled_exception() const noexcept
{
    const std::uint32_t code = code_of_current_exception();
    const char* what = "";
    try {
        throw;
    } catch (const std::exception& error) {
        what = error.what();
        fail_fast(code, what);
    } catch (...) {
        fail_fast(code, what);
    }
}

UiContext UiContext::Capture()
{
    QCoreApplication* application = QCoreApplication::instance();
    if (application == nullptr || QThread::currentThread() != application->thread()) {
        throw HResultError(HResult::Unexpected, "UiContext captured off the UI thread");
    }
    return UiContext(application);
}

void UiContext::await_suspend(std::coroutine_handle<> handle) const
{
    if (!m_receiver) {
        // The application is gone: nothing is left to come back to.
        return;
    }
    QMetaObject::invokeMethod(
        m_receiver, [handle] { handle.resume(); }, Qt::QueuedConnection);
}

} // namespace Zorvane
