#include "platform/StartupWarmUp.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QOpenGLContext>
#include <QQuickWindow>
#include <QSGRendererInterface>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace Zorvane {

StartupWarmUp::StartupWarmUp()
{
    // Measured on X11 only; and a driver that the scene graph will not use
    // would cost, not save.
    if (QGuiApplication::platformName() != u"xcb" ||
        QQuickWindow::graphicsApi() != QSGRendererInterface::OpenGL ||
        // Asked here, on the GUI thread, the platform sets up its OpenGL
        // integration now (1 ms, no driver yet), not from two threads at once;
        // and a context is made off this thread only where the platform allows.
        !QOpenGLContext::supportsThreadedOpenGL()) {
        return;
    }
    m_thread = std::thread([] {
        {
            // A context without a surface: enough for the driver to load and
            // set up its screen, which the window's own context then shares.
            QOpenGLContext context;
            context.create();
        }
        // The font configuration is read once per process, whichever thread
        // asks first.
        static_cast<void>(QFontDatabase::families());
#if defined(__GLIBC__)
        // What the context and the reading of the configuration freed lies in
        // this thread's own heap, which nothing else reuses: give it back
        // before the first frame sets the peak.
        malloc_trim(0);
#endif
    });
}

StartupWarmUp::~StartupWarmUp()
{
    if (m_thread.joinable()) {
        m_thread.join();
    }
}

} // namespace Zorvane
