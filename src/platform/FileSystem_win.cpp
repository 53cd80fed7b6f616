#include "platform/FileSystem.h"

#include <QString>

#include <string>

#include <windows.h>

namespace Zorvane {

bool PathExists(const QByteArray& path, bool followLink)
{
    const std::wstring name = QString::fromUtf8(path).toStdWString();
    const DWORD attributes = ::GetFileAttributesW(name.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return false;
    }
    if (!followLink || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        return true;
    }
    // Opening follows the link: it exists where its target does.
    const HANDLE target =
        ::CreateFileW(name.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (target == INVALID_HANDLE_VALUE) {
        return false;
    }
    ::CloseHandle(target);
    return true;
}

QString UnwritableFolder()
{
    return QStringLiteral("NUL");
}

} // namespace Zorvane
