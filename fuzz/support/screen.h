#pragma once

namespace fuzz {

/// Opens a small screen in memory, once; what is drawn there costs little. With device() below it.
void openScreen();

} // namespace fuzz
