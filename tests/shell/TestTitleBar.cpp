#include "shell/TitleBarGeometry.h"
#include "support/Testing.h"

using Rectangles = std::array<DragRectangle, 5>;
Q_DECLARE_METATYPE(Rectangles)

class TestTitleBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scale_data()
    {
        QTest::addColumn<int>("dpi");
        QTest::addColumn<double>("scale");
        QTest::newRow("96") << 96 << 1.0;
        QTest::newRow("100: a whole percentage, not 100/96") << 100 << 1.04;
        QTest::newRow("110: the percentage is rounded") << 110 << 1.15;
        QTest::newRow("120") << 120 << 1.25;
        QTest::newRow("144") << 144 << 1.5;
        QTest::newRow("168") << 168 << 1.75;
    }

    void scale()
    {
        QFETCH(int, dpi);
        QFETCH(double, scale);
        QCOMPARE(DpiScale(dpi), scale);
    }

    void rectangles_data()
    {
        QTest::addColumn<int>("dpi");
        QTest::addColumn<double>("leftInset");
        QTest::addColumn<Rectangles>("expected");
        // Title bar 32 high, centre text 16 high; columns icon 36, title 60,
        // left drag 300, centre 200, right drag 300 (so the left span is 396).
        // clang-format off
        QTest::newRow("96") << 96 << 0.0 << Rectangles{{
            {0, 0, 396, 32}, {396, 0, 200, 8}, {0, 0, 200, 16}, {396, 24, 200, 8}, {596, 0, 300, 32}}};
        QTest::newRow("100") << 100 << 0.0 << Rectangles{{
            {0, 0, 411, 33}, {411, 0, 208, 8}, {0, 0, 208, 16}, {411, 24, 208, 8}, {619, 0, 312, 33}}};
        QTest::newRow("120") << 120 << 0.0 << Rectangles{{
            {0, 0, 495, 40}, {495, 0, 250, 10}, {0, 0, 250, 20}, {495, 30, 250, 10}, {745, 0, 375, 40}}};
        QTest::newRow("144") << 144 << 0.0 << Rectangles{{
            {0, 0, 594, 48}, {594, 0, 300, 12}, {0, 0, 300, 24}, {594, 36, 300, 12}, {894, 0, 450, 48}}};
        // The left inset's X is not scaled and is not added to the others.
        QTest::newRow("144, left inset") << 144 << 10.0 << Rectangles{{
            {10, 0, 594, 48}, {594, 0, 300, 12}, {10, 0, 300, 24}, {594, 36, 300, 12}, {894, 0, 450, 48}}};
        // clang-format on
    }

    void rectangles()
    {
        QFETCH(int, dpi);
        QFETCH(double, leftInset);
        QFETCH(Rectangles, expected);
        TitleBarMetrics metrics;
        metrics.scale = DpiScale(dpi);
        metrics.titleHeight = 32;
        metrics.centreHeight = 16;
        metrics.leftInset = leftInset;
        metrics.icon = 36;
        metrics.title = 60;
        metrics.leftDrag = 300;
        metrics.centre = 200;
        metrics.rightDrag = 300;
        const Rectangles actual = DragRectangles(metrics);
        for (std::size_t i = 0; i < actual.size(); ++i) {
            const DragRectangle& a = actual[i];
            const DragRectangle& e = expected[i];
            QCOMPARE((QList<int>{a.x, a.y, a.width, a.height}),
                     (QList<int>{e.x, e.y, e.width, e.height}));
        }
    }
};

QTEST_GUILESS_MAIN(TestTitleBar)
#include "TestTitleBar.moc"
