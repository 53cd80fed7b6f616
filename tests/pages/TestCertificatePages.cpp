#include "csr/CertSigningRequestPage.h"
#include "platform/FileManager.h"
#include "platform/FilePicker.h"
#include "selfsigned/SelfSignedCertPage.h"
#include "shell/App.h"
#include "shell/MainWindow.h"
#include "shell/NavigationView.h"
#include "shell/NavigationViewItem.h"
#include "shell/PageFrame.h"
#include "support/IsolatedConfig.h"
#include "support/OpenSslReader.h"
#include "support/WindowDriver.h"

#include <QAccessible>
#include <QElapsedTimer>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QtQml/qqmlextensionplugin.h>

#include <memory>
#include <unistd.h>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

using namespace Zorvane;
using namespace Zorvane::Testing;
using namespace Qt::StringLiterals;

// Both certificate pages in the real window, driven by keys and the mouse;
// the file picker is answered by the test and the reveal is watched.
class TestCertificatePages : public QObject
{
    Q_OBJECT

    Zorvane::Testing::IsolatedConfig m_config;

    std::unique_ptr<App> m_app;
    QQuickWindow* m_window = nullptr;
    QTemporaryDir m_dir;
    QList<FilePickRequest> m_requests;
    std::optional<QByteArray> m_answer;
    QList<QList<QByteArray>> m_reveals;

    QByteArray path(const QString& name) const { return QFile::encodeName(m_dir.filePath(name)); }

    QQuickItem* page() const { return currentPage(m_window); }

    QQuickItem* control(const char* name) const
    {
        return page()->findChild<QQuickItem*>(QLatin1String(name));
    }

    void open(int entry)
    {
        openFresh(m_window, entry);
        QTRY_VERIFY(control("CommonNameCtrl") && control("CommonNameCtrl")->hasActiveFocus());
    }

    void click(QQuickItem* item) { clickItem(m_window, item); }

    void type(QQuickItem* item, const QString& text)
    {
        click(item);
        typeText(m_window, text);
    }

    QStringList statesDuring(const std::function<void()>& action, const std::function<bool()>& done)
    {
        QStringList states;
        const auto connection = connect(page(), &QQuickItem::stateChanged, this,
                                        [&](const QString& state) { states << state; });
        action();
        const bool finished = QTest::qWaitFor(done, 120000);
        disconnect(connection);
        if (!finished) {
            states << u"(timed out)"_s;
        }
        return states;
    }

private Q_SLOTS:
    void initTestCase()
    {
        QAccessible::setActive(true); // as an assistive tool on the bus makes it
        SetFilePickHandler([this](QWindow*, const FilePickRequest& request, FilePickDone done) {
            m_requests << request;
            done(m_answer);
        });
        FileManager::SetRevealHandler(
            [this](const QList<QByteArray>& paths) { m_reveals << paths; });
        m_app = std::make_unique<App>();
        m_app->OnLaunched();
        m_window = m_app->Window()->Window();
        QVERIFY(QTest::qWaitForWindowExposed(m_window));
        m_window->resize(1100, 720); // the wide layout
        QTRY_VERIFY(page() != nullptr);
    }

    void cleanupTestCase()
    {
        SetFilePickHandler({});
        FileManager::SetRevealHandler({});
        m_app.reset();
    }

    void init()
    {
        m_requests.clear();
        m_reveals.clear();
    }

    void freshSelfSignedPage()
    {
        open(1);
        auto* self = qobject_cast<SelfSignedCertPage*>(page());
        QVERIFY(self);
        QVERIFY(!control("GeneratePemButton")->isEnabled());
        QVERIFY(!control("GeneratePkcs12Button")->isEnabled());
        QCOMPARE(control("KeySizeCtrl")->property("currentValue"), QVariant(2048));
        QCOMPARE(control("ValidDaysCtrl")->property("value").toInt(), 365);
        QCOMPARE(control("CommonNameHeader")->property("text").toString(), u"Common Name"_s);

        // The buttons follow each key press, before the box loses the focus.
        QTest::keyClick(m_window, 'a');
        QVERIFY(control("GeneratePemButton")->isEnabled());
        QCOMPARE(self->ViewModel()->CommonName(), QString());
        QTest::keyClick(m_window, Qt::Key_Backspace);
        QVERIFY(!control("GeneratePemButton")->isEnabled());

        click(control("ForDigitalSigningCtrl"));
        QCOMPARE(control("CommonNameHeader")->property("text").toString(), u"Issuer"_s);
        QCOMPARE(control("CommonNameCtrl")->property("placeholderText").toString(), QString());
        QVERIFY(self->ViewModel()->ForDigitalSigning());
        click(control("ServerCtrl"));
        QCOMPARE(control("CommonNameHeader")->property("text").toString(), u"Common Name"_s);
        QCOMPARE(control("CommonNameCtrl")->property("placeholderText").toString(),
                 u"www.example.com"_s);
    }

