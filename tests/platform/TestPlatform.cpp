#include "ApplicationData.h"
#include "CaretBlink.h"
#include "Coroutines.h"
#include "FilePicker.h"
#include "HResultError.h"
#include "IsolatedConfig.h"
#include "Package.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointF>
#include <QRectF>
#include <QSettings>
#include <QStyleHints>
#include <QTemporaryDir>
#include <QTest>

using namespace Zorvane;
using namespace Qt::StringLiterals;

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
