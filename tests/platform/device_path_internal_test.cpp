#include "platform/device_path.h"
#include "support/kestro_test.h"

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

using kestro::devicePath;

class DevicePathTest : public KestroTest {
protected:
    static std::string rooted(const char* root, const char* path) {
        if (root)
            setenv("KESTRO_DEVICE_ROOT", root, 1);
        else
            unsetenv("KESTRO_DEVICE_ROOT");
        return std::string(devicePath(path));
    }
};

TEST_F(DevicePathTest, WithoutARootThePathIsAsItIs) {
    EXPECT_EQ(rooted(nullptr, "/tmp/osdd_show_up"), "/tmp/osdd_show_up");
    unsetenv("KESTRO_DEVICE_ROOT");
    const char* const path = "/proc/1/comm";
    EXPECT_EQ(static_cast<const char*>(devicePath(path)), path) << "the very same text";
}

TEST_F(DevicePathTest, EmptyRootIsNone) {
    EXPECT_EQ(rooted("", "/tmp/x"), "/tmp/x");
}

TEST_F(DevicePathTest, RootIsPutInFront) {
    EXPECT_EQ(rooted("/some where/device", "/tmp/x"), "/some where/device/tmp/x");
    EXPECT_EQ(rooted("relative", "/tmp/x"), "relative/tmp/x");
}

TEST_F(DevicePathTest, RootIsReadAtEachCall) {
    EXPECT_EQ(rooted("/a", "/x"), "/a/x");
    EXPECT_EQ(rooted("/b", "/x"), "/b/x");
    EXPECT_EQ(rooted(nullptr, "/x"), "/x");
}

TEST_F(DevicePathTest, EarlierResultOutlivesALaterCall) {
    setenv("KESTRO_DEVICE_ROOT", "/a", 1);
    const kestro::DevicePath first("/x");
    setenv("KESTRO_DEVICE_ROOT", "/b", 1);
    const kestro::DevicePath second("/x");
    EXPECT_STREQ(first, "/a/x");
    EXPECT_STREQ(second, "/b/x");
}

TEST_F(DevicePathTest, LongestPathStillFits) {
    const std::string root = "/" + std::string(PATH_MAX - 1 - 1 - 2, 'r');
    EXPECT_EQ(rooted(root.c_str(), "/x"), root + "/x");
    EXPECT_EQ((root + "/x").size(), static_cast<size_t>(PATH_MAX - 1));
}

TEST_F(DevicePathTest, LongerPathBecomesOneThatOpensNothing) {
    const std::string root = "/" + std::string(PATH_MAX - 1 - 2, 'r');
    EXPECT_EQ(rooted(root.c_str(), "/x"), "");
    EXPECT_EQ(fopen(devicePath("/x"), "r"), nullptr);
}

class RunCommandTest : public KestroTest {
protected:
    /// Puts a program of this device that writes down what it was called with, in the working folder.
    void addProgram(const std::string& name, const std::string& more = "") {
        const std::string path = onDevice("/bin/" + name);
        writeFile(path, "#!/bin/sh\nprintf '%s:" + name + "\\n' \"$*\" >> " + folder() + "/called\n" + more);
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    }

    static int exitCode(int status) { return WIFEXITED(status) ? WEXITSTATUS(status) : -1; }
};

TEST_F(RunCommandTest, ReturnsWhatTheSystemReturns) {
    EXPECT_EQ(kestro::runCommand("true"), 0);
    EXPECT_EQ(exitCode(kestro::runCommand("exit 7")), 7);
    EXPECT_EQ(exitCode(kestro::runCommand("no-such-program-here 2>/dev/null")), 127);
}

TEST_F(RunCommandTest, ProgramsOfTheDeviceAreFoundFirst) {
    addProgram("wpa_cli", "exit 5\n");
    addProgram("true");
    EXPECT_EQ(exitCode(kestro::runCommand("wpa_cli -i wlan0 status")), 5);
    EXPECT_EQ(kestro::runCommand("env true"), 0);
    EXPECT_EQ(readFile("called"), "-i wlan0 status:wpa_cli\n:true\n");
}

