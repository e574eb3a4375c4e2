#include "bench/support/scratch_folder.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace bench {

ScratchFolder::ScratchFolder(const std::vector<std::string>& names) : mPath("kestro-bench-XXXXXX") {
    if (!mkdtemp(mPath.data())) {
        perror("a folder for the benchmark");
        exit(1);
    }
    mPath = std::filesystem::absolute(mPath).string();
    for (const std::string& name : names)
        std::ofstream(mPath + "/" + name);
}

ScratchFolder::~ScratchFolder() {
    std::error_code error;
    std::filesystem::remove_all(mPath, error);
}

} // namespace bench
