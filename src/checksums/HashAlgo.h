#pragma once

#include <QObject>
#include <QString>

#include <memory>

namespace Zorvane {

class Digest;

// One digest on the checksum page: its name, whether it is chosen, and its
// last result.
class HashAlgo : public QObject
{
    Q_OBJECT

    /// The one name of the digest on the check box, in the report and in the stored selection.
    Q_PROPERTY(QString ShortName READ ShortName CONSTANT)
    /// OpenSSL's description of the digest, for the tool tip.
    Q_PROPERTY(QString Description READ Description CONSTANT)
    /// The digest is chosen for hashing.
    Q_PROPERTY(bool Checked READ Checked WRITE setChecked NOTIFY CheckedChanged)
    /// The last result as upper-case hexadecimal; empty before a result.
    Q_PROPERTY(QString Checksum READ Checksum NOTIFY ChecksumChanged)

public:
    explicit HashAlgo(std::unique_ptr<Digest> digest, QObject* parent = nullptr);
    ~HashAlgo() override;

    // A name only, without a digest to hash with.
    Q_INVOKABLE static Zorvane::HashAlgo* CreateInstance(const QString& shortName);

    QString ShortName() const { return m_shortName; }
    QString Description() const { return m_description; }

    bool Checked() const { return m_checked; }
    void setChecked(bool checked);

    QString Checksum() const { return m_checksum; }
    // Always raises ChecksumChanged, also for the same text.
    void setChecksum(const QString& checksum);

    // The digest to hash with; null for a name only.
    const Digest* digest() const { return m_digest.get(); }

Q_SIGNALS:
    void CheckedChanged();
    void ChecksumChanged();

private:
    explicit HashAlgo(QString shortName);

    std::unique_ptr<Digest> m_digest;
    QString m_shortName;
    QString m_description;
    bool m_checked = false;
    QString m_checksum;
};

} // namespace Zorvane
