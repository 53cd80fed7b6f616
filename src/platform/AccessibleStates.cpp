#include "AccessibleStates.h"

#include <QAccessible>
#include <QQuickItem>

#include <private/qaccessiblequickitem_p.h>
#include <private/qquickitem_p.h>

namespace Zorvane {

namespace {

class QuickItemAccessible final : public QAccessibleQuickItem
{
public:
    using QAccessibleQuickItem::QAccessibleQuickItem;

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleQuickItem::state();
        if (!item()->isEnabled()) {
            state.disabled = true;
            state.focusable = false;
        }
        return state;
    }
};

// The same items as Qt Quick's own factory serves: those with accessibility on.
QAccessibleInterface* accessibleFor(const QString&, QObject* object)
{
    auto* item = qobject_cast<QQuickItem*>(object);
    if (item == nullptr || !QQuickItemPrivate::get(item)->isAccessible) {
        return nullptr;
    }
    return new QuickItemAccessible(item);
}

} // namespace

void InstallAccessibleStates()
{
    static const bool installed = [] {
        QAccessible::installFactory(accessibleFor);
        return true;
    }();
    static_cast<void>(installed);
}

} // namespace Zorvane
