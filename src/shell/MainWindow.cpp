#include "shell/MainWindow.h"

#include "platform/ApplicationData.h"
#include "platform/Controls.h"
#include "platform/EventHandler.h"
#include "platform/HResultError.h"
#include "platform/Package.h"
#include "platform/ProductIdentity.h"
#include "platform/TextSearch.h"
#include "platform/WindowChrome.h"
#include "presentation/DefinitionGrid.h"
#include "shell/App.h"
#include "shell/NavigationView.h"
#include "shell/NavigationViewItem.h"
#include "shell/PageFrame.h"
#include "shell/WindowPlacement.h"

#include <QEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlProperty>
#include <QQuickImageProvider>
#include <QQuickWindow>
#include <QScreen>
#include <QStyleHints>

#include <algorithm>

namespace Zorvane {

namespace {

QString requireString(const QVariant& value)
{
    if (value.typeId() != QMetaType::QString) {
        throw HResultError(HResult::NoInterface);
    }
    return value.toString();
}

// The title bar's columns, left to right.
enum TitleBarColumn
{
    LeftInsetColumn,
    IconColumn,
    TitleColumn,
    LeftDragColumn,
    CentreColumn,
    RightDragColumn,
    RightInsetColumn,
};

} // namespace

QStringList SplitSearchText(const QString& text)
{
    QStringList tokens;
    if (text.isEmpty()) {
        return tokens;
    }
    QString current;
    for (const QChar c : text) {
        const char16_t unit = c.unicode();
        // isspace in the C locale: blank, tab, line feed, vertical tab, form feed, return.
        if (unit == u' ' || (unit >= u'\t' && unit <= u'\r')) {
            tokens << current;
            current.clear();
        } else {
            current += c;
        }
    }
    tokens << current;
    return tokens;
}

bool MatchesAnyToken(const QStringList& tokens, const QString& label)
{
    for (const QString& token : tokens) {
        if (ContainsIgnoringCase(label, token)) {
            return true;
        }
    }
    return false;
}

MainWindow::MainWindow(QQmlEngine& engine, QObject* parent) : QObject(parent)
{
    InitializeComponent(engine);
    m_normalGeometry = m_window->geometry();
    LoadSettingsAsync();
    m_window->setTitle(ProductIdentity::ProductName);
    // One connection per signal: a list of member pointers fails to connect
    // where the toolkit is a set of DLLs (mingw-w64).
    const auto updateDragRegions = [this] {
        RunHandler([&] { UpdateDragRegions(); });
    };
    connect(m_appTitleBar, &QQuickItem::widthChanged, this, updateDragRegions);
    connect(m_appTitleBar, &QQuickItem::heightChanged, this, updateDragRegions);
    // The title bar's first layout, once the window has been shown.
    QMetaObject::invokeMethod(
        this, [this] { RunHandler([&] { UpdateDragRegions(); }); }, Qt::QueuedConnection);
    connect(m_window.get(), &QWindow::activeChanged, this,
            [this] { RunHandler([&] { OnWindowActivated(m_window->isActive()); }); });
    InstallIcons();
    TrySetMicaBackdrop();
    connect(m_window.get(), &QWindow::xChanged, this, &MainWindow::trackNormalGeometry);
    connect(m_window.get(), &QWindow::yChanged, this, &MainWindow::trackNormalGeometry);
    connect(m_window.get(), &QWindow::widthChanged, this, &MainWindow::trackNormalGeometry);
    connect(m_window.get(), &QWindow::heightChanged, this, &MainWindow::trackNormalGeometry);
    connect(m_window.get(), &QWindow::windowStateChanged, this, &MainWindow::trackNormalGeometry);
    m_window->installEventFilter(this);
    connect(m_contentFrame, &PageFrame::NavigationFailed, this,
            [this](const QString& type) { RunHandler([&] { OnNavigationFailed(type); }); });
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_window.get()) {
        if (event->type() == QEvent::Close) {
            RunHandler([&] { TeardownOnClosed(); });
        } else if (handleTitleBarMouse(event)) {
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

namespace {
MainWindow::SystemMoveHandler& systemMoveHandler()
{
    static MainWindow::SystemMoveHandler handler;
    return handler;
}
} // namespace

void MainWindow::SetSystemMoveHandler(SystemMoveHandler handler)
{
    systemMoveHandler() = std::move(handler);
}

Qt::Edges MainWindow::resizeEdgesAt(const QPointF& position) const
{
    // A frameless window resizes from a thin band along its edges.
    constexpr double Border = 5;
    Qt::Edges edges;
    if (m_window->windowStates() == Qt::WindowNoState) {
        edges.setFlag(Qt::LeftEdge, position.x() < Border);
        edges.setFlag(Qt::RightEdge, position.x() >= m_window->width() - Border);
        edges.setFlag(Qt::TopEdge, position.y() < Border);
        edges.setFlag(Qt::BottomEdge, position.y() >= m_window->height() - Border);
    }
    return edges;
}

bool MainWindow::showResizeCursor(Qt::Edges edges)
{
    if (edges == Qt::Edges()) {
        if (m_resizeCursor) {
            m_resizeCursor = false;
            m_window->unsetCursor(); // the items' own cursors again
        }
        return false;
    }
    const bool leading =
        edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge);
    const bool trailing =
        edges == (Qt::RightEdge | Qt::TopEdge) || edges == (Qt::LeftEdge | Qt::BottomEdge);
    const Qt::CursorShape shape = leading    ? Qt::SizeFDiagCursor
                                  : trailing ? Qt::SizeBDiagCursor
                                  : edges.testAnyFlags(Qt::LeftEdge | Qt::RightEdge)
                                      ? Qt::SizeHorCursor
                                      : Qt::SizeVerCursor;
    m_window->setCursor(shape);
    m_resizeCursor = true;
    return true; // the band is the frame's: no hover below it
}

bool MainWindow::handleTitleBarMouse(QEvent* event)
{
    const auto type = event->type();
    if (type == QEvent::MouseButtonRelease) {
        m_dragPress.reset();
        return false;
    }
    if (type == QEvent::MouseMove) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->buttons() == Qt::NoButton) {
            return showResizeCursor(resizeEdgesAt(mouse->position()));
        }
        if (!m_dragPress || !mouse->buttons().testFlag(Qt::LeftButton)) {
            return false;
        }
        const QPointF travelled = mouse->position() - *m_dragPress;
        if (travelled.manhattanLength() < QGuiApplication::styleHints()->startDragDistance()) {
            return true;
        }
        m_dragPress.reset();
        const SystemMoveHandler& handler = systemMoveHandler();
        return handler ? handler(m_window.get()) : m_window->startSystemMove();
    }
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonDblClick) {
        return false;
    }
    auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() != Qt::LeftButton) {
        return false;
    }
    const QPointF position = mouse->position();

    const Qt::Edges edges = resizeEdgesAt(position);
    if (edges != Qt::Edges() && type == QEvent::MouseButtonPress) {
        return m_window->startSystemResize(edges);
    }

    // The drag rectangles are in physical pixels.
    const double ratio = m_window->devicePixelRatio();
    const double px = position.x() * ratio;
    const double py = position.y() * ratio;
    const bool inDragArea = std::any_of(m_dragRectangles.begin(), m_dragRectangles.end(),
                                        [&](const DragRectangle& r) { return r.contains(px, py); });
    if (!inDragArea) {
        return false;
    }
    if (type == QEvent::MouseButtonDblClick) {
        m_dragPress.reset();
        if (m_window->windowStates().testFlag(Qt::WindowMaximized)) {
            m_window->showNormal();
        } else {
            m_window->showMaximized();
        }
        return true;
    }
    // Not yet a move: the system takes the pointer once the drag begins, and
    // a move started here would swallow the second click of a double click.
    m_dragPress = position;
    return true;
}

