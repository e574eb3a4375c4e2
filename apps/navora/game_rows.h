#pragma once

#include "navora/page.h"

namespace navora {

/// Lets the rows of files open their details. `shell` outlives the window loop.
void startGameRows(Shell& shell);

} // namespace navora
