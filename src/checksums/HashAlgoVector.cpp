#include "checksums/HashAlgoVector.h"

namespace Zorvane {

HashAlgoVector::HashAlgoVector(QObject* parent) : QAbstractListModel(parent) {}

HashAlgo* HashAlgoVector::GetAt(int index) const
{
    return index >= 0 && index < m_items.size() ? m_items.at(index) : nullptr;
}

void HashAlgoVector::ReplaceAll(const QList<HashAlgo*>& items)
{
    beginResetModel();
    m_items = items;
    endResetModel();
    Q_EMIT VectorChanged();
}

void HashAlgoVector::Clear()
{
    ReplaceAll({});
}

int HashAlgoVector::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Size();
}

QVariant HashAlgoVector::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_items.size() || role != AlgoRole) {
        return {};
    }
    return QVariant::fromValue(m_items.at(index.row()));
}

QHash<int, QByteArray> HashAlgoVector::roleNames() const
{
    return {{AlgoRole, QByteArrayLiteral("algo")}};
}

} // namespace Zorvane
