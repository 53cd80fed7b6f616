#include "platform/HResultError.h"
#include "presentation/AncestorSource.h"
#include "presentation/DefinitionGrid.h"
#include "presentation/GridHelpers.h"
#include "support/Testing.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

class TestGridAndAncestor : public QObject
{
    Q_OBJECT

    QQmlEngine m_engine;

private Q_SLOTS:
    void initTestCase()
    {
        // Importing the module registers its attached properties.
        QQmlComponent component(&m_engine);
        component.setData("import Zorvane\nimport QtQml\nQtObject {}\n", QUrl());
        std::unique_ptr<QObject> object(component.create());
        QVERIFY2(object, qPrintable(component.errorString()));
    }

    void gridHelpers_data()
    {
        // Steps, applied in order: "rows=N", "stars=TEXT", "columns=N", "starColumns=TEXT".
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<QString>("rows");
        QTest::addColumn<QString>("columns");
        QTest::addColumn<QString>("error"); // of the last step, if any
        // clang-format off
        QTest::newRow("count then star") << QStringList{u"rows=3"_s, u"stars=1"_s} << u"Auto,*,Auto"_s << QString() << QString();
        QTest::newRow("rebuild applies the list again") << QStringList{u"rows=3"_s, u"stars=1"_s, u"rows=2"_s} << u"Auto,*"_s << QString() << QString();
        QTest::newRow("rebuild past the list raises") << QStringList{u"stars=2"_s, u"rows=2"_s} << u"Auto,Auto"_s << QString() << u"0x8000000B"_s;
        QTest::newRow("zero rows, a star raises") << QStringList{u"stars=0"_s, u"rows=0"_s} << QString() << QString() << u"0x8000000B"_s;
        QTest::newRow("an emptied list keeps star rows") << QStringList{u"rows=3"_s, u"stars=1"_s, u"stars="_s} << u"Auto,*,Auto"_s << QString() << QString();
        QTest::newRow("negative count keeps hand-made rows") << QStringList{u"hand=40,*"_s, u"rows=-5"_s} << u"40,*"_s << QString() << QString();
        QTest::newRow("any separator") << QStringList{u"columns=3"_s, u"starColumns=0;2"_s} << QString() << u"*,Auto,*"_s << QString();
        QTest::newRow("digits and letters") << QStringList{u"rows=13"_s, u"stars=12a3"_s}
            << u"Auto,Auto,Auto,*,Auto,Auto,Auto,Auto,Auto,Auto,Auto,Auto,*"_s << QString() << QString();
        QTest::newRow("beyond 32 bits") << QStringList{u"rows=1"_s, u"stars=99999999999"_s} << u"Auto"_s << QString() << u"stoi"_s;
        // clang-format on
    }

    void gridHelpers()
    {
        QFETCH(QStringList, steps);
        QFETCH(QString, rows);
        QFETCH(QString, columns);
        QFETCH(QString, error);
        DefinitionGrid grid;
        QString raised;
        for (const QString& step : steps) {
            const QString key = step.section(u'=', 0, 0);
            const QString value = step.section(u'=', 1);
            try {
                if (key == u"rows"_s) {
                    GridHelpers::SetRowCount(&grid, value.toInt());
                } else if (key == u"columns"_s) {
                    GridHelpers::SetColumnCount(&grid, value.toInt());
                } else if (key == u"stars"_s) {
                    GridHelpers::SetStarRows(&grid, value);
                } else if (key == u"starColumns"_s) {
                    GridHelpers::SetStarColumns(&grid, value);
                } else {
                    grid.setRows(value);
                }
                raised.clear();
            } catch (const HResultError& e) {
                raised = u"0x"_s + QString::number(e.code(), 16).toUpper();
            } catch (const std::exception& e) {
                raised = QString::fromUtf8(e.what());
            }
        }
        QCOMPARE(grid.rowsText(), rows);
        QCOMPARE(grid.columnsText(), columns);
        QCOMPARE(raised, error);
    }

    void notAGridIsIgnored()
    {
        QObject plain;
        GridHelpers::SetRowCount(&plain, 3);
        GridHelpers::SetStarRows(&plain, u"1"_s);
        QCOMPARE(GridHelpers::GetRowCount(&plain), 3);
        QCOMPARE(GridHelpers::GetStarRows(&plain), u"1"_s);
        QCOMPARE(GridHelpers::GetColumnCount(&plain), -1);
    }

