#include "presentation/GridHelpers.h"

#include "presentation/AttachedValues.h"
#include "presentation/DefinitionGrid.h"

#include <QJSEngine>

#include <exception>
#include <regex>
#include <string>
#include <vector>

namespace Zorvane {

namespace {

GridHelpersAttached* attached(QObject* target)
{
    return AttachedValues<GridHelpers, GridHelpersAttached>(target);
}

// Every run of decimal digits is one index, left to right.
std::vector<int> starIndexes(const QString& list)
{
    const std::wstring text = list.toStdWString();
    const std::wregex digits(L"(\\d+)");
    std::vector<int> indexes;
    for (auto match = std::wsregex_iterator(text.begin(), text.end(), digits);
         match != std::wsregex_iterator(); ++match) {
        indexes.push_back(std::stoi((*match)[1].str()));
    }
    return indexes;
}

void applyStars(const QString& list, DefinitionCollection& definitions)
{
    for (const int index : starIndexes(list)) {
        definitions.SetAt(index, {1.0, GridUnitType::Star});
    }
}

// A count of zero or more rebuilds the definitions as Auto lengths and
// applies the stored star list again; a negative count or a target that is
// no grid leaves everything as it is.
void rebuild(QObject* target, int count, DefinitionCollection& (DefinitionGrid::*definitionsOf)(),
             void (*applyStarList)(DefinitionGrid&))
{
    auto* grid = qobject_cast<DefinitionGrid*>(target);
    if (grid == nullptr || count < 0) {
        return;
    }
    DefinitionCollection& definitions = (grid->*definitionsOf)();
    definitions.Clear();
    for (int i = 0; i < count; ++i) {
        definitions.Append({0, GridUnitType::Auto});
    }
    applyStarList(*grid);
}

} // namespace

template <class Callback>
void GridHelpersAttached::notify(Callback callback)
{
    try {
        callback(parent());
    } catch (const std::exception& error) {
        if (QJSEngine* engine = qjsEngine(parent())) {
            engine->throwError(QString::fromUtf8(error.what()));
            return;
        }
        throw;
    }
}

void GridHelpersAttached::setRowCount(int count)
{
    if (m_rowCount != count) {
        m_rowCount = count;
        Q_EMIT rowCountChanged();
        notify(&GridHelpers::OnRowCountChanged);
    }
}

void GridHelpersAttached::setColumnCount(int count)
{
    if (m_columnCount != count) {
        m_columnCount = count;
        Q_EMIT columnCountChanged();
        notify(&GridHelpers::OnColumnCountChanged);
    }
}

void GridHelpersAttached::setStarRows(const QString& rows)
{
    if (m_starRows != rows) {
        m_starRows = rows;
        Q_EMIT starRowsChanged();
        notify(&GridHelpers::OnStarRowsChanged);
    }
}

void GridHelpersAttached::setStarColumns(const QString& columns)
{
    if (m_starColumns != columns) {
        m_starColumns = columns;
        Q_EMIT starColumnsChanged();
        notify(&GridHelpers::OnStarColumnsChanged);
    }
}

GridHelpersAttached* GridHelpers::qmlAttachedProperties(QObject* object)
{
    return new GridHelpersAttached(object);
}

int GridHelpers::GetRowCount(QObject* target)
{
    return attached(target)->rowCount();
}

void GridHelpers::SetRowCount(QObject* target, int value)
{
    attached(target)->setRowCount(value);
}

int GridHelpers::GetColumnCount(QObject* target)
{
    return attached(target)->columnCount();
}

void GridHelpers::SetColumnCount(QObject* target, int value)
{
    attached(target)->setColumnCount(value);
}

QString GridHelpers::GetStarRows(QObject* target)
{
    return attached(target)->starRows();
}

void GridHelpers::SetStarRows(QObject* target, const QString& value)
{
    attached(target)->setStarRows(value);
}

QString GridHelpers::GetStarColumns(QObject* target)
{
    return attached(target)->starColumns();
}

void GridHelpers::SetStarColumns(QObject* target, const QString& value)
{
    attached(target)->setStarColumns(value);
}

void GridHelpers::OnRowCountChanged(QObject* target)
{
    rebuild(target, GetRowCount(target), &DefinitionGrid::RowDefinitions,
            &GridHelpers::ApplyStarRows);
}

void GridHelpers::OnColumnCountChanged(QObject* target)
{
    rebuild(target, GetColumnCount(target), &DefinitionGrid::ColumnDefinitions,
            &GridHelpers::ApplyStarColumns);
}

void GridHelpers::OnStarRowsChanged(QObject* target)
{
    auto* grid = qobject_cast<DefinitionGrid*>(target);
    if (grid != nullptr && !GetStarRows(target).isEmpty()) {
        ApplyStarRows(*grid);
    }
}

void GridHelpers::OnStarColumnsChanged(QObject* target)
{
    auto* grid = qobject_cast<DefinitionGrid*>(target);
    if (grid != nullptr && !GetStarColumns(target).isEmpty()) {
        ApplyStarColumns(*grid);
    }
}

void GridHelpers::ApplyStarRows(DefinitionGrid& grid)
{
    applyStars(GetStarRows(&grid), grid.RowDefinitions());
}

void GridHelpers::ApplyStarColumns(DefinitionGrid& grid)
{
    applyStars(GetStarColumns(&grid), grid.ColumnDefinitions());
}

} // namespace Zorvane
