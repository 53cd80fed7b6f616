#pragma once

#include "checksums/HashAlgo.h"

#include <QAbstractListModel>
#include <QList>

namespace Zorvane {

// An observable vector of digests, usable as a QML model (role "algo"). Every
// replace-all and every clear raises VectorChanged, also when the contents
// stay the same. It holds references only: the view model owns the objects.
class HashAlgoVector : public QAbstractListModel
{
    Q_OBJECT

    Q_PROPERTY(int Size READ Size NOTIFY VectorChanged)

public:
    enum Roles
    {
        AlgoRole = Qt::UserRole + 1,
    };

    explicit HashAlgoVector(QObject* parent = nullptr);

    int Size() const { return static_cast<int>(m_items.size()); }
    Q_INVOKABLE Zorvane::HashAlgo* GetAt(int index) const;
    const QList<HashAlgo*>& items() const { return m_items; }

    void ReplaceAll(const QList<HashAlgo*>& items);
    void Clear();

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void VectorChanged();

private:
    QList<HashAlgo*> m_items;
};

} // namespace Zorvane
