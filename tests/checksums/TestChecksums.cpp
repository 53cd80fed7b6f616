#include "checksums/ChecksumReport.h"
#include "checksums/ChecksumRun.h"
#include "checksums/ChecksumSelection.h"
#include "checksums/ChosenAlgorithms.h"
#include "checksums/OpenSslChecksumsViewModel.h"
#include "support/EventLoopProbe.h"
#include "support/IsolatedConfig.h"
#include "support/OpenSslReader.h"
#include "support/Testing.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

// Stands in for the checksum page: a "state" the run switches, a picked file,
// and a size text that follows FileSize the way the page's binding does.
class FakeChecksumPage : public QObject, public ChecksumRunHost
{
    Q_OBJECT
    Q_PROPERTY(QString state MEMBER m_state NOTIFY stateChanged)

public:
    explicit FakeChecksumPage(const QString& chosen = {})
        : m_viewModel(std::make_shared<OpenSslChecksumsViewModel>())
    {
        connect(m_viewModel.get(), &OpenSslChecksumsViewModel::FileSizeChanged, this,
                [this] { sizeText = QString::number(m_viewModel->FileSize()); });
        connect(this, &FakeChecksumPage::stateChanged, this, [this] { states << m_state; });
        if (chosen == u"all"_s) {
            ChecksumSelection::SelectAllClick(*m_viewModel);
        } else {
            ChecksumSelection::ApplyStoredNames(*m_viewModel, chosen);
        }
    }

    QObject* PageObject() override { return this; }
    std::shared_ptr<OpenSslChecksumsViewModel> ViewModel() override { return m_viewModel; }
    QByteArray FilePath() const override { return file; }
    void ClearSizeText() override { sizeText.clear(); }

    HashAlgo* algo(const QString& name) const
    {
        for (HashAlgo* algo : m_viewModel->AvailableHashAlgos()->items()) {
            if (algo->ShortName() == name) {
                return algo;
            }
        }
        return nullptr;
    }
    QString checksum(const QString& name) const { return algo(name)->Checksum(); }
    bool waitForNormal(int runs = 1)
    {
        return QTest::qWaitFor([&] { return states.count(u"Normal"_s) >= runs; }, 60000);
    }

    QByteArray file;
    QString sizeText;
    QStringList states;

Q_SIGNALS:
    void stateChanged();

private:
    QString m_state;
    std::shared_ptr<OpenSslChecksumsViewModel> m_viewModel;
};

namespace {
QStringList names(const HashAlgoVector& vector)
{
    QStringList result;
    for (const HashAlgo* algo : vector.items()) {
        result << algo->ShortName();
    }
    return result;
}
} // namespace

// The checksum model, its runs over files and what is kept of it, without a
// window.
class TestChecksums : public QObject
{
    Q_OBJECT

    Zorvane::Testing::IsolatedConfig m_config;
    QTemporaryDir m_dir;

    // A name is bytes, and need not be UTF-8.
    QByteArray writeFile(const QByteArray& name, const QByteArray& content)
    {
        const QByteArray path = QFile::encodeName(m_dir.path()) + '/' + name;
        std::FILE* file = std::fopen(path.constData(), "wb");
        const bool written =
            file != nullptr && std::fwrite(content.constData(), 1, size_t(content.size()), file) ==
                                   size_t(content.size());
        return file != nullptr && std::fclose(file) == 0 && written ? path : QByteArray();
    }

private Q_SLOTS:
    // What OpenSSL 3.0's default provider offers, in code unit order
    // ("SHA2-512" before "SHA2-512/224"), without "NULL", which has no numeric
    // type; and the report of a run in the order chosen, with CRLF.
    void catalogueAndReport()
    {
        FakeChecksumPage page(u"SHA1,MD5,SHA2-256"_s);
        QCOMPARE(names(*page.ViewModel()->AvailableHashAlgos()),
                 u"BLAKE2B-512 BLAKE2S-256 MD5 MD5-SHA1 RIPEMD-160 SHA1 SHA2-224 SHA2-256 "
                 u"SHA2-384 SHA2-512 SHA2-512/224 SHA2-512/256 SHA3-224 SHA3-256 SHA3-384 "
                 u"SHA3-512 SHAKE-128 SHAKE-256 SM3"_s.split(u' '));
        page.algo(u"SHA1"_s)->setChecksum(u"AA"_s);
        page.algo(u"SHA2-256"_s)->setChecksum(u"0F"_s);
        QCOMPARE(ChecksumReport::Text(u"/tmp/d\u00E9j\u00E0 vu.iso"_s, u"Size (Bytes):"_s, u"42"_s,
                                      *page.ViewModel()->HashAlgos()),
                 u"/tmp/d\u00E9j\u00E0 vu.iso\r\nSize (Bytes): 42\r\nSHA1: AA\r\nMD5: \r\n"
                 u"SHA2-256: 0F"_s);
    }

