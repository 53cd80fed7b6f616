#include "checksums/OpenSslChecksumsViewModel.h"

#include "checksums/digest_engine.h"

#include <algorithm>

namespace Zorvane {

namespace {
QList<HashAlgo*> build_catalogue(QObject* owner)
{
    QList<HashAlgo*> catalogue;
    for (const EvpMdPtr& digest : provided_digests()) {
        catalogue << new HashAlgo(std::make_unique<Digest>(digest.get()), owner);
    }
    // Code unit by code unit, so "Z" comes before "a"; no tie-break.
    std::sort(catalogue.begin(), catalogue.end(),
              [](const HashAlgo* a, const HashAlgo* b) { return a->ShortName() < b->ShortName(); });
    return catalogue;
}
} // namespace

OpenSslChecksumsViewModel::OpenSslChecksumsViewModel(QObject* parent)
    : QObject(parent), m_available(new HashAlgoVector(this)), m_chosen(new HashAlgoVector(this))
{
    m_available->ReplaceAll(build_catalogue(this));
}

void OpenSslChecksumsViewModel::setFileSize(qint64 size)
{
    if (m_fileSize == size) {
        return;
    }
    m_fileSize = size;
    Q_EMIT FileSizeChanged();
}

} // namespace Zorvane
