#include "platform/AccessibleStates.h"

#include <QAccessible>
#include <QJSValue>
#include <QLocale>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>

#include <algorithm>
#include <private/qaccessiblequickitem_p.h>
#include <private/qquickitem_p.h>
#include <vector>

namespace Zorvane {

namespace {

// One choice of a combo box. Qt Quick makes the choices only while the list
// is open, so an assistive tool would never see them otherwise.
class ComboOption final : public QAccessibleInterface
{
public:
    ComboOption(QQuickItem* combo, int index) : m_combo(combo), m_index(index) {}

    bool isValid() const override { return !m_combo.isNull(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return m_combo ? m_combo->window() : nullptr; }
    QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_combo.data());
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QRect rect() const override
    {
        const QAccessibleInterface* combo = parent();
        return combo != nullptr ? combo->rect() : QRect();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QString text(QAccessible::Text type) const override
    {
        QString text;
        if (type == QAccessible::Name && m_combo) {
            QMetaObject::invokeMethod(m_combo.data(), "textAt", Q_RETURN_ARG(QString, text),
                                      Q_ARG(int, m_index));
        }
        return text;
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.selectable = true;
        state.selected = isChosen();
        state.disabled = !m_combo || !m_combo->isEnabled();
        return state;
    }

    int index() const { return m_index; }
    bool isChosen() const
    {
        return m_combo && m_combo->property("currentIndex").toInt() == m_index;
    }
    // Chosen as a user chooses, so that the page hears of it as of a click.
    bool choose() const
    {
        if (!m_combo || !m_combo->isEnabled()) {
            return false;
        }
        m_combo->setProperty("currentIndex", m_index);
        return QMetaObject::invokeMethod(m_combo.data(), "activated", Q_ARG(int, m_index));
    }

private:
    QPointer<QQuickItem> m_combo;
    int m_index;
};

class QuickItemAccessible final : public QAccessibleQuickItem,
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
                                  public QAccessibleSelectionInterface,
#endif
                                  public QAccessibleEditableTextInterface
{
public:
    using QAccessibleQuickItem::QAccessibleQuickItem;
    ~QuickItemAccessible() override
    {
        for (const QAccessible::Id id : m_options) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    // A combo box's children are its choices.
    int childCount() const override
    {
        return isComboBox() ? item()->property("count").toInt()
                            : QAccessibleQuickItem::childCount();
    }
    QAccessibleInterface* child(int index) const override
    {
        if (!isComboBox()) {
            return QAccessibleQuickItem::child(index);
        }
        if (index < 0 || index >= childCount()) {
            return nullptr;
        }
        while (std::ssize(m_options) <= index) {
            m_options.push_back(QAccessible::registerAccessibleInterface(
                new ComboOption(item(), static_cast<int>(m_options.size()))));
        }
        return QAccessible::accessibleInterface(m_options[static_cast<std::size_t>(index)]);
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        if (!isComboBox()) {
            return QAccessibleQuickItem::indexOfChild(child);
        }
        const auto* option = dynamic_cast<const ComboOption*>(child);
        return option != nullptr && option->parent() == this ? option->index() : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override
    {
        return isComboBox() ? nullptr : QAccessibleQuickItem::childAt(x, y);
    }

#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    int selectedItemCount() const override
    {
        return isComboBox() ? 1 : 0;
    }
    QList<QAccessibleInterface*> selectedItems() const override
    {
        QAccessibleInterface* chosen = child(item()->property("currentIndex").toInt());
        return chosen != nullptr ? QList{chosen} : QList<QAccessibleInterface*>();
    }
    bool select(QAccessibleInterface* childItem) override
    {
        const auto* option = dynamic_cast<const ComboOption*>(childItem);
        return option != nullptr && indexOfChild(option) >= 0 && option->choose();
    }
    // A combo box always has one choice: it can be changed, not taken away.
    bool unselect(QAccessibleInterface*) override
    {
        return false;
    }
    bool selectAll() override
    {
        return false;
    }
    bool clear() override
    {
        return false;
    }
#endif

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
    // too (Qt Quick offers no editable text to them), and so can an editable
    // spin box, whose text is also read as text.
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::EditableTextInterface && isWritableText()) {
            return static_cast<QAccessibleEditableTextInterface*>(this);
        }
        if (type == QAccessible::TextInterface && isEditableSpinBox()) {
            return static_cast<QAccessibleTextInterface*>(this);
        }
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
        if (type == QAccessible::SelectionInterface && isComboBox()) {
            return static_cast<QAccessibleSelectionInterface*>(this);
        }
#endif
        return QAccessibleQuickItem::interface_cast(type);
    }

    void deleteText(int startOffset, int endOffset) override
    {
        replaceText(startOffset, endOffset, QString());
    }

    void insertText(int offset, const QString& text) override
    {
        replaceText(offset, offset, text);
    }

    void replaceText(int startOffset, int endOffset, const QString& text) override
    {
        QString current = editedText();
        const qsizetype start = std::clamp<qsizetype>(startOffset, 0, current.size());
        const qsizetype end = std::clamp<qsizetype>(endOffset, start, current.size());
        current.replace(start, end - start, text);
        if (isEditableSpinBox()) {
            commitSpinBoxText(current);
        } else {
            item()->setProperty("text", current);
        }
    }

    // The spin box's text, for the text interface that Qt Quick serves from
    // the value text of an item without a document of its own.
    QString text(int startOffset, int endOffset) const override
    {
        if (!isEditableSpinBox()) {
            return QAccessibleQuickItem::text(startOffset, endOffset);
        }
        const QString shown = editedText();
        const qsizetype start = std::clamp<qsizetype>(startOffset, 0, shown.size());
        const qsizetype end =
            endOffset < 0 ? shown.size() : std::clamp<qsizetype>(endOffset, start, shown.size());
        return shown.mid(start, end - start);
    }
    int characterCount() const override
    {
        return isEditableSpinBox() ? static_cast<int>(editedText().size())
                                   : QAccessibleQuickItem::characterCount();
    }

    // Qt Quick reads the limits from properties that its controls do not have.
    QVariant maximumValue() const override
    {
        return role() == QAccessible::SpinBox ? item()->property("to")
                                              : QAccessibleQuickItem::maximumValue();
    }
    QVariant minimumValue() const override
    {
        return role() == QAccessible::SpinBox ? item()->property("from")
                                              : QAccessibleQuickItem::minimumValue();
    }
    QVariant minimumStepSize() const override
    {
        return role() == QAccessible::SpinBox ? item()->property("stepSize")
                                              : QAccessibleQuickItem::minimumStepSize();
    }

private:
    bool isComboBox() const
    {
        return role() == QAccessible::ComboBox;
    }
    bool isWritableText() const
    {
        if (role() == QAccessible::EditableText) {
            return !state().readOnly && !item()->property("readOnly").toBool() &&
                   item()->metaObject()->indexOfProperty("text") >= 0;
        }
        return isEditableSpinBox();
    }
    bool isEditableSpinBox() const
    {
        return role() == QAccessible::SpinBox && item()->property("editable").toBool();
    }
    QString editedText() const
    {
        return item()->property(isEditableSpinBox() ? "displayText" : "text").toString();
    }
    // Committed as typing the text and Enter would: through the box's own
    // reading of text, which rounds, bounds and keeps the old value on text
    // that does not parse.
    void commitSpinBoxText(const QString& text)
    {
        QQmlEngine* engine = qmlEngine(item());
        auto read = item()->property("valueFromText").value<QJSValue>();
        if (engine == nullptr || !read.isCallable()) {
            return;
        }
        const QJSValue value = read.call(
            {QJSValue(text), engine->toScriptValue(item()->property("locale").value<QLocale>())});
        if (value.isNumber()) {
            const double bounded = std::clamp(value.toNumber(), item()->property("from").toDouble(),
                                              item()->property("to").toDouble());
            item()->setProperty("value", static_cast<int>(bounded));
        }
    }

    // Made when first asked for, owned by the accessibility cache, dropped with the box.
    mutable std::vector<QAccessible::Id> m_options;
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
