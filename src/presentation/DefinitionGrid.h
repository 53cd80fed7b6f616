#pragma once

#include <QList>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace Zorvane {

// How a row's height or a column's width is found.
enum class GridUnitType
{
    Auto = 0,  ///< as large as its content
    Pixel = 1, ///< a fixed number of units
    Star = 2,  ///< a share of what is left
};

struct GridLength
{
    double Value = 1.0;
    GridUnitType Unit = GridUnitType::Star;
    bool operator==(const GridLength&) const = default;
};

// A grid's row or column definitions: a growable list. An index past the end
// raises HResultError with the bounds code; every change lays the grid out again.
class DefinitionCollection
{
public:
    explicit DefinitionCollection(std::function<void()> changed) : m_changed(std::move(changed)) {}

    qsizetype Size() const { return m_items.size(); }
    void Clear();
    void Append(GridLength length);
    GridLength GetAt(qsizetype index) const;
    void SetAt(qsizetype index, GridLength length);

    const QList<GridLength>& items() const { return m_items; }
    void assign(QList<GridLength> items);

private:
    QList<GridLength> m_items;
    std::function<void()> m_changed;
};

// Where a child of a DefinitionGrid stands: markup writes DefinitionGrid.row etc.
class DefinitionGridAttached : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY changed)
    Q_PROPERTY(int column READ column WRITE setColumn NOTIFY changed)
    Q_PROPERTY(int rowSpan READ rowSpan WRITE setRowSpan NOTIFY changed)
    Q_PROPERTY(int columnSpan READ columnSpan WRITE setColumnSpan NOTIFY changed)

public:
    using QObject::QObject;
    int row() const { return m_row; }
    void setRow(int row);
    int column() const { return m_column; }
    void setColumn(int column);
    int rowSpan() const { return m_rowSpan; }
    void setRowSpan(int span);
    int columnSpan() const { return m_columnSpan; }
    void setColumnSpan(int span);

Q_SIGNALS:
    void changed();

private:
    int m_row = 0;
    int m_column = 0;
    int m_rowSpan = 1;
    int m_columnSpan = 1;
};

// A grid of rows and columns with Auto, pixel and star lengths: the layout
// that the title bar's columns and GridHelpers describe.
class DefinitionGrid : public QQuickItem
{
    Q_OBJECT
    QML_ATTACHED(Zorvane::DefinitionGridAttached)

    /// Row heights for markup, comma-separated: "Auto", a number, "*" or "2*".
    Q_PROPERTY(QString rows WRITE setRows READ rowsText NOTIFY definitionsChanged)
    /// Column widths for markup, in the same form.
    Q_PROPERTY(QString columns WRITE setColumns READ columnsText NOTIFY definitionsChanged)

public:
    explicit DefinitionGrid(QQuickItem* parent = nullptr);
    ~DefinitionGrid() override;

    static DefinitionGridAttached* qmlAttachedProperties(QObject* object);

    DefinitionCollection& RowDefinitions() { return m_rows; }
    DefinitionCollection& ColumnDefinitions() { return m_columns; }

    void setRows(const QString& text);
    void setColumns(const QString& text);
    QString rowsText() const;
    QString columnsText() const;

    // Lays the children out now rather than before the next frame.
    void LayoutNow() { updatePolish(); }

    // Sizes of the definitions as last laid out.
    QList<double> ActualRowHeights() const { return m_rowSizes; }
    QList<double> ActualColumnWidths() const { return m_columnSizes; }

Q_SIGNALS:
    void definitionsChanged();

protected:
    void updatePolish() override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

public:
    // Where one visible child stands along one axis.
    struct Cell
    {
        int start;
        int span;
        double content; ///< the child's implicit size along this axis
    };

private:
    // The grid's definitions, its visible children and where each stands.
    struct Layout
    {
        QList<GridLength> rows;
        QList<GridLength> columns;
        QList<QQuickItem*> children;
        QList<Cell> rowCells;
        QList<Cell> columnCells;
        double naturalWidth = 0;
        double naturalHeight = 0;
    };

    void relayout();
    void contentChanged();
    Layout measure() const;

    DefinitionCollection m_rows{[this] {
        relayout();
    }};
    DefinitionCollection m_columns{[this] {
        relayout();
    }};
    QList<double> m_rowSizes;
    QList<double> m_columnSizes;
};

} // namespace Zorvane
