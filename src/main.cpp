#include "App.h"

#include <QGuiApplication>
#include <QQuickStyle>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

int main(int argc, char* argv[])
{
    // The command line is not read; Qt only needs to see it.
    QGuiApplication application(argc, argv);
    QQuickStyle::setStyle(QStringLiteral("Fusion"));

    Zorvane::App app;
    app.OnLaunched();
    QGuiApplication::exec();
    return 0;
}
