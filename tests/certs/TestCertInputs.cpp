#include "certs/output_paths.h"
#include "certs/self_signed_builder.h"
#include "certs/subject_and_extensions.h"

#include <QTest>

using namespace Zorvane;

namespace {
QByteArrayList toList(const std::vector<std::string>& values)
{
    QByteArrayList list;
    for (const std::string& value : values) {
        list << QByteArray::fromStdString(value);
    }
    return list;
}
} // namespace

class TestCertInputs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void altNames_data()
    {
        QTest::addColumn<QByteArray>("altNames");
        QTest::addColumn<QString>("commonName");
        QTest::addColumn<QByteArrayList>("expected");

        const QString cn = QStringLiteral("host.example");
        // clang-format off
        QTest::newRow("empty") << QByteArray() << cn << QByteArrayList{};
        QTest::newRow("host and IPv4") << QByteArray("a.example\r10.0.0.1") << cn
            << QByteArrayList{"DNS:a.example", "IP:10.0.0.1"};
        QTest::newRow("IPv6") << QByteArray("::1\r2001:db8::7") << cn
            << QByteArrayList{"IP:::1", "IP:2001:db8::7"};
        QTest::newRow("IPv6 kept as typed") << QByteArray("2001:0DB8:0:0::1") << cn
            << QByteArrayList{"IP:2001:0DB8:0:0::1"};
        QTest::newRow("CR runs are one separator") << QByteArray("a\r\r\rb") << cn
            << QByteArrayList{"DNS:a", "DNS:b"};
        QTest::newRow("leading and trailing CRs") << QByteArray("\r\ra\r\r") << cn
            << QByteArrayList{"DNS:a"};
        QTest::newRow("only CRs") << QByteArray("\r\r") << cn << QByteArrayList{};
        QTest::newRow("LF stays in the token") << QByteArray("a\nb\r\nc") << cn
            << QByteArrayList{"DNS:a\nb", "DNS:\nc"};
        QTest::newRow("blanks, commas, semicolons kept") << QByteArray(" a ;b,c") << cn
            << QByteArrayList{"DNS: a ;b,c"};
        QTest::newRow("duplicates kept") << QByteArray("a\ra") << cn
            << QByteArrayList{"DNS:a", "DNS:a"};
        QTest::newRow("common name dropped, other case kept")
            << QByteArray("host.example\rHOST.example\rhost.example") << cn
            << QByteArrayList{"DNS:HOST.example"};
        QTest::newRow("IP common name dropped") << QByteArray("10.0.0.1\r10.0.0.2")
            << QStringLiteral("10.0.0.1") << QByteArrayList{"IP:10.0.0.2"};
        QTest::newRow("near addresses are names")
            << QByteArray("1.2.3\r10.0.0.1 \r10.0.0.1.\r256.1.1.1\r1.2.3.4.5\r::1%lo") << cn
            << QByteArrayList{"DNS:1.2.3", "DNS:10.0.0.1 ", "DNS:10.0.0.1.", "DNS:256.1.1.1",
                              "DNS:1.2.3.4.5", "DNS:::1%lo"};
        // Each byte is widened on its own with sign extension: é (C3 A9) turns
        // into U+FFC3 U+FFA9, which is what goes out.
        QTest::newRow("non-ASCII bytes widened") << QByteArray("caf\xC3\xA9") << cn
            << QByteArrayList{"DNS:caf\xEF\xBF\x83\xEF\xBE\xA9"};
        QTest::newRow("non-ASCII never equals the common name") << QByteArray("caf\xC3\xA9")
            << QStringLiteral("caf\u00E9") << QByteArrayList{"DNS:caf\xEF\xBF\x83\xEF\xBE\xA9"};
        // clang-format on
    }

    void altNames()
    {
        QFETCH(QByteArray, altNames);
        QFETCH(QString, commonName);
        QFETCH(QByteArrayList, expected);
        QCOMPARE(toList(alt_name_values(altNames.toStdString(), commonName.toStdU16String())),
                 expected);
    }

    void outputPaths_data()
    {
        QTest::addColumn<QString>("picked");
        QTest::addColumn<QString>("defaultExtension");
        QTest::addColumn<QString>("mainPath");
        QTest::addColumn<QString>("keyPath");

        // clang-format off
        QTest::newRow("no extension") << "/d/name" << ".crt" << "/d/name.crt" << "/d/name.key";
        QTest::newRow("typed extension kept") << "/d/name.pem" << ".crt" << "/d/name.pem" << "/d/name.key";
        QTest::newRow("only the last extension") << "/d/name.tar.gz" << ".crt" << "/d/name.tar.gz" << "/d/name.tar.key";
        QTest::newRow("key extension collides") << "/d/name.key" << ".crt" << "/d/name.key" << "/d/name.key";
        QTest::newRow("bundle gets .pfx") << "/d/name" << ".pfx" << "/d/name.pfx" << "/d/name.key";
        QTest::newRow("request extension kept") << "/d/name.req" << ".csr" << "/d/name.req" << "/d/name.key";
        QTest::newRow("leading dot is no extension") << "/d/.hidden" << ".csr" << "/d/.hidden.csr" << "/d/.hidden.key";
        QTest::newRow("two leading dots") << "/d/..x" << ".csr" << "/d/..x" << "/d/..key";
        QTest::newRow("trailing dot") << "/d/name." << ".crt" << "/d/name." << "/d/name.key";
        QTest::newRow("dot in a folder only") << "/a.b/name" << ".csr" << "/a.b/name.csr" << "/a.b/name.key";
        QTest::newRow("colon is part of the name") << "/d/a.txt:s" << ".crt" << "/d/a.txt:s" << "/d/a.key";
        // clang-format on
    }

    void outputPaths()
    {
        QFETCH(QString, picked);
        QFETCH(QString, defaultExtension);
        QFETCH(QString, mainPath);
        QFETCH(QString, keyPath);
        const std::string main =
            with_default_extension(picked.toStdString(), defaultExtension.toStdString());
        QCOMPARE(QString::fromStdString(main), mainPath);
        QCOMPARE(QString::fromStdString(key_path_for(main)), keyPath);
    }

    void outputFormat_data()
    {
        QTest::addColumn<QString>("tag");
        QTest::addColumn<int>("format");
        QTest::addColumn<QString>("extension");
        QTest::newRow("PEM") << "PEM" << int(OutputFormat::Pem) << ".crt";
        QTest::newRow("lower case is a bundle") << "pem" << int(OutputFormat::Pkcs12) << ".pfx";
        QTest::newRow("PKCS#12") << "PKCS#12" << int(OutputFormat::Pkcs12) << ".pfx";
        QTest::newRow("empty") << "" << int(OutputFormat::Pkcs12) << ".pfx";
    }

    void outputFormat()
    {
        QFETCH(QString, tag);
        QFETCH(int, format);
        QFETCH(QString, extension);
        const OutputFormat chosen = output_format_for_tag(tag.toStdString());
        QCOMPARE(int(chosen), format);
        QCOMPARE(QString::fromUtf8(default_extension(chosen)), extension);
    }
};

QTEST_GUILESS_MAIN(TestCertInputs)
#include "TestCertInputs.moc"
