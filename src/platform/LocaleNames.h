#pragma once

#include <QString>

namespace Zorvane::LocaleNames {

// The country code of the system's default locale ("GB").
QString SystemRegion();
// The system's and the user's default locales as "language-country"
// ("en-GB"); a locale without a country is its bare language.
QString SystemLocaleName();
QString UserLocaleName();

} // namespace Zorvane::LocaleNames
