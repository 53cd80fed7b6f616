#include "FailureDialog.h"

#include "HResultError.h"
#include "ssl_error_category.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

namespace Zorvane {

void ShowFailureDialog(QQuickWindow* window, const QString& title, const std::error_code& ec)
{
    QQmlEngine* engine = window != nullptr ? qmlEngine(window) : nullptr;
    if (engine == nullptr) {
        throw HResultError(HResult::Unexpected, "no window for the failure dialog");
    }
    QQmlComponent component(engine,
                            QUrl(QStringLiteral("qrc:/Zorvane/platform/FailureDialog.qml")));
    QObject* dialog = component.createWithInitialProperties(
        {{QStringLiteral("parent"), QVariant::fromValue(window->contentItem())},
         {QStringLiteral("title"), title},
         {QStringLiteral("text"), QString::fromStdString(error_code_text(ec))}});
    if (dialog == nullptr) {
        throw HResultError(HResult::Unexpected, component.errorString().toStdString());
    }
    dialog->setParent(window->contentItem());
    QObject::connect(dialog, SIGNAL(closed()), dialog, SLOT(deleteLater()));
    QMetaObject::invokeMethod(dialog, "open");
}

} // namespace Zorvane
