#include "platform/NarrowText.h"

#include <system_error>

#include <windows.h>

namespace Zorvane {

std::string NarrowUtf8(const QString& text)
{
    if (text.isEmpty()) {
        return {};
    }
    const auto* wide = reinterpret_cast<const wchar_t*>(text.utf16());
    const int length = static_cast<int>(text.size());
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, wide, length, nullptr, 0, nullptr, nullptr);
    if (size == 0) {
        throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(),
                                "WideCharToMultiByte");
    }
    std::string narrow(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, wide, length, narrow.data(), size, nullptr, nullptr);
    return narrow;
}

} // namespace Zorvane
