#include "platform/Package.h"

namespace Zorvane::Package {

const QString ManifestRelativePath = QStringLiteral("../share/zorvane/package-identity");

// The installed manifest is the package's identity here.
QString Current()
{
    return FamilyFromManifest();
}

} // namespace Zorvane::Package
