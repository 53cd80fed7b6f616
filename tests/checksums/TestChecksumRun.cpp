#include "ChecksumTesting.h"
#include "checksums/ChecksumRun.h"
#include "checksums/ChecksumSelection.h"
#include "checksums/OpenSslChecksumsViewModel.h"
#include "support/EventLoopProbe.h"
#include "support/OpenSslReader.h"
#include "support/Testing.h"

#include <QCoreApplication>

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
    FakeChecksumPage() : m_viewModel(std::make_shared<OpenSslChecksumsViewModel>())
    {
        connect(m_viewModel.get(), &OpenSslChecksumsViewModel::FileSizeChanged, this,
                [this] { sizeText = QString::number(m_viewModel->FileSize()); });
        connect(this, &FakeChecksumPage::stateChanged, this, [this] { states << m_state; });
    }

    QObject* PageObject() override { return this; }
    std::shared_ptr<OpenSslChecksumsViewModel> ViewModel() override { return m_viewModel; }
    QByteArray FilePath() const override { return file; }
    void ClearSizeText() override { sizeText.clear(); }

    OpenSslChecksumsViewModel& viewModel() { return *m_viewModel; }

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

bool waitForNormal(FakeChecksumPage& page, int runs = 1)
{
    return QTest::qWaitFor([&] { return page.states.count(u"Normal"_s) >= runs; }, 60000);
}

} // namespace

class TestChecksumRun : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    // A name is bytes, and need not be UTF-8.
    QByteArray writeFile(const QByteArray& name, const QByteArray& content)
    {
        const QByteArray path = QFile::encodeName(m_dir.path()) + '/' + name;
        std::FILE* file = std::fopen(path.constData(), "wb");
        const bool written =
            file != nullptr &&
            std::fwrite(content.constData(), 1, static_cast<std::size_t>(content.size()), file) ==
                static_cast<std::size_t>(content.size());
        return (file != nullptr && std::fclose(file) == 0 && written) ? path : QByteArray();
    }

