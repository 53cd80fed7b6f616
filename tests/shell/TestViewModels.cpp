#include "CertSigningRequestViewModel.h"
#include "SelfSignedCertViewModel.h"

#include <QMetaProperty>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>

#include <memory>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

using namespace Qt::StringLiterals;

namespace {

// Made by name through the QML module, the way the pages' markup makes them.
std::unique_ptr<QObject> create(QQmlEngine& engine, const QByteArray& typeName)
{
    QQmlComponent component(&engine);
    component.setData("import Zorvane\n" + typeName + " {}\n", QUrl());
    std::unique_ptr<QObject> object(component.create());
    if (!object) {
        qWarning() << component.errorString();
    }
    return object;
}

QStringList propertyNames(const QObject& object)
{
    QStringList names;
    const QMetaObject* meta = object.metaObject();
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        names << QString::fromLatin1(meta->property(i).name());
    }
    return names;
}

bool anyNotifies(const QObject& object)
{
    const QMetaObject* meta = object.metaObject();
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        if (meta->property(i).hasNotifySignal()) {
            return true;
        }
    }
    return false;
}

} // namespace

class TestViewModels : public QObject
{
    Q_OBJECT

    QQmlEngine m_engine;

private Q_SLOTS:
    void defaultsAndShape_data()
    {
        QTest::addColumn<QByteArray>("typeName");
        QTest::addColumn<QVariantList>("defaults"); // in property order
        QTest::addColumn<QStringList>("names");

        const QVariant empty = QString();
        QTest::newRow("self-signed")
            << QByteArray("SelfSignedCertViewModel") << QVariantList{false, empty, 365, 2048, empty}
            << QStringList{u"ForDigitalSigning"_s, u"CommonName"_s, u"ValidDays"_s, u"KeySize"_s,
                           u"Passphrase"_s};
        QTest::newRow("request") << QByteArray("CertSigningRequestViewModel")
                                 << QVariantList{false, empty, empty, empty, empty,
                                                 empty, empty, empty, 4096,  empty}
                                 << QStringList{u"ForDigitalSigning"_s,
                                                u"CommonName"_s,
                                                u"AltNames"_s,
                                                u"Organization"_s,
                                                u"OrganizationalUnit"_s,
                                                u"Location"_s,
                                                u"State"_s,
                                                u"CountryCode"_s,
                                                u"KeySize"_s,
                                                u"Passphrase"_s};
    }

    void defaultsAndShape()
    {
        QFETCH(QByteArray, typeName);
        QFETCH(QVariantList, defaults);
        QFETCH(QStringList, names);

        const auto viewModel = create(m_engine, typeName);
        QVERIFY(viewModel);
        QCOMPARE(propertyNames(*viewModel), names);
        QVERIFY(!anyNotifies(*viewModel));
        for (int i = 0; i < names.size(); ++i) {
            QCOMPARE(viewModel->property(names[i].toLatin1()), defaults[i]);
        }
    }

    void validDaysKeepsTheSmallerOfValueAndOne_data()
    {
        QTest::addColumn<int>("written");
        QTest::addColumn<int>("stored");
        QTest::newRow("365") << 365 << 1;
        QTest::newRow("0") << 0 << 0;
        QTest::newRow("-5") << -5 << -5;
        QTest::newRow("minimum") << INT_MIN << INT_MIN;
    }

    void validDaysKeepsTheSmallerOfValueAndOne()
    {
        QFETCH(int, written);
        QFETCH(int, stored);
        Zorvane::SelfSignedCertViewModel viewModel;
        viewModel.setValidDays(written);
        QCOMPARE(viewModel.ValidDays(), stored);
    }
};

QTEST_MAIN(TestViewModels)
#include "TestViewModels.moc"
