#include "platform/FailureDialog.h"

#include "certs/ssl_error_category.h"
#include "platform/HResultError.h"

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlProperty>
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
    // The popup's own item is the dialog that assistive tools see: it is
    // announced with the title and the text.
    if (auto* content = dialog->property("contentItem").value<QQuickItem*>();
        content != nullptr && content->parentItem() != nullptr) {
        QQuickItem* popup = content->parentItem();
        QQmlContext* context = qmlContext(dialog);
        QQmlProperty::write(popup, QStringLiteral("Accessible.role"),
                            int(QAccessible::AlertMessage), context);
        QQmlProperty::write(popup, QStringLiteral("Accessible.name"), title, context);
        QQmlProperty::write(popup, QStringLiteral("Accessible.description"),
                            dialog->property("text"), context);
    }
    QObject::connect(dialog, SIGNAL(closed()), dialog, SLOT(deleteLater()));
    QMetaObject::invokeMethod(dialog, "open");
}

} // namespace Zorvane
