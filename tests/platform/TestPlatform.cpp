#include "ApplicationData.h"
#include "CaretBlink.h"
#include "Coroutines.h"
#include "DesktopColorScheme.h"
#include "FilePicker.h"
#include "HResultError.h"
#include "IsolatedConfig.h"
#include "Package.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusVariant>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointF>
#include <QProcess>
#include <QRectF>
#include <QSettings>
#include <QSignalSpy>
#include <QStyleHints>
#include <QTemporaryDir>
#include <QTest>

using namespace Zorvane;
using namespace Qt::StringLiterals;

// Stands in for the desktop portal's settings: a color-scheme to read, and
// its change signal.
class FakePortalSettings : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    uint scheme = 0;

public Q_SLOTS:
    QDBusVariant Read(const QString& group, const QString& key)
    {
        const bool known = group == u"org.freedesktop.appearance"_s && key == u"color-scheme"_s;
        // As the portal does: the value in one variant more.
        return QDBusVariant(QVariant::fromValue(QDBusVariant(known ? scheme : 0u)));
    }

Q_SIGNALS:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);
};

namespace {
// One pick through the toolkit's own dialog.
FireAndForget pickInto(std::optional<QString>* answer, bool* answered)
{
    FilePickRequest request;
    request.mode = FilePickRequest::Mode::Open;
    *answer = co_await PickFileAsync(nullptr, request);
    *answered = true;
}
} // namespace

class TestPlatform : public QObject
{
    Q_OBJECT

    static QString manifestPath()
    {
        return QDir(QCoreApplication::applicationDirPath()).filePath(Package::ManifestRelativePath);
    }

    Zorvane::Testing::IsolatedConfig m_config;

private Q_SLOTS:
    // The desktop's preference read at start and followed while running, on a
    // private session bus: none without a portal, dark and light from a fake.
    void followsTheDesktopColorScheme()
    {
        QProcess daemon;
        daemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        QVERIFY2(daemon.waitForStarted() && daemon.waitForReadyRead(10000), "no dbus-daemon");
        const QByteArray address = daemon.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        const QColor lightWindow = QGuiApplication::palette().color(QPalette::Window);
        {
            DesktopColorScheme scheme; // nobody answers: light
            QTest::qWait(300);
            QVERIFY(!scheme.IsDark());
        }

        QDBusConnection fake = QDBusConnection::connectToBus(QString::fromUtf8(address), u"fake"_s);
        FakePortalSettings portal;
        portal.scheme = 1; // prefer dark
        QVERIFY(fake.registerObject(u"/org/freedesktop/portal/desktop"_s, &portal,
                                    QDBusConnection::ExportAllSlots |
                                        QDBusConnection::ExportAllSignals));
        QVERIFY(fake.registerService(u"org.freedesktop.portal.Desktop"_s));
        {
            DesktopColorScheme scheme;
            QTRY_VERIFY(scheme.IsDark());
            QCOMPARE(QGuiApplication::palette().color(QPalette::Window),
                     DesktopColorScheme::DarkPalette().color(QPalette::Window));
            const auto change = [&](const QString& key, uint value) {
                Q_EMIT portal.SettingChanged(u"org.freedesktop.appearance"_s, key,
                                             QDBusVariant(QVariant::fromValue(value)));
            };
            change(u"contrast"_s, 2); // another setting changes nothing
            QTest::qWait(100);
            QVERIFY(scheme.IsDark());
            change(u"color-scheme"_s, 2); // prefer light
            QTRY_VERIFY(!scheme.IsDark());
            QCOMPARE(QGuiApplication::palette().color(QPalette::Window), lightWindow);
        }
        fake.unregisterService(u"org.freedesktop.portal.Desktop"_s);
        QDBusConnection::disconnectFromBus(u"fake"_s);
        daemon.kill();
        daemon.waitForFinished();
    }