TEST_F(RunCommandTest, ProgramsOfTheSystemAreFoundNext) {
    addProgram("wpa_cli");
    EXPECT_EQ(kestro::runCommand("printf done > out"), 0);
    EXPECT_EQ(kestro::runCommand("touch touched"), 0);
    EXPECT_EQ(readFile("out"), "done");
    EXPECT_TRUE(std::filesystem::exists("touched"));
}

TEST_F(RunCommandTest, WithoutARootOnlyTheSystemCounts) {
    addProgram("true", "exit 5\n");
    unsetenv("KESTRO_DEVICE_ROOT");
    EXPECT_EQ(kestro::runCommand("env true"), 0);
    EXPECT_EQ(readFile("called"), "");
}

TEST_F(RunCommandTest, RootMayHoldSpacesAndQuotes) {
    const std::string root = folder() + "/it's a \"device\" $HOME `x`; exit 9";
    setenv("KESTRO_DEVICE_ROOT", root.c_str(), 1);
    writeFile(root + "/bin/stub", "#!/bin/sh\nexit 5\n");
    std::filesystem::permissions(root + "/bin/stub", std::filesystem::perms::owner_all);
    EXPECT_EQ(exitCode(kestro::runCommand("stub")), 5);
}

TEST_F(RunCommandTest, EveryPartOfACommandSeesThePrograms) {
    addProgram("wpa_cli", "echo wpa_state=COMPLETED\n");
    EXPECT_EQ(kestro::runCommand("wpa_cli status > status.txt && wpa_cli scan | grep -q wpa"), 0);
    EXPECT_EQ(readFile("status.txt"), "wpa_state=COMPLETED\n");
    EXPECT_EQ(readFile("called"), "status:wpa_cli\nscan:wpa_cli\n");
}

TEST_F(RunCommandTest, EnvironmentIsLeftAsItWas) {
    addProgram("stub");
    const std::string path = getenv("PATH");
    kestro::runCommand("stub");
    EXPECT_EQ(getenv("PATH"), path);
}

class ShellQuotedTest : public KestroTest {
protected:
    /// What a shell makes of the quoted text.
    static std::string unquoted(const std::string& text) {
        kestro::runCommand(("printf %s " + kestro::shellQuoted(text) + " > word").c_str());
        return readFile("word");
    }
};

TEST_F(ShellQuotedTest, TextStandsInQuotesWhereItNeedsThem) {
    EXPECT_EQ(kestro::shellQuoted("/tmp/a b"), "'/tmp/a b'");
    EXPECT_EQ(kestro::shellQuoted(""), "''");
    EXPECT_EQ(kestro::shellQuoted("/tmp/stay_awake"), "/tmp/stay_awake");
}

TEST_F(ShellQuotedTest, AnyTextIsOneWordOfTheShell) {
    for (const char* text : {"", "a b", "it's", "'", "''", "\"", "$HOME", "`ls`", "$(ls)", "a\\b", "*",
                             "a\nb", "; rm x", "#", "~", "a'b'c", "\t", "&|<>", "日本語"})
        EXPECT_EQ(unquoted(text), text);
}

TEST_F(ShellQuotedTest, RootedPathReachesThePlaceMeant) {
    const std::string root = folder() + "/a 'device'";
    std::filesystem::create_directories(root + "/tmp");
    setenv("KESTRO_DEVICE_ROOT", root.c_str(), 1);
    const std::string path(devicePath("/tmp/stay_awake"));
    EXPECT_EQ(kestro::runCommand(("touch " + kestro::shellQuoted(path)).c_str()), 0);
    EXPECT_TRUE(std::filesystem::exists(root + "/tmp/stay_awake"));
}
