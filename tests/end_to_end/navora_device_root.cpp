#include "end_to_end/navora_run.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;
using ::testing::HasSubstr;

/// Without a device, and without a folder that was named in its place. The machine has no /mnt/UDISK.
class NavoraDeviceRootTest : public NavoraTest {
protected:
    static constexpr const char* sSettings = "navora/device/mnt/UDISK/system.json";

    Outcome run(const std::string& keys, std::vector<std::string> environment) {
        environment.emplace_back("KESTRO_DEVICE_ROOT=");
        Process navora({NAVORA, "--shot", mResults.path("page.bmp"), "--keys", keys, mFolder.path()},
                       environment, "");
        const int exitCode = navora.wait();
        return {exitCode, navora.output(), navora.errors()};
    }

    Picture page() const { return readPicture(mResults.path("page.bmp")).without(layout::clock); }

    static std::string contentOf(const std::string& path) {
        std::ostringstream content;
        content << std::ifstream(path).rdbuf();
        return content.str();
    }

    SampleFolder mHome;
};

TEST_F(NavoraDeviceRootTest, SettingsAndListsAreKeptAmongTheUsersData) {
    mFolder.addFile("a.txt");
    const std::vector<std::string> environment{"XDG_DATA_HOME=" + mHome.path("data"), "HOME=" + mHome.path()};
    EXPECT_EQ(run("up,a,down,down,a,right,b,b,down,a,x,down,a", environment).errors, "");
    const std::string settings = contentOf(mHome.path(std::string("data/") + sSettings));
    EXPECT_THAT(settings, HasSubstr("\"brightness\":\t7"));
    EXPECT_THAT(contentOf(mHome.path("data/navora/device/mnt/UDISK/navora/games.json")),
                HasSubstr("\"" + mFolder.path("a.txt") + "\""));
    EXPECT_EQ(run("up,a,down,down,a", environment).errors, "");
    SampleFolder device;
    device.addFolder("mnt/UDISK");
    device.addFile("mnt/UDISK/system.json", settings);
    EXPECT_EQ(page(), shot(mFolder.path(), "up,a,down,down,a", {"--device-root", device.path()}));
}

TEST_F(NavoraDeviceRootTest, TheHomeFolderHasThemWhereThereIsNoOtherPlace) {
    EXPECT_EQ(run("up,a,b", {"XDG_DATA_HOME", "HOME=" + mHome.path()}).errors, "");
    EXPECT_TRUE(fs::exists(mHome.path(std::string(".local/share/") + sSettings)));
}

TEST_F(NavoraDeviceRootTest, AFolderThatCannotBeMadeIsToldAndTheLauncherRuns) {
    mHome.addFile("data");
    const Outcome outcome = run("up,a,b,down,a", {"XDG_DATA_HOME=" + mHome.path("data")});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.errors, "navora: cannot make the folder '" +
                                  mHome.path("data/navora/device/mnt/UDISK") +
                                  "': Not a directory; settings are not kept\n");
}

TEST_F(NavoraDeviceRootTest, WithoutAHomeFolderTheLauncherRunsToo) {
    const Outcome outcome = run("up,a,b,down,a", {"XDG_DATA_HOME", "HOME"});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.errors, "");
}
