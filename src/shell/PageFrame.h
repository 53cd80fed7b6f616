#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace Zorvane {

// Hosts one page at a time and makes a new page object on every navigation.
class PageFrame : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

    /// Full type name of the page on show; empty before the first navigation.
    Q_PROPERTY(QString CurrentSourcePageType READ CurrentSourcePageType NOTIFY Navigated)
    /// The page on show.
    Q_PROPERTY(QQuickItem* Content READ Content NOTIFY Navigated)

public:
    explicit PageFrame(QQuickItem* parent = nullptr);

    QString CurrentSourcePageType() const { return m_currentType; }
    QQuickItem* Content() const { return m_page; }

    // Makes the page named by its full type name and shows it in place of the
    // current one. A page that cannot be made raises NavigationFailed and
    // leaves the current page on show.
    Q_INVOKABLE bool Navigate(const QString& pageType);

Q_SIGNALS:
    void Navigated();
    void NavigationFailed(const QString& sourcePageType);

protected:
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

private:
    QPointer<QQuickItem> m_page;
    QString m_currentType;
};

} // namespace Zorvane
