#include "platform/ApplicationData.h"
#include "platform/DesktopColorScheme.h"
#include "platform/HResultError.h"
#include "presentation/DefinitionGrid.h"
#include "selfsigned/SelfSignedCertPage.h"
#include "shell/ActivationFactory.h"
#include "shell/App.h"
#include "shell/MainWindow.h"
#include "shell/NavigationView.h"
#include "shell/NavigationViewItem.h"
#include "shell/PageFrame.h"
#include "support/AppFixture.h"
#include "support/Testing.h"
#include "support/WindowDriver.h"

#include <QGuiApplication>
#include <QPalette>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlProperty>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

// The real window, loaded offscreen and driven by mouse and keys.
class TestMainWindow : public QObject
{
    Q_OBJECT

    Testing::AppFixture m_fixture;

    App* m_app = nullptr;
    QQuickWindow* m_window = nullptr;
    NavigationView* m_navView = nullptr;
    PageFrame* m_frame = nullptr;
    QQuickItem* m_searchBox = nullptr;

    template <class T = QQuickItem>
    T* named(const char* name) const
    {
        return m_window->findChild<T*>(QLatin1String(name));
    }

    NavigationViewItem* entry(int index) const
    {
        return qobject_cast<NavigationViewItem*>(m_navView->MenuItems().at(index));
    }

    QString headerText() const { return m_navView->Header()->property("text").toString(); }

    void click(QQuickItem* item) { Testing::clickItem(m_window, item); }

    QList<bool> entriesShown() const
    {
        QList<bool> shown;
        for (QQuickItem* item : m_navView->MenuItems()) {
            shown << item->isVisible();
        }
        return shown;
    }

private Q_SLOTS:
    void initTestCase()
    {
        QFile::remove(ApplicationData::Current().LocalSettingsValues().filePath());
        QVERIFY(m_fixture.start());
        m_app = m_fixture.app.get();
        QVERIFY(m_app->NoPackageIdentity()); // a test binary has no installed manifest
        m_window = qobject_cast<QQuickWindow*>(m_app->MainWindowHandle());
        QCOMPARE(m_window, m_fixture.window);
        // The first size fits the screen (800 x 800 offscreen), whatever the
        // window was designed for; the fixture then takes the wide layout.
        QCOMPARE(m_fixture.firstSize, QSize(720, 720));
        m_navView = named<NavigationView>("NavView");
        m_frame = named<PageFrame>("ContentFrame");
        m_searchBox = named("SearchBox");
        QVERIFY(m_navView && m_frame && m_searchBox);
        QTRY_VERIFY(m_frame->Content() != nullptr);
    }

    void firstPageAtStart()
    {
        QCOMPARE(m_window->title(), u"Halvertrix Zorvane"_s);
        QCOMPARE(m_navView->SelectedItem(), entry(1));
        QCOMPARE(m_frame->CurrentSourcePageType(), u"Zorvane.SelfSignedCertPage"_s);
        auto* page = qobject_cast<SelfSignedCertPage*>(m_frame->Content());
        QVERIFY(page && page->ViewModel());
        QCOMPARE(headerText(), u"Self-Signed Certificate"_s);
        QCOMPARE(named("YearRun")->property("text").toString(), u"2025"_s);
        QCOMPARE(named("CompanyRun")->property("text").toString(),
                 u"Halvertrix Technologies Limited"_s);
        QVERIFY(!m_navView->IsSettingsVisible());
    }

    void navigationMakesANewPageEachTime()
    {
        const QPointer<QQuickItem> first = m_frame->Content();
        click(entry(3));
        QCOMPARE(m_frame->CurrentSourcePageType(), u"Zorvane.OpenSslChecksumsPage"_s);
        QCOMPARE(headerText(), u"File Checksums"_s);
        QVERIFY(entry(3)->IsSelected() && !entry(1)->IsSelected());

        click(entry(1));
        QCOMPARE(m_frame->CurrentSourcePageType(), u"Zorvane.SelfSignedCertPage"_s);
        QTRY_VERIFY(first.isNull()); // the old page went, a new one came
        QVERIFY(m_frame->Content() != nullptr);
    }

