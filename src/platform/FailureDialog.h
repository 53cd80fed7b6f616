#pragma once

#include <QString>

#include <system_error>

class QQuickItem;

namespace Zorvane {

// A modal message over the page's window: the flow's title, the wording of the
// code, and one "OK" button. It is shown and left to the user: nobody waits
// for it.
void ShowFailureDialog(QQuickItem* page, const QString& title, const std::error_code& ec);

} // namespace Zorvane
