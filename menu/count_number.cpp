#include "menu/dir_browser.h"

#include <algorithm>
#include <dirent.h>
#include <new>
#include <sys/stat.h>
#include <utility>

using FileFilter = bool (*)(const char* name, const char* path);

namespace {

/// A walk through a tree. `mAbove` holds the folders from the top to the current one, so that a link back to
/// one of them is not walked for ever.
class FileCounter {
public:
    explicit FileCounter(FileFilter filter) : mFilter(filter) {}

    int count(const std::string& folder) {
        struct stat status {};
        if (stat(folder.c_str(), &status) != 0)
            return 0;
        const std::pair<dev_t, ino_t> id(status.st_dev, status.st_ino);
        if (std::find(mAbove.begin(), mAbove.end(), id) != mAbove.end())
            return 0;
        mAbove.push_back(id);
        int sum = 0;
        for (const std::string& name : namesIn(folder))
            sum += countEntry(folder, name);
        mAbove.pop_back();
        return sum;
    }

private:
    FileFilter mFilter;
    std::vector<std::pair<dev_t, ino_t>> mAbove;

    /// All at once, so that a deep tree does not hold a file descriptor on every level.
    static std::vector<std::string> namesIn(const std::string& folder) {
        std::vector<std::string> names;
        DIR* const dir = opendir(folder.c_str());
        if (!dir)
            return names;
        while (const dirent* const entry = readdir(dir))
            names.emplace_back(entry->d_name);
        closedir(dir);
        return names;
    }

    int countEntry(const std::string& folder, const std::string& name) {
        const std::string path = folder + "/" + name;
        struct stat status {};
        if (stat(path.c_str(), &status) != 0)
            return 0;
        if (S_ISREG(status.st_mode))
            return !mFilter || mFilter(name.c_str(), path.c_str());
        if (!S_ISDIR(status.st_mode) || name[0] == '.')
            return 0;
        const int below = count(path);
        return below >= 1 ? below + 1 : below;
    }
};

} // namespace

int CountNumber(std::string directory, FileFilter filter) {
    try {
        return FileCounter(filter).count(directory);
    } catch (const std::bad_alloc&) {
        return -1;
    }
}