    void emptyNameOrCancelledPickerWritesNothing_data()
    {
        QTest::addColumn<int>("entry");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("extension");
        QTest::newRow("self-signed") << 1 << u"GeneratePemButton"_s << u".crt"_s;
        QTest::newRow("request") << 2 << u"GenerateButton"_s << u".csr"_s;
    }

    void emptyNameOrCancelledPickerWritesNothing()
    {
        QFETCH(int, entry);
        QFETCH(QString, button);
        QFETCH(QString, extension);
        open(entry);
        // An empty name ends the flow before the picker.
        QMetaObject::invokeMethod(page(), "OnGenerateClick",
                                  Q_ARG(QObject*, control(qPrintable(button))));
        QTest::qWait(50);
        QVERIFY(m_requests.isEmpty());

        type(control("CommonNameCtrl"), u"host.example"_s);
        m_answer.reset();
        const QStringList states = statesDuring([&] { click(control(qPrintable(button))); },
                                                [&] { return !m_requests.isEmpty(); });
        QTest::qWait(50);
        QCOMPARE(states, QStringList{});
        QVERIFY(m_reveals.isEmpty());
        QCOMPARE(m_requests.first().mode, FilePickRequest::Mode::Save);
        QCOMPARE(m_requests.first().choiceKey, u"PEM"_s);
        QCOMPARE(m_requests.first().extensions, QStringList{extension});
        QCOMPARE(m_requests.first().defaultExtension, extension);
    }

    // "InProgress" takes the whole form away, and shows the busy indicator.
    void inProgressDisablesTheForm_data()
    {
        QTest::addColumn<int>("entry");
        QTest::addColumn<QStringList>("controls");
        QTest::newRow("self-signed")
            << 1
            << QStringList{u"ServerCtrl"_s,          u"CommonNameCtrl"_s, u"ValidDaysCtrl"_s,
                           u"KeySizeCtrl"_s,         u"PassphraseCtrl"_s, u"GeneratePemButton"_s,
                           u"GeneratePkcs12Button"_s};
        QTest::newRow("request") << 2 << QStringList{u"ServerCtrl"_s,      u"CommonNameCtrl"_s,
                                                     u"AltNamesCtrl"_s,    u"OrganizationCtrl"_s,
                                                     u"CountryCodeCtrl"_s, u"PassphraseCtrl"_s,
                                                     u"GenerateButton"_s};
    }

    void inProgressDisablesTheForm()
    {
        QFETCH(int, entry);
        QFETCH(QStringList, controls);
        open(entry);
        type(control("CommonNameCtrl"), u"x"_s);
        page()->setState(u"InProgress"_s);
        for (const QString& name : controls) {
            QVERIFY2(!control(qPrintable(name))->isEnabled(), qPrintable(name));
        }
        QVERIFY(control("BusyIndicator")->property("running").toBool());
        page()->setState(u"Normal"_s);
        for (const QString& name : controls) {
            QVERIFY2(control(qPrintable(name))->isEnabled(), qPrintable(name));
        }
    }

    void selfSignedPemRun()
    {
        open(1);
        type(control("CommonNameCtrl"), u"host.example"_s);
        type(control("PassphraseCtrl"), u"pw"_s);
        // No extension: ".crt" is added; a name that is not UTF-8 is kept.
        m_answer = path(u"server"_s) + "\xff";
        const QStringList states = statesDuring([&] { click(control("GeneratePemButton")); },
                                                [&] { return !m_reveals.isEmpty(); });
        QCOMPARE(states, (QStringList{u"InProgress"_s, u"Normal"_s}));
        const QList<QByteArray> written{*m_answer + ".crt", *m_answer + ".key"};
        QCOMPARE(m_reveals.first(), written);
        // Read back under names the readers can spell.
        const QString cert = m_dir.filePath(u"server.crt"_s);
        const QString key = m_dir.filePath(u"server.key"_s);
        QCOMPARE(::link(written[0].constData(), QFile::encodeName(cert).constData()), 0);
        QCOMPARE(::link(written[1].constData(), QFile::encodeName(key).constData()), 0);
        for (const QByteArray& name : written) {
            ::unlink(name.constData()); // the temporary folder cannot spell it
        }

        const X509Ptr certificate = readCertificate(cert);
        QVERIFY(certificate);
        QCOMPARE(nameEntries(X509_get_subject_name(certificate.get())),
                 QStringList{u"CN=host.example"_s});
        QCOMPARE(certificateExtensions(certificate.get()),
                 QStringList{u"X509v3 Subject Alternative Name: DNS:host.example"_s});
        QCOMPARE(validitySeconds(certificate.get()), 365 * 86400); // the box was not edited
        QCOMPARE(EVP_PKEY_get_bits(X509_get0_pubkey(certificate.get())), 2048);
        QVERIFY(readPrivateKey(key, "pw"));
        QCOMPARE(fileMode(key), std::optional<unsigned>(0600));
    }

