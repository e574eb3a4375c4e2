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

/// A size like "24 kB", with two digits at least from 1000 bytes on. The units' symbols are the same in every
/// language.
std::string sizeText(long long bytes);

/// Like "PNG, 24 kB", or "24 kB" for a file whose name has no ending.
std::string describeFile(const Entry& file);

} // namespace navora
