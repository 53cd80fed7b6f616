#include "certs/key_output.h"

#include "certs/ssl_error_category.h"

#include <openssl/err.h>
#include <openssl/pem.h>

#include <cerrno>
#include <cstdio>
#include <utility>

#if defined(__unix__) || defined(__APPLE__)
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#define ZORVANE_POSIX_FILES 1
#endif

namespace Zorvane {

namespace {

// Queued as OpenSSL queues a failed fopen, so that the dialog words every
// failure to open or write a file alike.
[[noreturn]] void raise_system_error(int error, const char* call, const std::string& path)
{
    ERR_raise_data(ERR_LIB_SYS, error, "calling %s(%s)", call, path.c_str());
    ERR_raise(ERR_LIB_BIO, error == ENOENT || error == ENXIO ? BIO_R_NO_SUCH_FILE : ERR_R_SYS_LIB);
    raise_ssl_error();
}

#ifdef ZORVANE_POSIX_FILES
class Descriptor
{
public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor()
    {
        if (m_fd >= 0) {
            ::close(m_fd);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const { return m_fd; }
    int release() { return std::exchange(m_fd, -1); }

private:
    int m_fd;
};

constexpr mode_t OwnerReadWrite = S_IRUSR | S_IWUSR;

// How a file system that keeps no permission bits answers a change of them.
bool refused_as_unsupported(int error)
{
    return error == EPERM || error == ENOTSUP || error == EOPNOTSUPP;
}

// Opens the file that receives a secret. It is born owner-only, so nobody
// else can open it in between; it is never a pipe, device or socket (opening
// does not block on a pipe without a reader, and nothing is written before
// the check); a symbolic link is only followed when it is the user's own.
int open_secret_file(const std::string& path)
{
    constexpr int Flags = O_WRONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    int fd = ::open(path.c_str(), Flags | O_CREAT | O_EXCL, OwnerReadWrite);
    const bool created = fd >= 0;
    if (!created && errno == EEXIST) {
        fd = ::open(path.c_str(), Flags | O_NOFOLLOW);
        if (fd < 0 && errno == ELOOP) {
            struct stat link = {};
            if (::lstat(path.c_str(), &link) == 0 && S_ISLNK(link.st_mode) &&
                link.st_uid == ::geteuid()) {
                fd = ::open(path.c_str(), Flags | O_CREAT, OwnerReadWrite);
            } else {
                errno = ELOOP;
            }
        }
    }
    if (fd < 0) {
        raise_system_error(errno, "open", path);
    }
    Descriptor file(fd);

    struct stat info = {};
    if (::fstat(fd, &info) != 0) {
        raise_system_error(errno, "fstat", path);
    }
    if (!S_ISREG(info.st_mode)) {
        raise_system_error(EINVAL, "open", path);
    }
    // Someone else's file stays readable by its owner, whatever its mode.
    if (info.st_uid != ::geteuid()) {
        raise_system_error(EPERM, "open", path);
    }
    // An existing file may have been readable by others: restricted before it
    // is emptied and written. A file system without permission bits (FAT,
    // exFAT) refuses the call for every file alike, new or existing: there the
    // mount decides who reads, and the user's own file is written all the same.
    if (::fchmod(fd, OwnerReadWrite) != 0 && !refused_as_unsupported(errno)) {
        raise_system_error(errno, "fchmod", path);
    }
    if (!created && ::ftruncate(fd, 0) != 0) {
        raise_system_error(errno, "ftruncate", path);
    }
    const int flags = ::fcntl(fd, F_GETFL);
    if (flags < 0 || ::fcntl(fd, F_SETFL, flags & ~O_NONBLOCK) != 0) {
        raise_system_error(errno, "fcntl", path);
    }
    return file.release();
}

BioPtr open_secret_bio(const std::string& path)
{
    Descriptor file(open_secret_file(path));
    FILE* stream = ::fdopen(file.get(), "wb");
    if (stream == nullptr) {
        raise_system_error(errno, "fdopen", path);
    }
    static_cast<void>(file.release()); // the stream closes it now
    BioPtr bio(BIO_new_fp(stream, BIO_CLOSE));
    if (!bio) {
        std::fclose(stream);
        raise_ssl_error();
    }
    return bio;
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
#ifdef ZORVANE_POSIX_FILES
    if (access == FileAccess::OwnerOnly) {
        return open_secret_bio(utf8Path);
    }
#else
    static_cast<void>(access);
#endif
    BioPtr file(BIO_new_file(utf8Path.c_str(), "wb"));
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
#ifdef ZORVANE_POSIX_FILES
    struct stat info = {};
    const int fd = stream != nullptr ? ::fileno(stream) : -1;
    if (fd >= 0 && ::fstat(fd, &info) == 0 && S_ISREG(info.st_mode) && ::fsync(fd) != 0) {
        raise_system_error(errno, "fsync", "");
    }
#endif
}

void write_private_key(BIO* file, EVP_PKEY* key, const EVP_CIPHER* cipher,
                       const std::string& passphrase)
{
    commit_output(file, PEM_write_bio_PKCS8PrivateKey(file, key, cipher, passphrase.c_str(),
                                                      static_cast<int>(passphrase.size()), nullptr,
                                                      nullptr));
}

} // namespace Zorvane
