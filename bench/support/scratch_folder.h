#pragma once

#include <string>
#include <vector>

namespace bench {

/// A folder for one benchmark, gone with this object. It lies in the working folder, so that it is on a disk
/// and not in memory.
class ScratchFolder {
public:
    /// With an empty file of each of these names.
    explicit ScratchFolder(const std::vector<std::string>& names);
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::string& path() const { return mPath; }

private:
    std::string mPath;
};

} // namespace bench
