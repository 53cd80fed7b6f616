#include "platform/ProductIdentity.h"

#include "platform/BuildInfo.h"

namespace Zorvane::ProductIdentity {

const QString CompanyName = QStringLiteral("Halvertrix Technologies Limited");
const QString ProductName = QStringLiteral("Halvertrix Zorvane");
const QString ShortName = QStringLiteral("Zorvane");
const QString ProductVersion = QStringLiteral(ZORVANE_PRODUCT_VERSION);
const QString BuildCommit = QStringLiteral(ZORVANE_BUILD_COMMIT);
const quint32 ReleaseYear = ZORVANE_RELEASE_YEAR;

} // namespace Zorvane::ProductIdentity
