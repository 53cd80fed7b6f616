#pragma once

#include <QString>
#include <QStringList>

#include <coroutine>
#include <functional>
#include <optional>

class QWindow;

namespace Zorvane {

// What a file picker is asked for: one choice of file type, and the extension
// that a typed name without one gets.
struct FilePickRequest
{
    enum class Mode
    {
        Save,
        Open,
    };
    Mode mode = Mode::Save;
    QString choiceKey;        ///< "PEM"; empty for any file
    QStringList extensions;   ///< ".crt"; empty for any file
    QString defaultExtension; ///< ".crt"
};

using FilePickDone = std::function<void(std::optional<QString> path)>;
// Answers a request; calls done once, with the chosen path or nothing.
using FilePickHandler =
    std::function<void(QWindow* owner, const FilePickRequest& request, FilePickDone done)>;

// Replaces the file dialog (tests answer the picker this way); an empty
// handler brings the dialog back.
void SetFilePickHandler(FilePickHandler handler);

// co_await PickFileAsync(owner, request): the chosen path, or nothing when the
// user cancelled. The coroutine goes on from the event loop of the UI thread.
class PickFileAsync
{
public:
    PickFileAsync(QWindow* owner, FilePickRequest request);

    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> handle);
    std::optional<QString> await_resume() { return std::move(m_result); }

private:
    QWindow* m_owner;
    FilePickRequest m_request;
    std::optional<QString> m_result;
};

} // namespace Zorvane
