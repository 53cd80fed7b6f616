#pragma once

#include <QByteArray>
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

// The dialog's one file type: "PEM (*.crt *.key)", or "All files (*)".
QString NameFilterFor(const FilePickRequest& request);

// A chosen path is the file system's bytes, which need not be UTF-8: they go
// to open(2) as they came from the picker.
using FilePickDone = std::function<void(std::optional<QByteArray> path)>;
// Answers a request; calls done once, with the chosen path or nothing.
using FilePickHandler =
    std::function<void(QWindow* owner, const FilePickRequest& request, FilePickDone done)>;

// Replaces the desktop's file chooser (tests answer the picker this way); an
// empty handler brings it back.
void SetFilePickHandler(FilePickHandler handler);

// co_await PickFileAsync(owner, request): the chosen path, or nothing when the
// user cancelled. The desktop portal's file chooser where a portal answers,
// the toolkit's dialog otherwise. The coroutine goes on from the event loop of
// the UI thread.
class PickFileAsync
{
public:
    PickFileAsync(QWindow* owner, FilePickRequest request);

    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> handle);
    std::optional<QByteArray> await_resume() { return std::move(m_result); }

private:
    QWindow* m_owner;
    FilePickRequest m_request;
    std::optional<QByteArray> m_result;
};

} // namespace Zorvane
