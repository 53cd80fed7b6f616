#pragma once

// Reads what the certificate engine wrote, with OpenSSL's own parsers and the
// openssl command, so that the tests check the files and not our code.

#include "certs/openssl_ptr.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

namespace Zorvane::Testing {

QByteArray readFile(const QString& path);

X509Ptr readCertificate(const QString& path);
X509ReqPtr readRequest(const QString& path);
// Null when the pass phrase does not open the key.
EvpPkeyPtr readPrivateKey(const QString& path, const QByteArray& passphrase);
// The key and certificate of a PKCS#12 bundle, when the pass phrase opens it.
std::pair<EvpPkeyPtr, X509Ptr> openBundle(const QString& path, const QByteArray& passphrase);

// "CN=host", "O=Org", ... in the order of the name.
QStringList nameEntries(const X509_NAME* name);
// "subjectAltName: DNS:host", "keyUsage critical: Digital Signature", ...
QStringList certificateExtensions(const X509* certificate);
QStringList requestExtensions(const X509_REQ* request);
// "DNS:host", "IP Address:10.0.0.1", ... of the subject alternative names
// among extensions as the two above describe them.
QStringList alternativeNames(const QStringList& extensions);

// Seconds from not-before to not-after.
qint64 validitySeconds(const X509* certificate);

// Permission bits of a file, or nothing when it does not exist.
std::optional<unsigned> fileMode(const QString& path);

struct CommandResult
{
    int exitCode = -1;
    QString output; ///< standard output and error together
};
CommandResult runOpenSsl(const QStringList& arguments, const QByteArray& input = {});
// What "openssl dgst" gives for the file, upper-cased as the program shows
// it; 64 bytes of an extendable-output digest.
QString opensslDigest(const QString& digest, const QString& path);

} // namespace Zorvane::Testing
