#include "platform/Coroutines.h"
#include "platform/DesktopColorScheme.h"
#include "platform/FileManager.h"
#include "platform/FilePicker.h"
#include "platform/FileUri.h"
#include "platform/PortalFileChooser.h"
#include "support/IsolatedConfig.h"
#include "support/Testing.h"

#include <QApplication>
#include <QCoreApplication>
#include <QFileDialog>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPalette>
#include <QPushButton>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <cmath>
#include <utility>

#ifdef Q_OS_UNIX
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>

// Stands in for the desktop portal's file chooser: keeps what it was asked,
// and answers on the request's object as the portal does, after the call.
class FakeFileChooser : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.FileChooser")

public:
    QString method;
    QVariantMap options;
    QStringList uris;  ///< the first answer
    QStringList later; ///< the answer to every later call
    int calls = 0;

public Q_SLOTS:
    QDBusObjectPath OpenFile(const QString&, const QString&, const QVariantMap& asked)
    {
        return answer(u"OpenFile"_s, asked);
    }
    QDBusObjectPath SaveFile(const QString&, const QString&, const QVariantMap& asked)
    {
        return answer(u"SaveFile"_s, asked);
    }

private:
    QDBusObjectPath answer(const QString& called, const QVariantMap& asked)
    {
        method = called;
        options = asked;
        const QString sender = message().service().mid(1).replace(u'.', u'_');
        const QString handle = u"/org/freedesktop/portal/desktop/request/"_s + sender + u'/' +
                               asked.value(u"handle_token"_s).toString();
        QDBusMessage signal =
            QDBusMessage::createSignal(handle, u"org.freedesktop.portal.Request"_s, u"Response"_s);
        signal << 0u << QVariantMap{{u"uris"_s, calls++ == 0 ? uris : later}};
        QTimer::singleShot(10, this, [bus = connection(), signal] { bus.send(signal); });
        return QDBusObjectPath(handle);
    }
};

// Stands in for the file manager's D-Bus service.
class FakeFileManager : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QStringList uris;

public Q_SLOTS:
    void ShowItems(const QStringList& shown, const QString&) { uris = shown; }
};

namespace {
// One pick with no handler installed: the portal, or the toolkit's dialog.
FireAndForget pickInto(FilePickRequest request, std::optional<QByteArray>* answer, bool* answered)
{
    *answer = co_await PickFileAsync(nullptr, request);
    *answered = true;
}

// The toolkit's window of that type that is showing, if any.
template <class Window>
Window* shown()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* window = qobject_cast<Window*>(widget); window && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}
} // namespace
#endif

class TestPlatform : public QObject
{
    Q_OBJECT

    Zorvane::Testing::IsolatedConfig m_config;

private Q_SLOTS:
    // Every text of either palette reads at 4.5:1 or more against what it is
    // drawn on: the window, the navigation pane (the window a shade darker),
    // a text box, a button, a selection; the version is drawn at 70 %.
    void readableContrast_data()
    {
        QTest::addColumn<QPalette>("palette");
        const DesktopColorScheme light; // no portal on the suite's bus: light
        QTest::newRow("light") << QGuiApplication::palette();
        QTest::newRow("dark") << DesktopColorScheme::DarkPalette();
    }

    void readableContrast()
    {
        QFETCH(QPalette, palette);
        // WCAG's relative luminance of a colour drawn at its own alpha over the background.
        const auto luminance = [](const QColor& c, const QColor& back) {
            const auto linear = [&c](float v, float b) {
                v = v * c.alphaF() + b * (1 - c.alphaF());
                return v <= 0.04045F ? v / 12.92F : std::pow((v + 0.055F) / 1.055F, 2.4F);
            };
            return 0.2126F * linear(c.redF(), back.redF()) +
                   0.7152F * linear(c.greenF(), back.greenF()) +
                   0.0722F * linear(c.blueF(), back.blueF());
        };
        using P = QPalette;
        const QColor window = palette.color(P::Window);
        QColor version = palette.color(P::WindowText);
        version.setAlphaF(0.7F);
        for (const auto& [text, back] : QList<std::pair<QColor, QColor>>{
                 {palette.color(P::WindowText), window},
                 {version, window},
                 {palette.color(P::PlaceholderText), window},
                 {palette.color(P::PlaceholderText), window.darker(104)}, // the pane
                 {palette.color(P::PlaceholderText), palette.color(P::Base)},
                 {palette.color(P::Text), palette.color(P::Base)},
                 {palette.color(P::ButtonText), palette.color(P::Button)},
                 {palette.color(P::HighlightedText), palette.color(P::Highlight)}}) {
            const float t = luminance(text, back);
            const float b = luminance(back, back);
            QVERIFY2((std::max(t, b) + 0.05F) / (std::min(t, b) + 0.05F) >= 4.5F,
                     qPrintable(text.name(QColor::HexArgb) + u" on "_s + back.name()));
        }
    }