int MainWindow::Dpi() const
{
    return WindowChrome::DpiForWindow(m_window.get());
}

int MainWindow::RightInset() const
{
    return static_cast<int>(m_captionButtons->width() * m_window->devicePixelRatio());
}

void MainWindow::UpdateDragRegions()
{
    if (!m_extendsContentIntoTitleBar) {
        return;
    }
    const double scale = DpiScale(Dpi());
    DefinitionGrid* grid = m_titleBarGrid;
    // No system buttons on the left; ours take the right.
    grid->ColumnDefinitions().SetAt(RightInsetColumn, {RightInset() / scale, GridUnitType::Pixel});
    grid->ColumnDefinitions().SetAt(LeftInsetColumn, {0 / scale, GridUnitType::Pixel});
    grid->LayoutNow(); // the widths below are the new layout's

    const QList<double> widths = grid->ActualColumnWidths();
    TitleBarMetrics metrics;
    metrics.scale = scale;
    metrics.titleHeight = m_appTitleBar->height();
    metrics.centreHeight = m_titleDetailText->height();
    metrics.leftInset = widths.value(LeftInsetColumn);
    metrics.icon = widths.value(IconColumn);
    metrics.title = widths.value(TitleColumn);
    metrics.leftDrag = widths.value(LeftDragColumn);
    metrics.centre = widths.value(CentreColumn);
    metrics.rightDrag = widths.value(RightDragColumn);
    metrics.rightInset = widths.value(RightInsetColumn);
    m_dragRectangles = DragRectangles(metrics);
}

