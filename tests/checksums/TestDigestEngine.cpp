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

    // One pass: the file is read once, in reads of 10 MiB, however many
    // digests there are. Counted by the kernel for this thread.
    void fileReadOnceInLargeReads_data()
    {
        QTest::addColumn<int>("digestCount"); // 0: all of them
        QTest::newRow("one digest") << 1;
        QTest::newRow("every digest") << 0;
    }

    void fileReadOnceInLargeReads()
    {
        QFETCH(int, digestCount);
        const qint64 size = 25 * 1024 * 1024 + 1;
        const QString path = m_dir.filePath(QStringLiteral("reads"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(size));
        file.close();
        const std::vector<EvpMdPtr> catalogue = provided_digests();
        std::vector<const EVP_MD*> digests;
        for (const EvpMdPtr& digest : catalogue) {
            if (digestCount == 0 || int(digests.size()) < digestCount) {
                digests.push_back(digest.get());
            }
        }
        const auto counters = [] {
            QFile io(QStringLiteral("/proc/thread-self/io"));
            io.open(QIODevice::ReadOnly);
            QMap<QByteArray, qint64> values;
            for (const QByteArray& line : io.readAll().split('\n')) {
                const qsizetype colon = line.indexOf(':');
                values.insert(line.left(colon), line.mid(colon + 1).trimmed().toLongLong());
            }
            return values;
        };
        OnePassDigester digester(digests);
        const auto before = counters();
        const auto reading = counters(); // what reading the counters costs
        ChunkedFileReader(path.toStdString()).feed(digester);
        const auto after = counters();
        const auto delta = [&](const QByteArray& key) {
            return after[key] - reading[key] - (reading[key] - before[key]);
        };
        QCOMPARE(delta("rchar"), size); // every byte once
        // 10 + 10 + 5 MiB and the end: a few reads, not one per MiB or per digest.
        const qint64 reads = delta("syscr");
        QVERIFY2(reads >= 3 && reads <= 5, qPrintable(QString::number(reads)));
    }
};

QTEST_GUILESS_MAIN(TestDigestEngine)
#include "TestDigestEngine.moc"
