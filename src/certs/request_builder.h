#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>

namespace Zorvane {

// A request's key always has this size, whatever the page's selector shows.
inline constexpr std::int32_t RequestKeyBits = 4096;

inline constexpr std::string_view RequestDefaultExtension = ".csr";

// Everything one request run needs, copied before the work starts. Texts are UTF-8.
struct RequestSettings
{
    bool forDigitalSigning = false;
    std::u16string commonNameWide; ///< compared with the alternative names
    std::string commonName;
    std::string altNames; ///< names separated by carriage returns
    std::string organization;
    std::string organizationalUnit;
    std::string location;
    std::string state;
    std::string countryCode;
    std::string passphrase; ///< empty for an unencrypted key
    std::string requestPath;
    std::string keyPath;
};

// Makes the key and the request and writes both files. An OpenSSL failure
// comes back as its code (value 0: success); files already written stay.
std::error_code generate_request(const RequestSettings& settings);

} // namespace Zorvane
