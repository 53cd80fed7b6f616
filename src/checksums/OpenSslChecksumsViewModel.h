#pragma once

#include "checksums/HashAlgoVector.h"

#include <QObject>

namespace Zorvane {

// The state behind the checksum page: the digests on offer, the chosen ones,
// and the size of the file last hashed.
class OpenSslChecksumsViewModel : public QObject
{
    Q_OBJECT

    /// Every digest on offer, sorted by name.
    Q_PROPERTY(Zorvane::HashAlgoVector* AvailableHashAlgos READ AvailableHashAlgos CONSTANT)
    /// The chosen digests, in the order they are hashed and reported.
    Q_PROPERTY(Zorvane::HashAlgoVector* HashAlgos READ HashAlgos CONSTANT)
    /// Size in bytes of the file last hashed; -1 while none is known.
    Q_PROPERTY(qint64 FileSize READ FileSize NOTIFY FileSizeChanged)

public:
    // Builds the catalogue of the loaded providers' digests.
    explicit OpenSslChecksumsViewModel(QObject* parent = nullptr);

    HashAlgoVector* AvailableHashAlgos() const { return m_available; }
    HashAlgoVector* HashAlgos() const { return m_chosen; }

    qint64 FileSize() const { return m_fileSize; }
    // Raises FileSizeChanged only when the value changes.
    void setFileSize(qint64 size);

Q_SIGNALS:
    void FileSizeChanged();

private:
    HashAlgoVector* m_available;
    HashAlgoVector* m_chosen;
    qint64 m_fileSize = -1;
};

} // namespace Zorvane
