#pragma once

#include <ctime>
#include <string>

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

/// A size like "24 kB", with two digits at least from 1000 bytes on.
std::string sizeText(long long bytes);

/// "Folder", or like "PNG, 24 kB".
std::string describe(const Entry& entry);

} // namespace navora
