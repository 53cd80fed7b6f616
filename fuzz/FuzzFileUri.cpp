// File URIs, as a desktop portal might hand them over, whatever their text;
// and every path, whatever its bytes, through the URI the file manager is
// shown and back. A decoded path is absolute and holds no NUL byte; the round
// trip gives back every byte. A broken promise aborts, which is a finding.

#include "platform/FileUri.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace Zorvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));

    if (const std::optional<QByteArray> path = LocalPathFromUri(QString::fromUtf8(bytes))) {
        if (!path->startsWith('/') || path->contains('\0')) {
            std::abort();
        }
    }

    QByteArray path = '/' + bytes;
    path.replace('\0', "");
    if (LocalPathFromUri(FileUriFromPath(path)) != path) {
        std::abort();
    }
    return 0;
}
