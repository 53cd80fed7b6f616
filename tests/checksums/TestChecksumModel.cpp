#include "ChecksumTesting.h"
#include "checksums/ChecksumReport.h"
#include "checksums/ChecksumSelection.h"
#include "checksums/ChosenAlgorithms.h"
#include "checksums/OpenSslChecksumsViewModel.h"
#include "support/IsolatedConfig.h"
#include "support/Testing.h"

namespace {
QStringList checkedNames(const OpenSslChecksumsViewModel& viewModel)
{
    QStringList result;
    for (const HashAlgo* algo : viewModel.AvailableHashAlgos()->items()) {
        if (algo->Checked()) {
            result << algo->ShortName();
        }
    }
    return result;
}
} // namespace

class TestChecksumModel : public QObject
{
    Q_OBJECT

    Zorvane::Testing::IsolatedConfig m_config;

private Q_SLOTS:

    void catalogueInCodeUnitOrder()
    {
        OpenSslChecksumsViewModel viewModel;
        const QStringList catalogue = names(*viewModel.AvailableHashAlgos());
        // What OpenSSL 3.0's default provider offers, in code unit order
        // ("SHA2-512" before "SHA2-512/224", "SHA3" before "SHAKE").
        const QStringList expected{
            u"BLAKE2B-512"_s,  u"BLAKE2S-256"_s,  u"MD5"_s,       u"MD5-SHA1"_s, u"RIPEMD-160"_s,
            u"SHA1"_s,         u"SHA2-224"_s,     u"SHA2-256"_s,  u"SHA2-384"_s, u"SHA2-512"_s,
            u"SHA2-512/224"_s, u"SHA2-512/256"_s, u"SHA3-224"_s,  u"SHA3-256"_s, u"SHA3-384"_s,
            u"SHA3-512"_s,     u"SHAKE-128"_s,    u"SHAKE-256"_s, u"SM3"_s};
        QCOMPARE(catalogue, expected);
        QCOMPARE(viewModel.HashAlgos()->Size(), 0);
        QCOMPARE(viewModel.FileSize(), -1);
        const HashAlgo* sha256 = find(viewModel, u"SHA2-256"_s);
        QVERIFY(sha256 && sha256->digest());
        QCOMPARE(sha256->Description(), u"sha256"_s);
        QVERIFY(!catalogue.contains(u"NULL"_s)); // no numeric type
    }

    void selectionRules()
    {
        OpenSslChecksumsViewModel viewModel;
        HashAlgoVector& chosen = *viewModel.HashAlgos();
        QSignalSpy changes(&chosen, &HashAlgoVector::VectorChanged);
        const QStringList catalogue = names(*viewModel.AvailableHashAlgos());

        ChecksumSelection::SelectNoneClick(viewModel); // empty already: still a change
        QCOMPARE(changes.count(), 1);

        find(viewModel, u"SHA2-256"_s)->setChecked(true);
        find(viewModel, u"MD5"_s)->setChecked(true);
        ChecksumSelection::AlgorithmClick(viewModel);
        QCOMPARE(names(chosen), (QStringList{u"MD5"_s, u"SHA2-256"_s})); // catalogue order
        QCOMPARE(changes.count(), 2);

        ChecksumSelection::SelectAllClick(viewModel);
        ChecksumSelection::SelectAllClick(viewModel); // same contents: still a change
        QCOMPARE(names(chosen), catalogue);
        QCOMPARE(checkedNames(viewModel), catalogue);
        QCOMPARE(changes.count(), 4);

        ChecksumSelection::SelectNoneClick(viewModel);
        QCOMPARE(chosen.Size(), 0);
        QVERIFY(checkedNames(viewModel).isEmpty());
        QCOMPARE(changes.count(), 5);
    }

    void storedNames_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QStringList>("chosen");
        QTest::addColumn<QStringList>("afterClick"); // in catalogue order, once each

