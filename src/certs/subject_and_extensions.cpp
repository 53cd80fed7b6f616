#include "certs/subject_and_extensions.h"

#include "certs/ssl_error_category.h"

#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/split.hpp>

#include <array>
#include <cstdint>

// inet_pton is the sockets library's on both platforms; only its header differs.
#ifdef _WIN32
#include <ws2tcpip.h>
#else
#include <arpa/inet.h>
#include <netinet/in.h>
#endif

namespace Zorvane {

void add_name_entry(X509_NAME* name, const char* field, const std::string& value)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(value.c_str());
    ssl_check(X509_NAME_add_entry_by_txt(name, field, MBSTRING_UTF8, bytes, -1, -1, 0));
}

X509ExtensionPtr make_extension(int nid, const std::string& value)
{
    // A context without a configuration database: a value that names a section
    // (dirName:, otherName: with a sequence) is refused by OpenSSL with its own
    // reason instead of reading through a null context.
    X509V3_CTX context = {};
    X509V3_set_ctx(&context, nullptr, nullptr, nullptr, nullptr, 0);
    X509V3_set_ctx_nodb(&context);
    return X509ExtensionPtr(X509V3_EXT_conf_nid(nullptr, &context, nid, value.c_str()));
}

void add_certificate_extension(X509* certificate, int nid, const std::string& value)
{
    const X509ExtensionPtr extension = make_extension(nid, value);
    ssl_check(extension.get());
    ssl_check(X509_add_ext(certificate, extension.get(), -1));
}

void push_extension(STACK_OF(X509_EXTENSION) * stack, X509ExtensionPtr extension)
{
    ssl_check(extension.get());
    ssl_check(sk_X509_EXTENSION_push(stack, extension.get()));
    static_cast<void>(extension.release()); // the stack owns it now
}

std::u16string widen_bytes(std::string_view bytes)
{
    std::u16string wide;
    wide.reserve(bytes.size());
    for (const char byte : bytes) {
        // Through signed char, so 0xC3 becomes 0xFFC3: kept on purpose.
        const auto extended = static_cast<std::int16_t>(static_cast<signed char>(byte));
        wide.push_back(static_cast<char16_t>(extended));
    }
    return wide;
}

std::string utf16_to_utf8(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t cp = text[i];
        if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
            text[i + 1] <= 0xDFFF) {
            cp = 0x10000 + ((cp - 0xD800) << 10) + (text[i + 1] - 0xDC00);
            ++i;
        } else if (cp >= 0xD800 && cp <= 0xDFFF) {
            cp = 0xFFFD; // a lone surrogate has no UTF-8 form
        }
        if (cp < 0x80) {
            out.push_back(static_cast<char>(cp));
        } else if (cp < 0x800) {
            out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else if (cp < 0x10000) {
            out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else {
            out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        }
    }
    return out;
}

bool is_ip_address(const std::string& text)
{
    std::array<unsigned char, sizeof(in_addr)> v4{};
    if (inet_pton(AF_INET, text.c_str(), v4.data()) == 1) {
        return true;
    }
    std::array<unsigned char, sizeof(in6_addr)> v6{};
    return inet_pton(AF_INET6, text.c_str(), v6.data()) == 1;
}

std::vector<std::string> alt_name_values(const std::string& altNames,
                                         const std::u16string& commonNameWide)
{
    std::vector<std::string> tokens;
    boost::algorithm::split(tokens, altNames, boost::algorithm::is_any_of("\r"),
                            boost::algorithm::token_compress_on);

    std::vector<std::string> values;
    for (const std::string& token : tokens) {
        const std::u16string wide = widen_bytes(token);
        if (wide.empty() || wide == commonNameWide) {
            continue;
        }
        const std::string name = utf16_to_utf8(wide);
        values.push_back((is_ip_address(name) ? "IP:" : "DNS:") + name);
    }
    return values;
}

} // namespace Zorvane
