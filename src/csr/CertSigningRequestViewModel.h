#pragma once

#include <QObject>
#include <QString>

namespace Zorvane {

// What the user has entered on the request page. A plain bag of values without
// change notification or validation: OpenSSL judges the values when a request
// is made.
class CertSigningRequestViewModel : public QObject
{
    Q_OBJECT

    /// The request is for signing documents rather than for a server name.
    Q_PROPERTY(bool ForDigitalSigning READ ForDigitalSigning WRITE setForDigitalSigning)
    /// Subject CN, and the first alternative name for a server.
    Q_PROPERTY(QString CommonName READ CommonName WRITE setCommonName)
    /// Further names, one per line, lines separated by carriage returns.
    Q_PROPERTY(QString AltNames READ AltNames WRITE setAltNames)
    /// Subject O.
    Q_PROPERTY(QString Organization READ Organization WRITE setOrganization)
    /// Subject OU.
    Q_PROPERTY(QString OrganizationalUnit READ OrganizationalUnit WRITE setOrganizationalUnit)
    /// Subject L.
    Q_PROPERTY(QString Location READ Location WRITE setLocation)
    /// Subject ST.
    Q_PROPERTY(QString State READ State WRITE setState)
    /// Subject C.
    Q_PROPERTY(QString CountryCode READ CountryCode WRITE setCountryCode)
    /// What the key size selector shows; a request's key is always 4096 bits.
    Q_PROPERTY(int KeySize READ KeySize WRITE setKeySize)
    /// Protects the private key; empty leaves it unencrypted.
    Q_PROPERTY(QString Passphrase READ Passphrase WRITE setPassphrase)

public:
    explicit CertSigningRequestViewModel(QObject* parent = nullptr);

    bool ForDigitalSigning() const { return m_forDigitalSigning; }
    void setForDigitalSigning(bool value) { m_forDigitalSigning = value; }

    QString CommonName() const { return m_commonName; }
    void setCommonName(const QString& value) { m_commonName = value; }

    QString AltNames() const { return m_altNames; }
    void setAltNames(const QString& value) { m_altNames = value; }

    QString Organization() const { return m_organization; }
    void setOrganization(const QString& value) { m_organization = value; }

    QString OrganizationalUnit() const { return m_organizationalUnit; }
    void setOrganizationalUnit(const QString& value) { m_organizationalUnit = value; }

    QString Location() const { return m_location; }
    void setLocation(const QString& value) { m_location = value; }

    QString State() const { return m_state; }
    void setState(const QString& value) { m_state = value; }

    QString CountryCode() const { return m_countryCode; }
    void setCountryCode(const QString& value) { m_countryCode = value; }

    int KeySize() const { return m_keySize; }
    void setKeySize(int value) { m_keySize = value; }

    QString Passphrase() const { return m_passphrase; }
    void setPassphrase(const QString& value) { m_passphrase = value; }

private:
    bool m_forDigitalSigning = false;
    QString m_commonName;
    QString m_altNames;
    QString m_organization;
    QString m_organizationalUnit;
    QString m_location;
    QString m_state;
    QString m_countryCode;
    int m_keySize = 4096;
    QString m_passphrase;
};

} // namespace Zorvane
