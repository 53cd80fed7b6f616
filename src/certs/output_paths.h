#pragma once

#include <string>
#include <string_view>

namespace Zorvane {

// The extension of the last path component, from its last dot; empty for "."
// and "..", for a name whose only dot is its first character, and for a name
// without a dot. POSIX file names have no alternate-stream suffix to strip.
std::string_view path_extension(std::string_view path);

// The chosen path, with the default extension appended when it has none.
std::string with_default_extension(std::string_view path, std::string_view defaultExtension);

// The path with its extension replaced by ".key" (appended where it has none).
std::string key_path_for(std::string_view path);

} // namespace Zorvane
