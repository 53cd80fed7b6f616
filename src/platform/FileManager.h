#pragma once

#include <QStringList>

#include <functional>

namespace Zorvane::FileManager {

using RevealHandler = std::function<void(const QStringList& paths)>;

// Replaces the reveal (tests watch it this way); an empty handler brings the
// file manager back.
void SetRevealHandler(RevealHandler handler);

// Opens the folder of the first path in the file manager with the files
// selected; where no file manager answers, opens the folder. Nothing is
// reported either way.
void ShowItems(const QStringList& paths);

} // namespace Zorvane::FileManager
