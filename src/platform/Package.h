#pragma once

#include <QString>

namespace Zorvane::Package {

// The package family the installed program belongs to; its settings live under it.
inline const QString FamilyName = QStringLiteral("Halvertrix.Zorvane_m4kq8wzr2p7ny");

// Where an installed program finds the manifest that gives it its identity,
// relative to the folder of the executable: the package's data folder on
// Linux, beside the program where the Windows installer put it.
extern const QString ManifestRelativePath;

// The family name from the installed identity manifest; raises HResultError
// with HResult::NoPackage when there is none.
QString FamilyFromManifest();

// The family name of the package the process runs from. Raises HResultError
// with HResult::NoPackage when there is none: a run from the build tree has no
// identity and so stores nothing.
QString Current();

// True exactly when asking for the package fails with HResult::NoPackage; any
// other failure is swallowed and leaves the answer false.
bool DetectNoPackageIdentity();

// The answer for this process, fixed by the application object as it starts,
// before any window, and read by whatever must leave the settings store alone.
// True while no application object has fixed it.
bool NoPackageIdentity();
void FixNoPackageIdentity(bool noPackageIdentity);

} // namespace Zorvane::Package
