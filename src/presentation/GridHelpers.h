#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace Zorvane {

class DefinitionGrid;

// The four values GridHelpers keeps on an object. Markup writes them in lower
// case (GridHelpers.rowCount): upper-case names read as attached objects there.
class GridHelpersAttached : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int rowCount READ rowCount WRITE setRowCount NOTIFY rowCountChanged)
    Q_PROPERTY(int columnCount READ columnCount WRITE setColumnCount NOTIFY columnCountChanged)
    Q_PROPERTY(QString starRows READ starRows WRITE setStarRows NOTIFY starRowsChanged)
    Q_PROPERTY(QString starColumns READ starColumns WRITE setStarColumns NOTIFY starColumnsChanged)

public:
    using QObject::QObject;
    int rowCount() const { return m_rowCount; }
    void setRowCount(int count);
    int columnCount() const { return m_columnCount; }
    void setColumnCount(int count);
    QString starRows() const { return m_starRows; }
    void setStarRows(const QString& rows);
    QString starColumns() const { return m_starColumns; }
    void setStarColumns(const QString& columns);

Q_SIGNALS:
    void rowCountChanged();
    void columnCountChanged();
    void starRowsChanged();
    void starColumnsChanged();

private:
    // Runs a change callback; inside QML a failure becomes the binding's error.
    template <class Callback>
    void notify(Callback callback);

    int m_rowCount = -1;
    int m_columnCount = -1;
    QString m_starRows;
    QString m_starColumns;
};

// Declares a grid's rows and columns by number: a count rebuilds the
// definitions as Auto lengths, and a star list ("1", "0; 2", any text whose
// runs of digits are indexes) turns the named ones into star lengths. No
// instances: everything is static or attached.
class GridHelpers : public QObject
{
    Q_OBJECT
    QML_ATTACHED(Zorvane::GridHelpersAttached)

public:
    static GridHelpersAttached* qmlAttachedProperties(QObject* object);

    static int GetRowCount(QObject* target);
    static void SetRowCount(QObject* target, int value);
    static int GetColumnCount(QObject* target);
    static void SetColumnCount(QObject* target, int value);
    static QString GetStarRows(QObject* target);
    static void SetStarRows(QObject* target, const QString& value);
    static QString GetStarColumns(QObject* target);
    static void SetStarColumns(QObject* target, const QString& value);

    // The change callbacks: a negative count, an empty list or a target that
    // is no grid leave the definitions alone. An index past the definitions
    // raises; a run of digits beyond 32 bits raises "stoi".
    static void OnRowCountChanged(QObject* target);
    static void OnColumnCountChanged(QObject* target);
    static void OnStarRowsChanged(QObject* target);
    static void OnStarColumnsChanged(QObject* target);
    static void ApplyStarRows(DefinitionGrid& grid);
    static void ApplyStarColumns(DefinitionGrid& grid);
};

} // namespace Zorvane
