#include "platform/Apartment.h"

namespace Zorvane {

// No component model with apartments here: the toolkit's objects belong to
// the thread that made them, which is all the program relies on.
void EnterSingleThreadedApartment() {}

} // namespace Zorvane
