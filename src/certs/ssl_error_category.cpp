#include "certs/ssl_error_category.h"

#include <fmt/format.h>
#include <openssl/err.h>
#include <openssl/ssl.h>

#include <cstdint>

namespace Zorvane {

namespace {
constexpr std::uint64_t LoadErrorStrings = 0x200002;
static_assert((OPENSSL_INIT_LOAD_SSL_STRINGS | OPENSSL_INIT_LOAD_CRYPTO_STRINGS) ==
              LoadErrorStrings);

unsigned long packed_code(int value)
{
    // Undo the signed view without sign extension into the wider type.
    return static_cast<std::uint32_t>(value);
}
} // namespace

ssl_error_category::ssl_error_category()
{
    OPENSSL_init_ssl(LoadErrorStrings, nullptr);
}

const char* ssl_error_category::name() const noexcept
{
    return "ssl";
}

std::string ssl_error_category::message(int value) const
{
    const char* reason = ERR_reason_error_string(packed_code(value));
    return reason != nullptr ? std::string(reason) : std::string("ssl error");
}

const ssl_error_category& ssl_category()
{
    static const ssl_error_category instance;
    return instance;
}

std::error_code last_ssl_error()
{
    const auto code = static_cast<std::uint32_t>(ERR_peek_last_error());
    return {static_cast<int>(code), ssl_category()};
}

void raise_ssl_error()
{
    throw last_ssl_error();
}

std::string error_code_text(const std::error_code& ec)
{
    const std::string message = ec.message();
    const char* name = ec.category().name();
    const int value = ec.value();
    const std::string code =
        value < 0 ? fmt::format("{}:{:#09x}", name, static_cast<std::uint32_t>(value))
                  : fmt::format("{}:{}", name, value);
    return fmt::format("[{}] {}", code, message);
}

} // namespace Zorvane
