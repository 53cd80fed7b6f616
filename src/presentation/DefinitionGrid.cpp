#include "presentation/DefinitionGrid.h"

#include "platform/HResultError.h"

#include <QStringList>

#include <algorithm>
#include <cstdint>

namespace Zorvane {

namespace {

constexpr std::uint32_t BoundsError = 0x8000000B;

DefinitionGridAttached* placementOf(QQuickItem* child)
{
    return qobject_cast<DefinitionGridAttached*>(
        qmlAttachedPropertiesObject<DefinitionGrid>(child, true));
}

GridLength parseLength(QString text)
{
    text = text.trimmed();
    if (text.compare(QStringLiteral("Auto"), Qt::CaseInsensitive) == 0) {
        return {0, GridUnitType::Auto};
    }
    if (text.endsWith(QLatin1Char('*'))) {
        text.chop(1);
        return {text.isEmpty() ? 1.0 : text.toDouble(), GridUnitType::Star};
    }
    return {text.toDouble(), GridUnitType::Pixel};
}

QString lengthText(const GridLength& length)
{
    switch (length.Unit) {
    case GridUnitType::Auto:
        return QStringLiteral("Auto");
    case GridUnitType::Star:
        return length.Value == 1.0 ? QStringLiteral("*")
                                   : QString::number(length.Value) + QLatin1Char('*');
    case GridUnitType::Pixel:
        break;
    }
    return QString::number(length.Value);
}

QList<GridLength> parseLengths(const QString& text)
{
    QList<GridLength> lengths;
    for (const QString& part : text.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        lengths << parseLength(part);
    }
    return lengths;
}

QString lengthsText(const QList<GridLength>& lengths)
{
    QStringList parts;
    for (const GridLength& length : lengths) {
        parts << lengthText(length);
    }
    return parts.join(QLatin1Char(','));
}

using Cell = DefinitionGrid::Cell;

// Pixel lengths as given, Auto from the largest single-span content, Star
// sharing what is left by weight.
QList<double> solve(const QList<GridLength>& definitions, const QList<Cell>& cells,
                    double available)
{
    QList<double> sizes(definitions.size(), 0.0);
    double fixed = 0;
    double stars = 0;
    for (qsizetype i = 0; i < definitions.size(); ++i) {
        const GridLength& length = definitions[i];
        if (length.Unit == GridUnitType::Pixel) {
            sizes[i] = length.Value;
        } else if (length.Unit == GridUnitType::Auto) {
            for (const Cell& cell : cells) {
                if (cell.start == i && cell.span == 1) {
                    sizes[i] = std::max(sizes[i], cell.content);
                }
            }
        } else {
            stars += length.Value;
            continue;
        }
        fixed += sizes[i];
    }
    const double left = std::max(0.0, available - fixed);
    for (qsizetype i = 0; i < definitions.size(); ++i) {
        if (definitions[i].Unit == GridUnitType::Star && stars > 0) {
            sizes[i] = left * definitions[i].Value / stars;
        }
    }
    return sizes;
}

double offsetOf(const QList<double>& sizes, int index)
{
    double offset = 0;
    for (int i = 0; i < index && i < sizes.size(); ++i) {
        offset += sizes[i];
    }
    return offset;
}

double spanOf(const QList<double>& sizes, int start, int span)
{
    return offsetOf(sizes, start + span) - offsetOf(sizes, start);
}

} // namespace

void DefinitionCollection::Clear()
{
    m_items.clear();
    m_changed();
}

void DefinitionCollection::Append(GridLength length)
{
    m_items << length;
    m_changed();
}

GridLength DefinitionCollection::GetAt(qsizetype index) const
{
    if (index < 0 || index >= m_items.size()) {
        throw HResultError(BoundsError);
    }
    return m_items[index];
}

void DefinitionCollection::SetAt(qsizetype index, GridLength length)
{
    static_cast<void>(GetAt(index));
    m_items[index] = length;
    m_changed();
}

void DefinitionCollection::assign(QList<GridLength> items)
{
    m_items = std::move(items);
    m_changed();
}

void DefinitionGridAttached::setRow(int row)
{
    if (m_row != row) {
        m_row = row;
        Q_EMIT changed();
    }
}

void DefinitionGridAttached::setColumn(int column)
{
    if (m_column != column) {
        m_column = column;
        Q_EMIT changed();
    }
}

void DefinitionGridAttached::setRowSpan(int span)
{
    if (m_rowSpan != span) {
        m_rowSpan = std::max(1, span);
        Q_EMIT changed();
    }
}

void DefinitionGridAttached::setColumnSpan(int span)
{
    if (m_columnSpan != span) {
        m_columnSpan = std::max(1, span);
        Q_EMIT changed();
    }
}

DefinitionGrid::DefinitionGrid(QQuickItem* parent) : QQuickItem(parent) {}

DefinitionGrid::~DefinitionGrid()
{
    // The base destructor lets the children go, and their changes must not
    // reach a grid that is half gone.
    for (QQuickItem* child : childItems()) {
        disconnect(child, nullptr, this, nullptr);
        if (QObject* placement = qmlAttachedPropertiesObject<DefinitionGrid>(child, false)) {
            disconnect(placement, nullptr, this, nullptr);
        }
    }
}

DefinitionGridAttached* DefinitionGrid::qmlAttachedProperties(QObject* object)
{
    return new DefinitionGridAttached(object);
}

void DefinitionGrid::setRows(const QString& text)
{
    m_rows.assign(parseLengths(text));
}

void DefinitionGrid::setColumns(const QString& text)
{
    m_columns.assign(parseLengths(text));
}

QString DefinitionGrid::rowsText() const
{
    return lengthsText(m_rows.items());
}

QString DefinitionGrid::columnsText() const
{
    return lengthsText(m_columns.items());
}

void DefinitionGrid::relayout()
{
    Q_EMIT definitionsChanged();
    contentChanged();
}

void DefinitionGrid::contentChanged()
{
    // The implicit size goes out at once, not only at the next polish, so that
    // an enclosing layout hears of it in its own time.
    const Layout layout = measure();
    setImplicitSize(layout.naturalWidth, layout.naturalHeight);
    polish();
}

void DefinitionGrid::itemChange(ItemChange change, const ItemChangeData& data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemChildAddedChange) {
        QQuickItem* child = data.item;
        connect(child, &QQuickItem::implicitWidthChanged, this, &DefinitionGrid::contentChanged);
        connect(child, &QQuickItem::implicitHeightChanged, this, &DefinitionGrid::contentChanged);
        connect(child, &QQuickItem::visibleChanged, this, &DefinitionGrid::contentChanged);
        connect(placementOf(child), &DefinitionGridAttached::changed, this,
                &DefinitionGrid::contentChanged);
        contentChanged();
    } else if (change == ItemChildRemovedChange) {
        disconnect(data.item, nullptr, this, nullptr);
        contentChanged();
    }
}