void MainWindow::OnWindowActivated(bool active)
{
    const App* app = App::Current();
    const QString key = active ? QStringLiteral("WindowCaptionForeground")
                               : QStringLiteral("WindowCaptionForegroundDisabled");
    // Looked up at each activation: the theme may have changed since the last.
    const QVariant brush = app != nullptr ? app->Resources().value(key) : QVariant();
    if (!brush.isValid()) {
        throw HResultError(HResult::Unexpected, "missing resource");
    }
    // Written as a value, which ends the markup's first colour binding: from
    // here on only an activation changes the colour, not the theme.
    for (QObject* text : {m_titleText, m_titleDetailText}) {
        QQmlProperty::write(text, QStringLiteral("color"), brush);
    }
}

void MainWindow::InstallIcons()
{
    WindowChrome::InstallIcons(m_window.get());
}

void MainWindow::TrySetMicaBackdrop()
{
    // Where the system has no backdrop the window keeps its plain background.
    // Where it has one, the system owns the material: no controller is kept,
    // and teardown has nothing to close.
    static_cast<void>(WindowChrome::TrySetSystemBackdrop(m_window.get()));
}

void MainWindow::trackNormalGeometry()
{
    if (m_window->windowStates() == Qt::WindowNoState) {
        m_normalGeometry = m_window->geometry();
    }
}

FireAndForget MainWindow::LoadSettingsAsync()
{
    if (Package::NoPackageIdentity()) { // also while no application object runs
        co_return;
    }
    // The store settles asynchronously; the placement lands after the window
    // has first been shown, from the event loop.
    co_await UiContext::Capture();
    const SettingsValues values = ApplicationData::Current().LocalSettingsValues();
    // A window restored maximised never shows its normal geometry, which is
    // what the next close must keep.
    if (const auto normal = ReadPlacement(values, m_window.get(), m_normalGeometry)) {
        m_normalGeometry = *normal;
    }
}

void MainWindow::SaveWindowPlacement()
{
    if (Package::NoPackageIdentity()) { // also while no application object runs
        return;
    }
    SettingsValues values = ApplicationData::Current().LocalSettingsValues();
    WritePlacement(values, m_window.get(), m_normalGeometry);
}

void MainWindow::TeardownOnClosed()
{
    SaveWindowPlacement();
    // No backdrop controller or dispatcher queue is kept (the system owns the
    // backdrop where there is one), so there is nothing further to close.
}

MainWindow::~MainWindow() = default;

namespace {
// "image://program/icon": the program's own icon for the title bar, drawn by
// the platform from the same artwork as the window's icons.
class ProgramIconProvider final : public QQuickImageProvider
{
public:
    ProgramIconProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

    QImage requestImage(const QString&, QSize* size, const QSize& requestedSize) override
    {
        const QImage image = WindowChrome::ProgramIcon(
            requestedSize.isValid() ? requestedSize : QSize(DefaultIconSize, DefaultIconSize));
        *size = image.size();
        return image;
    }

private:
    static constexpr int DefaultIconSize = 16;
};
} // namespace

void MainWindow::InitializeComponent(QQmlEngine& engine)
{
    if (engine.imageProvider(QStringLiteral("program")) == nullptr) {
        engine.addImageProvider(QStringLiteral("program"), new ProgramIconProvider);
    }
    QQmlComponent component(&engine, QUrl(QStringLiteral("qrc:/Zorvane/shell/MainWindow.qml")));
    std::unique_ptr<QObject> root(component.create());
    auto* window = qobject_cast<QQuickWindow*>(root.get());
    if (window == nullptr) {
        throw HResultError(HResult::Unexpected, component.errorString().toStdString());
    }
    root.release();
    m_window.reset(window);
    Connect();
}

