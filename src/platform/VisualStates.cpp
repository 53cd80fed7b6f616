#include "platform/VisualStates.h"

#include <QVariant>

namespace Zorvane {

void GoToState(QObject* page, const QString& name)
{
    if (page != nullptr) {
        page->setProperty("state", name);
    }
}

} // namespace Zorvane
