#include "platform/ApplicationData.h"
#include "shell/WindowPlacement.h"
#include "support/Testing.h"

#include <QWindow>

namespace {
const QVariantMap full{{u"showCmd"_s, QVariant::fromValue(1u)},
                       {u"ptMinPosition"_s, QPointF(-1, -1)},
                       {u"ptMaxPosition"_s, QPointF(-1, -1)},
                       {u"rcNormalPosition"_s, QRectF(10, 20, 400, 300)}};

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
        QTest::newRow("as stored") << full << 1u << QList<int>{10, 20, 410, 320};
        QTest::newRow("maximised stays") << with(u"showCmd"_s, QVariant::fromValue(3u)) << 3u << QList<int>{10, 20, 410, 320};
        QTest::newRow("minimised becomes normal") << with(u"showCmd"_s, QVariant::fromValue(2u)) << 1u << QList<int>{10, 20, 410, 320};
        QTest::newRow("minimize (6) not mapped") << with(u"showCmd"_s, QVariant::fromValue(6u)) << 6u << QList<int>{10, 20, 410, 320};
        QTest::newRow("show-min-no-active (7) not mapped") << with(u"showCmd"_s, QVariant::fromValue(7u)) << 7u << QList<int>{10, 20, 410, 320};
        QTest::newRow("missing state: the live one") << with(u"showCmd"_s, QVariant()) << 1u << QList<int>{10, 20, 410, 320};
        QTest::newRow("state of another type: the live one") << with(u"showCmd"_s, 3) << 1u << QList<int>{10, 20, 410, 320};
        QTest::newRow("fractional: truncated, right and bottom from sums")
            << with(u"rcNormalPosition"_s, QRectF(10.7, 20.2, 400.6, 300.9)) << 1u << QList<int>{10, 20, 410, 320};
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

    // Whatever was stored, the window is of a usable size, no larger than its
    // screen, and its title bar can be reached.
    void fitted_data()
    {
        QTest::addColumn<QRectF>("stored");
        QTest::addColumn<QRect>("geometry");
        const qreal nan = qQNaN();
        // clang-format off
        QTest::newRow("as stored") << QRectF(10, 20, 400, 300) << QRect(10, 20, 400, 300);
        QTest::newRow("NaN") << QRectF(nan, nan, nan, nan) << QRect(0, 0, 360, 240);
        QTest::newRow("1e30: saturated, brought back") << QRectF(1e30, -1e30, 1e30, 1e30) << QRect(440, 0, 360, 600);
        QTest::newRow("negative size") << QRectF(100, 100, -50, -50) << QRect(100, 100, 360, 240);
        QTest::newRow("wider than any int") << QRectF(0, 0, 3e9, 100) << QRect(0, 0, 800, 240);
        QTest::newRow("far off: onto the nearest screen") << QRectF(5000, 5000, 400, 300) << QRect(400, 300, 400, 300);
        QTest::newRow("left of everything: onto the left screen") << QRectF(-9000, 100, 400, 300) << QRect(-1280, 100, 400, 300);
        QTest::newRow("title bar above the screen") << QRectF(100, -100, 400, 300) << QRect(100, 0, 400, 300);
        QTest::newRow("title bar below the screen") << QRectF(100, 590, 400, 300) << QRect(100, 300, 400, 300);
        QTest::newRow("partly off, title bar reachable: kept") << QRectF(600, 400, 400, 300) << QRect(600, 400, 400, 300);
        QTest::newRow("across two screens: kept") << QRectF(-200, 100, 400, 300) << QRect(-200, 100, 400, 300);
        // clang-format on
    }

    void fitted()
    {
        QFETCH(QRectF, stored);
        QFETCH(QRect, geometry);
        const WindowPlacement restored =
            RestoredPlacement(with(u"rcNormalPosition"_s, stored), WindowPlacement());
        // A screen of 800 x 600 with one of 1280 x 1024 to its left.
        const QList<QRect> screens{QRect(0, 0, 800, 600), QRect(-1280, 0, 1280, 1024)};
        QCOMPARE(FittedGeometry(restored.rcNormalPosition, 1.0, screens), geometry);
    }

    // With no screen to fit to: a usable size, and nothing Qt cannot hold.
    void fittedWithoutScreens()
    {
        QCOMPARE(FittedGeometry({0, 0, 10, 10}, 1.0, {}), QRect(0, 0, 360, 240));
        QCOMPARE(FittedGeometry({-100000, 0, 100000, 100000}, 1.0, {}),
                 QRect(-16384, 0, 16384, 16384));
    }

    void appliedToTheWindow_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<int>("state");
        QTest::addColumn<QRect>("geometry");
        QTest::newRow("normal") << QVariant(full) << int(Qt::WindowNoState)
                                << QRect(10, 20, 400, 300);
        QTest::newRow("NaN: usable size, on the screen")
            << QVariant(with(u"rcNormalPosition"_s, QRectF(qQNaN(), qQNaN(), qQNaN(), qQNaN())))
            << int(Qt::WindowNoState) << QRect(0, 0, 360, 240);
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
        window.setFlag(Qt::FramelessWindowHint);
        window.setGeometry(50, 60, 500, 400);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        SettingsValues values(m_dir.filePath(QString::fromLatin1(QTest::currentDataTag())));
        values.Insert(u"WindowPlacement"_s, stored);

        ReadPlacement(values, &window, window.geometry());
        QTRY_COMPARE(int(window.windowStates()), state);
        if (!geometry.isNull()) {
            QCOMPARE(window.geometry(), geometry);
        }
    }
};

QTEST_MAIN(TestWindowPlacement)
#include "TestWindowPlacement.moc"
