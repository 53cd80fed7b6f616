#include "support/AppFixture.h"
#include "support/EventLoopProbe.h"
#include "support/OpenSslReader.h"

#include <QRegularExpression>
#include <QScopeGuard>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

// Both certificate pages in the real window, driven by keys and the mouse;
// the file picker is answered by the test and the reveal is watched.
class TestCertificatePages : public QObject
{
    Q_OBJECT

    AppFixture m_app;

private Q_SLOTS:
    void initTestCase()
    {
        QAccessible::setActive(true); // as an assistive tool on the bus makes it
        QVERIFY(m_app.start());
    }

    void init()
    {
        m_app.requests.clear();
        m_app.reveals.clear();
    }

    void emptyNameOrCancel_data()
    {
        QTest::addColumn<int>("entry");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("extension");
        QTest::newRow("self-signed") << 1 << u"GeneratePemButton"_s << u".crt"_s;
        QTest::newRow("request") << 2 << u"GenerateButton"_s << u".csr"_s;
    }

    void emptyNameOrCancel()
    {
        QFETCH(int, entry);
        QFETCH(QString, button);
        QFETCH(QString, extension);
        QVERIFY(m_app.open(entry, u"CommonNameCtrl"_s));
        // An empty name ends the flow before the picker.
        QMetaObject::invokeMethod(m_app.page(), "OnGenerateClick",
                                  Q_ARG(QObject*, m_app.control(qPrintable(button))));
        QTest::qWait(50);
        QVERIFY(m_app.requests.isEmpty());

        m_app.type(m_app.control("CommonNameCtrl"), u"host.example"_s);
        m_app.answer.reset();
        const QStringList states =
            m_app.statesDuring([&] { m_app.click(m_app.control(qPrintable(button))); },
                               [&] { return !m_app.requests.isEmpty(); });
        QTest::qWait(50);
        QCOMPARE(states, QStringList{});
        QVERIFY(m_app.reveals.isEmpty());
        QCOMPARE(m_app.requests.first().extensions, QStringList{extension});
        QCOMPARE(m_app.requests.first().defaultExtension, extension);
    }

    void selfSignedBundleRun()
    {
        QVERIFY(m_app.open(1, u"CommonNameCtrl"_s));
        m_app.click(m_app.control("ForDigitalSigningCtrl"));
        m_app.type(m_app.control("CommonNameCtrl"), u"Jane Signer"_s);
        m_app.click(m_app.control("ValidDaysCtrl"));
        QTest::keyClick(m_app.window, Qt::Key_Up); // 366, which the model keeps as 1
        m_app.click(m_app.control("KeySizeCtrl"));
        // The list takes keys once it is open; a loaded machine opens it late.
        QTRY_VERIFY(m_app.control("KeySizeCtrl")
                        ->property("popup")
                        .value<QObject*>()
                        ->property("opened")
                        .toBool());
        QTest::keyClick(m_app.window, Qt::Key_Down); // 3072
        QTest::keyClick(m_app.window, Qt::Key_Return);
        m_app.answer = m_app.path(u"signer"_s);
        // Pressed by an assistive tool, as a click would.
        m_app.statesDuring([&] { QVERIFY(accessiblePress(m_app.control("GeneratePkcs12Button"))); },
                           [&] { return !m_app.reveals.isEmpty(); });
        QCOMPARE(m_app.requests.first().extensions, (QStringList{u".pfx"_s, u".p12"_s}));
        const QString bundle = m_app.dir.filePath(u"signer.pfx"_s);
        QCOMPARE(m_app.reveals.first(), QList<QByteArray>{m_app.path(u"signer.pfx"_s)});
        QVERIFY(!QFile::exists(m_app.dir.filePath(u"signer.key"_s)));
        const auto [key, certificate] = openBundle(bundle, {});
        QVERIFY(key && certificate);
        QCOMPARE(nameEntries(X509_get_subject_name(certificate.get())),
                 QStringList{u"CN=Jane Signer"_s});
        QCOMPARE(certificateExtensions(certificate.get()),
                 QStringList{u"X509v3 Key Usage: Digital Signature"_s});
        QCOMPARE(validitySeconds(certificate.get()), 86400); // 366 typed, the smaller of it and 1
        QCOMPARE(EVP_PKEY_get_bits(X509_get0_pubkey(certificate.get())), 3072);
    }

