#include "platform/PortalFileChooser.h"

namespace Zorvane {

// Windows has no desktop portal: the toolkit's dialog there is the system's
// own open and save dialog.
void PickThroughPortal(QWindow*, const FilePickRequest&, FilePickDone,
                       std::function<void()> unavailable)
{
    unavailable();
}

} // namespace Zorvane
