#include "services/process_list.h"
#include "support/opened_paths.h"
#include "support/wifi_test.h"

#include <cstdlib>
#include <filesystem>
#include <random>

namespace fs = std::filesystem;
using namespace std::string_literals;

namespace {

class ProcessListTest : public WifiTest {
protected:
    /// Looks for a name when this is the only process.
    int find(const std::string& name, const std::string& command) {
        addProcess("4711", command);
        return check_process_exist(name.c_str(), false);
    }
};

constexpr char name[] = "wpa_supplicant";

/// The number of the process by another reading of the same rules, with the whole of its command at hand.
int plainlyFound(const std::string& wanted, const std::string& command) {
    const std::string argument = command.substr(0, 511).c_str();
    const size_t at = argument.find(wanted);
    if (at == argument.npos)
        return -1;
    const std::string after = argument.substr(at + wanted.size(), 1);
    return after.empty() || after == " " ? 4711 : -1;
}

} // namespace

TEST_F(ProcessListTest, NameAtTheEndOfThePathIsFound) {
    EXPECT_EQ(find(name, "/usr/sbin/wpa_supplicant\0-B\0-i\0wlan0\0"s), 4711);
    EXPECT_EQ(find(name, "wpa_supplicant"), 4711);
}

TEST_F(ProcessListTest, NameBeforeASpaceIsFound) {
    EXPECT_EQ(find(name, "wpa_supplicant -B -i wlan0"), 4711);
    EXPECT_EQ(find(name, "/usr/sbin/wpa_supplicant "), 4711);
}

TEST_F(ProcessListTest, LongerNameIsAnother) {
    EXPECT_EQ(find(name, "wpa_supplicant2"), -1);
    EXPECT_EQ(find(name, "/usr/sbin/wpa_supplicant/x"), -1);
    EXPECT_EQ(find(name, "wpa_supplicant\t-B"), -1);
    EXPECT_EQ(find(name, "wpa_supplicant\xc3\xa9"), -1);
}

TEST_F(ProcessListTest, NameMayEndAnotherWord) {
    EXPECT_EQ(find(name, "my_wpa_supplicant"), 4711);
}

TEST_F(ProcessListTest, ShorterOrOtherTextIsAnother) {
    EXPECT_EQ(find(name, "wpa_supplican"), -1);
    EXPECT_EQ(find(name, ""), -1);
    EXPECT_EQ(find(name, "/usr/sbin/hostapd"), -1);
    EXPECT_EQ(find(name, "WPA_SUPPLICANT"), -1);
}

TEST_F(ProcessListTest, OnlyTheFirstOccurrenceCounts) {
    EXPECT_EQ(find(name, "/opt/wpa_supplicant2/wpa_supplicant"), -1);
    EXPECT_EQ(find(name, "/opt/wpa_supplicant/wpa_supplicant"), -1);
    EXPECT_EQ(find(name, "wpa_supplicant wpa_supplicant2"), 4711);
}

TEST_F(ProcessListTest, OnlyTheFirstArgumentCounts) {
    EXPECT_EQ(find(name, "/bin/sh\0/usr/sbin/wpa_supplicant\0"s), -1);
    EXPECT_EQ(find(name, "\0wpa_supplicant\0"s), -1);
}

TEST_F(ProcessListTest, Only511BytesOfTheCommandCount) {
    const std::string fill(511 - strlen(name), '/');
    EXPECT_EQ(find(name, fill + name + "2"), 4711) << "the 2 is not seen";
    EXPECT_EQ(find(name, fill + "/" + name), -1) << "the last letter is not seen";
    EXPECT_EQ(find(name, std::string(1 << 20, 'a') + name), -1);
}

TEST_F(ProcessListTest, WhatIsFoundInRandomCommandsIsRight) {
    std::mt19937 random(11);
    int found = 0;
    for (int round = 0; round < 1500; ++round) {
        static const std::string pieces[] = {"ab", "a", "b", " ", "/", "\0"s, "\xFF", "abab", "ba "};
        const auto text = [&random](size_t count) {
            std::string made;
            for (; count > 0; --count)
                made += pieces[random() % std::size(pieces)];
            return made;
        };
        const std::string fill(random() % 4 == 0 ? 480 + random() % 40 : 0, 'c');
        const std::string command = fill + text(random() % 14);
        const std::string wanted = text(random() % 4).c_str();
        const int process = find(wanted, command);
        ASSERT_EQ(process, plainlyFound(wanted, command)) << testing::PrintToString(command) << " " << wanted;
        found += process > 0 ? 1 : 0;
    }
    EXPECT_GT(found, 100);
}

TEST_F(ProcessListTest, OnlyEntriesThatBeginWithADigitAreProcesses) {
    addProcess("self", name);
    addProcess("-5", name);
    addProcess("a7", name);
    writeFile(onDevice("/proc/uptime"), "1.0");
    EXPECT_EQ(check_process_exist(name, false), -1);
    addProcess("0815x", name);
    EXPECT_EQ(check_process_exist(name, false), 815) << "the entry's number";
}

