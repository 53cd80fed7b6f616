#include "platform/Coroutines.h"

#include <QCoreApplication>
#include <QThread>
#include <QThreadPool>

#include <openssl/crypto.h>

#include <cstdio>
#include <unistd.h>

namespace Zorvane {

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

} // namespace Zorvane
