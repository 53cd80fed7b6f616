#include "HResultError.h"

#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <system_error>

namespace Zorvane {

HResultError::HResultError(std::uint32_t code, const std::string& what)
    : std::runtime_error(what.empty() ? fmt::format("0x{:08X}", code) : what), m_code(code)
{}

std::uint32_t code_of_current_exception() noexcept
{
    try {
        throw;
    } catch (const HResultError& error) {
        return error.code();
    } catch (const std::system_error& error) {
        // As the platform folds a system error into a result code.
        return 0x80070000u | (static_cast<std::uint32_t>(error.code().value()) & 0xFFFFu);
    } catch (const std::bad_alloc&) {
        return HResult::OutOfMemory;
    } catch (...) {
        return HResult::Unexpected;
    }
}

void fail_fast(std::uint32_t code, const char* what) noexcept
{
    std::fprintf(stderr, "Zorvane: fail-fast 0x%08X: %s\n", code, what != nullptr ? what : "");
    std::fflush(stderr);
    std::abort();
}

} // namespace Zorvane