    void selfSignedBundleRun()
    {
        open(1);
        click(control("ForDigitalSigningCtrl"));
        type(control("CommonNameCtrl"), u"Jane Signer"_s);
        click(control("ValidDaysCtrl"));
        QTest::keyClick(m_window, Qt::Key_Up); // 366, which the model keeps as 1
        m_answer = path(u"signer"_s);
        // Pressed by an assistive tool, as a click would.
        statesDuring([&] { QVERIFY(accessiblePress(control("GeneratePkcs12Button"))); },
                     [&] { return !m_reveals.isEmpty(); });
        QCOMPARE(m_requests.first().extensions, (QStringList{u".pfx"_s, u".p12"_s}));
        const QString bundle = m_dir.filePath(u"signer.pfx"_s);
        QCOMPARE(m_reveals.first(), QList<QByteArray>{path(u"signer.pfx"_s)});
        QVERIFY(!QFile::exists(m_dir.filePath(u"signer.key"_s)));
        const CommandResult info = runOpenSsl(
            {u"pkcs12"_s, u"-in"_s, bundle, u"-nokeys"_s, u"-passin"_s, u"pass:"_s, u"-clcerts"_s});
        QVERIFY2(info.exitCode == 0, qPrintable(info.output));
        const CommandResult text = runOpenSsl(
            {u"x509"_s, u"-noout"_s, u"-subject"_s, u"-dates"_s, u"-ext"_s, u"keyUsage"_s},
            info.output.toUtf8());
        QVERIFY2(text.output.contains(u"CN = Jane Signer"_s), qPrintable(text.output));
        QVERIFY2(text.output.contains(u"Digital Signature"_s), qPrintable(text.output));
        const X509Ptr certificate = readCertificatePem(info.output.toUtf8());
        QVERIFY(certificate);
        QCOMPARE(validitySeconds(certificate.get()), 86400); // 366 typed, the smaller of it and 1
        QCOMPARE(fileMode(bundle), std::optional<unsigned>(0600));
    }

    void requestRun()
    {
        open(2);
        auto* request = qobject_cast<CertSigningRequestPage*>(page());
        QVERIFY(request);
        type(control("CommonNameCtrl"), u"www.example"_s);
        type(control("AltNamesCtrl"), u"api.example\n10.0.0.1\n::1"_s);
        type(control("OrganizationCtrl"), u"Example Ltd"_s);
        type(control("CountryCodeCtrl"), u"GB"_s);
        click(control("KeySizeCtrl")); // the selector shows 2048; the key stays 4096
        QTest::keyClick(m_window, Qt::Key_Up);
        QTest::keyClick(m_window, Qt::Key_Up);
        QTest::keyClick(m_window, Qt::Key_Return);
        m_answer = path(u"www"_s);
        statesDuring([&] { click(control("GenerateButton")); },
                     [&] { return !m_reveals.isEmpty(); });
        QCOMPARE(request->ViewModel()->AltNames(), u"api.example\r10.0.0.1\r::1"_s);
        const QString csr = m_dir.filePath(u"www.csr"_s);
        QCOMPARE(m_reveals.first(), (QList<QByteArray>{path(u"www.csr"_s), path(u"www.key"_s)}));

        const X509ReqPtr req = readRequest(csr);
        QVERIFY(req);
        QCOMPARE(nameEntries(X509_REQ_get_subject_name(req.get())),
                 (QStringList{u"CN=www.example"_s, u"O=Example Ltd"_s, u"C=GB"_s}));
        const QString san = u"X509v3 Subject Alternative Name: "_s;
        QCOMPARE(
            requestExtensions(req.get()),
            (QStringList{san + u"DNS:www.example"_s, san + u"DNS:api.example"_s,
                         san + u"IP Address:10.0.0.1"_s, san + u"IP Address:0:0:0:0:0:0:0:1"_s}));
        QCOMPARE(EVP_PKEY_get_bits(X509_REQ_get0_pubkey(req.get())), 4096);
        QCOMPARE(fileMode(m_dir.filePath(u"www.key"_s)), std::optional<unsigned>(0600));
    }

