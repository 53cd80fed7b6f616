// Everything a user can type on the two certificate pages, made into the
// subject and the extensions of both builders. A refusal is an error code and
// its text; anything else the sanitizers or the fuzzer catch is a finding.
//
// Input: one byte of flags (bit 0: for digital signing), then the common
// name, the alternative names and the five optional subject fields, separated
// by NUL bytes.

#include "certs/openssl_ptr.h"
#include "certs/request_builder.h"
#include "certs/self_signed_builder.h"
#include "certs/ssl_error_category.h"
#include "certs/subject_and_extensions.h"

#include <openssl/err.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

using namespace Zorvane;

namespace {

template <class Work>
void expectFailureRoad(Work work)
{
    try {
        work();
    } catch (const std::error_code& ec) {
        static_cast<void>(error_code_text(ec)); // the dialog's text
    }
    ERR_clear_error(); // each input starts with an empty queue
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    const bool forDigitalSigning = (data[0] & 1) != 0;
    std::string_view rest(reinterpret_cast<const char*>(data + 1), size - 1);
    // The fields in the order of the input, split at NUL bytes.
    RequestSettings request;
    request.forDigitalSigning = forDigitalSigning;
    for (std::string RequestSettings::*field :
         {&RequestSettings::commonName, &RequestSettings::altNames, &RequestSettings::organization,
          &RequestSettings::organizationalUnit, &RequestSettings::location, &RequestSettings::state,
          &RequestSettings::countryCode}) {
        const std::size_t end = rest.find('\0');
        request.*field = std::string(rest.substr(0, end));
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    }
    request.commonNameWide = widen_bytes(request.commonName);
    expectFailureRoad([&] {
        const X509ReqPtr signingRequest(X509_REQ_new());
        add_request_names(signingRequest.get(), request);
    });

    SelfSignedSettings selfSigned;
    selfSigned.forDigitalSigning = forDigitalSigning;
    selfSigned.commonName = request.commonName;
    expectFailureRoad([&] {
        const X509Ptr certificate(X509_new());
        add_self_signed_names(certificate.get(), selfSigned);
    });
    return 0;
}
