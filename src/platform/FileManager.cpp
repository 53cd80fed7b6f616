#include "platform/FileManager.h"

namespace Zorvane::FileManager {

namespace {
RevealHandler& handler()
{
    static RevealHandler installed;
    return installed;
}
} // namespace

void SetRevealHandler(RevealHandler replacement)
{
    handler() = std::move(replacement);
}

void ShowItems(const QList<QByteArray>& paths)
{
    if (handler()) {
        handler()(paths);
    } else if (!paths.isEmpty()) {
        RevealInSystem(paths);
    }
}

} // namespace Zorvane::FileManager
