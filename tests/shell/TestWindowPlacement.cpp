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
    map.insert(key, value);
    return map;
}
} // namespace

class TestWindowPlacement : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

private Q_SLOTS:
    // What a stored placement restores, against the live one (shown normally
    // at 50, 60, 500 x 400): minimised comes back normal, and whatever was
    // stored, the window is of a usable size, no larger than its screen, and
    // its title bar can be reached on the offscreen screen of 800 x 800 (on
    // Windows the system itself fits the window to its screens).
    void restored_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<int>("state");
        QTest::addColumn<QRect>("geometry");
        [[maybe_unused]] const auto rect = [](const QRectF& r) {
            return QVariant(with(u"rcNormalPosition"_s, r));
        };
        const auto show = [](uint cmd) {
            return QVariant(with(u"showCmd"_s, QVariant::fromValue(cmd)));
        };
        const int normal = Qt::WindowNoState;
        // clang-format off
        QTest::newRow("as stored") << QVariant(full) << normal << QRect(10, 20, 400, 300);
        QTest::newRow("maximised stays") << show(3) << int(Qt::WindowMaximized) << QRect();
        QTest::newRow("minimised becomes normal") << show(2) << normal << QRect(10, 20, 400, 300);
        QTest::newRow("not a map: untouched") << QVariant(u"x"_s) << normal << QRect(50, 60, 500, 400);
#ifdef Q_OS_UNIX
        QTest::newRow("negative size") << rect(QRectF(100, 100, -50, -50)) << normal << QRect(100, 100, 360, 240);
        QTest::newRow("far off: onto the screen") << rect(QRectF(5000, 5000, 400, 300)) << normal << QRect(400, 500, 400, 300);
        QTest::newRow("title bar below the screen") << rect(QRectF(100, 790, 400, 300)) << normal << QRect(100, 500, 400, 300);
        QTest::newRow("partly off, title bar reachable: kept") << rect(QRectF(600, 400, 400, 300)) << normal << QRect(600, 400, 400, 300);
#endif
        // clang-format on
    }

    void restored()
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
        // What a placement holds: a frameless window maximised where no task bar
        // takes room covers the screen, which the toolkit calls full screen too.
        QTRY_COMPARE(int(window.windowStates() & (Qt::WindowMinimized | Qt::WindowMaximized)),
                     state);
        if (!geometry.isNull()) {
            QCOMPARE(window.geometry(), geometry);
        }
#ifdef Q_OS_WIN
        // The system's own record keeps it, the normal rectangle also while maximised.
        WindowPlacement held;
        QVERIFY(GetWindowPlacement(&window, {}, held));
        const QRect normal = geometry.isNull() ? QRect(10, 20, 400, 300) : geometry;
        const auto& [left, top, right, bottom] = held.rcNormalPosition;
        QCOMPARE((QList<int>{int(held.showCmd), left, top, right - left, bottom - top}),
                 (QList<int>{state == Qt::WindowMaximized ? 3 : 1, normal.x(), normal.y(),
                             normal.width(), normal.height()}));
#endif
    }

    // A NaN is read as 0, never converted: the far left it would make fits
    // back onto the one screen here, so the stored rectangle itself is looked at.
    void nanReadAsZero()
    {
        const QRectF nan(qQNaN(), qQNaN(), 400, 300);
        const WindowPlacement::Rect rect =
            RestoredPlacement(with(u"rcNormalPosition"_s, nan), WindowPlacement()).rcNormalPosition;
        QCOMPARE((QList<int>{rect.left, rect.top}), (QList<int>{0, 0}));
    }
};

QTEST_MAIN(TestWindowPlacement)
#include "TestWindowPlacement.moc"