void DefinitionGrid::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    polish();
}

DefinitionGrid::Layout DefinitionGrid::measure() const
{
    // Without definitions there is one star row or column.
    const auto orOneStar = [](const QList<GridLength>& items) {
        return items.isEmpty() ? QList<GridLength>{GridLength{}} : items;
    };
    Layout layout;
    layout.rows = orOneStar(m_rows.items());
    layout.columns = orOneStar(m_columns.items());
    for (QQuickItem* child : childItems()) {
        if (!child->isVisible()) {
            continue;
        }
        const DefinitionGridAttached* at = placementOf(child);
        const int row = std::clamp(at->row(), 0, int(layout.rows.size()) - 1);
        const int column = std::clamp(at->column(), 0, int(layout.columns.size()) - 1);
        layout.children << child;
        layout.rowCells << Cell{row, std::min(at->rowSpan(), int(layout.rows.size()) - row),
                                child->implicitHeight()};
        layout.columnCells << Cell{column,
                                   std::min(at->columnSpan(), int(layout.columns.size()) - column),
                                   child->implicitWidth()};
    }
    // What the grid needs: fixed and Auto lengths, star lengths at their content.
    const auto natural = [](const QList<GridLength>& definitions, const QList<Cell>& cells) {
        const QList<double> sizes = solve(definitions, cells, 0);
        double total = 0;
        for (qsizetype i = 0; i < definitions.size(); ++i) {
            double size = sizes[i];
            if (definitions[i].Unit == GridUnitType::Star) {
                for (const Cell& cell : cells) {
                    if (cell.start == i && cell.span == 1) {
                        size = std::max(size, cell.content);
                    }
                }
            }
            total += size;
        }
        return total;
    };
    layout.naturalWidth = natural(layout.columns, layout.columnCells);
    layout.naturalHeight = natural(layout.rows, layout.rowCells);
    return layout;
}

void DefinitionGrid::updatePolish()
{
    const Layout layout = measure();
    setImplicitSize(layout.naturalWidth, layout.naturalHeight);
    m_columnSizes = solve(layout.columns, layout.columnCells, width());
    m_rowSizes = solve(layout.rows, layout.rowCells, height());
    for (qsizetype i = 0; i < layout.children.size(); ++i) {
        const Cell& r = layout.rowCells[i];
        const Cell& c = layout.columnCells[i];
        layout.children[i]->setPosition(
            {offsetOf(m_columnSizes, c.start), offsetOf(m_rowSizes, r.start)});
        layout.children[i]->setSize(
            {spanOf(m_columnSizes, c.start, c.span), spanOf(m_rowSizes, r.start, r.span)});
    }
}

} // namespace Zorvane
