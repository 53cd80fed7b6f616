#include "Package.h"

#include "HResultError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace Zorvane::Package {

QString Current()
{
    QFile manifest(QDir(QCoreApplication::applicationDirPath()).filePath(ManifestRelativePath));
    if (!manifest.open(QIODevice::ReadOnly)) {
        throw HResultError(HResult::NoPackage);
    }
    const QString family = QString::fromUtf8(manifest.readAll()).trimmed();
    if (family.isEmpty()) {
        throw HResultError(HResult::NoPackage);
    }
    return family;
}

bool DetectNoPackageIdentity()
{
    try {
        static_cast<void>(Current());
    } catch (const HResultError& error) {
        return error.code() == HResult::NoPackage;
    }
    return false;
}

} // namespace Zorvane::Package
