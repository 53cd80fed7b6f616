#include "checksums/HashAlgo.h"

#include "checksums/digest_engine.h"

namespace Zorvane {

HashAlgo::HashAlgo(std::unique_ptr<Digest> digest, QObject* parent)
    : QObject(parent), m_digest(std::move(digest)),
      m_shortName(QString::fromStdString(m_digest->name())),
      m_description(QString::fromStdString(m_digest->description()))
{}

HashAlgo::HashAlgo(QString shortName) : m_shortName(std::move(shortName)) {}

HashAlgo::~HashAlgo() = default;

HashAlgo* HashAlgo::CreateInstance(const QString& shortName)
{
    return new HashAlgo(shortName);
}

void HashAlgo::setChecked(bool checked)
{
    if (m_checked == checked) {
        return;
    }
    m_checked = checked;
    Q_EMIT CheckedChanged();
}

void HashAlgo::setChecksum(const QString& checksum)
{
    m_checksum = checksum;
    Q_EMIT ChecksumChanged();
}

} // namespace Zorvane
