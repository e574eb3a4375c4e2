#include "support/kestro_test.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

namespace fs = std::filesystem;

static KestroTest* sRunning = nullptr;

/// Sends failures to standard error, since the test has taken standard output for itself, and keeps them
/// out of the log there.
class KestroTest::FailurePrinter : public testing::EmptyTestEventListener {
    void OnTestPartResult(const testing::TestPartResult& result) override {
        if (!sRunning || !result.failed())
            return;
        fprintf(stderr, "%s:%d: Failure\n%s\n", result.file_name(), result.line_number(), result.message());
        const std::string log = sRunning->mLog->take();
        sRunning->mTaken += log.substr(0, log.find(std::string(result.file_name()) + ":"));
    }
};

void KestroTest::printFailuresBesideTheLog() {
    static bool done = false;
    if (!done)
        testing::UnitTest::GetInstance()->listeners().Append(new FailurePrinter);
    done = true;
}

void KestroTest::SetUp() {
    printFailuresBesideTheLog();
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
    sRunning = this;
}

void KestroTest::TearDown() {
    const std::string unread = takeLog();
    sRunning = nullptr;
    mLog.reset();
    EXPECT_EQ(unread, "") << "log lines that the test did not expect";
    unsetenv("KESTRO_DEVICE_ROOT");
    fs::current_path("/");
    fs::remove_all(mFolder);
}

std::string KestroTest::takeLog() {
    return std::exchange(mTaken, {}) + mLog->take();
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
