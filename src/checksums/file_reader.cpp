#include "checksums/digest_engine.h"

#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace Zorvane {

namespace {

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
    : m_file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY))
{
    const int fd = static_cast<int>(m_file);
    if (fd < 0) {
        raise_errno("open");
    }
    struct stat info = {};
    if (::fstat(fd, &info) != 0) {
        const int error = errno;
        ::close(fd);
        throw std::system_error(error, std::generic_category(), "fstat");
    }
    if (!S_ISREG(info.st_mode)) {
        ::close(fd);
        require_regular(info);
    }
#ifdef POSIX_FADV_SEQUENTIAL
    // Ask the kernel to read ahead while the digests work on the last chunk.
    ::posix_fadvise(fd, 0, 0, POSIX_FADV_SEQUENTIAL);
#endif
}

ChunkedFileReader::~ChunkedFileReader()
{
    ::close(static_cast<int>(m_file));
}

void ChunkedFileReader::feed(OnePassDigester& digester)
{
    const auto buffer = std::make_unique_for_overwrite<unsigned char[]>(ChecksumReadSize);
    for (;;) {
        const std::size_t count = load(static_cast<int>(m_file), buffer.get(), ChecksumReadSize);
        if (count == 0) {
            break;
        }
        digester.update(buffer.get(), count);
    }
}

} // namespace Zorvane