    // One run per text box that hands its text on when it loses the focus,
    // typed last with the keys and the button pressed by an assistive tool
    // with the caret still there: the text is in the file all the same. Each
    // run makes its key off the UI thread and shows both files.
    void generationRuns_data()
    {
        QTest::addColumn<int>("entry");
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QStringList>("written"); ///< subject entries and alternative names
        QTest::newRow("self-signed name")
            << 1 << u"CommonNameCtrl"_s << u"typed.example"_s << QStringList{u"CN=typed.example"_s};
        QTest::newRow("request name")
            << 2 << u"CommonNameCtrl"_s << u"typed.example"_s << QStringList{u"CN=typed.example"_s};
        // Typed line ends become carriage returns, which separate the names.
        QTest::newRow("alternative names")
            << 2 << u"AltNamesCtrl"_s << u"alt.example\n10.0.0.1"_s
            << QStringList{u"DNS:alt.example"_s, u"IP Address:10.0.0.1"_s};
        QTest::newRow("organization")
            << 2 << u"OrganizationCtrl"_s << u"Typed"_s << QStringList{u"O=Typed"_s};
        QTest::newRow("country") << 2 << u"CountryCodeCtrl"_s << u"NL"_s << QStringList{u"C=NL"_s};
    }

    void generationRuns()
    {
        QFETCH(int, entry);
        QFETCH(QString, box);
        QFETCH(QString, typed);
        QFETCH(QStringList, written);
        QVERIFY(m_app.open(entry, u"CommonNameCtrl"_s));
        m_app.type(m_app.control("PassphraseCtrl"), u"pw"_s);
        if (entry == 2) { // 2048 chosen: a request's key is 4096 bits all the same
            m_app.click(m_app.control("KeySizeCtrl"));
            QTest::keyClick(m_app.window, Qt::Key_Up);
            QTest::keyClick(m_app.window, Qt::Key_Up);
            QTest::keyClick(m_app.window, Qt::Key_Return);
        }
        if (box != u"CommonNameCtrl"_s) {
            m_app.type(m_app.control("CommonNameCtrl"), u"name.example"_s);
        }
        m_app.type(m_app.control(box), typed);
        QVERIFY(m_app.control(box)->hasActiveFocus());
        const QString stem = QString::fromLatin1(QTest::currentDataTag()).replace(u' ', u'-');
        m_app.answer = m_app.path(stem); // no extension: the page adds it
        const QString button = entry == 1 ? u"GeneratePemButton"_s : u"GenerateButton"_s;
        const EventLoopProbe probe;
        const QStringList states =
            m_app.statesDuring([&] { QVERIFY(accessiblePress(m_app.control(button))); },
                               [&] { return !m_app.reveals.isEmpty(); });
        QCOMPARE(states, (QStringList{u"InProgress"_s, u"Normal"_s}));
        QVERIFY(probe.stayedLive());
        const QString main = stem + (entry == 1 ? u".crt"_s : u".csr"_s);
        QCOMPARE(m_app.reveals.first(),
                 (QList<QByteArray>{m_app.path(main), m_app.path(stem + u".key"_s)}));
        const QString key = m_app.dir.filePath(stem + u".key"_s);
        QVERIFY(readPrivateKey(key, "pw") && !readPrivateKey(key, "not pw")); // encrypted
        // Read back with OpenSSL's parsers, whose answers no release reformats.
        QStringList names;
        int bits = 0;
        if (entry == 1) {
            const X509Ptr certificate = readCertificate(m_app.dir.filePath(main));
            QVERIFY(certificate);
            names = nameEntries(X509_get_subject_name(certificate.get())) +
                    alternativeNames(certificateExtensions(certificate.get()));
            bits = EVP_PKEY_get_bits(X509_get0_pubkey(certificate.get()));
        } else {
            const X509ReqPtr request = readRequest(m_app.dir.filePath(main));
            QVERIFY(request);
            names = nameEntries(X509_REQ_get_subject_name(request.get())) +
                    alternativeNames(requestExtensions(request.get()));
            bits = EVP_PKEY_get_bits(X509_REQ_get0_pubkey(request.get()));
        }
        for (const QString& name : written) {
            QVERIFY2(names.contains(name), qPrintable(names.join(u"; "_s)));
        }
        QCOMPARE(bits, entry == 1 ? 2048 : 4096);
    }

