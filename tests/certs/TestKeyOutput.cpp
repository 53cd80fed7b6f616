#include "OpenSslReader.h"
#include "key_output.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Zorvane;
using namespace Zorvane::Testing;

class TestKeyOutput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void access_data()
    {
        QTest::addColumn<int>("access");
        QTest::addColumn<bool>("existing");
        QTest::addColumn<unsigned>("expectedMode");
        QTest::newRow("new secret") << int(FileAccess::OwnerOnly) << false << 0600u;
        QTest::newRow("existing secret: truncated, restricted")
            << int(FileAccess::OwnerOnly) << true << 0600u;
        QTest::newRow("public, as the umask leaves it")
            << int(FileAccess::Shared) << false << 0644u;
    }

    void access()
    {
        QFETCH(int, access);
        QFETCH(bool, existing);
        QFETCH(unsigned, expectedMode);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("out"));
        if (existing) {
            QFile old(path);
            QVERIFY(old.open(QIODevice::WriteOnly) && old.write(QByteArray(100, 'x')) == 100);
            QVERIFY(old.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
        }
        const mode_t oldMask = umask(022);
        {
            const BioPtr file = OpenOutputBio(path.toStdString(), FileAccess(access));
            QVERIFY(file);
            // Restricted before anything is written.
            QCOMPARE(fileMode(path), std::optional<unsigned>(expectedMode));
            QCOMPARE(QFileInfo(path).size(), 0);
        }
        umask(oldMask);
    }

    void specialFilesKeepTheirMode()
    {
        QTemporaryDir dir;
        const QByteArray fifo = dir.filePath(QStringLiteral("pipe")).toUtf8();
        QCOMPARE(mkfifo(fifo.constData(), 0644), 0);
        chmod(fifo.constData(), 0644);
        // A reader first, so that opening for writing does not block.
        const int reader = open(fifo.constData(), O_RDONLY | O_NONBLOCK);
        QVERIFY(reader >= 0);
        {
            const BioPtr file = OpenOutputBio(fifo.toStdString(), FileAccess::OwnerOnly);
            QVERIFY(file);
        }
        close(reader);
        QCOMPARE(fileMode(QString::fromUtf8(fifo)), std::optional<unsigned>(0644));
    }
};

QTEST_GUILESS_MAIN(TestKeyOutput)
#include "TestKeyOutput.moc"
