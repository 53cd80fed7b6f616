#pragma once

#include "platform/Package.h"
#include "platform/StartupWarmUp.h"

#include <QObject>
#include <QVariantMap>

#include <memory>

class QQmlEngine;
class QWindow;

namespace Zorvane {

class CaretBlink;
class DesktopColorScheme;
class MainWindow;

// The application object: the QML engine, the one window, and whether the
// process has a package identity (without one nothing is stored).
class App : public QObject
{
    Q_OBJECT

public:
    App();
    ~App() override;

    // The one App of the process.
    static App* Current();

    // Settles what must be chosen before the QApplication exists, each unless
    // the environment says otherwise: the scene graph draws on the GUI thread
    // (one window, whose long work runs on the pool, gains nothing from a
    // render thread, and handing the first frame to one costs 10 ms), and the
    // texture atlas for small images is 128 pixels square (a few icons and
    // arrows need no more, and a larger image gets a texture of its own; Qt's
    // default of 2048 x 1024 costs 8 MiB wherever textures live in system
    // memory).
    static void PrepareProcess();

    // The program from its window to its end: makes the App and its window,
    // runs the one event loop, and ends when the window has closed and saved
    // what it keeps, whatever run is still at work. Returns the exit code, 0.
    static int Run();

    // Fixed in the constructor, before any window exists.
    bool NoPackageIdentity() const { return Package::NoPackageIdentity(); }

    // Makes the main window and shows it.
    void OnLaunched();

    // The main window, owner of the file dialogs; for use after OnLaunched.
    QWindow* MainWindowHandle() const;
    MainWindow* Window() const { return m_window.get(); }
    QQmlEngine& Engine() const { return *m_engine; }

    // The desktop's light or dark preference, which the palette follows.
    const DesktopColorScheme& ColorScheme() const { return *m_colorScheme; }

    // The application's resources by key: the two caption text colours, as the
    // current palette has them, so that a change of theme reaches every lookup.
    QVariantMap Resources() const;

private:
    StartupWarmUp m_warmUp; // first: it works while everything else is made
    std::unique_ptr<CaretBlink> m_caretBlink;
    std::unique_ptr<DesktopColorScheme> m_colorScheme;
    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace Zorvane
