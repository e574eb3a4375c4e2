#pragma once

namespace bench {

/// The start of a bare SDL program: SDL, window, renderer, the files of the shared skin in its order, and a
/// first frame with the background. Returns whether all of it worked.
bool startBare();

/// Closes all that; nothing if it is not open.
void endBare();

} // namespace bench
