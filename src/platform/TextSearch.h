#pragma once

#include <QString>

namespace Zorvane {

// Whether the text holds the search text, case folded as the platform folds
// it; an empty search text matches nothing.
bool ContainsIgnoringCase(const QString& text, const QString& search);

} // namespace Zorvane
