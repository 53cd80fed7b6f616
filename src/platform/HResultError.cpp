#include "platform/HResultError.h"

#include <fmt/format.h>

#include <cerrno>
#include <exception>
#include <new>
#include <system_error>

namespace Zorvane {

HResultError::HResultError(std::uint32_t code, const std::string& what)
    : std::runtime_error(what.empty() ? fmt::format("0x{:08X}", code) : what), m_code(code)
{}

std::uint32_t hresult_from_errno(int error) noexcept
{
    struct Mapping
    {
        int error;
        std::uint32_t number;
    };
    // The platform's own error number for the same condition.
    // clang-format off
    static constexpr Mapping Table[] = {
        {ENOENT, 2},         // file not found
        {ENOTDIR, 3},        // path not found
        {EMFILE, 4},         // too many open files
        {ENFILE, 4},
        {EACCES, 5},         // access denied
        {EPERM, 5},
        {EISDIR, 5},
        {EBADF, 6},          // invalid handle
        {ENOMEM, 14},        // out of memory
        {EROFS, 19},         // write protected
        {EBUSY, 32},         // sharing violation
        {ETXTBSY, 32},
        {ENOTSUP, 50},       // not supported
        {ENXIO, 55},         // device does not exist
        {ENODEV, 55},
        {EEXIST, 80},        // file exists
        {EINVAL, 87},        // invalid parameter
        {ENOSPC, 112},       // disk full
        {ENAMETOOLONG, 206}, // file name too long
        {EFBIG, 223},        // file too large
        {EIO, 1117},         // I/O device error
        {ELOOP, 1921},       // name cannot be resolved
    };
    // clang-format on
    for (const Mapping& mapping : Table) {
        if (mapping.error == error) {
            return 0x80070000u | mapping.number; // folded as the platform folds it
        }
    }
    return HResult::Fail;
}

std::uint32_t code_of_current_exception() noexcept
{
    try {
        throw;
    } catch (const HResultError& error) {
        return error.code();
    } catch (const std::system_error& error) {
        return error.code().category() == std::generic_category()
                   ? hresult_from_errno(error.code().value())
                   : hresult_from_system_code(error.code().value());
    } catch (const std::bad_alloc&) {
        return HResult::OutOfMemory;
    } catch (...) {
        return HResult::Unexpected;
    }
}

} // namespace Zorvane
