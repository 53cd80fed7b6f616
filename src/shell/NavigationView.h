#pragma once

#include <QPointer>
#include <QQmlListProperty>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace Zorvane {

// The navigation: menu entries in a pane, the selection, a header and the
// pane's open state. The look comes from the markup, which names the item
// that holds the entries (MenuHost) and the header element (Header).
class NavigationView : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

    // The list, the host and the header are spelt in lower case for the
    // markup, where an upper-case name before an object reads as an attached
    // object; the C++ members keep their own names.
    /// The pane's entries in order: page entries and anything else (a heading).
    Q_PROPERTY(QQmlListProperty<QQuickItem> menuItems READ menuItemsProperty)
    /// Where the entries are laid out.
    Q_PROPERTY(QQuickItem* menuHost READ MenuHost WRITE setMenuHost NOTIFY MenuHostChanged)
    Q_PROPERTY(
        QObject* SelectedItem READ SelectedItem WRITE setSelectedItem NOTIFY SelectedItemChanged)
    /// The element above the content that shows the current page's label.
    Q_PROPERTY(QObject* header READ Header WRITE setHeader NOTIFY HeaderChanged)
    Q_PROPERTY(bool IsPaneOpen READ IsPaneOpen WRITE setIsPaneOpen NOTIFY IsPaneOpenChanged)
    Q_PROPERTY(bool IsPaneToggleButtonVisible READ IsPaneToggleButtonVisible WRITE
                   setIsPaneToggleButtonVisible NOTIFY IsPaneToggleButtonVisibleChanged)
    /// There is no settings page.
    Q_PROPERTY(bool IsSettingsVisible READ IsSettingsVisible CONSTANT)

public:
    explicit NavigationView(QQuickItem* parent = nullptr);

    const QList<QQuickItem*>& MenuItems() const { return m_menuItems; }
    QQuickItem* MenuHost() const { return m_menuHost; }
    void setMenuHost(QQuickItem* host);
    QObject* SelectedItem() const { return m_selectedItem; }
    void setSelectedItem(QObject* item);
    QObject* Header() const { return m_header; }
    void setHeader(QObject* header);
    bool IsPaneOpen() const { return m_paneOpen; }
    void setIsPaneOpen(bool open);
    bool IsPaneToggleButtonVisible() const { return m_toggleVisible; }
    void setIsPaneToggleButtonVisible(bool visible);
    bool IsSettingsVisible() const { return false; }

Q_SIGNALS:
    void MenuHostChanged();
    void SelectedItemChanged();
    void HeaderChanged();
    void IsPaneOpenChanged();
    void IsPaneToggleButtonVisibleChanged();
    // Raised once, from the event loop, after the markup is complete.
    void Loaded();
    void SelectionChanged(QObject* selectedItem);

protected:
    void componentComplete() override;

private:
    QQmlListProperty<QQuickItem> menuItemsProperty();
    void appendMenuItem(QQuickItem* item);

    QList<QQuickItem*> m_menuItems;
    QPointer<QQuickItem> m_menuHost;
    QPointer<QObject> m_selectedItem;
    QPointer<QObject> m_header;
    bool m_paneOpen = true;
    bool m_toggleVisible = false;
};

} // namespace Zorvane
