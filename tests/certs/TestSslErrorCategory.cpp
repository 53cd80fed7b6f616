#include "certs/ssl_error_category.h"

#include <QTest>

#include <openssl/asn1err.h>
#include <openssl/err.h>

#include <cerrno>

using namespace Zorvane;

class TestSslErrorCategory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { ERR_clear_error(); }

    void wording_data()
    {
        QTest::addColumn<int>("category"); // 0 ssl, 1 generic, 2 system
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("expected");

        // clang-format off
        QTest::newRow("ordinary code, decimal") << 0 << 0x06800097
            << QStringLiteral("[ssl:109052055] string too long");
        // A system error: OpenSSL keeps no reason text for those.
        QTest::newRow("top bit set, eight hex digits") << 0 << static_cast<int>(0x80000002u)
            << QStringLiteral("[ssl:0x80000002] ssl error");
        QTest::newRow("code without text") << 0 << 0x40000FA0
            << QStringLiteral("[ssl:1073745824] ssl error");
        QTest::newRow("empty queue") << 0 << 0 << QStringLiteral("[ssl:0] ssl error");
        QTest::newRow("another category") << 1 << ENOENT
            << QStringLiteral("[generic:2] No such file or directory");
        QTest::newRow("another category, negative") << 2 << -1
            << QStringLiteral("[system:0xffffffff] Unknown error -1");
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
        ERR_raise(ERR_LIB_ASN1, ASN1_R_TOO_LONG);
        ERR_raise(ERR_LIB_ASN1, ASN1_R_STRING_TOO_LONG);
        const std::error_code first = last_ssl_error();
        const std::error_code second = last_ssl_error();

        QCOMPARE(&first.category(), &ssl_category());
        QCOMPARE(first.value(),
                 static_cast<int>(ERR_PACK(ERR_LIB_ASN1, 0, ASN1_R_STRING_TOO_LONG)));
        QCOMPARE(second, first);
        // Nothing was taken off the queue: the older entry is still first.
        QCOMPARE(ERR_peek_error(), ERR_PACK(ERR_LIB_ASN1, 0, ASN1_R_TOO_LONG));
    }
};

QTEST_GUILESS_MAIN(TestSslErrorCategory)
#include "TestSslErrorCategory.moc"
