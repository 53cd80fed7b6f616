#include "Helpers.h"
#include "InverseBooleanToVisibilityConverter.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QRegularExpression>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>

#include <memory>
#include <stdexcept>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

using namespace Zorvane;
using namespace Qt::StringLiterals;

class TestHelpers : public QObject
{
    Q_OBJECT

    std::unique_ptr<Helpers> m_helpers{Helpers::create(nullptr, nullptr)};

private Q_SLOTS:
    void visibility_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<int>("shown");     // BooleanToVisibility
        QTest::addColumn<int>("inverse");   // InverseBooleanToVisibility
        QTest::addColumn<int>("converted"); // the converter
        // Visible 0, Collapsed 1. Null differs between the two inverse forms on purpose.
        QTest::newRow("true") << QVariant(true) << 0 << 1 << 1;
        QTest::newRow("false") << QVariant(false) << 1 << 0 << 0;
        QTest::newRow("null") << QVariant() << 0 << 1 << 0;
        QTest::newRow("not a boolean") << QVariant(u"true"_s) << 0 << 1 << 0;
    }

    void visibility()
    {
        QFETCH(QVariant, value);
        QFETCH(int, shown);
        QFETCH(int, inverse);
        QFETCH(int, converted);
        if (value.typeId() != QMetaType::QString) { // the helpers take nullable booleans only
            QCOMPARE(m_helpers->BooleanToVisibility(value), shown);
            QCOMPARE(m_helpers->InverseBooleanToVisibility(value), inverse);
        }
        InverseBooleanToVisibilityConverter converter;
        QCOMPARE(converter.Convert(value), QVariant(converted));
    }

    void strings()
    {
        QVERIFY(m_helpers->StringToEnabled(u" "_s));
        QVERIFY(!m_helpers->StringToEnabled(QString()));
        QCOMPARE(m_helpers->StringToVisibility(u" "_s), 0);
        QCOMPARE(m_helpers->StringToVisibility(QString()), 1);
        QCOMPARE(m_helpers->InvertBoolean(true), false);
        QCOMPARE(m_helpers->TriStateText(QVariant(), u"n"_s, u"t"_s, u"f"_s), u"n"_s);
        QCOMPARE(m_helpers->TriStateText(true, u"n"_s, QString(), u"f"_s), QString());
        QCOMPARE(m_helpers->TriStateText(false, u"n"_s, u"t"_s, u"f"_s), u"f"_s);
    }

    void formatString_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("expected"); // or the error's text
        // clang-format off
        QTest::newRow("empty format ignores the locale") << QString() << u"v"_s << u"zz-ZZ"_s << u"v"_s;
        QTest::newRow("label through C") << u"{0}:"_s << u"Size (Bytes)"_s << QString() << u"Size (Bytes):"_s;
        QTest::newRow("automatic index") << u"Copy {}"_s << u"SHA1"_s << u"C"_s << u"Copy SHA1"_s;
        QTest::newRow("width and alignment") << u"[{0:>6}]"_s << u"ab"_s << QString() << u"[    ab]"_s;
        QTest::newRow("non-ASCII value") << u"{0}:"_s << u"Größe"_s << QString() << u"Größe:"_s;
        QTest::newRow("unknown locale") << u"{0}"_s << u"v"_s << u"zz-ZZ"_s << u"error: bad locale name"_s;
        QTest::newRow("unknown locale, plain format") << u"plain"_s << u"v"_s << u"zz-ZZ"_s << u"error: bad locale name"_s;
        QTest::newRow("second argument") << u"{0}{1}"_s << u"v"_s << QString() << u"error: argument not found"_s;
        // clang-format on
    }

    void formatString()
    {
        QFETCH(QString, format);
        QFETCH(QString, value);
        QFETCH(QString, locale);
        QFETCH(QString, expected);
        QString result;
        try {
            result = m_helpers->FormatString(format, value, locale);
        } catch (const std::exception& error) {
            result = u"error: "_s + QString::fromUtf8(error.what());
        }
        QCOMPARE(result, expected);
    }

    void localeNames()
    {
        // Hyphenated language-country, or the bare C locale; usable for formatting.
        const QRegularExpression form(u"^([a-z]{2,3}-[A-Z]{2}|C)$"_s);
        QVERIFY2(form.match(Helpers::UserLocaleName()).hasMatch(),
                 qPrintable(Helpers::UserLocaleName()));
        QVERIFY(form.match(Helpers::SystemLocaleName()).hasMatch());
        QCOMPARE(m_helpers->FormatString(u"{0}:"_s, u"x"_s, Helpers::UserLocaleName()), u"x:"_s);
    }

    void failureInABindingIsTheBindingsError()
    {
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData(
            "import QtQuick\nimport Zorvane\nQtObject {\n"
            "  property string good: Helpers.FormatString(\"{0}:\", \"a\", \"\")\n"
            "  property string bad: Helpers.FormatString(\"{0}\", \"v\", \"zz-ZZ\")\n}\n",
            QUrl(u"file:///binding.qml"_s));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"bad locale name"_s));
        const std::unique_ptr<QObject> object(component.create());
        QVERIFY(object);
        QCOMPARE(object->property("good").toString(), u"a:"_s);
        QCOMPARE(object->property("bad").toString(), QString());
    }
};

QTEST_GUILESS_MAIN(TestHelpers)
#include "TestHelpers.moc"
