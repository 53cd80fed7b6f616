#include "presentation/Helpers.h"

#include "platform/LocaleNames.h"
#include "platform/ProductIdentity.h"

#include <QJSEngine>

#include <fmt/format.h>
#include <fmt/xchar.h>

#include <clocale>
#include <locale>
#include <stdexcept>

namespace Zorvane {

namespace {

bool isNull(const QVariant& state)
{
    return !state.isValid() || state.isNull();
}

// Computed once, before main, and read only afterwards.
const QString systemRegion = LocaleNames::SystemRegion();
const QString systemLocaleName = LocaleNames::SystemLocaleName();
// The runtime's own spelling of a hyphenated name: "en-GB" is "en_GB.UTF-8".
std::locale runtimeLocale(const QString& name)
{
    QStringList candidates{name};
    if (name.contains(QLatin1Char('-'))) {
        const QString underscored = QString(name).replace(QLatin1Char('-'), QLatin1Char('_'));
        candidates = {underscored + QStringLiteral(".UTF-8"), underscored, name};
    }
    for (const QString& candidate : candidates) {
        try {
            return std::locale(candidate.toUtf8().toStdString());
        } catch (const std::runtime_error&) {
            continue;
        }
    }
    throw std::runtime_error("bad locale name");
}

// The user's own locale, as the environment names it (LC_ALL, LC_CTYPE, LANG;
// before main the C library's current locale is still "C" in every process).
// Where the C library has not generated it, every binding that formats with it
// would fail: the C locale, which the runtime always has, stands in.
QString userLocale()
{
    const QString name = LocaleNames::UserLocaleName();
    try {
        static_cast<void>(runtimeLocale(name));
        return name;
    } catch (const std::runtime_error&) {
        return QStringLiteral("C");
    }
}

const QString userLocaleName = userLocale();

} // namespace

Helpers::Helpers(QObject* parent) : QObject(parent) {}

Helpers* Helpers::create(QQmlEngine*, QJSEngine*)
{
    return new Helpers;
}

QString Helpers::SystemRegion()
{
    return systemRegion;
}

QString Helpers::SystemLocaleName()
{
    return systemLocaleName;
}

QString Helpers::UserLocaleName()
{
    return userLocaleName;
}

quint32 Helpers::ReleaseYear()
{
    return ProductIdentity::ReleaseYear;
}

QString Helpers::CompanyName()
{
    return ProductIdentity::CompanyName;
}

QString Helpers::ProductName()
{
    return ProductIdentity::ProductName;
}

QString Helpers::ShortName()
{
    return ProductIdentity::ShortName;
}

QString Helpers::ProductVersion()
{
    return ProductIdentity::ProductVersion;
}

int Helpers::BooleanToVisibility(const QVariant& state) const
{
    const bool visible = isNull(state) || state.toBool();
    return int(visible ? Visibility::Visible : Visibility::Collapsed);
}

int Helpers::InverseBooleanToVisibility(const QVariant& state) const
{
    const bool visible = !isNull(state) && !state.toBool();
    return int(visible ? Visibility::Visible : Visibility::Collapsed);
}

int Helpers::StringToVisibility(const QString& text) const
{
    return int(text.isEmpty() ? Visibility::Collapsed : Visibility::Visible);
}

QString Helpers::FormatString(const QString& format, const QString& value,
                              const QString& localeName) const
{
    if (format.isEmpty()) {
        return value;
    }
    try {
        const std::locale locale =
            localeName.isEmpty() ? std::locale::classic() : runtimeLocale(localeName);
        const std::wstring pattern = format.toStdWString();
        const std::wstring argument = value.toStdWString();
        const std::wstring text = fmt::vformat(locale, pattern, fmt::make_wformat_args(argument));
        return QString::fromStdWString(text);
    } catch (const std::exception& error) {
        // An exception must not cross the QML engine: in a binding it becomes
        // the binding's error.
        if (QJSEngine* engine = qjsEngine(this)) {
            engine->throwError(QString::fromUtf8(error.what()));
            return {};
        }
        throw;
    }
}

QString Helpers::TriStateText(const QVariant& state, const QString& whenNull,
                              const QString& whenTrue, const QString& whenFalse) const
{
    if (isNull(state)) {
        return whenNull;
    }
    return state.toBool() ? whenTrue : whenFalse;
}

} // namespace Zorvane
