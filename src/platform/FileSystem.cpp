#include "platform/FileSystem.h"

#include <QString>

#include <sys/stat.h>

namespace Zorvane {

// The bytes go to the system as they are: a name need not be UTF-8 here.
bool PathExists(const QByteArray& path, bool followLink)
{
    struct stat info = {};
    return (followLink ? ::stat(path.constData(), &info) : ::lstat(path.constData(), &info)) == 0;
}

QString UnwritableFolder()
{
    return QStringLiteral("/dev/null");
}

} // namespace Zorvane