    // The toolkit's dialog answers, and keeps nothing in the user's
    // configuration (it would write its last folder to QtProject.conf).
    void fileDialogKeepsNoSettings()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(u"picked.txt"_s);
        QFile(path).open(QIODevice::WriteOnly);
        std::optional<QString> answer;
        bool answered = false;
        pickInto(&answer, &answered);
        const auto openDialog = [] {
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                if (auto* dialog = qobject_cast<QFileDialog*>(widget);
                    dialog && dialog->isVisible()) {
                    return dialog;
                }
            }
            return static_cast<QFileDialog*>(nullptr);
        };
        QTRY_VERIFY(openDialog());
        openDialog()->selectFile(path);
        QMetaObject::invokeMethod(openDialog(), "accept");
        QTRY_VERIFY(answered);
        QCOMPARE(answer, std::optional<QString>(path));
        QTest::qWait(50); // the dialog goes, and would save its settings
        const QString config = QString::fromLocal8Bit(qgetenv("XDG_CONFIG_HOME"));
        QCOMPARE(QDir(config).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), QStringList());
    }

    // The caret rests once nothing happens, so that an idle window draws
    // nothing, and blinks again at the next key.
    void caretRestsWhenIdle()
    {
        QStyleHints* hints = QGuiApplication::styleHints();
        const int flashTime = hints->cursorFlashTime();
        QVERIFY(flashTime > 0);
        {
            CaretBlink blink(nullptr, 50);
            QTRY_COMPARE(hints->cursorFlashTime(), 0);
            QObject receiver;
            QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, u"a"_s);
            QCoreApplication::sendEvent(&receiver, &key);
            QCOMPARE(hints->cursorFlashTime(), flashTime);
            QTRY_COMPARE(hints->cursorFlashTime(), 0);
        }
        QCOMPARE(hints->cursorFlashTime(), flashTime);
    }

    // The manifest sits where a program run from the build tree would look too:
    // leave nothing behind.
    void cleanup()
    {
        QFile::remove(manifestPath());
        QDir().rmpath(QFileInfo(manifestPath()).path());
    }

    void packageIdentity_data()
    {
        QTest::addColumn<bool>("present");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("noPackageIdentity");
        QTest::newRow("no manifest: no identity") << false << QByteArray() << true;
        QTest::newRow("empty manifest: no identity") << true << QByteArray("\n") << true;
        QTest::newRow("installed")
            << true << QByteArray("Halvertrix.Zorvane_m4kq8wzr2p7ny\n") << false;
    }

    void packageIdentity()
    {
        QFETCH(bool, present);
        QFETCH(QByteArray, content);
        QFETCH(bool, noPackageIdentity);
        if (present) {
            QVERIFY(QDir().mkpath(QFileInfo(manifestPath()).path()));
            QFile manifest(manifestPath());
            QVERIFY(manifest.open(QIODevice::WriteOnly));
            manifest.write(content);
        }
        QCOMPARE(Package::DetectNoPackageIdentity(), noPackageIdentity);
        if (noPackageIdentity) {
            try {
                Package::Current();
                QFAIL("a missing identity must raise");
            } catch (const HResultError& error) {
                QCOMPARE(error.code(), HResult::NoPackage);
            }
        } else {
            QCOMPARE(Package::Current(), Package::FamilyName);
        }
    }

    void settingsKeepTypes()
    {
        QTemporaryDir dir;
        const QString file = dir.filePath(u"LocalSettings.ini"_s);
        const QVariantMap placement{{u"showCmd"_s, QVariant::fromValue(3u)},
                                    {u"ptMinPosition"_s, QPointF(-1.5, 2)},
                                    {u"rcNormalPosition"_s, QRectF(10.25, -20, 800, 600)}};
        {
            SettingsValues values(file);
            values.Insert(u"WindowPlacement"_s, placement);
            values.Insert(u"ChosenAlgorithms"_s, u"SHA1,MD5"_s);
            values.Insert(u"Number"_s, 42);
        }
        const SettingsValues reread(file); // a new reader, from disk
        QCOMPARE(reread.Lookup(u"WindowPlacement"_s), QVariant(placement));
        QCOMPARE(reread.Lookup(u"WindowPlacement"_s).toMap().value(u"showCmd"_s).typeId(),
                 QMetaType::UInt);
        QCOMPARE(reread.Lookup(u"ChosenAlgorithms"_s).typeId(), QMetaType::QString);
        QCOMPARE(reread.Lookup(u"Number"_s).typeId(), QMetaType::Int);
        QVERIFY(!reread.Lookup(u"Missing"_s).isValid());

        // A value typed into the file by hand reads as the text it is.
        QSettings(file, QSettings::IniFormat).setValue(u"Hand"_s, u"MD5"_s);
        QCOMPARE(reread.Lookup(u"Hand"_s), QVariant(u"MD5"_s));
    }
};

QTEST_MAIN(TestPlatform)
#include "TestPlatform.moc"
