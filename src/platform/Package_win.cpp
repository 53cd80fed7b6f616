#include "platform/HResultError.h"
#include "platform/Package.h"

#include <string>

#include <windows.h>

#include <appmodel.h>

namespace Zorvane::Package {

const QString ManifestRelativePath = QStringLiteral("package-identity");

// A packaged process has its identity from the system; a copy that our
// installer installed has it from the manifest beside the program.
QString Current()
{
    UINT32 length = 0;
    const LONG result = ::GetCurrentPackageFullName(&length, nullptr);
    if (result == APPMODEL_ERROR_NO_PACKAGE) {
        return FamilyFromManifest();
    }
    if (result != ERROR_INSUFFICIENT_BUFFER) {
        throw HResultError(static_cast<std::uint32_t>(HRESULT_FROM_WIN32(result)),
                           "GetCurrentPackageFullName");
    }
    UINT32 familyLength = 0;
    ::GetCurrentPackageFamilyName(&familyLength, nullptr);
    std::wstring family(familyLength, L'\0');
    const LONG read = ::GetCurrentPackageFamilyName(&familyLength, family.data());
    if (read != ERROR_SUCCESS) {
        throw HResultError(static_cast<std::uint32_t>(HRESULT_FROM_WIN32(read)),
                           "GetCurrentPackageFamilyName");
    }
    return QString::fromWCharArray(family.c_str());
}

} // namespace Zorvane::Package
