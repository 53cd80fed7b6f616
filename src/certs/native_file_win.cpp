#include "certs/native_file.h"

#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <utility>
#include <vector>

#include <windows.h>

#include <aclapi.h>
#include <io.h>

namespace Zorvane {

namespace {

class Handle
{
public:
    explicit Handle(HANDLE handle) : m_handle(handle) {}
    ~Handle()
    {
        if (m_handle != INVALID_HANDLE_VALUE && m_handle != nullptr) {
            ::CloseHandle(m_handle);
        }
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    HANDLE get() const { return m_handle; }
    HANDLE release() { return std::exchange(m_handle, INVALID_HANDLE_VALUE); }

private:
    HANDLE m_handle;
};

struct LocalFreer
{
    void operator()(void* memory) const { ::LocalFree(memory); }
};

[[noreturn]] void raise_last_error(const char* call, const std::string& path)
{
    raise_system_error(last_system_error(), call, path);
}

// A token information class of this process's user, in a buffer of its own.
std::vector<unsigned char> token_information(TOKEN_INFORMATION_CLASS kind)
{
    HANDLE raw = nullptr;
    if (!::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &raw)) {
        raise_last_error("OpenProcessToken", "");
    }
    const Handle token(raw);
    DWORD size = 0;
    ::GetTokenInformation(token.get(), kind, nullptr, 0, &size);
    std::vector<unsigned char> buffer(size);
    if (size == 0 || !::GetTokenInformation(token.get(), kind, buffer.data(), size, &size)) {
        raise_last_error("GetTokenInformation", "");
    }
    return buffer;
}

// A security descriptor that grants the user alone full control, owned by the
// user and deaf to what the folder would hand down.
class OwnerOnlySecurity
{
public:
    OwnerOnlySecurity()
        : m_user(token_information(TokenUser)), m_owner(token_information(TokenOwner))
    {
        PSID sid = User();
        const DWORD size = sizeof(ACL) + sizeof(ACCESS_ALLOWED_ACE) + ::GetLengthSid(sid);
        m_acl.resize(size);
        auto* acl = reinterpret_cast<PACL>(m_acl.data());
        if (!::InitializeAcl(acl, size, ACL_REVISION) ||
            !::AddAccessAllowedAce(acl, ACL_REVISION, FILE_ALL_ACCESS, sid) ||
            !::InitializeSecurityDescriptor(&m_descriptor, SECURITY_DESCRIPTOR_REVISION) ||
            !::SetSecurityDescriptorOwner(&m_descriptor, sid, FALSE) ||
            !::SetSecurityDescriptorDacl(&m_descriptor, TRUE, acl, FALSE) ||
            !::SetSecurityDescriptorControl(&m_descriptor, SE_DACL_PROTECTED, SE_DACL_PROTECTED)) {
            raise_last_error("InitializeSecurityDescriptor", "");
        }
    }

