#include "support/OpenSslReader.h"

#include <QFile>
#include <QProcess>

#include <openssl/pem.h>
#include <openssl/pkcs12.h>
#include <openssl/x509v3.h>

#include <sys/stat.h>

namespace Zorvane::Testing {

namespace {

BioPtr openForReading(const QString& path)
{
    return BioPtr(BIO_new_file(path.toUtf8().constData(), "rb"));
}

QString describeExtension(X509_EXTENSION* extension)
{
    const int nid = OBJ_obj2nid(X509_EXTENSION_get_object(extension));
    BioPtr text(BIO_new(BIO_s_mem()));
    X509V3_EXT_print(text.get(), extension, 0, 0);
    char* data = nullptr;
    const long size = BIO_get_mem_data(text.get(), &data);
    return QString::fromLatin1(OBJ_nid2ln(nid)) +
           (X509_EXTENSION_get_critical(extension) ? QStringLiteral(" critical") : QString()) +
           QStringLiteral(": ") + QString::fromUtf8(data, static_cast<qsizetype>(size));
}

} // namespace

QByteArray readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return file.readAll();
}

X509Ptr readCertificate(const QString& path)
{
    const BioPtr file = openForReading(path);
    return X509Ptr(file ? PEM_read_bio_X509(file.get(), nullptr, nullptr, nullptr) : nullptr);
}

std::pair<EvpPkeyPtr, X509Ptr> openBundle(const QString& path, const QByteArray& passphrase)
{
    const BioPtr file = openForReading(path);
    const Pkcs12Ptr bundle(file ? d2i_PKCS12_bio(file.get(), nullptr) : nullptr);
    EVP_PKEY* key = nullptr;
    X509* certificate = nullptr;
    if (bundle) {
        PKCS12_parse(bundle.get(), passphrase.constData(), &key, &certificate, nullptr);
    }
    return {EvpPkeyPtr(key), X509Ptr(certificate)};
}

X509ReqPtr readRequest(const QString& path)
{
    const BioPtr file = openForReading(path);
    return X509ReqPtr(file ? PEM_read_bio_X509_REQ(file.get(), nullptr, nullptr, nullptr)
                           : nullptr);
}

EvpPkeyPtr readPrivateKey(const QString& path, const QByteArray& passphrase)
{
    const BioPtr file = openForReading(path);
    if (!file) {
        return nullptr;
    }
    QByteArray pass = passphrase;
    return EvpPkeyPtr(PEM_read_bio_PrivateKey(file.get(), nullptr, nullptr,
                                              pass.isEmpty() ? nullptr : pass.data()));
}

QStringList nameEntries(const X509_NAME* name)
{
    QStringList entries;
    for (int i = 0; i < X509_NAME_entry_count(name); ++i) {
        const X509_NAME_ENTRY* entry = X509_NAME_get_entry(name, i);
        const int nid = OBJ_obj2nid(X509_NAME_ENTRY_get_object(entry));
        unsigned char* utf8 = nullptr;
        const int length = ASN1_STRING_to_UTF8(&utf8, X509_NAME_ENTRY_get_data(entry));
        entries << QString::fromLatin1(OBJ_nid2sn(nid)) + QLatin1Char('=') +
                       QString::fromUtf8(reinterpret_cast<const char*>(utf8), length);
        OPENSSL_free(utf8);
    }
    return entries;
}

QStringList certificateExtensions(const X509* certificate)
{
    QStringList result;
    for (int i = 0; i < X509_get_ext_count(certificate); ++i) {
        result << describeExtension(X509_get_ext(certificate, i));
    }
    return result;
}

QStringList requestExtensions(const X509_REQ* request)
{
    const ExtensionStackPtr extensions(X509_REQ_get_extensions(const_cast<X509_REQ*>(request)));
    QStringList result;
    for (int i = 0; i < sk_X509_EXTENSION_num(extensions.get()); ++i) {
        result << describeExtension(sk_X509_EXTENSION_value(extensions.get(), i));
    }
    return result;
}

QStringList alternativeNames(const QStringList& extensions)
{
    const QString prefix =
        QString::fromLatin1(OBJ_nid2ln(NID_subject_alt_name)) + QStringLiteral(": ");
    QStringList names;
    for (const QString& extension : extensions) {
        if (extension.startsWith(prefix)) {
            names += extension.mid(prefix.size()).split(QStringLiteral(", "));
        }
    }
    return names;
}

qint64 validitySeconds(const X509* certificate)
{
    int days = 0;
    int seconds = 0;
    if (ASN1_TIME_diff(&days, &seconds, X509_get0_notBefore(certificate),
                       X509_get0_notAfter(certificate)) != 1) {
        return -1;
    }
    return qint64(days) * 86400 + seconds;
}

std::optional<unsigned> fileMode(const QString& path)
{
    struct stat info = {};
    if (stat(path.toUtf8().constData(), &info) != 0) {
        return std::nullopt;
    }
    return static_cast<unsigned>(info.st_mode) & 0777u;
}

CommandResult runOpenSsl(const QStringList& arguments, const QByteArray& input)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral("openssl"), arguments);
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(60000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAll())};
}

QString opensslDigest(const QString& digest, const QString& path)
{
    const QStringList xof{QStringLiteral("-xoflen"), QStringLiteral("64")};
    return runOpenSsl(QStringList{QStringLiteral("dgst"), QStringLiteral("-r"), u'-' + digest} +
                      (digest.startsWith(QStringLiteral("SHAKE")) ? xof : QStringList()) +
                      QStringList{path})
        .output.section(u' ', 0, 0)
        .toUpper();
}

} // namespace Zorvane::Testing
