#pragma once

#include <thread>

namespace Zorvane {

// Loads what the window's first frame needs from the system, the graphics
// driver and the font configuration, on a thread of its own while the GUI
// thread creates the markup. Loading the driver is mostly the dynamic linker
// at work (a software rasteriser brings a compiler with it); on its own thread
// it no longer stands between the markup and the first frame. Joined when it
// goes, so that the process never ends with the driver half loaded.
class StartupWarmUp
{
public:
    // Starts at once where the scene graph will draw with OpenGL on X11; does
    // nothing elsewhere. Needs the QGuiApplication.
    StartupWarmUp();
    ~StartupWarmUp();
    StartupWarmUp(const StartupWarmUp&) = delete;
    StartupWarmUp& operator=(const StartupWarmUp&) = delete;

private:
    std::thread m_thread;
};

} // namespace Zorvane
