#include "platform/FilePicker.h"

#include "certs/output_paths.h"
#include "platform/FileSystem.h"
#include "platform/NarrowText.h"
#include "platform/PortalFileChooser.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>
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
        // Files, not the Windows registry, so that the path below holds.
        QSettings::setDefaultFormat(QSettings::IniFormat);
        for (const auto format : {QSettings::NativeFormat, QSettings::IniFormat}) {
            QSettings::setPath(format, QSettings::UserScope, UnwritableFolder());
        }
        return true;
    }();
    static_cast<void>(keepsNothing);

    const bool save = request.mode == FilePickRequest::Mode::Save;
    auto* dialog = new QFileDialog;
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog->setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog->setNameFilter(NameFilterFor(request));
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
        // The path as the file system takes it: UTF-8, converted as the
        // platform converts its text.
        finish(path.isEmpty() ? std::nullopt
                              : std::optional(QByteArray::fromStdString(NarrowUtf8(path))));
    });
    QObject::connect(dialog, &QObject::destroyed, [finish] { finish(std::nullopt); });
    dialog->open();
}

// While a chooser or its question is open, the window that asked takes no
// input, from the pointer, the keys or an assistive tool alike, as the owner
// of a modal dialog does; the focus comes back where it was.
class InputBlock
{
public:
    explicit InputBlock(QWindow* owner)
    {
        auto* window = qobject_cast<QQuickWindow*>(owner);
        if (window != nullptr && window->contentItem()->isEnabled()) {
            m_content = window->contentItem();
            m_focus = window->activeFocusItem();
            m_content->setEnabled(false);
        }
    }
    ~InputBlock()
    {
        if (m_content) {
            m_content->setEnabled(true);
            if (m_focus && !m_focus->hasActiveFocus() && m_focus->isEnabled()) {
                m_focus->forceActiveFocus(Qt::OtherFocusReason);
            }
        }
    }
    InputBlock(const InputBlock&) = delete;
    InputBlock& operator=(const InputBlock&) = delete;

private:
    QPointer<QQuickItem> m_content;
    QPointer<QQuickItem> m_focus;
};

// The toolkit's own overwrite question, modal to the window; a "no" is a cancel.
void askToReplace(QWindow* owner, const QByteArray& path, std::function<void(bool)> answer)
{
    auto* box = new QMessageBox(QMessageBox::Warning, QStringLiteral("Save As"),
                                QStringLiteral("%1 already exists.\nDo you want to replace it?")
                                    .arg(QString::fromUtf8(path).section(QLatin1Char('/'), -1)),
                                QMessageBox::Yes | QMessageBox::No);
    box->setObjectName(QStringLiteral("ReplaceQuestion"));
    box->setDefaultButton(QMessageBox::No);
    box->setAttribute(Qt::WA_DeleteOnClose);
    if (owner != nullptr) {
        box->setWindowModality(Qt::WindowModal);
        box->winId();
        box->windowHandle()->setTransientParent(owner);
    }
    auto once = std::make_shared<std::function<void(bool)>>(std::move(answer));
    const auto finish = [once](bool replace) {
        if (*once) {
            auto call = std::move(*once);
            *once = nullptr;
            call(replace);
        }
    };
    QObject::connect(box, &QMessageBox::finished, box,
                     [finish](int button) { finish(button == QMessageBox::Yes); });
    QObject::connect(box, &QObject::destroyed, [finish] { finish(false); });
    box->open();
}

// One question to the chooser, on whichever road answers.
void ask(QWindow* owner, const FilePickRequest& request, FilePickDone done)
{
    if (handler()) {
        handler()(owner, request, std::move(done));
    } else {
        PickThroughPortal(owner, request, done, [owner = QPointer<QWindow>(owner), request, done] {
            showDialog(owner, request, done);
        });
    }
}

// What the platform's pickers guarantee, whatever answered: an open picker
// gives only a file that exists (another name is asked for again), and the
// file that a save will write is one the user was asked about. A chooser that
// checked a bare name has not asked about that name with its extension added.
void pickChecked(QPointer<QWindow> owner, FilePickRequest request, FilePickDone done)
{
    ask(owner, request, [owner, request, done](std::optional<QByteArray> path) {
        if (!path) {
            done(std::nullopt);
        } else if (request.mode == FilePickRequest::Mode::Open) {
            if (PathExists(*path, true)) {
                done(std::move(path));
            } else {
                pickChecked(owner, request, done);
            }
        } else {
            const std::string extension = request.defaultExtension.toStdString();
            const std::string completed = with_default_extension(path->toStdString(), extension);
            if (completed == path->toStdString() ||
                !PathExists(QByteArray::fromStdString(completed), false)) {
                done(std::move(path));
            } else {
                askToReplace(owner, QByteArray::fromStdString(completed),
                             [path, done](bool replace) { done(replace ? path : std::nullopt); });
            }
        }
    });
}

} // namespace

QString NameFilterFor(const FilePickRequest& request)
{
    QStringList patterns;
    for (const QString& extension : request.extensions) {
        patterns << QLatin1Char('*') + extension;
    }
    return patterns.isEmpty() ? QStringLiteral("All files (*)")
                              : request.choiceKey + QStringLiteral(" (") +
                                    patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
}

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
    // either way, never from inside this call. The window is given back its
    // input there too, once the chooser has gone.
    auto block =
        std::make_shared<std::unique_ptr<InputBlock>>(std::make_unique<InputBlock>(m_owner));
    FilePickDone done = [this, handle, block](std::optional<QByteArray> path) {
        m_result = std::move(path);
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [handle, block] {
                block->reset();
                handle.resume();
            },
            Qt::QueuedConnection);
    };
    pickChecked(m_owner, m_request, std::move(done));
}

} // namespace Zorvane
