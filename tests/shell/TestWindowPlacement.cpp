#include "ApplicationData.h"
#include "WindowPlacement.h"

#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

using namespace Zorvane;
using namespace Qt::StringLiterals;

namespace {
const QVariantMap full{{u"showCmd"_s, QVariant::fromValue(1u)},
                       {u"ptMinPosition"_s, QPointF(-1, -1)},
                       {u"ptMaxPosition"_s, QPointF(-1, -1)},
                       {u"rcNormalPosition"_s, QRectF(10, 20, 300, 200)}};

QVariantMap with(const QString& key, const QVariant& value)
{
    QVariantMap map = full;
    if (value.isValid()) {
        map.insert(key, value);
    } else {
        map.remove(key);
    }
    return map;
}
} // namespace

class TestWindowPlacement : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

private Q_SLOTS:
    void merged_data()
    {
        QTest::addColumn<QVariantMap>("stored");
        QTest::addColumn<uint>("showCmd");
        QTest::addColumn<QList<int>>("rect"); // left, top, right, bottom

        // The live placement: shown normally at (50, 60)-(550, 460).
        // clang-format off
        QTest::newRow("as stored") << full << 1u << QList<int>{10, 20, 310, 220};
        QTest::newRow("maximised stays") << with(u"showCmd"_s, QVariant::fromValue(3u)) << 3u << QList<int>{10, 20, 310, 220};
        QTest::newRow("minimised becomes normal") << with(u"showCmd"_s, QVariant::fromValue(2u)) << 1u << QList<int>{10, 20, 310, 220};
        QTest::newRow("minimize (6) not mapped") << with(u"showCmd"_s, QVariant::fromValue(6u)) << 6u << QList<int>{10, 20, 310, 220};
        QTest::newRow("show-min-no-active (7) not mapped") << with(u"showCmd"_s, QVariant::fromValue(7u)) << 7u << QList<int>{10, 20, 310, 220};
        QTest::newRow("missing state: the live one") << with(u"showCmd"_s, QVariant()) << 1u << QList<int>{10, 20, 310, 220};
        QTest::newRow("state of another type: the live one") << with(u"showCmd"_s, 3) << 1u << QList<int>{10, 20, 310, 220};
        QTest::newRow("fractional: truncated, right and bottom from sums")
            << with(u"rcNormalPosition"_s, QRectF(10.7, 20.2, 300.6, 200.9)) << 1u << QList<int>{10, 20, 310, 220};
        QTest::newRow("negative coordinates")
            << with(u"rcNormalPosition"_s, QRectF(-1280, -20, 800, 600)) << 1u << QList<int>{-1280, -20, -480, 580};
        QTest::newRow("missing rectangle: the live one") << with(u"rcNormalPosition"_s, QVariant()) << 1u << QList<int>{50, 60, 550, 460};
        // clang-format on
    }

    void merged()
    {
        QFETCH(QVariantMap, stored);
        QFETCH(uint, showCmd);
        QFETCH(QList<int>, rect);
        WindowPlacement current;
        current.showCmd = ShowCommand::ShowNormal;
        current.rcNormalPosition = {50, 60, 550, 460};
        const WindowPlacement restored = RestoredPlacement(stored, current);
        QCOMPARE(restored.showCmd, showCmd);
        const WindowPlacement::Rect& r = restored.rcNormalPosition;
        QCOMPARE((QList<int>{r.left, r.top, r.right, r.bottom}), rect);
        QCOMPARE(restored.flags, 0u);
        QCOMPARE(restored.length, 44u);
    }

    void appliedToTheWindow_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<int>("state");
        QTest::addColumn<QRect>("geometry");
        QTest::newRow("normal") << QVariant(full) << int(Qt::WindowNoState)
                                << QRect(10, 20, 300, 200);
        QTest::newRow("maximised") << QVariant(with(u"showCmd"_s, QVariant::fromValue(3u)))
                                   << int(Qt::WindowMaximized) << QRect();
        QTest::newRow("not a map: untouched")
            << QVariant(u"x"_s) << int(Qt::WindowNoState) << QRect(50, 60, 500, 400);
    }

    void appliedToTheWindow()
    {
        QFETCH(QVariant, stored);
        QFETCH(int, state);
        QFETCH(QRect, geometry);
        QWindow window;
        window.setGeometry(50, 60, 500, 400);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        SettingsValues values(m_dir.filePath(QString::fromLatin1(QTest::currentDataTag())));
        values.Insert(WindowPlacementKey, stored);

        ReadPlacement(values, &window, window.geometry());
        QTRY_COMPARE(int(window.windowStates()), state);
        if (!geometry.isNull()) {
            QCOMPARE(window.geometry(), geometry);
        }
    }
};

QTEST_MAIN(TestWindowPlacement)
#include "TestWindowPlacement.moc"
