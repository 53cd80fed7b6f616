#include "presentation/Helpers.h"
#include "presentation/InverseBooleanToVisibilityConverter.h"
#include "support/Testing.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QRegularExpression>
#include <QtQml/qqmlextensionplugin.h>

#include <cstdio>
#include <locale>
#include <stdexcept>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

class TestHelpers : public QObject
{
    Q_OBJECT

    std::unique_ptr<Helpers> m_helpers{Helpers::create(nullptr, nullptr)};

private Q_SLOTS:
    // The user's locale as the environment names it, in the hyphenated form,
    // where the C library has it; otherwise C. Either way, formatting with it
    // works, so no binding that formats breaks.
    void localeNames_data()
    {
        QTest::addColumn<QString>("variable");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("system");
        QTest::newRow("LANG") << u"LANG"_s << u"de_DE.UTF-8"_s << u"de-DE"_s;
        QTest::newRow("LC_ALL over LANG") << u"LC_ALL"_s << u"fr_CA.UTF-8"_s << u"fr-CA"_s;
        QTest::newRow("never generated") << u"LANG"_s << u"xh_ZA.UTF-8"_s << u"xh-ZA"_s;
    }

    void localeNames()
    {
        QFETCH(QString, variable);
        QFETCH(QString, value);
        QFETCH(QString, system);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"LC_ALL", "LC_CTYPE", "LC_MESSAGES", "LC_NUMERIC", "LANGUAGE"}) {
            environment.remove(QString::fromLatin1(name));
        }
        environment.insert(u"LANG"_s, u"en_GB.UTF-8"_s);
        environment.insert(variable, value);
        const ChildRun child = runSelf({u"--print-locales"_s}, environment);
        // Whether the C library has the locale, asked of it directly.
        bool generated = true;
        try {
            std::locale(value.toStdString());
        } catch (const std::runtime_error&) {
            generated = false;
        }
        QCOMPARE(child.standardOutput.trimmed(),
                 system + u' ' + (generated ? system : u"C"_s) + u" x:"_s);
    }

    // No C++ exception crosses the engine: from markup, ConvertBack is a
    // script error that the script can catch.
    void convertBackFromMarkup()
    {
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData("import QtQml\nimport Zorvane\nQtObject {\n"
                          "  property InverseBooleanToVisibilityConverter c: "
                          "InverseBooleanToVisibilityConverter {}\n"
                          "  property string caught: { try { c.ConvertBack(1); return \"no\" }"
                          " catch (e) { return e.message } }\n}\n",
                          QUrl(u"file:///convert.qml"_s));
        const std::unique_ptr<QObject> object(component.create());
        QVERIFY2(object, qPrintable(component.errorString()));
        QCOMPARE(object->property("caught").toString(), u"0x80004001"_s);
    }

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

// "--print-locales": the two locale names, as a process started in some
// locale computes them before main, and a formatting with the user's.
static int printLocales(int, char**)
{
    const std::unique_ptr<Helpers> helpers(Helpers::create(nullptr, nullptr));
    std::printf("%s %s %s\n", qPrintable(Helpers::SystemLocaleName()),
                qPrintable(Helpers::UserLocaleName()),
                qPrintable(helpers->FormatString(u"{0}:"_s, u"x"_s, Helpers::UserLocaleName())));
    return 0;
}

int main(int argc, char** argv)
{
    return testMain<TestHelpers, QCoreApplication>(argc, argv, {{"--print-locales", printLocales}});
}
#include "TestHelpers.moc"
