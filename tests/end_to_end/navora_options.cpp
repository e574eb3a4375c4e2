#include "end_to_end/navora_run.h"

#include <gmock/gmock.h>

using ::testing::HasSubstr;

class NavoraOptionsTest : public NavoraTest {
protected:
    static void expectFailure(const Outcome& run, int exitCode, const std::string& message) {
        EXPECT_EQ(run.exitCode, exitCode);
        EXPECT_EQ(run.errors, "navora: " + message + "\n");
    }

    static void expectUsageError(const std::vector<std::string>& arguments, const std::string& message) {
        const Outcome run = runNavora(arguments);
        expectFailure(run, 2, message + "; navora --help tells more");
        EXPECT_EQ(run.output, "");
    }
};

TEST_F(NavoraOptionsTest, HelpNamesEveryOptionAndKey) {
    const Outcome run = runNavora({"--help"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output.rfind("Usage: navora [OPTIONS] [FOLDER]\n", 0), 0u) << run.output;
    for (const char* word : {"--keys", "--shot", "--rotate", "--theme", "--lang", "--device-root",
                             "--device-panel", "--version", "--help", "f1 to f12", "F1 shows", "up, down",
                             "left", "right", "start", "select", "menu", "NAVORA_HOME"})
        EXPECT_THAT(run.output, HasSubstr(word));
}

TEST_F(NavoraOptionsTest, VersionIsTheProjects) {
    const Outcome run = runNavora({"--version"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "navora " NAVORA_VERSION "\n");
    EXPECT_EQ(run.errors, "");
}

TEST_F(NavoraOptionsTest, UnknownOptionsAreUsageErrors) {
    expectUsageError({"--bogus"}, "unknown option '--bogus'");
    expectUsageError({"-x"}, "unknown option '-x'");
    expectUsageError({"--shot=a.png"}, "unknown option '--shot=a.png'");
    expectUsageError({mFolder.path(), "--bogus"}, "unknown option '--bogus'");
}

TEST_F(NavoraOptionsTest, AnOptionWithoutItsValueIsAUsageError) {
    for (const std::string option : {"--keys", "--shot", "--theme", "--lang", "--device-root"}) {
        expectUsageError({option}, option + " needs a value after it");
        expectUsageError({option, "--rotate"}, option + " needs a value after it");
    }
}

TEST_F(NavoraOptionsTest, UnknownKeyNamesAreUsageErrors) {
    expectUsageError({"--keys", "down,jump"}, "--keys: there is no key 'jump'");
    expectUsageError({"--keys", "a,,b"}, "--keys: there is no key ''");
    expectUsageError({"--keys", "a,"}, "--keys: there is no key ''");
    expectUsageError({"--keys", "Down"}, "--keys: there is no key 'Down'");
    expectUsageError({"--keys", "down,shot"}, "--keys: 'shot' needs --shot");
}

TEST_F(NavoraOptionsTest, MoreThanOneFolderIsAUsageError) {
    expectUsageError({"one", "two"}, "only one FOLDER can be shown, not also 'two'");
    expectUsageError({""}, "the name of FOLDER is empty");
}

TEST_F(NavoraOptionsTest, AFolderThatCannotBeReadIsAnError) {
    mFolder.addFile("file");
    const std::string missing = mFolder.path("missing");
    const std::string file = mFolder.path("file");
    expectFailure(runNavora({missing}), 1,
                  "cannot read the folder '" + missing + "': No such file or directory");
    expectFailure(runNavora({file}), 1, "cannot read the folder '" + file + "': Not a directory");
    for (const char* option : {"--theme", "--device-root"})
        expectFailure(runNavora({option, missing}), 1,
                      "cannot read the folder '" + missing + "': No such file or directory");
}

TEST_F(NavoraOptionsTest, ARunFolderThatCannotBeUsedIsAnError) {
    const std::string missing = mFolder.path("missing");
    expectFailure(runNavora({"--shot", mResults.path("a.png")}, {"NAVORA_HOME=" + missing}), 1,
                  "cannot read the folder '" + missing + "': No such file or directory");
    mFolder.addFolder("sample");
    const Outcome run = runNavora({"--shot", mResults.path("a.png")}, {"NAVORA_HOME=" + mFolder.path()});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, HasSubstr("navora: cannot open the font: "));
}

TEST_F(NavoraOptionsTest, WithoutADisplayItSaysSo) {
    const Outcome run = runNavora({}, {"XDG_RUNTIME_DIR=" + mResults.path()});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, HasSubstr("navora: no display ("));
    EXPECT_THAT(run.errors, HasSubstr("); --shot FILE.png needs none\n"));
}

TEST_F(NavoraOptionsTest, APictureThatCannotBeWrittenIsAnError) {
    const std::string file = mResults.path("missing/a.png");
    const Outcome run = runNavora({"--shot", file});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, HasSubstr("navora: cannot write '" + file + "': "));
}

TEST_F(NavoraOptionsTest, APictureOnTheWayThatCannotBeWrittenIsAnErrorToo) {
    mResults.addFolder("a-1.png");
    const Outcome run = runNavora({"--shot", mResults.path("a.png"), "--keys", "shot,down"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, HasSubstr("navora: cannot write '" + mResults.path("a-1.png") + "': "));
    EXPECT_EQ(readPicture(mResults.path("a.png")).width, 1280);
}

TEST_F(NavoraOptionsTest, KeysThatLeaveBeforeThePictureAreAnError) {
    const std::string file = mResults.path("a.png");
    expectFailure(runNavora({"--shot", file, "--keys", "down,menu,down"}), 1,
                  "the launcher has ended before '" + file + "' could be written");
    EXPECT_EQ(readPicture(file).width, 0);
}

TEST_F(NavoraOptionsTest, AfterTwoDashesEverythingIsAFolder) {
    mFolder.addFolder("--rotate");
    const Outcome run = runNavora({"--shot", mResults.path("a.png"), "--", "--rotate"}, {}, mFolder.path());
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    expectFailure(runNavora({"--", "--rotate"}, {}, mResults.path()), 1,
                  "cannot read the folder '" + mResults.path("--rotate") + "': No such file or directory");
}

TEST_F(NavoraOptionsTest, PathsAreMeantFromWhereItIsStarted) {
    mFolder.addFolder("games");
    mFolder.addFile("games/one");
    const Outcome run = runNavora({"--shot", "a.png", "--keys", "a", "games/"}, {}, mFolder.path());
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_EQ(readPicture(mFolder.path("a.png")).without(layout::clock), gamesShot(mFolder.path("games")));
}

TEST_F(NavoraOptionsTest, WithoutFolderTheSampleContentIsShown) {
    const Outcome run = runNavora({"--shot", mResults.path("a.png"), "--keys", "a"});
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_EQ(readPicture(mResults.path("a.png")).without(layout::clock),
              gamesShot(NAVORA_RUN_FOLDER "/sample"));
}
