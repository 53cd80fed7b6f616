#include "platform/Apartment.h"
#include "platform/HResultError.h"

#include <objbase.h>

namespace Zorvane {

void EnterSingleThreadedApartment()
{
    const HRESULT result = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (FAILED(result)) {
        throw HResultError(static_cast<std::uint32_t>(result), "CoInitializeEx");
    }
}

} // namespace Zorvane
