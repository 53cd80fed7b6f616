#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>

namespace Zorvane {

enum class OutputFormat
{
    Pem = 0,
    Pkcs12 = 1,
};

// Only the exact tag "PEM" asks for PEM files; any other tag asks for a bundle.
OutputFormat output_format_for_tag(std::string_view tag);

// The extension a chosen path gets when it has none.
std::string_view default_extension(OutputFormat format);

// Everything one self-signed run needs, copied before the work starts.
struct SelfSignedSettings
{
    bool forDigitalSigning = false;
    std::string commonName; ///< UTF-8
    std::int32_t validDays = 365;
    std::int32_t keySize = 2048;
    std::string passphrase; ///< UTF-8; empty for an unencrypted key
    OutputFormat format = OutputFormat::Pem;
    std::string certPath; ///< UTF-8, extension already ensured
    std::string keyPath;  ///< UTF-8, unused for a bundle
};

// Makes the key and the certificate and writes the chosen form. An OpenSSL
// failure comes back as its code (value 0: success); files already written
// stay as they are.
std::error_code generate_self_signed(const SelfSignedSettings& settings);

// The validity offset in seconds, multiplied in 32 bits so that it wraps as
// the fixed-width field always has.
std::int32_t validity_seconds(std::int32_t validDays);

} // namespace Zorvane
