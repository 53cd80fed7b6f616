#include "platform/FilePicker.h"

#include "platform/PortalFileChooser.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QPointer>
#include <QSettings>
#include <QWindow>

#include <memory>

namespace Zorvane {

namespace {

FilePickHandler& handler()
{
    static FilePickHandler installed;
    return installed;
}

// The toolkit's file dialog, modal to the window that asked. (Qt 6.4's QML
// FileDialog loses a typed name in save mode, so the widget dialog serves.)
void showDialog(QWindow* owner, const FilePickRequest& request, FilePickDone done)
{
    // The dialog keeps its history and last folder in the toolkit's own
    // settings file in the user's configuration. The picker keeps nothing, so
    // that file is pointed where nothing can be written or read.
    static const bool keepsNothing = [] {
        for (const auto format : {QSettings::NativeFormat, QSettings::IniFormat}) {
            QSettings::setPath(format, QSettings::UserScope, QStringLiteral("/dev/null"));
        }
        return true;
    }();
    static_cast<void>(keepsNothing);

    const bool save = request.mode == FilePickRequest::Mode::Save;
    auto* dialog = new QFileDialog;
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog->setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    QStringList patterns;
    for (const QString& extension : request.extensions) {
        patterns << QLatin1Char('*') + extension;
    }
    dialog->setNameFilter(patterns.isEmpty()
                              ? QStringLiteral("All files (*)")
                              : request.choiceKey + QStringLiteral(" (") +
                                    patterns.join(QLatin1Char(' ')) + QLatin1Char(')'));
    if (!request.defaultExtension.isEmpty()) {
        dialog->setDefaultSuffix(request.defaultExtension.mid(1));
    }
    if (owner != nullptr) {
        dialog->setWindowModality(Qt::WindowModal);
        dialog->winId();
        dialog->windowHandle()->setTransientParent(owner);
    }

    // Exactly one answer, whichever way the dialog ends.
    auto answer = std::make_shared<FilePickDone>(std::move(done));
    const auto finish = [answer](std::optional<QByteArray> path) {
        if (*answer) {
            FilePickDone once = std::move(*answer);
            *answer = nullptr;
            once(std::move(path));
        }
    };
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog, [finish](const QString& path) {
        finish(path.isEmpty() ? std::nullopt : std::optional(QFile::encodeName(path)));
    });
    QObject::connect(dialog, &QObject::destroyed, [finish] { finish(std::nullopt); });
    dialog->open();
}

} // namespace

void SetFilePickHandler(FilePickHandler replacement)
{
    handler() = std::move(replacement);
}

PickFileAsync::PickFileAsync(QWindow* owner, FilePickRequest request)
    : m_owner(owner), m_request(std::move(request))
{}

void PickFileAsync::await_suspend(std::coroutine_handle<> handle)
{
    // The answer may come at once; the coroutine goes on from the event loop
    // either way, never from inside this call.
    FilePickDone done = [this, handle](std::optional<QByteArray> path) {
        m_result = std::move(path);
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [handle] { handle.resume(); }, Qt::QueuedConnection);
    };
    if (handler()) {
        handler()(m_owner, m_request, std::move(done));
    } else {
        PickThroughPortal(m_owner, m_request, done,
                          [owner = QPointer<QWindow>(m_owner), request = m_request, done] {
                              showDialog(owner, request, done);
                          });
    }
}

} // namespace Zorvane
