#include "platform/TextSearch.h"

namespace Zorvane {

bool ContainsIgnoringCase(const QString& text, const QString& search)
{
    return !search.isEmpty() && text.contains(search, Qt::CaseInsensitive);
}

} // namespace Zorvane
