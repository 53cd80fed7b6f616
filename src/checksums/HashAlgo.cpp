#include "HashAlgo.h"

#include <openssl/evp.h>

namespace Zorvane {

HashAlgo::HashAlgo(EVP_MD* digest, QObject* parent)
    : QObject(parent), m_shortName(QString::fromUtf8(EVP_MD_get0_name(digest))),
      m_description(QString::fromUtf8(EVP_MD_get0_description(digest)))
{
    EVP_MD_up_ref(digest);
    m_digest = digest;
}

HashAlgo::HashAlgo(QString shortName) : m_shortName(std::move(shortName)) {}

HashAlgo::~HashAlgo()
{
    EVP_MD_free(m_digest);
}

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
