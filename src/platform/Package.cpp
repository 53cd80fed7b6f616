#include "platform/Package.h"

#include "platform/HResultError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace Zorvane::Package {

QString FamilyFromManifest()
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

namespace {
bool& processAnswer()
{
    static bool noPackageIdentity = true;
    return noPackageIdentity;
}
} // namespace

bool NoPackageIdentity()
{
    return processAnswer();
}

void FixNoPackageIdentity(bool noPackageIdentity)
{
    processAnswer() = noPackageIdentity;
}

} // namespace Zorvane::Package