    // The chosen names are kept between runs of the installed program; a
    // stored value of another type counts as absent and changes nothing.
    void chosenAlgorithmsKept()
    {
        SettingsValues store = *GetSettingsValues(false);
        FakeChecksumPage first(u"SHA1,MD5"_s);
        SaveChosenAlgorithms(*first.ViewModel(), false);
        FakeChecksumPage second;
        LoadChosenAlgorithms(*second.ViewModel(), false);
        QCOMPARE(names(*second.ViewModel()->HashAlgos()), (QStringList{u"SHA1"_s, u"MD5"_s}));

        store.Insert(u"ChosenAlgorithms"_s, 42);
        FakeChecksumPage third;
        QSignalSpy changes(third.ViewModel()->HashAlgos(), &HashAlgoVector::VectorChanged);
        LoadChosenAlgorithms(*third.ViewModel(), false);
        QCOMPARE(changes.count(), 0);
    }

    // A run hashes off the UI thread and publishes the results in upper-case
    // hex (an extendable-output digest at 64 bytes) and the size. A new run
    // empties the old results and the size text at once, so the same size
    // shows again.
    void runPublishesResultsAndSize()
    {
        FakeChecksumPage page(u"SHA2-256,MD5,SHAKE-256"_s);
        page.file = writeFile("fox.txt", "The quick brown fox jumps over the lazy dog");
        CalculateChecksums(&page);
        QCOMPARE(page.states, QStringList{u"InProgress"_s});
        QVERIFY(page.waitForNormal());
        QCOMPARE(page.checksum(u"SHA2-256"_s),
                 u"D7A8FBB307D7809469CA9ABCB0082E4F8D5651E46D3CDB762D02D0BF37C9E592"_s);
        QCOMPARE(page.checksum(u"MD5"_s), u"9E107D9D372BB6826BD81D3542A419D6"_s);
        QCOMPARE(page.checksum(u"SHAKE-256"_s).size(), 128);
        QCOMPARE(page.sizeText, u"43"_s);

        CalculateChecksums(&page);
        QCOMPARE(page.sizeText, QString());
        QCOMPARE(page.checksum(u"MD5"_s), QString());
        QVERIFY(page.waitForNormal(2));
        QCOMPARE(page.sizeText, u"43"_s);
    }

    // An empty file (under a name that is not UTF-8, where names are bytes)
    // has a size and results; a digest that cannot finish has none.
    void emptyFileAndADigestThatCannotFinish()
    {
        FakeChecksumPage page;
#ifdef Q_OS_WIN
        page.file = writeFile("empty", {});
#else
        page.file = writeFile("empty \xff\xfe", {});
#endif
        const std::unique_ptr<HashAlgo> nameOnly(HashAlgo::CreateInstance(u"NAME-ONLY"_s));
        page.ViewModel()->HashAlgos()->ReplaceAll({nameOnly.get(), page.algo(u"SHA1"_s)});
        CalculateChecksums(&page);
        QVERIFY(page.waitForNormal());
        QCOMPARE(page.checksum(u"SHA1"_s), u"DA39A3EE5E6B4B0D3255BFEF95601890AFD80709"_s);
        QCOMPARE(nameOnly->Checksum(), QString());
        QCOMPARE(page.sizeText, u"0"_s);
        ::unlink(page.file.constData()); // the temporary folder cannot spell it
    }