    void cleanup()
    {
#ifdef Q_OS_UNIX
        // Whatever a fake registered goes with its connection.
        QDBusConnection::disconnectFromBus(u"fake"_s);
#endif
    }

    void fileUris_data()
    {
        QTest::addColumn<QString>("uri");
        QTest::addColumn<std::optional<QByteArray>>("path");
        const std::optional<QByteArray> none;
        QTest::newRow("escapes of any byte")
            << u"file:///%ff%2F%3F"_s << std::optional<QByteArray>("/\xff/?");
        QTest::newRow("another host") << u"file://server/a"_s << none;
        QTest::newRow("a NUL byte") << u"file:///a%00b"_s << none;
    }

    void fileUris()
    {
        QFETCH(QString, uri);
        QFETCH(std::optional<QByteArray>, path);
        QCOMPARE(LocalPathFromUri(uri), path);
    }

#ifdef Q_OS_UNIX
private:
    // A private session bus, on which a fake portal answers where a test
    // registers one.
    QProcess m_daemon;
    QByteArray m_address;

    void registerFake(QObject* fake, const QString& service = u"org.freedesktop.portal.Desktop"_s,
                      const QString& path = u"/org/freedesktop/portal/desktop"_s)
    {
        QDBusConnection bus =
            QDBusConnection::connectToBus(QString::fromUtf8(m_address), u"fake"_s);
        QVERIFY(bus.registerObject(
            path, fake, QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
        QVERIFY(bus.registerService(service));
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_daemon.start(u"dbus-daemon"_s, {QStringLiteral("--config-file=" ZORVANE_TEST_BUS_CONFIG),
                                          u"--nofork"_s, u"--print-address"_s});
        QVERIFY2(m_daemon.waitForStarted() && m_daemon.waitForReadyRead(10000), "no dbus-daemon");
        m_address = m_daemon.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_address);
    }

    void cleanupTestCase()
    {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    // The desktop's preference read at start and followed while it runs, from
    // a portal in a process of its own, as the desktop's is.
    void followsTheDesktopColorScheme()
    {
        const QColor lightWindow = QGuiApplication::palette().color(QPalette::Window);
        QProcess portal;
        portal.start(QStringLiteral(ZORVANE_FAKE_PORTAL), {u"1"_s});
        QVERIFY(portal.waitForReadyRead(10000)); // it holds the portal's name
        {
            DesktopColorScheme scheme;
            QTRY_VERIFY(scheme.IsDark());
            QCOMPARE(QGuiApplication::palette().color(QPalette::Window),
                     DesktopColorScheme::DarkPalette().color(QPalette::Window));
            portal.write("contrast 2\n"); // another setting changes nothing
            QTest::qWait(200);
            QVERIFY(scheme.IsDark());
            portal.write("2\n"); // the desktop now prefers light
            QTRY_VERIFY(!scheme.IsDark());
            QCOMPARE(QGuiApplication::palette().color(QPalette::Window), lightWindow);
        }
        portal.kill();
        portal.waitForFinished();
    }

    // Where a portal answers, its chooser is asked for the one choice of file
    // type, modal, with no name suggested; its answer is a URI whose bytes
    // reach us as they are. The answer is held to what the platform's own
    // pickers promise: a bare name that a save completes with its extension is
    // asked about where a file stands under the completed name (a "no" is a
    // cancel); an open that answers a name that does not exist asks again.
    void portalChooser_data()
    {
        QTest::addColumn<bool>("save");
        QTest::addColumn<QStringList>("answers"); ///< in turn; names in a folder of the test's
        QTest::addColumn<QString>("existing");
        QTest::addColumn<int>("reply");         ///< to the question; 0 where none may come
        QTest::addColumn<QByteArray>("picked"); ///< empty: nothing
        const int yes = QMessageBox::Yes;
        const int no = QMessageBox::No;
        // clang-format off
        QTest::newRow("a name that is not UTF-8") << true
            << QStringList{u"file:///home/u/caf%E9%20%25.crt"_s} << QString() << 0
            << QByteArray("/home/u/caf\xe9 %.crt");
        QTest::newRow("bare name onto a file, replaced") << true << QStringList{u"server"_s}
            << u"server.crt"_s << yes << QByteArray("server");
        QTest::newRow("bare name onto a file, kept") << true << QStringList{u"server"_s}
            << u"server.crt"_s << no << QByteArray();
        QTest::newRow("bare name, nothing there") << true << QStringList{u"server"_s}
            << u"server"_s << 0 << QByteArray("server");
        QTest::newRow("open, a typo asks again") << false
            << QStringList{u"data.bni"_s, u"data.bin"_s} << u"data.bin"_s << 0 << QByteArray("data.bin");
        // clang-format on
    }

    void portalChooser()
    {
        QFETCH(bool, save);
        QFETCH(QStringList, answers);
        QFETCH(QString, existing);
        QFETCH(int, reply);
        QFETCH(QByteArray, picked);
        QTemporaryDir dir;
        if (!existing.isEmpty()) {
            QVERIFY(QFile(dir.filePath(existing)).open(QIODevice::WriteOnly));
        }
        const auto uri = [&](const QString& name) {
            return name.contains(u':')
                       ? name
                       : QUrl::fromLocalFile(dir.filePath(name)).toString(QUrl::FullyEncoded);
        };
        FakeFileChooser portal;
        portal.uris = {uri(answers.first())};
        portal.later = {uri(answers.last())};
        registerFake(&portal);
        const FilePickRequest request =
            save ? FilePickRequest{FilePickRequest::Mode::Save, u"PEM"_s, {u".crt"_s}, u".crt"_s}
                 : FilePickRequest{FilePickRequest::Mode::Open, {}, {}, {}};
        std::optional<QByteArray> answer;
        bool answered = false;
        pickInto(request, &answer, &answered);
        const auto question = shown<QMessageBox>;
        QTRY_VERIFY(answered || question());
        if (reply != 0) {
            QVERIFY(question());
            QCOMPARE(question()->text(),
                     u"server.crt already exists.\nDo you want to replace it?"_s);
            question()->button(static_cast<QMessageBox::StandardButton>(reply))->click();
            QTRY_VERIFY(answered);
        }
        QVERIFY(!question());
        const QByteArray folder = QFile::encodeName(dir.path()) + '/';
        QCOMPARE(answer, picked.isEmpty()
                             ? std::nullopt
                             : std::optional(picked.startsWith('/') ? picked : folder + picked));
        QCOMPARE(portal.calls, answers.size());
        QCOMPARE(portal.method, save ? u"SaveFile"_s : u"OpenFile"_s);
        QCOMPARE(portal.options.value(u"modal"_s), QVariant(true));
        const QList<PortalFilter> pem{{u"PEM"_s, {u"*.crt"_s}}};
        QCOMPARE(qdbus_cast<QList<PortalFilter>>(portal.options.value(u"filters"_s)),
                 save ? pem : QList<PortalFilter>());
        QVERIFY(!portal.options.contains(u"current_name"_s)); // no name is suggested
    }

    // The file manager is shown the written files by URIs that keep every
    // byte of their paths.
    void revealKeepsThePathsBytes()
    {
        FakeFileManager fileManager;
        registerFake(&fileManager, u"org.freedesktop.FileManager1"_s,
                     u"/org/freedesktop/FileManager1"_s);
        FileManager::ShowItems({"/tmp/caf\xe9 #1.crt", "/tmp/caf\xe9 #1.key"});
        QTRY_COMPARE(fileManager.uris, (QStringList{u"file:///tmp/caf%E9%20%231.crt"_s,
                                                    u"file:///tmp/caf%E9%20%231.key"_s}));
    }

    // Where no portal answers, the toolkit's dialog does, and keeps nothing in
    // the user's configuration (it would write its last folder to QtProject.conf).
    void fileDialogWithoutPortalKeepsNoSettings()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(u"picked.txt"_s);
        QVERIFY(QFile(path).open(QIODevice::WriteOnly));
        std::optional<QByteArray> answer;
        bool answered = false;
        FilePickRequest request;
        request.mode = FilePickRequest::Mode::Open;
        pickInto(request, &answer, &answered);
        const auto openDialog = shown<QFileDialog>;
        QTRY_VERIFY(openDialog());
        // As a user types it: the focused name box keeps out selectFile().
        auto* name = openDialog()->findChild<QLineEdit*>(u"fileNameEdit"_s);
        QVERIFY(name);
        name->setText(path);
        QMetaObject::invokeMethod(openDialog(), "accept");
        QTRY_VERIFY(answered);
        QCOMPARE(answer, std::optional(QFile::encodeName(path)));
        QTest::qWait(50); // the dialog goes, and would save its settings
        const QString config = QString::fromLocal8Bit(qgetenv("XDG_CONFIG_HOME"));
        QCOMPARE(QDir(config).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), QStringList());
    }
#endif
};

QTEST_MAIN(TestPlatform)
#include "TestPlatform.moc"
