#pragma once

#include <QString>
#include <QtGlobal>

// Who made the program and which build it is. Built once before main runs and
// kept until the process ends.
namespace Zorvane::ProductIdentity {

extern const QString CompanyName;
extern const QString ProductName; ///< also the window title
extern const QString ShortName;
extern const QString ProductVersion; ///< major.minor.patch
extern const QString BuildCommit;    ///< stored on purpose, never shown
extern const quint32 ReleaseYear;

} // namespace Zorvane::ProductIdentity
