#include "certs/self_signed_builder.h"

#include "certs/key_output.h"
#include "certs/openssl_ptr.h"
#include "certs/ssl_error_category.h"
#include "certs/subject_and_extensions.h"

#include <openssl/pem.h>

namespace Zorvane {

namespace {

constexpr std::int32_t SecondsPerDay = 86400;

void write_bundle(const SelfSignedSettings& settings, EVP_PKEY* key, X509* certificate)
{
    const bool hasPassphrase = !settings.passphrase.empty();
    // No certificate encryption; the key under OpenSSL's default algorithm only
    // with a pass phrase; OpenSSL's default iteration counts.
    Pkcs12Ptr bundle(PKCS12_create(settings.passphrase.c_str(), nullptr, key, certificate, nullptr,
                                   hasPassphrase ? 0 : -1, -1, 0, 0, 0));
    ssl_check(bundle.get());
    const BioPtr file = OpenOutputBio(settings.certPath, FileAccess::OwnerOnly);
    commit_output(file.get(), i2d_PKCS12_bio(file.get(), bundle.get()));
}

void write_pem_pair(const SelfSignedSettings& settings, EVP_PKEY* key, X509* certificate,
                    const EVP_CIPHER* cipher)
{
    // The key file is made first and written last.
    const BioPtr keyFile = OpenOutputBio(settings.keyPath, FileAccess::OwnerOnly);
    const BioPtr certFile = OpenOutputBio(settings.certPath, FileAccess::Shared);
    commit_output(certFile.get(), PEM_write_bio_X509(certFile.get(), certificate));
    write_private_key(keyFile.get(), key, cipher, settings.passphrase);
}

void build_and_write(const SelfSignedSettings& settings)
{
    const EvpPkeyPtr key = generate_rsa_key(settings.keySize);
    const X509Ptr certificate(X509_new());
    ssl_check(certificate.get());
    const EVP_CIPHER* cipher = private_key_cipher(!settings.passphrase.empty());

    // Every certificate has serial number 1.
    ssl_check(ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1));
    // The not-before result is not looked at; a failure shows at not-after or signing.
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), 0);
    ssl_check(X509_gmtime_adj(X509_getm_notAfter(certificate.get()),
                              validity_seconds(settings.validDays)));

    add_self_signed_names(certificate.get(), settings);

    ssl_check(X509_set_pubkey(certificate.get(), key.get()));
    // A certificate with extensions must be version 3 (RFC 5280), or GnuTLS and
    // Java refuse it. OpenSSL 3.2 and later make sure of that when signing;
    // 3.0 does not, so the same guarantee is given here on every release.
    if (X509_get_ext_count(certificate.get()) > 0) {
        ssl_check(X509_set_version(certificate.get(), X509_VERSION_3));
    }
    ssl_check(X509_sign(certificate.get(), key.get(), EVP_sha256()));

    if (settings.format == OutputFormat::Pkcs12) {
        write_bundle(settings, key.get(), certificate.get());
    } else {
        write_pem_pair(settings, key.get(), certificate.get(), cipher);
    }
}

} // namespace

void add_self_signed_names(X509* certificate, const SelfSignedSettings& settings)
{
    X509_NAME* name = X509_get_subject_name(certificate);
    add_name_entry(name, "CN", settings.commonName);
    ssl_check(X509_set_subject_name(certificate, name));
    ssl_check(X509_set_issuer_name(certificate, name));

    if (settings.forDigitalSigning) {
        add_certificate_extension(certificate, KeyUsageNid, "digitalSignature");
    } else {
        add_certificate_extension(certificate, SubjectAltNameNid, "DNS:" + settings.commonName);
    }
}

OutputFormat output_format_for_tag(std::string_view tag)
{
    return tag == "PEM" ? OutputFormat::Pem : OutputFormat::Pkcs12;
}

std::string_view default_extension(OutputFormat format)
{
    return format == OutputFormat::Pem ? ".crt" : ".pfx";
}

std::int32_t validity_seconds(std::int32_t validDays)
{
    const std::uint32_t product =
        static_cast<std::uint32_t>(validDays) * static_cast<std::uint32_t>(SecondsPerDay);
    return static_cast<std::int32_t>(product);
}

std::error_code generate_self_signed(const SelfSignedSettings& settings)
{
    std::error_code ec;
    try {
        build_and_write(settings);
    } catch (const std::error_code& caught) {
        ec = caught;
    }
    return ec;
}

} // namespace Zorvane
