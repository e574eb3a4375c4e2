#pragma once

#include <ctime>
#include <string>
#include <vector>

namespace navora {

/// A file or a folder.
struct Entry {
    std::string name;
    std::string path;
    bool isFolder;
    long long size; ///< bytes; 0 for a folder
    time_t changed;
};

/// Looks at one file or folder. False for anything else, and for what is not there.
bool readEntry(const std::string& path, Entry& entry);

/// The row icon for a file of this kind; lives for ever.
const char* iconOf(const Entry& entry);

/// The picture of an entry: a picture file itself, for any other file NAME.png beside it; "" if there is
/// none.
std::string pictureOf(const Entry& entry);

/// "Folder", or like "PNG, 24 kB".
std::string describe(const Entry& entry);

} // namespace navora
