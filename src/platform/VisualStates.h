#pragma once

#include <QPointer>
#include <QString>

namespace Zorvane {

namespace VisualStates {
inline const QString Normal = QStringLiteral("Normal");
inline const QString InProgress = QStringLiteral("InProgress");
} // namespace VisualStates

// Puts a page into one of its named states (its "state" property). Our pages
// declare their states without transitions, so there is nothing to animate.
void GoToState(QObject* page, const QString& name);

// Puts the page back into "Normal" however the scope is left. Nothing disarms it.
class VisualStateGuard
{
public:
    explicit VisualStateGuard(QObject* page) : m_page(page) {}
    ~VisualStateGuard() { GoToState(m_page, VisualStates::Normal); }

    VisualStateGuard(const VisualStateGuard&) = delete;
    VisualStateGuard& operator=(const VisualStateGuard&) = delete;

private:
    QPointer<QObject> m_page;
};

} // namespace Zorvane
