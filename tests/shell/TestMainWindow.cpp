#include "platform/ApplicationData.h"
#include "shell/NavigationView.h"
#include "shell/NavigationViewItem.h"
#include "shell/PageFrame.h"
#include "support/AppFixture.h"

#include <QGuiApplication>
#include <QPalette>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

// The real window, loaded offscreen and driven by mouse and keys.
class TestMainWindow : public QObject
{
    Q_OBJECT

    // Empty, as a broken install might leave it: no package identity all the same.
    Testing::InstalledManifest m_manifest{"\n"};
    Testing::AppFixture m_fixture;

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

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_fixture.start());
        m_window = m_fixture.window;
        m_navView = named<NavigationView>("NavView");
        m_frame = named<PageFrame>("ContentFrame");
        m_searchBox = named("SearchBox");
        QVERIFY(m_navView && m_frame && m_searchBox);
        QTRY_VERIFY(m_frame->Content() != nullptr);
    }

    void firstPageAtStart()
    {
        QCOMPARE(m_window->title(), u"Halvertrix Zorvane"_s);
        QCOMPARE(headerText(), u"Self-Signed Certificate"_s);
        QCOMPARE(named("YearRun")->property("text").toString(), u"2025"_s);
        // The controls draw with the program's readable palette, not the style's own.
        QCOMPARE(m_searchBox->property("placeholderTextColor").value<QColor>(),
                 QGuiApplication::palette().color(QPalette::PlaceholderText));
    }

    // Each choice of another entry makes a new page; choosing the page shown
    // keeps it. Tab reaches the entries, and Return chooses one.
    void navigation()
    {
        const QPointer<QQuickItem> first = m_frame->Content();
        m_fixture.click(entry(3));
        QCOMPARE(m_frame->CurrentSourcePageType(), u"Zorvane.OpenSslChecksumsPage"_s);
        QCOMPARE(headerText(), u"File Checksums"_s);
        m_fixture.click(entry(1));
        QTRY_VERIFY(first.isNull()); // the old page went, a new one came
        QVERIFY(m_frame->Content() != nullptr);

        const QQuickItem* page = m_frame->Content();
        QSignalSpy navigated(m_frame, &PageFrame::Navigated);
        m_fixture.app->Window()->OnNavSelectionChanged(entry(1));
        QCOMPARE(navigated.count(), 0);
        QCOMPARE(m_frame->Content(), page);

        m_searchBox->forceActiveFocus();
        QTest::keyClick(m_window, Qt::Key_Tab);
        QTest::keyClick(m_window, Qt::Key_Tab);
        QCOMPARE(m_window->activeFocusItem(), entry(2));
        QTest::keyClick(m_window, Qt::Key_Return);
        QCOMPARE(m_frame->CurrentSourcePageType(), u"Zorvane.CertSigningRequestPage"_s);
    }

    void filter_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QList<bool>>("shown"); // heading, then the three pages
        QTest::newRow("one word, any case") << u"CERT"_s << QList<bool>{true, true, true, false};
        QTest::newRow("either of two words")
            << u"request file"_s << QList<bool>{true, false, true, true};
        QTest::newRow("only a blank hides all pages")
            << u" "_s << QList<bool>{true, false, false, false};
    }

    void filter()
    {
        QFETCH(QString, typed);
        QFETCH(QList<bool>, shown);
        m_searchBox->forceActiveFocus();
        m_searchBox->setProperty("text", QString());
        Testing::typeText(m_window, typed);
        for (qsizetype i = 0; i < shown.size(); ++i) {
            QCOMPARE(m_navView->MenuItems().at(i)->isVisible(), shown[i]);
        }
        // Tab leaves the box for the first entry shown, or the next control
        // when none is: never a trap.
        QTest::keyClick(m_window, Qt::Key_Tab);
        QQuickItem* focus = m_window->activeFocusItem();
        QVERIFY(focus && focus != m_searchBox && focus->isVisible());
        if (const qsizetype firstShown = shown.indexOf(true, 1); firstShown > 0) {
            QCOMPARE(focus, entry(static_cast<int>(firstShown)));
        }
    }

    // A press in the title bar's drag area is not yet a move: the move starts
    // once the pointer travels, so that a double click can arrive.
    void titleBarDrag()
    {
        int moves = 0;
        MainWindow::SetSystemMoveHandler([&](QWindow*) {
            ++moves;
            return true;
        });
        QTRY_VERIFY(m_fixture.app->Window()->DragRects()[4].width > 0);
        const DragRectangle area = m_fixture.app->Window()->DragRects()[4];
        const QPoint centre(area.x + area.width / 2, area.y + area.height / 2);
        QTest::mousePress(m_window, Qt::LeftButton, {}, centre);
        QTest::mouseMove(m_window, centre + QPoint(1, 0)); // within the drag distance
        QCOMPARE(moves, 0);
        QTest::mouseMove(m_window, centre + QPoint(30, 0));
        QCOMPARE(moves, 1);
        QTest::mouseRelease(m_window, Qt::LeftButton, {}, centre + QPoint(30, 0));
        MainWindow::SetSystemMoveHandler({});
    }

    // The caption buttons answer an assistive tool's press; closing without
    // package identity stores nothing.
    void closingWithoutPackageIdentityStoresNothing()
    {
        QVERIFY(Testing::accessiblePress(named<QQuickItem>("MaximizeButton")));
        QTRY_VERIFY(m_window->windowStates().testFlag(Qt::WindowMaximized));
        QVERIFY(Testing::accessiblePress(named<QQuickItem>("CloseButton")));
        QTRY_VERIFY(!m_window->isVisible());
        QVERIFY(!QFile::exists(ApplicationData::Current().LocalSettingsValues().filePath()));
    }
};

QTEST_MAIN(TestMainWindow)
#include "TestMainWindow.moc"
