#pragma once

namespace bench {

/// The start of a program on the library: screen, shared skin, and a first frame with the background. Returns
/// whether all of it worked.
bool startKestro();

/// Closes all that; nothing if it is not open.
void endKestro();

} // namespace bench
