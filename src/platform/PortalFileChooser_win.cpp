#include "platform/NarrowText.h"
#include "platform/PortalFileChooser.h"

#include <QUrl>
#include <QWindow>
#include <QtGui/private/qguiapplication_p.h>
#include <QtGui/qpa/qplatformdialoghelper.h>
#include <QtGui/qpa/qplatformtheme.h>

#include <memory>

namespace Zorvane {

// Windows has no desktop portal: the system's own open and save dialog
// answers, through the platform plugin's helper for it. Not through the
// toolkit's QFileDialog, which would keep its last folder and history in the
// user's registry.
void PickThroughPortal(QWindow* owner, const FilePickRequest& request, FilePickDone done,
                       std::function<void()> unavailable)
{
    QPlatformTheme* theme = QGuiApplicationPrivate::platformTheme();
    auto* helper = theme == nullptr
                       ? nullptr
                       : static_cast<QPlatformFileDialogHelper*>(
                             theme->createPlatformDialogHelper(QPlatformTheme::FileDialog));
    if (helper == nullptr) {
        unavailable();
        return;
    }
    const bool save = request.mode == FilePickRequest::Mode::Save;
    auto options = QFileDialogOptions::create();
    options->setWindowTitle(save ? QStringLiteral("Save As") : QStringLiteral("Open"));
    options->setAcceptMode(save ? QFileDialogOptions::AcceptSave : QFileDialogOptions::AcceptOpen);
    options->setFileMode(save ? QFileDialogOptions::AnyFile : QFileDialogOptions::ExistingFile);
    options->setNameFilters({NameFilterFor(request)});
    if (!request.defaultExtension.isEmpty()) {
        options->setDefaultSuffix(request.defaultExtension.mid(1));
    }
    helper->setOptions(options);

    // Exactly one answer, whichever way the dialog ends; the helper goes then.
    auto answer = std::make_shared<FilePickDone>(std::move(done));
    const auto finish = [answer, helper](std::optional<QByteArray> path) {
        helper->deleteLater();
        if (*answer) {
            FilePickDone once = std::move(*answer);
            *answer = nullptr;
            once(std::move(path));
        }
    };
    QObject::connect(helper, &QPlatformDialogHelper::accept, helper, [helper, finish] {
        const QString path = helper->selectedFiles().value(0).toLocalFile();
        finish(path.isEmpty() ? std::nullopt
                              : std::optional(QByteArray::fromStdString(NarrowUtf8(path))));
    });
    QObject::connect(helper, &QPlatformDialogHelper::reject, helper,
                     [finish] { finish(std::nullopt); });
    // Modal to the window, on the helper's own thread: the window goes on
    // drawing while the dialog is up.
    if (!helper->show(Qt::Dialog, Qt::WindowModal, owner)) {
        helper->deleteLater();
        unavailable();
    }
}

} // namespace Zorvane
