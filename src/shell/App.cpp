#include "shell/App.h"

#include "platform/AccessibleStates.h"
#include "platform/CaretBlink.h"
#include "platform/Coroutines.h"
#include "platform/DesktopColorScheme.h"
#include "platform/Package.h"
#include "shell/MainWindow.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPalette>
#include <QQmlEngine>
#include <QQuickWindow>

#include <utility>

namespace Zorvane {

namespace {
App* current = nullptr;
}

App::App()
    : m_caretBlink(std::make_unique<CaretBlink>()),
      m_colorScheme(std::make_unique<DesktopColorScheme>()),
      m_engine(std::make_unique<QQmlEngine>())
{
    current = this;
    Package::FixNoPackageIdentity(Package::DetectNoPackageIdentity());
    InstallAccessibleStates(); // before the first markup, so before Qt Quick's own
    // Text as the desktop's other programs draw it: hinted glyphs from the
    // font engine, and no distance fields to compute for the first frame.
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    // Where the module's qmldir lies, so that its markup types (ProgressRing)
    // are found as well as its C++ ones.
    m_engine->addImportPath(QStringLiteral("qrc:/"));
}

App::~App()
{
    m_window.reset(); // before the engine that made it
    if (current == this) {
        current = nullptr;
        Package::FixNoPackageIdentity(true);
    }
}

QVariantMap App::Resources() const
{
    // The title texts' colours while the window is active and while it is not.
    const QPalette palette = QGuiApplication::palette();
    return {{QStringLiteral("WindowCaptionForeground"),
             palette.color(QPalette::Active, QPalette::WindowText)},
            {QStringLiteral("WindowCaptionForegroundDisabled"),
             palette.color(QPalette::Disabled, QPalette::WindowText)}};
}

App* App::Current()
{
    return current;
}

void App::PrepareProcess()
{
    for (const auto& [name, value] :
         {std::pair{"QSG_RENDER_LOOP", "basic"}, std::pair{"QSG_ATLAS_WIDTH", "128"},
          std::pair{"QSG_ATLAS_HEIGHT", "128"}}) {
        if (!qEnvironmentVariableIsSet(name)) {
            qputenv(name, value);
        }
    }
}

void App::OnLaunched()
{
    m_window = std::make_unique<MainWindow>(*m_engine);
    // The title texts take their colours from the palette at each activation
    // only: a change of the desktop's preference while the window stays
    // active leaves them as they are until the next one.
    m_window->Activate();
}

int App::Run()
{
    {
        App app;
        app.OnLaunched();
        QCoreApplication::exec();
    } // the window and its pages go here, and save the placement and the digests
    EndProcessIfBackgroundWorkPending(0);
    return 0;
}

QWindow* App::MainWindowHandle() const
{
    return m_window ? m_window->Window() : nullptr;
}

} // namespace Zorvane
