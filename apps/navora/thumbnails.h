#pragma once

#include "menu/text_menu_drawer.h"

namespace navora {

/// A loader for a list that decodes and scales pictures on a thread of its own, the one asked for last first,
/// so that no picture holds the cursor up; a few at most wait, older ones are given up until the list asks
/// again. The skin's pictures, which have relative paths, are loaded at once. The thread ends with the last
/// copy of the loader; main thread.
ImageLoader loadInBackground();

/// Whether a picture is on its way to a list, or was since the last call. Main thread.
bool picturesOnTheirWay();

} // namespace navora
