#include "support/kestro_test.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

void KestroTest::SetUp() {
    char name[] = "/tmp/kestro-test-XXXXXX";
    ASSERT_NE(mkdtemp(name), nullptr);
    mFolder = name;
    fs::create_directories(mFolder + "/device/tmp");
    fs::current_path(mFolder);
    setenv("KESTRO_DEVICE_ROOT", (mFolder + "/device").c_str(), 1);
    gTestHost = {};
    gThemePath = nullptr;
    gKeyChunk = nullptr;
    mLog.emplace();
}

void KestroTest::TearDown() {
    const std::string unread = takeLog();
    mLog.reset();
    EXPECT_EQ(unread, "") << "log lines that the test did not expect";
    unsetenv("KESTRO_DEVICE_ROOT");
    fs::current_path("/");
    fs::remove_all(mFolder);
}

void KestroTest::writeFile(const std::string& path, const std::string& content) {
    const fs::path folder = fs::path(path).parent_path();
    if (!folder.empty())
        fs::create_directories(folder);
    std::ofstream(path, std::ios::binary) << content;
}

std::string KestroTest::readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}
