#include "ProductIdentity.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QUrl>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

int main(int argc, char* argv[])
{
    // The command line is not read; Qt only needs to see it.
    QGuiApplication app(argc, argv);
    QGuiApplication::setApplicationName(Zorvane::ProductIdentity::ShortName);
    QGuiApplication::setApplicationVersion(Zorvane::ProductIdentity::ProductVersion);
    QGuiApplication::setOrganizationName(Zorvane::ProductIdentity::CompanyName);

    QQmlApplicationEngine engine;
    engine.load(QUrl(QStringLiteral("qrc:/Zorvane/shell/MainWindow.qml")));
    if (engine.rootObjects().isEmpty()) {
        return 1;
    }
    if (auto* window = qobject_cast<QQuickWindow*>(engine.rootObjects().constFirst())) {
        window->setTitle(Zorvane::ProductIdentity::ProductName);
    }
    QGuiApplication::exec();
    return 0;
}
