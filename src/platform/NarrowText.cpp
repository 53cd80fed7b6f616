#include "platform/NarrowText.h"

namespace Zorvane {

std::string NarrowUtf8(const QString& text)
{
    return text.toStdString();
}

} // namespace Zorvane
