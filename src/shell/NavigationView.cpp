#include "shell/NavigationView.h"

#include "shell/NavigationViewItem.h"

namespace Zorvane {

NavigationView::NavigationView(QQuickItem* parent) : QQuickItem(parent) {}

QQmlListProperty<QQuickItem> NavigationView::menuItemsProperty()
{
    return {this,
            nullptr,
            [](QQmlListProperty<QQuickItem>* list, QQuickItem* item) {
                static_cast<NavigationView*>(list->object)->appendMenuItem(item);
            },
            [](QQmlListProperty<QQuickItem>* list) {
                return static_cast<NavigationView*>(list->object)->m_menuItems.size();
            },
            [](QQmlListProperty<QQuickItem>* list, qsizetype index) {
                return static_cast<NavigationView*>(list->object)->m_menuItems.at(index);
            },
            nullptr,
            nullptr,
            nullptr};
}

void NavigationView::appendMenuItem(QQuickItem* item)
{
    m_menuItems << item;
    if (m_menuHost) {
        item->setParentItem(m_menuHost);
    }
    if (auto* entry = qobject_cast<NavigationViewItem*>(item)) {
        connect(entry, &NavigationViewItem::Invoked, this,
                [this, entry] { setSelectedItem(entry); });
    }
}

void NavigationView::setMenuHost(QQuickItem* host)
{
    if (m_menuHost == host) {
        return;
    }
    m_menuHost = host;
    for (QQuickItem* item : std::as_const(m_menuItems)) {
        item->setParentItem(host);
    }
    Q_EMIT MenuHostChanged();
}

void NavigationView::setSelectedItem(QObject* item)
{
    if (m_selectedItem == item) {
        return;
    }
    m_selectedItem = item;
    for (QQuickItem* entry : std::as_const(m_menuItems)) {
        if (auto* page = qobject_cast<NavigationViewItem*>(entry)) {
            page->setSelected(page == item);
        }
    }
    Q_EMIT SelectedItemChanged();
    Q_EMIT SelectionChanged(item);
}

void NavigationView::setHeader(QObject* header)
{
    if (m_header != header) {
        m_header = header;
        Q_EMIT HeaderChanged();
    }
}

void NavigationView::setIsPaneOpen(bool open)
{
    if (m_paneOpen != open) {
        m_paneOpen = open;
        Q_EMIT IsPaneOpenChanged();
    }
}

void NavigationView::setIsPaneToggleButtonVisible(bool visible)
{
    if (m_toggleVisible != visible) {
        m_toggleVisible = visible;
        Q_EMIT IsPaneToggleButtonVisibleChanged();
    }
}

void NavigationView::componentComplete()
{
    QQuickItem::componentComplete();
    QMetaObject::invokeMethod(this, &NavigationView::Loaded, Qt::QueuedConnection);
}

} // namespace Zorvane