    // The named controls met by Tab from the name: the alternative names take
    // no tab character. The signing face renames the name's box and, on the
    // request page, hides the alternative names.
    void keyboardOrderFacesAndBusyForm_data()
    {
        QTest::addColumn<int>("entry");
        QTest::addColumn<QStringList>("order");
        QTest::newRow("self-signed") << 1
                                     << u"ValidDaysCtrl KeySizeCtrl PassphraseCtrl "
                                        u"GeneratePemButton GeneratePkcs12Button"_s.split(u' ');
        QTest::newRow("request") << 2
                                 << u"AltNamesCtrl OrganizationCtrl OrganizationalUnitCtrl "
                                    u"LocationCtrl StateCtrl CountryCodeCtrl KeySizeCtrl "
                                    u"PassphraseCtrl GenerateButton"_s.split(u' ');
    }

    void keyboardOrderFacesAndBusyForm()
    {
        QFETCH(int, entry);
        QFETCH(QStringList, order);
        QVERIFY(m_app.open(entry, u"CommonNameCtrl"_s));
        QTest::keyClick(m_app.window, 'x'); // enables the generate buttons
        QStringList met;
        for (int i = 0; i < 20 && met.size() < order.size(); ++i) {
            QTest::keyClick(m_app.window, Qt::Key_Tab);
            for (QQuickItem* item = m_app.window->activeFocusItem(); item;
                 item = item->parentItem()) {
                const QString name = item->objectName();
                if (name.endsWith(u"Ctrl"_s) || name.endsWith(u"Button"_s)) {
                    met << name;
                    break;
                }
            }
            met.removeDuplicates();
        }
        QCOMPARE(met, order);
        m_app.click(m_app.control("ForDigitalSigningCtrl"));
        QCOMPARE(m_app.text(u"CommonNameHeader"_s), u"Issuer"_s);
        QVERIFY(entry == 1 || !m_app.control("AltNamesSection")->isVisible());
        m_app.click(m_app.control("ServerCtrl"));
        QCOMPARE(m_app.text(u"CommonNameHeader"_s), u"Common Name"_s);

        // "InProgress" takes the whole form away.
        m_app.page()->setState(u"InProgress"_s);
        for (const QString& name : order + QStringList{u"ServerCtrl"_s, u"CommonNameCtrl"_s}) {
            QVERIFY2(!m_app.control(name)->isEnabled(), qPrintable(name));
        }
        m_app.page()->setState(u"Normal"_s);
    }

