#pragma once

namespace kestro {

/// Stores the name of a time zone as it is, cut to 256 bytes.
void storeTimeZone(const char* name);

} // namespace kestro
