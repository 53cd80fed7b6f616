#pragma once

#include <QObject>
#include <QString>

namespace Zorvane {

// What the user has entered on the self-signed page. A plain bag of values
// without change notification: the controls take their values once and write
// back on their own events.
class SelfSignedCertViewModel : public QObject
{
    Q_OBJECT

    /// The certificate is for signing documents rather than for a server name.
    Q_PROPERTY(bool ForDigitalSigning READ ForDigitalSigning WRITE setForDigitalSigning)
    /// Subject and issuer common name.
    Q_PROPERTY(QString CommonName READ CommonName WRITE setCommonName)
    /// Days from now to the end of validity.
    Q_PROPERTY(int ValidDays READ ValidDays WRITE setValidDays)
    /// RSA modulus size in bits.
    Q_PROPERTY(int KeySize READ KeySize WRITE setKeySize)
    /// Protects the private key; empty leaves it unencrypted.
    Q_PROPERTY(QString Passphrase READ Passphrase WRITE setPassphrase)

public:
    explicit SelfSignedCertViewModel(QObject* parent = nullptr);

    bool ForDigitalSigning() const { return m_forDigitalSigning; }
    void setForDigitalSigning(bool value) { m_forDigitalSigning = value; }

    QString CommonName() const { return m_commonName; }
    void setCommonName(const QString& value) { m_commonName = value; }

    int ValidDays() const { return m_validDays; }
    void setValidDays(int value);

    int KeySize() const { return m_keySize; }
    void setKeySize(int value) { m_keySize = value; }

    QString Passphrase() const { return m_passphrase; }
    void setPassphrase(const QString& value) { m_passphrase = value; }

private:
    bool m_forDigitalSigning = false;
    QString m_commonName;
    int m_validDays = 365;
    int m_keySize = 2048;
    QString m_passphrase;
};

} // namespace Zorvane
