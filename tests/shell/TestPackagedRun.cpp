#include "App.h"
#include "ApplicationData.h"
#include "ChecksumSelection.h"
#include "DefinitionGrid.h"
#include "IsolatedConfig.h"
#include "MainWindow.h"
#include "NavigationView.h"
#include "OpenSslChecksumsPage.h"
#include "Package.h"
#include "PageFrame.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStandardPaths>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>

#include <memory>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

using namespace Zorvane;
using namespace Qt::StringLiterals;

// A run of the installed program (its manifest in place): the window's
// placement is saved at close and applied at the next start.
class TestPackagedRun : public QObject
{
    Q_OBJECT

    Zorvane::Testing::IsolatedConfig m_config;

    static QString manifestPath()
    {
        return QDir(QCoreApplication::applicationDirPath()).filePath(Package::ManifestRelativePath);
    }

private Q_SLOTS:
    void initTestCase()
    {
        QFile::remove(ApplicationData::Current().LocalSettingsValues().filePath());
        QVERIFY(QDir().mkpath(QFileInfo(manifestPath()).path()));
        QFile manifest(manifestPath());
        QVERIFY(manifest.open(QIODevice::WriteOnly));
        manifest.write(Package::FamilyName.toUtf8());
    }

    void cleanupTestCase()
    {
        QFile::remove(manifestPath());
        QDir().rmpath(QFileInfo(manifestPath()).path());
    }

    void placementSurvivesARestart()
    {
        {
            App app;
            QVERIFY(!app.NoPackageIdentity());
            app.OnLaunched();
            QQuickWindow* window = app.Window()->Window();
            QVERIFY(QTest::qWaitForWindowExposed(window));
            window->setGeometry(30, 40, 700, 500);
            QTRY_COMPARE(app.Window()->NormalGeometry(), QRect(30, 40, 700, 500));
            window->close();
        }
        const QVariantMap stored =
            ApplicationData::Current().LocalSettingsValues().Lookup(u"WindowPlacement"_s).toMap();
        QCOMPARE(stored.value(u"rcNormalPosition"_s), QVariant(QRectF(30, 40, 700, 500)));
        QCOMPARE(stored.value(u"showCmd"_s).typeId(), QMetaType::UInt);

        App app;
        app.OnLaunched();
        QQuickWindow* window = app.Window()->Window();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QTRY_COMPARE(window->geometry(), QRect(30, 40, 700, 500));
    }

    void chosenDigestsSurviveLeavingThePage()
    {
        App app;
        app.OnLaunched();
        QQuickWindow* window = app.Window()->Window();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        auto* nav = window->findChild<NavigationView*>(u"NavView"_s);
        auto* frame = window->findChild<PageFrame*>(u"ContentFrame"_s);
        const auto chosen = [&] {
            auto* page = qobject_cast<OpenSslChecksumsPage*>(frame->Content());
            return page ? page->ViewModel()->HashAlgos()->items() : QList<HashAlgo*>{};
        };

        nav->setSelectedItem(nav->MenuItems().at(3));
        QTRY_VERIFY(qobject_cast<OpenSslChecksumsPage*>(frame->Content()));
        auto* page = qobject_cast<OpenSslChecksumsPage*>(frame->Content());
        ChecksumSelection::ApplyStoredNames(*page->ViewModel(), u"SHA1,MD5"_s);

        nav->setSelectedItem(nav->MenuItems().at(1)); // unloaded: saved
        QCOMPARE(ApplicationData::Current().LocalSettingsValues().Lookup(u"ChosenAlgorithms"_s),
                 QVariant(u"SHA1,MD5"_s));
        nav->setSelectedItem(nav->MenuItems().at(3)); // loaded: the stored order
        QTRY_COMPARE(chosen().size(), 2);
        QCOMPARE(chosen().at(0)->ShortName(), u"SHA1"_s);
        QVERIFY(chosen().at(1)->Checked());
        window->close();
    }

    void chrome()
    {
        App app;
        app.OnLaunched();
        MainWindow& main = *app.Window();
        QQuickWindow* window = main.Window();
        QVERIFY(QTest::qWaitForWindowExposed(window));

        // The caption buttons' width is the right inset, and its column holds it.
        auto* captions = window->findChild<QQuickItem*>(u"CaptionButtons"_s);
        auto* grid = window->findChild<DefinitionGrid*>(u"TitleBarGrid"_s);
        QTRY_COMPARE(grid->ActualColumnWidths().value(6), captions->width());
        QCOMPARE(main.RightInset(), int(captions->width()));
        // The first rectangle starts the drag area at the left edge.
        QTRY_VERIFY(main.DragRects()[0].width > 0);
        QVERIFY(main.DragRects()[0].contains(1, 1));

        auto* title = window->findChild<QObject*>(u"TitleText"_s);
        auto* detail = window->findChild<QObject*>(u"TitleDetailText"_s);
        main.OnWindowActivated(false);
        const QVariant inactive = app.Resources().value(u"WindowCaptionForegroundDisabled"_s);
        QCOMPARE(title->property("color"), inactive);
        QCOMPARE(detail->property("color"), inactive);
        main.OnWindowActivated(true);
        QCOMPARE(title->property("color"), app.Resources().value(u"WindowCaptionForeground"_s));

        const QList<QSize> sizes = window->icon().availableSizes();
        QVERIFY(sizes.contains(QSize(16, 16)) && sizes.contains(QSize(32, 32)));
        window->close();
    }
};

QTEST_MAIN(TestPackagedRun)
#include "TestPackagedRun.moc"
