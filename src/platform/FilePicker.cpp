#include "FilePicker.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QUrl>
#include <QWindow>
#include <QtQml/qqml.h>

namespace Zorvane {

namespace {

FilePickHandler& handler()
{
    static FilePickHandler installed;
    return installed;
}

// Hands the dialog's answer on once, then lets the dialog go.
class DialogRelay : public QObject
{
    Q_OBJECT

public:
    DialogRelay(QObject* dialog, FilePickDone done)
        : QObject(dialog), m_dialog(dialog), m_done(std::move(done))
    {
        // QML-declared signals, reached by name.
        connect(dialog, SIGNAL(accepted()), this, SLOT(onAccepted()));
        connect(dialog, SIGNAL(rejected()), this, SLOT(onRejected()));
    }

private Q_SLOTS:
    void onAccepted() { finish(m_dialog->property("selectedFile").toUrl().toLocalFile()); }
    void onRejected() { finish(std::nullopt); }

private:
    void finish(std::optional<QString> path)
    {
        if (m_done) {
            FilePickDone done = std::move(m_done);
            m_done = nullptr;
            done(std::move(path));
        }
        m_dialog->deleteLater();
    }

    QObject* m_dialog;
    FilePickDone m_done;
};

// The toolkit's file dialog, owned by the window that asked.
void showDialog(QWindow* owner, const FilePickRequest& request, FilePickDone done)
{
    QQmlEngine* engine = owner != nullptr ? qmlEngine(owner) : nullptr;
    QObject* dialog = nullptr;
    if (engine != nullptr) {
        QQmlComponent component(engine);
        component.setData("import QtQuick.Dialogs\nFileDialog {}\n", QUrl());
        dialog = component.create();
    }
    if (dialog == nullptr) {
        done(std::nullopt);
        return;
    }
    dialog->setParent(owner);
    QStringList patterns;
    for (const QString& extension : request.extensions) {
        patterns << QLatin1Char('*') + extension;
    }
    const QString filter = patterns.isEmpty()
                               ? QStringLiteral("All files (*)")
                               : request.choiceKey + QStringLiteral(" (") +
                                     patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
    constexpr int OpenFile = 0;
    constexpr int SaveFile = 2;
    dialog->setProperty("nameFilters", QStringList{filter});
    dialog->setProperty("fileMode",
                        request.mode == FilePickRequest::Mode::Save ? SaveFile : OpenFile);
    dialog->setProperty("defaultSuffix", request.defaultExtension.mid(1));
    dialog->setProperty("parentWindow", QVariant::fromValue(owner));
    new DialogRelay(dialog, std::move(done));
    QMetaObject::invokeMethod(dialog, "open");
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
    FilePickDone done = [this, handle](std::optional<QString> path) {
        m_result = std::move(path);
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [handle] { handle.resume(); }, Qt::QueuedConnection);
    };
    if (handler()) {
        handler()(m_owner, m_request, std::move(done));
    } else {
        showDialog(m_owner, m_request, std::move(done));
    }
}

} // namespace Zorvane

#include "FilePicker.moc"
