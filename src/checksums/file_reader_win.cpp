#include "certs/native_file.h"
#include "checksums/digest_engine.h"

#include <cerrno>
#include <memory>
#include <system_error>

#include <windows.h>

namespace Zorvane {

namespace {

[[noreturn]] void raise_last_error(const char* what)
{
    throw std::system_error(last_system_error(), std::generic_category(), what);
}

HANDLE handle_of(std::intptr_t file)
{
    return reinterpret_cast<HANDLE>(file);
}

} // namespace

std::int64_t file_size(const std::string& path)
{
    // Asked of the file itself, so that a device (NUL) or a pipe is told
    // apart from a file as the read would find it.
    const HANDLE file = ::CreateFileW(widened_path(path).c_str(), 0,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        raise_last_error("CreateFileW");
    }
    BY_HANDLE_FILE_INFORMATION info = {};
    const bool disk = ::GetFileType(file) == FILE_TYPE_DISK;
    const bool read = disk && ::GetFileInformationByHandle(file, &info);
    const int error = read ? 0 : last_system_error();
    ::CloseHandle(file);
    if (!disk) {
        throw std::system_error(EINVAL, std::generic_category(), "not a regular file");
    }
    if (!read) {
        throw std::system_error(error, std::generic_category(), "GetFileInformationByHandle");
    }
    if ((info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        throw std::system_error(EISDIR, std::generic_category(), "not a regular file");
    }
    return static_cast<std::int64_t>((static_cast<std::uint64_t>(info.nFileSizeHigh) << 32) |
                                     info.nFileSizeLow);
}

ChunkedFileReader::ChunkedFileReader(const std::string& path)
    // Others may go on reading and writing it meanwhile, as they could on POSIX.
    : m_file(reinterpret_cast<std::intptr_t>(
          ::CreateFileW(widened_path(path).c_str(), GENERIC_READ,
                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr)))
{
    const HANDLE file = handle_of(m_file);
    if (file == INVALID_HANDLE_VALUE) {
        raise_last_error("CreateFileW");
    }
    // A pipe or a device never ends (or never starts): it is a file that
    // cannot be read.
    if (::GetFileType(file) != FILE_TYPE_DISK) {
        ::CloseHandle(file);
        throw std::system_error(EINVAL, std::generic_category(), "not a regular file");
    }
}

ChunkedFileReader::~ChunkedFileReader()
{
    ::CloseHandle(handle_of(m_file));
}

void ChunkedFileReader::feed(OnePassDigester& digester)
{
    const auto buffer = std::make_unique_for_overwrite<unsigned char[]>(ChecksumReadSize);
    for (;;) {
        // ReadFile stops short only at the end of the file.
        DWORD count = 0;
        if (!::ReadFile(handle_of(m_file), buffer.get(), static_cast<DWORD>(ChecksumReadSize),
                        &count, nullptr)) {
            raise_last_error("ReadFile");
        }
        if (count == 0) {
            break;
        }
        digester.update(buffer.get(), count);
    }
}

} // namespace Zorvane
