#include "certs/key_output.h"

#include "certs/native_file.h"
#include "certs/ssl_error_category.h"

#include <openssl/err.h>
#include <openssl/pem.h>

#include <cerrno>
#include <cstdio>

namespace Zorvane {

// Queued as OpenSSL queues a failed fopen, so that the dialog words every
// failure to open or write a file alike.
void raise_system_error(int error, const char* call, const std::string& path)
{
    ERR_raise_data(ERR_LIB_SYS, error, "calling %s(%s)", call, path.c_str());
    ERR_raise(ERR_LIB_BIO, error == ENOENT || error == ENXIO ? BIO_R_NO_SUCH_FILE : ERR_R_SYS_LIB);
    raise_ssl_error();
}

namespace {
BioPtr open_secret_bio(const std::string& path)
{
    std::FILE* stream = open_secret_stream(path);
    BioPtr bio(BIO_new_fp(stream, BIO_CLOSE));
    if (!bio) {
        std::fclose(stream);
        raise_ssl_error();
    }
    return bio;
}
} // namespace

EvpPkeyPtr generate_rsa_key(std::int32_t bits)
{
    // The variadic argument must be exactly a size; a negative size wraps and is refused.
    const auto modulusBits = static_cast<std::size_t>(bits);
    EvpPkeyPtr key(EVP_PKEY_Q_keygen(nullptr, nullptr, "RSA", modulusBits));
    ssl_check(key.get());
    return key;
}

const EVP_CIPHER* private_key_cipher(bool hasPassphrase)
{
    return hasPassphrase ? EVP_aes_256_cbc() : nullptr;
}

BioPtr OpenOutputBio(const std::string& path, FileAccess access)
{
    if (access == FileAccess::OwnerOnly) {
        return open_secret_bio(path);
    }
    // OpenSSL takes the path as UTF-8 on every platform.
    BioPtr file(BIO_new_file(path.c_str(), "wb"));
    ssl_check(file.get());
    return file;
}

void commit_output(BIO* file, int writeResult)
{
    FILE* stream = nullptr;
    BIO_get_fp(file, &stream);
    if (writeResult <= 0) {
        // A short write leaves nothing on OpenSSL's queue; the stream knows why.
        if (stream != nullptr && std::ferror(stream) != 0) {
            raise_system_error(errno, "fwrite", "");
        }
        raise_ssl_error();
    }
    // What sits in the stream's buffer is not written yet: a full disk shows
    // only here. OpenSSL queues a failed fflush itself.
    ssl_check(BIO_flush(file));
    if (stream != nullptr) {
        sync_to_disk(stream);
    }
}

void write_private_key(BIO* file, EVP_PKEY* key, const EVP_CIPHER* cipher,
                       const std::string& passphrase)
{
    commit_output(file, PEM_write_bio_PKCS8PrivateKey(file, key, cipher, passphrase.c_str(),
                                                      static_cast<int>(passphrase.size()), nullptr,
                                                      nullptr));
}

} // namespace Zorvane