    void gridLaysOutAutoPixelAndStar()
    {
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData("import QtQuick\nimport Zorvane\n"
                          "DefinitionGrid { width: 300; height: 100; columns: \"Auto,*,40\"; rows: "
                          "\"Auto,2*,*\"\n"
                          "  Item { implicitWidth: 50; implicitHeight: 10 }\n"
                          "  Item { DefinitionGrid.column: 1; DefinitionGrid.row: 1 }\n"
                          "  Item { DefinitionGrid.column: 1; DefinitionGrid.columnSpan: 2; "
                          "DefinitionGrid.row: 2 }\n}\n",
                          QUrl());
        std::unique_ptr<QObject> root(component.create());
        auto* grid = qobject_cast<DefinitionGrid*>(root.get());
        QVERIFY2(grid, qPrintable(component.errorString()));
        QQuickWindow window;
        grid->setParentItem(window.contentItem());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTRY_COMPARE(grid->ActualColumnWidths(), (QList<double>{50, 210, 40}));
        QCOMPARE(grid->ActualRowHeights(), (QList<double>{10, 60, 30}));
        const QList<QQuickItem*> cells = grid->childItems();
        QCOMPARE(cells[1]->position(), QPointF(50, 10));
        QCOMPARE(cells[2]->size(), QSizeF(250, 30));
    }

    void ancestor_data()
    {
        QTest::addColumn<QString>("wanted");
        QTest::addColumn<QString>("found"); // objectName of the ancestor, empty for none
        QTest::newRow("nearer one wins") << u"Zorvane.DefinitionGrid"_s << u"near"_s;
        QTest::newRow("other case") << u"zorvane.definitiongrid"_s << QString();
        QTest::newRow("base class does not count") << u"QQuickItem"_s << u"plain"_s;
        QTest::newRow("another class, farther up")
            << u"Zorvane.NavigationViewItem"_s << u"middle"_s;
        QTest::newRow("none: context cleared") << u"Zorvane.Nothing"_s << QString();
    }

    void ancestor()
    {
        QFETCH(QString, wanted);
        QFETCH(QString, found);
        QQmlEngine engine;
        QQmlComponent component(&engine);
        // The probe stands in a plain item inside the nearer grid: the
        // plain item is the nearest QQuickItem by its most derived class. The
        // nearer grid has a property of its own, so its class is one the
        // markup made on top of the grid's.
        component.setData(
            "import QtQuick\nimport Zorvane\n"
            "DefinitionGrid { objectName: \"far\"\n"
            " NavigationViewItem { objectName: \"middle\"\n"
            "  DefinitionGrid { objectName: \"near\"; property int own\n"
            "   Item { objectName: \"plain\"; Item { objectName: \"probe\" } } } } }\n",
            QUrl());
        std::unique_ptr<QObject> root(component.create());
        QVERIFY2(root, qPrintable(component.errorString()));
        auto* probe = root->findChild<QQuickItem*>(u"probe"_s);
        QQuickWindow window;

        // Not shown yet: the search waits for the first showing.
        AncestorSource::SetAncestorType(probe, u"Zorvane.NavigationViewItem"_s);
        QCOMPARE(AncestorSource::GetDataContext(probe), nullptr);
        qobject_cast<QQuickItem*>(root.get())->setParentItem(window.contentItem());
        QCOMPARE(AncestorSource::GetDataContext(probe)->objectName(), u"middle"_s);

        // Shown: a new name searches at once.
        AncestorSource::SetAncestorType(probe, wanted);
        QObject* context = AncestorSource::GetDataContext(probe);
        QCOMPARE(context ? context->objectName() : QString(), found);

        // Leaving and re-entering the window does not search again.
        qobject_cast<QQuickItem*>(root.get())->setParentItem(nullptr);
        probe->setParentItem(root->findChild<QQuickItem*>(u"far"_s));
        qobject_cast<QQuickItem*>(root.get())->setParentItem(window.contentItem());
        context = AncestorSource::GetDataContext(probe);
        QCOMPARE(context ? context->objectName() : QString(), found);
    }

    void ancestorTypeMustBeAString()
    {
        QQuickItem element;
        QVERIFY_THROWS_EXCEPTION(HResultError, AncestorSource::GetAncestorType(&element));
        QCOMPARE(AncestorSource::RuntimeClassName(&element), u"QQuickItem"_s);
    }
};

QTEST_MAIN(TestGridAndAncestor)
#include "TestGridAndAncestor.moc"