    void keyboardOrder_data()
    {
        QTest::addColumn<int>("entry");
        QTest::addColumn<QStringList>("order"); // named controls met by Tab from the name
        QTest::newRow("self-signed")
            << 1
            << QStringList{u"ValidDaysCtrl"_s, u"KeySizeCtrl"_s, u"PassphraseCtrl"_s,
                           u"GeneratePemButton"_s, u"GeneratePkcs12Button"_s};
        QTest::newRow("request")
            << 2
            << QStringList{u"AltNamesCtrl"_s, u"OrganizationCtrl"_s, u"OrganizationalUnitCtrl"_s,
                           u"LocationCtrl"_s, u"StateCtrl"_s,        u"CountryCodeCtrl"_s,
                           u"KeySizeCtrl"_s,  u"PassphraseCtrl"_s,   u"GenerateButton"_s};
    }

    void keyboardOrder()
    {
        QFETCH(int, entry);
        QFETCH(QStringList, order);
        open(entry);
        QTest::keyClick(m_window, 'x'); // enables the generate buttons
        QStringList met;
        for (int i = 0; i < 20 && met.size() < order.size(); ++i) {
            QTest::keyClick(m_window, Qt::Key_Tab);
            QQuickItem* focused = m_window->activeFocusItem();
            for (QQuickItem* item = focused; item; item = item->parentItem()) {
                const QString name = item->objectName();
                if (name.endsWith(u"Ctrl"_s) || name.endsWith(u"Button"_s)) {
                    if (met.isEmpty() || met.last() != name) {
                        met << name;
                    }
                    // What a screen reader hears for what has the focus (or its
                    // nearest accessible item), with the accessibility bridge
                    // on: Qt Quick changes names then.
                    QAccessibleInterface* accessible = nullptr;
                    for (QQuickItem* at = focused; at && !accessible; at = at->parentItem()) {
                        accessible = QAccessible::queryAccessibleInterface(at);
                    }
                    QVERIFY2(accessible && !accessible->text(QAccessible::Name).isEmpty(),
                             qPrintable(name));
                    break;
                }
            }
        }
        QCOMPARE(met, order);
    }

    void windowStaysResponsiveDuringKeyGeneration()
    {
        open(2);
        type(control("CommonNameCtrl"), u"busy.example"_s);
        m_answer = path(u"busy"_s);
        int ticks = 0;
        QTimer ticker;
        connect(&ticker, &QTimer::timeout, this, [&] { ++ticks; });
        ticker.start(10);
        QElapsedTimer elapsed;
        elapsed.start();
        statesDuring([&] { click(control("GenerateButton")); },
                     [&] { return !m_reveals.isEmpty(); });
        // A loop blocked by the key generation would deliver about one tick.
        QVERIFY2(ticks >= elapsed.elapsed() / 40,
                 qPrintable(u"%1 ticks in %2 ms"_s.arg(ticks).arg(elapsed.elapsed())));
    }

    // A run holds on to what it needs: leaving the page while it runs does not
    // lose its failure.
    void failureToldAfterLeavingThePage()
    {
        open(1);
        type(control("CommonNameCtrl"), u"gone.example"_s);
        m_answer = path(u"missing/gone"_s);
        connect(page(), &QQuickItem::stateChanged, this, [this](const QString& state) {
            if (state == u"InProgress"_s) {
                QMetaObject::invokeMethod(
                    this, [this] { openFresh(m_window, 3); }, Qt::QueuedConnection);
            }
        });
        click(control("GeneratePemButton"));
        QObject* dialog = nullptr;
        QTRY_VERIFY_WITH_TIMEOUT(
            (dialog = m_window->findChild<QObject*>(u"FailureDialog"_s)) != nullptr, 60000);
        QVERIFY(page()->findChild<QObject*>(u"AllButton"_s) != nullptr); // on the checksum page
        QCOMPARE(dialog->property("title").toString(),
                 u"Failure Generating Self-Signed Certificate"_s);
        QTRY_VERIFY(dialog->property("opened").toBool());
        // Announced as a dialog with its title and its text.
        QAccessibleInterface* announced = QAccessible::queryAccessibleInterface(
            dialog->property("contentItem").value<QQuickItem*>()->parentItem());
        QCOMPARE(announced->role(), QAccessible::Dialog);
        QCOMPARE(announced->text(QAccessible::Name),
                 u"Failure Generating Self-Signed Certificate"_s);
        QVERIFY(announced->text(QAccessible::Description).endsWith(u"] no such file"_s));
        // Its "OK" answers an assistive tool's press.
        QVERIFY(accessiblePress(dialog->findChild<QQuickItem*>(u"FailureOkButton"_s)));
        QTRY_VERIFY(m_window->findChild<QObject*>(u"FailureDialog"_s) == nullptr);
    }

