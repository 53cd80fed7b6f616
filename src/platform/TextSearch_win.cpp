#include "platform/TextSearch.h"

#include <string>

#include <windows.h>

#include <shlwapi.h>

namespace Zorvane {

bool ContainsIgnoringCase(const QString& text, const QString& search)
{
    // Both texts are copied so that each ends in a zero.
    const std::wstring haystack = text.toStdWString();
    const std::wstring needle = search.toStdWString();
    return !needle.empty() && ::StrStrIW(haystack.c_str(), needle.c_str()) != nullptr;
}

} // namespace Zorvane