TEST_F(ProcessListTest, UnreadableCommandIsEmpty) {
    fs::create_directories(onDevice("/proc/12"));
    fs::create_directories(onDevice("/proc/13/cmdline"));
    EXPECT_EQ(check_process_exist(name, false), -1);
    fs::remove_all(onDevice("/proc/13"));
    EXPECT_EQ(check_process_exist("", false), 12) << "an empty text holds the empty name";
}

TEST_F(ProcessListTest, UnreadableCommandIsNotTheOneBefore) {
    addProcess("30", "hostapd2");
    for (int id = 31; id < 60; ++id)
        fs::create_directories(onDevice("/proc/" + std::to_string(id)));
    EXPECT_EQ(check_process_exist("hostapd", true), -1);
    EXPECT_EQ(takeLog(), "[check: hostapd] p=hostapd2 in hostapd2, pnlen=7, cmp 0, p[7]=50\n"
                         "[check: hostapd] fail\n");
}

TEST_F(ProcessListTest, OneOfManyIsFound) {
    for (int id = 140; id < 190; ++id)
        addProcess(std::to_string(id), "/sbin/daemon" + std::to_string(id));
    addProcess("150", "/usr/sbin/wpa_supplicant\0-B\0"s);
    EXPECT_EQ(check_process_exist(name, false), 150);
    EXPECT_EQ(check_process_exist("daemon180", false), 180);
    EXPECT_EQ(check_process_exist("daemon250", false), -1);
}

TEST_F(ProcessListTest, ListThatCannotBeReadIsLogged) {
    fs::remove_all(onDevice("/proc"));
    EXPECT_EQ(check_process_exist(name, false), -1);
    EXPECT_EQ(takeLog(), "can not open /proc\n");
    EXPECT_EQ(check_process_exist(name, true), -1);
    EXPECT_EQ(takeLog(), "can not open /proc\n") << "and nothing else";
}

TEST_F(ProcessListTest, VerboseSearchLogsTheMatchAndTheProcess) {
    addProcess("4711", "/usr/sbin/wpa_supplicant -B");
    EXPECT_EQ(check_process_exist(name, true), 4711);
    EXPECT_EQ(takeLog(), "[check: wpa_supplicant] p=wpa_supplicant -B in /usr/sbin/wpa_supplicant -B, "
                         "pnlen=14, cmp 0, p[14]=32\n"
                         "[check: wpa_supplicant] pid 4711\n");
    addProcess("4711", "/usr/sbin/wpa_supplicant\0-B"s);
    EXPECT_EQ(check_process_exist(name, true), 4711);
    EXPECT_EQ(takeLog(), "[check: wpa_supplicant] p=wpa_supplicant in /usr/sbin/wpa_supplicant, "
                         "pnlen=14, cmp 0, p[14]=0\n"
                         "[check: wpa_supplicant] pid 4711\n");
}

TEST_F(ProcessListTest, VerboseSearchLogsWhatWasTurnedDownAndTheFailure) {
    addProcess("4711", "hostapd2");
    EXPECT_EQ(check_process_exist("hostapd", true), -1);
    EXPECT_EQ(takeLog(), "[check: hostapd] p=hostapd2 in hostapd2, pnlen=7, cmp 0, p[7]=50\n"
                         "[check: hostapd] fail\n");
    EXPECT_EQ(check_process_exist(name, true), -1);
    EXPECT_EQ(takeLog(), "[check: wpa_supplicant] fail\n") << "and no match";
}

TEST_F(ProcessListTest, CodeOfTheCharacterAfterIsThatOfItsByte) {
    addProcess("4711", "hostapd\xff");
    EXPECT_EQ(check_process_exist("hostapd", true), -1);
    EXPECT_THAT(takeLog(), testing::HasSubstr("p[7]=255\n"));
}

TEST_F(ProcessListTest, NullIsTheEmptyName) {
    EXPECT_EQ(check_process_exist(nullptr, true), -1);
    EXPECT_EQ(takeLog(), "[check: ] fail\n");
    addProcess("3", " x");
    EXPECT_EQ(check_process_exist(nullptr, false), 3);
}

TEST_F(ProcessListTest, EverythingIsClosedAgain) {
    const auto openFiles = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
    addProcess("1", "init");
    addProcess("4711", name);
    const auto before = openFiles();
    for (int i = 0; i < 10; ++i) {
        check_process_exist(name, false);
        check_process_exist("nobody", false);
        getWifiMode();
    }
    EXPECT_EQ(openFiles(), before);
}

TEST_F(ProcessListTest, WithoutARootTheProcessesAreTheSystems) {
    unsetenv("KESTRO_DEVICE_ROOT");
    // From inside its folder: valgrind makes up another command for who asks by the whole path.
    const fs::path workingFolder = fs::current_path();
    fs::current_path("/proc/self");
    const std::string own = readFile("cmdline").c_str();
    fs::current_path(workingFolder);
    OpenedPaths paths;
    EXPECT_GT(check_process_exist(own.c_str(), false), 0);
    EXPECT_THAT(paths.take(), AllOf(testing::Not(testing::IsEmpty()),
                                    testing::Each(testing::MatchesRegex("/proc/[0-9]+/cmdline"))));
}
