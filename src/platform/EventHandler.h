#pragma once

#include "platform/HResultError.h"

#include <exception>
#include <utility>

namespace Zorvane {

// The boundary of an event handler: a failure leaves the handler where it
// happened and goes no further, as the framework does with a handler's error.
template <class Handler>
void RunHandler(Handler&& handler) noexcept
{
    try {
        std::forward<Handler>(handler)();
    } catch (const std::exception&) {
        // The step is abandoned; there is no log and no message.
    }
}

} // namespace Zorvane
