#include "FailureDialog.h"

#include "HResultError.h"
#include "ssl_error_category.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

namespace Zorvane {

void ShowFailureDialog(QQuickItem* page, const QString& title, const std::error_code& ec)
{
    QQmlEngine* engine = page != nullptr ? qmlEngine(page) : nullptr;
    if (engine == nullptr || page->window() == nullptr) {
        throw HResultError(HResult::Unexpected, "no window for the failure dialog");
    }
    QQmlComponent component(engine,
                            QUrl(QStringLiteral("qrc:/Zorvane/platform/FailureDialog.qml")));
    QObject* dialog = component.createWithInitialProperties(
        {{QStringLiteral("parent"), QVariant::fromValue(page->window()->contentItem())},
         {QStringLiteral("title"), title},
         {QStringLiteral("text"), QString::fromStdString(error_code_text(ec))}});
    if (dialog == nullptr) {
        throw HResultError(HResult::Unexpected, component.errorString().toStdString());
    }
    dialog->setParent(page->window()->contentItem());
    QObject::connect(dialog, SIGNAL(closed()), dialog, SLOT(deleteLater()));
    QMetaObject::invokeMethod(dialog, "open");
}

} // namespace Zorvane
