#pragma once

#include "platform/Coroutines.h"
#include "shell/TitleBarGeometry.h"

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QRect>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

class QQmlEngine;
class QQuickItem;
class QQuickWindow;
class QWindow;

namespace Zorvane {

class DefinitionGrid;
class NavigationView;
class PageFrame;

// The search box's words: split at every ASCII white-space character, with
// empty words kept (two blanks in a row, or a leading or trailing blank).
QStringList SplitSearchText(const QString& text);
// Whether any word occurs in the label, in any case; an empty word never does.
bool MatchesAnyToken(const QStringList& tokens, const QString& label);

// The one window: navigation between the pages, the search filter, the header
// and the product texts. Its layout is MainWindow.qml, loaded at run time.
class MainWindow : public QObject
{
    Q_OBJECT

public:
    explicit MainWindow(QQmlEngine& engine, QObject* parent = nullptr);
    ~MainWindow() override;

    QQuickWindow* Window() const { return m_window.get(); }
    // Shows the window and gives it the focus.
    void Activate();

    void OnNavViewLoaded();
    void OnNavSelectionChanged(QObject* selectedItem);
    // Only a change typed by the user (reason 0) filters.
    void OnSearchTextChanged(int reason);
    void OnNavigationFailed(const QString& sourcePageType);

    // Applies the saved placement a little after start, when the process has
    // a package identity.
    FireAndForget LoadSettingsAsync();
    // Saves the placement, when the process has a package identity.
    void SaveWindowPlacement();
    // At close: the placement first, then the backdrop (the system's, where it has one).
    void TeardownOnClosed();

    // Recomputes the title bar's insets and the rectangles that drag the window.
    void UpdateDragRegions();
    // The title texts take the active or the inactive caption colour.
    void OnWindowActivated(bool active);
    const std::array<DragRectangle, 5>& DragRects() const { return m_dragRectangles; }
    // The caption buttons' width in physical pixels.
    int RightInset() const;
    int Dpi() const;

    // The geometry of the normal state, kept while the window is maximised.
    QRect NormalGeometry() const { return m_normalGeometry; }

    static constexpr int UserInput = 0;

    // Starts the system's move of the window; tests put their own in place,
    // since an offscreen or bare X server has no window manager to move it.
    using SystemMoveHandler = std::function<bool(QWindow*)>;
    static void SetSystemMoveHandler(SystemMoveHandler handler);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void searchTextEdited();

private:
    void InitializeComponent(QQmlEngine& engine);
    void Connect();
    void trackNormalGeometry();
    void InstallIcons();
    void TrySetMicaBackdrop();
    bool handleTitleBarMouse(QEvent* event);
    // The edges whose resize band holds the point; none unless shown normally.
    Qt::Edges resizeEdgesAt(const QPointF& position) const;
    // The cursor that says which way the edge resizes, or the items' own.
    bool showResizeCursor(Qt::Edges edges);

    std::unique_ptr<QQuickWindow> m_window;
    QPointer<NavigationView> m_navView;
    QPointer<PageFrame> m_contentFrame;
    QPointer<QQuickItem> m_searchBox;
    QRect m_normalGeometry;
    QPointer<QQuickItem> m_appTitleBar;
    QPointer<QQuickItem> m_captionButtons;
    // Resolved once, as the markup loads, like the members above.
    QPointer<DefinitionGrid> m_titleBarGrid;
    QPointer<QQuickItem> m_titleText;
    QPointer<QQuickItem> m_titleDetailText;
    std::array<DragRectangle, 5> m_dragRectangles{};
    // Where a press in a drag area began: a move starts once the pointer has
    // travelled the drag distance from there, so that a double click stays a
    // double click.
    std::optional<QPointF> m_dragPress;
    bool m_resizeCursor = false;
    bool m_extendsContentIntoTitleBar = true;
};

} // namespace Zorvane
