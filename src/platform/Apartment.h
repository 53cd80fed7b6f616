#pragma once

namespace Zorvane {

// Makes the calling thread, the one that will run the user interface, a
// single-threaded apartment before the application object exists, where the
// platform has apartments; a failure raises HResultError and is not caught.
void EnterSingleThreadedApartment();

} // namespace Zorvane
