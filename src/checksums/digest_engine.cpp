#include "checksums/digest_engine.h"

#include <openssl/core_names.h>
#include <openssl/params.h>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

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

[[noreturn]] void raise_errno(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

// A pipe or a device never ends (or never starts): it is a file that cannot
// be read.
void require_regular(const struct stat& info)
{
    if (!S_ISREG(info.st_mode)) {
        throw std::system_error(S_ISDIR(info.st_mode) ? EISDIR : EINVAL, std::generic_category(),
                                "not a regular file");
    }
}

// Fills the buffer up to its size, or less at the end of the file; 0 at the end.
std::size_t load(int fd, unsigned char* buffer, std::size_t size)
{
    std::size_t loaded = 0;
    while (loaded < size) {
        const ssize_t count = ::read(fd, buffer + loaded, size - loaded);
        if (count == 0) {
            break;
        }
        if (count < 0) {
            if (errno == EINTR) {
                continue;
            }
            raise_errno("read");
        }
        loaded += static_cast<std::size_t>(count);
    }
    return loaded;
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

std::int64_t file_size(const std::string& path)
{
    struct stat info = {};
    if (::stat(path.c_str(), &info) != 0) {
        raise_errno("stat");
    }
    require_regular(info);
    return static_cast<std::int64_t>(info.st_size);
}

ChunkedFileReader::ChunkedFileReader(const std::string& path)
    // Without blocking: what was a file a moment ago may be a pipe by now.
    : m_fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY))
{
    if (m_fd < 0) {
        raise_errno("open");
    }
    struct stat info = {};
    if (::fstat(m_fd, &info) != 0) {
        const int error = errno;
        ::close(m_fd);
        throw std::system_error(error, std::generic_category(), "fstat");
    }
    if (!S_ISREG(info.st_mode)) {
        ::close(m_fd);
        require_regular(info);
    }
#ifdef POSIX_FADV_SEQUENTIAL
    // Ask the kernel to read ahead while the digests work on the last chunk.
    ::posix_fadvise(m_fd, 0, 0, POSIX_FADV_SEQUENTIAL);
#endif
}

ChunkedFileReader::~ChunkedFileReader()
{
    ::close(m_fd);
}

void ChunkedFileReader::feed(OnePassDigester& digester)
{
    const auto buffer = std::make_unique_for_overwrite<unsigned char[]>(ChecksumReadSize);
    for (;;) {
        const std::size_t count = load(m_fd, buffer.get(), ChecksumReadSize);
        if (count == 0) {
            break;
        }
        digester.update(buffer.get(), count);
    }
}

} // namespace Zorvane
