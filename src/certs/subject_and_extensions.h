#pragma once

#include "certs/openssl_ptr.h"

#include <string>
#include <string_view>
#include <vector>

namespace Zorvane {

struct SelfSignedSettings;
struct RequestSettings;

// What the user typed, made into the subject, the issuer and the one
// extension of a certificate. OpenSSL's refusal raises.
void add_self_signed_names(X509* certificate, const SelfSignedSettings& settings);

// What the user typed, made into the subject and the extensions of a
// request. OpenSSL's refusal raises.
void add_request_names(X509_REQ* request, const RequestSettings& settings);

// NIDs of the only two extensions the program writes.
inline constexpr int SubjectAltNameNid = 85;
inline constexpr int KeyUsageNid = 83;

// Adds one UTF-8 entry to a name; OpenSSL's refusal raises.
void add_name_entry(X509_NAME* name, const char* field, const std::string& value);

// The extension for a value string, or null where OpenSSL's parser refuses it.
X509ExtensionPtr make_extension(int nid, const std::string& value);

// Adds one extension to a certificate; a refused value raises.
void add_certificate_extension(X509* certificate, int nid, const std::string& value);

// Hands an extension to the stack; a null extension or a failed push raises.
void push_extension(STACK_OF(X509_EXTENSION) * stack, X509ExtensionPtr extension);

// Each byte on its own, sign-extended to a 16-bit code unit: no decoding.
std::u16string widen_bytes(std::string_view bytes);

// UTF-8 of UTF-16 text.
std::string utf16_to_utf8(std::u16string_view text);

// True for a dotted IPv4 or a colon IPv6 address, as inet_pton reads them.
bool is_ip_address(const std::string& text);

// The value strings of the extra alternative names: the text split at runs of
// carriage returns, empty lines and exact repeats of the common name left
// out, each prefixed "IP:" or "DNS:".
std::vector<std::string> alt_name_values(const std::string& altNames,
                                         const std::u16string& commonNameWide);

} // namespace Zorvane
