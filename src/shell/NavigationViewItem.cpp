#include "shell/NavigationViewItem.h"

namespace Zorvane {

NavigationViewItem::NavigationViewItem(QQuickItem* parent) : QQuickItem(parent) {}

void NavigationViewItem::setTag(const QVariant& tag)
{
    if (m_tag != tag) {
        m_tag = tag;
        Q_EMIT TagChanged();
    }
}

void NavigationViewItem::setContent(const QVariant& content)
{
    if (m_content != content) {
        m_content = content;
        Q_EMIT ContentChanged();
    }
}

void NavigationViewItem::setSelected(bool selected)
{
    if (m_selected != selected) {
        m_selected = selected;
        Q_EMIT IsSelectedChanged();
    }
}

} // namespace Zorvane