    PSID User() const { return reinterpret_cast<const TOKEN_USER*>(m_user.data())->User.Sid; }
    // Who the system makes the owner of what this process creates (the
    // Administrators group for an elevated administrator).
    PSID DefaultOwner() const
    {
        return reinterpret_cast<const TOKEN_OWNER*>(m_owner.data())->Owner;
    }
    PACL Acl() { return reinterpret_cast<PACL>(m_acl.data()); }
    SECURITY_DESCRIPTOR* Descriptor() { return &m_descriptor; }

private:
    std::vector<unsigned char> m_user;
    std::vector<unsigned char> m_owner;
    std::vector<unsigned char> m_acl;
    SECURITY_DESCRIPTOR m_descriptor = {};
};

// A file system that keeps no access lists (FAT, exFAT) refuses them for every
// file alike: there the volume decides who reads.
bool refused_as_unsupported(DWORD error)
{
    return error == ERROR_NOT_SUPPORTED || error == ERROR_INVALID_FUNCTION;
}

HANDLE open_secret_file(const std::string& path)
{
    const std::wstring name = widened_path(path);
    OwnerOnlySecurity security;
    SECURITY_ATTRIBUTES attributes = {sizeof(attributes), security.Descriptor(), FALSE};
    constexpr DWORD Access = GENERIC_WRITE | READ_CONTROL | WRITE_DAC;
    // A reparse point (a link or a mount point) is opened as itself, never
    // followed, and so refused below.
    HANDLE opened = ::CreateFileW(name.c_str(), Access, 0, &attributes, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    const bool created = opened != INVALID_HANDLE_VALUE;
    if (!created) {
        const DWORD error = ::GetLastError();
        if (error != ERROR_FILE_EXISTS && error != ERROR_ALREADY_EXISTS) {
            raise_last_error("CreateFileW", path);
        }
        opened = ::CreateFileW(name.c_str(), Access, 0, nullptr, OPEN_EXISTING,
                               FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
        if (opened == INVALID_HANDLE_VALUE) {
            raise_last_error("CreateFileW", path);
        }
    }
    Handle file(opened);
    // Nothing is written to a device, a pipe or a console.
    if (::GetFileType(file.get()) != FILE_TYPE_DISK) {
        raise_system_error(EINVAL, "open", path);
    }
    BY_HANDLE_FILE_INFORMATION info = {};
    if (!::GetFileInformationByHandle(file.get(), &info)) {
        raise_last_error("GetFileInformationByHandle", path);
    }
    if ((info.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        raise_system_error(ELOOP, "open", path);
    }
    if ((info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        raise_system_error(EISDIR, "open", path);
    }
    if (!created) {
        // Someone else's file stays readable by its owner, whatever its list.
        PSID owner = nullptr;
        PSECURITY_DESCRIPTOR held = nullptr;
        if (::GetSecurityInfo(file.get(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, &owner,
                              nullptr, nullptr, nullptr, &held) == ERROR_SUCCESS) {
            const std::unique_ptr<void, LocalFreer> release(held);
            if (owner != nullptr && !::EqualSid(owner, security.User()) &&
                !::EqualSid(owner, security.DefaultOwner())) {
                raise_system_error(EPERM, "open", path);
            }
        }
        // Restricted before it is emptied and written: the file may have been
        // readable by others until now.
        // Set on the open handle as given: the protection must hold, so that
        // nothing the folder hands down comes back onto the file.
        const DWORD restricted = ::SetKernelObjectSecurity(file.get(),
                                                           DACL_SECURITY_INFORMATION |
                                                               PROTECTED_DACL_SECURITY_INFORMATION,
                                                           security.Descriptor())
                                     ? ERROR_SUCCESS
                                     : ::GetLastError();
        if (restricted != ERROR_SUCCESS && !refused_as_unsupported(restricted)) {
            ::SetLastError(restricted);
            raise_last_error("SetKernelObjectSecurity", path);
        }
        if (!::SetEndOfFile(file.get())) {
            raise_last_error("SetEndOfFile", path);
        }
    }
    return file.release();
}

} // namespace

int last_system_error()
{
    struct Mapping
    {
        DWORD error;
        int number;
    };
    // clang-format off
    static constexpr Mapping Table[] = {
        {ERROR_FILE_NOT_FOUND, ENOENT},       {ERROR_PATH_NOT_FOUND, ENOENT},
        {ERROR_INVALID_DRIVE, ENOENT},        {ERROR_BAD_NETPATH, ENOENT},
        {ERROR_BAD_NET_NAME, ENOENT},         {ERROR_INVALID_NAME, ENOENT},
        {ERROR_TOO_MANY_OPEN_FILES, EMFILE},  {ERROR_ACCESS_DENIED, EACCES},
        {ERROR_WRITE_PROTECT, EROFS},         {ERROR_SHARING_VIOLATION, EBUSY},
        {ERROR_LOCK_VIOLATION, EBUSY},        {ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
        {ERROR_OUTOFMEMORY, ENOMEM},          {ERROR_FILE_EXISTS, EEXIST},
        {ERROR_ALREADY_EXISTS, EEXIST},       {ERROR_DISK_FULL, ENOSPC},
        {ERROR_HANDLE_DISK_FULL, ENOSPC},     {ERROR_INVALID_PARAMETER, EINVAL},
        {ERROR_NOT_SUPPORTED, ENOTSUP},       {ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
        {ERROR_DIRECTORY, ENOTDIR},           {ERROR_CANT_RESOLVE_FILENAME, ELOOP},
        {ERROR_BROKEN_PIPE, EPIPE},           {ERROR_PRIVILEGE_NOT_HELD, EPERM},
    };
    // clang-format on
    const DWORD error = ::GetLastError();
    for (const Mapping& mapping : Table) {
        if (mapping.error == error) {
            return mapping.number;
        }
    }
    return EIO;
}

std::wstring widened_path(const std::string& path)
{
    if (path.empty()) {
        return {};
    }
    const int size =
        ::MultiByteToWideChar(CP_UTF8, 0, path.data(), static_cast<int>(path.size()), nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, path.data(), static_cast<int>(path.size()), wide.data(),
                          size);
    return wide;
}

std::FILE* open_secret_stream(const std::string& path)
{
    Handle file(open_secret_file(path));
    const int fd = ::_open_osfhandle(reinterpret_cast<intptr_t>(file.get()), _O_WRONLY | _O_BINARY);
    if (fd < 0) {
        raise_system_error(errno, "_open_osfhandle", path);
    }
    static_cast<void>(file.release()); // the descriptor closes it now
    std::FILE* stream = ::_fdopen(fd, "wb");
    if (stream == nullptr) {
        const int error = errno;
        ::_close(fd);
        raise_system_error(error, "_fdopen", path);
    }
    return stream;
}

void sync_to_disk(std::FILE* stream)
{
    const int fd = ::_fileno(stream);
    const auto file =
        fd >= 0 ? reinterpret_cast<HANDLE>(::_get_osfhandle(fd)) : INVALID_HANDLE_VALUE;
    if (file != INVALID_HANDLE_VALUE && ::GetFileType(file) == FILE_TYPE_DISK &&
        !::FlushFileBuffers(file)) {
        raise_last_error("FlushFileBuffers", "");
    }
}

} // namespace Zorvane
