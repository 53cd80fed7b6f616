#include "checksums/OpenSslChecksumsPage.h"
#include "platform/Clipboard.h"
#include "support/AppFixture.h"
#include "support/OpenSslReader.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QtQml/qqmlextensionplugin.h>

#include <unistd.h>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

// The checksum page in the real window, driven by the mouse, with the picker
// answered by the test.
class TestChecksumPage : public QObject
{
    Q_OBJECT

    AppFixture m_app;
    QString m_file;

    OpenSslChecksumsPage* page() const { return qobject_cast<OpenSslChecksumsPage*>(m_app.page()); }
    void open() { QVERIFY(m_app.open(3, u"FileButton"_s)); }
    void clickAndWait(QQuickItem* target)
    {
        actAndWait([&] { m_app.click(target); });
    }
    void actAndWait(const std::function<void()>& action)
    {
        QVERIFY(!m_app.statesDuring(action).contains(u"(timed out)"_s));
    }

    QString expected(const QString& digest) const { return opensslDigest(digest, m_file); }

private Q_SLOTS:
    void initTestCase()
    {
        m_file = m_app.dir.filePath(u"data.bin"_s);
        QFile data(m_file);
        QVERIFY(data.open(QIODevice::WriteOnly));
        data.write(QByteArray(1234567, 'z'));
        data.close();
        QVERIFY(m_app.start());
    }

    void pickTickUntick()
    {
        open();
        // The same file under a name that is not UTF-8: its bytes reach open(2).
        // (On Windows, one that no ANSI code page spells, as UTF-8 as the
        // picker gives it, reaches CreateFileW.)
#ifdef Q_OS_WIN
        const QString shown = m_app.dir.filePath(u"data \u20ac\u4e2d.bin"_s);
        m_app.answer = shown.toUtf8();
        QVERIFY(QFile::copy(m_file, shown));
#else
        const QString shown = m_app.dir.filePath(u"data \ufffd.bin"_s);
        m_app.answer = QFile::encodeName(m_app.dir.path()) + "/data \xff.bin";
        QCOMPARE(::link(QFile::encodeName(m_file).constData(), m_app.answer->constData()), 0);
#endif
        clickAndWait(m_app.control(u"FileButton"_s));
        QCOMPARE(m_app.text(u"fileNameBox"_s), shown);
        QCOMPARE(m_app.text(u"sizeOutput"_s), u"1234567"_s); // the size with no rows
        QVERIFY(m_app.control(u"SizeCopyButton"_s)->isVisible());

        clickAndWait(m_app.control(u"Check_SHA2-256"_s));
        QVERIFY(m_app.control(u"Row_SHA2-256"_s)->isVisible());
        QCOMPARE(m_app.text(u"Value_SHA2-256"_s), expected(u"SHA2-256"_s));
        clickAndWait(m_app.control(u"Check_SHA2-256"_s)); // untick: the row goes
        QVERIFY(!m_app.control(u"Row_SHA2-256"_s)->isVisible());
        QCOMPARE(m_app.text(u"sizeOutput"_s), u"1234567"_s);
        ::unlink(m_app.answer->constData()); // the temporary folder cannot spell it
    }

    // A digest ticked by an assistive tool starts a run, as a click does, and
    // the copy buttons answer a press.
    void resultsAndButtonsThroughAccessibility_data()
    {
        QTest::addColumn<QString>("tick"); // what the assistive tool does to the check box
        QTest::newRow("toggle") << QAccessibleActionInterface::toggleAction();
        QTest::newRow("press") << QAccessibleActionInterface::pressAction();
    }

    void resultsAndButtonsThroughAccessibility()
    {
        QFETCH(QString, tick);
        open();
        m_app.answer = QFile::encodeName(m_file);
        actAndWait([&] { QVERIFY(accessiblePress(m_app.control(u"FileButton"_s))); });
        actAndWait([&] { QVERIFY(accessibleAction(m_app.control(u"Check_MD5"_s), tick)); });
        QVERIFY(m_app.control(u"Check_MD5"_s)->property("checked").toBool());
        QVERIFY(
            QAccessible::queryAccessibleInterface(m_app.control(u"Check_MD5"_s))->state().checked);

        // The report with its title, one value and the size without.
        QVERIFY(accessiblePress(m_app.control(u"CopyAllButton"_s)));
        const QMimeData* data = QGuiApplication::clipboard()->mimeData();
        QCOMPARE(data->text(),
                 m_file + u"\r\nSize (Bytes): 1234567\r\nMD5: "_s + expected(u"MD5"_s));
        QCOMPARE(QString::fromUtf8(data->data(Clipboard::TitleMimeType)),
                 u"Checksums for "_s + m_file);
        QVERIFY(accessiblePress(m_app.control(u"Copy_MD5"_s)));
        QCOMPARE(QGuiApplication::clipboard()->text(), expected(u"MD5"_s));
        QVERIFY(!QGuiApplication::clipboard()->mimeData()->hasFormat(Clipboard::TitleMimeType));
        QVERIFY(accessiblePress(m_app.control(u"SizeCopyButton"_s)));
        QCOMPARE(QGuiApplication::clipboard()->text(), u"1234567"_s);

        // "InProgress" takes away everything that starts a run or copies a report.
        page()->setState(u"InProgress"_s);
        for (const QString& name : {u"FileButton"_s, u"AllButton"_s, u"NoneButton"_s,
                                    u"Check_SHA1"_s, u"CopyAllButton"_s}) {
            QVERIFY2(!m_app.control(name)->isEnabled(), qPrintable(name));
        }
        page()->setState(u"Normal"_s);
    }
};

QTEST_MAIN(TestChecksumPage)
#include "TestChecksumPage.moc"
