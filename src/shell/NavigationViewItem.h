#pragma once

#include <QQuickItem>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

namespace Zorvane {

// One page entry of the navigation pane. Its look comes from the markup.
class NavigationViewItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

    // Tag and Content are spelt in lower case for the markup, where some
    // upper-case names read as attached objects.
    /// Full type name of the page this entry shows.
    Q_PROPERTY(QVariant tag READ Tag WRITE setTag NOTIFY TagChanged)
    /// The label, in the pane and in the header.
    Q_PROPERTY(QVariant content READ Content WRITE setContent NOTIFY ContentChanged)
    Q_PROPERTY(bool IsSelected READ IsSelected NOTIFY IsSelectedChanged)

public:
    explicit NavigationViewItem(QQuickItem* parent = nullptr);

    QVariant Tag() const { return m_tag; }
    void setTag(const QVariant& tag);
    QVariant Content() const { return m_content; }
    void setContent(const QVariant& content);
    bool IsSelected() const { return m_selected; }
    void setSelected(bool selected);

    // Called by the markup on a click or a key press.
    Q_INVOKABLE void invoke() { Q_EMIT Invoked(); }

Q_SIGNALS:
    void TagChanged();
    void ContentChanged();
    void IsSelectedChanged();
    void Invoked();

private:
    QVariant m_tag;
    QVariant m_content;
    bool m_selected = false;
};

} // namespace Zorvane
