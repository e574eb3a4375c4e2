#pragma once

#include "navora/page.h"

namespace navora {

/// Lets the rows that file_handler makes open pages. `shell` outlives the window loop.
void startGameRows(Shell& shell);

} // namespace navora
