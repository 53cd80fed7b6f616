#include "key_output.h"

#include "ssl_error_category.h"

#include <openssl/err.h>
#include <openssl/pem.h>

#include <cerrno>
#include <cstdio>

#if defined(__unix__) || defined(__APPLE__)
#include <sys/stat.h>
#define ZORVANE_POSIX_FILES 1
#endif

namespace Zorvane {

namespace {

#ifdef ZORVANE_POSIX_FILES
// Only a regular file is restricted: a device or pipe picked as the target is
// left as the system has it.
void restrict_to_owner(BIO* file, const std::string& path)
{
    FILE* stream = nullptr;
    BIO_ctrl(file, BIO_C_GET_FILE_PTR, 0, &stream);
    const int descriptor = stream != nullptr ? fileno(stream) : -1;
    struct stat info = {};
    if (descriptor >= 0 && fstat(descriptor, &info) == 0 && !S_ISREG(info.st_mode)) {
        return;
    }
    if (descriptor < 0 || fchmod(descriptor, S_IRUSR | S_IWUSR) != 0) {
        // Queued as OpenSSL queues a failed open, so the dialog words it alike.
        ERR_raise_data(ERR_LIB_SYS, errno, "calling fchmod(%s)", path.c_str());
        ERR_raise(ERR_LIB_BIO, ERR_R_SYS_LIB);
        raise_ssl_error();
    }
}
#endif

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
    const std::string utf8Path = path;
    BioPtr file(BIO_new_file(utf8Path.c_str(), "wb"));
    ssl_check(file.get());
#ifdef ZORVANE_POSIX_FILES
    if (access == FileAccess::OwnerOnly) {
        restrict_to_owner(file.get(), utf8Path);
    }
#else
    static_cast<void>(access);
#endif
    return file;
}

void write_private_key(BIO* file, EVP_PKEY* key, const EVP_CIPHER* cipher,
                       const std::string& passphrase)
{
    ssl_check(PEM_write_bio_PKCS8PrivateKey(file, key, cipher, passphrase.c_str(),
                                            static_cast<int>(passphrase.size()), nullptr, nullptr));
}

} // namespace Zorvane
