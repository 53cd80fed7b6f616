#include "shell/PageFrame.h"

#include "shell/ActivationFactory.h"

#include <QQmlEngine>

#include <exception>
#include <memory>

namespace Zorvane {

PageFrame::PageFrame(QQuickItem* parent) : QQuickItem(parent)
{
    setFlag(ItemIsFocusScope);
}

bool PageFrame::Navigate(const QString& pageType)
{
    QQmlEngine* engine = qmlEngine(this);
    std::unique_ptr<QObject> made;
    try {
        if (engine == nullptr) {
            throw std::runtime_error("no engine");
        }
        made.reset(ActivationFactory::ActivateInstance(*engine, pageType));
    } catch (const std::exception&) {
        Q_EMIT NavigationFailed(pageType);
        return false;
    }
    auto* page = qobject_cast<QQuickItem*>(made.get());
    if (page == nullptr) {
        Q_EMIT NavigationFailed(pageType);
        return false;
    }
    made.release();

    if (m_page) {
        // A run that still holds on to the old page sees it go.
        m_page->setParentItem(nullptr);
        m_page->deleteLater();
    }
    m_page = page;
    page->setParent(this);
    page->setParentItem(this);
    page->setSize(size());
    m_currentType = pageType;
    Q_EMIT Navigated();
    return true;
}

void PageFrame::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (m_page) {
        m_page->setSize(newGeometry.size());
    }
}

} // namespace Zorvane
