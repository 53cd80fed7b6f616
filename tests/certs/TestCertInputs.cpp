#include "certs/output_paths.h"
#include "certs/self_signed_builder.h"
#include "certs/ssl_error_category.h"
#include "certs/subject_and_extensions.h"
#include "support/Testing.h"

#include <openssl/asn1err.h>
#include <openssl/err.h>

#include <cerrno>

// What the engine makes of its inputs before OpenSSL sees them, and how it
// words OpenSSL's errors.
class TestCertInputs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wording_data()
    {
        QTest::addColumn<int>("category"); // 0 ssl, 1 generic, 2 system
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("expected");
        // clang-format off
        QTest::newRow("ordinary code, decimal") << 0 << 0x06800097 << u"[ssl:109052055] string too long"_s;
        // A system error: OpenSSL keeps no reason text for those.
        QTest::newRow("top bit set, eight hex digits") << 0 << int(0x80000002u) << u"[ssl:0x80000002] ssl error"_s;
        QTest::newRow("code without text") << 0 << 0x40000FA0 << u"[ssl:1073745824] ssl error"_s;
        QTest::newRow("empty queue") << 0 << 0 << u"[ssl:0] ssl error"_s;
        QTest::newRow("another category") << 1 << ENOENT << u"[generic:2] No such file or directory"_s;
        QTest::newRow("another category, negative") << 2 << -1 << u"[system:0xffffffff] Unknown error -1"_s;
        // clang-format on
    }

    void wording()
    {
        QFETCH(int, category);
        QFETCH(int, value);
        QFETCH(QString, expected);
        const std::error_category* categories[] = {&ssl_category(), &std::generic_category(),
                                                   &std::system_category()};
        const std::error_code ec(value, *categories[category]);
        QCOMPARE(QString::fromStdString(error_code_text(ec)), expected);
    }

    void lastErrorIsNewestAndStaysQueued()
    {
        ERR_clear_error();
        ERR_raise(ERR_LIB_ASN1, ASN1_R_TOO_LONG);
        ERR_raise(ERR_LIB_ASN1, ASN1_R_STRING_TOO_LONG);
        const std::error_code first = last_ssl_error();
        QCOMPARE(&first.category(), &ssl_category());
        QCOMPARE(first.value(), int(ERR_PACK(ERR_LIB_ASN1, 0, ASN1_R_STRING_TOO_LONG)));
        QCOMPARE(last_ssl_error(), first);
        // Nothing was taken off the queue: the older entry is still first.
        QCOMPARE(ERR_peek_error(), ERR_PACK(ERR_LIB_ASN1, 0, ASN1_R_TOO_LONG));
    }

    void altNames_data()
    {
        QTest::addColumn<QByteArray>("altNames");
        QTest::addColumn<QString>("commonName");
        QTest::addColumn<QByteArrayList>("expected");
        const QString cn = u"host.example"_s;
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
            << u"10.0.0.1"_s << QByteArrayList{"IP:10.0.0.2"};
        QTest::newRow("near addresses are names")
            << QByteArray("1.2.3\r10.0.0.1 \r10.0.0.1.\r256.1.1.1\r1.2.3.4.5\r::1%lo") << cn
            << QByteArrayList{"DNS:1.2.3", "DNS:10.0.0.1 ", "DNS:10.0.0.1.", "DNS:256.1.1.1",
                              "DNS:1.2.3.4.5", "DNS:::1%lo"};
        // Each byte is widened on its own with sign extension: é (C3 A9) turns
        // into U+FFC3 U+FFA9, which is what goes out.
        QTest::newRow("non-ASCII bytes widened") << QByteArray("caf\xC3\xA9") << cn
            << QByteArrayList{"DNS:caf\xEF\xBF\x83\xEF\xBE\xA9"};
        QTest::newRow("non-ASCII never equals the common name") << QByteArray("caf\xC3\xA9")
            << u"caf\u00E9"_s << QByteArrayList{"DNS:caf\xEF\xBF\x83\xEF\xBE\xA9"};
        // clang-format on
    }

    void altNames()
    {
        QFETCH(QByteArray, altNames);
        QFETCH(QString, commonName);
        QFETCH(QByteArrayList, expected);
        QByteArrayList values;
        for (const std::string& value :
             alt_name_values(altNames.toStdString(), commonName.toStdU16String())) {
            values << QByteArray::fromStdString(value);
        }
        QCOMPARE(values, expected);
    }

    // The file picked, the default extension, then the paths written to.
    void outputPaths_data()
    {
        QTest::addColumn<QByteArrayList>("paths");
        // clang-format off
        QTest::newRow("no extension") << QByteArrayList{"/d/name", ".crt", "/d/name.crt", "/d/name.key"};
        QTest::newRow("typed extension kept") << QByteArrayList{"/d/name.pem", ".crt", "/d/name.pem", "/d/name.key"};
        QTest::newRow("only the last extension") << QByteArrayList{"/d/name.tar.gz", ".crt", "/d/name.tar.gz", "/d/name.tar.key"};
        QTest::newRow("key extension collides") << QByteArrayList{"/d/name.key", ".crt", "/d/name.key", "/d/name.key"};
        QTest::newRow("bundle gets .pfx") << QByteArrayList{"/d/name", ".pfx", "/d/name.pfx", "/d/name.key"};
        QTest::newRow("request extension kept") << QByteArrayList{"/d/name.req", ".csr", "/d/name.req", "/d/name.key"};
        QTest::newRow("leading dot is no extension") << QByteArrayList{"/d/.hidden", ".csr", "/d/.hidden.csr", "/d/.hidden.key"};
        QTest::newRow("two leading dots") << QByteArrayList{"/d/..x", ".csr", "/d/..x", "/d/..key"};
        QTest::newRow("trailing dot") << QByteArrayList{"/d/name.", ".crt", "/d/name.", "/d/name.key"};
        QTest::newRow("dot in a folder only") << QByteArrayList{"/a.b/name", ".csr", "/a.b/name.csr", "/a.b/name.key"};
        QTest::newRow("colon is part of the name") << QByteArrayList{"/d/a.txt:s", ".crt", "/d/a.txt:s", "/d/a.key"};
        // clang-format on
    }

    void outputPaths()
    {
        QFETCH(QByteArrayList, paths);
        const std::string main =
            with_default_extension(paths[0].toStdString(), paths[1].toStdString());
        QCOMPARE((QByteArrayList{QByteArray::fromStdString(main),
                                 QByteArray::fromStdString(key_path_for(main))}),
                 paths.mid(2));
    }
};

QTEST_GUILESS_MAIN(TestCertInputs)
#include "TestCertInputs.moc"
