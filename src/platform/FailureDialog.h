#pragma once

#include <QString>

#include <system_error>

class QQuickWindow;

namespace Zorvane {

// A modal message over the window: the flow's title, the wording of the code,
// and one "OK" button. It is shown and left to the user: nobody waits for it.
// The window is the one the run started in, so that a failure is told even
// after the user has left the page.
void ShowFailureDialog(QQuickWindow* window, const QString& title, const std::error_code& ec);

} // namespace Zorvane
