#include "support/dir_test.h"

#include <filesystem>

namespace fs = std::filesystem;

std::function<TextMenuItem*(const char*, const char*, int)> DirTest::onEntry;
std::vector<FactoryCall> DirTest::calls;

void DirTest::SetUp() {
    KestroTest::SetUp();
    calls.clear();
    onEntry = nullptr;
}

void DirTest::TearDown() {
    browser.freeCache();
    onEntry = nullptr;
    KestroTest::TearDown();
}

TextMenuItem* DirTest::makeRow(const char* name, const char* path, int kind) {
    calls.push_back({name, path, kind});
    return onEntry ? onEntry(name, path, kind) : plainRow(name);
}

void DirTest::make(const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
        if (path.back() == '/')
            fs::create_directories(path);
        else
            writeFile(path, "");
}

std::vector<std::string> DirTest::labels(const std::vector<void*>* items) {
    std::vector<std::string> all;
    for (void* row : *items)
        all.push_back(static_cast<TextMenuItem*>(row)->getLabel());
    return all;
}

int DirTest::openDescriptors() {
    int count = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator("/proc/self/fd"))
        ++count;
    return count;
}
