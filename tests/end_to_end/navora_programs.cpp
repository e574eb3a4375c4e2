#include "end_to_end/navora_run.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

std::string contentOf(const std::string& path) {
    std::ostringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

} // namespace

/// A device whose navora.json starts shell scripts.
class NavoraProgramsTest : public NavoraTest {
protected:
    NavoraProgramsTest() { mDevice.addFolder("mnt/UDISK/navora"); }

    void setPrograms(const std::string& programs) {
        mDevice.addFile("mnt/UDISK/navora/navora.json", "{\"programs\": {" + programs + "}}");
    }

    /// A script for files with the extension `extension`; $0 is the file, $1 the folder of results.
    void setScript(const std::string& extension, const std::string& script) {
        setPrograms("\"" + extension + R"(": ["sh", "-c", ")" + script + R"(", "%f", ")" + mResults.path() +
                    "\"]");
    }

    Picture deviceShot(const std::string& keys, std::vector<std::string> moreOptions = {}) {
        moreOptions.insert(moreOptions.end(), {"--device-root", mDevice.path()});
        return gamesShot(mFolder.path(), keys, moreOptions);
    }

    std::string result(const std::string& name) const { return contentOf(mResults.path(name)); }

    SampleFolder mDevice;
};

TEST_F(NavoraProgramsTest, AProgramGetsThePathWhateverCharactersItHas) {
    const std::string name = "a b';$(touch x) %d é.rom";
    mFolder.addFile(name);
    setScript("rom", R"(printf %%s \"$0\" > \"$1/path\"; pwd > \"$1/folder\")");
    deviceShot("a");
    EXPECT_EQ(result("path"), mFolder.path(name));
    EXPECT_EQ(result("folder"), std::filesystem::canonical(mFolder.path()).string() + "\n");
}

TEST_F(NavoraProgramsTest, TheLauncherReturnsToWhereItWas) {
    mFolder.addFolder("sub/deeper");
    for (int i = 0; i < 9; ++i)
        mFolder.addFile("sub/deeper/" + std::to_string(i) + ".rom");
    setScript("rom", R"(echo once >> \"$1/started\")");
    const std::string down = "a,down,a,down,down,down,down,down,down,down,down,up";
    const Picture before = deviceShot(down);
    EXPECT_EQ(deviceShot(down + ",a"), before);
    EXPECT_EQ(result("started"), "once\n");
    EXPECT_EQ(deviceShot(down + ",a,b"), deviceShot(down + ",b"));
    EXPECT_EQ(deviceShot(down + ",a,b,b"), deviceShot(down + ",b,b"));
    EXPECT_EQ(deviceShot(down + ",a,menu").without(layout::clock),
              shot(mFolder.path()).without(layout::clock));
    EXPECT_EQ(deviceShot(down + ",a,a,a"), before);
}

TEST_F(NavoraProgramsTest, TheLauncherReturnsInItsThemeAndLanguageAndOnItsSide) {
    mFolder.addFile("a.rom");
    mFolder.addFile("b.rom");
    setScript("rom", ":");
    for (const std::vector<std::string>& options : {std::vector<std::string>{"--lang", "ch.lang"},
                                                    {"--theme", NAVORA_RUN_FOLDER "/themes/dusk"},
                                                    {"--rotate"}})
        EXPECT_EQ(deviceShot("down,a", options), deviceShot("down", options)) << options.front();
}

TEST_F(NavoraProgramsTest, TheCursorFollowsItsFileWhereTheProgramHasMadeOthers) {
    mFolder.addFile("b.rom");
    mFolder.addFile("c.rom");
    setScript("rom", R"(touch \"${0%%/*}/a.txt\")");
    EXPECT_EQ(cursorRow(deviceShot("a")), 1);
    EXPECT_EQ(cursorRow(deviceShot("")), 0);
}

TEST_F(NavoraProgramsTest, NothingButOutputIsHandedOn) {
    mFolder.addFile("a.rom");
    setPrograms(R"("rom": "ls -l /proc/self/fd %f")");
    const Outcome run = runNavora(
        {"--shot", mResults.path("a.bmp"), "--keys", "a,a", "--device-root", mDevice.path(), mFolder.path()});
    EXPECT_THAT(run.output, HasSubstr(" 0 -> /dev/null\n"));
    EXPECT_THAT(run.output, HasSubstr(" 2 -> "));
    EXPECT_THAT(run.output, HasSubstr(" 3 -> /proc/")); // the folder that ls itself reads
    EXPECT_THAT(run.output, Not(HasSubstr(" 4 -> ")));
}

TEST_F(NavoraProgramsTest, AMissingProgramIsNamedInADialog) {
    mFolder.addFile("a.rom");
    mFolder.addFile("b.gb");
    setPrograms(R"("rom": "no-such-program %f", "gb": "/no/such/other")");
    const Picture list = deviceShot("");
    const Picture one = deviceShot("a");
    EXPECT_NE(one.part(layout::list), list.part(layout::list));
    EXPECT_NE(deviceShot("down,a").part(layout::list), one.part(layout::list));
    EXPECT_NE(deviceShot("a", {"--lang", "ch.lang"}).part(layout::list), one.part(layout::list));
    EXPECT_EQ(deviceShot("a,a"), list);
    EXPECT_EQ(deviceShot("a,b"), list);
}

TEST_F(NavoraProgramsTest, AProgramThatCannotBeRunCountsAsMissing) {
    mFolder.addFile("a.rom");
    mFolder.addFile("b.rom", "no program");
    setPrograms("\"rom\": [\"" + mFolder.path("b.rom") + "\"]");
    const Picture list = deviceShot("");
    const Picture plain = deviceShot("a");
    EXPECT_NE(plain.part(layout::list), list.part(layout::list));
    std::filesystem::permissions(mFolder.path("b.rom"), std::filesystem::perms::all);
    mFolder.addFile("b.rom", "#!/no/such/interpreter\n");
    EXPECT_EQ(deviceShot("a"), plain); // found out only when it is started
    EXPECT_EQ(deviceShot("a,a"), list);
}

TEST_F(NavoraProgramsTest, AProgramThatEndsWithAnErrorIsTold) {
    mFolder.addFile("a.rom");
    setScript("rom", "exit 7");
    const Picture list = deviceShot("");
    const Picture seven = deviceShot("a");
    EXPECT_NE(seven.part(layout::list), list.part(layout::list));
    EXPECT_EQ(deviceShot("a,a"), list);
    setScript("rom", "kill -SEGV $$");
    EXPECT_NE(deviceShot("a").part(layout::list), seven.part(layout::list));
}

TEST_F(NavoraProgramsTest, AFileWithoutAProgramOpensItsDetails) {
    mFolder.addFile("a.txt");
    mFolder.addFile("b.rom");
    setScript("rom", ":");
    EXPECT_EQ(deviceShot("a").part(layout::facts), gamesShot(mFolder.path(), "a").part(layout::facts));
    constexpr SDL_Rect hint{776, 300, 464, 60};
    EXPECT_GT(deviceShot("a").part(hint).colors(), 10);
    mFolder.addPicture("a.png", 10, 10, 0);
    EXPECT_NE(deviceShot("a").part(hint), deviceShot("down,a").part(hint)); // a picture needs no program
}

TEST_F(NavoraProgramsTest, WhereANameHasNoEndingTheHintTellsTheName) {
    mFolder.addFile("first");
    mFolder.addFile("second");
    setScript("rom", ":");
    constexpr SDL_Rect hint{776, 300, 464, 100};
    EXPECT_NE(deviceShot("a").part(hint), deviceShot("down,a").part(hint));
}

TEST_F(NavoraProgramsTest, AMalformedFileIsToldAndTheShippedOneIsUsed) {
    mFolder.addFile("a.nes");
    const std::string file = mDevice.path("mnt/UDISK/navora/navora.json");
    mDevice.addFile("mnt/UDISK/navora/navora.json", "{\n  \"programs\": {\"nes\": }\n}");
    const std::vector<std::string> arguments{"--shot",        mResults.path("a.bmp"), "--keys",      "a,a",
                                             "--device-root", mDevice.path(),         mFolder.path()};
    const Outcome run = runNavora(arguments, {"PATH=/no/such/folder"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "navora: " + file + ": line 2, column 23: this is no JSON\n");
    SampleFolder otherDevice;
    otherDevice.addFolder("mnt/UDISK");
    const std::vector<std::string> shipped{"--shot",        mResults.path("b.bmp"), "--keys",      "a,a",
                                           "--device-root", otherDevice.path(),     mFolder.path()};
    EXPECT_EQ(runNavora(shipped, {"PATH=/no/such/folder"}).errors, "");
    EXPECT_EQ(readPicture(mResults.path("a.bmp")), readPicture(mResults.path("b.bmp")));
}

TEST_F(NavoraProgramsTest, TheUsersOwnFoldersAreLookedInToo) {
    SampleFolder home;
    mFolder.addFile("a.rom");
    const auto run = [&](const std::string& mark, const std::string& folder) {
        const std::string programs = R"({"programs": {"rom": ["sh", "-c", "echo )" + mark +
                                     R"( > $1", "%f", ")" + mResults.path("mark") + "\"]}}";
        home.addFolder(folder);
        home.addFile(folder + "/navora.json", programs);
        Process({NAVORA, "--shot", mResults.path("a.bmp"), "--keys", "a,a", mFolder.path()},
                {"KESTRO_DEVICE_ROOT=", "XDG_CONFIG_HOME=" + home.path("config"),
                 "XDG_DATA_HOME=" + home.path("data")},
                "")
            .wait();
        return result("mark");
    };
    EXPECT_EQ(run("config", "config/navora"), "config\n");
    EXPECT_EQ(run("data", "data/navora/device/mnt/UDISK/navora"), "data\n");
}

/// The launcher is asked to end while a program runs.
class NavoraProgramsEndTest : public NavoraProgramsTest {
protected:
    /// Starts the launcher and waits for the script, which writes its number to "id".
    std::unique_ptr<Navora> startScript(const std::string& script) {
        mFolder.addFile("a.rom");
        setScript("rom", script);
        auto navora = std::make_unique<Navora>(
            std::vector<std::string>{"--keys", "a,a", "--device-root", mDevice.path(), mFolder.path()},
            std::vector<std::string>{"SDL_VIDEODRIVER=dummy"});
        EXPECT_TRUE(eventually([&] { return !result("id").empty(); })) << navora->errors();
        return navora;
    }

    bool scriptRuns() const { return kill(std::stoi(result("id")), 0) == 0; }
};

TEST_F(NavoraProgramsEndTest, BothEndAtOnce) {
    const auto navora =
        startScript(R"(trap 'echo told > $1/told; exit 0' TERM; echo $$ > $1/id; sleep 60 & wait)");
    EXPECT_TRUE(scriptRuns());
    navora->signal(SIGTERM);
    EXPECT_EQ(navora->wait(), 0) << navora->errors();
    EXPECT_FALSE(scriptRuns());
    EXPECT_EQ(result("told"), "told\n");
    EXPECT_THAT(navora->output(), EndsWith("sh has ended with 0\n"));
}

TEST_F(NavoraProgramsEndTest, AProgramThatDoesNotListenIsEnded) {
    const auto navora = startScript(R"(trap '' TERM; echo $$ > $1/id; while :; do sleep 1; done)");
    navora->signal(SIGTERM);
    EXPECT_EQ(navora->wait(), 0) << navora->errors();
    EXPECT_FALSE(scriptRuns());
    EXPECT_THAT(navora->output(), HasSubstr("sh has ended with 137\n"));
}
