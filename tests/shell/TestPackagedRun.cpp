#include "checksums/ChecksumSelection.h"
#include "checksums/HashAlgoVector.h"
#include "checksums/OpenSslChecksumsPage.h"
#include "platform/ApplicationData.h"
#include "platform/FilePicker.h"
#include "platform/Package.h"
#include "shell/App.h"
#include "shell/MainWindow.h"
#include "shell/NavigationView.h"
#include "shell/PageFrame.h"
#include "support/IsolatedConfig.h"
#include "support/Testing.h"

#include <QApplication>
#include <QCoreApplication>
#include <QQuickWindow>
#include <QScreen>
#include <QTimer>
#include <QtQml/qqmlextensionplugin.h>

#include <cstdio>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

// A run of the installed program (its manifest in place): the window's
// placement is saved at close and applied at the next start.
class TestPackagedRun : public QObject
{
    Q_OBJECT

    Zorvane::Testing::IsolatedConfig m_config;
    Zorvane::Testing::InstalledManifest m_manifest{Package::FamilyName.toUtf8()};

private Q_SLOTS:
    // Closing the window ends the process at once with 0, whatever runs: a
    // checksum run over a file that would take minutes does not hold it, and
    // the placement is saved first.
    void closingDuringARunEndsTheProcess()
    {
        QFile::remove(ApplicationData::Current().LocalSettingsValues().filePath());
        QTemporaryDir dir;
        QFile big(dir.filePath(u"big"_s));
        QVERIFY(big.open(QIODevice::WriteOnly) && big.resize(qint64(8) << 30)); // sparse
        big.close();
        QProcess child;
        child.setProcessChannelMode(QProcess::ForwardedErrorChannel); // only its lines are read
        child.start(QCoreApplication::applicationFilePath(),
                    {u"--close-during-run"_s, big.fileName()});
        QVERIFY(child.waitForStarted());
        QVERIFY(child.waitForReadyRead(60000) && child.readLine().startsWith("closing"));
        const bool ended = child.waitForFinished(5000);
        if (!ended) {
            child.kill();
            child.waitForFinished();
        }
        QVERIFY2(ended, "still running after its window closed");
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QCOMPARE(child.exitCode(), 0);
#ifdef Q_OS_WIN
        // Where nothing takes room from the screen (no task bar, as in the lane's
        // virtual display), a frameless window maximised covers all of it, which
        // the toolkit takes for full screen: the system then keeps no normal size.
        const QScreen* screen = QGuiApplication::primaryScreen();
        if (screen->availableGeometry() == screen->geometry()) {
            QSKIP("nothing takes room from the screen: maximised is full screen");
        }
#endif
        // Saved at the close, restored at the next start, and saved as it was
        // at the next close, which comes while the window is maximised again.
        QCOMPARE(runSelf({u"--restart"_s}).exitCode, 0);
        const QVariantMap stored =
            ApplicationData::Current().LocalSettingsValues().Lookup(u"WindowPlacement"_s).toMap();
        QCOMPARE(stored.value(u"rcNormalPosition"_s).toRectF(), QRectF(30, 40, 700, 500));
        QCOMPARE(stored.value(u"showCmd"_s), QVariant::fromValue(3u));
    }

    // The program reads no command line: not even Qt's own options take effect.
    void commandLineHasNoEffect()
    {
        QProcess program;
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(QStringLiteral(ZORVANE_PROGRAM),
                      {u"-platform"_s, u"no-such-platform"_s, u"-qwindowtitle"_s, u"X"_s});
        QVERIFY(program.waitForStarted());
        // A Qt that read "-platform" ends at once for want of the plugin.
        QVERIFY2(!program.waitForFinished(3000), program.readAll().constData());
        program.kill();
        program.waitForFinished();
    }
};

// "--close-during-run FILE": the program as main() runs it; the checksum page
// hashes FILE with every digest, and the window is moved, maximised and closed
// while it does.
static int closeDuringRun(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QString file = QString::fromLocal8Bit(argv[2]);
    SetFilePickHandler([file](QWindow*, const FilePickRequest&, FilePickDone done) {
        done(QFile::encodeName(file));
    });
    QTimer driver;
    int step = 0;
    QObject::connect(&driver, &QTimer::timeout, [&] {
        QQuickWindow* window = App::Current() ? App::Current()->Window()->Window() : nullptr;
        auto* frame = window ? window->findChild<PageFrame*>(u"ContentFrame"_s) : nullptr;
        auto* page = frame ? qobject_cast<OpenSslChecksumsPage*>(frame->Content()) : nullptr;
        if (step == 0 && frame != nullptr && frame->Content() != nullptr) { // the first page is in
            auto* nav = window->findChild<NavigationView*>(u"NavView"_s);
            nav->setSelectedItem(nav->MenuItems().at(3));
            step = 1;
        } else if (step == 1 && page != nullptr) {
            ChecksumSelection::SelectAllClick(*page->ViewModel());
            page->SelectFileClick();
            step = 2;
        } else if (step == 2 && page != nullptr && page->state() == u"InProgress"_s &&
                   !page->ViewModel()->HashAlgos()->items().isEmpty()) {
            window->setGeometry(30, 40, 700, 500);
            step = 3;
        } else if (step == 3 &&
                   App::Current()->Window()->NormalGeometry() == QRect(30, 40, 700, 500)) {
            window->showMaximized(); // closed maximised, the normal size is kept
            step = 4;
        } else if (step == 4 && (window->windowStates() & // or full screen: see the test
                                 (Qt::WindowMaximized | Qt::WindowFullScreen))) {
            std::puts("closing");
            std::fflush(stdout);
            window->close();
            step = 5;
        }
    });
    driver.start(20);
    return App::Run();
}

// "--restart": the program as main() runs it, closed once its placement has landed.
static int restart(int argc, char** argv)
{
    QApplication application(argc, argv);
    QTimer::singleShot(1500, [] { App::Current()->Window()->Window()->close(); });
    return App::Run();
}

int main(int argc, char** argv)
{
    return testMain<TestPackagedRun, QApplication>(
        argc, argv, {{"--close-during-run", closeDuringRun}, {"--restart", restart}});
}
#include "TestPackagedRun.moc"
