#include "platform/Coroutines.h"

#include "platform/HResultError.h"

#include <QCoreApplication>
#include <QThread>
#include <QThreadPool>

#include <openssl/crypto.h>

#include <cstdint>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <unistd.h>

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

namespace {
// A pool owned by the application object: its threads are joined when that
// goes, while OpenSSL can still release their per-thread state (its own exit
// handlers come later and would leave it behind).
QThreadPool& backgroundPool()
{
    static QPointer<QThreadPool> pool;
    if (!pool) {
        pool = new QThreadPool(QCoreApplication::instance());
    }
    return *pool;
}

// OpenSSL keeps an error queue per thread and frees it from a thread-exit
// hook whose order against other thread-local data is not fixed; releasing it
// as the pool thread finishes leaves nothing to chance.
void releaseOpenSslStateAtThreadEnd()
{
    thread_local bool hooked = false;
    if (!hooked) {
        hooked = true;
        QObject::connect(QThread::currentThread(), &QThread::finished,
                         [] { OPENSSL_thread_stop(); });
    }
}
} // namespace

void ResumeBackground::await_suspend(std::coroutine_handle<> handle) const
{
    backgroundPool().start([handle] {
        releaseOpenSslStateAtThreadEnd();
        handle.resume();
    });
}

bool BackgroundWorkPending()
{
    return backgroundPool().activeThreadCount() > 0;
}

void EndProcessIfBackgroundWorkPending(int exitCode)
{
    if (!BackgroundWorkPending()) {
        return;
    }
    std::fflush(nullptr);
    ::_exit(exitCode);
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
