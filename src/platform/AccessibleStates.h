#pragma once

namespace Zorvane {

// Qt Quick 6.4 exposes a disabled control to assistive tools as enabled and
// sensitive. From the first call on, the program's items are served by an
// accessible interface that says they are disabled when they are. Must be
// called before the first markup loads, so that it comes before Qt Quick's own.
void InstallAccessibleStates();

} // namespace Zorvane
