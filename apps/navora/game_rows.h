#pragma once

#include "navora/page.h"

#include <string>

namespace navora {

/// Lets the rows of files do what openGame does, and open the pop-up menu. `shell` outlives the window
/// loop.
void startGameRows(Shell& shell);

} // namespace navora
