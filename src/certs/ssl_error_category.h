#pragma once

#include <string>
#include <system_error>

namespace Zorvane {

// The category of every failure the certificate engine reports: the value is
// OpenSSL's packed error code, the message its reason string.
class ssl_error_category final : public std::error_category
{
public:
    ssl_error_category();

    const char* name() const noexcept override;
    std::string message(int value) const override;
};

// The one instance. Making it loads OpenSSL's error strings, so that happens
// only when the first failure needs wording.
const ssl_error_category& ssl_category();

// The newest entry on this thread's OpenSSL error queue, which is left in place.
std::error_code last_ssl_error();

// "[name:value] message", the value in hexadecimal when it is negative.
// UTF-8; works for a code of any category.
std::string error_code_text(const std::error_code& ec);

// A null or zero result of an OpenSSL call becomes the thrown error code.
[[noreturn]] void raise_ssl_error();

template <class T>
T* ssl_check(T* result)
{
    if (result == nullptr) {
        raise_ssl_error();
    }
    return result;
}

inline int ssl_check(int result)
{
    if (result <= 0) {
        raise_ssl_error();
    }
    return result;
}

} // namespace Zorvane
