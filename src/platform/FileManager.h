#pragma once

#include <QByteArray>
#include <QList>

#include <functional>

namespace Zorvane::FileManager {

// Paths are the file system's bytes, as they went to open(2).
using RevealHandler = std::function<void(const QList<QByteArray>& paths)>;

// Replaces the reveal (tests watch it this way); an empty handler brings the
// file manager back.
void SetRevealHandler(RevealHandler handler);

// Opens the folder of the first path in the file manager with the files
// selected; where no file manager answers, opens the folder. Nothing is
// reported either way.
void ShowItems(const QList<QByteArray>& paths);

// The platform's own reveal of one or more paths, which ShowItems calls where
// no handler is installed (one implementation per platform).
void RevealInSystem(const QList<QByteArray>& paths);

} // namespace Zorvane::FileManager
