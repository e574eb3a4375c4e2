#pragma once

namespace navora {

/// Says that what is shown now is not yet all, such as results that are still being looked for, so that no
/// picture is written of it. Main thread.
void noteUnsettled();

/// Whether that was said since the last call. Main thread.
bool wasUnsettled();

} // namespace navora
