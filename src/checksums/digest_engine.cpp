#include "checksums/digest_engine.h"

#include <openssl/core_names.h>
#include <openssl/params.h>

#include <algorithm>

namespace Zorvane {

namespace {

void collect_digest(EVP_MD* digest, void* list)
{
    // A digest without a numeric type is not offered; nothing else is filtered.
    if (EVP_MD_get_type(digest) == 0) {
        return;
    }
    EVP_MD_up_ref(digest); // the callback's argument is only borrowed
    static_cast<std::vector<EvpMdPtr>*>(list)->emplace_back(digest);
}

// EVP_MD_xof() arrives only in later OpenSSL releases; the flag says the same.
bool is_xof(const EVP_MD* digest)
{
    return digest != nullptr && (EVP_MD_get_flags(digest) & EVP_MD_FLAG_XOF) != 0;
}

} // namespace

std::vector<EvpMdPtr> provided_digests()
{
    std::vector<EvpMdPtr> digests;
    EVP_MD_do_all_provided(nullptr, collect_digest, &digests);
    return digests;
}

Digest::Digest(EVP_MD* md) : m_md(md)
{
    EVP_MD_up_ref(md);
}

std::string Digest::name() const
{
    return EVP_MD_get0_name(m_md.get());
}

std::string Digest::description() const
{
    const char* text = EVP_MD_get0_description(m_md.get());
    return text != nullptr ? text : "";
}

std::string upper_hex(const unsigned char* bytes, std::size_t length)
{
    static constexpr char Alphabet[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(2 * length);
    for (std::size_t i = 0; i < length; ++i) {
        text.push_back(Alphabet[bytes[i] >> 4]);
        text.push_back(Alphabet[bytes[i] & 0x0F]);
    }
    return text;
}

OnePassDigester::OnePassDigester(const std::vector<const EVP_MD*>& digests)
{
    m_contexts.reserve(digests.size());
    for (std::size_t i = 0; i < digests.size(); ++i) {
        m_contexts.emplace_back(EVP_MD_CTX_new());
    }
    for (std::size_t i = 0; i < digests.size(); ++i) {
        EVP_MD_CTX* context = m_contexts[i].get();
        EVP_DigestInit_ex(context, digests[i], nullptr);
        if (is_xof(digests[i])) {
            std::uint32_t outputLength = XofOutputLength;
            const OSSL_PARAM params[] = {
                {OSSL_DIGEST_PARAM_XOFLEN, OSSL_PARAM_UNSIGNED_INTEGER, &outputLength,
                 sizeof(outputLength), OSSL_PARAM_UNMODIFIED},
                OSSL_PARAM_END,
            };
            EVP_MD_CTX_set_params(context, params);
        }
    }
}

void OnePassDigester::update(const unsigned char* bytes, std::size_t length)
{
    for (const EvpMdCtxPtr& context : m_contexts) {
        EVP_DigestUpdate(context.get(), bytes, length);
    }
}

std::vector<std::optional<std::string>> OnePassDigester::finish()
{
    std::vector<std::optional<std::string>> results;
    results.reserve(m_contexts.size());
    for (const EvpMdCtxPtr& context : m_contexts) {
        unsigned char buffer[XofOutputLength] = {};
        unsigned int length = 0;
        if (EVP_DigestFinal_ex(context.get(), buffer, &length) == 0) {
            results.emplace_back();
            continue;
        }
        results.push_back(upper_hex(buffer, std::min<std::size_t>(length, sizeof(buffer))));
    }
    return results;
}

} // namespace Zorvane