void MainWindow::Connect()
{
    m_navView = RequireControl<NavigationView>(m_window.get(), "NavView");
    m_contentFrame = RequireControl<PageFrame>(m_window.get(), "ContentFrame");
    m_searchBox = RequireControl(m_window.get(), "SearchBox");
    m_appTitleBar = RequireControl(m_window.get(), "AppTitleBar");
    m_captionButtons = RequireControl(m_window.get(), "CaptionButtons");
    m_titleBarGrid = RequireControl<DefinitionGrid>(m_appTitleBar, "TitleBarGrid");
    m_titleText = RequireControl(m_appTitleBar, "TitleText");
    m_titleDetailText = RequireControl(m_appTitleBar, "TitleDetailText");

    connect(m_navView, &NavigationView::Loaded, this,
            [this] { RunHandler([&] { OnNavViewLoaded(); }); });
    connect(m_navView, &NavigationView::SelectionChanged, this,
            [this](QObject* item) { RunHandler([&] { OnNavSelectionChanged(item); }); });
    // textEdited comes only from the user's typing; a change made by code
    // does not reach the filter.
    connect(m_searchBox, SIGNAL(textEdited()), this, SLOT(searchTextEdited()));
}

namespace {
constexpr QSize PreferredSize{1100, 720};
} // namespace

void MainWindow::Activate()
{
    // The platform's default first size: what the window was designed for where
    // that fits, otherwise nine tenths of the available screen. Where it goes
    // is the window manager's choice where one decides. A restored placement
    // comes a moment later and wins.
    if (const QScreen* screen = m_window->screen()) {
        const QRect available = screen->availableGeometry();
        const QSize size(std::clamp(std::min(PreferredSize.width(), available.width() * 9 / 10),
                                    std::min(MinimumUsableSize.width(), available.width()),
                                    available.width()),
                         std::clamp(std::min(PreferredSize.height(), available.height() * 9 / 10),
                                    std::min(MinimumUsableSize.height(), available.height()),
                                    available.height()));
        if (m_window->handle() != nullptr) {
            // Made early (the system's icons needed its handle), the window
            // was placed for its default size: the new size goes where the
            // system places a first window, centred on the screen.
            QRect frame(QPoint(), size);
            frame.moveCenter(available.center());
            m_window->setGeometry(frame);
        } else {
            m_window->resize(size);
        }
    }
    m_window->show();
    m_window->requestActivate();
}

void MainWindow::searchTextEdited()
{
    RunHandler([&] { OnSearchTextChanged(UserInput); });
}

void MainWindow::OnNavViewLoaded()
{
    const QList<QQuickItem*>& items = m_navView->MenuItems();
    if (items.size() < 2) {
        throw HResultError(HResult::Unexpected, "no page entry at index 1");
    }
    // The first page is the entry after the heading; no earlier choice is remembered.
    if (auto* first = qobject_cast<NavigationViewItem*>(items.at(1))) {
        m_navView->setSelectedItem(first);
    }
}

void MainWindow::OnNavSelectionChanged(QObject* selectedItem)
{
    auto* item = qobject_cast<NavigationViewItem*>(selectedItem);
    if (item == nullptr) {
        return;
    }
    const QString pageType = requireString(item->Tag());
    if (pageType == m_contentFrame->CurrentSourcePageType()) {
        return;
    }
    m_contentFrame->Navigate(pageType);

    QObject* header = m_navView->Header();
    if (header == nullptr || header->metaObject()->indexOfProperty("text") < 0) {
        throw HResultError(HResult::NoInterface);
    }
    header->setProperty("text", requireString(item->Content()));
}

void MainWindow::OnSearchTextChanged(int reason)
{
    if (reason != UserInput) {
        return;
    }
    const QStringList tokens = SplitSearchText(m_searchBox->property("text").toString());
    for (QQuickItem* entry : m_navView->MenuItems()) {
        auto* item = qobject_cast<NavigationViewItem*>(entry);
        if (item == nullptr) {
            continue; // a heading is never hidden
        }
        item->setVisible(tokens.isEmpty() ||
                         MatchesAnyToken(tokens, requireString(item->Content())));
    }
}

void MainWindow::OnNavigationFailed(const QString& sourcePageType)
{
    // Swallowed on purpose: nothing is shown and the previous page stays.
    static_cast<void>(sourcePageType);
}

} // namespace Zorvane