    // What is typed into the validity box, what it shows and what is stored
    // (the smaller of the value and 1). An emptied box brings the old value back.
    void validityTyped_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("shown");
        QTest::addColumn<int>("stored");
        QTest::newRow("emptied: the old value, nothing stored") << QString() << 365 << 365;
        QTest::newRow("not a number: the old value") << u"-"_s << 365 << 365;
        QTest::newRow("30 is stored as 1") << u"30"_s << 30 << 1;
        QTest::newRow("0 stays 0") << u"0"_s << 0 << 0;
        QTest::newRow("negative stays") << u"-5"_s << -5 << -5;
    }

    void validityTyped()
    {
        QFETCH(QString, typed);
        QFETCH(int, shown);
        QFETCH(int, stored);
        open(1);
        auto* box = control("ValidDaysCtrl");
        auto* viewModel = page()->property("ViewModel").value<QObject*>();
        click(box);
        QTest::keyClick(m_window, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(m_window, Qt::Key_Backspace);
        typeText(m_window, typed);
        QTest::keyClick(m_window, Qt::Key_Tab);
        QCOMPARE(box->property("value").toInt(), shown);
        QCOMPARE(box->property("displayText").toString(), QString::number(shown));
        QCOMPARE(viewModel->property("ValidDays").toInt(), stored);
    }

    // The validity set or stepped by an assistive tool takes effect as typing does.
    void validityThroughAccessibility()
    {
        open(1);
        auto* viewModel = page()->property("ViewModel").value<QObject*>();
        QAccessibleInterface* box = QAccessible::queryAccessibleInterface(control("ValidDaysCtrl"));
        QVERIFY(box && box->valueInterface());
        box->valueInterface()->setCurrentValue(0);
        QCOMPARE(viewModel->property("ValidDays").toInt(), 0);
        QVERIFY(accessibleAction(control("ValidDaysCtrl"),
                                 QAccessibleActionInterface::decreaseAction()));
        QCOMPARE(control("ValidDaysCtrl")->property("value").toInt(), -1);
        QCOMPARE(viewModel->property("ValidDays").toInt(), -1);
    }

    void failureShowsTheDialogAndTheNextRunWorks()
    {
        open(2);
        type(control("CommonNameCtrl"), u"bad.example"_s);
        type(control("CountryCodeCtrl"), u"GBR"_s);
        m_answer = path(u"bad.csr"_s);
        QObject* dialog = nullptr;
        const QStringList states = statesDuring(
            [&] { click(control("GenerateButton")); },
            [&] {
                return (dialog = m_window->findChild<QObject*>(u"FailureDialog"_s)) != nullptr;
            });
        QCOMPARE(states, (QStringList{u"InProgress"_s, u"Normal"_s}));
        QCOMPARE(dialog->property("title").toString(),
                 u"Failure Generating Certificate Signing Request"_s);
        const QString text =
            dialog->findChild<QObject*>(u"FailureText"_s)->property("text").toString();
        QVERIFY2(QRegularExpression(u"^\\[ssl:\\d+\\] string too long$"_s).match(text).hasMatch(),
                 qPrintable(text));
        QVERIFY(m_reveals.isEmpty());
        QCOMPARE(filesIn(m_dir.path()).filter(u"bad"_s), QStringList{}); // failed before any file

        QTest::keyClick(m_window, Qt::Key_Escape); // closes the dialog
        QTRY_VERIFY(m_window->findChild<QObject*>(u"FailureDialog"_s) == nullptr);
        type(control("CountryCodeCtrl"), QString());
        QTest::keyClick(m_window, Qt::Key_Backspace);
        QTest::keyClick(m_window, Qt::Key_Tab);
        statesDuring([&] { click(control("GenerateButton")); },
                     [&] { return !m_reveals.isEmpty(); });
        QVERIFY(readRequest(m_dir.filePath(u"bad.csr"_s)));
    }
};

QTEST_MAIN(TestCertificatePages)
#include "TestCertificatePages.moc"