        // clang-format off
        QTest::newRow("stored order kept") << u"SHA2-256,MD5,SHA1"_s
            << QStringList{u"SHA2-256"_s, u"MD5"_s, u"SHA1"_s}
            << QStringList{u"MD5"_s, u"SHA1"_s, u"SHA2-256"_s};
        QTest::newRow("a name twice") << u"MD5,MD5"_s << QStringList{u"MD5"_s, u"MD5"_s}
            << QStringList{u"MD5"_s};
        QTest::newRow("unknown, wrong case, blanks dropped") << u"md5,NOPE,SHA1, MD5,"_s
            << QStringList{u"SHA1"_s} << QStringList{u"SHA1"_s};
        QTest::newRow("empty string chooses nothing") << QString() << QStringList{} << QStringList{};
        QTest::newRow("only commas") << u",,"_s << QStringList{} << QStringList{};
        // clang-format on
    }

    void storedNames()
    {
        QFETCH(QString, stored);
        QFETCH(QStringList, chosen);
        QFETCH(QStringList, afterClick);
        OpenSslChecksumsViewModel viewModel;
        QSignalSpy changes(viewModel.HashAlgos(), &HashAlgoVector::VectorChanged);
        QSignalSpy md5Checked(find(viewModel, u"MD5"_s), &HashAlgo::CheckedChanged);

        ChecksumSelection::ApplyStoredNames(viewModel, stored);
        QCOMPARE(names(*viewModel.HashAlgos()), chosen);
        QCOMPARE(changes.count(), 1); // replaced even when nothing matched
        QCOMPARE(md5Checked.count(), chosen.contains(u"MD5"_s) ? 1 : 0);
        QCOMPARE(ChecksumSelection::JoinNames(viewModel), chosen.join(u','));

        // A click puts the selection back into catalogue order.
        ChecksumSelection::AlgorithmClick(viewModel);
        QCOMPARE(names(*viewModel.HashAlgos()), afterClick);
    }

    void persistence()
    {
        const bool packaged = false;
        SettingsValues store = *GetSettingsValues(packaged);
        QVERIFY(store.filePath().contains(u"Halvertrix.Zorvane_m4kq8wzr2p7ny"_s));
        QFile::remove(store.filePath());

        // First start: nothing stored, nothing chosen, no change raised.
        OpenSslChecksumsViewModel first;
        QSignalSpy firstChanges(first.HashAlgos(), &HashAlgoVector::VectorChanged);
        LoadChosenAlgorithms(first, packaged);
        QCOMPARE(firstChanges.count(), 0);

        ChecksumSelection::ApplyStoredNames(first, u"SHA1,MD5"_s);
        SaveChosenAlgorithms(first, packaged);
        QCOMPARE(store.Lookup(u"ChosenAlgorithms"_s), QVariant(u"SHA1,MD5"_s));

        OpenSslChecksumsViewModel second;
        LoadChosenAlgorithms(second, packaged);
        QCOMPARE(names(*second.HashAlgos()), (QStringList{u"SHA1"_s, u"MD5"_s}));

        // An empty selection stores the empty string and keeps the key.
        ChecksumSelection::SelectNoneClick(second);
        SaveChosenAlgorithms(second, packaged);
        QCOMPARE(store.Lookup(u"ChosenAlgorithms"_s), QVariant(QString()));

        // A value of another type counts as absent.
        store.Insert(u"ChosenAlgorithms"_s, 42);
        QCOMPARE(store.Lookup(u"ChosenAlgorithms"_s), QVariant(42));
        OpenSslChecksumsViewModel third;
        QSignalSpy thirdChanges(third.HashAlgos(), &HashAlgoVector::VectorChanged);
        LoadChosenAlgorithms(third, packaged);
        QCOMPARE(thirdChanges.count(), 0);
    }

    void report_data()
    {
        QTest::addColumn<QStringList>("chosen");
        QTest::addColumn<QString>("expected");
        const QString head = u"/tmp/d\u00E9j\u00E0 vu.iso\r\nSize (Bytes): 42"_s;
        QTest::newRow("no digest: two lines, no line end") << QStringList{} << head;
        QTest::newRow("stored order, empty result ends in a blank")
            << QStringList{u"SHA1"_s, u"MD5"_s, u"SHA2-256"_s}
            << head + u"\r\nSHA1: AA\r\nMD5: \r\nSHA2-256: 0F"_s;
    }

    void report()
    {
        QFETCH(QStringList, chosen);
        QFETCH(QString, expected);
        OpenSslChecksumsViewModel viewModel;
        ChecksumSelection::ApplyStoredNames(viewModel, chosen.join(u','));
        if (!chosen.isEmpty()) {
            find(viewModel, u"SHA1"_s)->setChecksum(u"AA"_s);
            find(viewModel, u"SHA2-256"_s)->setChecksum(u"0F"_s);
        }
        const QString path = u"/tmp/d\u00E9j\u00E0 vu.iso"_s;
        const QString text =
            ChecksumReport::Text(path, u"Size (Bytes):"_s, u"42"_s, *viewModel.HashAlgos());
        QCOMPARE(text, expected);
    }
};

QTEST_GUILESS_MAIN(TestChecksumModel)
#include "TestChecksumModel.moc"