    void choosingThePageOnShowOrAMissingPageKeepsIt()
    {
        const QQuickItem* page = m_frame->Content();
        m_navView->Header()->setProperty("text", u"unchanged"_s);
        QSignalSpy navigated(m_frame, &PageFrame::Navigated);
        m_app->Window()->OnNavSelectionChanged(entry(1));
        QCOMPARE(navigated.count(), 0);
        QCOMPARE(m_frame->Content(), page);
        QCOMPARE(headerText(), u"unchanged"_s);
        m_navView->Header()->setProperty("text", u"Self-Signed Certificate"_s);

        // A page that cannot be made keeps the page shown.
        QSignalSpy failed(m_frame, &PageFrame::NavigationFailed);
        QVERIFY(!m_frame->Navigate(u"Zorvane.NoSuchPage"_s));
        QCOMPARE(failed.count(), 1);
        QCOMPARE(m_frame->Content(), page);
    }

    void filter_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QList<bool>>("shown"); // heading, then the three pages

        QTest::newRow("one word, any case") << u"CERT"_s << QList<bool>{true, true, true, false};
        QTest::newRow("either of two words")
            << u"request file"_s << QList<bool>{true, false, true, true};
        QTest::newRow("trailing blank changes nothing")
            << u"cert "_s << QList<bool>{true, true, true, false};
        QTest::newRow("only a blank hides all pages")
            << u" "_s << QList<bool>{true, false, false, false};
        QTest::newRow("no match") << u"zzz"_s << QList<bool>{true, false, false, false};
    }

    void filter()
    {
        QFETCH(QString, typed);
        QFETCH(QList<bool>, shown);
        m_searchBox->forceActiveFocus();
        m_searchBox->setProperty("text", typed); // by code: no filtering
        QCOMPARE(entriesShown(), (QList<bool>{true, true, true, true}));
        m_searchBox->setProperty("text", QString());
        Testing::typeText(m_window, typed);
        QCOMPARE(entriesShown(), shown);

        // Emptying the box by typing shows every entry again.
        for (qsizetype i = 0; i < typed.size(); ++i) {
            QTest::keyClick(m_window, Qt::Key_Backspace);
        }
        QCOMPARE(entriesShown(), (QList<bool>{true, true, true, true}));
    }

    void paneToggleShowsWhilePaneIsClosed()
    {
        QVERIFY(m_navView->IsPaneOpen());
        QVERIFY(!m_navView->IsPaneToggleButtonVisible());
        m_window->resize(800, 600);
        QTRY_VERIFY(!m_navView->IsPaneOpen());
        QVERIFY(m_navView->IsPaneToggleButtonVisible());
        QQuickItem* toggle = named("PaneToggleButton");
        QTRY_VERIFY(toggle->isVisible() && toggle->width() > 0);         // laid out
        QTRY_VERIFY(named("NavPane")->x() < -named("NavPane")->width()); // slid away
        click(toggle);
        QVERIFY(m_navView->IsPaneOpen());
        QVERIFY(!m_navView->IsPaneToggleButtonVisible());
        m_window->resize(1100, 720);
        QTRY_VERIFY(m_navView->IsPaneOpen());
    }

    void keyboardReachesTheEntries()
    {
        m_searchBox->forceActiveFocus();
        QTest::keyClick(m_window, Qt::Key_Tab);
        QCOMPARE(m_window->activeFocusItem(), entry(1));
        QTest::keyClick(m_window, Qt::Key_Tab);
        QCOMPARE(m_window->activeFocusItem(), entry(2));
        QTest::keyClick(m_window, Qt::Key_Return);
        QCOMPARE(m_frame->CurrentSourcePageType(), u"Zorvane.CertSigningRequestPage"_s);
    }

    // A press in the title bar's drag area is not yet a move: the move starts
    // once the pointer travels, so a double click always arrives, and it
    // toggles maximised and restored, every time.
    void titleBarDragAndDoubleClick()
    {
        int moves = 0;
        MainWindow::SetSystemMoveHandler([&](QWindow*) {
            ++moves;
            return true;
        });
        QTRY_VERIFY(m_app->Window()->DragRects()[4].width > 0);
        const DragRectangle area = m_app->Window()->DragRects()[4];
        const QPoint centre(area.x + area.width / 2, area.y + area.height / 2);
        QTest::mousePress(m_window, Qt::LeftButton, {}, centre);
        QCOMPARE(moves, 0);
        QTest::mouseMove(m_window, centre + QPoint(1, 0)); // within the drag distance
        QCOMPARE(moves, 0);
        QTest::mouseMove(m_window, centre + QPoint(30, 0));
        QCOMPARE(moves, 1);
        QTest::mouseRelease(m_window, Qt::LeftButton, {}, centre + QPoint(30, 0));
        for (const bool maximised : {true, false, true, false}) {
            QTest::qWait(50); // the title bar lays out for the new size
            const DragRectangle left = m_app->Window()->DragRects()[0];
            QTest::mouseDClick(m_window, Qt::LeftButton, {},
                               QPoint(left.x + left.width / 2, left.y + left.height / 2));
            QTRY_COMPARE(m_window->windowStates().testFlag(Qt::WindowMaximized), maximised);
        }
        QCOMPARE(moves, 1);
        MainWindow::SetSystemMoveHandler({});
    }

    void closingWithoutPackageIdentityStoresNothing()
    {
        // The caption buttons answer an assistive tool's press.
        auto* maximize = named<QQuickItem>("MaximizeButton");
        auto* frame = named<QQuickItem>("WindowFrame");
        const auto frameWidth = [&] {
            return QQmlProperty::read(frame, u"border.width"_s).toInt();
        };
        QCOMPARE(frameWidth(), 1);
        QVERIFY(Testing::accessiblePress(maximize));
        QTRY_VERIFY(m_window->windowStates().testFlag(Qt::WindowMaximized));
        QCOMPARE(frameWidth(), 0); // no frame while maximised
        QVERIFY(Testing::accessiblePress(maximize));
        QTRY_VERIFY(!m_window->windowStates().testFlag(Qt::WindowMaximized));
        QCOMPARE(frameWidth(), 1);
        QVERIFY(Testing::accessiblePress(named<QQuickItem>("CloseButton")));
        QTRY_VERIFY(!m_window->isVisible());
        QVERIFY(!QFile::exists(ApplicationData::Current().LocalSettingsValues().filePath()));
    }

    void searchWords_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("tokens");
        QTest::newRow("empty") << QString() << QStringList{};
        QTest::newRow("two blanks keep an empty word")
            << u"a  b"_s << QStringList{u"a"_s, QString(), u"b"_s};
        QTest::newRow("tab and line end separate")
            << u"a\tb\n"_s << QStringList{u"a"_s, u"b"_s, QString()};
        QTest::newRow("a lone blank is two empty words")
            << u" "_s << QStringList{QString(), QString()};
    }

    void searchWords()
    {
        QFETCH(QString, text);
        QFETCH(QStringList, tokens);
        QCOMPARE(SplitSearchText(text), tokens);
        QVERIFY(!MatchesAnyToken({QString()}, u"anything"_s));
    }

    // A page resolves the controls its code uses once, as its markup loads: a
    // markup without one ends the process there, not in a later handler.
    void pageMarkupWithoutItsControls_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("control");
        QTest::newRow("self-signed") << u"SelfSignedCertPage"_s << u"CommonNameCtrl"_s;
        QTest::newRow("request") << u"CertSigningRequestPage"_s << u"CommonNameCtrl"_s;
        QTest::newRow("checksums") << u"OpenSslChecksumsPage"_s << u"FileButton"_s;
        QTest::newRow("checksums, a control without text")
            << u"OpenSslChecksumsPage { Item { objectName: \"FileButton\" }\n"
               u" Item { objectName: \"fileNameBox\" } }"_s
            << u"text in control fileNameBox"_s;
    }

    void pageMarkupWithoutItsControls()
    {
        QFETCH(QString, page);
        QFETCH(QString, control);
        const ChildRun child = runSelf({u"--load"_s, page});
        QVERIFY2(child.crashed && child.output.contains(u"fail-fast 0x80004002: "_s) &&
                     child.output.contains(control),
                 qPrintable(child.output));
    }
};

// "--load MARKUP": a page's root type with the markup given, loaded alone.
static int loadMarkup(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    QQmlEngine engine;
    QQmlComponent component(&engine);
    const QByteArray markup(argv[2]);
    component.setData("import QtQuick\nimport Zorvane\n" +
                          (markup.contains('{') ? markup : markup + " {}"),
                      QUrl());
    std::unique_ptr<QObject> page(component.create());
    qWarning() << "loaded" << component.errorString();
    return 0;
}

int main(int argc, char** argv)
{
    return testMain<TestMainWindow, QGuiApplication>(argc, argv, {{"--load", loadMarkup}});
}
#include "TestMainWindow.moc"
