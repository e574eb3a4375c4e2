#include "end_to_end/sample_folder.h"
#include "navora/state_folder.h"
#include "support/durability_log.h"

#include <gmock/gmock.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/resource.h>

namespace fs = std::filesystem;
using ::testing::ElementsAre;

class WriteDurablyTest : public ::testing::Test {
protected:
    static std::string contentOf(const std::string& path) {
        std::ostringstream content;
        content << std::ifstream(path).rdbuf();
        return content.str();
    }

    SampleFolder mFolder;
    const std::string mFile = mFolder.path("state/a.json");
};

TEST_F(WriteDurablyTest, TheOldFileIsThereUntilTheNewOneIsSafe) {
    ASSERT_TRUE(navora::writeDurably(mFile, "old"));
    std::vector<std::string> found;
    DurabilityLog log([&](const std::string&) { found.push_back(contentOf(mFile)); });
    ASSERT_TRUE(navora::writeDurably(mFile, "new"));
    EXPECT_THAT(log.take(), ElementsAre("fsync a.json.new", "fsync state"));
    EXPECT_THAT(found, ElementsAre("old", "new"));
    EXPECT_EQ(contentOf(mFile), "new");
    EXPECT_FALSE(fs::exists(mFile + ".new"));
}

TEST_F(WriteDurablyTest, AMediumThatIsPulledOutLeavesTheOldFile) {
    ASSERT_TRUE(navora::writeDurably(mFile, "old"));
    DurabilityLog log;
    log.failSync();
    EXPECT_FALSE(navora::writeDurably(mFile, "new"));
    EXPECT_EQ(errno, EIO);
    EXPECT_EQ(contentOf(mFile), "old");
    EXPECT_FALSE(fs::exists(mFile + ".new"));
}

TEST_F(WriteDurablyTest, AFullDiskLeavesTheOldFileAndNothingBeside) {
    ASSERT_TRUE(navora::writeDurably(mFile, "old"));
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = signal(SIGXFSZ, SIG_IGN);
    const rlimit full{1000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
    const bool written = navora::writeDurably(mFile, std::string(5000, 'x'));
    const int reason = errno;
    setrlimit(RLIMIT_FSIZE, &before);
    signal(SIGXFSZ, handler);
    EXPECT_FALSE(written);
    EXPECT_EQ(reason, EFBIG);
    EXPECT_EQ(contentOf(mFile), "old");
    EXPECT_FALSE(fs::exists(mFile + ".new"));
}
