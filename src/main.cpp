#include "platform/Apartment.h"
#include "shell/App.h"

#include <QApplication>
#include <QQuickStyle>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

int main(int argc, char* argv[])
{
    // The command line is not read, not even by Qt (-platform, -style,
    // -qwindowtitle ...): Qt sees the program's name alone. A widget
    // application, for the file dialogs.
    static_cast<void>(argc);
    int qtArgc = 1;
    char* qtArgv[] = {argv[0], nullptr};
    Zorvane::EnterSingleThreadedApartment();
    Zorvane::App::PrepareProcess();
    QApplication application(qtArgc, qtArgv);
    QQuickStyle::setStyle(QStringLiteral("Fusion"));

    return Zorvane::App::Run();
}