private Q_SLOTS:
    void runWithoutFileOnlyFlipsStates()
    {
        FakeChecksumPage page;
        ChecksumSelection::ApplyStoredNames(page.viewModel(), u"MD5"_s);
        find(page.viewModel(), u"MD5"_s)->setChecksum(u"OLD"_s);
        page.sizeText = u"stale"_s;
        QSignalSpy sizes(&page.viewModel(), &OpenSslChecksumsViewModel::FileSizeChanged);

        CalculateChecksums(&page);
        // No file: the run ends before any hop, so all is done on return.
        QCOMPARE(page.states, (QStringList{u"InProgress"_s, u"Normal"_s}));
        QCOMPARE(sizes.count(), 0); // -1 already: no change
        QCOMPARE(page.sizeText, QString());
        QCOMPARE(find(page.viewModel(), u"MD5"_s)->Checksum(), QString());
    }

    void runPublishesResultsAndSize()
    {
        const QByteArray content = "The quick brown fox jumps over the lazy dog";
        FakeChecksumPage page;
        page.file = writeFile("fox.txt", content);
        ChecksumSelection::ApplyStoredNames(page.viewModel(), u"SHA2-256,MD5,SHAKE-256"_s);
        HashAlgo* unchosen = find(page.viewModel(), u"SHA1"_s);
        unchosen->setChecksum(u"KEPT"_s);
        QSignalSpy sizes(&page.viewModel(), &OpenSslChecksumsViewModel::FileSizeChanged);

        CalculateChecksums(&page);
        QCOMPARE(page.states, QStringList{u"InProgress"_s}); // the rest is off the UI thread
        QVERIFY(waitForNormal(page));

        // clang-format off
        QCOMPARE(find(page.viewModel(), u"SHA2-256"_s)->Checksum(),
                 u"D7A8FBB307D7809469CA9ABCB0082E4F8D5651E46D3CDB762D02D0BF37C9E592"_s);
        QCOMPARE(find(page.viewModel(), u"MD5"_s)->Checksum(), u"9E107D9D372BB6826BD81D3542A419D6"_s);
        QCOMPARE(find(page.viewModel(), u"SHAKE-256"_s)->Checksum().size(), 128);
        // clang-format on
        QCOMPARE(unchosen->Checksum(), u"KEPT"_s); // only the snapshot is cleared
        QCOMPARE(page.viewModel().FileSize(), content.size());
        QCOMPARE(page.sizeText, QString::number(content.size()));

        // The same file again: through -1 and back, so the size shows again.
        CalculateChecksums(&page);
        QCOMPARE(page.sizeText, QString());
        QVERIFY(waitForNormal(page, 2));
        QCOMPARE(page.sizeText, QString::number(content.size()));
        QCOMPARE(sizes.count(), 3);
        QCOMPARE(page.states,
                 (QStringList{u"InProgress"_s, u"Normal"_s, u"InProgress"_s, u"Normal"_s}));
    }

    void emptyFile()
    {
        FakeChecksumPage page;
        page.file = writeFile("empty \xff\xfe", {}); // a name that is not UTF-8
        ChecksumSelection::ApplyStoredNames(page.viewModel(), u"SHA1"_s);
        CalculateChecksums(&page);
        QVERIFY(waitForNormal(page));
        QCOMPARE(find(page.viewModel(), u"SHA1"_s)->Checksum(),
                 u"DA39A3EE5E6B4B0D3255BFEF95601890AFD80709"_s);
        QCOMPARE(page.sizeText, u"0"_s);
        ::unlink(page.file.constData()); // the temporary folder cannot spell it
    }

    void digestThatCannotFinishStaysEmpty()
    {
        FakeChecksumPage page;
        page.file = writeFile("abc", "abc");
        const std::unique_ptr<HashAlgo> nameOnly(HashAlgo::CreateInstance(u"NAME-ONLY"_s));
        HashAlgo* sha1 = find(page.viewModel(), u"SHA1"_s);
        page.viewModel().HashAlgos()->ReplaceAll({nameOnly.get(), sha1});
        CalculateChecksums(&page);
        QVERIFY(waitForNormal(page));
        QCOMPARE(nameOnly->Checksum(), QString());
        QCOMPARE(sha1->Checksum(), u"A9993E364706816ABA3E25717850C26C9CD0D89D"_s);
    }

    void pageGoneDuringRun()
    {
        auto page = std::make_unique<FakeChecksumPage>();
        page->file = writeFile("gone-page", QByteArray(1 << 20, 'z'));
        ChecksumSelection::SelectAllClick(page->viewModel());
        // Watched without holding it: only the run may keep it alive.
        const std::weak_ptr<OpenSslChecksumsViewModel> viewModel = page->ViewModel();
        QSignalSpy sizes(viewModel.lock().get(), &OpenSslChecksumsViewModel::FileSizeChanged);
        CalculateChecksums(page.get());
        page.reset();
        QVERIFY(!viewModel.expired());                        // the run keeps it...
        QTRY_VERIFY_WITH_TIMEOUT(viewModel.expired(), 60000); // ...until it ends,
        QCOMPARE(sizes.count(), 1);                           // and the size reached it first
    }

    void eventLoopStaysResponsive()
    {
        FakeChecksumPage page;
        page.file = writeFile("big", QByteArray(96 << 20, 'a'));
        ChecksumSelection::SelectAllClick(page.viewModel());
        const EventLoopProbe probe(5);
        CalculateChecksums(&page);
        QVERIFY(waitForNormal(page));
        QVERIFY2(probe.stayedLive(), qPrintable(probe.report()));
        QCOMPARE(page.viewModel().FileSize(), qint64(96 << 20));
    }

    void unreadableFileEndsTheProcess_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("line"); // the code as the platform has it, and why
        // clang-format off
        QTest::newRow("vanished file") << u"vanished"_s << u"0x80070002: stat: No such file or directory"_s;
        QTest::newRow("a folder") << u"."_s << u"0x80070005: not a regular file: Is a directory"_s;
        QTest::newRow("name too long") << QString(300, u'n') << u"0x800700CE: stat: File name too long"_s;
        QTest::newRow("a pipe") << u"fifo"_s << u"0x80070057: not a regular file: Invalid argument"_s;
        QTest::newRow("an endless device") << u"/dev/zero"_s << u"0x80070057: not a regular file: Invalid argument"_s;
        // clang-format on
    }

    void unreadableFileEndsTheProcess()
    {
        QFETCH(QString, target);
        QFETCH(QString, line);
        mkfifo(QFile::encodeName(m_dir.filePath(u"fifo"_s)).constData(), 0600);
        const ChildRun child =
            runSelf({u"--run-on"_s, target.startsWith(u'/') ? target : m_dir.filePath(target)});
        QVERIFY2(child.crashed && child.output.contains(u"Zorvane: fail-fast "_s + line + u'\n'),
                 qPrintable(child.output));
    }
};

// "--run-on PATH": one run over PATH, then an orderly exit that an
// unreadable file must never reach.
static int runOn(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    FakeChecksumPage page;
    page.file = argv[2];
    ChecksumSelection::SelectAllClick(page.viewModel());
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
    return testMain<TestChecksumRun, QCoreApplication>(argc, argv, {{"--run-on", runOn}});
}

#include "TestChecksumRun.moc"
