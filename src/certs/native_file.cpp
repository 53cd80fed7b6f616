#include "certs/native_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace Zorvane {

namespace {

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

// Opening does not block on a pipe without a reader, and nothing is written
// before the checks; a symbolic link is only followed when it is the user's own.
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

} // namespace

int last_system_error()
{
    return errno;
}

std::FILE* open_secret_stream(const std::string& path)
{
    Descriptor file(open_secret_file(path));
    std::FILE* stream = ::fdopen(file.get(), "wb");
    if (stream == nullptr) {
        raise_system_error(errno, "fdopen", path);
    }
    static_cast<void>(file.release()); // the stream closes it now
    return stream;
}

void sync_to_disk(std::FILE* stream)
{
    struct stat info = {};
    const int fd = ::fileno(stream);
    if (fd >= 0 && ::fstat(fd, &info) == 0 && S_ISREG(info.st_mode) && ::fsync(fd) != 0) {
        raise_system_error(errno, "fsync", "");
    }
}

} // namespace Zorvane
