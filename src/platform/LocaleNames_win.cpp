#include "platform/LocaleNames.h"

#include <windows.h>

namespace Zorvane::LocaleNames {

namespace {
constexpr int FieldLength = 9;

// One field of a locale, LOCALE_SISO639LANGNAME or LOCALE_SISO3166CTRYNAME;
// a failed call gives an empty text.
QString field(const wchar_t* locale, LCTYPE type)
{
    wchar_t buffer[FieldLength] = {};
    const int length = ::GetLocaleInfoEx(locale, type, buffer, FieldLength);
    return length > 0 ? QString::fromWCharArray(buffer, length - 1) : QString();
}

QString hyphenatedName(const wchar_t* locale)
{
    return field(locale, LOCALE_SISO639LANGNAME) + QLatin1Char('-') +
           field(locale, LOCALE_SISO3166CTRYNAME);
}

const wchar_t* const SystemDefault = L"!x-sys-default-locale";
} // namespace

QString SystemRegion()
{
    return field(SystemDefault, LOCALE_SISO3166CTRYNAME);
}

QString SystemLocaleName()
{
    return hyphenatedName(SystemDefault);
}

QString UserLocaleName()
{
    return hyphenatedName(nullptr);
}

} // namespace Zorvane::LocaleNames
