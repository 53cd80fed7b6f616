#include "certs/request_builder.h"

#include "certs/key_output.h"
#include "certs/openssl_ptr.h"
#include "certs/ssl_error_category.h"
#include "certs/subject_and_extensions.h"

#include <openssl/pem.h>

#include <array>
#include <utility>

namespace Zorvane {

namespace {

void add_subject(const RequestSettings& settings, X509_REQ* request)
{
    X509_NAME* name = X509_REQ_get_subject_name(request);
    add_name_entry(name, "CN", settings.commonName);
    // Deliberately in this order, not the customary country-first one.
    const std::array<std::pair<const char*, const std::string*>, 5> optionalFields{{
        {"O", &settings.organization},
        {"OU", &settings.organizationalUnit},
        {"L", &settings.location},
        {"ST", &settings.state},
        {"C", &settings.countryCode},
    }};
    for (const auto& [field, value] : optionalFields) {
        if (!value->empty()) {
            add_name_entry(name, field, *value);
        }
    }
    ssl_check(X509_REQ_set_subject_name(request, name));
}

void add_extensions(const RequestSettings& settings, X509_REQ* request)
{
    const ExtensionStackPtr stack(sk_X509_EXTENSION_new_null());
    if (settings.forDigitalSigning) {
        push_extension(stack.get(), make_extension(KeyUsageNid, "digitalSignature"));
    } else {
        // One extension per name, the common name first and never tested as an address.
        push_extension(stack.get(),
                       make_extension(SubjectAltNameNid, "DNS:" + settings.commonName));
        for (const std::string& value :
             alt_name_values(settings.altNames, settings.commonNameWide)) {
            push_extension(stack.get(), make_extension(SubjectAltNameNid, value));
        }
    }
    ssl_check(X509_REQ_add_extensions(request, stack.get()));
}

void build_and_write(const RequestSettings& settings)
{
    const EvpPkeyPtr key = generate_rsa_key(RequestKeyBits);
    const X509ReqPtr request(X509_REQ_new());
    ssl_check(request.get());
    const EVP_CIPHER* cipher = private_key_cipher(!settings.passphrase.empty());

    add_request_names(request.get(), settings);

    ssl_check(X509_REQ_set_pubkey(request.get(), key.get()));
    ssl_check(X509_REQ_sign(request.get(), key.get(), EVP_sha256()));

    // The key file is made first and written last.
    const BioPtr keyFile = OpenOutputBio(settings.keyPath, FileAccess::OwnerOnly);
    const BioPtr requestFile = OpenOutputBio(settings.requestPath, FileAccess::Shared);
    commit_output(requestFile.get(), PEM_write_bio_X509_REQ(requestFile.get(), request.get()));
    write_private_key(keyFile.get(), key.get(), cipher, settings.passphrase);
}

} // namespace

void add_request_names(X509_REQ* request, const RequestSettings& settings)
{
    add_subject(settings, request);
    add_extensions(settings, request);
}

std::error_code generate_request(const RequestSettings& settings)
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
