#pragma once

// Drives the real window the way a user does: mouse clicks at an item's
// centre, keys, and a page opened through the navigation.

#include "shell/NavigationView.h"
#include "shell/PageFrame.h"

#include <QAccessible>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

namespace Zorvane::Testing {

inline void clickItem(QQuickWindow* window, QQuickItem* item)
{
    const QPointF centre = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
    QTest::mouseClick(window, Qt::LeftButton, {}, centre.toPoint());
}

// Line ends are typed as Return.
inline void typeText(QQuickWindow* window, const QString& text)
{
    for (const QChar c : text) {
        if (c == u'\n') {
            QTest::keyClick(window, Qt::Key_Return);
        } else {
            QTest::keyClick(window, c.toLatin1());
        }
    }
}

// What an assistive tool does: the named action of the item's accessible
// interface, with no mouse and no keys.
inline bool accessibleAction(QQuickItem* item, const QString& action)
{
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(item);
    if (accessible == nullptr || accessible->actionInterface() == nullptr ||
        !accessible->actionInterface()->actionNames().contains(action)) {
        return false;
    }
    accessible->actionInterface()->doAction(action);
    return true;
}

inline bool accessiblePress(QQuickItem* item)
{
    return accessibleAction(item, QAccessibleActionInterface::pressAction());
}

// Walks the visual tree: a repeater's rows are not its QObject children.
inline QQuickItem* findItem(QQuickItem* root, const QString& name)
{
    if (root->objectName() == name) {
        return root;
    }
    for (QQuickItem* child : root->childItems()) {
        if (QQuickItem* found = findItem(child, name)) {
            return found;
        }
    }
    return nullptr;
}

inline QQuickItem* currentPage(QQuickWindow* window)
{
    return window->findChild<PageFrame*>(QStringLiteral("ContentFrame"))->Content();
}

// Opens the navigation entry by way of another one, so that the page and its
// view model come new.
inline void openFresh(QQuickWindow* window, int entry)
{
    auto* nav = window->findChild<NavigationView*>(QStringLiteral("NavView"));
    nav->setSelectedItem(nav->MenuItems().at(entry == 3 ? 1 : 3));
    nav->setSelectedItem(nav->MenuItems().at(entry));
}

} // namespace Zorvane::Testing
