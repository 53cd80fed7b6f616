#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <memory>

class QQmlEngine;
class QQuickItem;
class QQuickWindow;

namespace Zorvane {

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

    static constexpr int UserInput = 0;

private Q_SLOTS:
    void searchTextEdited();

private:
    void InitializeComponent(QQmlEngine& engine);
    void Connect();

    std::unique_ptr<QQuickWindow> m_window;
    QPointer<NavigationView> m_navView;
    QPointer<PageFrame> m_contentFrame;
    QPointer<QQuickItem> m_searchBox;
};

} // namespace Zorvane
