#pragma once

#include <string>

namespace fuzz {

/// Saves a picture of this many pixels a side as a PNG file.
void addPicture(const std::string& path, int side);

/// Makes the font and the pictures of a skin in the current folder, once.
void prepareSkinFiles();

} // namespace fuzz
