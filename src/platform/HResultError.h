#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace Zorvane {

// Well-known failure codes of platform calls.
namespace HResult {
inline constexpr std::uint32_t NoPackage = 0x80073D54; ///< the process has no package identity
inline constexpr std::uint32_t ClassNotAvailable = 0x80040111; ///< unknown runtime class name
inline constexpr std::uint32_t OutOfMemory = 0x8007000E;
inline constexpr std::uint32_t NotImplemented = 0x80004001;
inline constexpr std::uint32_t NoInterface = 0x80004002;
inline constexpr std::uint32_t Unexpected = 0x8000FFFF;
inline constexpr std::uint32_t Fail = 0x80004005;
} // namespace HResult

// A failed platform call, carrying its 32-bit result code.
class HResultError : public std::runtime_error
{
public:
    explicit HResultError(std::uint32_t code, const std::string& what = {});

    std::uint32_t code() const noexcept { return m_code; }

private:
    std::uint32_t m_code;
};

// The result code of a failed system call: ENOENT is 0x80070002, EACCES
// 0x80070005, ENOSPC 0x80070070 and so on, as the platform reports the same
// condition; an errno with no counterpart is a plain failure (0x80004005).
std::uint32_t hresult_from_errno(int error) noexcept;

// The result code of the system's own error number (std::system_category):
// an errno on POSIX, the system's error code folded into a result on Windows.
std::uint32_t hresult_from_system_code(int code) noexcept;

// The code that stands for an exception in flight: its own for an HResultError,
// hresult_from_errno or hresult_from_system_code of a system error, out-of-memory for bad_alloc,
// "unexpected" for anything else.
std::uint32_t code_of_current_exception() noexcept;

// Ends the process at once: one line with the code on standard error, then abort.
[[noreturn]] void fail_fast(std::uint32_t code, const char* what) noexcept;

} // namespace Zorvane
