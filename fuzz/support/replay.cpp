// Runs a fuzz target on the files and folders of files that its arguments name. For the tests, which need no
// fuzzer to see that what once crashed does so no more.
#include "fuzz/support/device.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace fs = std::filesystem;

static void addFiles(const fs::path& path, std::vector<fs::path>& files) {
    if (!fs::is_directory(path))
        files.push_back(path);
    else
        for (const fs::directory_entry& entry : fs::directory_iterator(path))
            files.push_back(entry.path());
}

int main(int count, char** arguments) {
    std::vector<fs::path> files;
    for (int i = 1; i < count; ++i)
        addFiles(fs::absolute(arguments[i]), files);
    for (const fs::path& file : files) {
        fprintf(stderr, "%s\n", file.c_str());
        std::ifstream stream(file, std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    }
    fprintf(stderr, "%zu inputs\n", files.size());
    return files.empty();
}
