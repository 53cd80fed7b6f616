#pragma once

// The one-pass digest engine: every chosen digest is fed from the same buffer,
// chunk after chunk, so a file is read once however many digests there are.
// OpenSSL only, no Qt.

#include "certs/openssl_ptr.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Zorvane {

// Bytes asked for at each read: 10 MiB.
inline constexpr std::size_t ChecksumReadSize = 0xA00000;
// Output length of every extendable-output digest, in bytes.
inline constexpr std::uint32_t XofOutputLength = 64;

// Every digest the loaded providers offer that has a numeric type, in the
// providers' order, each with its own reference.
std::vector<EvpMdPtr> provided_digests();

// One digest of the catalogue with its own reference: what the Qt side holds
// of it, without seeing an OpenSSL type.
class Digest
{
public:
    explicit Digest(EVP_MD* md);

    const EVP_MD* get() const { return m_md.get(); }
    std::string name() const;
    std::string description() const;

private:
    EvpMdPtr m_md;
};

// Upper-case hexadecimal, high nibble first, no separators.
std::string upper_hex(const unsigned char* bytes, std::size_t length);

class OnePassDigester
{
public:
    // One context per digest, initialised; an XOF digest is set to 64 bytes of
    // output. Nothing is tested here: a digest that cannot start fails at finish.
    explicit OnePassDigester(const std::vector<const EVP_MD*>& digests);

    // Feeds the same bytes to every context, in order.
    void update(const unsigned char* bytes, std::size_t length);

    // Finishes every context: the hexadecimal result, or nothing where OpenSSL
    // could not finish that digest.
    std::vector<std::optional<std::string>> finish();

private:
    std::vector<EvpMdCtxPtr> m_contexts;
};

// The size of a file in bytes, as the file system reports it before reading.
// Raises std::system_error when it cannot be read or is no regular file.
std::int64_t file_size(const std::string& path);

// A file opened for reading only, read once from start to end.
class ChunkedFileReader
{
public:
    // Raises std::system_error when the file cannot be opened or is no
    // regular file (a pipe or a device would never end).
    explicit ChunkedFileReader(const std::string& path);
    ~ChunkedFileReader();
    ChunkedFileReader(const ChunkedFileReader&) = delete;
    ChunkedFileReader& operator=(const ChunkedFileReader&) = delete;

    // Reads chunks of ChecksumReadSize until the end and feeds each to the
    // digester. Raises std::system_error on a failed read.
    void feed(OnePassDigester& digester);

private:
    std::intptr_t m_file; ///< a descriptor, or the system's handle on Windows
};

} // namespace Zorvane