    // A run whose page has gone keeps the view model until it ends.
    void pageGoneDuringRun()
    {
        auto page = std::make_unique<FakeChecksumPage>(u"all"_s);
        page->file = writeFile("gone-page", QByteArray(1 << 20, 'z'));
        // Watched without holding it: only the run may keep it alive.
        const std::weak_ptr<OpenSslChecksumsViewModel> viewModel = page->ViewModel();
        QSignalSpy sizes(viewModel.lock().get(), &OpenSslChecksumsViewModel::FileSizeChanged);
        CalculateChecksums(page.get());
        page.reset();
        QVERIFY(!viewModel.expired());                        // the run keeps it...
        QTRY_VERIFY_WITH_TIMEOUT(viewModel.expired(), 60000); // ...until it ends,
        QCOMPARE(sizes.count(), 1);                           // and the size reached it first
    }

    // A file of many read chunks, every digest at once: the event loop stays
    // live, and the results are those of the openssl command.
    void largeFile()
    {
        FakeChecksumPage page(u"all"_s);
        page.file = writeFile("big", QByteArray(96 << 20, 'a'));
        const EventLoopProbe probe(5);
        CalculateChecksums(&page);
        QVERIFY(page.waitForNormal());
        QVERIFY(probe.stayedLive());
        for (const QString& name : {u"SHA2-256"_s, u"SHAKE-128"_s}) {
            QCOMPARE(page.checksum(name), opensslDigest(name, QFile::decodeName(page.file)));
        }
    }

    void unreadableFileEndsTheProcess_data()
    {
        QTest::addColumn<QString>("target");
        // The code as the platform has it, and why (after the call that failed).
        QTest::addColumn<QString>("line");
        // clang-format off
        QTest::newRow("vanished file") << u"vanished"_s << u"0x80070002: \\w+: No such file or directory"_s;
        QTest::newRow("a folder") << u"."_s << u"0x80070005: not a regular file: Is a directory"_s;
#ifdef Q_OS_WIN
        QTest::newRow("the NUL device") << u"\\\\.\\NUL"_s << u"0x80070057: not a regular file: Invalid argument"_s;
#else
        QTest::newRow("a pipe") << u"fifo"_s << u"0x80070057: not a regular file: Invalid argument"_s;
        QTest::newRow("an endless device") << u"/dev/zero"_s << u"0x80070057: not a regular file: Invalid argument"_s;
#endif
        // clang-format on
    }

    void unreadableFileEndsTheProcess()
    {
        QFETCH(QString, target);
        QFETCH(QString, line);
#ifdef Q_OS_UNIX
        mkfifo(QFile::encodeName(m_dir.filePath(u"fifo"_s)).constData(), 0600);
#endif
        const ChildRun child = runSelf(
            {u"--run-on"_s, QDir::isAbsolutePath(target) ? target : m_dir.filePath(target)});
        const QRegularExpression expected(u"Zorvane: fail-fast "_s + line + u'\n');
        QVERIFY2(child.crashed && expected.match(child.output).hasMatch(),
                 qPrintable(child.output));
    }
};

// "--run-on PATH": one run over PATH, then an orderly exit that an
// unreadable file must never reach.
static int runOn(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    FakeChecksumPage page(u"all"_s);
    page.file = argv[2];
    QObject::connect(&page, &FakeChecksumPage::stateChanged, &app, [&] {
        if (page.states.endsWith(u"Normal"_s)) {
            QCoreApplication::exit(0);
        }
    });
    CalculateChecksums(&page);
    return QCoreApplication::exec();
}

int main(int argc, char** argv)
{
    return testMain<TestChecksums, QCoreApplication>(argc, argv, {{"--run-on", runOn}});
}

#include "TestChecksums.moc"
