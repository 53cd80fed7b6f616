#include "platform/LocaleNames.h"

#include <QLocale>

namespace Zorvane::LocaleNames {

namespace {
QString hyphenatedName(const QLocale& locale)
{
    const QString language = QLocale::languageToCode(locale.language());
    const QString country = QLocale::territoryToCode(locale.territory());
    if (locale.language() == QLocale::C || country.isEmpty()) {
        return language;
    }
    return language + QLatin1Char('-') + country;
}
} // namespace

// One locale stands for both here: the environment's (LC_ALL, LC_CTYPE, LANG).
QString SystemRegion()
{
    return QLocale::territoryToCode(QLocale::system().territory());
}

QString SystemLocaleName()
{
    return hyphenatedName(QLocale::system());
}

QString UserLocaleName()
{
    return hyphenatedName(QLocale::system());
}

} // namespace Zorvane::LocaleNames
