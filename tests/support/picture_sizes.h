#pragma once

#include "gfx/picture_size.h"

#include <string>

/// The size that these bytes claim to have as a picture, by the library's own reading of their header; for
/// internal tests. `type` is the extension of the file's name, or null.
kestro::PictureSize claimOf(const std::string& bytes, const char* type = nullptr);

/// The same as "WxH".
std::string claimedSize(const std::string& bytes, const char* type = nullptr);

/// The size that SDL_image makes of these bytes, as "WxH"; its complaint if it makes nothing.
std::string decodedSize(const std::string& bytes, const char* type = nullptr);
