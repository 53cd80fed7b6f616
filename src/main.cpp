#include "App.h"

#include <QApplication>
#include <QQuickStyle>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

int main(int argc, char* argv[])
{
    // The command line is not read; Qt only needs to see it. A widget
    // application, for the file dialogs.
    QApplication application(argc, argv);
    QQuickStyle::setStyle(QStringLiteral("Fusion"));

    return Zorvane::App::Run();
}
