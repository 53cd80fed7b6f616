#pragma once

#include <QString>

#include <string>

namespace Zorvane {

// Text for OpenSSL and the file system: the platform's UTF-16 text as narrow
// UTF-8, converted as the platform converts it (on Windows a lone surrogate
// comes out as U+FFFD). An empty text is an empty string. Where the system
// refuses the text, raises std::system_error with the system's error.
std::string NarrowUtf8(const QString& text);

} // namespace Zorvane
