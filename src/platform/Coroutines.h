#pragma once

// The asynchronous glue of the program: an operation that nobody waits for,
// a hop to the thread pool and a hop back to the thread of the user interface.

#include <QObject>
#include <QPointer>

#include <coroutine>

namespace Zorvane {

// A coroutine that starts at once and that nobody waits for or cancels. An
// exception that leaves it ends the process (fail-fast): there is nobody
// above it to take it.
struct FireAndForget
{
    struct promise_type
    {
        FireAndForget get_return_object() const noexcept { return {}; }
        std::suspend_never initial_suspend() const noexcept { return {}; }
        std::suspend_never final_suspend() const noexcept { return {}; }
        void return_void() const noexcept {}
        [[noreturn]] void unhandled_exception() const noexcept;
    };
};

// co_await ResumeBackground{}: the coroutine goes on on a thread-pool thread.
struct ResumeBackground
{
    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> handle) const;
    void await_resume() const noexcept {}
};

// True while a thread-pool thread is still at work on a hop.
bool BackgroundWorkPending();

// The end of the process once its window has gone and saved what it keeps. A
// run still at work on the thread pool (hashing a large file, say) does not
// hold the process: it ends at once, without waiting for the pool and
// without the exit handlers, which would pull OpenSSL's state from under that
// thread. Otherwise it returns, and the process ends in the usual way.
void EndProcessIfBackgroundWorkPending(int exitCode);

// The thread of the user interface, captured there before a hop away and
// awaited afterwards to come back.
class UiContext
{
public:
    // Must be called on the thread of the user interface.
    static UiContext Capture();

    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> handle) const;
    void await_resume() const noexcept {}

private:
    explicit UiContext(QObject* receiver) : m_receiver(receiver) {}

    QPointer<QObject> m_receiver;
};

} // namespace Zorvane