    // What is typed into the validity box, what it shows (whole numbers as
    // they are, in any locale) and what is stored (the smaller of the value
    // and 1). An emptied box brings the old value back.
    void validityTyped_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("shown");
        QTest::addColumn<int>("stored");
        QTest::newRow("emptied: the old value, nothing stored") << QString() << 365 << 365;
        QTest::newRow("letters: the old value, nothing stored") << u"30d"_s << 365 << 365;
        QTest::newRow("no grouping, even in German") << u"1000"_s << 1000 << 1;
        QTest::newRow("a fraction rounded down") << u"0.5"_s << 0 << 0;
        QTest::newRow("a negative fraction rounded down") << u"-2.5"_s << -3 << -3;
        QTest::newRow("past the maximum, never wrapped") << u"3000000000"_s << 36500 << 1;
    }

    void validityTyped()
    {
        QFETCH(QString, typed);
        QFETCH(int, shown);
        QFETCH(int, stored);
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        const auto restore = qScopeGuard([&] { QLocale::setDefault(before); });
        QVERIFY(m_app.open(1, u"CommonNameCtrl"_s));
        auto* box = m_app.control("ValidDaysCtrl");
        auto* viewModel = m_app.page()->property("ViewModel").value<QObject*>();
        m_app.click(box);
        QTest::keyClick(m_app.window, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(m_app.window, Qt::Key_Backspace);
        typeText(m_app.window, typed);
        QTest::keyClick(m_app.window, Qt::Key_Tab);
        QCOMPARE(box->property("value").toInt(), shown);
        QCOMPARE(box->property("displayText").toString(), QString::number(shown));
        QCOMPARE(viewModel->property("ValidDays").toInt(), stored);
    }

    // Both key size lists show their sizes to an assistive tool as their
    // children, the one in use selected, and take a size chosen through them.
    void keySizeThroughAccessibility_data()
    {
        QTest::addColumn<int>("page");
        QTest::newRow("self-signed") << 1;
        QTest::newRow("request") << 2;
    }

    void keySizeThroughAccessibility()
    {
        QFETCH(int, page);
        QVERIFY(m_app.open(page, u"CommonNameCtrl"_s));
        auto* viewModel = m_app.page()->property("ViewModel").value<QObject*>();
        QAccessibleInterface* list =
            QAccessible::queryAccessibleInterface(m_app.control("KeySizeCtrl"));
        QVERIFY(list && list->childCount() == 3);
        const auto selected = [list] {
            QStringList names;
            for (int i = 0; i < list->childCount(); ++i) {
                if (list->child(i)->state().selected) {
                    names << list->child(i)->text(QAccessible::Name);
                }
            }
            return names;
        };
        QCOMPARE(selected(), QStringList{viewModel->property("KeySize").toString()});
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
        QAccessibleInterface* other = list->child(selected()[0] == u"4096"_s ? 1 : 2);
        QVERIFY(list->selectionInterface() && list->selectionInterface()->select(other));
        QCOMPARE(viewModel->property("KeySize").toString(), other->text(QAccessible::Name));
        QCOMPARE(selected(), QStringList{other->text(QAccessible::Name)});
#endif
    }

    // A failure shows OpenSSL's reason in a dialog over the window, also when
    // the user has left the page meanwhile (the run holds on to what it
    // needs), announced to assistive tools; nothing was written.
    void failureToldAfterLeavingThePage()
    {
        QVERIFY(m_app.open(2, u"CommonNameCtrl"_s));
        m_app.type(m_app.control("CommonNameCtrl"), u"bad.example"_s);
        m_app.type(m_app.control("CountryCodeCtrl"), u"GBR"_s);
        m_app.answer = m_app.path(u"bad.csr"_s);
        connect(m_app.page(), &QQuickItem::stateChanged, this, [this](const QString& state) {
            if (state == u"InProgress"_s) {
                QMetaObject::invokeMethod(
                    this, [this] { openFresh(m_app.window, 3); }, Qt::QueuedConnection);
            }
        });
        m_app.click(m_app.control("GenerateButton"));
        QObject* dialog = nullptr;
        QTRY_VERIFY_WITH_TIMEOUT(
            (dialog = m_app.window->findChild<QObject*>(u"FailureDialog"_s)) != nullptr, 60000);
        QVERIFY(m_app.page()->findChild<QObject*>(u"AllButton"_s)); // on the checksum page
        QTRY_VERIFY(dialog->property("opened").toBool());
        QAccessibleInterface* announced = QAccessible::queryAccessibleInterface(
            dialog->property("contentItem").value<QQuickItem*>()->parentItem());
        // A dialog to Qt 6.4, an alert from Qt 6.8 on: both tell it at once.
        QVERIFY2(announced->role() == QAccessible::Dialog ||
                     announced->role() == QAccessible::AlertMessage,
                 qPrintable(QString::number(announced->role())));
        QCOMPARE(announced->text(QAccessible::Name),
                 u"Failure Generating Certificate Signing Request"_s);
        const QString text = announced->text(QAccessible::Description);
        QVERIFY2(QRegularExpression(u"^\\[ssl:\\d+\\] string too long$"_s).match(text).hasMatch(),
                 qPrintable(text));
        QVERIFY(m_app.reveals.isEmpty());
        QCOMPARE(QDir(m_app.dir.path()).entryList({u"bad*"_s}), QStringList()); // no file begun
        QVERIFY(accessiblePress(dialog->findChild<QQuickItem*>(u"FailureOkButton"_s)));
        QTRY_VERIFY(m_app.window->findChild<QObject*>(u"FailureDialog"_s) == nullptr);
    }
};

QTEST_MAIN(TestCertificatePages)
#include "TestCertificatePages.moc"
