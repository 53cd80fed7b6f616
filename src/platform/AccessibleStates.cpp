#include "platform/AccessibleStates.h"

#include <QAccessible>
#include <QQuickItem>

#include <algorithm>
#include <private/qaccessiblequickitem_p.h>
#include <private/qquickitem_p.h>

namespace Zorvane {

namespace {

class QuickItemAccessible final : public QAccessibleQuickItem,
                                  public QAccessibleEditableTextInterface
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

    QString text(QAccessible::Text type) const override
    {
        QString text = QAccessibleQuickItem::text(type);
        if (type != QAccessible::Name || !text.isEmpty()) {
            return text;
        }
        // Qt Quick keeps a password field's name from assistive tools, lest it
        // be the password; a name the markup gives it outright is safe to say.
        if (state().passwordEdit) {
            return item()->property("accessibleName").toString();
        }
        // The text inside a spin box or a combo box is that box to the user.
        QQuickItem* parent = item()->parentItem();
        if (QAccessibleInterface* outer =
                parent != nullptr ? QAccessible::queryAccessibleInterface(parent) : nullptr;
            outer != nullptr &&
            (outer->role() == QAccessible::SpinBox || outer->role() == QAccessible::ComboBox)) {
            return outer->text(QAccessible::Name);
        }
        return text;
    }

    // A text box that can be typed into can be written by an assistive tool
    // too (Qt Quick 6.4 offers no editable text to them).
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::EditableTextInterface && role() == QAccessible::EditableText &&
            !state().readOnly && item()->metaObject()->indexOfProperty("text") >= 0) {
            return static_cast<QAccessibleEditableTextInterface*>(this);
        }
        return QAccessibleQuickItem::interface_cast(type);
    }

    void deleteText(int startOffset, int endOffset) override
    {
        replaceText(startOffset, endOffset, QString());
    }

    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }

    void replaceText(int startOffset, int endOffset, const QString& text) override
    {
        QString current = item()->property("text").toString();
        const qsizetype start = std::clamp<qsizetype>(startOffset, 0, current.size());
        const qsizetype end = std::clamp<qsizetype>(endOffset, start, current.size());
        current.replace(start, end - start, text);
        item()->setProperty("text", current);
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
