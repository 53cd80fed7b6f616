#include "checksums/digest_engine.h"
#include "support/OpenSslReader.h"
#include "support/Testing.h"

#include <QMap>
#include <QRandomGenerator>

namespace {

QString writeInput(const QTemporaryDir& dir, const QString& name, qint64 size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    QRandomGenerator generator(static_cast<quint32>(size));
    for (char& byte : bytes) {
        byte = static_cast<char>(generator.bounded(256));
    }
    const QString path = dir.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != size) {
        return {};
    }
    return path;
}

// What the openssl command prints for the file, upper-cased as we show it.
QString opensslDigest(const EVP_MD* digest, const QString& path)
{
    QStringList arguments{QStringLiteral("dgst"), QStringLiteral("-r"),
                          QLatin1Char('-') + QString::fromLatin1(EVP_MD_get0_name(digest))};
    if ((EVP_MD_get_flags(digest) & EVP_MD_FLAG_XOF) != 0) {
        arguments << QStringLiteral("-xoflen") << QStringLiteral("64"); // bytes, for every XOF
    }
    const CommandResult result = runOpenSsl(arguments << path);
    if (result.exitCode != 0) {
        return QStringLiteral("openssl failed: ") + result.output;
    }
    return result.output.section(QLatin1Char(' '), 0, 0).toUpper();
}

} // namespace

class TestDigestEngine : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

private Q_SLOTS:
    void everyDigestMatchesTheOpensslCommand_data()
    {
        QTest::addColumn<qint64>("size");
        QTest::newRow("empty") << qint64(0);
        QTest::newRow("one byte") << qint64(1);
        QTest::newRow("exactly one chunk of 10 MiB") << qint64(10485760);
        QTest::newRow("one chunk and a byte") << qint64(10485761);
        QTest::newRow("a few MiB") << qint64(3 * 1024 * 1024 + 12345);
    }

    void everyDigestMatchesTheOpensslCommand()
    {
        QFETCH(qint64, size);
        const QString path = writeInput(m_dir, QString::number(size), size);
        QVERIFY(!path.isEmpty());

        const std::vector<EvpMdPtr> catalogue = provided_digests();
        QVERIFY(catalogue.size() >= 10);
        std::vector<const EVP_MD*> digests;
        for (const EvpMdPtr& digest : catalogue) {
            digests.push_back(digest.get());
        }

        // All of them in one pass over the file.
        QCOMPARE(file_size(path.toStdString()), size);
        OnePassDigester digester(digests);
        ChunkedFileReader(path.toStdString()).feed(digester);
        const std::vector<std::optional<std::string>> results = digester.finish();
        QCOMPARE(results.size(), digests.size());

        for (std::size_t i = 0; i < digests.size(); ++i) {
            const QString name = QString::fromLatin1(EVP_MD_get0_name(digests[i]));
            QVERIFY2(results[i].has_value(), qPrintable(name));
            QCOMPARE(name + QLatin1Char(' ') + QString::fromStdString(*results[i]),
                     name + QLatin1Char(' ') + opensslDigest(digests[i], path));
        }
    }
};

QTEST_GUILESS_MAIN(TestDigestEngine)
#include "TestDigestEngine.moc"
