#include "certs/output_paths.h"

namespace Zorvane {

namespace {
std::size_t extension_start(std::string_view path)
{
    const std::size_t slash = path.find_last_of('/');
    const std::size_t nameStart = slash == std::string_view::npos ? 0 : slash + 1;
    const std::string_view name = path.substr(nameStart);
    if (name == "." || name == "..") {
        return std::string_view::npos;
    }
    const std::size_t dot = name.find_last_of('.');
    if (dot == std::string_view::npos || dot == 0) {
        return std::string_view::npos;
    }
    return nameStart + dot;
}
} // namespace

std::string_view path_extension(std::string_view path)
{
    const std::size_t start = extension_start(path);
    return start == std::string_view::npos ? std::string_view() : path.substr(start);
}

std::string with_default_extension(std::string_view path, std::string_view defaultExtension)
{
    std::string result(path);
    if (path_extension(path).empty()) {
        result += defaultExtension;
    }
    return result;
}

std::string key_path_for(std::string_view path)
{
    const std::size_t start = extension_start(path);
    std::string result(path.substr(0, start));
    result += ".key";
    return result;
}

} // namespace Zorvane
